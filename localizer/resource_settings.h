// Where a message's catalogs are.
#pragma once

#include "base/owned_text.h"
#include "zantlog/handle.h"

namespace zantlog::localizer {

// Borrowed; null for none.
struct Resource {
    const char *directory;
    const char *name;
};

// Under the common lock. Valid until the next call.
Resource resourceOf(const zantLogLocalizerList *list, const zantLogMsgRec &rec, const zantLogHandle *handle);

// Forgets what was read of configurations.
void forgetSettings();

} // namespace zantlog::localizer
