// Regular expressions over texts of any length: the time grows with the length of the text times that of the
// expression, and the memory with the expression alone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zantlog::view {

// . [] [^] \d \w \s \D \W \S \b ^ $ ( ) (?: ) | * + ? {m,n} and a "?" behind them, and (?i) at the beginning.
// "^" and
// "$" are the ends of the text; "." is any character but a line feed. Characters are those of UTF-8; a byte
// that is none is one of its own.
class Regex {
public:
    // An error names what is wrong, and the place in the expression.
    struct Error {
        std::string what;
        size_t position;
    };

    static std::optional<Regex> compile(std::string_view expression, Error *error);

    // Whether the expression is found anywhere in the text.
    [[nodiscard]] bool isFoundIn(std::string_view text) const;

private:
    friend class RegexCompiler;

    enum class Op : uint8_t { character, any, set, begin, end, wordBoundary, split, jump, match };
    struct Range {
        char32_t first;
        char32_t last;
    };
    struct Instruction {
        Op op = Op::match;
        bool inverted = false;  // of a set
        char32_t character = 0; // of a character
        uint32_t first = 0;     // of a split and a jump: where it goes on; of a set: its first range
        uint32_t second = 0;    // of a split: the other place; of a set: behind its last range
    };

    [[nodiscard]] bool matches(const Instruction &instruction, char32_t character) const;

    std::vector<Instruction> program_;
    std::vector<Range> ranges_;
    bool ignoreCase_ = false;
    std::string literal_; // the whole expression, when it is nothing but characters
    bool isLiteral_ = false;
};

} // namespace zantlog::view
