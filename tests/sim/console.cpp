#include "tests/sim/console.h"

#include <mutex>

namespace zantlog::sim {

namespace {

struct Console {
    std::mutex lock;
    std::string output;
    std::string errors;
};

Console &console() {
    static auto &instance = *new Console;
    return instance;
}

using Guard = std::lock_guard<std::mutex>;

} // namespace

std::string printedToStdout() {
    const Guard guard(console().lock);
    return console().output;
}

std::string printedToStderr() {
    const Guard guard(console().lock);
    return console().errors;
}

void clearConsole() {
    const Guard guard(console().lock);
    console().output.clear();
    console().errors.clear();
}

void addPrinted(StandardStream stream, const std::string &text) {
    const Guard guard(console().lock);
    (stream == StandardStream::Output ? console().output : console().errors) += text;
}

} // namespace zantlog::sim
