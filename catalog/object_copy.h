// Copies of whole objects: an object that is an argument of another.
#pragma once

#include "catalog/arena.h"
#include "zantlog/catalog.h"

namespace zantlog::catalog {

// An object may stand in an object, and so on, this many times.
inline constexpr int kMaximumNesting = 32;

// Lays a copy down in the arena, which is measuring or filled. `copy` itself is the caller's. Result of the
// catalog library.
[[nodiscard]] int32_t copyObject(Arena *arena, const zantLis *source, zantLis *copy, int depth = 1);

// A copy of `length` characters, terminated; null while measuring.
template <typename Character> Character *storeText(Arena *arena, const Character *text, size_t length) {
    auto *at = static_cast<Character *>(arena->take((length + 1) * sizeof(Character), alignof(Character)));
    if (at != nullptr) {
        for (size_t index = 0; index < length; ++index) {
            at[index] = text[index];
        }
        at[length] = 0;
    }
    return at;
}

size_t textLength(const char *text);
size_t textLength(const wchar_t *text);

} // namespace zantlog::catalog
