// Log files on disk as tests make and look at them.
#pragma once

#include <string>
#include <vector>

#include "tests/support/files.h"
#include "tests/support/machine.h"

namespace zantlog::test {

// The lines of a text without their line feeds; what follows the last line feed is a line too, unless it is
// empty.
std::vector<std::string> linesOf(const std::string &text);

// The local date of now plus so many days, as log file names have it: "yymmdd".
std::string dateInNames(int daysFromToday = 0);

} // namespace zantlog::test
