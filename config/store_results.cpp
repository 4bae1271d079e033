// The property store's results as the library's own.
#include "zantlog/config_store.h"
#include "zantlog/results.h"

#include <iterator>

extern "C" uint32_t utipsres2zantlogres(uint32_t storeResult) {
    // By store result, from 0 on.
    static constexpr uint32_t kResults[] = {
        ZANTLOG_OK,
        ZANTLOG_INVALID_ARGUMENT,
        ZANTLOG_NOT_REGISTERED,
        ZANTLOG_NOT_REGISTERED,
        ZANTLOG_NOT_REGISTERED,
        ZANTLOG_STORE_NOT_CREATED,
        ZANTLOG_FAILURE,
        ZANTLOG_NO_MORE,
        ZANTLOG_STORE_ROOT_NOT_FOUND,
        ZANTLOG_NOTHING_TO_SAVE,
        ZANTLOG_STORE_BUSY,
    };
    return storeResult < std::size(kResults) ? kResults[storeResult] : uint32_t{ZANTLOG_FAILURE};
}
