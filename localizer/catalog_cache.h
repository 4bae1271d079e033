// Catalog files that have been read. To be used under the common lock.
#pragma once

#include "localizer/catalog_file.h"

namespace zantlog::localizer {

// The file's content as it is now, or as it was when it was looked at within the last second; null when there
// is no such file. Valid until the next call with another path has been made kCachedCatalogs times.
const Catalog *catalogAt(const char *path);

inline constexpr size_t kCachedCatalogs = 32;

// Forgets all of them.
void forgetCatalogs();

} // namespace zantlog::localizer
