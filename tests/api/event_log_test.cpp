#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "zantlog/zantlog.h"

namespace {

zantLogEventSource source(const char *name, uint16_t category) {
    zantLogEventSource source = {};
    std::strncpy(source.name, name, sizeof source.name - 1);
    source.category = category;
    return source;
}

} // namespace

TEST(EventLog, OpensAndTakesTheCategory) {
    const zantLogEventSource application = source("Application", 0xFFFE);
    for (const auto open : {osLogOpen, osLogOpenEx}) {
        zantLogEventLog log = {nullptr, UINT64_MAX};
        EXPECT_EQ(open(&application, &log), 0);
        EXPECT_NE(log.handle, nullptr);
        EXPECT_EQ(log.category, 0xFFFEu);
        EXPECT_EQ(osLogClose(&log.handle), 0);
        EXPECT_EQ(log.handle, nullptr);
    }
}

TEST(EventLog, SourceNameThatFillsItsFieldIsBounded) {
    zantLogEventSource full;
    std::memset(&full, 'x', sizeof full);
    zantLogEventLog log = {};
    const int32_t result = osLogOpen(&full, &log);
    EXPECT_TRUE(result == 0 || result == -1);
    EXPECT_EQ(log.handle != nullptr, result == 0);
    EXPECT_EQ(log.category, 0x7878u);
    osLogClose(&log.handle);
}

TEST(EventLog, RefusesNullArguments) {
    const zantLogEventSource application = source("Application", 1);
    zantLogEventLog log = {nullptr, 42};
    for (const auto open : {osLogOpen, osLogOpenEx}) {
        EXPECT_EQ(open(nullptr, &log), -3);
        EXPECT_EQ(open(&application, nullptr), -3);
    }
    EXPECT_EQ(log.category, 42u);
    EXPECT_EQ(osLogClose(nullptr), -3);
}

TEST(EventLog, ClosingAClosedLogIsHarmless) {
    void *handle = nullptr;
    EXPECT_EQ(osLogClose(&handle), 0);
    EXPECT_EQ(handle, nullptr);
}
