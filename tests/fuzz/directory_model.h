// Directories of log files, as a configuration keeps them.
#pragma once

#include <cstring>
#include <string>

namespace zantlog::fuzz {

// Each pair of backslashes is one; one stands at the end.
inline std::string collapsed(const std::string &text) {
    std::string out;
    for (size_t at = 0; at < text.size(); ++at) {
        out += text[at];
        at += text.compare(at, 2, "\\\\") == 0 ? 1 : 0;
    }
    return out.back() == '\\' ? out : out + '\\';
}

inline bool isAbsolute(const std::string &text) {
    const bool letter = !text.empty() &&
                        std::strchr("abcdefghijklmnopqrstuvwxyz", text[0] | 0x20) != nullptr &&
                        (text[0] & 0x40) != 0;
    return text.substr(0, 2) == "\\\\" || (letter && text.substr(1, 2) == ":\\");
}

} // namespace zantlog::fuzz
