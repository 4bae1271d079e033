// Walking through selected log files.
#include <cstring>

#include "base/owned_text.h"
#include "logfile/format/file_name.h"
#include "logfile/os/file_layer.h"
#include "logfile/os/os_file.h"
#include "reader/file_list.h"
#include "reader/query.h"
#include "zantlog/discovery.h"
#include "zantlog/reader.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

constexpr size_t kPathBufferBytes = 8192;

// What the header level of a query is told of a file.
struct FetchedFile {
    LogFileHeader header;
    LogSetFileName name;
    bool isLogSet; // the file's name says so; `name` is set
    int64_t lastModified;
};

[[nodiscard]] uint32_t readHeaderOf(LogFileEntry *entry, const char *path, LogFileHeader *header) {
    if (zantLogOs_open(&entry->file, path, ZANTLOG_OPEN_READ, nullptr) != ZANTLOG_OS_OK) {
        return ZANTLOG_FAILURE;
    }
    const uint32_t result = ReadHeader(entry, header);
    (void)zantLogOs_close(&entry->file);
    return result;
}

// A log set's header has neither product nor time; its name has.
void completeFromName(const LogFileEntry &entry, FetchedFile *file) {
    file->isLogSet =
        file->header.version == ZANTLOG_FORMAT_LOGSET && parseLogSetFileName(nameOf(entry), &file->name);
    if (file->isLogSet) {
        file->header.productId = file->name.productId;
        file->header.startTime = parseFileNameTime(file->name.date);
    }
}

// Whether the entry's file can be read and is one for the query. A file whose status cannot be read keeps
// the modification time of the one before.
[[nodiscard]] bool isWanted(LogFindContext *context, LogFileEntry *entry, FetchedFile *file) {
    const LogPath path(entry->directory, nameOf(*entry));
    os::FileStatus status{};
    if (os::fileStatus(path.text, &status) == os::kErrorNone && status.regular) {
        file->lastModified = status.lastWrite;
    }
    const uint32_t result = readHeaderOf(entry, path.text, &file->header);
    if (result == ZANTLOG_UNSUPPORTED_HEADER) {
        context->badHeaderSeen = 1;
    }
    if (result != ZANTLOG_OK) {
        return false;
    }
    completeFromName(*entry, file);
    const LogFileHeader &header = file->header;
    return headerMatches(context->query, {header.productId, header.originatorId, header.startTime,
                                          file->isLogSet ? file->name.logSet : nullptr, file->lastModified});
}

} // namespace

} // namespace zantlog

extern "C" uint32_t zantLogFetchNextFileEx(LogFindContext *context, LogFileEntry **out) {
    using namespace zantlog;
    if (context == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    FetchedFile file{};
    while (context->current != nullptr) {
        LogFileEntry *entry = context->current;
        if (isWanted(context, entry, &file)) {
            context->current = entry->next;
            *out = entry;
            return ZANTLOG_OK;
        }
        if (entry->next == nullptr) {
            break; // kept: the next fetch tries the last entry again
        }
        context->current = entry->next;
    }
    return ZANTLOG_NO_MORE;
}

extern "C" uint32_t zantLogFetchNextFile(LogFindContext *context, char **out) {
    using namespace zantlog;
    if (context == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    LogFileEntry *entry = nullptr;
    const uint32_t result = zantLogFetchNextFileEx(context, &entry);
    if (result != ZANTLOG_OK) {
        return result;
    }
    OwnedText path = allocateBlock<char>(kPathBufferBytes);
    if (path == nullptr) {
        context->current = entry; // another fetch finds it
        return ZANTLOG_OUT_OF_MEMORY;
    }
    std::memset(path.get(), 0, kPathBufferBytes);
    BoundedText(path.get(), kPathBufferBytes).text(entry->directory).text(nameOf(*entry));
    *out = path.release();
    return ZANTLOG_OK;
}

extern "C" uint32_t zantLogFreeBuffer(char **buffer) {
    if (buffer == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    zantLogFree(*buffer);
    *buffer = nullptr;
    return ZANTLOG_OK;
}
