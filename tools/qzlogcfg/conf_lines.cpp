#include "tools/qzlogcfg/conf_lines.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "zantlog/property_store.h"

namespace zantlog::tools {

namespace {

constexpr std::string_view kLogSetPrefix = "LOGSET.";

std::string_view withoutTrailingBlanks(std::string_view text) {
    const size_t last = text.find_last_not_of(' ');
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

// What stands between runs of "=".
std::string_view nextToken(std::string_view *rest) {
    rest->remove_prefix(std::min(rest->find_first_not_of('='), rest->size()));
    const size_t end = std::min(rest->find('='), rest->size());
    const std::string_view token = rest->substr(0, end);
    rest->remove_prefix(end);
    return token;
}

ConfLine parseLine(std::string_view text, size_t number) {
    ConfLine line;
    line.number = number;
    line.tooLong = text.size() + 1 >= ZANTLOG_STORE_LINE;
    const size_t first = text.find_first_not_of(' ');
    line.comment = first == std::string_view::npos || text[first] == '#';
    if (line.comment) {
        return line;
    }
    const bool hasEqual = text.find('=') != std::string_view::npos;
    std::string_view rest = text;
    const std::string_view key = nextToken(&rest);
    if (!hasEqual) {
        return line;
    }
    line.key = key;
    line.hasValue = !rest.empty();
    const std::string_view value = nextToken(&rest);
    line.cut = value.size() >= ZANTLOG_STORE_TEXT || !nextToken(&rest).empty();
    line.value = withoutTrailingBlanks(value.substr(0, ZANTLOG_STORE_TEXT - 1));
    return line;
}

} // namespace

bool readConfFile(const std::string &path, ConfFile *file) {
    std::ifstream stream(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary);
    if (!stream.is_open()) {
        return false;
    }
    const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    *file = parseConfText(text);
    return !stream.bad();
}

ConfFile parseConfText(std::string_view text) {
    constexpr char kControlZ = '\x1a';
    ConfFile file;
    const size_t end = text.find(kControlZ);
    file.endsInControlZ = end != std::string_view::npos;
    text = text.substr(0, end);
    file.endsInLineEnd = text.empty() || text.back() == '\n';
    for (size_t number = 1; !text.empty(); ++number) {
        const size_t lineEnd = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, lineEnd);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        file.lines.push_back(parseLine(line, number));
        text.remove_prefix(std::min(lineEnd + 1, text.size()));
    }
    return file;
}

std::map<std::string, std::string> valuesOf(const ConfFile &file) {
    std::map<std::string, std::string> values;
    for (const ConfLine &line : file.lines) {
        if (!line.key.empty() && line.hasValue) {
            values.emplace(line.key, line.value);
        }
    }
    return values;
}

std::string rootOfKey(const std::string &key) {
    const size_t begin = key.compare(0, kLogSetPrefix.size(), kLogSetPrefix) == 0 ? kLogSetPrefix.size() : 0;
    const size_t dot = key.find('.', begin);
    return dot == std::string::npos ? "" : key.substr(0, dot);
}

std::string nameOfKey(const std::string &key) {
    const std::string root = rootOfKey(key);
    return root.empty() ? "" : key.substr(root.size() + 1);
}

} // namespace zantlog::tools
