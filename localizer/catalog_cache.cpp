#include "localizer/catalog_cache.h"

#include <cstring>
#include <new>

#include "logfile/os/os_clock.h"
#include "logfile/os/os_file.h"
#include "zantlog/results.h"

namespace zantlog::localizer {

namespace {

constexpr uint64_t kStatusMilliseconds = 1000;
// Last-write times are whole seconds here: a file that is younger may be written again within its second.
constexpr int64_t kSettledSeconds = 2;

struct CachedCatalog {
    OwnedText path; // null: free
    Catalog catalog;
    bool present = false;
    bool settled = false;
    int64_t lastWrite = 0;
    uint64_t checkedAt = 0;
    uint64_t usedAt = 0;
};

struct Cache {
    CachedCatalog files[kCachedCatalogs];
    uint64_t uses = 0;
};

// Never destroyed: the process may log until its very end.
Cache &cache() {
    alignas(Cache) static unsigned char storage[sizeof(Cache)];
    static Cache *const made = new (storage) Cache;
    return *made;
}

CachedCatalog *find(const char *path) {
    for (CachedCatalog &file : cache().files) {
        if (file.path && std::strcmp(file.path.get(), path) == 0) {
            return &file;
        }
    }
    return nullptr;
}

// In place of the one that was not used for the longest time.
CachedCatalog *add(const char *path) {
    CachedCatalog *oldest = &cache().files[0];
    for (CachedCatalog &file : cache().files) {
        if (file.usedAt < oldest->usedAt) {
            oldest = &file;
        }
    }
    *oldest = CachedCatalog{};
    oldest->path = copyText(path);
    return oldest->path ? oldest : nullptr;
}

void refresh(CachedCatalog *file) {
    os::FileStatus status = {};
    if (os::fileStatus(file->path.get(), &status) != os::kErrorNone || !status.regular) {
        file->present = false;
        file->settled = false;
        file->catalog = Catalog{};
        return;
    }
    if (file->present && file->settled && file->lastWrite == status.lastWrite) {
        return;
    }
    const int64_t now = os::nowSeconds();
    Catalog fresh;
    // One that is just being replaced is tried again; what was read before serves until then.
    if (readCatalog(file->path.get(), {.visit = nullptr, .context = nullptr}, &fresh) != ZANTLOG_OK) {
        file->settled = false;
        return;
    }
    file->catalog = std::move(fresh);
    file->present = true;
    file->lastWrite = status.lastWrite;
    file->settled = now >= status.lastWrite + kSettledSeconds;
}

} // namespace

const Catalog *catalogAt(const char *path) {
    CachedCatalog *file = find(path);
    const uint64_t now = os::nowMilliseconds();
    const bool known = file != nullptr;
    if (!known) {
        file = add(path);
    }
    if (file == nullptr) {
        return nullptr;
    }
    file->usedAt = ++cache().uses;
    // A clock that was set back makes the difference huge: the file is looked at then too.
    if (!known || now - file->checkedAt >= kStatusMilliseconds) {
        file->checkedAt = now;
        refresh(file);
    }
    return file->present ? &file->catalog : nullptr;
}

void forgetCatalogs() {
    for (CachedCatalog &file : cache().files) {
        file = CachedCatalog{};
    }
}

} // namespace zantlog::localizer
