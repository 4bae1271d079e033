// What fuzz targets have in common.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace zantlog::fuzz {

// A path below a folder that is empty at the beginning of a run of the target.
std::string path(const std::string &name);

// What was in use when the scope began is all that may be in use when it ends.
class NothingLeft {
public:
    NothingLeft();
    ~NothingLeft();
    NothingLeft(const NothingLeft &) = delete;
    NothingLeft &operator=(const NothingLeft &) = delete;

private:
    struct Before;
    Before *before_;
};

// Prints both and ends the program when they differ.
void expectEqual(const std::string &found, const std::string &expected, const char *what);
void expectEqual(int64_t found, int64_t expected, const char *what);
void expect(bool holds, const char *what);

} // namespace zantlog::fuzz
