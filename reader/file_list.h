// Lists of selected files, linked by LogFileEntry::next.
#pragma once

#include "base/bounded_text.h"
#include "zantlog/discovery_types.h"

namespace zantlog {

// A directory of a configuration and the longest name of a listing.
inline constexpr size_t kLogPathBytes = sizeof(LogFileEntry::directory) + sizeof(zantLogFindData::name);

// The path of a file: its directory and its name, with nothing between them.
struct LogPath {
    LogPath(const char *directory, const char *name) { BoundedText(text).text(directory).text(name); }

    char text[kLogPathBytes];
};

// Name of an entry, whose own type shows the first characters only.
const char *nameOf(const LogFileEntry &entry);

// Takes all out of a find context and frees it; a file that is still open is closed before.
void freeSelection(LogFindContext *context);

} // namespace zantlog
