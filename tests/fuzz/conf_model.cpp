#include "tests/fuzz/conf_model.h"

namespace zantlog::fuzz {

namespace {

constexpr size_t kLongestLine = 499;
constexpr const char *kLogSet = "LOGSET";

// What strtok() would hand out, one after the other.
std::vector<std::string> tokensOf(const std::string &line, const std::string &delimiters) {
    std::vector<std::string> tokens;
    std::string token;
    for (const char byte : line) {
        if (delimiters.find(byte) == std::string::npos) {
            token += byte;
        } else if (!token.empty()) {
            tokens.push_back(token);
            token.clear();
        }
    }
    if (!token.empty()) {
        tokens.push_back(token);
    }
    return tokens;
}

std::string first(const std::vector<std::string> &tokens) {
    return tokens.empty() ? "" : tokens[0];
}

std::string second(const std::vector<std::string> &tokens) {
    return tokens.size() < 2 ? "" : tokens[1];
}

bool isLogSetLine(const std::string &line, const std::string &delimiters) {
    return first(tokensOf(line, delimiters)) == kLogSet;
}

// The name that runs of lines are told apart by.
std::string rootNameOf(const std::string &line, const std::string &delimiters) {
    const std::vector<std::string> tokens = tokensOf(line, delimiters);
    return first(tokens) == kLogSet ? second(tokens) : first(tokens);
}

bool isComment(const std::string &line) {
    const size_t at = line.find_first_not_of(' ');
    return at != std::string::npos && line[at] == '#';
}

} // namespace

// As a stream in text mode reads them: CR LF is a line feed, a byte 1A is the end.
std::vector<std::string> ConfModel::lines() const {
    std::vector<std::string> lines;
    std::string line;
    for (size_t i = 0; i < bytes_.size() && bytes_[i] != '\x1A'; ++i) {
        if (bytes_[i] == '\r' && i + 1 < bytes_.size() && bytes_[i + 1] == '\n') {
            continue;
        }
        line += bytes_[i];
        if (bytes_[i] == '\n' || line.size() == kLongestLine) {
            lines.push_back(line);
            line.clear();
        }
    }
    if (!line.empty()) {
        lines.push_back(line);
    }
    return lines;
}

void ConfModel::replace(const std::string &text) {
    bytes_.clear();
    for (const char byte : text) {
        bytes_ += byte == '\n' ? "\r\n" : std::string(1, byte);
    }
}

std::string ConfModel::keyOf(const std::string &name) const {
    return root_.empty() ? name : root_ + "." + name;
}

std::optional<std::string> ConfModel::find(const std::string &name, size_t capacity) const {
    for (const std::string &line : lines()) {
        const std::vector<std::string> tokens = tokensOf(line, "=");
        if (tokens.size() >= 2 && tokens[0] == root_ + "." + name) {
            const std::string value = tokens[1].substr(0, capacity - 1);
            const size_t lineEnd = value.rfind('\n');
            return value.substr(0, lineEnd);
        }
    }
    return std::nullopt;
}

void ConfModel::set(const std::string &name, const std::string &value) {
    const std::string key = keyOf(name);
    const std::string property = key + "=" + value + "\n";
    std::string text;
    std::string run; // root name of the run that the property belongs to, while it lasts
    bool written = false;
    for (const std::string &line : lines()) {
        const std::string name_ = rootNameOf(line, ".=");
        const bool begins = name_ == root_ || (isLogSetLine(line, ".=") && "LOGSET." + name_ == root_);
        bool replaces = false;
        if (!written && root_.empty()) {
            replaces = name_ == key;
        } else if (!written && (!run.empty() || (begins && !name_.empty()))) {
            if (run.empty()) {
                run = name_;
            }
            if (name_ != run) {
                text += property;
                written = true;
            } else {
                replaces = first(tokensOf(line, "=")) == key;
            }
        }
        text += replaces ? property : line;
        written = written || replaces;
    }
    replace(written ? text : text + property);
}

bool ConfModel::remove(const std::string &name) {
    const std::string key = keyOf(name);
    std::string text;
    bool dropped = false;
    for (const std::string &line : lines()) {
        const bool drop = first(tokensOf(line, "=")) == key;
        text += drop ? "" : line;
        dropped = dropped || drop;
    }
    if (dropped) {
        replace(text);
    }
    return dropped;
}

bool ConfModel::removeRoot(const std::string &root) {
    std::string text;
    bool dropped = false;
    for (const std::string &line : lines()) {
        const std::string name = rootNameOf(line, ".");
        const bool drop = (isLogSetLine(line, ".") ? "LOGSET." + name : name) == root;
        text += drop ? "" : line;
        dropped = dropped || drop;
    }
    replace(text);
    return dropped;
}

std::vector<std::string> ConfModel::roots() const {
    std::vector<std::string> roots;
    for (const std::string &line : lines()) {
        const size_t end = line.find('.');
        const std::string root = line.substr(0, end);
        if (!isComment(line) && end != std::string::npos && root.find('=') == std::string::npos) {
            roots.push_back(root);
        }
    }
    return roots;
}

std::vector<std::string> ConfModel::logSets() const {
    std::vector<std::string> names;
    for (const std::string &line : lines()) {
        const std::vector<std::string> tokens = tokensOf(line, ".");
        if (!isComment(line) && line.compare(0, 6, kLogSet) == 0 && tokens.size() >= 2) {
            names.push_back(tokens[1]);
        }
    }
    return names;
}

} // namespace zantlog::fuzz
