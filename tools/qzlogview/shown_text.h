// Texts of records, made safe to show.
#pragma once

#include <string>
#include <string_view>

namespace zantlog::view {

// How far a text may go.
enum class Lines {
    one,     // line feeds are shown as "\n"
    indented // line feeds stay, with blanks behind them
};

// Appends the text with control characters, and characters that change the direction of writing, as escapes
// (\n, \x1b, \u202e), and bytes that are no UTF-8 as U+FFFD: what is shown can neither pass for another line
// nor drive a terminal.
void appendShown(std::string_view text, Lines lines, size_t indentation, std::string *out);

// The text between quotation marks, as an error shows what was given: safely, and the beginning of a long
// one.
std::string quoted(std::string_view text);

// Appends JSON that is valid UTF-8, with characters that appendShown() would not show as they are as \u....
void appendSafeJson(std::string_view json, std::string *out);

} // namespace zantlog::view
