// Selection of the log files that are more than are to be kept.
#include <cstring>

#include "base/owned_text.h"
#include "logfile/format/file_name.h"
#include "reader/surplus_files.h"
#include "zantlog/config_store.h"
#include "zantlog/discovery.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

constexpr uint32_t kMostConfigurations = 1024;

struct ConfigurationArray {
    zantLogCfg *records[kMostConfigurations];
};

// Configuration records with the array that holds them, freed at the end of the scope.
class Configurations {
public:
    Configurations() = default;
    ~Configurations() {
        if (array_ != nullptr) {
            (void)FreeConfigArray(array_->records, count_);
        }
    }
    Configurations(const Configurations &) = delete;
    Configurations &operator=(const Configurations &) = delete;

    [[nodiscard]] uint32_t readAll() {
        if (!makeArray()) {
            return ZANTLOG_OUT_OF_MEMORY;
        }
        return zantLogReadAllCfg(nullptr, kMostConfigurations, array_->records, &count_);
    }

    // One record, which `fill` reads.
    template <typename Fill> [[nodiscard]] uint32_t readOne(Fill fill) {
        OwnedBlock<zantLogCfg> record = allocateBlock<zantLogCfg>(1);
        if (record == nullptr || !makeArray()) {
            return ZANTLOG_OUT_OF_MEMORY;
        }
        std::memset(record.get(), 0, sizeof(zantLogCfg));
        array_->records[count_++] = record.release();
        return fill(array_->records[0]);
    }

    [[nodiscard]] uint32_t select(LogFindContext *context) const {
        return GetLogFiles(array_->records, count_, context);
    }
    [[nodiscard]] std::span<zantLogCfg *const> records() const { return {array_->records, count_}; }

private:
    [[nodiscard]] bool makeArray() {
        array_ = allocateBlock<ConfigurationArray>(1);
        return array_ != nullptr;
    }

    OwnedBlock<ConfigurationArray> array_;
    uint32_t count_ = 0;
};

// Ids of product files; 0 stands for any.
struct WantedIds {
    uint32_t productId;
    uint32_t originatorId;
};

bool groupOfProductFile(const void *wanted, const char *name, FileGroup *group) {
    const auto &ids = *static_cast<const WantedIds *>(wanted);
    return parseProductFileIds(name, &group->productId, &group->originatorId) &&
           (ids.productId == 0 || ids.productId == group->productId) &&
           (ids.originatorId == 0 || ids.originatorId == group->originatorId);
}

bool groupOfLogSetFile(const void *wanted, const char *name, FileGroup *group) {
    const auto &cfg = *static_cast<const zantLogCfg *>(wanted);
    LogSetFileName fields;
    *group = {cfg.productId, cfg.originatorId};
    return parseLogSetFileName(name, &fields) && fields.productId == cfg.productId &&
           cfg.logSetName != nullptr && std::strcmp(fields.logSet, cfg.logSetName) == 0;
}

} // namespace

} // namespace zantlog

extern "C" uint32_t zantLogGetManageableLogFiles(uint32_t productId, uint32_t originatorId,
                                                 LogFindContext *context) {
    using namespace zantlog;
    if (context == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *context = {};
    Configurations configurations;
    uint32_t result = productId != 0 && originatorId != 0 ? configurations.readOne([&](zantLogCfg *cfg) {
        return zantLogReadCfg(productId, originatorId, cfg);
    })
                                                          : configurations.readAll();
    if (result == ZANTLOG_OK) {
        result = configurations.select(context);
    }
    if (result != ZANTLOG_OK) {
        return result;
    }
    const WantedIds wanted{productId, originatorId};
    return reduceToSurplus(context, configurations.records(), groupOfProductFile, &wanted);
}

extern "C" uint32_t zantLogGetManageableLogFilesSL(uint32_t productId, const char *logSet,
                                                   LogFindContext *context) {
    using namespace zantlog;
    if (context == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *context = {};
    Configurations configurations;
    uint32_t result =
        configurations.readOne([&](zantLogCfg *cfg) { return zantLogReadlogsetCfg(productId, logSet, cfg); });
    if (result == ZANTLOG_OK) {
        result = configurations.select(context);
    }
    if (result != ZANTLOG_OK) {
        return result;
    }
    return reduceToSurplus(context, configurations.records(), groupOfLogSetFile,
                           configurations.records().front());
}
