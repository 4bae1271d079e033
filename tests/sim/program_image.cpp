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
// volatile, so that no call of memcpy() is made of a loop, which the sanitizers would look into. By words,
// since every change of process copies all of it.
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

ZANTLOG_COPIES_GUARDS void copyBytes(volatile unsigned char *to, const volatile unsigned char *from,
                                     size_t size) {
    using Word [[gnu::may_alias, gnu::aligned(1)]] = uint64_t;
    size_t i = 0;
    for (; i + sizeof(Word) <= size; i += sizeof(Word)) {
        *reinterpret_cast<volatile Word *>(to + i) = *reinterpret_cast<const volatile Word *>(from + i);
    }
    for (; i < size; ++i) {
        to[i] = from[i];
    }
}

} // namespace

void keepProgramImage() {
    takeProgramImage(&keptImage());
}

const std::vector<unsigned char> &freshProgramImage() {
    if (keptImage().empty()) {
        std::fputs("a program with several processes links program_image.ld and calls keepProgramImage()\n",
                   stderr);
        std::abort();
    }
    return keptImage();
}

void takeProgramImage(std::vector<unsigned char> *image) {
    image->resize(imageSize());
    copyBytes(image->data(), zantlogProgramImageBegin, image->size());
}

void setProgramImage(const std::vector<unsigned char> &image) {
    copyBytes(zantlogProgramImageBegin, image.data(), image.size());
}

} // namespace zantlog::sim
