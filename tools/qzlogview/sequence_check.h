// Whether the numbers of a handle's messages are all there.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "tools/qzlogview/record.h"

namespace zantlog::view {

// Follows the numbers in the order in which a process wrote its records. A handle numbers its messages from 1
// on, and several handles of one originator and context in one process cannot be told apart but by that. A
// caller may give a message another number, which takes the place of the handle's own: a gap counts once the
// numbers go on behind it.
class SequenceCheck {
public:
    // What is wrong with the number of this record, when something is.
    std::optional<std::string> add(const Record &record);

private:
    // Product, originator, file originator, process; log set, context token.
    using Writer = std::tuple<uint32_t, uint32_t, uint32_t, uint32_t, std::string, std::string>;

    struct Chain {
        uint32_t expected;
        // Numbers that came in place of expected ones, behind which they may go on.
        uint32_t otherBegin = 0;
        uint32_t otherCount = 0;
        uint32_t inBetween = 0; // records since the last expected number
    };

    std::optional<std::string> follow(std::vector<Chain> *chains, uint32_t number, const Record &record);

    std::map<Writer, std::vector<Chain>> writers_;
};

} // namespace zantlog::view
