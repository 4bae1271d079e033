// A `.conf` file as docs/conf-format.md describes it, over a string of bytes. It shares nothing with the
// library: every operation decodes the whole file into lines and encodes the lines that result.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zantlog::fuzz {

struct ConfModel {
    std::string bytes; // of the file
    std::string root;
    size_t next = 0;             // line that an enumeration reads next
    bool temporaryStays = false; // the last change has left its copy behind
    std::string temporary = {};  // and its bytes

    void open(const std::string &newRoot);

    std::optional<std::string> find(const std::string &name);
    uint32_t set(const std::string &name, const std::string &value); // value in UTF-8
    uint32_t remove(const std::string &name);
    uint32_t removeRoot(const std::string &name);
    uint32_t enumerate(bool logSets, std::string *name, uint32_t *length);

private:
    void replace(const std::vector<std::string> &lines);
};

// How a value reads as a whole number of 32 bits, and as a text without the blanks at its end.
uint32_t numberOf(const std::string &value);

// Code page 1252 to UTF-8, and back. `Unsure`: characters that are not of the code page.
enum class Conversion { Done, Refused, Unsure };
std::string utf8Of(const std::string &text);
Conversion codePageOf(const std::string &utf8, std::string *text);

} // namespace zantlog::fuzz
