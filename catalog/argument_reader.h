// The arguments of a message, taken from the caller's argument list one after the other or by position.
#pragma once

#include <cstdarg>
#include <cstdint>

#include "catalog/format_parser.h"

namespace zantlog::catalog {

union ArgumentValue {
    int32_t int32;
    int64_t int64;
    double real;
    const void *pointer;
};

class ArgumentReader {
public:
    // Reads from a copy: the caller's list stays where it is. Arguments with positions are read here and now.
    ArgumentReader(va_list arguments, const FormatSummary &summary);
    ~ArgumentReader() { va_end(list_); }
    ArgumentReader(const ArgumentReader &) = delete;
    ArgumentReader &operator=(const ArgumentReader &) = delete;

    // Position 0 takes the next argument of the list.
    ArgumentValue take(int32_t position, ArgumentClass passed);

private:
    ArgumentValue takeNext(ArgumentClass passed);

    va_list list_;
    ArgumentValue positioned_[kMaximumPosition];
};

} // namespace zantlog::catalog
