// A context's handle takes over its parent's writer, and its context record goes into the log file.
#include "base/common_lock.h"
#include "logfile/writer/writer_state.h"

namespace {

// The secure-audit level and the catalog selector are not the writer's to copy.
void copyFromParent(const zantLogHandle &parent, zantLogHandle *context) {
    context->file = parent.file;
    context->originatorId = parent.originatorId;
    context->debugLevel = parent.debugLevel;
    context->diagLevel = parent.diagLevel;
    context->outputFlags = parent.outputFlags;
    context->localizer = parent.localizer;
    context->eventLog = parent.eventLog;
    context->openTime = parent.openTime;
    context->lastReloadTime = parent.lastReloadTime;
    context->reloadInterval = parent.reloadInterval;
    context->secureConfig = parent.secureConfig;
    context->noContext = 1;
    context->sequence = 1;
    context->next = nullptr;
}

} // namespace

extern "C" uint32_t zantLogCreateContextToFile(zantLogHandle *parent, zantLogHandle *context,
                                               zantLogMsgRec *contextRec) {
    if (parent == nullptr || context == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const zantlog::CommonLock lock("zantLogCreateContextToFile()");
    copyFromParent(*parent, context);
    const uint32_t result = zantLogWriteMsgWithRolloverToFile(parent->file, contextRec);
    if (result != ZANTLOG_OK) {
        return result;
    }
    context->noContext = 0;
    return zantLogAddLogToFile(context);
}
