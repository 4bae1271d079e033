// Typed arguments as texts.
#pragma once

#include "localizer/conventions.h"
#include "localizer/native_text.h"
#include "localizer/placeholder.h"
#include "zantlog/catalog.h"

namespace zantlog::localizer {

// The locale's own ways.
struct Manner {
    std::string_view decimal;
    std::string_view group;
    std::string_view date;
    std::string_view time;
};

// A placeholder without a format.
inline constexpr Placeholder kPlain = {
    .argument = 0, .letter = 0, .zeros = false, .width = 0, .precision = kNoPrecision};

// Appends the current argument of the iteration; of any kind but a nested object. Parts of a format that do
// not go with the argument are ignored. False for an argument that cannot be read.
[[nodiscard]] bool appendArgument(const zantLisArgIter &iter, int32_t kind, const Placeholder &place,
                                  const Manner &manner, NativeText *out);

// Local date and time by a pattern: %Y %y %m %d %H %I %M %S %p %% as for strftime. False for a time that
// cannot be broken down.
[[nodiscard]] bool appendTime(int64_t seconds, std::string_view pattern, NativeText *out);

} // namespace zantlog::localizer
