// qzlogcfg check: what is wrong with a configuration.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "tools/qzlogcfg/listing.h"
#include "tools/qzlogcfg/store_location.h"

namespace zantlog::tools {

struct Problem {
    std::string place; // "C:\x\y.conf:12", or a registry path
    std::string what;
};

// The location, its registrations, and the configuration of each product.
std::vector<Problem> findProblems(const std::string &location);

// Prints them; the exit code.
int checkConfiguration(Format format, std::ostream &output);

} // namespace zantlog::tools
