#include "tests/fuzz/conf_model.h"

#include <algorithm>

namespace zantlog::fuzz {

namespace {

constexpr uint32_t kDone = 0;
constexpr uint32_t kNull = 1;
constexpr uint32_t kFailed = 6;
constexpr uint32_t kNoMore = 7;
constexpr uint32_t kNoRoot = 8;

constexpr size_t kLongestLine = 499;
constexpr size_t kLongestRoot = 399;
constexpr size_t kLongestValue = 399;

// The text of the bytes on disk: up to Ctrl-Z, CR LF as LF.
std::string textOf(const std::string &bytes) {
    std::string text = bytes.substr(0, bytes.find('\x1a'));
    for (size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;) {
        text.erase(at, 1);
        ++at;
    }
    return text;
}

// A line is what a buffer of 500 bytes holds, up to a NUL.
std::vector<std::string> linesOf(const std::string &bytes) {
    const std::string text = textOf(bytes);
    std::vector<std::string> lines;
    for (size_t at = 0; at < text.size();) {
        const size_t feed = text.find('\n', at);
        const size_t end = feed == std::string::npos ? text.size() : feed + 1;
        const std::string line = text.substr(at, std::min(end - at, kLongestLine));
        at += line.size();
        lines.emplace_back(line.c_str());
    }
    return lines;
}

std::string bytesOf(const std::vector<std::string> &lines) {
    std::string bytes;
    for (const std::string &line : lines) {
        for (const char character : line) {
            bytes += character == '\n' ? std::string("\r\n") : std::string(1, character);
        }
    }
    return bytes;
}

// All tokens of a line, none of them empty.
std::vector<std::string> tokens(const std::string &line, const std::string &delimiters) {
    std::vector<std::string> found;
    std::string token;
    for (const char character : line) {
        if (delimiters.find(character) == std::string::npos) {
            token += character;
        } else if (!token.empty()) {
            found.push_back(token);
            token.clear();
        }
    }
    if (!token.empty()) {
        found.push_back(token);
    }
    return found;
}

std::optional<std::string> tokenAt(const std::string &line, const std::string &delimiters, size_t index) {
    const std::vector<std::string> all = tokens(line, delimiters);
    return index < all.size() ? std::optional(all[index]) : std::nullopt;
}

// What a line belongs to: its first token, or for a log set's line the second and the root made of it.
struct LineOwner {
    std::optional<std::string> token;
    std::optional<std::string> logSetRoot;
};

LineOwner ownerOf(const std::string &line, const std::string &delimiters) {
    const std::optional<std::string> first = tokenAt(line, delimiters, 0);
    if (first != "LOGSET") {
        return {first, std::nullopt};
    }
    const std::optional<std::string> name = tokenAt(line, delimiters, 1);
    return {name, name ? std::optional("LOGSET." + *name) : std::nullopt};
}

bool isComment(const std::string &line) {
    size_t at = 0;
    while (at < line.size() && line[at] == ' ') {
        ++at;
    }
    return at < line.size() && line[at] == '#';
}

// Where a new or changed property goes, in the words of the rule: the run is looked for first, then gone
// through.
std::vector<std::string> withProperty(const std::vector<std::string> &lines, const std::string &root,
                                      const std::string &key, const std::string &propertyLine) {
    std::vector<std::string> out = lines;
    const auto at = [&](size_t index) { return out.begin() + static_cast<std::ptrdiff_t>(index); };
    if (root.empty()) {
        for (size_t i = 0; i < lines.size(); ++i) {
            if (ownerOf(lines[i], ".=").token == key) {
                out[i] = propertyLine;
                return out;
            }
        }
        out.push_back(propertyLine);
        return out;
    }
    size_t begin = 0;
    while (begin < lines.size()) {
        const LineOwner owner = ownerOf(lines[begin], ".=");
        if (owner.token == root || owner.logSetRoot == root) {
            break;
        }
        ++begin;
    }
    for (size_t i = begin; i < lines.size(); ++i) {
        if (ownerOf(lines[i], ".=").token != ownerOf(lines[begin], ".=").token) {
            out.insert(at(i), propertyLine);
            return out;
        }
        if (tokenAt(lines[i], "=", 0) == key) {
            out[i] = propertyLine;
            return out;
        }
    }
    out.push_back(propertyLine);
    return out;
}

} // namespace

void ConfModel::open(const std::string &newRoot) {
    root = newRoot.substr(0, kLongestRoot);
    next = 0;
}

void ConfModel::replace(const std::vector<std::string> &lines) {
    bytes = bytesOf(lines);
    temporaryStays = false;
    next = 0;
}

std::optional<std::string> ConfModel::find(const std::string &name) {
    const std::string key = root + "." + name;
    if (key.size() > kLongestLine) {
        return std::nullopt; // no line is as long, nothing is read
    }
    const std::vector<std::string> lines = linesOf(bytes);
    for (next = 0; next < lines.size();) {
        const std::vector<std::string> parts = tokens(lines[next++], "=");
        if (parts.size() < 2 || parts[0] != key) {
            continue;
        }
        std::string value = parts[1].substr(0, kLongestValue);
        const size_t lineEnd = value.rfind('\n');
        return lineEnd == std::string::npos ? value : value.substr(0, lineEnd);
    }
    return std::nullopt;
}

uint32_t ConfModel::set(const std::string &name, const std::string &value) {
    const std::string key = root.empty() ? name : root + "." + name;
    if (key.size() + 1 >= kLongestLine) {
        return kFailed;
    }
    const std::string line = (key + "=" + value).substr(0, kLongestLine - 1) + "\n";
    replace(withProperty(linesOf(bytes), root, key, line));
    return kDone;
}

uint32_t ConfModel::remove(const std::string &name) {
    const std::string key = root.empty() ? name : root + "." + name;
    const std::vector<std::string> lines = linesOf(bytes);
    std::vector<std::string> kept;
    for (const std::string &line : lines) {
        if (tokenAt(line, "=", 0) != key) {
            kept.push_back(line);
        }
    }
    if (kept.size() != lines.size()) {
        replace(kept);
        return kDone;
    }
    temporaryStays = true;
    temporary = bytesOf(lines);
    next = lines.size();
    return kDone;
}

uint32_t ConfModel::removeRoot(const std::string &name) {
    const std::vector<std::string> lines = linesOf(bytes);
    std::vector<std::string> kept;
    for (const std::string &line : lines) {
        const std::optional<std::string> first = tokenAt(line, ".", 0);
        const std::optional<std::string> compared = first == "LOGSET" ? ownerOf(line, ".").logSetRoot : first;
        if (compared != name) {
            kept.push_back(line);
        }
    }
    replace(kept);
    return kept.size() != lines.size() ? kDone : kNoRoot;
}

uint32_t ConfModel::enumerate(bool logSets, std::string *name, uint32_t *length) {
    if (*length == 0) {
        return kNull;
    }
    const std::vector<std::string> lines = linesOf(bytes);
    while (next < lines.size()) {
        const std::string &line = lines[next++];
        std::optional<std::string> candidate;
        if (!logSets) {
            const size_t dot = line.find('.');
            const bool offers = dot != std::string::npos && line.find('=') > dot;
            candidate = offers ? std::optional(line.substr(0, dot)) : std::nullopt;
        } else if (line.substr(0, 6) == "LOGSET") {
            candidate = tokenAt(line, ".", 1);
        }
        if (isComment(line) || !candidate || *candidate == *name) {
            continue;
        }
        if (candidate->size() >= *length) {
            return kFailed;
        }
        *name = *candidate;
        *length = static_cast<uint32_t>(candidate->size());
        return kDone;
    }
    return kNoMore;
}

} // namespace zantlog::fuzz
