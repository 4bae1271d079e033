#include "tests/sim/paths.h"

#include <algorithm>

namespace zantlog::sim {

namespace {

// Windows' limit to what a path comes to, without the opt-in to long paths; Wine has none.
constexpr size_t kLongestPath = 259;
constexpr size_t kLongestName = 255;

bool isSeparator(char character) {
    return character == '\\' || character == '/';
}

bool isLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool isWildcard(char character) {
    return character == '*' || character == '?';
}

bool canBeInAName(char character) {
    return static_cast<unsigned char>(character) >= 0x20 &&
           std::string("<>:\"|").find(character) == std::string::npos;
}

// Dots and blanks at the end of a name are no part of it.
std::string trimmed(std::string name) {
    while (!name.empty() && (name.back() == '.' || name.back() == ' ')) {
        name.pop_back();
    }
    return name;
}

os::SystemError addNames(const std::string &text, bool wildcardsAllowed, Path *out) {
    size_t begin = 0;
    while (begin < text.size()) {
        const auto end = static_cast<size_t>(
            std::find_if(text.begin() + static_cast<std::ptrdiff_t>(begin), text.end(), isSeparator) -
            text.begin());
        const std::string name = text.substr(begin, end - begin);
        begin = end + 1;
        if (name.empty() || name == ".") {
            continue;
        }
        if (name == "..") {
            if (!out->names.empty()) {
                out->names.pop_back();
            }
            continue;
        }
        const bool last = end == text.size();
        const bool wild = std::any_of(name.begin(), name.end(), isWildcard);
        if (!std::all_of(name.begin(), name.end(), canBeInAName) || name.size() > kLongestName ||
            (wild && !(wildcardsAllowed && last))) {
            return kErrorInvalidName;
        }
        out->names.push_back(wild ? name : trimmed(name));
    }
    return os::kErrorNone;
}

} // namespace

std::string upperCase(std::string text) {
    for (char &character : text) {
        character = character >= 'a' && character <= 'z' ? static_cast<char>(character - 0x20) : character;
    }
    return text;
}

os::SystemError parsePath(const std::string &text, const std::string &currentFolder, bool wildcardsAllowed,
                          Path *out) {
    *out = {};
    if (text.empty()) {
        return os::kErrorPathNotFound;
    }
    if (text.size() >= 2 && isSeparator(text[0]) && isSeparator(text[1])) {
        return kErrorBadNetworkPath;
    }
    const bool hasDrive = text.size() >= 2 && isLetter(text[0]) && text[1] == ':';
    const std::string rest = hasDrive ? text.substr(2) : text;
    const std::string drive = upperCase(hasDrive ? text.substr(0, 1) : currentFolder.substr(0, 1));
    const bool fromRoot = !rest.empty() && isSeparator(rest[0]);
    // Another drive has no current folder but its root.
    const bool belowCurrent = !fromRoot && drive == upperCase(currentFolder.substr(0, 1));
    out->drive = drive;
    out->endsInSeparator = !rest.empty() && isSeparator(rest.back());
    if (belowCurrent) {
        if (const os::SystemError error = addNames(currentFolder.substr(2), false, out);
            error != os::kErrorNone) {
            return error;
        }
    }
    const os::SystemError error = addNames(rest, wildcardsAllowed, out);
    const bool fits = textOf(*out).size() <= kLongestPath;
    return error == os::kErrorNone && !fits ? os::kErrorPathNotFound : error;
}

std::string textOf(const Path &path) {
    std::string text = path.drive + ":";
    for (const std::string &name : path.names) {
        text += "\\" + name;
    }
    return path.names.empty() ? text + "\\" : text;
}

bool matches(const std::string &name, const std::string &pattern) {
    const std::string text = upperCase(name);
    // "*.*" is every name, with a dot or without.
    const std::string mask = pattern == "*.*" ? "*" : upperCase(pattern);
    size_t at = 0;
    size_t in = 0;
    size_t star = std::string::npos;
    size_t retry = 0;
    while (at < text.size()) {
        if (in < mask.size() && mask[in] == '*') {
            star = in++;
            retry = at;
        } else if (in < mask.size() && (mask[in] == '?' || mask[in] == text[at])) {
            ++in;
            ++at;
        } else if (star != std::string::npos) {
            in = star + 1;
            at = ++retry;
        } else {
            return false;
        }
    }
    return mask.find_first_not_of('*', in) == std::string::npos;
}

} // namespace zantlog::sim
