#include "logfile/writer/writer_state.h"

#include <cstring>

#include "base/owned_text.h"
#include "logfile/os/file_layer.h"
#include "logfile/writer/current_file.h"

namespace zantlog {

zantLogFile *allocateWriterState() {
    auto *state = static_cast<zantLogFile *>(zantLogMalloc(sizeof(zantLogFile)));
    if (state == nullptr) {
        return nullptr;
    }
    std::memset(state, 0, sizeof *state);
    resetOsFile(&state->file);
    return state;
}

uint32_t writerProductId(const zantLogFile *file) {
    return file->productId;
}

void freeWriterState(zantLogFile *state) {
    if (state == nullptr) {
        return;
    }
    closeCurrentFile(state);
    (void)FreeFileSecuritySetting(&state->fileSecurity);
    zantLogFree(state->logSetName);
    zantLogFree(state);
}

} // namespace zantlog
