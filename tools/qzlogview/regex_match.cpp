// All ways through the program at once: a set of places that grows and shrinks with each character of the
// text.
#include "tools/qzlogview/regex.h"

#include "tools/common/ascii.h"
#include "tools/qzlogview/characters.h"

namespace zantlog::view {

namespace {

bool isWord(char32_t character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '_';
}

char32_t folded(char32_t character) {
    return character < 0x80 ? static_cast<unsigned char>(tools::lower(static_cast<char>(character)))
                            : character;
}

// Places of the program, each once.
class Places {
public:
    explicit Places(size_t most) : marks_(most, 0) {}

    void clear() {
        places_.clear();
        ++generation_;
    }
    // False when it is there already.
    bool add(uint32_t place) {
        if (marks_[place] == generation_) {
            return false;
        }
        marks_[place] = generation_;
        places_.push_back(place);
        return true;
    }
    [[nodiscard]] const std::vector<uint32_t> &all() const { return places_; }

private:
    std::vector<uint32_t> places_;
    std::vector<uint64_t> marks_;
    uint64_t generation_ = 1;
};

// What stands on both sides of a place in the text.
struct Around {
    bool atBegin;
    bool atEnd;
    bool wordBefore;
    bool wordBehind;
};

} // namespace

bool Regex::matches(const Instruction &instruction, char32_t character) const {
    switch (instruction.op) {
    case Op::any:
        return character != '\n';
    case Op::character:
        return ignoreCase_ ? folded(instruction.character) == folded(character)
                           : instruction.character == character;
    default:
        break;
    }
    const auto isIn = [&](char32_t wanted) {
        for (uint32_t i = instruction.first; i < instruction.second; ++i) {
            if (wanted >= ranges_[i].first && wanted <= ranges_[i].last) {
                return true;
            }
        }
        return false;
    };
    const bool letter = ignoreCase_ && folded(character) >= 'a' && folded(character) <= 'z';
    const bool found =
        isIn(character) || (letter && (isIn(folded(character)) || isIn(folded(character) ^ 0x20)));
    return found != instruction.inverted;
}

bool Regex::isFoundIn(std::string_view text) const {
    if (isLiteral_) {
        return text.find(literal_) != std::string_view::npos;
    }
    Places now(program_.size());
    Places next(program_.size());
    std::vector<uint32_t> pending;
    // Follows the instructions that take no character. True when the end of the program is reached.
    const auto reach = [&](Places *places, uint32_t place, const Around &around) {
        pending.assign(1, place);
        while (!pending.empty()) {
            const uint32_t at = pending.back();
            pending.pop_back();
            if (!places->add(at)) {
                continue;
            }
            const Instruction &instruction = program_[at];
            switch (instruction.op) {
            case Op::match:
                return true;
            case Op::jump:
                pending.push_back(instruction.first);
                break;
            case Op::split:
                pending.push_back(instruction.second);
                pending.push_back(instruction.first);
                break;
            case Op::begin:
            case Op::end:
            case Op::wordBoundary: {
                const bool holds = instruction.op == Op::begin ? around.atBegin
                                   : instruction.op == Op::end ? around.atEnd
                                                               : around.wordBefore != around.wordBehind;
                if (holds) {
                    pending.push_back(at + 1);
                }
                break;
            }
            default:
                break;
            }
        }
        return false;
    };
    size_t at = 0;
    char32_t before = 0;
    const auto aroundHere = [&] {
        size_t ahead = at;
        const char32_t behind = at < text.size() ? nextCharacter(text, &ahead) : 0;
        return Around{at == 0, at == text.size(), isWord(before), isWord(behind)};
    };
    now.clear();
    for (;;) {
        if (reach(&now, 0, aroundHere())) { // the match may begin anywhere
            return true;
        }
        if (at == text.size()) {
            return false;
        }
        before = nextCharacter(text, &at);
        next.clear();
        const Around around = aroundHere();
        for (const uint32_t place : now.all()) {
            const Op op = program_[place].op;
            const bool takes = op == Op::character || op == Op::any || op == Op::set;
            if (takes && matches(program_[place], before) && reach(&next, place + 1, around)) {
                return true;
            }
        }
        std::swap(now, next);
    }
}

} // namespace zantlog::view
