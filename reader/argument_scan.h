// The typed arguments in a record line, one after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zantlog {

// Lists within lists that a catalog object can hold; more are no record.
inline constexpr int kDeepestParsedNesting = 32;

struct ScannedArgument {
    int32_t kind;   // ZANTLIS_...
    uint16_t width; // of integers and error codes, in bits
    uint64_t word;  // number, character or address
    double real;    // of a double
    std::string_view
        text; // of a text, as it stands in the line; of a nested list all of it, with its parentheses
};

enum class Scan { argument, end, malformed };

// Takes the beginning of a list: "(", the count, "|". What is left begins with its first argument.
[[nodiscard]] bool openArgumentList(std::string_view *rest);

// Takes the next argument of an open list, or the ")" at its end. `depth` is the list's own: 0 for a
// record's.
[[nodiscard]] Scan scanArgument(std::string_view *rest, int depth, ScannedArgument *argument);

} // namespace zantlog
