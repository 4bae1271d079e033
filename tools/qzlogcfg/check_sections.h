// Problems of single sections: in the lines of a file, in the values of registry keys.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "tools/qzlogcfg/check.h"

namespace zantlog::tools {

// What is wrong with the lines of a file that holds a location, the configuration of products, or both.
std::vector<Problem> problemsOfConfFile(const std::string &path);

// The same of a product's key in the registry.
std::vector<Problem> problemsOfRegistryConfiguration(const std::string &path);

// Of the entries of a location in the registry.
std::vector<Problem> problemsOfRegistryLocation(const std::string &path);

} // namespace zantlog::tools
