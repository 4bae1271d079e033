#include "reader/query_fields.h"

#include "zantlog/query.h"

namespace zantlog {

namespace {

bool numberHolds(const FieldComparison &comparison, uint32_t value) {
    return eval(comparison.operatorCode, value, comparison.number) != 0;
}

bool textHolds(const FieldComparison &comparison, const char *value) {
    return evalString(comparison.operatorCode, value, comparison.literal) != 0;
}

// Kept: times are cut to 32 bits, so a query of 2106 begins at 0 again.
bool timeHolds(const FieldComparison &comparison, int64_t seconds) {
    return numberHolds(comparison, static_cast<uint32_t>(seconds));
}

// Either end of the time that the file covers will do, so that a file that reaches into the wanted interval
// stays selected.
bool eitherTimeHolds(const FieldComparison &comparison, int64_t start, int64_t lastWrite) {
    return timeHolds(comparison, start) || timeHolds(comparison, lastWrite);
}

// Fields of single records that the library has no name for.
enum {
    kRecordField266 = 266,
    kRecordField267,
    kRecordField270 = 270,
    kRecordField275 = 275,
    kRecordField277 = 277
};

// What the file itself cannot answer lets it pass, for the reader of its records to decide.
bool belongsToRecords(uint32_t field) {
    return field == ZANTLOG_QUERY_ORIGINATOR || field == kRecordField266 || field == kRecordField267 ||
           (field >= kRecordField270 && field <= kRecordField275) || field == kRecordField277;
}

} // namespace

bool holds(const FieldComparison &comparison, const FileLevelFields &file) {
    switch (comparison.field) {
    case ZANTLOG_QUERY_PRODUCT:
        return numberHolds(comparison, file.productId);
    case ZANTLOG_QUERY_FILE_ORIGINATOR:
        return numberHolds(comparison, file.originatorId);
    case ZANTLOG_QUERY_TIME:
        return eitherTimeHolds(comparison, file.creationTime, file.lastWriteTime);
    case ZANTLOG_QUERY_START_TIME:
        return timeHolds(comparison, file.creationTime);
    case ZANTLOG_QUERY_HEADER_TEXT:
        return textHolds(comparison, file.headerText);
    case ZANTLOG_QUERY_LOG_SET:
        return textHolds(comparison, file.logSetFileName);
    default:
        return belongsToRecords(comparison.field);
    }
}

bool holds(const FieldComparison &comparison, const HeaderLevelFields &header) {
    switch (comparison.field) {
    case ZANTLOG_QUERY_PRODUCT:
        return numberHolds(comparison, header.productId);
    case ZANTLOG_QUERY_ORIGINATOR:
        return numberHolds(comparison, header.originatorId);
    case ZANTLOG_QUERY_TIME:
        return eitherTimeHolds(comparison, header.startTime, header.lastWriteTime);
    case ZANTLOG_QUERY_START_TIME:
        return timeHolds(comparison, header.startTime);
    case ZANTLOG_QUERY_LOG_SET:
        return textHolds(comparison, header.logSetName);
    default:
        return false;
    }
}

} // namespace zantlog
