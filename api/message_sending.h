// What the entry points of the five message families have in common.
#pragma once

#include "base/owned_text.h"
#include "zantlog/logging.h"

namespace zantlog {

// The who of an application message without one.
inline constexpr char kNoWho[] = "";

// Content of a message that was given as a format: a catalog object, or a text, or both.
class MessageContent {
public:
    MessageContent() = default;
    ~MessageContent();
    MessageContent(const MessageContent &) = delete;
    MessageContent &operator=(const MessageContent &) = delete;

    // A catalog object for a message id, a text where there is none or where the call flags ask for one.
    [[nodiscard]] uint32_t build(const zantLogHandle *handle, uint32_t flags, uint32_t msgid, const char *fmt,
                                 va_list args);
    // A catalog object and no text.
    [[nodiscard]] uint32_t buildObject(const zantLogHandle *handle, uint32_t msgid, const char *fmt,
                                       va_list args);
    // A text and no catalog object.
    void buildText(const char *fmt, va_list args);

    [[nodiscard]] const char *text() const { return text_.get(); }
    // An entry point that takes the object over leaves an empty one behind.
    [[nodiscard]] zantLis *lis() { return &lis_; }

private:
    OwnedText text_;
    zantLis lis_{};
};

// A message whose arguments have been checked.
struct OutgoingMessage {
    uint32_t type = ZANTLOG_MSG_DEBUG;
    uint32_t flags = 0;
    uint32_t sequence = 0;     // stamped unless the flags keep the automatic one
    int32_t level = 0;         // or severity
    const char *who = nullptr; // or subject
    uint32_t outcome = 0;
    const char *text = nullptr;
    zantLis *lis = nullptr; // taken over; null: none
};

// Makes a record of the message and dispatches it. The caller holds the common lock, under its own name.
[[nodiscard]] uint32_t sendMessage(zantLogHandle *handle, const OutgoingMessage &message);

} // namespace zantlog
