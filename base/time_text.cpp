// Splitting of texts such as "10:30:15" into their numbers.
#include "base/time_text.h"

#include "base/owned_text.h"
#include "base/scan.h"
#include "zantlog/log_file.h"

#include <cstring>

namespace zantlog {

void splitNumbers(char *text, const char *delimiters, std::span<uint32_t> numbers) {
    for (uint32_t &number : numbers) {
        text += std::strspn(text, delimiters);
        char *end = text + std::strcspn(text, delimiters);
        const bool last = *end == '\0';
        *end = '\0';
        number = leadingUnsigned32(text);
        text = last ? end : end + 1;
    }
}

} // namespace zantlog

using namespace zantlog;

int32_t zantLogStrTimeToT(const char *text, const char *delimiters, uint32_t *first, uint32_t *second,
                          uint32_t *third) {
    if (text == nullptr || delimiters == nullptr || first == nullptr || second == nullptr ||
        third == nullptr) {
        return 0;
    }
    const OwnedText copy = copyText(text);
    if (copy == nullptr) {
        return 0;
    }
    uint32_t numbers[3];
    splitNumbers(copy.get(), delimiters, numbers);
    *first = numbers[0];
    *second = numbers[1];
    *third = numbers[2];
    return 1;
}
