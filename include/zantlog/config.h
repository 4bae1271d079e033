/** @file
 * The configuration record of a product and originator or of a log set, and its accessors.
 *
 * The caller owns the record's storage: a variable, or an element of what zantLogReadAllCfg() made.
 * zantLogReadCfg() and its siblings fill it, zantLogFreeCfg() releases what it points to. The accessors take
 * no lock: a record belongs to one thread at a time.
 *
 * Every function of this file returns a result code of results.h unless its description says otherwise. A
 * setter or getter that fails stores nothing, except where its description says so. A setter marks its
 * setting in zantLogCfg::changedMask, by which zantLogWriteCfg() and zantLogWritelogSetCfg() know what to
 * save. Texts that getters hand out are copies; the caller frees them with zantLogFree().
 */
#pragma once

#include "zantlog/export.h"

ZANTLOG_BEGIN_DECLS

/** Ways of rolling over; a bit set. Local time and periodic exclude each other. */
enum {
    ZANTLOG_ROLLOVER_NONE = 0,       /**< "None" */
    ZANTLOG_ROLLOVER_FILE_SIZE = 1,  /**< "FileSize": at the maximum size of a file */
    ZANTLOG_ROLLOVER_LOCAL_TIME = 2, /**< "LocalTime": each day at the rollover time */
    ZANTLOG_ROLLOVER_PERIODIC = 4    /**< "Periodic": each time the rollover period has passed */
};

/**
 * Settings as bits of zantLogCfg::changedMask and zantLogCfg::removeMask. Each has the key in the store that
 * docs/configuration.md describes.
 */
enum {
    ZANTLOG_SETTING_LOG_DIRECTORY = 0x1,
    ZANTLOG_SETTING_OID_NAMES = 0x2, /**< no accessor sets it */
    ZANTLOG_SETTING_L10N_LIB = 0x4,
    ZANTLOG_SETTING_L10N_RESOURCE = 0x8,
    ZANTLOG_SETTING_L10N_RESOURCE_DIR = 0x10,
    ZANTLOG_SETTING_DEBUG_LEVEL = 0x20,
    ZANTLOG_SETTING_DIAG_LEVEL = 0x40,
    ZANTLOG_SETTING_LOG_TO_STDOUT = 0x80,
    ZANTLOG_SETTING_LOG_TO_STDERR = 0x100,
    ZANTLOG_SETTING_LOG_TO_OSLOG = 0x200,
    ZANTLOG_SETTING_ROLLOVER_MODE = 0x400,
    ZANTLOG_SETTING_MAX_FILE_SIZE = 0x800,
    ZANTLOG_SETTING_ROLLOVER_TIME = 0x1000,
    ZANTLOG_SETTING_ROLLOVER_PERIOD = 0x2000,
    ZANTLOG_SETTING_NUMBER_OF_LOG_FILES = 0x4000,
    ZANTLOG_SETTING_EVENT_SOURCE = 0x8000,
    ZANTLOG_SETTING_EVENT_CATEGORY = 0x10000,
    ZANTLOG_SETTING_LOG_FILE_SDDL = 0x20000,
    ZANTLOG_SETTING_LOG_RECYCLE = 0x1000000,
    ZANTLOG_SETTING_DYNA_RELOAD = 0x4000000,
    ZANTLOG_SETTING_FILE_NAME = 0x8000000,
    ZANTLOG_SETTING_OID_APP_MSG_LOGGING = 0x10000000,
    ZANTLOG_SETTING_OID_DEBUG_LOGGING = 0x20000000,
    ZANTLOG_SETTING_OID_DIAG_LOGGING = 0x40000000,
    /**
     * Not one bit but every bit from 0x2 to 0x40000000. Kept: the switch is saved with any other setting but
     * the log directory, and switching it marks all of them.
     */
    ZANTLOG_SETTING_APP_MSG_LOGGING = 0x7FFFFFFE
};

enum {
    ZANTLOG_DEFAULT_ORIGINATOR = 112, /**< its section is named "Default" */
    ZANTLOG_TEXT_FIELD = 1025,        /**< bytes of a fixed text, with its terminator */
    ZANTLOG_EVENT_SOURCE_NAME = 80,   /**< bytes of an event source's name, with its terminator */
    ZANTLOG_ROLLOVER_MODE_TEXT = 256, /**< bytes of the buffer of RolloverModeEnumToSettingString() */
    ZANTLOG_PRODUCT_NAMES = 263       /**< LogCfgGetShortNames(): the product's names */
};

/** Event log source under which messages are reported. */
typedef struct zantLogEventSource {
    char name[ZANTLOG_EVENT_SOURCE_NAME];
    uint16_t category;
} zantLogEventSource;

/** Settings of one product and originator, or of one log set. Texts behind pointers are owned and may be
 * null. */
typedef struct zantLogCfg {
    uint32_t productId;        /**< not 0 */
    uint32_t originatorId;     /**< 112: the default originator; 0 in a log set's record */
    uint32_t debugLevel;       /**< 0 to 6; default 0 */
    uint32_t diagLevel;        /**< 0 to 6; default 0 */
    uint32_t secureAuditLevel; /**< for zantLogSecureOpen(); neither loaded nor saved; default 0 */
    uint32_t outputFlags;      /**< 1, 2, 4 and 64 of the flags of a call; default 0 */
    char logDirectory[ZANTLOG_TEXT_FIELD]; /**< ends in a backslash once it is set; default empty */
    char *logFileSDDL;              /**< security descriptor of new files and directories, as SDDL text */
    uint32_t maxLogFileSizeKB;      /**< default 10240 */
    uint32_t rolloverMode;          /**< bit set of the ways of rolling over; default none */
    int64_t rolloverPeriod;         /**< seconds; default 43200 */
    int64_t rolloverTime;           /**< seconds after local midnight; default 0 */
    uint32_t numberOfLogFiles;      /**< files that recycling keeps; default 0xFFFFFFFF */
    uint32_t logRecycle;            /**< 1: old files are recycled; default 0 */
    zantLogEventSource eventSource; /**< default "Application", category 0 */
    char productNames[ZANTLOG_TEXT_FIELD];    /**< short names, separated by commas or blanks */
    char originatorNames[ZANTLOG_TEXT_FIELD]; /**< the same of the originators */
    char *l10nLib;                            /**< base name of the localisation library */
    char *l10nResource;
    char *l10nResourceDir;
    uint32_t changedMask;    /**< settings that were set since the record was made or loaded */
    uint32_t removeMask;     /**< settings that the next save deletes; set by the caller alone */
    int32_t dynaReloadInSec; /**< seconds between two reloads of the levels; 0: never; default 0 */
    char *logSetName;        /**< null in the record of a product and originator */
    uint32_t isLogSet;       /**< 1: the record was made for a log set */
    char *logSetFileName;    /**< base name of the log set's files; default: the log set's name */
    uint32_t appMsgLogging;  /**< 1: application messages are logged; default 1 */
    char *oidAppMsgLogging;  /**< originators' own settings of a log set, as texts for tools */
    char *oidDebugLogging;
    char *oidDiagLogging;
} zantLogCfg;

ZANTLOG_FIELD_AT(zantLogEventSource, category, 80);
ZANTLOG_RECORD_SIZE(zantLogEventSource, 82);

ZANTLOG_FIELD_AT(zantLogCfg, originatorId, 4);
ZANTLOG_FIELD_AT(zantLogCfg, debugLevel, 8);
ZANTLOG_FIELD_AT(zantLogCfg, diagLevel, 12);
ZANTLOG_FIELD_AT(zantLogCfg, secureAuditLevel, 16);
ZANTLOG_FIELD_AT(zantLogCfg, outputFlags, 20);
ZANTLOG_FIELD_AT(zantLogCfg, logDirectory, 24);
ZANTLOG_FIELD_AT(zantLogCfg, logFileSDDL, 1056);
ZANTLOG_FIELD_AT(zantLogCfg, maxLogFileSizeKB, 1064);
ZANTLOG_FIELD_AT(zantLogCfg, rolloverMode, 1068);
ZANTLOG_FIELD_AT(zantLogCfg, rolloverPeriod, 1072);
ZANTLOG_FIELD_AT(zantLogCfg, rolloverTime, 1080);
ZANTLOG_FIELD_AT(zantLogCfg, numberOfLogFiles, 1088);
ZANTLOG_FIELD_AT(zantLogCfg, logRecycle, 1092);
ZANTLOG_FIELD_AT(zantLogCfg, eventSource, 1096);
ZANTLOG_FIELD_AT(zantLogCfg, productNames, 1178);
ZANTLOG_FIELD_AT(zantLogCfg, originatorNames, 2203);
ZANTLOG_FIELD_AT(zantLogCfg, l10nLib, 3232);
ZANTLOG_FIELD_AT(zantLogCfg, l10nResource, 3240);
ZANTLOG_FIELD_AT(zantLogCfg, l10nResourceDir, 3248);
ZANTLOG_FIELD_AT(zantLogCfg, changedMask, 3256);
ZANTLOG_FIELD_AT(zantLogCfg, removeMask, 3260);
ZANTLOG_FIELD_AT(zantLogCfg, dynaReloadInSec, 3264);
ZANTLOG_FIELD_AT(zantLogCfg, logSetName, 3272);
ZANTLOG_FIELD_AT(zantLogCfg, isLogSet, 3280);
ZANTLOG_FIELD_AT(zantLogCfg, logSetFileName, 3288);
ZANTLOG_FIELD_AT(zantLogCfg, appMsgLogging, 3296);
ZANTLOG_FIELD_AT(zantLogCfg, oidAppMsgLogging, 3304);
ZANTLOG_FIELD_AT(zantLogCfg, oidDebugLogging, 3312);
ZANTLOG_FIELD_AT(zantLogCfg, oidDiagLogging, 3320);
ZANTLOG_RECORD_SIZE(zantLogCfg, 3328);

/**
 * Sets the rollover mode.
 * @param cfg   the record
 * @param mode  bit set of the ways of rolling over; 0 to 5
 * @return 0; 3 null record, or local time and periodic together (6, 7), or any greater number
 */
ZANTLOG_API uint32_t zantLogCfgSetRolloverMode(zantLogCfg *cfg, uint32_t mode);

/** Gets the rollover mode. @return 0; 3 a null argument */
ZANTLOG_API uint32_t zantLogCfgGetRolloverMode(zantLogCfg *cfg, uint32_t *mode);

/** Sets the size in KB at which a file rolls over by size. @return 0; 3 null record or 0 KB */
ZANTLOG_API uint32_t zantLogCfgSetMaxFileSize(zantLogCfg *cfg, uint32_t kb);

/** Gets the size in KB at which a file rolls over by size. @return 0; 3 a null argument */
ZANTLOG_API uint32_t zantLogCfgGetMaxFileSize(zantLogCfg *cfg, uint32_t *kb);

/** Sets the seconds between two periodic rollovers. @return 0; 3 null record or 0 seconds */
ZANTLOG_API uint32_t zantLogCfgSetRolloverPeriod(zantLogCfg *cfg, int64_t seconds);

/** Gets the seconds between two periodic rollovers. @return 0; 3 a null argument */
ZANTLOG_API uint32_t zantLogCfgGetRolloverPeriod(zantLogCfg *cfg, int64_t *seconds);

/**
 * Sets the time of day of the local-time rollover.
 * @param cfg      the record
 * @param seconds  seconds after local midnight; 0 is allowed, and no upper limit is enforced
 * @return 0; 3 null record
 */
ZANTLOG_API uint32_t zantLogCfgSetRolloverTime(zantLogCfg *cfg, int64_t seconds);

/** Gets the time of day of the local-time rollover, in seconds after local midnight. @return 0; 3 a null
 * argument */
ZANTLOG_API uint32_t zantLogCfgGetRolloverTime(zantLogCfg *cfg, int64_t *seconds);

/** Sets the number of files that recycling keeps. @return 0; 3 null record or no file */
ZANTLOG_API uint32_t zantLogCfgSetNumberOfLogFiles(zantLogCfg *cfg, uint32_t count);

/** Gets the number of files that recycling keeps. @return 0; 3 a null argument */
ZANTLOG_API uint32_t zantLogCfgGetNumberOfLogFiles(zantLogCfg *cfg, uint32_t *count);

/** Sets the level up to which debug messages are logged. @return 0; 3 null record or a level above 6 */
ZANTLOG_API uint32_t zantLogCfgSetDebugLevel(zantLogCfg *cfg, uint32_t level);

/** Gets the level up to which debug messages are logged. @return 0; 3 a null argument */
ZANTLOG_API uint32_t zantLogCfgGetDebugLevel(zantLogCfg *cfg, uint32_t *level);

/** Sets the level up to which diagnostic messages are logged. @return 0; 3 null record or a level above 6 */
ZANTLOG_API uint32_t zantLogCfgSetDiagLevel(zantLogCfg *cfg, uint32_t level);

/** Gets the level up to which diagnostic messages are logged. @return 0; 3 a null argument */
ZANTLOG_API uint32_t zantLogCfgGetDiagLevel(zantLogCfg *cfg, uint32_t *level);

/**
 * Sets the interval of zantDynaLoadConfig().
 * @param cfg      the record
 * @param seconds  0 switches the reload off; intervals below 60 count as 60 there
 * @return 0; 3 null record or a negative interval
 */
ZANTLOG_API uint32_t zantLogCfgSetDynaSetting(zantLogCfg *cfg, int32_t seconds);

/** Gets the interval of zantDynaLoadConfig() in seconds. @return 0; 3 a null argument */
ZANTLOG_API uint32_t zantLogCfgGetDynaSetting(zantLogCfg *cfg, int32_t *seconds);

/** Gets the output flags as a whole. @return 0; 3 a null argument */
ZANTLOG_API uint32_t zantLogCfgGetFlags(zantLogCfg *cfg, uint32_t *flags);

/**
 * Switches all four outputs at once: standard output (1), standard error (2), event log (4) and secure event
 * record (64) are enabled where their bit is set and disabled where it is not. Other bits are ignored. The
 * settings of the first three are marked as changed, also when they had the value already.
 * @return 0; 3 null record, or bit 31 is set
 */
ZANTLOG_API uint32_t zantLogCfgSetFlags(zantLogCfg *cfg, uint32_t flags);

/** @name Switches
 * They check nothing, a null record included, and return 0.
 * @{
 */
/** Old log files are deleted, down to the number of files that are kept. */
ZANTLOG_API uint32_t zantLogCfgEnableLogRecycling(zantLogCfg *cfg);

/** Old log files stay. */
ZANTLOG_API uint32_t zantLogCfgDisableLogRecycling(zantLogCfg *cfg);

/** Application messages are logged. Marks every setting but the log directory:
 * ZANTLOG_SETTING_APP_MSG_LOGGING. */
ZANTLOG_API uint32_t zantLogCfgEnableAppMsgLogging(zantLogCfg *cfg);

/** Application messages are not logged. Marks every setting but the log directory. */
ZANTLOG_API uint32_t zantLogCfgDisableAppMsgLogging(zantLogCfg *cfg);

/** Messages also go to standard output. */
ZANTLOG_API uint32_t zantLogCfgEnableLogToStdout(zantLogCfg *cfg);

/** Messages do not go to standard output. */
ZANTLOG_API uint32_t zantLogCfgDisableLogToStdout(zantLogCfg *cfg);

/** Messages also go to standard error. */
ZANTLOG_API uint32_t zantLogCfgEnableLogToStderr(zantLogCfg *cfg);

/** Messages do not go to standard error. */
ZANTLOG_API uint32_t zantLogCfgDisableLogToStderr(zantLogCfg *cfg);

/** Messages also go to the event log. */
ZANTLOG_API uint32_t zantLogCfgEnableLogToOslog(zantLogCfg *cfg);

/** Messages do not go to the event log. */
ZANTLOG_API uint32_t zantLogCfgDisableLogToOslog(zantLogCfg *cfg);

/** Events carry the secure prefix. The switch has no key in the store and marks nothing as changed. */
ZANTLOG_API uint32_t zantLogCfgEnableLogToOslogX(zantLogCfg *cfg);

/** Events carry no secure prefix. Marks nothing as changed. */
ZANTLOG_API uint32_t zantLogCfgDisableLogToOslogX(zantLogCfg *cfg);
/** @} */

/** @name Setters of texts
 * Each frees the old text and stores a copy of the new one, which may be the record's own.
 * @return 0; 3 null record, null or empty text; 4 the copy could not be allocated: the field is null then,
 * and its setting is marked as changed all the same
 * @{
 */
/** Base name of the localisation library, with or without a directory. */
ZANTLOG_API uint32_t zantLogCfgSetL10nLib(zantLogCfg *cfg, const char *text);

/** Name of the localisation resource. */
ZANTLOG_API uint32_t zantLogCfgSetL10nResource(zantLogCfg *cfg, const char *text);

/** Directory of the localisation resource. */
ZANTLOG_API uint32_t zantLogCfgSetL10nResourceDir(zantLogCfg *cfg, const char *text);

/** Base name of a log set's files. */
ZANTLOG_API uint32_t zantLogCfgSetLogsetFilename(zantLogCfg *cfg, const char *text);

/** A log set's application-message logging of single originators. */
ZANTLOG_API uint32_t zantLogCfgSetLogsetOIDappMsgLogging(zantLogCfg *cfg, const char *text);

/** A log set's debug logging of single originators. */
ZANTLOG_API uint32_t zantLogCfgSetLogsetOIDDebugLogging(zantLogCfg *cfg, const char *text);

/** A log set's diagnostic logging of single originators. */
ZANTLOG_API uint32_t zantLogCfgSetLogsetOIDDiagLogging(zantLogCfg *cfg, const char *text);
/** @} */

/**
 * Gets the file name of the localisation library: its base name, cut at the first "_" or "." of its file
 * part, with the library's major version put behind it. "zantLogFormatMsg" gives "zantLogFormatMsg_3.dll".
 * @param cfg  the record
 * @param out  set to null first; then the name, which the caller frees with zantLogFree()
 * @return 0; 3 a null argument; 4 the record names no library, or memory is short
 */
ZANTLOG_API uint32_t zantLogCfgGetL10nLib(zantLogCfg *cfg, char **out);

/** @name Getters of texts
 * Each hands out a copy, which the caller frees with zantLogFree(), or null where the record has no text.
 * @return 0; 3 a null argument; 4 the copy could not be allocated
 * @{
 */
/** Name of the localisation resource. */
ZANTLOG_API uint32_t zantLogCfgGetL10nResource(zantLogCfg *cfg, char **out);

/** Directory of the localisation resource. */
ZANTLOG_API uint32_t zantLogCfgGetL10nResourceDir(zantLogCfg *cfg, char **out);

/** Base name of a log set's files. */
ZANTLOG_API uint32_t zantLogCfgGetLogsetFilename(zantLogCfg *cfg, char **out);

/** A log set's application-message logging of single originators. The doubled "OID" is the function's name.
 */
ZANTLOG_API uint32_t zantLogCfgGetLogsetOIDOIDappMsgLogging(zantLogCfg *cfg, char **out);

/** A log set's debug logging of single originators. */
ZANTLOG_API uint32_t zantLogCfgGetLogsetOIDDebugLogging(zantLogCfg *cfg, char **out);

/** A log set's diagnostic logging of single originators. */
ZANTLOG_API uint32_t zantLogCfgGetLogsetOIDDiagLogging(zantLogCfg *cfg, char **out);
/** @} */

/**
 * Sets the log directory, or a part of it. Each pair of backslashes becomes one, from left to right within
 * the new text, so that a path that begins with two keeps one of them; and one backslash is added at the end
 * where there is none.
 * @param cfg        the record
 * @param directory  the new text; it may be the record's own
 * @param position   where in zantLogCfg::logDirectory the text is put, to append to what stands before; null:
 * at the start
 * @return 0; 3 null record, null or empty text, a position outside the field, or a text that does not fit
 * into the field's 1024 characters
 */
ZANTLOG_API uint32_t zantLogCfgSetDirectory(zantLogCfg *cfg, const char *directory, char *position);

/**
 * Gets a copy of the log directory, empty when none is set; the caller frees it with zantLogFree().
 * @return 0, also when the copy could not be allocated (it is null then); 3 a null argument
 */
ZANTLOG_API uint32_t zantLogCfgGetDirectory(zantLogCfg *cfg, char **out);

/**
 * Frees every text that the record owns and fills the record with zeros, both masks included. The record
 * itself is the caller's.
 * @return 0; 3 null record
 */
ZANTLOG_API uint32_t zantLogFreeCfg(zantLogCfg *cfg);

/**
 * Reads a rollover mode as the store holds it: "FileSize", "LocalTime" and "Periodic", case-sensitive,
 * anywhere in the text and with anything between. "LocalTime" wins over "Periodic".
 * @return the bit set of the ways of rolling over; 0 for a null text and for one without any of the words
 */
ZANTLOG_API uint32_t SettingStringToRolloverModeEnum(const char *text);

/**
 * Writes a rollover mode as the store holds it, such as "None" or "FileSize | LocalTime".
 * @param mode    bit set of the ways of rolling over; other bits add nothing
 * @param buffer  256 bytes, terminated; the mode is appended to the text in it, as far as it fits. Null is
 * allowed
 * @return the buffer
 */
ZANTLOG_API char *RolloverModeEnumToSettingString(uint32_t mode, char *buffer);

/**
 * Gets the first short name of the product or of the originators: what stands before the first comma, or,
 * where there is no comma, before the first blank.
 * @param cfg    the record
 * @param which  263: the product's names; any other value: the originators'
 * @param out    the name, which the caller frees with zantLogFree(); null when there are no names
 * @return 0; 3 a null argument; 4 the copy could not be allocated
 */
ZANTLOG_API uint32_t LogCfgGetShortNames(zantLogCfg *cfg, uint32_t which, char **out);

/**
 * Sets the event source under which messages are reported to the event log. A name of 80 or more characters
 * is cut to 79.
 * @return 0; 3 null record, null or empty text
 */
ZANTLOG_API uint32_t zantLogCfgSetNtEventSource(zantLogCfg *cfg, const char *text);

/**
 * Gets a copy of the event source's name; the caller frees it with zantLogFree().
 * @return 0; 3 a null argument; 4 the copy could not be allocated
 */
ZANTLOG_API uint32_t zantLogCfgGetNtEventSource(zantLogCfg *cfg, char **out);

/**
 * Sets the category of events. A category is brought back to 0 only by removing its key
 * (zantLogCfg::removeMask) or with a fresh record.
 * @return 0; 3 null record or category 0
 */
ZANTLOG_API uint32_t zantLogCfgSetNtEventCategory(zantLogCfg *cfg, uint16_t category);

/** Gets the category of events. @return 0; 3 a null argument */
ZANTLOG_API uint32_t zantLogCfgGetNtEventCategory(zantLogCfg *cfg, uint16_t *category);

/**
 * Sets the security descriptor that new log files and directories get, as SDDL text. It is not checked here.
 * @return 0; 3 a null argument, an empty text is accepted; 4 the copy could not be allocated: the field is
 * null then
 */
ZANTLOG_API uint32_t zantLogCfgSetLogFileSDDL(zantLogCfg *cfg, const char *text);

/**
 * Gets a copy of the security descriptor text, which the caller frees with zantLogFree(); null when none is
 * set.
 * @return 0; 3 a null argument; 4 the copy could not be allocated
 */
ZANTLOG_API uint32_t zantLogCfgGetLogFileSDDL(zantLogCfg *cfg, char **out);

/**
 * Frees a security descriptor text, such as zantLogCfg::logFileSDDL, and sets it to null. It may be null
 * already.
 * @return 0; 0xFFFFFFFF for a null pointer to the field
 */
ZANTLOG_API uint32_t FreeFileSecuritySetting(char **sddl);

ZANTLOG_END_DECLS
