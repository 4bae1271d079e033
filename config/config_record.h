// The configuration record: making and copying it.
#pragma once

#include "zantlog/config.h"
#include "zantlog/message.h"

#include <memory>

namespace zantlog {

// Name of the section that holds a product's default settings, and of the default log set.
inline constexpr char kDefaultName[] = "Default";

// Built-in defaults. A log set's name, which may be null, also becomes its file name. Whatever the record
// holds is overwritten, not freed. Result codes: 0; 3 null record; 4 out of memory, nothing is left to free
// then.
[[nodiscard]] uint32_t initialiseConfig(uint32_t productId, uint32_t originatorId, const char *logSet,
                                        zantLogCfg *cfg);

// What an originator or a log set inherits from the "Default" one when all records of a product are read.
// Result codes: 0; 4 out of memory, nothing is left to free then.
[[nodiscard]] uint32_t copyConfig(zantLogCfg *destination, const zantLogCfg *source);

// Frees what a record holds and the record itself.
struct ConfigDeleter {
    void operator()(zantLogCfg *cfg) const {
        (void)zantLogFreeCfg(cfg);
        zantLogFree(cfg);
    }
};

using OwnedConfig = std::unique_ptr<zantLogCfg, ConfigDeleter>;

} // namespace zantlog
