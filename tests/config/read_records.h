// The records that one reading of a whole location or product gives.
#pragma once

#include "tests/config/test_stores.h"

#include <gtest/gtest.h>

namespace zantlog::test {

constexpr uint32_t kCapacity = 32;

// The records of one reading, freed at the end of the scope.
struct Records {
    zantLogCfg *array[kCapacity] = {};
    uint32_t count = 77;

    Records() = default;
    ~Records() { FreeConfigArray(array, count <= kCapacity ? count : 0); }
    Records(const Records &) = delete;
    Records &operator=(const Records &) = delete;

    uint32_t readAll(const TestStore &location, uint32_t capacity = kCapacity) {
        return zantLogReadAllCfg(location.path().c_str(), capacity, array, &count);
    }
    uint32_t readOne(const TestStore &location, uint32_t productId, uint32_t capacity = kCapacity) {
        return zantLogReadProdIDCfg(location.path().c_str(), productId, capacity, array, &count);
    }

    // "<product>/<originator>" or "<product>:<log set>" of each record.
    [[nodiscard]] std::string names() const {
        std::string all;
        for (uint32_t i = 0; i < count; ++i) {
            all += (all.empty() ? "" : " ") + std::to_string(array[i]->productId);
            all += array[i]->logSetName != nullptr ? std::string(":") + array[i]->logSetName
                                                   : "/" + std::to_string(array[i]->originatorId);
        }
        return all;
    }
    [[nodiscard]] const zantLogCfg &named(const std::string &name) const {
        for (uint32_t i = 0; i < count; ++i) {
            if (name == (array[i]->logSetName != nullptr ? array[i]->logSetName
                                                         : std::to_string(array[i]->originatorId))) {
                return *array[i];
            }
        }
        ADD_FAILURE() << "no record " << name;
        return *array[0];
    }
};

} // namespace zantlog::test
