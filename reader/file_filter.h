// Whether a listed file is selected.
#pragma once

#include "base/owned_text.h"
#include "logfile/format/file_name.h"
#include "zantlog/config.h"
#include "zantlog/discovery_types.h"

namespace zantlog {

// Reads header texts, for queries that ask for them.
class HeaderTexts {
public:
    // False when memory is short.
    [[nodiscard]] bool begin(QueryNode *query);

    [[nodiscard]] bool areNeeded() const { return file_ != nullptr; }

    // Puts a file's header text where the query finds it; false when the file is none for the query: it
    // cannot be opened, or its header is of an unsupported version, which the context remembers. A file
    // without a header has an empty text.
    [[nodiscard]] bool readFrom(const char *path, LogFindContext *context);

    [[nodiscard]] const char *text() const { return header_.text; }

private:
    OwnedBlock<zantLogOsFile> file_;
    LogFileHeader header_{};
};

// Whether a file's name makes it one of the configuration's.
[[nodiscard]] bool isNamedFor(const zantLogCfg &cfg, const char *name);

// Whether one of the configuration's files passes for the context's query, if it has one.
[[nodiscard]] bool passesFilter(const zantLogCfg &cfg, const zantLogFindData &file, HeaderTexts *headers,
                                LogFindContext *context);

} // namespace zantlog
