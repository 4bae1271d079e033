#include "localizer/heading.h"

#include "base/bounded_text.h"

namespace zantlog::localizer {

namespace {

constexpr Word kTypes[] = {Word::Debug,   Word::Diagnostic, Word::Application,
                           Word::Context, Word::Audit,      Word::SecureAudit};

void appendNumber(int64_t value, unsigned digits, NativeText *out) {
    char text[24];
    BoundedText(text).signedNumber(value, digits);
    out->native(text);
}

void appendWord(const Catalogs &catalogs, Word word, NativeText *out) {
    out->utf8(wordOf(catalogs, word));
}

void appendWhen(const Catalogs &catalogs, const zantLogMsgRec &rec, NativeText *out) {
    const auto seconds = static_cast<int64_t>(rec.timestamp / 1000);
    const auto milliseconds = static_cast<int64_t>(rec.timestamp % 1000);
    if (!appendTime(seconds, wordOf(catalogs, Word::Date), out)) {
        appendNumber(seconds, 1, out);
        return;
    }
    out->native(" ");
    // The fraction belongs to the seconds: it stands before what follows them ("12:00:00.123 AM").
    const std::string_view time = wordOf(catalogs, Word::Time);
    const size_t found = time.rfind("%S");
    const size_t after = found == std::string_view::npos ? time.size() : found + 2;
    (void)appendTime(seconds, time.substr(0, after), out);
    out->native(".");
    appendNumber(milliseconds, 3, out);
    (void)appendTime(seconds, time.substr(after), out);
}

// The event log's words for the severities.
Word severityWord(int32_t severity) {
    switch (severity) {
    case 1:
        return Word::Warning;
    case 2:
    case 3:
    case 4:
        return Word::Error;
    default:
        return Word::Information;
    }
}

void appendNumbered(const Catalogs &catalogs, Word word, int64_t number, NativeText *out) {
    out->native(", ");
    appendWord(catalogs, word, out);
    out->native(" ");
    appendNumber(number, 1, out);
}

void appendOutcome(const Catalogs &catalogs, uint32_t outcome, NativeText *out) {
    if (outcome != 0) {
        appendNumbered(catalogs, Word::Failure, static_cast<int32_t>(outcome), out);
        return;
    }
    out->native(", ");
    appendWord(catalogs, Word::Success, out);
}

void appendKind(const Catalogs &catalogs, const zantLogMsgRec &rec, NativeText *out) {
    if (rec.type < std::size(kTypes)) {
        appendWord(catalogs, kTypes[rec.type], out);
    } else {
        appendNumber(rec.type, 1, out);
    }
    switch (rec.type) {
    case ZANTLOG_MSG_DEBUG:
    case ZANTLOG_MSG_DIAGNOSTIC:
    case ZANTLOG_MSG_SECURE_AUDIT:
        appendNumbered(catalogs, Word::Level, rec.slot.level, out);
        break;
    case ZANTLOG_MSG_APPLICATION:
        appendNumbered(catalogs, severityWord(rec.slot.level), rec.slot.level, out);
        break;
    default:
        break;
    }
    if (rec.type == ZANTLOG_MSG_AUDIT || rec.type == ZANTLOG_MSG_SECURE_AUDIT) {
        appendOutcome(catalogs, rec.outcome, out);
    }
}

} // namespace

void appendHeading(const Catalogs &catalogs, const zantLogMsgRec &rec, NativeText *out) {
    appendWhen(catalogs, rec, out);
    out->native(" [");
    appendKind(catalogs, rec, out);
    out->native("] ");
    appendWord(catalogs, Word::Originator, out);
    out->native(" ");
    appendNumber(rec.originatorId, 1, out);
    if (rec.type != ZANTLOG_MSG_CONTEXT && rec.who != nullptr && *rec.who != '\0') {
        out->native(", ");
        appendRecordText(rec, rec.who, out);
    }
    out->native(": ");
}

} // namespace zantlog::localizer
