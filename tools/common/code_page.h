// Between UTF-8, in which the tools keep their texts, and the code page of the process, in which the library
// takes and gives paths and names. What the code page does not have becomes "?".
#pragma once

#include <string>

namespace zantlog::tools {

std::string utf8FromCodePage(const std::string &text);
std::string codePageFromUtf8(const std::string &text);

} // namespace zantlog::tools
