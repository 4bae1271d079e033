/** @file
 * The reference localisation library, zantLogFormatMsg_3.dll: message texts out of catalog files, one per
 * language. docs/localizer.md describes the files.
 *
 * zantlog_3.dll loads the library by name when a sink first needs it, and calls LogFormatMessage() alone; any
 * library that exports it can stand in for the reference implementation that comes with zantlog. Both
 * functions are safe to call from several threads. Neither throws.
 */
#pragma once

#include "zantlog/handle.h"

ZANTLOG_BEGIN_DECLS

/** Marks a function of zantLogFormatMsg_3.dll. Programs look them up with SharedLibResolveFunc(). */
#define ZANTLOG_LOCALIZER_API

/** Forms of a message. The library asks for 0x700 on the console and for 0x600 in the event log. */
enum {
    ZANTLOG_FORMAT_HEADING = 0x100, /**< time, type, severity or level, originator and who before the text */
    ZANTLOG_FORMAT_TEXT = 0x600     /**< the text; it is always there, whatever these bits are */
};

/**
 * Formats a message for people to read, in the process's code page; what that does not have becomes "?". The
 * text is that of the message's id in the first catalog file that has it: of the locale, of its language, of
 * the folder "default". Without one it is the record's own text, or else what strncatlis() makes of the
 * arguments. A text longer than 1 MiB is cut.
 *
 * The files are those of the configuration of the record's product and originator ("L10nResourceDir" and
 * "L10nResource"); of a secure handle, those of the configuration that it was opened with. A configuration is
 * read again after ten seconds, a file when its last-write time has changed, which is looked at once a second
 * at most.
 *
 * @param list       the localizer list of the handle; may be null. A program may point its first word at a
 * resource directory of its own and the second one at the name of a resource: null-terminated texts that
 * stay the program's and outlive the handle. A word that is null leaves the configuration's.
 * @param reserved1  0
 * @param locale     "de_DE", "de_DE.UTF-8", "de-DE", "German_Germany.1252", or a list of categories as
 * setlocale() gives it; null is the process's current locale. "", "C" and names that are not known stand for
 * no locale.
 * @param reserved2  0
 * @param flags      ZANTLOG_FORMAT_HEADING, or not
 * @param reserved3  0
 * @param rec        the message, unchanged
 * @param handle     the handle, or null
 * @param text       receives the text, to be freed with zantLogFree(); untouched after a failure
 * @return 0; 3 null record or text; 4 out of memory
 *
 * Takes the common lock under "LogFormatMessage()", and as zantLogReadCfg() does inside it.
 */
ZANTLOG_LOCALIZER_API uint32_t LogFormatMessage(zantLogLocalizerList *list, uint32_t reserved1,
                                                const char *locale, uint32_t reserved2, uint32_t flags,
                                                uint32_t reserved3, zantLogMsgRec *rec, zantLogHandle *handle,
                                                char **text);

/**
 * Is told of a defect of a catalog file.
 *
 * @param context  as given to zantLogCheckCatalog()
 * @param line     number of the line, from 1
 * @param what     what is wrong with it, an English sentence without a full stop; borrowed
 */
typedef void (*zantLogCatalogDefect)(void *context, uint32_t line, const char *what);

/**
 * Reads a catalog file and names its malformed lines, which LogFormatMessage() passes over.
 *
 * @param path     the file
 * @param defect   called for each malformed line; lines whose key is taken by another line come last. Null
 * only counts.
 * @param context  handed on
 * @param count    null, or receives the number of malformed lines; 0 after a failure
 * @return 0, also for a file with malformed lines; 1 the file cannot be read, or is longer than 8 MiB;
 * 3 null path; 4 out of memory
 *
 * Takes no lock.
 */
ZANTLOG_LOCALIZER_API uint32_t zantLogCheckCatalog(const char *path, zantLogCatalogDefect defect,
                                                   void *context, uint32_t *count);

ZANTLOG_END_DECLS
