// The hash of the library's tables.
#include "zantlog/query.h"

uint32_t HashString(const char *text, uint32_t modulus) {
    if (text == nullptr || modulus == 0) {
        return 0;
    }
    uint32_t hash = 0;
    for (; *text != '\0'; ++text) {
        // Kept: bytes above 127 count as negative.
        hash = hash * 31 + static_cast<uint32_t>(static_cast<int8_t>(*text));
    }
    return hash % modulus;
}
