#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/localizer/localizer_fixture.h"

using namespace zantlog::test;

class LocalizerThreadsTest : public LocalizerTest {};

TEST_F(LocalizerThreadsTest, ManyThreadsFormatAtOnce) {
    catalog("default", "1 = default {1}\n");
    catalog("de", "1 = deutsch {1}\n");
    std::atomic<int> wrong = 0;
    const auto work = [&](const char *locale, const std::string &expected) {
        CatalogObject object(1);
        object.signedNumber(5);
        zantLogMsgRec rec = rec_;
        rec.lis = *object.lis();
        for (int i = 0; i < 200; ++i) {
            char *text = nullptr;
            wrong += LogFormatMessage(nullptr, 0, locale, 0, kShort, 0, &rec, nullptr, &text) != 0 ||
                     text != expected;
            zantLogFree(text);
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back(work, i % 2 == 0 ? "de_DE" : "C", i % 2 == 0 ? "deutsch 5" : "default 5");
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
}
