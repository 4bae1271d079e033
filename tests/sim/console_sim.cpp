// Standard streams of the process.
#include "logfile/os/os_console.h"

#include <cstdio>
#include <string>

#include "tests/sim/console.h"
#include "tests/sim/faults.h"
#include "tests/sim/files.h"
#include "tests/sim/scheduler.h"

namespace zantlog::os {

namespace {

// As the runtime's text mode writes it.
std::string withLineEnds(const std::string &text) {
    std::string bytes;
    for (const char character : text) {
        bytes += character == '\n' ? "\r" : "";
        bytes += character;
    }
    return bytes;
}

void print(sim::StandardStream stream, std::FILE *real, const std::string &file, const std::string &text) {
    sim::enter(sim::Call::Print);
    if (!file.empty()) {
        sim::appendToFile(file, withLineEnds(text));
        return;
    }
    sim::addPrinted(stream, text);
    // GoogleTest captures the streams of the test program itself.
    std::fputs(text.c_str(), real);
}

} // namespace

void printToStdout(const char *text, const char *suffix) {
    print(sim::StandardStream::Output, stdout, sim::currentProcess().outputFile, std::string(text) + suffix);
}

void printToStderr(const char *text, const char *suffix) {
    print(sim::StandardStream::Error, stderr, sim::currentProcess().errorFile, std::string(text) + suffix);
}

} // namespace zantlog::os
