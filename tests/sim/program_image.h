// The bytes of the program's variables, which change with the process that has its turn.
#pragma once

#include <vector>

namespace zantlog::sim {

// The bytes that a process starts with.
const std::vector<unsigned char> &freshProgramImage();

void takeProgramImage(std::vector<unsigned char> *image);
void setProgramImage(const std::vector<unsigned char> &image);

} // namespace zantlog::sim
