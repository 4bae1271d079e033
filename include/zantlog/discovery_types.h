/** @file
 * Records of the reading side: header, directory listing, file entry, query tree, find context.
 */
#pragma once

#include "zantlog/message.h"
#include "zantlog/os_layer.h"

ZANTLOG_BEGIN_DECLS

/** The parsed header line of a log file. What a version does not carry is 0. */
typedef struct LogFileHeader {
    uint32_t version;      /**< 65540 to 65544 */
    uint32_t productId;    /**< not in version 65544 */
    uint32_t originatorId; /**< file originator id; not in version 65544 */
    int64_t startTime; /**< creation of the file, seconds since 1970-01-01 00:00 UTC; not in version 65544 */
    char text[512];    /**< name of the host that made the file, terminated */
    int32_t tzOffset;  /**< seconds, UTC minus local time; -1 when absent (below version 65543) */
} LogFileHeader;

/** A node of a query tree; owned by the caller. */
typedef struct QueryNode QueryNode;
struct QueryNode {
    int32_t type;     /**< term kind 257 to 261, or operator code 281 to 288 */
    int32_t index;    /**< written by the evaluation */
    uint32_t value;   /**< field code or literal */
    const char *text; /**< string literal */
    QueryNode *left;
    QueryNode *right;
};

typedef struct LogFileEntry LogFileEntry;

/** A selection of log files, in storage of the caller's. */
typedef struct LogFindContext {
    uint32_t badHeaderSeen; /**< 1: a file with an unsupported header was met */
    LogFileEntry *head;     /**< first selected file; each entry is freed with zantLogFree() */
    LogFileEntry *current;  /**< next file to hand out; null at the end */
    QueryNode *query;       /**< owned by the caller; null: all files */
} LogFindContext;

/** One listed or selected file, made by alloc_file(): as long as its name needs. */
struct LogFileEntry {
    LogFileEntry *next;
    uint32_t version;     /**< filled when the header is read */
    zantLogOsFile file;   /**< closed, but while the header is read */
    int64_t creationTime; /**< from the listing, seconds since 1970-01-01 00:00 UTC */
    int32_t tzOffset;     /**< from the header; -1 when none */
    char directory[1025]; /**< ends in a separator */
    char name[3];         /**< without the directory, terminated; longer in the allocation */
};

/** A file time: 100 ns units since 1601-01-01 UTC, as two halves. */
typedef struct zantLogFileTime {
    uint32_t low;
    uint32_t high;
} zantLogFileTime;

/** The platform's find data (WIN32_FIND_DATAA), field by field. */
typedef struct zantLogFindData {
    uint32_t attributes;
    zantLogFileTime creation;
    zantLogFileTime lastAccess;
    zantLogFileTime lastWrite;
    uint32_t sizeHigh; /**< upper 32 bits of the size in bytes */
    uint32_t sizeLow;
    uint32_t reserved[2];
    char name[260];     /**< without the directory */
    char shortName[14]; /**< in the form 8.3; empty when there is none */
} zantLogFindData;

/** A directory listing, in storage of the caller's. */
typedef struct zantLogListing {
    void *find;           /**< the system's find handle; null when there is nothing to close */
    zantLogFindData data; /**< the current file */
} zantLogListing;

/** Copy of what a listing says of its current file. */
typedef struct zantLogListCopy {
    char name[260];
    uint32_t attributes;
    zantLogFileTime creation;
    zantLogFileTime lastWrite;
    uint64_t size; /**< bytes */
} zantLogListCopy;

/** A remembered title of a context. */
typedef struct ContextTitle ContextTitle;
struct ContextTitle {
    ContextTitle *next;
    uint32_t productId;
    uint32_t originatorId;
    char *key;
    char *title;
};

ZANTLOG_FIELD_AT(LogFileHeader, productId, 4);
ZANTLOG_FIELD_AT(LogFileHeader, originatorId, 8);
ZANTLOG_FIELD_AT(LogFileHeader, startTime, 16);
ZANTLOG_FIELD_AT(LogFileHeader, text, 24);
ZANTLOG_FIELD_AT(LogFileHeader, tzOffset, 536);
ZANTLOG_RECORD_SIZE(LogFileHeader, 544);

ZANTLOG_FIELD_AT(QueryNode, index, 4);
ZANTLOG_FIELD_AT(QueryNode, value, 8);
ZANTLOG_FIELD_AT(QueryNode, text, 16);
ZANTLOG_FIELD_AT(QueryNode, left, 24);
ZANTLOG_FIELD_AT(QueryNode, right, 32);
ZANTLOG_RECORD_SIZE(QueryNode, 40);

ZANTLOG_FIELD_AT(LogFindContext, head, 8);
ZANTLOG_FIELD_AT(LogFindContext, current, 16);
ZANTLOG_FIELD_AT(LogFindContext, query, 24);
ZANTLOG_RECORD_SIZE(LogFindContext, 32);

ZANTLOG_FIELD_AT(LogFileEntry, version, 8);
ZANTLOG_FIELD_AT(LogFileEntry, file, 16);
ZANTLOG_FIELD_AT(LogFileEntry, creationTime, 32808);
ZANTLOG_FIELD_AT(LogFileEntry, tzOffset, 32816);
ZANTLOG_FIELD_AT(LogFileEntry, directory, 32820);
ZANTLOG_FIELD_AT(LogFileEntry, name, 33845);

ZANTLOG_FIELD_AT(zantLogFindData, creation, 4);
ZANTLOG_FIELD_AT(zantLogFindData, sizeHigh, 28);
ZANTLOG_FIELD_AT(zantLogFindData, name, 44);
ZANTLOG_FIELD_AT(zantLogFindData, shortName, 304);
ZANTLOG_RECORD_SIZE(zantLogFindData, 320);

ZANTLOG_FIELD_AT(zantLogListing, data, 8);
ZANTLOG_RECORD_SIZE(zantLogListing, 328);

ZANTLOG_FIELD_AT(zantLogListCopy, attributes, 260);
ZANTLOG_FIELD_AT(zantLogListCopy, creation, 264);
ZANTLOG_FIELD_AT(zantLogListCopy, lastWrite, 272);
ZANTLOG_FIELD_AT(zantLogListCopy, size, 280);
ZANTLOG_RECORD_SIZE(zantLogListCopy, 288);

ZANTLOG_FIELD_AT(ContextTitle, productId, 8);
ZANTLOG_FIELD_AT(ContextTitle, originatorId, 12);
ZANTLOG_FIELD_AT(ContextTitle, key, 16);
ZANTLOG_FIELD_AT(ContextTitle, title, 24);
ZANTLOG_RECORD_SIZE(ContextTitle, 32);

ZANTLOG_END_DECLS
