// Lines of a ".conf" file and the tokens in them.
#pragma once

#include <string_view>

namespace zantlog {

// Takes the next token of a text as strtok() does: leading delimiters are skipped, and the delimiter behind
// the token goes with it. Empty when there is none; a token itself never is.
[[nodiscard]] std::string_view takeToken(std::string_view *rest, std::string_view delimiters);

// What stands before the "=" of a line; its line end belongs to it when there is no "=".
[[nodiscard]] std::string_view keyOfLine(std::string_view line);

struct LineRoot {
    std::string_view name; // of the root, or of the log set; empty when the line has none
    bool logset;
};

[[nodiscard]] LineRoot rootOfLine(std::string_view line, std::string_view delimiters);

// Whether `root` is "LOGSET." and the name of this log set line.
[[nodiscard]] bool isLogsetRoot(const LineRoot &line, std::string_view root);

// Whether the first character other than a blank is "#"; a tab is no blank.
[[nodiscard]] bool fileIsCommentLine(std::string_view line);

// Whether a location or a root to remove means a ".conf" file: the text stands anywhere in it.
[[nodiscard]] bool namesConfFile(std::string_view text);

} // namespace zantlog
