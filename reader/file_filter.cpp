#include "reader/file_filter.h"

#include <cstring>

#include "logfile/os/file_layer.h"
#include "logfile/os/os_clock.h"
#include "reader/file_entry.h"
#include "reader/file_list.h"
#include "reader/query.h"
#include "zantlog/reader.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

constexpr int64_t kFarthestFuture = 86400;

bool isLogSetName(const zantLogCfg &cfg, const LogSetFileName &name) {
    return name.productId == cfg.productId && cfg.logSetName != nullptr &&
           std::strcmp(name.logSet, cfg.logSetName) == 0;
}

// A log set's file is as old as its name says, a product's as the listing says.
FileLevelFields fieldsOf(const zantLogCfg &cfg, const zantLogFindData &file) {
    FileLevelFields fields{};
    fields.productId = cfg.productId;
    fields.creationTime = secondsOf(file.creation);
    fields.lastWriteTime = secondsOf(file.lastWrite);
    if (cfg.isLogSet == 0) {
        fields.originatorId = cfg.originatorId;
        return fields;
    }
    LogSetFileName name;
    if (parseLogSetFileName(file.name, &name)) {
        fields.creationTime = parseFileNameTime(name.date);
    }
    fields.logSetFileName = cfg.logSetFileName;
    return fields;
}

} // namespace

bool HeaderTexts::begin(QueryNode *query) {
    if (!readsHeaderText(query)) {
        return true;
    }
    file_ = allocateBlock<zantLogOsFile>(1);
    return file_ != nullptr;
}

bool HeaderTexts::readFrom(const char *path, LogFindContext *context) {
    if (zantLogOs_open(file_.get(), path, ZANTLOG_OPEN_READ, nullptr) != ZANTLOG_OS_OK) {
        return false;
    }
    const uint32_t result = ReadHeaderEx(file_.get(), &header_);
    (void)zantLogOs_close(file_.get());
    if (result == ZANTLOG_UNSUPPORTED_HEADER) {
        context->badHeaderSeen = 1;
        return false;
    }
    if (result != ZANTLOG_OK) {
        header_.text[0] = '\0';
    }
    return true;
}

bool isNamedFor(const zantLogCfg &cfg, const char *name) {
    if (cfg.isLogSet != 0) {
        LogSetFileName fields;
        return parseLogSetFileName(name, &fields) && isLogSetName(cfg, fields);
    }
    uint32_t productId = 0;
    uint32_t originatorId = 0;
    return parseProductFileIds(name, &productId, &originatorId) && productId == cfg.productId &&
           originatorId == cfg.originatorId;
}

bool passesFilter(const zantLogCfg &cfg, const zantLogFindData &file, HeaderTexts *headers,
                  LogFindContext *context) {
    // A file from the future is a mistake of some clock; a day is left for hosts in other zones.
    if (secondsOf(file.lastWrite) - os::nowSeconds() > kFarthestFuture) {
        return false;
    }
    if (context->query == nullptr) {
        return true;
    }
    FileLevelFields fields = fieldsOf(cfg, file);
    if (headers->areNeeded()) {
        if (!headers->readFrom(LogPath(cfg.logDirectory, file.name).text, context)) {
            return false;
        }
        fields.headerText = headers->text();
    }
    return fileMatches(context->query, fields);
}

} // namespace zantlog
