// Any message record is serialised: its line is the one that a plain model writes, byte by byte, and comes
// back from a file as it was, with line feeds for carriage returns.
#include <cmath>
#include <cstdio>
#include <deque>
#include <memory>
#include <optional>

#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "tests/sim/files.h"
#include "zantlog/reader.h"

namespace {

using namespace zantlog;

constexpr int kDeepest = 3;

// An argument list with what it points at, and its text as a record has it.
struct Arguments {
    std::deque<zantLisArg> nodes;
    std::deque<std::string> texts;
    std::deque<std::u16string> wideTexts;
    std::deque<Arguments> nested;
    zantLis list{};
    std::optional<std::string> line = ""; // none: cannot be serialised
};

void put(std::optional<std::string> *line, const std::string &text) {
    if (*line) {
        **line += text;
    }
}

std::string counted(const std::string &text) {
    return std::to_string(text.size()) + ":" + text;
}

std::string utf8Of(char32_t character) {
    const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); };
    std::string bytes;
    if (character < 0x80) {
        bytes += byte(character);
    } else if (character < 0x800) {
        bytes += byte(0xC0 | character >> 6);
        bytes += byte(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        bytes += byte(0xE0 | character >> 12);
        bytes += byte(0x80 | (character >> 6 & 0x3F));
        bytes += byte(0x80 | (character & 0x3F));
    } else {
        bytes += byte(0xF0 | character >> 18);
        bytes += byte(0x80 | (character >> 12 & 0x3F));
        bytes += byte(0x80 | (character >> 6 & 0x3F));
        bytes += byte(0x80 | (character & 0x3F));
    }
    return bytes;
}

bool isSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

// None when a surrogate stands alone.
std::optional<std::string> utf8Of(const std::u16string &text) {
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (!isSurrogate(unit)) {
            bytes += utf8Of(static_cast<char32_t>(unit));
        } else if (unit < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            bytes += utf8Of(0x10000 + (static_cast<char32_t>(unit - 0xD800) << 10) + (text[i + 1] - 0xDC00u));
            ++i;
        } else {
            return std::nullopt;
        }
    }
    return bytes;
}

// Only ASCII characters are predicted: of others the field's last byte is anybody's guess.
void addCharacter(fuzz::FuzzInput &input, zantLisArg *node, std::optional<std::string> *line) {
    uint16_t character = input.byte() & 0x7F;
    if (character == 0) {
        character = 0xD800;
    }
    node->first.character = character;
    if (character == 0xD800) {
        line->reset();
    } else {
        put(line, std::string("11:") + static_cast<char>(character) + "|");
    }
}

void addReal(fuzz::FuzzInput &input, zantLisArg *node, std::optional<std::string> *line) {
    double value = input.real();
    if (!std::isfinite(value)) {
        value = -0.0000005;
    }
    node->first.real = value;
    char digits[400];
    std::snprintf(digits, sizeof digits, "8%f|", value);
    put(line, digits);
}

void addInteger(fuzz::FuzzInput &input, char code, zantLisArg *node, std::optional<std::string> *line) {
    node->first.width = input.number<uint16_t>();
    node->second.word = input.number<uint64_t>();
    put(line, code + std::to_string(node->first.width) + ":");
    put(line, (code == 'u' ? std::to_string(node->second.word) : std::to_string(node->second.number)) + "|");
}

void addWideText(fuzz::FuzzInput &input, Arguments *arguments, zantLisArg *node) {
    const std::u16string &text = arguments->wideTexts.emplace_back(input.wideText());
    node->first.wide = reinterpret_cast<const wchar_t *>(text.c_str());
    const std::optional<std::string> utf8 = utf8Of(text);
    if (utf8) {
        put(&arguments->line, "A" + counted(*utf8) + "|");
    } else {
        arguments->line.reset();
    }
}

void addNarrowText(fuzz::FuzzInput &input, char code, Arguments *arguments, zantLisArg *node) {
    const std::string &text = arguments->texts.emplace_back(input.text());
    node->first.narrow = text.c_str();
    put(&arguments->line, code + counted(text) + "|");
}

void build(fuzz::FuzzInput &input, int depth, Arguments *arguments);

void addNested(fuzz::FuzzInput &input, int depth, Arguments *arguments, zantLisArg *node) {
    Arguments &inner = arguments->nested.emplace_back();
    build(input, depth + 1, &inner);
    node->first.pointer = &inner.list;
    if (inner.line) {
        put(&arguments->line, *inner.line);
    } else {
        arguments->line.reset();
    }
}

void addArgument(fuzz::FuzzInput &input, int depth, Arguments *arguments) {
    zantLisArg &node = arguments->nodes.emplace_back();
    node = {};
    node.kind = static_cast<int32_t>(input.below(13));
    if (node.kind == ZANTLIS_NESTED && depth == kDeepest) {
        node.kind = ZANTLIS_NATIVE_STRING;
    }
    std::optional<std::string> *line = &arguments->line;
    switch (node.kind) {
    case ZANTLIS_WIDE_CHAR:
        return addCharacter(input, &node, line);
    case ZANTLIS_SIGNED:
        return addInteger(input, 'i', &node, line);
    case ZANTLIS_UNSIGNED:
        return addInteger(input, 'u', &node, line);
    case ZANTLIS_DOUBLE:
        return addReal(input, &node, line);
    case ZANTLIS_POINTER:
        node.first.word = input.number<uint64_t>();
        return put(line, "964:" + std::to_string(node.first.word) + "|");
    case ZANTLIS_WIDE_STRING:
        return addWideText(input, arguments, &node);
    case ZANTLIS_OS_ERROR:
    case ZANTLIS_OS_ERROR_WIDE:
        return addInteger(input, 'D', &node, line);
    case ZANTLIS_DATE_TIME:
        node.first.seconds = input.number<int64_t>();
        return put(line, "C64:" + std::to_string(node.first.seconds) + "|");
    case ZANTLIS_NESTED:
        return addNested(input, depth, arguments, &node);
    case ZANTLIS_UTF8_STRING:
        return addNarrowText(input, 'X', arguments, &node);
    case ZANTLIS_NATIVE_STRING:
        return addNarrowText(input, 'S', arguments, &node);
    default:
        line->reset(); // no such kind
    }
}

void build(fuzz::FuzzInput &input, int depth, Arguments *arguments) {
    const uint32_t count = input.below(6);
    put(&arguments->line, "(" + std::to_string(count) + "|");
    for (uint32_t i = 0; i < count; ++i) {
        addArgument(input, depth, arguments);
    }
    for (size_t i = 0; i < arguments->nodes.size(); ++i) {
        arguments->nodes[i].next = i + 1 < arguments->nodes.size() ? &arguments->nodes[i + 1] : nullptr;
    }
    put(&arguments->line, "),");
    arguments->list = {0, count, count > 0 ? &arguments->nodes.front() : nullptr};
}

// The texts of a record are said to be UTF-8, so they are taken over unchanged.
std::string field(const std::string &text) {
    return counted(text) + ",";
}

struct Texts {
    std::string token, text, who;
};

std::optional<std::string> prefixOf(const zantLogMsgRec &record) {
    const auto number = [](auto value) { return std::to_string(value) + ","; };
    const std::string end = number(record.sequence) + number(static_cast<int64_t>(record.timestamp)) +
                            number(record.processId) + number(record.threadId);
    if (record.formatVersion < 65540 || record.formatVersion > 65544) {
        return std::nullopt;
    }
    if (record.formatVersion == 65543) {
        return number(record.type) + number(record.productId) + number(record.originatorId) +
               number(record.fid) + end;
    }
    return record.formatVersion == 65544 ? number(record.type) + number(record.originatorId) + end : "";
}

std::optional<std::string> typeFieldsOf(const zantLogMsgRec &record, const Texts &texts) {
    const bool old = record.formatVersion < 65542;
    switch (record.type) {
    case ZANTLOG_MSG_DEBUG:
    case ZANTLOG_MSG_DIAGNOSTIC:
        return field(texts.who) + std::to_string(record.slot.level) + ",";
    case ZANTLOG_MSG_APPLICATION:
        if (record.slot.level < 0 || record.slot.level > 4) {
            return std::nullopt;
        }
        return (old ? "" : field(texts.who)) + std::to_string(record.slot.level) + ",";
    case ZANTLOG_MSG_CONTEXT:
        return field(texts.who);
    case ZANTLOG_MSG_AUDIT:
        return field(texts.who) + std::to_string(static_cast<int32_t>(record.outcome)) + ",";
    default:
        return std::nullopt;
    }
}

std::optional<std::string> lineOf(const zantLogMsgRec &record, const Texts &texts,
                                  const Arguments &arguments) {
    const auto prefix = prefixOf(record);
    const auto fields = typeFieldsOf(record, texts);
    const bool withList = record.type != ZANTLOG_MSG_DEBUG;
    if (!prefix || !fields || (withList && !arguments.line)) {
        return std::nullopt;
    }
    std::string line = *prefix + field(texts.token) + field(texts.text) + *fields;
    if (withList) {
        line += *arguments.line;
    }
    line.pop_back();
    for (char &byte : line) {
        byte = byte == '\n' ? '\r' : byte;
    }
    return line + "\n";
}

void expectReadBack(const std::string &line) {
    const std::string path = fuzz::path("round.log");
    sim::putFile(path, line);
    const auto file = std::make_unique<zantLogOsFile>();
    fuzz::expectEqual(zantLogOs_open(file.get(), path.c_str(), ZANTLOG_OPEN_READ, nullptr), 0,
                      "it is opened");
    text_msg buffer;
    init_text_msg(&buffer);
    fuzz::expectEqual(readrecord(file.get(), &buffer), 1, "the line is a record");
    std::string expected = line;
    for (char &byte : expected) {
        byte = byte == '\r' ? '\n' : byte;
    }
    expected.back() = '\0';
    fuzz::expectEqual(std::string(buffer.data, static_cast<size_t>(buffer.capacity - buffer.free)), expected,
                      "it comes back as it was");
    free_text_msg(&buffer);
    zantLogOs_close(file.get());
}

std::string withLineFeeds(std::string text) {
    for (char &byte : text) {
        byte = byte == '\r' ? '\n' : byte;
    }
    return text;
}

std::string orEmpty(const char *text) {
    return text == nullptr ? "" : text;
}

// Of the versions whose lines tell all of it.
void expectTakenApart(const zantLogMsgRec &record, const Texts &texts, const std::string &line) {
    LogFileHeader header{};
    header.version = record.formatVersion;
    zantLogMsgRec parsed;
    const std::string read = withLineFeeds(line.substr(0, line.size() - 1));
    fuzz::expectEqual(zantLogParseRecord(&header, read.data(), read.size(), &parsed), 0u,
                      "it is taken apart");
    fuzz::expectEqual(parsed.type, record.type, "the type");
    fuzz::expectEqual(parsed.originatorId, record.originatorId, "the originator");
    fuzz::expectEqual(parsed.sequence, record.sequence, "the number");
    fuzz::expectEqual(static_cast<int64_t>(parsed.timestamp), static_cast<int64_t>(record.timestamp),
                      "the time");
    fuzz::expectEqual(parsed.processId, record.processId, "the process");
    fuzz::expectEqual(parsed.threadId, record.threadId, "the thread");
    fuzz::expectEqual(orEmpty(parsed.contextToken), withLineFeeds(texts.token), "the token");
    fuzz::expectEqual(orEmpty(parsed.text), withLineFeeds(texts.text), "the text");
    const bool context = record.type == ZANTLOG_MSG_CONTEXT;
    fuzz::expectEqual(orEmpty(context ? parsed.slot.contextString : parsed.who), withLineFeeds(texts.who),
                      "who");
    if (record.type <= ZANTLOG_MSG_APPLICATION) {
        fuzz::expectEqual(parsed.slot.level, record.slot.level, "the level");
    }
    if (record.type == ZANTLOG_MSG_AUDIT) {
        fuzz::expectEqual(parsed.outcome, record.outcome, "the outcome");
    }
    const uint32_t nodes = record.type == ZANTLOG_MSG_DEBUG ? 0 : record.lis.argCount;
    fuzz::expectEqual(parsed.lis.argCount, nodes, "the number of arguments");
    zantLogFreeMsg(&parsed);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    zantLogMsgRec record{};
    record.formatVersion = 65539 + input.below(7);
    record.type = input.below(7);
    record.productId = input.number<uint32_t>();
    record.originatorId = input.number<uint32_t>();
    record.fid = input.number<uint32_t>();
    record.sequence = input.number<uint32_t>();
    record.timestamp = input.number<uint64_t>();
    record.processId = input.number<uint32_t>();
    record.threadId = input.number<uint32_t>();
    record.outcome = input.number<uint32_t>();
    record.catalogSelector = 1;
    const int32_t level = static_cast<int8_t>(input.byte());
    Texts texts{input.text(), input.text(), input.text()};
    // Long texts need the heap.
    for (uint32_t doublings = input.below(9); doublings > 0; --doublings) {
        texts.text += texts.text;
    }
    Arguments arguments;
    build(input, 0, &arguments);
    record.contextToken = texts.token.empty() ? nullptr : texts.token.data();
    record.text = texts.text.data();
    record.who = texts.who.data();
    record.lis = arguments.list;
    if (record.type == ZANTLOG_MSG_CONTEXT) {
        record.slot.contextString = texts.who.data();
    } else {
        record.slot.level = level;
    }

    text_msg buffer;
    const uint32_t result = zantLogMsgSerialize(&record, &buffer);
    const std::optional<std::string> expected = lineOf(record, texts, arguments);
    fuzz::expectEqual(result, expected ? 0 : 1, "what can be serialised is");
    if (expected) {
        fuzz::expectEqual(std::string(buffer.data, static_cast<size_t>(buffer.capacity - buffer.free)),
                          *expected, "the line is the model's");
        expectReadBack(*expected);
        if (record.formatVersion >= ZANTLOG_FORMAT_PRODUCT) {
            expectTakenApart(record, texts, *expected);
        }
    }
    free_text_msg(&buffer);
    return 0;
}
