// The exported check of a catalog file.
#include "localizer/catalog_file.h"
#include "zantlog/localizer.h"
#include "zantlog/results.h"

using namespace zantlog;
using namespace zantlog::localizer;

namespace {

struct Check {
    zantLogCatalogDefect defect;
    void *context;
    uint32_t count;
};

void countDefect(void *context, uint32_t line, const char *what) {
    auto *const check = static_cast<Check *>(context);
    ++check->count;
    if (check->defect != nullptr) {
        check->defect(check->context, line, what);
    }
}

} // namespace

uint32_t zantLogCheckCatalog(const char *path, zantLogCatalogDefect defect, void *context, uint32_t *count) {
    if (count != nullptr) {
        *count = 0;
    }
    if (path == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    Check check = {.defect = defect, .context = context, .count = 0};
    Catalog catalog;
    const uint32_t result = readCatalog(path, {.visit = countDefect, .context = &check}, &catalog);
    if (result == ZANTLOG_OK && count != nullptr) {
        *count = check.count;
    }
    return result;
}
