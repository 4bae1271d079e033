// The first of the short names of a product or of its originators.
#include "base/bounded_text.h"
#include "config/config_texts.h"
#include "zantlog/config.h"
#include "zantlog/results.h"

#include <cstring>

extern "C" uint32_t LogCfgGetShortNames(zantLogCfg *cfg, uint32_t which, char **out) {
    if (cfg == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *out = nullptr;
    char names[ZANTLOG_TEXT_FIELD];
    zantlog::copyBounded(names, sizeof names,
                         which == ZANTLOG_PRODUCT_NAMES ? cfg->productNames : cfg->originatorNames);
    if (names[0] == '\0') {
        return ZANTLOG_OK;
    }
    char *end = std::strchr(names, ',');
    if (end == nullptr) {
        end = std::strchr(names, ' ');
    }
    if (end != nullptr) {
        *end = '\0';
    }
    return zantlog::handOutText(names, out);
}
