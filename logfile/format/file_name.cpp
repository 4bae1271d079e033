#include "logfile/format/file_name.h"

#include <cstring>
#include <initializer_list>

#include "base/bounded_text.h"
#include "base/scan.h"

namespace zantlog {

namespace {

// A piece of a name between hyphens; runs of hyphens and leading ones count as one.
struct NameField {
    const char *at;
    size_t length; // 0: there is no further field
};

NameField nextField(const char *from) {
    const char *at = from + std::strspn(from, "-");
    return {at, std::strcspn(at, "-")};
}

NameField fieldAfter(const NameField &field) {
    return nextField(field.at + field.length);
}

template <size_t N> void copyField(char (&destination)[N], const NameField &field) {
    const size_t length = field.length < N ? field.length : N - 1;
    std::memcpy(destination, field.at, length);
    destination[length] = '\0';
}

// The number that the field begins with; 0 when it begins with none.
uint32_t fieldNumber(const NameField &field) {
    Scanner scan{field.at};
    uint32_t number = 0;
    // Behind a field of blanks the next one would be read, its hyphen as a sign.
    return scan.unsigned32(&number) && scan.at <= field.at + field.length ? number : 0;
}

} // namespace

bool formatProductFilePath(char *path, size_t capacity, const char *directory, const ProductFileName &name) {
    BoundedText text(path, capacity);
    text.text(directory).number(name.productId).character('-').number(name.originatorId).character('-');
    text.number(name.hostId).character('-');
    text.twoPlaces(name.year).twoPlaces(name.month).twoPlaces(name.day);
    text.character('-').number(name.daySequence, 10).text(".log");
    return !text.cut();
}

bool formatLogSetFilePath(char *path, size_t capacity, const char *directory, uint32_t productId,
                          const char *logSet, const std::tm &localTime) {
    BoundedText text(path, capacity);
    text.text(directory).number(productId).character('-').text(logSet).character('-');
    for (const int part : {localTime.tm_year - 100, localTime.tm_mon + 1, localTime.tm_mday,
                           localTime.tm_hour, localTime.tm_min, localTime.tm_sec}) {
        text.twoPlaces(part);
    }
    text.text(".log");
    return !text.cut();
}

bool parseProductFileIds(const char *name, uint32_t *productId, uint32_t *originatorId) {
    const NameField product = nextField(name);
    const NameField originator = fieldAfter(product);
    *productId = fieldNumber(product);
    *originatorId = fieldNumber(originator);
    return *productId != 0 && *originatorId != 0;
}

bool parseProductFileName(const char *name, ProductFileName *out) {
    Scanner scan{name};
    ProductFileName parsed{};
    const bool complete =
        scan.unsigned32(&parsed.productId) && scan.literal('-') && scan.unsigned32(&parsed.originatorId) &&
        scan.literal('-') && scan.unsigned32(&parsed.hostId) && scan.literal('-') &&
        scan.signed32(&parsed.year, 2) && scan.signed32(&parsed.month, 2) && scan.signed32(&parsed.day, 2) &&
        scan.literal('-') && scan.unsigned32(&parsed.daySequence, 10);
    if (complete) {
        *out = parsed;
    }
    return complete;
}

bool parseContinuedFileName(const char *name, int32_t *year, int32_t *month, int32_t *day,
                            uint32_t *daySequence) {
    Scanner scan{name};
    int32_t ignored = 0;
    char date[7];
    uint32_t sequence = 0;
    const bool complete = scan.signed32(&ignored) && scan.literal('-') && scan.signed32(&ignored) &&
                          scan.literal('-') && scan.signed32(&ignored) && scan.literal('-') &&
                          scan.word(date, sizeof date) && scan.literal('-') && scan.unsigned32(&sequence);
    if (!complete) {
        return false;
    }
    Scanner dateScan{date};
    int32_t parts[3];
    for (int32_t &part : parts) {
        if (!dateScan.signed32(&part, 2)) {
            return false;
        }
    }
    *year = parts[0];
    *month = parts[1];
    *day = parts[2];
    *daySequence = sequence;
    return true;
}

bool parseLogSetFileName(const char *name, LogSetFileName *out) {
    const NameField product = nextField(name);
    const NameField logSet = fieldAfter(product);
    const NameField date = fieldAfter(logSet);
    out->productId = fieldNumber(product);
    copyField(out->logSet, logSet);
    copyField(out->date, date);
    return out->productId != 0 && out->logSet[0] != '\0';
}

} // namespace zantlog
