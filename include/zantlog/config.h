/** @file
 * The configuration record of a product and originator or of a log set, and its accessors.
 */
#pragma once

#include "zantlog/export.h"

ZANTLOG_BEGIN_DECLS

/** Ways of rolling over; a bit set. */
enum {
    ZANTLOG_ROLLOVER_NONE = 0,
    ZANTLOG_ROLLOVER_FILE_SIZE = 1,
    ZANTLOG_ROLLOVER_LOCAL_TIME = 2,
    ZANTLOG_ROLLOVER_PERIODIC = 4
};

enum {
    ZANTLOG_DEFAULT_ORIGINATOR = 112, /**< its section is named "Default" */
    ZANTLOG_TEXT_FIELD = 1025,        /**< bytes of a fixed text, with its terminator */
    ZANTLOG_EVENT_SOURCE_NAME = 80    /**< bytes of an event source's name, with its terminator */
};

/** Event log source under which messages are reported. */
typedef struct zantLogEventSource {
    char name[ZANTLOG_EVENT_SOURCE_NAME];
    uint16_t category;
} zantLogEventSource;

/** Settings of one product and originator, or of one log set. */
typedef struct zantLogCfg {
    uint32_t productId;
    uint32_t originatorId;
    uint32_t debugLevel;        /**< 0 to 6 */
    uint32_t diagLevel;         /**< 0 to 6 */
    uint32_t secureAuditLevel;
    uint32_t outputFlags;
    char logDirectory[ZANTLOG_TEXT_FIELD];
    char *logFileSDDL;
    uint32_t maxLogFileSizeKB;
    uint32_t rolloverMode;
    int64_t rolloverPeriod;     /**< seconds */
    int64_t rolloverTime;       /**< seconds after local midnight */
    uint32_t numberOfLogFiles;
    uint32_t logRecycle;
    zantLogEventSource eventSource;
    char productNames[ZANTLOG_TEXT_FIELD];
    char originatorNames[ZANTLOG_TEXT_FIELD];
    char *l10nLib;
    char *l10nResource;
    char *l10nResourceDir;
    uint32_t changedMask;
    uint32_t removeMask;
    int32_t dynaReloadInSec;    /**< seconds; 0: never */
    char *logSetName;
    uint32_t isLogSet;
    char *logSetFileName;
    uint32_t appMsgLogging;
    char *oidAppMsgLogging;
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

ZANTLOG_API uint32_t zantLogCfgSetRolloverMode(zantLogCfg *cfg, uint32_t mode);
ZANTLOG_API uint32_t zantLogCfgGetRolloverMode(zantLogCfg *cfg, uint32_t *mode);
ZANTLOG_API uint32_t zantLogCfgSetMaxFileSize(zantLogCfg *cfg, uint32_t kb);
ZANTLOG_API uint32_t zantLogCfgGetMaxFileSize(zantLogCfg *cfg, uint32_t *kb);
ZANTLOG_API uint32_t zantLogCfgSetRolloverPeriod(zantLogCfg *cfg, int64_t seconds);
ZANTLOG_API uint32_t zantLogCfgGetRolloverPeriod(zantLogCfg *cfg, int64_t *seconds);
ZANTLOG_API uint32_t zantLogCfgSetRolloverTime(zantLogCfg *cfg, int64_t seconds);
ZANTLOG_API uint32_t zantLogCfgGetRolloverTime(zantLogCfg *cfg, int64_t *seconds);
ZANTLOG_API uint32_t zantLogCfgSetNumberOfLogFiles(zantLogCfg *cfg, uint32_t count);
ZANTLOG_API uint32_t zantLogCfgGetNumberOfLogFiles(zantLogCfg *cfg, uint32_t *count);
ZANTLOG_API uint32_t zantLogCfgSetDebugLevel(zantLogCfg *cfg, uint32_t level);
ZANTLOG_API uint32_t zantLogCfgGetDebugLevel(zantLogCfg *cfg, uint32_t *level);
ZANTLOG_API uint32_t zantLogCfgSetDiagLevel(zantLogCfg *cfg, uint32_t level);
ZANTLOG_API uint32_t zantLogCfgGetDiagLevel(zantLogCfg *cfg, uint32_t *level);
ZANTLOG_API uint32_t zantLogCfgSetDynaSetting(zantLogCfg *cfg, int32_t seconds);
ZANTLOG_API uint32_t zantLogCfgGetDynaSetting(zantLogCfg *cfg, int32_t *seconds);
ZANTLOG_API uint32_t zantLogCfgGetFlags(zantLogCfg *cfg, uint32_t *flags);
ZANTLOG_API uint32_t zantLogCfgSetFlags(zantLogCfg *cfg, uint32_t flags);
ZANTLOG_API uint32_t zantLogCfgEnableLogRecycling(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgDisableLogRecycling(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgEnableAppMsgLogging(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgDisableAppMsgLogging(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgEnableLogToStdout(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgDisableLogToStdout(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgEnableLogToStderr(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgDisableLogToStderr(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgEnableLogToOslog(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgDisableLogToOslog(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgEnableLogToOslogX(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgDisableLogToOslogX(zantLogCfg *cfg);
ZANTLOG_API uint32_t zantLogCfgSetL10nLib(zantLogCfg *cfg, const char *text);
ZANTLOG_API uint32_t zantLogCfgSetL10nResource(zantLogCfg *cfg, const char *text);
ZANTLOG_API uint32_t zantLogCfgSetL10nResourceDir(zantLogCfg *cfg, const char *text);
ZANTLOG_API uint32_t zantLogCfgSetLogsetFilename(zantLogCfg *cfg, const char *text);
ZANTLOG_API uint32_t zantLogCfgSetLogsetOIDappMsgLogging(zantLogCfg *cfg, const char *text);
ZANTLOG_API uint32_t zantLogCfgSetLogsetOIDDebugLogging(zantLogCfg *cfg, const char *text);
ZANTLOG_API uint32_t zantLogCfgSetLogsetOIDDiagLogging(zantLogCfg *cfg, const char *text);
ZANTLOG_API uint32_t zantLogCfgGetL10nLib(zantLogCfg *cfg, char **out);
ZANTLOG_API uint32_t zantLogCfgGetL10nResource(zantLogCfg *cfg, char **out);
ZANTLOG_API uint32_t zantLogCfgGetL10nResourceDir(zantLogCfg *cfg, char **out);
ZANTLOG_API uint32_t zantLogCfgGetLogsetFilename(zantLogCfg *cfg, char **out);
ZANTLOG_API uint32_t zantLogCfgGetLogsetOIDOIDappMsgLogging(zantLogCfg *cfg, char **out);
ZANTLOG_API uint32_t zantLogCfgGetLogsetOIDDebugLogging(zantLogCfg *cfg, char **out);
ZANTLOG_API uint32_t zantLogCfgGetLogsetOIDDiagLogging(zantLogCfg *cfg, char **out);
ZANTLOG_API uint32_t zantLogCfgSetDirectory(zantLogCfg *cfg, const char *directory, char *position);
ZANTLOG_API uint32_t zantLogCfgGetDirectory(zantLogCfg *cfg, char **out);
ZANTLOG_API uint32_t zantLogFreeCfg(zantLogCfg *cfg);
ZANTLOG_API uint32_t SettingStringToRolloverModeEnum(const char *text);
ZANTLOG_API char *RolloverModeEnumToSettingString(uint32_t mode, char *buffer);
ZANTLOG_API uint32_t LogCfgGetShortNames(zantLogCfg *cfg, uint32_t which, char **out);

ZANTLOG_API uint32_t zantLogCfgSetNtEventSource(zantLogCfg *cfg, const char *text);
ZANTLOG_API uint32_t zantLogCfgGetNtEventSource(zantLogCfg *cfg, char **out);
ZANTLOG_API uint32_t zantLogCfgSetNtEventCategory(zantLogCfg *cfg, uint16_t category);
ZANTLOG_API uint32_t zantLogCfgGetNtEventCategory(zantLogCfg *cfg, uint16_t *category);
ZANTLOG_API uint32_t zantLogCfgSetLogFileSDDL(zantLogCfg *cfg, const char *text);
ZANTLOG_API uint32_t zantLogCfgGetLogFileSDDL(zantLogCfg *cfg, char **out);
ZANTLOG_API uint32_t FreeFileSecuritySetting(char **sddl);

ZANTLOG_END_DECLS
