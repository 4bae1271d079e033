// A section of the property store, open for writing for a scope.
#pragma once

#include "zantlog/config_store.h"
#include "zantlog/property_store.h"
#include "zantlog/results.h"

namespace zantlog {

class WritableStore {
public:
    WritableStore() = default;
    ~WritableStore() {
        if (open_) {
            (void)utiClosePropertyStore(&store_);
        }
    }
    WritableStore(const WritableStore &) = delete;
    WritableStore &operator=(const WritableStore &) = delete;

    // The section must be there. The store's own result.
    [[nodiscard]] uint32_t openExisting(const char *location, const char *section) {
        const uint32_t result = utiOpenPropertyStore(location, section, &store_, ZANTLOG_STORE_WRITE);
        open_ = result == ZANTLOG_STORE_OK;
        return result;
    }
    // The section is made when it is not there.
    [[nodiscard]] bool openOrCreate(const char *location, const char *section) {
        open_ = CreatePropertyString(location, section, &store_) == ZANTLOG_OK;
        return open_;
    }
    [[nodiscard]] PropertyStore *store() { return &store_; }

private:
    PropertyStore store_{};
    bool open_ = false;
};

} // namespace zantlog
