// Levels of an open handle that follow the stored configuration.
#include <algorithm>
#include <cstring>

#include "api/shared_field.h"
#include "base/common_lock.h"
#include "logfile/os/os_clock.h"
#include "logfile/writer/writer.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

constexpr int32_t kShortestInterval = 60; // seconds

bool isOlderThan(zantLogHandle *handle, int64_t now, int32_t interval) {
    const auto last = static_cast<uint64_t>(readShared(handle->lastReloadTime));
    const auto age =
        static_cast<int64_t>(static_cast<uint64_t>(now) - last); // a caller's time may be anything
    return age > std::max(interval, kShortestInterval);
}

void adoptLevels(zantLogHandle *handle, const zantLogCfg &cfg) {
    const CommonLock lock("zantDynaLoadConfig()");
    writeShared(handle->debugLevel, static_cast<int32_t>(cfg.debugLevel));
    writeShared(handle->diagLevel, static_cast<int32_t>(cfg.diagLevel));
    writeShared(handle->reloadInterval, static_cast<int64_t>(cfg.dynaReloadInSec));
}

void reload(zantLogHandle *handle) {
    zantLogCfg cfg;
    std::memset(&cfg, 0, sizeof cfg);
    const uint32_t productId = handle->file == nullptr ? 0 : writerProductId(handle->file);
    // A read that fails silences the handle and ends its reloading; kept: an unregistered product stops
    // logging details.
    zantLogReadCfg(productId, handle->originatorId, &cfg);
    adoptLevels(handle, cfg);
    zantLogFreeCfg(&cfg);
}

} // namespace
} // namespace zantlog

using namespace zantlog;

uint32_t zantDynaLoadConfig(zantLogHandle *handle) {
    if (handle == nullptr) {
        return ZANTLOG_OK;
    }
    const auto interval = static_cast<int32_t>(readShared(handle->reloadInterval));
    if (interval == 0) {
        return ZANTLOG_OK;
    }
    const int64_t now = os::nowSeconds();
    if (!isOlderThan(handle, now, interval)) {
        return ZANTLOG_OK;
    }
    // Before the read, so that a failing one is not tried again before the next interval. Two threads that
    // both find a reload due both read; that does no harm.
    writeShared(handle->lastReloadTime, now);
    reload(handle);
    return ZANTLOG_OK;
}
