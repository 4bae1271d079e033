// The file that a writer state has open: finding its name, opening it, giving it its header.
#pragma once

#include "logfile/writer/writer_state.h"

namespace zantlog {

enum class FileOrigin {
    Existing, // the name was there already
    Created,  // nobody had a file of that name
};

// Makes a file the state's current one. `existingName` names a file in the state's directory to go on with;
// null stands for the next new name. Whatever the state had open is closed first; after a failure nothing is
// open, and the state keeps the version and the times of its last file. Result codes: 0; 1 directory, host
// name, header or mutex; 3 directory path too long; 32, 51 the file cannot be opened.
[[nodiscard]] uint32_t openCurrentFile(zantLogFile *state, const char *existingName, FileOrigin *origin);

// Nothing happens when no file is open.
void closeCurrentFile(zantLogFile *state);

} // namespace zantlog
