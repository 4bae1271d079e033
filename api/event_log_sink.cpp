// Messages as events of the operating system's event log.
#include <algorithm>
#include <cstring>
#include <utility>

#include "api/localizer.h"
#include "api/sinks.h"
#include "base/bounded_text.h"
#include "base/owned_text.h"
#include "logfile/os/os_event_log.h"
#include "logfile/os/os_text.h"
#include "zantlog/rendering.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

constexpr uint16_t kEventError = 1;
constexpr uint16_t kEventWarning = 2;
constexpr uint16_t kEventInformation = 4;
constexpr uint16_t kEventAuditSuccess = 8;
constexpr uint16_t kEventAuditFailure = 16;

constexpr uint32_t kEventFormat = 0x600;
constexpr uint32_t kMostStrings = UINT16_MAX;
constexpr size_t kPrefixBytes = 2048;
constexpr size_t kLongestCharacter = 4; // bytes, in any code page

uint16_t eventType(const zantLogMsgRec &rec) {
    if (rec.type == ZANTLOG_MSG_SECURE_AUDIT) {
        return rec.outcome == 0 ? kEventAuditSuccess : kEventAuditFailure;
    }
    switch (rec.slot.level) {
    case 1:
        return kEventWarning;
    case 2:
    case 3:
    case 4:
        return kEventError;
    default:
        return kEventInformation;
    }
}

bool secureEvents(const zantLogHandle &handle) {
    return (handle.outputFlags & ZANTLOG_SECURE_EVENT) != 0;
}

// What "%s" prints for a null.
const char *printable(const char *text) {
    return text != nullptr ? text : "(null)";
}

bool hasWideForm(const char (&text)[kPrefixBytes]) {
    wchar_t wide[kPrefixBytes];
    return os::multiByteToWide(wide, text, kPrefixBytes) != os::kConversionFailed;
}

// A cut can leave a part of the last character, for whose sake the whole text would have no wide form.
void dropCutCharacter(char (&text)[kPrefixBytes], size_t length) {
    for (size_t dropped = 1; dropped < kLongestCharacter && !hasWideForm(text); ++dropped) {
        text[length - dropped] = '\0';
    }
}

void securePrefix(const zantLogHandle &handle, const zantLogMsgRec &rec, char (&buffer)[kPrefixBytes]) {
    const zantLogCfg *cfg = handle.secureConfig;
    BoundedText text(buffer);
    text.number(cfg != nullptr ? cfg->productId : 0).character(',');
    text.number(cfg != nullptr ? cfg->originatorId : 0).character(',');
    text.number(rec.sequence).character(',');
    text.number(rec.processId).character(',').number(rec.threadId).character(',');
    text.text(printable(rec.contextToken)).character(',').text(printable(rec.who)).character(',');
    text.signedNumber(static_cast<int32_t>(rec.outcome)).character(' ');
    if (text.cut()) {
        dropCutCharacter(buffer, text.length());
    }
}

// The two texts, one behind the other; null when one has no wide form or memory is short.
OwnedWideText widenJoined(const char *first, const char *second) {
    const size_t capacity = std::strlen(first) + std::strlen(second) + 1;
    OwnedWideText wide = allocateBlock<wchar_t>(capacity);
    if (!wide) {
        return nullptr;
    }
    const size_t length = os::multiByteToWide(wide.get(), first, capacity);
    if (length == os::kConversionFailed) {
        return nullptr;
    }
    if (os::multiByteToWide(wide.get() + length, second, capacity - length) == os::kConversionFailed) {
        return nullptr;
    }
    return wide;
}

int32_t report(const zantLogHandle &handle, const zantLogMsgRec &rec, uint32_t id, uint32_t count,
               const wchar_t **strings) {
    const os::Event event = {.type = eventType(rec),
                             .category = static_cast<uint16_t>(handle.eventLog.category),
                             .id = id,
                             .stringCount = static_cast<uint16_t>(count),
                             .strings = strings};
    return os::reportEvent(handle.eventLog.handle, event) == os::kErrorNone ? ZANTLOG_OS_OK
                                                                            : ZANTLOG_OS_FAILED;
}

// Insertion strings of one event, owned.
class EventStrings {
public:
    explicit EventStrings(uint32_t count) : strings_(allocateBlock<const wchar_t *>(count)), count_(count) {
        if (strings_) {
            std::memset(strings_.get(), 0, count * sizeof(const wchar_t *));
        }
    }
    ~EventStrings() {
        for (uint32_t i = 0; strings_ && i < count_; ++i) {
            zantLogFree(const_cast<wchar_t *>(strings_.get()[i]));
        }
    }
    EventStrings(const EventStrings &) = delete;
    EventStrings &operator=(const EventStrings &) = delete;

    [[nodiscard]] bool allocated() const { return strings_ != nullptr; }
    [[nodiscard]] const wchar_t **array() { return strings_.get(); }
    void set(uint32_t index, OwnedWideText text) { strings_.get()[index] = text.release(); }

private:
    OwnedBlock<const wchar_t *> strings_;
    uint32_t count_;
};

// An argument that cannot be converted leaves its string unset: the others keep the places that the event's
// text counts on.
void convertArguments(const zantLis *lis, uint32_t count, EventStrings *strings) {
    zantLisArgIter iter = {};
    if (zantLisGetArgsBegin(lis, &iter) != ZANTLIS_OK) {
        return;
    }
    for (uint32_t i = 0; i < count; ++i) {
        wchar_t *text = nullptr;
        if (zantLogGetArg_asStringW(&iter, &text) == ZANTLOG_OK) {
            strings->set(i, OwnedWideText(text));
        }
        if (zantLisGetNextArg(&iter) != ZANTLIS_OK) {
            return;
        }
    }
}

int32_t reportCatalogMessage(const zantLogHandle &handle, const zantLogMsgRec &rec, uint32_t id) {
    const uint32_t prefixes = secureEvents(handle) ? 1 : 0;
    uint32_t arguments = 0;
    if (zantLisGetArgCount(&rec.lis, &arguments) != ZANTLIS_OK) {
        arguments = 0;
    }
    arguments = std::min(arguments, kMostStrings - prefixes);
    const uint32_t count = arguments + prefixes;
    if (count == 0) {
        return report(handle, rec, id, 0, nullptr);
    }
    EventStrings strings(count);
    if (!strings.allocated()) {
        return ZANTLOG_OS_FAILED;
    }
    convertArguments(&rec.lis, arguments, &strings);
    if (prefixes != 0) {
        char prefix[kPrefixBytes];
        securePrefix(handle, rec, prefix);
        strings.set(arguments, widenJoined(prefix, ""));
    }
    return report(handle, rec, id, count, strings.array());
}

// The event is reported whatever happens to its text, so that it is not lost.
int32_t reportTextMessage(zantLogHandle &handle, zantLogMsgRec &rec) {
    uint32_t formatResult = ZANTLOG_OK;
    char *formatted = nullptr;
    if (const LogFormatMessage format = localizerFormatter(); format != nullptr) {
        formatResult =
            format(&handle.localizer, 0, os::localeName(), 0, kEventFormat, 0, &rec, &handle, &formatted);
        if (formatResult != ZANTLOG_OK) {
            formatted = nullptr; // only a success delivers a text
        }
    }
    const OwnedText text(formatted);
    char prefix[kPrefixBytes] = "";
    if (secureEvents(handle)) {
        securePrefix(handle, rec, prefix);
    }
    OwnedWideText wide = widenJoined(prefix, text ? text.get() : "");
    const bool whole = wide != nullptr;
    if (!whole) {
        wide = widenJoined(prefix, "");
    }
    const wchar_t *string = wide ? wide.get() : L"";
    if (report(handle, rec, 0, 1, &string) != ZANTLOG_OS_OK) {
        return ZANTLOG_OS_FAILED;
    }
    if (formatResult != ZANTLOG_OK) {
        return static_cast<int32_t>(formatResult);
    }
    return static_cast<int32_t>(whole ? ZANTLOG_OK : ZANTLOG_FAILURE);
}

} // namespace

int32_t reportMessage(zantLogHandle *handle, zantLogMsgRec *rec) {
    if (handle == nullptr || rec == nullptr) {
        return ZANTLOG_OS_NULL_ARGUMENT;
    }
    uint32_t id = 0;
    if (zantLisGetTextId(&rec->lis, &id) != ZANTLIS_OK) {
        id = 0;
    }
    return id != 0 ? reportCatalogMessage(*handle, *rec, id) : reportTextMessage(*handle, *rec);
}

} // namespace zantlog
