// A section of the property store, open for reading for a scope.
#pragma once

#include "base/owned_text.h"
#include "zantlog/property_store.h"
#include "zantlog/results.h"

#include <utility>

namespace zantlog {

class OpenStore {
public:
    OpenStore(const char *location, const char *section)
        : result_(utiOpenPropertyStore(location, section, &store_, ZANTLOG_STORE_READ)) {}
    ~OpenStore() {
        if (isOpen()) {
            (void)utiClosePropertyStore(&store_);
        }
    }
    OpenStore(const OpenStore &) = delete;
    OpenStore &operator=(const OpenStore &) = delete;

    [[nodiscard]] bool isOpen() const { return result_ == ZANTLOG_STORE_OK; }
    [[nodiscard]] uint32_t result() const { return result_; } // the store's own
    [[nodiscard]] PropertyStore *store() { return &store_; }

    // Null when there is no such text.
    [[nodiscard]] OwnedText text(const char *name) {
        char *value = nullptr;
        const uint32_t result = utiGetPropertyAsStr(&store_, name, &value);
        OwnedText owned(value);
        return result == ZANTLOG_STORE_OK ? std::move(owned) : nullptr;
    }
    [[nodiscard]] bool number(const char *name, uint32_t *value) {
        return utiGetPropertyAsULong(&store_, name, value) == ZANTLOG_STORE_OK;
    }
    [[nodiscard]] bool boolean(const char *name, uint32_t *value) {
        return utiGetPropertyAsBool(&store_, name, value) == ZANTLOG_STORE_OK;
    }

private:
    PropertyStore store_{};
    uint32_t result_;
};

} // namespace zantlog
