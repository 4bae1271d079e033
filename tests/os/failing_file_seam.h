// The part of the operating-system seam that the file layer uses, in memory, linked in place of the real one:
// one file that is open at most once, every call written down, and failures where a test wants them.
#pragma once

#include "logfile/os/os_error.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zantlog::test {

struct FileSeam {
    std::string content; // of the file
    std::vector<std::string> calls;

    // What the calls of a kind report; 0 is success.
    os::SystemError createMutexError = os::kErrorNone;
    os::SystemError waitError = os::kErrorNone;
    os::SystemError openError = os::kErrorNone;
    os::SystemError seekError = os::kErrorNone;
    os::SystemError readError = os::kErrorNone;
    os::SystemError sizeError = os::kErrorNone;
    os::SystemError truncateError = os::kErrorNone;

    // What the next writes do: take at most so many bytes, then report the error. Then writes succeed.
    struct Write {
        uint32_t most;
        os::SystemError error;
    };
    std::vector<Write> writes;
};

// The seam of the running test; begin one with `fileSeam() = {}`.
FileSeam &fileSeam();

} // namespace zantlog::test
