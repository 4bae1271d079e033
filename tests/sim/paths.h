// Path rules of Windows.
#pragma once

#include <string>
#include <vector>

#include "logfile/os/os_error.h"

namespace zantlog::sim {

inline constexpr os::SystemError kErrorBadNetworkPath = 53;
inline constexpr os::SystemError kErrorInvalidName = 123;

// Of ASCII letters; others are told apart.
std::string upperCase(std::string text);

struct Path {
    std::string drive;              // one letter in upper case
    std::vector<std::string> names; // from the drive's root downwards, as they were spelled
    bool endsInSeparator = false;
};

// The path from a drive's root that a text means to a process in that folder. Wildcards are taken for
// characters. Errors: empty text, or longer than the system takes (3), network names (53), characters that no
// name can have (123).
os::SystemError parsePath(const std::string &text, const std::string &currentFolder, bool wildcardsAllowed,
                          Path *out);

std::string textOf(const Path &path);

// Whether a name fits a pattern with "*" and "?", with case ignored.
bool matches(const std::string &name, const std::string &pattern);

} // namespace zantlog::sim
