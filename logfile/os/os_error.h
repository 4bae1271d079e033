// Error codes of the operating system, as every call of the seam reports them. They are Windows' own numbers
// in every implementation of the seam.
#pragma once

#include <cstdint>

namespace zantlog::os {

// 0 is success; any other value is the system's error code.
using SystemError = uint32_t;

inline constexpr SystemError kErrorNone = 0;
inline constexpr SystemError kErrorFileNotFound = 2;
inline constexpr SystemError kErrorPathNotFound = 3;
inline constexpr SystemError kErrorAccessDenied = 5;
inline constexpr SystemError kErrorOutOfMemory = 8;
inline constexpr SystemError kErrorNoMoreFiles = 18;
inline constexpr SystemError kErrorSharingViolation = 32;
inline constexpr SystemError kErrorInvalidParameter = 87;
inline constexpr SystemError kErrorDiskFull = 112;
inline constexpr SystemError kErrorModuleNotFound = 126;
inline constexpr SystemError kErrorProcNotFound = 127;
inline constexpr SystemError kErrorAlreadyExists = 183;
inline constexpr SystemError kErrorNameTooLong = 206;
inline constexpr SystemError kErrorMoreData = 234;
inline constexpr SystemError kErrorNoMoreItems = 259;

} // namespace zantlog::os
