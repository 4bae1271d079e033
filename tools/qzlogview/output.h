// Standard output of the viewer.
#pragma once

#include <string>

namespace zantlog::view {

// Gathers text and writes it in large pieces, byte for byte.
class Output {
public:
    Output();
    ~Output() { (void)flush(); }
    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    // Text is appended here; writeWhenFull() takes it away when there is much.
    std::string &text() { return text_; }
    // False when nobody reads any more, or the disk is full: no more is wanted then.
    [[nodiscard]] bool writeWhenFull();
    [[nodiscard]] bool flush();
    [[nodiscard]] bool failed() const { return failed_; }

private:
    std::string text_;
    bool failed_ = false;
};

} // namespace zantlog::view
