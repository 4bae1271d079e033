// Creation of a directory with all its parents.
#pragma once

#include <cstdint>

namespace zantlog {

// Creates the directories that the path names from its fifth character on, so that a drive prefix such as
// "C:\" is never created; existing ones are left alone. The security descriptor text may be null. Result
// codes: 0; 3 path longer than 1024 characters; 1 any other failure.
[[nodiscard]] uint32_t createDirectoryTree(const char *path, const char *sddl);

} // namespace zantlog
