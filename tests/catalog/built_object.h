// Objects built through the exported functions, freed at the end of the scope.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zantlog/catalog.h"

namespace zantlog::test {

struct BuiltObject {
    BuiltObject() = default;
    BuiltObject(BuiltObject &&other) noexcept : lis(other.lis), result(other.result) {
        other.lis = zantLis{};
    }
    BuiltObject(const BuiltObject &) = delete;
    BuiltObject &operator=(const BuiltObject &) = delete;
    ~BuiltObject() { zantLisFree(&lis); }

    // Argument `index`, counted from 0; an argument of kind -1 when there is none.
    [[nodiscard]] const zantLisArg &argument(size_t index) const;
    [[nodiscard]] size_t chainLength() const;
    // The texts of all arguments, one after the other; "?" for one that is no text.
    [[nodiscard]] std::string texts() const;

    zantLis lis{};
    int32_t result = 0;
};

// With selector 0 and message id 4711.
BuiltObject message(const char *format, ...);
BuiltObject plainText(const char *format, ...);

// The UTF-16 units of a text.
std::vector<uint16_t> units(const wchar_t *text);
using Units = std::vector<uint16_t>;

} // namespace zantlog::test
