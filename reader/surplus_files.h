// The files of a selection in excess of the configured number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "zantlog/config.h"
#include "zantlog/discovery_types.h"

namespace zantlog {

// Which file of a selection belongs to which set of files that is kept to a number.
struct FileGroup {
    uint32_t productId;
    uint32_t originatorId; // 0: a log set

    bool operator==(const FileGroup &) const = default;
};

// Whether a file of this name counts, and to which group.
using GroupOf = bool (*)(const void *wanted, const char *name, FileGroup *group);

// Leaves in the context, of a selection in ascending creation time, the surplus files alone and frees the
// other entries. The surplus of a group are its oldest files; the groups come in the order of their first
// files. Each file goes to the front of the result, so that the last one found comes first. Result codes: 0,
// also when there is no surplus; 4 out of memory, the context is empty then.
[[nodiscard]] uint32_t reduceToSurplus(LogFindContext *context, std::span<zantLogCfg *const> configurations,
                                       GroupOf groupOf, const void *wanted);

} // namespace zantlog
