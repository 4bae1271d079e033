#include "localizer/catalog_file.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/bounded_text.h"
#include "localizer/placeholder.h"
#include "logfile/os/os_file.h"
#include "zantlog/results.h"

namespace zantlog::localizer {

namespace {

using Text = std::string_view;

constexpr Text kBlanks = " \t";
constexpr Text kByteOrderMark = "\xEF\xBB\xBF";

class CatalogParser {
public:
    CatalogParser(char *bytes, size_t size, const DefectSink &defects, Catalog *out)
        : bytes_(bytes), size_(size), defects_(defects), out_(out) {}

    void parse();

private:
    void parseLine(char *line, size_t length);
    void takeText(Text key, char *text, size_t length);
    void takeWord(Word word, Text text);
    void dropDoubles();
    void report(uint32_t line, const char *what) {
        if (defects_.visit != nullptr) {
            defects_.visit(defects_.context, line, what);
        }
    }
    void report(const char *what) { report(line_, what); }

    char *bytes_;
    size_t size_;
    const DefectSink &defects_;
    Catalog *out_;
    uint32_t line_ = 0;
};

Text trimmed(Text text) {
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == Text::npos) {
        return text.substr(0, 0);
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Decimal, 1 to 2^32 - 1.
bool readId(Text text, uint32_t *id) {
    uint64_t value = 0;
    for (const char byte : text) {
        if (byte < '0' || byte > '9' || value > UINT32_MAX) {
            return false;
        }
        value = value * 10 + static_cast<unsigned>(byte - '0');
    }
    *id = static_cast<uint32_t>(value);
    return value != 0 && value <= UINT32_MAX;
}

// Number of bytes of the UTF-8 character at the beginning; 0 when there is none.
size_t characterLength(const unsigned char *at, size_t room) {
    if (at[0] < 0x80) {
        return at[0] == 0 ? 0 : 1;
    }
    const size_t length = at[0] >= 0xF0 ? 4 : at[0] >= 0xE0 ? 3 : 2;
    if (at[0] < 0xC2 || at[0] > 0xF4 || length > room) {
        return 0;
    }
    // The second byte tells overlong forms, surrogates, and what lies above the last character.
    const unsigned char lowest = at[0] == 0xE0 ? 0xA0 : at[0] == 0xF0 ? 0x90 : 0x80;
    const unsigned char highest = at[0] == 0xED ? 0x9F : at[0] == 0xF4 ? 0x8F : 0xBF;
    if (at[1] < lowest || at[1] > highest) {
        return 0;
    }
    for (size_t i = 2; i < length; ++i) {
        if ((at[i] & 0xC0) != 0x80) {
            return 0;
        }
    }
    return length;
}

bool isUtf8(Text text) {
    for (size_t at = 0; at < text.size();) {
        const size_t length =
            characterLength(reinterpret_cast<const unsigned char *>(text.data()) + at, text.size() - at);
        if (length == 0) {
            return false;
        }
        at += length;
    }
    return true;
}

// Resolves "\n", "\t", "\s" (a blank) and "\\" in place. False for any other.
bool unescape(char *text, size_t *length) {
    size_t to = 0;
    for (size_t from = 0; from < *length; ++from, ++to) {
        text[to] = text[from];
        if (text[from] != '\\') {
            continue;
        }
        ++from;
        const char letter = from < *length ? text[from] : '\0';
        const char *const found = letter != '\0' ? std::strchr("n\nt\ts \\\\", letter) : nullptr;
        if (letter != 'n' && letter != 't' && letter != 's' && letter != '\\') {
            return false;
        }
        text[to] = found[1];
    }
    *length = to;
    return true;
}

Word wordOf(Text name) {
    for (size_t i = 0; i < kWordCount; ++i) {
        if (wordName(static_cast<Word>(i)) == name) {
            return static_cast<Word>(i);
        }
    }
    return Word::Count;
}

void CatalogParser::takeWord(Word word, Text text) {
    if ((word == Word::Date || word == Word::Time) && !isTimePattern(text)) {
        report("a pattern has %Y %y %m %d %H %I %M %S %p and %% only");
    } else if (out_->words[static_cast<size_t>(word)].data() != nullptr) {
        report("this name stands in an earlier line already");
    } else {
        out_->words[static_cast<size_t>(word)] = text;
    }
}

void CatalogParser::takeText(Text key, char *text, size_t length) {
    uint32_t id = 0;
    const bool isId = readId(key, &id);
    const Word word = isId ? Word::Count : wordOf(key);
    if (!isId && word == Word::Count) {
        report("before the \"=\" stands neither an id from 1 to 4294967295 nor a known name");
        return;
    }
    if (!isUtf8(Text(text, length))) {
        report("the text is not UTF-8");
        return;
    }
    if (!unescape(text, &length)) {
        report("behind a \"\\\" stands n, t, s or another \"\\\"");
        return;
    }
    if (!isId) {
        takeWord(word, Text(text, length));
        return;
    }
    if (const char *what = placeholderDefect(Text(text, length)); what != nullptr) {
        report(what);
        return;
    }
    out_->entries.get()[out_->count++] = {.id = id,
                                          .line = line_,
                                          .offset = static_cast<uint32_t>(text - bytes_),
                                          .length = static_cast<uint32_t>(length)};
}

void CatalogParser::parseLine(char *line, size_t length) {
    const Text whole = trimmed(Text(line, length));
    if (whole.empty() || whole.front() == '#' || whole.front() == ';') {
        return;
    }
    const size_t equals = whole.find('=');
    if (equals == Text::npos) {
        report("a line is \"id = text\"; the \"=\" is missing");
        return;
    }
    const Text text = trimmed(whole.substr(equals + 1));
    takeText(trimmed(whole.substr(0, equals)), line + (text.data() - line), text.size());
}

// The first line of an id holds.
void CatalogParser::dropDoubles() {
    CatalogEntry *const entries = out_->entries.get();
    std::sort(entries, entries + out_->count, [](const CatalogEntry &left, const CatalogEntry &right) {
        return left.id != right.id ? left.id < right.id : left.line < right.line;
    });
    size_t kept = 0;
    for (size_t i = 0; i < out_->count; ++i) {
        if (kept > 0 && entries[kept - 1].id == entries[i].id) {
            char what[64];
            BoundedText(what).text("this id stands in line ").number(entries[kept - 1].line).text(" already");
            report(entries[i].line, what);
        } else {
            entries[kept++] = entries[i];
        }
    }
    out_->count = kept;
}

void CatalogParser::parse() {
    char *at = bytes_;
    const char *const end = bytes_ + size_;
    if (Text(bytes_, size_).substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        at += kByteOrderMark.size();
    }
    while (at < end) {
        ++line_;
        auto *feed = static_cast<char *>(std::memchr(at, '\n', static_cast<size_t>(end - at)));
        const size_t length = static_cast<size_t>((feed != nullptr ? feed : end) - at);
        parseLine(at, length > 0 && at[length - 1] == '\r' ? length - 1 : length);
        at += length + 1;
    }
    dropDoubles();
}

struct CloseFile {
    void operator()(void *file) const { os::closeFile(file); }
};

bool readAll(void *file, char *bytes, size_t size, size_t *read) {
    for (*read = 0; *read < size;) {
        uint32_t count = 0;
        if (os::readFile(file, bytes + *read, static_cast<uint32_t>(size - *read), &count) !=
            os::kErrorNone) {
            return false;
        }
        if (count == 0) {
            break;
        }
        *read += count;
    }
    return true;
}

} // namespace

uint32_t parseCatalog(OwnedText bytes, size_t size, const DefectSink &defects, Catalog *out) {
    Catalog parsed;
    const auto lines = static_cast<size_t>(std::count(bytes.get(), bytes.get() + size, '\n')) + 1;
    parsed.entries = allocateBlock<CatalogEntry>(lines);
    if (!parsed.entries) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    CatalogParser(bytes.get(), size, defects, &parsed).parse();
    parsed.bytes = std::move(bytes);
    *out = std::move(parsed);
    return ZANTLOG_OK;
}

uint32_t readCatalog(const char *path, const DefectSink &defects, Catalog *out) {
    void *opened = nullptr;
    if (os::openFile(path, os::FileMode::Read, nullptr, &opened) != os::kErrorNone) {
        return ZANTLOG_FAILURE;
    }
    const std::unique_ptr<void, CloseFile> file(opened);
    uint64_t size = 0;
    if (os::fileSize(file.get(), &size) != os::kErrorNone || size > kLargestCatalog) {
        return ZANTLOG_FAILURE;
    }
    OwnedText bytes = allocateBlock<char>(static_cast<size_t>(size) + 1);
    if (!bytes) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    size_t read = 0;
    if (!readAll(file.get(), bytes.get(), static_cast<size_t>(size), &read)) {
        return ZANTLOG_FAILURE;
    }
    return parseCatalog(std::move(bytes), read, defects, out);
}

std::string_view catalogText(const Catalog &catalog, uint32_t id) {
    const CatalogEntry *const first = catalog.entries.get();
    const CatalogEntry *const end = first + catalog.count;
    const CatalogEntry *const found = std::lower_bound(
        first, end, id, [](const CatalogEntry &entry, uint32_t wanted) { return entry.id < wanted; });
    if (found == end || found->id != id) {
        return {};
    }
    return {catalog.bytes.get() + found->offset, found->length};
}

} // namespace zantlog::localizer
