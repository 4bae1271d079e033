// qzlogger --check-catalog.
#pragma once

#include <string>
#include <vector>

namespace zantlog::tools {

// Names the malformed lines of catalog files (paths in UTF-8) on standard error. The exit code: 0 when there
// are none.
int checkCatalogs(const std::vector<std::string> &files);

} // namespace zantlog::tools
