// Saving of configuration records.
#include "base/common_lock.h"
#include "config/config_record.h"
#include "config/id_name.h"
#include "config/product_config.h"
#include "config/section_loader.h"
#include "config/section_saver.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

using namespace zantlog;

extern "C" uint32_t zantLogWriteCfg(uint32_t productId, uint32_t originatorId, zantLogCfg *cfg) {
    if (productId == 0 || originatorId == 0 || cfg == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const CommonLock lock("zantLogWriteCfg()");
    const OwnedText path = productPath(GetZantLogCfgLoc(), productId);
    if (path == nullptr) {
        return ZANTLOG_NOT_REGISTERED;
    }
    const IdName id(originatorId);
    return saveSection(path.get(), originatorId == ZANTLOG_DEFAULT_ORIGINATOR ? kDefaultName : id.text, *cfg);
}

extern "C" uint32_t zantLogWritelogSetCfg(uint32_t productId, const char *logSet, zantLogCfg *cfg) {
    if (productId == 0 || logSet == nullptr || cfg == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const CommonLock lock("zantLogWritelogSetCfg()");
    const OwnedText path = productPath(GetZantLogCfgLoc(), productId);
    if (path == nullptr) {
        return ZANTLOG_NOT_REGISTERED;
    }
    if (cfg->changedMask == 0 && cfg->removeMask == 0) {
        return ZANTLOG_NOTHING_TO_SAVE;
    }
    const OwnedText logSets = logSetsPath(path.get());
    return logSets == nullptr ? uint32_t{ZANTLOG_OUT_OF_MEMORY} : saveLogSet(logSets.get(), logSet, *cfg);
}
