// What the processes print.
#pragma once

#include <string>

namespace zantlog::sim {

// What was printed since the last clearConsole(), by all processes whose streams are not redirected.
std::string printedToStdout();
std::string printedToStderr();
void clearConsole();

// ---- for the implementation of the seam
enum class StandardStream { Output, Error };
void addPrinted(StandardStream stream, const std::string &text);

} // namespace zantlog::sim
