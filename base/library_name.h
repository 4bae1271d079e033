// Versioned file names of libraries that are loaded by name.
#pragma once

#include "base/owned_text.h"

namespace zantlog {

// "zantLogFormatMsg" becomes "zantLogFormatMsg_3.dll": the file part is cut at its first "_" or "." and the
// major version is put behind it; a directory part is kept. Null for a null name and when memory is short.
[[nodiscard]] OwnedText versionedLibraryName(const char *baseName);

} // namespace zantlog
