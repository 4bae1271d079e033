// A secure handle whose events are recorded instead of reported.
#pragma once

#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/product_fixture.h"
#include "tests/api/recording_system.h"
#include "tests/support/wide_text.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

using Strings = std::vector<WideText>;

inline constexpr uint32_t kMinusOne = 0xFFFFFFFF;

// An open secure handle whose configuration has product 12 and originator 3.
class EventSinkTest : public testing::Test {
protected:
    EventSinkTest() {
        recording = {};
        std::strcpy(cfg_.eventSource.name, "Scanner");
        cfg_.eventSource.category = 0xFFFE;
        cfg_.secureAuditLevel = 6;
    }
    ~EventSinkTest() override { zantLogClose(&handle_); }

    void open(uint32_t flags = 0) {
        cfg_.outputFlags = flags;
        ASSERT_EQ(zantLogSecureOpen(12, 3, 0, &cfg_, &handle_), 0u);
    }

    // A secure-audit record with fixed numbers.
    struct SecureMessage : Message {
        explicit SecureMessage(zantLogHandle *handle, const char *given = nullptr)
            : Message(handle, 5, given) {
            sequence = 57;
            processId = 4242;
            threadId = 777;
            who = const_cast<char *>("admin");
        }
    };

    static const ReportedEvent &event() {
        static const ReportedEvent none = {};
        EXPECT_EQ(recording.events.size(), 1u);
        return recording.events.empty() ? none : recording.events.back();
    }

    Configuration cfg_;
    zantLogHandle handle_ = {};
};

} // namespace zantlog::test
