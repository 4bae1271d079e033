// Lines of a ".conf" file and the tokens in them.
#include "propstore/conf_line.h"

#include <algorithm>

namespace zantlog {

namespace {

constexpr std::string_view kLogset = "LOGSET";

} // namespace

std::string_view takeToken(std::string_view *rest, std::string_view delimiters) {
    const size_t begin = rest->find_first_not_of(delimiters);
    if (begin == std::string_view::npos) {
        *rest = {};
        return {};
    }
    const size_t end = std::min(rest->find_first_of(delimiters, begin), rest->size());
    const std::string_view token = rest->substr(begin, end - begin);
    *rest = rest->substr(std::min(end + 1, rest->size()));
    return token;
}

std::string_view keyOfLine(std::string_view line) {
    return takeToken(&line, "=");
}

LineRoot rootOfLine(std::string_view line, std::string_view delimiters) {
    const std::string_view first = takeToken(&line, delimiters);
    if (first != kLogset) {
        return {first, false};
    }
    return {takeToken(&line, delimiters), true};
}

bool isLogsetRoot(const LineRoot &line, std::string_view root) {
    if (!line.logset || line.name.empty() || !root.starts_with(kLogset)) {
        return false;
    }
    root.remove_prefix(kLogset.size());
    return root.starts_with('.') && root.substr(1) == line.name;
}

bool fileIsCommentLine(std::string_view line) {
    const size_t first = line.find_first_not_of(' ');
    return first != std::string_view::npos && line[first] == '#';
}

bool namesConfFile(std::string_view text) {
    return text.find(".conf") != std::string_view::npos;
}

} // namespace zantlog
