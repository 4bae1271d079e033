// Who may do what with a file.
#pragma once

#include <string>

namespace zantlog::test {

// True when everyone may read the file, or list the folder. Wine's host keeps the right to write from others
// on its own, so reading is what can be told apart.
bool everyoneMayRead(const std::string &path);

} // namespace zantlog::test
