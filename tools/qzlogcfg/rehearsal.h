// Changes of a .conf file, made in a copy first.
#pragma once

#include <string>
#include <vector>

#include "tools/qzlogcfg/changes.h"

namespace zantlog::tools {

// Makes the changes in a copy of the file and compares: exactly they must have happened. An error says what
// would have gone wrong; the file itself has not been touched then.
void rehearse(const std::string &configuration, const std::vector<Change> &changes);

} // namespace zantlog::tools
