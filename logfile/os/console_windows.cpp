// Standard streams of the process.
#include "logfile/os/os_console.h"

#include <cstdio>

namespace zantlog::os {

namespace {

// Under the stream's lock: what the host prints on other threads cannot come between text and suffix.
void print(std::FILE *stream, const char *text, const char *suffix) {
    _lock_file(stream);
    std::fputs(text, stream);
    std::fputs(suffix, stream);
    _unlock_file(stream);
}

} // namespace

void printToStdout(const char *text, const char *suffix) {
    print(stdout, text, suffix);
}

void printToStderr(const char *text, const char *suffix) {
    print(stderr, text, suffix);
}

} // namespace zantlog::os
