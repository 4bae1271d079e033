#include "tools/qzlogview/regex.h"

#include <algorithm>

#include "tools/common/ascii.h"
#include "tools/qzlogview/characters.h"

namespace zantlog::view {

namespace {

constexpr size_t kMostInstructions = 20000;
constexpr int kDeepest = 200;
constexpr uint32_t kMostRepeats = 1000;
constexpr std::string_view kSpecial = ".[]()|*+?{}^$\\";

bool isUtf8(std::string_view text) {
    for (size_t at = 0; at < text.size();) {
        const size_t bytes = characterAt(text, at).bytes;
        if (bytes == 0) {
            return false;
        }
        at += bytes;
    }
    return true;
}

} // namespace

// Recursive descent; a part of the program is made of each part of the expression, and copied where it
// repeats.
class RegexCompiler {
public:
    explicit RegexCompiler(std::string_view expression) : expression_(expression) {}

    std::optional<Regex> compile(Regex::Error *error) {
        if (expression_.starts_with("(?i)")) {
            regex_.ignoreCase_ = true;
            at_ = 4;
        }
        if (findLiteral()) {
            return std::move(regex_);
        }
        if (!alternatives(0) || (at_ < expression_.size() && !fail("a \")\" without a \"(\""))) {
            *error = error_;
            return std::nullopt;
        }
        emit({Regex::Op::match});
        return std::move(regex_);
    }

private:
    using Op = Regex::Op;
    using Instruction = Regex::Instruction;
    using Program = std::vector<Instruction>;

    bool fail(const std::string &what) {
        error_ = {what, std::min(at_, expression_.size())};
        return false;
    }
    [[nodiscard]] bool atEnd() const { return at_ >= expression_.size(); }
    [[nodiscard]] char peek() const { return expression_[at_]; }
    bool take(char character) {
        const bool there = !atEnd() && peek() == character;
        at_ += there ? 1 : 0;
        return there;
    }
    void emit(const Instruction &instruction) { regex_.program_.push_back(instruction); }
    [[nodiscard]] uint32_t here() const { return static_cast<uint32_t>(regex_.program_.size()); }

    // Whether it is nothing but characters: whole ones, so that it is found where characters begin.
    bool findLiteral() {
        const std::string_view rest = expression_.substr(at_);
        regex_.isLiteral_ =
            !regex_.ignoreCase_ && rest.find_first_of(kSpecial) == std::string_view::npos && isUtf8(rest);
        if (regex_.isLiteral_) {
            regex_.literal_ = rest;
        }
        return regex_.isLiteral_;
    }

    // Takes the instructions from a place on away; their jumps are relative to it.
    Program cut(uint32_t begin) {
        Program part(regex_.program_.begin() + begin, regex_.program_.end());
        regex_.program_.resize(begin);
        for (Instruction &instruction : part) {
            if (instruction.op == Op::split || instruction.op == Op::jump) {
                instruction.first -= begin;
                instruction.second -= begin;
            }
        }
        return part;
    }
    bool append(const Program &part) {
        const uint32_t begin = here();
        if (begin + part.size() > kMostInstructions) {
            return fail("the expression is too large");
        }
        for (Instruction instruction : part) {
            if (instruction.op == Op::split || instruction.op == Op::jump) {
                instruction.first += begin;
                instruction.second += begin;
            }
            emit(instruction);
        }
        return true;
    }

    bool alternatives(int depth) {
        const uint32_t begin = here();
        if (!sequence(depth)) {
            return false;
        }
        while (take('|')) {
            const Program left = cut(begin);
            emit({Op::split, false, 0, begin + 1, begin + static_cast<uint32_t>(left.size()) + 2});
            if (!append(left)) {
                return false;
            }
            const uint32_t jump = here();
            emit({Op::jump});
            if (!sequence(depth)) {
                return false;
            }
            regex_.program_[jump].first = here();
        }
        return true;
    }

    bool sequence(int depth) {
        while (!atEnd() && peek() != '|' && peek() != ')') {
            const uint32_t begin = here();
            if (!atom(depth) || !repetition(begin)) {
                return false;
            }
            if (here() > kMostInstructions) {
                return fail("the expression is too large");
            }
        }
        return true;
    }

    bool atom(int depth) {
        const char character = peek();
        switch (character) {
        case '(':
            return group(depth);
        case '[':
            return set();
        case '.':
            ++at_;
            emit({Op::any});
            return true;
        case '^':
            ++at_;
            emit({Op::begin});
            return true;
        case '$':
            ++at_;
            emit({Op::end});
            return true;
        case '\\':
            return escape();
        case '*':
        case '+':
        case '?':
            return fail(std::string("nothing stands before the \"") + character + "\"");
        default:
            emit({Op::character, false, nextCharacter(expression_, &at_)});
            return true;
        }
    }

    bool group(int depth) {
        ++at_;
        if (take('?') && !take(':')) {
            return fail("of groups with a \"?\" there is \"(?:\" alone, and \"(?i)\" at the beginning");
        }
        if (depth >= kDeepest) {
            return fail("groups are nested too deeply");
        }
        if (!alternatives(depth + 1)) {
            return false;
        }
        return take(')') || fail("the \")\" is missing");
    }

    // Of \d, \w and \s; false for any other letter.
    bool addClass(char letter) {
        switch (tools::lower(letter)) {
        case 'd':
            regex_.ranges_.push_back({'0', '9'});
            return true;
        case 'w':
            regex_.ranges_.insert(regex_.ranges_.end(), {{'a', 'z'}, {'A', 'Z'}, {'0', '9'}, {'_', '_'}});
            return true;
        case 's':
            regex_.ranges_.insert(regex_.ranges_.end(), {{'\t', '\r'}, {' ', ' '}, {0xA0, 0xA0}});
            return true;
        default:
            return false;
        }
    }
    void emitSet(uint32_t begin, bool inverted) {
        emit({Op::set, inverted, 0, begin, static_cast<uint32_t>(regex_.ranges_.size())});
    }

    // The character that an escape stands for, behind the backslash.
    bool escapedCharacter(char32_t *character) {
        constexpr std::string_view kLetters = "nrtfv0";
        constexpr char kMeanings[] = {'\n', '\r', '\t', '\f', '\v', '\0'};
        const size_t found = kLetters.find(peek());
        if (found != std::string_view::npos) {
            *character = static_cast<unsigned char>(kMeanings[found]);
            ++at_;
            return true;
        }
        if ((peek() >= 'a' && peek() <= 'z') || (peek() >= 'A' && peek() <= 'Z') || tools::isDigit(peek())) {
            return fail(std::string("there is no \"\\") + peek() + "\"");
        }
        *character = nextCharacter(expression_, &at_);
        return true;
    }

    bool escape() {
        ++at_;
        if (atEnd()) {
            return fail("a single backslash at the end");
        }
        if (take('b')) {
            emit({Op::wordBoundary});
            return true;
        }
        const auto begin = static_cast<uint32_t>(regex_.ranges_.size());
        const char letter = peek();
        if (addClass(letter)) {
            ++at_;
            emitSet(begin, letter < 'a');
            return true;
        }
        char32_t character = 0;
        if (!escapedCharacter(&character)) {
            return false;
        }
        emit({Op::character, false, character});
        return true;
    }

    // One end of a range; a class of its own leaves *isClass.
    bool setItem(char32_t *character, bool *isClass) {
        *isClass = false;
        if (!take('\\')) {
            *character = nextCharacter(expression_, &at_);
            return true;
        }
        if (atEnd()) {
            return fail("a single backslash at the end");
        }
        if (constexpr std::string_view kInverted = "DWS"; kInverted.find(peek()) != std::string_view::npos) {
            return fail("\\D, \\S and \\W have no place in a set: write [^...]");
        }
        if (addClass(peek())) {
            ++at_;
            *isClass = true;
            return true;
        }
        return escapedCharacter(character);
    }

    bool set() {
        ++at_;
        const bool inverted = take('^');
        const auto begin = static_cast<uint32_t>(regex_.ranges_.size());
        bool first = true;
        while (!atEnd() && (first || peek() != ']')) {
            first = false;
            char32_t low = 0;
            bool isClass = false;
            if (!setItem(&low, &isClass)) {
                return false;
            }
            if (isClass) {
                continue;
            }
            char32_t high = low;
            const bool range = at_ + 1 < expression_.size() && peek() == '-' && expression_[at_ + 1] != ']';
            if (range) {
                ++at_;
                if (!setItem(&high, &isClass)) {
                    return false;
                }
                if (isClass) {
                    return fail("a class cannot be the end of a range");
                }
                if (high < low) {
                    return fail("a range that ends before it begins");
                }
            }
            regex_.ranges_.push_back({low, high});
        }
        emitSet(begin, inverted);
        return take(']') || fail("the \"]\" is missing");
    }

    // "{m}", "{m,}" and "{m,n}"; false, with nothing taken, for a brace that is a character like any other.
    bool braces(uint32_t *least, std::optional<uint32_t> *most) {
        size_t place = at_ + 1;
        const auto number = [&](uint32_t *value) {
            const size_t begin = place;
            *value = 0;
            for (; place < expression_.size() && tools::isDigit(expression_[place]); ++place) {
                const uint32_t larger = *value * 10 + static_cast<uint32_t>(expression_[place] - '0');
                *value = std::min(larger, kMostRepeats + 1);
            }
            return place > begin;
        };
        if (!number(least)) {
            return false;
        }
        *most = *least;
        if (place < expression_.size() && expression_[place] == ',') {
            ++place;
            uint32_t upper = 0;
            *most = number(&upper) ? std::optional(upper) : std::nullopt;
        }
        if (place >= expression_.size() || expression_[place] != '}') {
            return false;
        }
        at_ = place + 1;
        return true;
    }

    bool repetition(uint32_t begin) {
        while (!atEnd()) {
            uint32_t least = 0;
            std::optional<uint32_t> most;
            if (take('*')) {
                least = 0;
            } else if (take('+')) {
                least = 1;
            } else if (take('?')) {
                most = 1;
            } else if (peek() != '{' || !braces(&least, &most)) {
                return true;
            }
            (void)take('?'); // the shortest match is found where the longest is
            if (least > kMostRepeats || most.value_or(0) > kMostRepeats || (most && *most < least)) {
                return fail("a repetition goes from a smaller number to a larger one, up to 1000");
            }
            if (!repeat(begin, least, most)) {
                return false;
            }
        }
        return true;
    }

    bool repeat(uint32_t begin, uint32_t least, const std::optional<uint32_t> &most) {
        const Program part = cut(begin);
        const auto size = static_cast<uint32_t>(part.size());
        for (uint32_t i = 0; i < least; ++i) {
            if (!append(part)) {
                return false;
            }
        }
        if (!most) {
            const uint32_t loop = here();
            emit({Op::split, false, 0, loop + 1, loop + size + 2});
            if (!append(part)) {
                return false;
            }
            emit({Op::jump, false, 0, loop});
            return true;
        }
        for (uint32_t i = least; i < *most; ++i) {
            const uint32_t place = here();
            emit({Op::split, false, 0, place + 1, place + size + 1});
            if (!append(part)) {
                return false;
            }
        }
        return true;
    }

    std::string_view expression_;
    size_t at_ = 0;
    Regex regex_;
    Regex::Error error_;
};

std::optional<Regex> Regex::compile(std::string_view expression, Error *error) {
    return RegexCompiler(expression).compile(error);
}

} // namespace zantlog::view
