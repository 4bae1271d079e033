// Selection of the log files of a set of configurations.
#include "reader/file_filter.h"
#include "reader/found_files.h"
#include "reader/text_hash.h"
#include "zantlog/discovery.h"
#include "zantlog/reader.h"
#include "zantlog/results.h"

#include <cstring>

namespace zantlog {

namespace {

struct Scan {
    LogFindContext *context;
    FoundFiles found;
    HeaderTexts headers;
};

// The directory and its part of every key's hash.
struct ScannedDirectory {
    const char *path;
    uint32_t hash;
};

OwnedEntry newEntry(zantLogListing *listing, const char *directory) {
    OwnedEntry entry(alloc_file(listing));
    if (entry != nullptr) {
        std::memcpy(entry->directory, directory, std::strlen(directory) + 1);
    }
    return entry;
}

// False when memory is short. What is selected already is not looked at again: another configuration of the
// same directory names the same files.
[[nodiscard]] bool takeFile(Scan *scan, const zantLogCfg &cfg, const ScannedDirectory &directory,
                            zantLogListing *listing) {
    const char *name = listing->data.name;
    if (!isNamedFor(cfg, name)) {
        return true;
    }
    const FileKey key{directory.path, name, hashOn(directory.hash, name)};
    if (scan->found.holds(key) || !passesFilter(cfg, listing->data, &scan->headers, scan->context)) {
        return true;
    }
    OwnedEntry entry = newEntry(listing, directory.path);
    return entry != nullptr && scan->found.add(std::move(entry), key);
}

// A directory that cannot be listed, or no further, adds nothing more; the others still do.
void scanDirectory(Scan *scan, const zantLogCfg &cfg) {
    if (std::memchr(cfg.logDirectory, '\0', sizeof cfg.logDirectory) == nullptr) {
        return;
    }
    const ScannedDirectory directory{cfg.logDirectory, hashOn(0, cfg.logDirectory)};
    zantLogListing listing;
    uint32_t result = zantLogOsListLogFilesBegin(&listing, directory.path);
    while (result == 0 && takeFile(scan, cfg, directory, &listing)) {
        result = zantLogOsListLogFilesNext(&listing);
    }
    (void)zantLogOsListLogFilesEnd(&listing);
}

} // namespace

} // namespace zantlog

extern "C" uint32_t GetLogFiles(zantLogCfg **array, uint32_t count, LogFindContext *context) {
    using namespace zantlog;
    if (array == nullptr || context == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    context->badHeaderSeen = 0;
    context->head = nullptr;
    context->current = nullptr;
    Scan scan{context, {}, {}};
    if (!scan.found.begin() || !scan.headers.begin(context->query)) {
        return ZANTLOG_SCAN_FAILED;
    }
    for (uint32_t i = 0; i < count; ++i) {
        if (array[i] != nullptr) {
            scanDirectory(&scan, *array[i]);
        }
    }
    context->head = scan.found.takeList();
    context->current = context->head;
    return context->head != nullptr ? ZANTLOG_OK : ZANTLOG_NO_LOG_FILE;
}
