#include "tools/qzlogview/progress.h"

#include <cstdio>

#include "tools/common/terminal.h"

namespace zantlog::view {

namespace {

constexpr auto kSilence = std::chrono::seconds(1); // work that is done by then needs none
constexpr auto kPace = std::chrono::milliseconds(200);
constexpr uint32_t kCallsBetweenLooks = 64;

} // namespace

Progress::Progress(uint64_t totalBytes)
    : total_(totalBytes), next_(std::chrono::steady_clock::now() + kSilence),
      wanted_(tools::standardErrorIsTerminal() && !tools::standardOutputIsTerminal()) {}

Progress::~Progress() {
    if (shown_) {
        std::fputs("\r                              \r", stderr);
    }
}

void Progress::update(uint64_t bytes) {
    if (!wanted_ || ++calls_ % kCallsBetweenLooks != 0) {
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    if (now < next_) {
        return;
    }
    next_ = now + kPace;
    shown_ = true;
    constexpr uint64_t kMegabyte = 1 << 20;
    std::fprintf(stderr, "\r%llu of %llu MB read", static_cast<unsigned long long>(bytes / kMegabyte),
                 static_cast<unsigned long long>(total_ / kMegabyte));
}

} // namespace zantlog::view
