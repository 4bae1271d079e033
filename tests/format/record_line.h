// Records and arguments for the tests of record lines.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zantlog/results.h"
#include "zantlog/serialization.h"

namespace zantlog::test {

// What became of one record.
struct SerializedLine {
    uint32_t result;
    std::string bytes;
    bool inlineArea; // no heap block was used
};

inline SerializedLine serialize(zantLogMsgRec &record) {
    text_msg buffer;
    SerializedLine line{zantLogMsgSerialize(&record, &buffer), {}, buffer.data == buffer.inlineArea};
    if (line.result == ZANTLOG_OK) {
        line.bytes.assign(buffer.data, static_cast<size_t>(buffer.capacity - buffer.free));
    }
    free_text_msg(&buffer);
    return line;
}

// A record whose prefix is "<type>,1,2,3,4,5,6,7," in a product file and "<type>,2,4,5,6,7," in a log set's.
inline zantLogMsgRec recordOf(uint32_t type, uint32_t version = ZANTLOG_FORMAT_PRODUCT) {
    zantLogMsgRec record{};
    record.formatVersion = version;
    record.type = type;
    record.productId = 1;
    record.originatorId = 2;
    record.fid = 3;
    record.sequence = 4;
    record.timestamp = 5;
    record.processId = 6;
    record.threadId = 7;
    return record;
}

inline char *mutableText(const char *text) {
    return const_cast<char *>(text);
}

// Chains arguments in order and makes them the list's.
inline void chain(zantLis *list, std::vector<zantLisArg> &arguments) {
    for (size_t at = 0; at + 1 < arguments.size(); ++at) {
        arguments[at].next = &arguments[at + 1];
    }
    list->argCount = static_cast<uint32_t>(arguments.size());
    list->first = arguments.empty() ? nullptr : arguments.data();
}

inline zantLisArg argumentOf(int32_t kind) {
    zantLisArg argument{};
    argument.kind = kind;
    return argument;
}

inline zantLisArg signedOf(int32_t kind, uint16_t width, int64_t value) {
    zantLisArg argument = argumentOf(kind);
    argument.first.width = width;
    argument.second.number = value;
    return argument;
}

inline zantLisArg unsignedOf(uint16_t width, uint64_t value) {
    zantLisArg argument = argumentOf(ZANTLIS_UNSIGNED);
    argument.first.width = width;
    argument.second.word = value;
    return argument;
}

inline zantLisArg realOf(double value) {
    zantLisArg argument = argumentOf(ZANTLIS_DOUBLE);
    argument.first.real = value;
    return argument;
}

inline zantLisArg characterOf(uint16_t character) {
    zantLisArg argument = argumentOf(ZANTLIS_WIDE_CHAR);
    argument.first.character = character;
    return argument;
}

inline zantLisArg narrowOf(int32_t kind, const char *text) {
    zantLisArg argument = argumentOf(kind);
    argument.first.narrow = text;
    return argument;
}

inline zantLisArg wideOf(const wchar_t *text) {
    zantLisArg argument = argumentOf(ZANTLIS_WIDE_STRING);
    argument.first.wide = text;
    return argument;
}

inline zantLisArg nestedOf(zantLis *list) {
    zantLisArg argument = argumentOf(ZANTLIS_NESTED);
    argument.first.pointer = list;
    return argument;
}

// An application record with these arguments, without texts: what stands between its "2," and the line feed
// is the list.
inline SerializedLine serializeArguments(std::vector<zantLisArg> arguments) {
    zantLogMsgRec record = recordOf(ZANTLOG_MSG_APPLICATION);
    record.slot.level = 2;
    chain(&record.lis, arguments);
    return serialize(record);
}

} // namespace zantlog::test
