// The hash of the library's tables.
#include "reader/text_hash.h"
#include "zantlog/query.h"

namespace zantlog {

uint32_t hashOn(uint32_t hash, const char *text) {
    for (; *text != '\0'; ++text) {
        // Kept: bytes above 127 count as negative.
        hash = hash * 31 + static_cast<uint32_t>(static_cast<int8_t>(*text));
    }
    return hash;
}

} // namespace zantlog

uint32_t HashString(const char *text, uint32_t modulus) {
    if (text == nullptr || modulus == 0) {
        return 0;
    }
    return zantlog::hashOn(0, text) % modulus;
}
