// The localisation library of tests/support/test_localizer.c, which processes find while this lives: those
// that start then, for a process looks for the library once.
#pragma once

#include <optional>
#include <string>

namespace zantlog::test {

class OfferedLocalizer {
public:
    OfferedLocalizer();
    ~OfferedLocalizer();
    OfferedLocalizer(const OfferedLocalizer &) = delete;
    OfferedLocalizer &operator=(const OfferedLocalizer &) = delete;

private:
    std::optional<std::string> searchPath_; // as it was before
};

} // namespace zantlog::test
