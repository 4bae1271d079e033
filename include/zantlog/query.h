/** @file
 * Query trees over log files: the codes of their nodes, what a tree means, and the helpers of those who build
 * one. None of these functions takes a lock, and none keeps what it is given.
 *
 * A query is a binary tree of QueryNode records that the caller builds, owns and hands over in
 * LogFindContext::query; a text form of it, and its parser, are the caller's. Every node is a term, or an
 * operator with two operands. An operator compares a field of the log file with a literal or with the result
 * (0 or 1) of another operator, or it joins the results of two operators. All comparing is done in unsigned
 * 32-bit numbers; of a time it takes the low 32 bits of the seconds since 1970-01-01 00:00 UTC.
 *
 * - The field may stand on either side, but the operator is not turned round: `5 less product` is evaluated
 *   as `product less 5`.
 * - A text is compared by ZANTLOG_QUERY_EQUAL and ZANTLOG_QUERY_NOT_EQUAL alone, byte for byte, and only with
 *   a string literal on the right. Any other comparison of a text field is false, "not equal" included.
 * - A field that is compared with a field stands for its own code when it is the left one.
 * - Both operands are always evaluated. A node that several operators share is evaluated once.
 *
 * A tree is evaluated twice: at file level, with what the name and the directory listing say of a file
 * (GetLogFiles()), and at header level, when the file's header has been read (zantLogFetchNextFileEx()). A
 * field of single records passes at file level, whatever the operator, for the reader of the records to
 * decide.
 *
 * | Field | File level | Header level |
 * |---|---|---|
 * | ZANTLOG_QUERY_PRODUCT | product id in the file name | product id of the header (1) |
 * | ZANTLOG_QUERY_ORIGINATOR | true | originator id of the header (2) |
 * | ZANTLOG_QUERY_FILE_ORIGINATOR | originator id in the file name (2) | false |
 * | ZANTLOG_QUERY_TIME | creation time or last write (3) | start time of the header (1) or last write (3) |
 * | ZANTLOG_QUERY_START_TIME | creation time (1) | start time of the header (1) |
 * | ZANTLOG_QUERY_HEADER_TEXT | text of the header | false |
 * | ZANTLOG_QUERY_LOG_SET | "FileName" of the configuration (4) | log set name in the file name (4) |
 * | 266, 267, 270 to 275, 277 | true | false |
 * | 276 and every other code | false | false |
 *
 * (1) Of a log set's file its name tells product id and time: the date in it. (2) 0 for a log set's file.
 * (3) True when the comparison holds for either of the two. (4) False for a product's file.
 *
 * A tree that cannot be evaluated is false for every file: one that is a lone term, that has more than
 * ::ZANTLOG_QUERY_OPERATORS operators (a shared one counts once), an operator without its two operands, or an
 * operator over no field and at least one literal, or that contains itself. A null tree is true for every
 * file.
 *
 * An evaluation writes QueryNode::index of the nodes, and nothing else of them; so a tree serves one
 * evaluation at a time.
 */
#pragma once

#include "zantlog/config.h"
#include "zantlog/discovery_types.h"

ZANTLOG_BEGIN_DECLS

/** Kinds of terms, in QueryNode::type. */
enum {
    ZANTLOG_QUERY_STRING = 257,  /**< string literal, in QueryNode::text, of at most 511 characters */
    ZANTLOG_QUERY_NUMBER = 258,  /**< literal, in QueryNode::value */
    ZANTLOG_QUERY_FIELD = 259,   /**< a field of the file, its code in QueryNode::value */
    ZANTLOG_QUERY_NUMBER2 = 260, /**< as ZANTLOG_QUERY_NUMBER */
    ZANTLOG_QUERY_NUMBER3 = 261  /**< as ZANTLOG_QUERY_NUMBER */
};

/** Operators, in QueryNode::type. */
enum {
    ZANTLOG_QUERY_AND = 281, /**< both operands are not 0 */
    ZANTLOG_QUERY_OR = 282,  /**< at least one operand is not 0 */
    ZANTLOG_QUERY_LESS = 283,
    ZANTLOG_QUERY_GREATER = 284,
    ZANTLOG_QUERY_LESS_OR_EQUAL = 285,
    ZANTLOG_QUERY_GREATER_OR_EQUAL = 286,
    ZANTLOG_QUERY_EQUAL = 287,
    ZANTLOG_QUERY_NOT_EQUAL = 288
};

/** Field codes, in QueryNode::value. Codes between them are fields of single records. */
enum {
    ZANTLOG_QUERY_PRODUCT = 263,
    ZANTLOG_QUERY_ORIGINATOR = 264,
    ZANTLOG_QUERY_FILE_ORIGINATOR = 265,
    ZANTLOG_QUERY_TIME = 268,
    ZANTLOG_QUERY_START_TIME = 269,
    ZANTLOG_QUERY_HEADER_TEXT = 278,
    ZANTLOG_QUERY_LOG_SET = 279
};

enum {
    ZANTLOG_QUERY_OPERATORS = 199,     /**< operators that a tree can have */
    ZANTLOG_CONTEXT_TITLE_CHAINS = 200 /**< chains of the table of SearchContextTitleInList() */
};

/**
 * Whether a node is a term.
 *
 * @param kind QueryNode::type
 * @return 1 for 257 to 261, else 0
 */
ZANTLOG_API int32_t isterm(int32_t kind);

/**
 * Applies an operator to two numbers.
 *
 * @return 1 or 0; 0 for a code that is no operator
 */
ZANTLOG_API int32_t eval(int32_t operatorCode, uint32_t a, uint32_t b);

/**
 * Applies an operator to two texts, which are equal when they are byte for byte.
 *
 * @return 1 or 0; 0 for every code but ZANTLOG_QUERY_EQUAL and ZANTLOG_QUERY_NOT_EQUAL, and when a text is
 * null
 */
ZANTLOG_API int32_t evalString(int32_t operatorCode, const char *a, const char *b);

/**
 * The hash of a text for a table of so many chains: from 0 on, for each byte, taken as signed, the hash times
 * 31 plus the byte, in 32 bits; at the end its remainder.
 *
 * @param text null counts as empty
 * @param modulus number of chains; for 0, which is not allowed, the answer is 0
 * @return below `modulus`
 */
ZANTLOG_API uint32_t HashString(const char *text, uint32_t modulus);

/**
 * Moves the time literals of a query from the time zone that they were meant in to the local one: wherever an
 * operator has ZANTLOG_QUERY_TIME or ZANTLOG_QUERY_START_TIME on the left and a term on the right, the
 * right term's value grows by the query's offset minus the local offset of now, in 32 bits. The value 0
 * stays. QueryNode::index of the nodes becomes 0.
 *
 * @param root a tree of any size; null is an empty one. An operator that is reached more than once is
 * adjusted once; a literal that several operators share, once for each of them
 * @param queryOffset seconds, UTC minus the query's local time, as getLocalTZOffsetFromGMT() gives the local
 * one
 * @return 0; 1 an operator lacks an operand; 4 out of memory, which only a tree of more than
 * ::ZANTLOG_QUERY_OPERATORS operators can meet. After a failure no literal has changed.
 */
ZANTLOG_API uint32_t updateQueryForTZ(QueryNode *root, int32_t queryOffset);

/**
 * Finds the id that a user means by a number or a short name: the id of the first of the records that has it.
 * A record without names of that kind is skipped.
 *
 * A text that is a whole decimal number, with white space before it and a sign or not, stands for the id of
 * that number and never for a name. Any other text has to equal one of the record's names: the names stand
 * between commas, and blanks count neither about nor inside them, so "My Prod" in a record is found as
 * "MyProd", and a text with a blank in it is never found.
 *
 * @param array configuration records, as zantLogReadAllCfg() gives them; null ones are skipped
 * @param count records in `array`
 * @param fieldCode ZANTLOG_QUERY_PRODUCT for product names and ids; any other code for those of originators
 * @param text number or name
 * @return the id; 0 when no record has it, and for a null argument
 */
ZANTLOG_API uint32_t GetIdFromName(zantLogCfg **array, uint32_t count, uint32_t fieldCode, const char *text);

/**
 * Finds a remembered context title: the first entry of the key's chain that has the key and both ids of a
 * message. When the message is a context message, the entry's title is first replaced by a copy of `title`
 * and the old one freed with zantLogFree().
 *
 * @param context the message; its type, product id and originator id are looked at
 * @param title for a context message: the new title; null leaves the entry without one. When memory is short
 * the entry keeps the old one
 * @param key the context's token; entries stand in the chain `HashString(key, ZANTLOG_CONTEXT_TITLE_CHAINS)`
 * @param table ::ZANTLOG_CONTEXT_TITLE_CHAINS chains of entries; chains, entries and their texts are the
 * caller's, the titles from zantLogMalloc() or zantLogSafeStrdup()
 * @return the entry, borrowed from the table; null when there is none, and for a null message, key or table
 */
ZANTLOG_API ContextTitle *SearchContextTitleInList(const zantLogMsgRec *context, const char *title,
                                                   const char *key, ContextTitle **table);

ZANTLOG_END_DECLS
