// The lines of a .conf file as the library reads them, with their numbers.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zantlog::tools {

struct ConfLine {
    size_t number = 0;    // from 1
    std::string key;      // ROOT.NAME; empty for a comment, an empty line and one without "="
    std::string value;    // without the blanks at its end; numbers as they are written
    bool comment = false; // or empty
    bool hasValue = false;
    bool tooLong = false; // more bytes than a line holds: the library takes it for several
    bool cut = false;     // something of the value is not read: behind a second "=", or beyond its 399 bytes
};

struct ConfFile {
    std::vector<ConfLine> lines;
    bool endsInLineEnd = true;
    bool endsInControlZ = false; // what follows the byte 1A is not read
};

// False when the file (path in UTF-8) cannot be read.
bool readConfFile(const std::string &path, ConfFile *file);
ConfFile parseConfText(std::string_view text);

// The values that count: of several lines with a key the first that has a value.
std::map<std::string, std::string> valuesOf(const ConfFile &file);

// "Default", "3" or "LOGSET.night" of a key, and what follows its dot; empty where there is none.
std::string rootOfKey(const std::string &key);
std::string nameOfKey(const std::string &key);

} // namespace zantlog::tools
