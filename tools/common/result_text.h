// The library's result codes in words, for people.
#pragma once

#include <cstdint>
#include <string>

namespace zantlog::tools {

// What the result means and what can be done about it: "the disk is full (result 54); make room and try
// again".
std::string resultText(uint32_t result);

} // namespace zantlog::tools
