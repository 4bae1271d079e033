// A floating-point number as "%f" prints it.
#pragma once

#include <cstddef>

namespace zantlog {

// Sign, 309 digits of the largest double, decimal point of any locale, six decimals.
inline constexpr size_t kRealNumberBytes = 336;

// Exact digits, six decimals, the decimal point of the process's locale; not terminated. Returns the length.
[[nodiscard]] size_t formatReal(char (&area)[kRealNumberBytes], double value);

} // namespace zantlog
