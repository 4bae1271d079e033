// The typed arguments of a record.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "zantlog/catalog.h"

namespace zantlog::view {

struct Argument {
    int32_t kind = 0;   // ZANTLIS_...
    std::string text;   // of every kind but nested: as it is shown; UTF-8, or bytes of the writer's code page
    int64_t number = 0; // of signed integers, error codes and times
    uint64_t word = 0;  // of unsigned integers and pointers
    double real = 0;    // of doubles
    std::vector<Argument> nested;
};

std::vector<Argument> argumentsOf(const zantLis &object);

// "character", "signed", "unsigned", "double", "pointer", "wide", "error", "time", "list", "utf8", "native".
std::string kindName(int32_t kind);

} // namespace zantlog::view
