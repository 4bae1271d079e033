// Query trees, evaluated against what is known of one log file.
#pragma once

#include <cstdint>

#include "zantlog/discovery_types.h"

namespace zantlog {

// What the directory listing, and the header's text where a query asks for it, say of a file.
struct FileLevelFields {
    uint32_t productId;         // from the file name
    uint32_t originatorId;      // from the file name; 0 for a log set's file
    const char *headerText;     // borrowed; needed where readsHeaderText() says so, else it may be null
    const char *logSetFileName; // borrowed, the configuration record's; null for a product's file
    int64_t creationTime;  // seconds since 1970-01-01 00:00 UTC; for a log set's file the date in its name
    int64_t lastWriteTime; // in the same unit
};

// What a file's header says of it, and what is known besides.
struct HeaderLevelFields {
    uint32_t productId;
    uint32_t originatorId;
    int64_t startTime;      // seconds since 1970-01-01 00:00 UTC
    const char *logSetName; // borrowed, from the file name; null for a product's file
    int64_t lastWriteTime;  // seconds since 1970-01-01 00:00 UTC
};

// Whether a query lets the file pass. A null query lets all pass; a tree that cannot be evaluated, none (see
// zantlog/query.h). The tree's nodes are written: one evaluation at a time.
[[nodiscard]] bool fileMatches(QueryNode *query, const FileLevelFields &file);
[[nodiscard]] bool headerMatches(QueryNode *query, const HeaderLevelFields &header);

// Whether fileMatches() needs the header's text: the query can be evaluated and holds the header text field.
[[nodiscard]] bool readsHeaderText(QueryNode *query);

} // namespace zantlog
