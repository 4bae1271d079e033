// What a command-line tool takes from its surroundings: arguments, standard input, code pages. Texts are
// UTF-8.
#pragma once

#include <string>
#include <vector>

namespace zantlog::tools {

// The arguments without the program's name.
std::vector<std::string> commandLineArguments();

// Standard input gives its bytes as they are from here on.
void makeStandardInputBinary();

// Makes the user's code page the runtime's, so that the library reads native texts as the user means them.
void useCodePageOfUser();

std::wstring wideFromUtf8(const std::string &text);
std::string utf8FromWide(const std::wstring &text);

// Of this process, and of what the library reads in it.
void setEnvironment(const std::string &name, const std::string &value);
// Also with an empty value.
bool hasEnvironment(const std::string &name);

} // namespace zantlog::tools
