#include "tools/qzlogview/where_lexer.h"

#include <algorithm>
#include <charconv>

#include "tools/common/ascii.h"
#include "tools/qzlogview/shown_text.h"

namespace zantlog::view {

namespace {

bool isNameBegin(char character) {
    return tools::lower(character) >= 'a' && tools::lower(character) <= 'z';
}

// Whether the next character is meant itself. Before others than these a backslash is one: paths and regular
// expressions are full of them.
bool isEscape(std::string_view expression, size_t at, char quote) {
    return expression[at] == '\\' && at + 1 < expression.size() &&
           (expression[at + 1] == quote || expression[at + 1] == '\\');
}

class Lexer {
public:
    explicit Lexer(std::string_view expression) : expression_(expression) {}

    std::vector<WhereWord> words() {
        std::vector<WhereWord> all;
        do {
            all.push_back(next());
        } while (all.back().token != WhereToken::end);
        return all;
    }

private:
    WhereWord next() {
        at_ = std::min(expression_.find_first_not_of(" \t\r\n", at_), expression_.size());
        WhereWord word;
        word.position = at_;
        if (at_ == expression_.size()) {
            return word;
        }
        const char character = expression_[at_];
        const bool negative =
            character == '-' && at_ + 1 < expression_.size() && tools::isDigit(expression_[at_ + 1]);
        if (isNameBegin(character)) {
            takeName(&word);
        } else if (tools::isDigit(character) || negative) {
            takeNumber(&word);
        } else if (character == '"' || character == '\'') {
            takeText(&word);
        } else {
            takeSymbol(&word);
        }
        return word;
    }

    void takeName(WhereWord *word) {
        size_t end = at_;
        while (end < expression_.size() &&
               (isNameBegin(expression_[end]) || tools::isDigit(expression_[end]) ||
                expression_[end] == '_' || expression_[end] == '-')) {
            ++end;
        }
        word->token = WhereToken::name;
        word->text = tools::lowered(expression_.substr(at_, end - at_));
        at_ = end;
    }

    void takeNumber(WhereWord *word) {
        word->token = WhereToken::number;
        word->negative = expression_[at_] == '-';
        at_ += word->negative ? 1 : 0;
        const bool hexadecimal = expression_.substr(at_, 2) == "0x";
        at_ += hexadecimal ? 2 : 0;
        const char *const begin = expression_.data() + at_;
        const char *const end = expression_.data() + expression_.size();
        const auto [stop, error] = std::from_chars(begin, end, word->number, hexadecimal ? 16 : 10);
        at_ += static_cast<size_t>(stop - begin);
        const bool joined = at_ < expression_.size() && isNameBegin(expression_[at_]);
        if (error != std::errc{} || joined || word->number > INT64_MAX) {
            whereError(expression_, word->position,
                       "this is no number; times and texts stand between quotation marks");
        }
    }

    void takeText(WhereWord *word) {
        const char quote = expression_[at_++];
        word->token = WhereToken::text;
        for (; at_ < expression_.size() && expression_[at_] != quote; ++at_) {
            at_ += isEscape(expression_, at_, quote) ? 1 : 0;
            word->text += expression_[at_];
        }
        if (at_ == expression_.size()) {
            whereError(expression_, word->position, "the quotation mark at the end is missing");
        }
        ++at_;
    }

    void takeSymbol(WhereWord *word) {
        word->token = WhereToken::symbol;
        for (const std::string_view symbol :
             {"==", "!=", "<=", ">=", "&&", "||", "=", "<", ">", "!", "(", ")", ","}) {
            if (expression_.substr(at_, symbol.size()) == symbol) {
                word->text = symbol;
                at_ += symbol.size();
                return;
            }
        }
        whereError(expression_, at_, "this is not understood");
    }

    std::string_view expression_;
    size_t at_ = 0;
};

} // namespace

void whereError(std::string_view expression, size_t position, const std::string &what) {
    constexpr size_t kBefore = 60; // of a long expression, what is around the place
    constexpr size_t kBehind = 40;
    const size_t begin = position > kBefore ? position - kBefore : 0;
    std::string before;
    appendShown(expression.substr(begin, position - begin), Lines::one, 0, &before);
    std::string behind;
    appendShown(expression.substr(std::min(position, expression.size()), kBehind), Lines::one, 0, &behind);
    const auto width = static_cast<size_t>(std::count_if(before.begin(), before.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
    }));
    tools::usageError(what + "\n  " + before + behind + "\n  " + std::string(width, ' ') + "^");
}

size_t placeInText(std::string_view expression, const WhereWord &text, size_t byte) {
    const char quote = expression[text.position];
    size_t at = text.position + 1;
    for (size_t i = 0; i < byte; ++i) {
        at += isEscape(expression, at, quote) ? 2 : 1;
    }
    return at;
}

std::vector<WhereWord> whereWords(std::string_view expression) {
    return Lexer(expression).words();
}

} // namespace zantlog::view
