// Lines of a text as messages.
#pragma once

#include <istream>
#include <string>

namespace zantlog::tools {

// Gives one line after the other, without its line end (LF or CRLF), as UTF-8. A line that is not UTF-8 is
// read in the user's code page; NUL bytes, which no message can hold, become U+FFFD.
class MessageLines {
public:
    explicit MessageLines(std::istream &stream) : stream_(stream) {}

    // False at the end, and when reading fails: then failed() tells.
    [[nodiscard]] bool next(std::string *line);
    [[nodiscard]] bool failed() const { return stream_.bad(); }
    // Of the last line, counted from 1.
    [[nodiscard]] uint64_t number() const { return number_; }

private:
    std::istream &stream_;
    uint64_t number_ = 0;
};

[[nodiscard]] bool isUtf8(const std::string &text);

} // namespace zantlog::tools
