#include "reader/file_list.h"

#include <cstddef>

#include "zantlog/os_layer.h"

namespace zantlog {

const char *nameOf(const LogFileEntry &entry) {
    return reinterpret_cast<const char *>(&entry) + offsetof(LogFileEntry, name);
}

void freeSelection(LogFindContext *context) {
    LogFileEntry *entry = context->head;
    context->head = nullptr;
    context->current = nullptr;
    while (entry != nullptr) {
        LogFileEntry *next = entry->next;
        (void)zantLogOs_close(&entry->file);
        zantLogFree(entry);
        entry = next;
    }
}

} // namespace zantlog
