#include "tests/fuzz/fuzz_machine.h"

#include <cstdio>
#include <cstdlib>

#include "tests/sim/sim.h"

// A heap that has not as much as was asked for says so, as Windows' does.
extern "C" const char *__asan_default_options();
extern "C" const char *__asan_default_options() {
    return "allocator_may_return_null=1";
}

namespace zantlog::fuzz {

namespace {

constexpr const char *kFolder = "C:\\fuzz";

[[noreturn]] void fail(const char *what) {
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

// Bytes that cannot be printed, escaped.
std::string shown(const std::string &bytes) {
    std::string text;
    for (const char byte : bytes) {
        if (byte >= ' ' && byte <= '~' && byte != '\\') {
            text += byte;
        } else {
            char escaped[5];
            std::snprintf(escaped, sizeof escaped, "\\x%02X",
                          static_cast<unsigned>(static_cast<unsigned char>(byte)));
            text += escaped;
        }
    }
    return text;
}

} // namespace

struct NothingLeft::Before {
    sim::Census census;
};

std::string path(const std::string &name) {
    return std::string(kFolder) + "\\" + name;
}

NothingLeft::NothingLeft() {
    sim::removeAll(kFolder);
    sim::makeFolders(kFolder);
    before_ = new Before{sim::takeCensus()};
}

NothingLeft::~NothingLeft() {
    const std::string left = sim::leftSince(before_->census);
    delete before_;
    expectEqual(left, "", "nothing is left in use");
}

void expectEqual(const std::string &found, const std::string &expected, const char *what) {
    if (found != expected) {
        std::fprintf(stderr, "found:    \"%s\"\nexpected: \"%s\"\n", shown(found).c_str(),
                     shown(expected).c_str());
        fail(what);
    }
}

void expectEqual(int64_t found, int64_t expected, const char *what) {
    if (found != expected) {
        std::fprintf(stderr, "found:    %lld\nexpected: %lld\n", static_cast<long long>(found),
                     static_cast<long long>(expected));
        fail(what);
    }
}

void expect(bool holds, const char *what) {
    if (!holds) {
        fail(what);
    }
}

} // namespace zantlog::fuzz
