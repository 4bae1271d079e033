// The registration of a product: where its configuration is, and its names.
#pragma once

#include "base/owned_text.h"
#include "zantlog/config.h"

namespace zantlog {

// Null when the product is not registered at the location.
[[nodiscard]] OwnedText productPath(const char *location, uint32_t productId);

// Null when the registration has no names.
[[nodiscard]] OwnedText productNames(const char *location, uint32_t productId);

// Copies names, which may be null, into the record as far as they fit.
void storeProductNames(zantLogCfg *cfg, const char *names);

} // namespace zantlog
