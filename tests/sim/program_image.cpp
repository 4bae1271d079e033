#include "tests/sim/program_image.h"

#include <cstdio>
#include <cstdlib>

#include "tests/sim/process.h"

// Set by the linker script program_image.ld; null where a program is linked without it.
extern "C" {
[[gnu::weak]] extern volatile unsigned char zantlogProgramImageBegin[];
[[gnu::weak]] extern volatile unsigned char zantlogProgramImageEnd[];
}

// The sanitizers' guards between variables are part of the image and are copied like any other byte;
// volatile, so that no call of memcpy() is made of a loop, which the sanitizers would look into.
#define ZANTLOG_COPIES_GUARDS __attribute__((no_sanitize("address", "undefined", "thread")))

namespace zantlog::sim {

namespace {

std::vector<unsigned char> &keptImage() {
    static auto &image = *new std::vector<unsigned char>;
    return image;
}

size_t imageSize() {
    return static_cast<size_t>(zantlogProgramImageEnd - zantlogProgramImageBegin);
}

ZANTLOG_COPIES_GUARDS void copyOut(unsigned char *to, size_t size) {
    for (size_t i = 0; i < size; ++i) {
        to[i] = zantlogProgramImageBegin[i];
    }
}

ZANTLOG_COPIES_GUARDS void copyIn(const unsigned char *from, size_t size) {
    for (size_t i = 0; i < size; ++i) {
        zantlogProgramImageBegin[i] = from[i];
    }
}

} // namespace

void keepProgramImage() {
    keptImage() = programImage();
}

const std::vector<unsigned char> &freshProgramImage() {
    if (keptImage().empty()) {
        std::fputs("a program with several processes links program_image.ld and calls keepProgramImage()\n",
                   stderr);
        std::abort();
    }
    return keptImage();
}

std::vector<unsigned char> programImage() {
    std::vector<unsigned char> image(imageSize());
    copyOut(image.data(), image.size());
    return image;
}

void setProgramImage(const std::vector<unsigned char> &image) {
    copyIn(image.data(), image.size());
}

} // namespace zantlog::sim
