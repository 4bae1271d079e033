// The part of the operating-system seam that the store uses, in memory, linked in place of the real one: it
// counts what is open, and fails where a test tells it to.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zantlog::test {

// Which call of a kind fails: 1 is the next one, 0 none.
struct Failures {
    int open = 0;
    int write = 0;
    int read = 0; // neither a line nor the end of the file
    int close = 0;
    int createDirectory = 0;
    int queryValue = 0;
};

struct SeamWorld {
    std::map<std::string, std::string> files;
    Failures fail;
    std::vector<uint32_t> replaceErrors; // of the next renames; then they succeed

    std::vector<std::string> calls; // renames, deletions and pauses
    int linesRead = 0;
    int openStreams = 0;

    std::map<std::string, std::string> texts; // values of every registry key
    uint32_t deleteTreeError = 0;
    int openKeys = 0;
};

// The world of the running test; begin one with `seam() = {}`.
SeamWorld &seam();

} // namespace zantlog::test
