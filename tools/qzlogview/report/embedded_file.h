// The parts of the HTML page that are made with the program: cmake/ZantlogEmbed.cmake defines them.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace zantlog::view {

struct EmbeddedFile {
    std::string_view bytes;
    std::array<uint8_t, 32> sha256;
};

extern const EmbeddedFile kPageMarkup;
extern const EmbeddedFile kPageStyle;
extern const EmbeddedFile kPageScript;

} // namespace zantlog::view
