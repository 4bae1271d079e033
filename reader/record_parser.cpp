// A record line taken apart into the message record that it was made of.
#include <cstring>
#include <string_view>

#include "base/owned_text.h"
#include "reader/argument_object.h"
#include "reader/number_scan.h"
#include "zantlog/reader.h"
#include "zantlog/results.h"

namespace {

using namespace zantlog;

// From this version on an application message names its component.
constexpr uint32_t kFirstVersionWithWho = 0x10006;

constexpr int32_t kHighestSeverity = 4;

// What is left of the line, and the record that is filled. Every step answers a result code.
struct Parse {
    std::string_view rest;
    zantLogMsgRec *rec;
};

// "<length>:<bytes>,"; the comma may be missing at the end of the line only. Null for an empty text.
[[nodiscard]] uint32_t takeText(Parse *parse, char **out) {
    size_t length = 0;
    std::string_view rest = parse->rest;
    if (!takeNumber(&rest, ':', &length) || length > rest.size()) {
        return ZANTLOG_FAILURE;
    }
    const std::string_view text = rest.substr(0, length);
    rest.remove_prefix(length);
    if (!rest.starts_with(',')) {
        return ZANTLOG_FAILURE;
    }
    parse->rest = rest.substr(1);
    if (text.empty()) {
        return ZANTLOG_OK;
    }
    OwnedText copy = allocateBlock<char>(length + 1);
    if (copy == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    std::memcpy(copy.get(), text.data(), length);
    copy.get()[length] = '\0';
    *out = copy.release();
    return ZANTLOG_OK;
}

template <typename Number> [[nodiscard]] uint32_t takeField(Parse *parse, Number *value) {
    return takeNumber(&parse->rest, ',', value) ? ZANTLOG_OK : ZANTLOG_FAILURE;
}

// The number that ends a line.
[[nodiscard]] uint32_t takeLastNumber(Parse *parse, int32_t *value) {
    const std::string_view digits = parse->rest;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), *value);
    if (error != std::errc{} || stop != digits.data() + digits.size()) {
        return ZANTLOG_FAILURE;
    }
    parse->rest = {};
    return ZANTLOG_OK;
}

// The first result that is none of success, of steps that are taken only up to it.
template <typename... Steps> [[nodiscard]] uint32_t inOrder(Steps... steps) {
    uint32_t result = ZANTLOG_OK;
    (void)(((result = steps()) == ZANTLOG_OK) && ...);
    return result;
}

[[nodiscard]] uint32_t takeArguments(Parse *parse) {
    return takeArgumentList(&parse->rest, &parse->rec->lis);
}

// Numbers that versions 65543 and 65544 begin with.
[[nodiscard]] uint32_t takePrefix(Parse *parse, bool product) {
    zantLogMsgRec &rec = *parse->rec;
    int64_t timestamp = 0;
    const uint32_t result = inOrder(
        [&] { return takeField(parse, &rec.type); },
        [&] { return product ? takeField(parse, &rec.productId) : 0U; },
        [&] { return takeField(parse, &rec.originatorId); },
        [&] { return product ? takeField(parse, &rec.fid) : 0U; },
        [&] { return takeField(parse, &rec.sequence); }, [&] { return takeField(parse, &timestamp); },
        [&] { return takeField(parse, &rec.processId); }, [&] { return takeField(parse, &rec.threadId); });
    rec.timestamp = static_cast<uint64_t>(timestamp);
    // Secure-audit messages are in no file.
    return result == ZANTLOG_OK && rec.type > ZANTLOG_MSG_AUDIT ? static_cast<uint32_t>(ZANTLOG_FAILURE)
                                                                : result;
}

[[nodiscard]] uint32_t takeWhoAndLevel(Parse *parse) {
    return inOrder([&] { return takeText(parse, &parse->rec->who); },
                   [&] { return takeField(parse, &parse->rec->slot.level); });
}

[[nodiscard]] uint32_t takeSeverity(Parse *parse) {
    int32_t &severity = parse->rec->slot.level;
    const uint32_t result = takeField(parse, &severity);
    const bool known = severity >= 0 && severity <= kHighestSeverity;
    return result == ZANTLOG_OK && !known ? static_cast<uint32_t>(ZANTLOG_FAILURE) : result;
}

[[nodiscard]] uint32_t takeApplicationFields(Parse *parse) {
    const bool hasWho = parse->rec->formatVersion >= kFirstVersionWithWho;
    return inOrder([&] { return hasWho ? takeText(parse, &parse->rec->who) : 0U; },
                   [&] { return takeSeverity(parse); }, [&] { return takeArguments(parse); });
}

[[nodiscard]] uint32_t takeAuditFields(Parse *parse) {
    int32_t outcome = 0;
    const uint32_t result =
        inOrder([&] { return takeText(parse, &parse->rec->who); }, [&] { return takeField(parse, &outcome); },
                [&] { return takeArguments(parse); });
    parse->rec->outcome = static_cast<uint32_t>(outcome);
    return result;
}

[[nodiscard]] uint32_t takeTypeFields(Parse *parse) {
    zantLogMsgRec &rec = *parse->rec;
    switch (rec.type) {
    case ZANTLOG_MSG_DEBUG:
        return inOrder([&] { return takeText(parse, &rec.who); },
                       [&] { return takeLastNumber(parse, &rec.slot.level); });
    case ZANTLOG_MSG_DIAGNOSTIC:
        return inOrder([&] { return takeWhoAndLevel(parse); }, [&] { return takeArguments(parse); });
    case ZANTLOG_MSG_APPLICATION:
        return takeApplicationFields(parse);
    case ZANTLOG_MSG_CONTEXT:
        return inOrder([&] { return takeText(parse, &rec.slot.contextString); },
                       [&] { return takeArguments(parse); });
    default:
        return takeAuditFields(parse);
    }
}

// A record of the versions without a type shows it by the form of its fields, as far as it does: a text and a
// number alone are a debug message, a text and a list a context, a number and a list an application message
// of the older form. A text, a number and a list are taken for a diagnostic message: audit messages and later
// application messages look the same.
uint32_t typeByForm(std::string_view fields) {
    uint32_t number = 0;
    std::string_view rest = fields;
    if (takeNumber(&rest, ',', &number)) {
        return ZANTLOG_MSG_APPLICATION;
    }
    size_t length = 0;
    if (!takeNumber(&rest, ':', &length) || length >= rest.size()) {
        return ZANTLOG_MSG_DEBUG; // which it is not either: its parsing will say so
    }
    rest.remove_prefix(length + 1);
    if (rest.starts_with('(')) {
        return ZANTLOG_MSG_CONTEXT;
    }
    return rest.ends_with(')') ? ZANTLOG_MSG_DIAGNOSTIC : ZANTLOG_MSG_DEBUG;
}

[[nodiscard]] uint32_t takeRecord(Parse *parse, const LogFileHeader &header) {
    zantLogMsgRec &rec = *parse->rec;
    const bool product = header.version == ZANTLOG_FORMAT_PRODUCT;
    const bool typed = product || header.version == ZANTLOG_FORMAT_LOGSET;
    if (!typed) {
        rec.productId = header.productId;
        rec.originatorId = rec.fid = header.originatorId;
    }
    const uint32_t result = inOrder([&] { return typed ? takePrefix(parse, product) : 0U; },
                                    [&] { return takeText(parse, &rec.contextToken); },
                                    [&] { return takeText(parse, &rec.text); });
    if (result != ZANTLOG_OK) {
        return result;
    }
    if (!typed) {
        rec.type = typeByForm(parse->rest);
    }
    const uint32_t fields = takeTypeFields(parse);
    return fields == ZANTLOG_OK && !parse->rest.empty() ? static_cast<uint32_t>(ZANTLOG_FAILURE) : fields;
}

// What has been taken until a failure.
void discard(zantLogMsgRec *rec) {
    if (rec->type == ZANTLOG_MSG_CONTEXT) {
        zantLogFree(rec->slot.contextString);
    }
    for (char *text : {rec->contextToken, rec->text, rec->who}) {
        zantLogFree(text);
    }
    zantLisFree(&rec->lis);
    std::memset(rec, 0, sizeof *rec);
}

} // namespace

uint32_t zantLogParseRecord(const LogFileHeader *header, const char *line, uint64_t length,
                            zantLogMsgRec *rec) {
    if (rec == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    std::memset(rec, 0, sizeof *rec);
    if (header == nullptr || line == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    if (header->version < ZANTLOG_FORMAT_OLDEST || header->version > ZANTLOG_FORMAT_LOGSET) {
        return ZANTLOG_UNSUPPORTED_HEADER;
    }
    rec->origin = ZANTLOG_ORIGIN_READER;
    rec->formatVersion = header->version;
    rec->catalogSelector = 1; // the texts of a file are UTF-8
    Parse parse{{line, length}, rec};
    // A text ends at a NUL byte, so a line with one cannot be given whole.
    const bool whole = parse.rest.find('\0') == std::string_view::npos;
    const uint32_t result = whole ? takeRecord(&parse, *header) : static_cast<uint32_t>(ZANTLOG_FAILURE);
    if (result != ZANTLOG_OK) {
        discard(rec);
    }
    return result;
}
