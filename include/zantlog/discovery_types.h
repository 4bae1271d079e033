/** @file
 * Records of the reading side: header, directory listing, file entry, query tree, find context.
 */
#pragma once

#include "zantlog/message.h"
#include "zantlog/os_layer.h"

ZANTLOG_BEGIN_DECLS

/** The parsed header line of a log file. */
typedef struct LogFileHeader {
    uint32_t version;
    uint32_t productId;
    uint32_t originatorId;
    int64_t startTime; /**< seconds since 1970 */
    char text[512];    /**< host name */
    int32_t tzOffset;  /**< seconds, UTC minus local time; -1 when absent */
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

/** A selection of log files. */
typedef struct LogFindContext {
    uint32_t badHeaderSeen; /**< 1: a file with an unsupported header was met */
    LogFileEntry *head;
    LogFileEntry *current;  /**< next file to hand out */
    QueryNode *query;       /**< null: all files */
} LogFindContext;

/** One selected file; allocated as long as its name needs. */
struct LogFileEntry {
    LogFileEntry *next;
    uint32_t version;     /**< filled when the header is read */
    zantLogOsFile file;
    int64_t creationTime; /**< seconds since 1970 */
    int32_t tzOffset;     /**< from the header; -1 when none */
    char directory[1025]; /**< ends in a separator */
    char name[3];         /**< longer in the allocation */
};

/** A file time: 100 ns units since 1601-01-01 UTC, as two halves. */
typedef struct zantLogFileTime {
    uint32_t low;
    uint32_t high;
} zantLogFileTime;

/** The platform's find data, field by field. */
typedef struct zantLogFindData {
    uint32_t attributes;
    zantLogFileTime creation;
    zantLogFileTime lastAccess;
    zantLogFileTime lastWrite;
    uint32_t sizeHigh;
    uint32_t sizeLow;
    uint32_t reserved[2];
    char name[260];
    char shortName[14];
} zantLogFindData;

/** A directory listing. */
typedef struct zantLogListing {
    void *find;
    zantLogFindData data;
} zantLogListing;

/** Copy of the current file of a listing. */
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
