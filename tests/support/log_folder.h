// Log files on disk as tests make and look at them.
#pragma once

#include <string>
#include <vector>

namespace zantlog::test {

// Names of the files in a folder, in ascending order.
std::vector<std::string> fileNames(const std::string &folder);

// All bytes of a file; a missing file fails the test and gives an empty text.
std::string fileBytes(const std::string &path);

void writeFileBytes(const std::string &path, const std::string &bytes);

// The lines of a text without their line feeds; what follows the last line feed is a line too, unless it is
// empty.
std::vector<std::string> linesOf(const std::string &text);

// The local date of now plus so many days, as log file names have it: "yymmdd".
std::string dateInNames(int daysFromToday = 0);

// Puts the whole process into another time zone ("CET-1CEST"). To be called before anything asks for a local
// time, from the initialisation of a constant: Wine's runtime mixes the rules of the first zone into those of
// a later one.
bool useTimeZone(const char *zone);

} // namespace zantlog::test
