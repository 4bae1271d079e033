#include "tools/qzlogview/context_titles.h"

#include <algorithm>
#include <map>

#include "tools/qzlogview/log_file.h"
#include "tools/qzlogview/shown_text.h"
#include "zantlog/results.h"

namespace zantlog::view {

namespace {

using Titles = std::map<std::string, std::string, std::less<>>;

// Lines of older versions do not begin with their type.
bool mayBeContext(const Source &source, std::string_view line) {
    return source.header.version < ZANTLOG_FORMAT_PRODUCT || line.starts_with("3,");
}

// What cannot be read is reported by those who read the messages.
void readTitles(const Source &source, const std::vector<std::string> &tokens, Titles *titles) {
    LogFile file;
    LogFileHeader header;
    if (!file.open(source.path) || file.readHeader(&header) != ZANTLOG_OK) {
        return;
    }
    Record record;
    while (titles->size() < tokens.size() && file.next() == LineState::line) {
        if (!mayBeContext(source, file.line()) ||
            parseLine(source, file.line(), file.lineOffset(), &record) != ZANTLOG_OK ||
            record.type() != ZANTLOG_MSG_CONTEXT) {
            continue;
        }
        const auto wanted = std::find(tokens.begin(), tokens.end(), record.contextString());
        if (wanted != tokens.end()) {
            titles->try_emplace(*wanted, record.text());
        }
    }
}

} // namespace

std::vector<ContextName> contextTitles(const std::vector<Source> &sources,
                                       const std::vector<std::string> &tokens) {
    std::vector<std::string> once;
    for (const std::string &token : tokens) {
        if (std::find(once.begin(), once.end(), token) == once.end()) {
            once.push_back(token);
        }
    }
    Titles titles;
    for (const Source &source : sources) {
        if (titles.size() < once.size()) {
            readTitles(source, once, &titles);
        }
    }
    std::vector<ContextName> found;
    for (const std::string &token : once) {
        if (const auto title = titles.find(token); title != titles.end()) {
            found.push_back({token, title->second});
        }
    }
    return found;
}

void appendContextTitles(const std::vector<ContextName> &contexts, std::string *out) {
    constexpr size_t kIndentation = 4;
    for (const ContextName &context : contexts) {
        *out += "context ";
        appendShown(context.token, Lines::one, 0, out);
        *out += ": ";
        appendShown(context.title, Lines::indented, kIndentation, out);
        out->push_back('\n');
    }
}

} // namespace zantlog::view
