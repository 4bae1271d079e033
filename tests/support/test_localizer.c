/* A localisation library for tests: zantLogFormatMsg_3.dll. It formats a message as
 *     <flags in hexadecimal>|<locale or ->|<1 with a handle, else 0>|<text or ->
 * The text "fail" makes it fail with 77. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zantlog/handle.h"

#if defined(_WIN32)
#define EXPORTED __declspec(dllexport)
#else
#define EXPORTED /* linked into the test, and found through the simulated system */
#endif

EXPORTED uint32_t LogFormatMessage(zantLogLocalizerList *list, uint32_t reserved1, const char *locale,
                                   uint32_t reserved2, uint32_t flags, uint32_t reserved3, zantLogMsgRec *rec,
                                   zantLogHandle *handle, char **text);

enum { FAILED = 77, LARGEST = 4096 };

EXPORTED uint32_t LogFormatMessage(zantLogLocalizerList *list, uint32_t reserved1, const char *locale,
                                   uint32_t reserved2, uint32_t flags, uint32_t reserved3, zantLogMsgRec *rec,
                                   zantLogHandle *handle, char **text) {
    const char *given = rec->text != NULL ? rec->text : "-";
    if (list == NULL || reserved1 != 0 || reserved2 != 0 || reserved3 != 0 || strcmp(given, "fail") == 0) {
        return FAILED;
    }
    *text = malloc(LARGEST); /* the library's own allocator is the runtime's */
    if (*text == NULL) {
        return FAILED;
    }
    snprintf(*text, LARGEST, "%x|%s|%d|%s", (unsigned)flags, locale != NULL ? locale : "-", handle != NULL,
             given);
    return 0;
}
