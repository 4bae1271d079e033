// Parsing the first line of a log file.
#include <cstring>

#include "base/scan.h"
#include "logfile/format/file_header.h"
#include "zantlog/reader.h"
#include "zantlog/results.h"

namespace {

using namespace zantlog;

constexpr int32_t kNoOffset = -1;

constexpr size_t kTagBytes = 21;

// The text buffer of one record.
class RecordText {
public:
    RecordText() { init_text_msg(&buffer_); }
    ~RecordText() { free_text_msg(&buffer_); }
    RecordText(const RecordText &) = delete;
    RecordText &operator=(const RecordText &) = delete;

    [[nodiscard]] bool readFrom(zantLogOsFile *file) { return readrecord(file, &buffer_) == 1; }
    [[nodiscard]] const char *text() const { return buffer_.data; }

private:
    text_msg buffer_;
};

// A line has as many fields as it has: one that is missing, and all behind it, keep what the header was
// cleared to.

bool scanIdentity(Scanner &scan, LogFileHeader *header) {
    return scan.literal(',') && scan.unsigned32(&header->productId) && scan.literal(',') &&
           scan.unsigned32(&header->originatorId) && scan.literal(',') && scan.signed64(&header->startTime) &&
           scan.literal(',');
}

void scanOldFields(Scanner &scan, LogFileHeader *header) {
    static_cast<void>(scanIdentity(scan, header) && scan.word(header->text, sizeof header->text));
}

void scanProductFields(Scanner &scan, LogFileHeader *header) {
    static_cast<void>(scanIdentity(scan, header) && scan.signed32(&header->tzOffset) && scan.literal(',') &&
                      scan.word(header->text, sizeof header->text));
}

void scanLogSetFields(Scanner &scan, LogFileHeader *header) {
    uint32_t offset = 0;
    if (!scan.literal(',') || !scan.unsigned32(&offset)) {
        return;
    }
    header->tzOffset = static_cast<int32_t>(offset);
    static_cast<void>(scan.literal(',') && scan.word(header->text, sizeof header->text));
}

[[nodiscard]] uint32_t parseHeader(const char *line, LogFileHeader *header) {
    Scanner scan{line};
    char tag[kTagBytes] = "";
    if (!scan.word(tag, sizeof tag) || std::strcmp(tag, kHeaderTag) != 0) {
        return ZANTLOG_FAILURE;
    }
    // Without a version the header is as unsupported as one of version 0.
    static_cast<void>(scan.unsigned32(&header->version));
    if (header->version < ZANTLOG_FORMAT_OLDEST || header->version > ZANTLOG_FORMAT_LOGSET) {
        return ZANTLOG_UNSUPPORTED_HEADER;
    }
    switch (header->version) {
    case ZANTLOG_FORMAT_LOGSET:
        scanLogSetFields(scan, header);
        break;
    case ZANTLOG_FORMAT_PRODUCT:
        scanProductFields(scan, header);
        break;
    default:
        scanOldFields(scan, header);
        break;
    }
    return ZANTLOG_OK;
}

void clearHeader(LogFileHeader *header) {
    *header = {};
    header->tzOffset = kNoOffset;
}

bool carriesOffset(uint32_t version) {
    return version == ZANTLOG_FORMAT_PRODUCT || version == ZANTLOG_FORMAT_LOGSET;
}

} // namespace

uint32_t ReadHeaderEx(zantLogOsFile *file, LogFileHeader *header) {
    if (file == nullptr || header == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    clearHeader(header);
    file->position = -1;
    RecordText record;
    if (!record.readFrom(file)) {
        return ZANTLOG_FAILURE;
    }
    return parseHeader(record.text(), header);
}

uint32_t ReadHeader(LogFileEntry *entry, LogFileHeader *header) {
    if (entry == nullptr && header == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    // Kept: only both missing is an invalid argument. No entry is a file without a header; without a place
    // for the header the entry alone is filled.
    if (entry == nullptr) {
        clearHeader(header);
        return ZANTLOG_FAILURE;
    }
    LogFileHeader unwanted;
    if (header == nullptr) {
        header = &unwanted;
    }
    const uint32_t result = ReadHeaderEx(&entry->file, header);
    if (result == ZANTLOG_OK) {
        entry->version = header->version;
        entry->tzOffset = carriesOffset(header->version) ? header->tzOffset : kNoOffset;
    }
    return result;
}
