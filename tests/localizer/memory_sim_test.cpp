// Messages that are formatted while memory is short.
#include <string>

#include <gtest/gtest.h>

#include "tests/localizer/localizer_fixture.h"
#include "tests/sim/census.h"
#include "tests/sim/memory.h"

using namespace zantlog;
using namespace zantlog::test;

class LocalizerMemoryTest : public LocalizerTest {};

TEST_F(LocalizerMemoryTest, EachAllocationMayFail) {
    catalog("default", "1 = \xC3\xBC {1} {2} {3}\n");
    CatalogObject object(1);
    object.wideString(L"\x00FC").utf8("\xC3\xBC").real(1.5);
    rec_.lis = *object.lis();
    rec_.who = const_cast<char *>("backup");
    forget();
    const sim::Census before = sim::takeCensus();
    int short4 = 0;
    for (uint64_t call = 1;; ++call) {
        ASSERT_LT(call, 1000u);
        forget();
        const uint64_t failuresBefore = sim::memory().failures;
        sim::memory().allocations = 0;
        sim::memory().firstFailure = call;
        const std::string text = format("de_DE", kShort);
        sim::memory().firstFailure = 0;
        forget();
        EXPECT_EQ(sim::leftSince(before), "") << "call " << call;
        if (sim::memory().failures == failuresBefore) {
            EXPECT_EQ(text, "\xFC \xFC \xFC 1,5");
            break;
        }
        if (text == "result 4") {
            ++short4;
        } else {
            // The configuration or the file was not to be had: the library's own text.
            EXPECT_TRUE(text == "[Cannot find catalog for message id=1] \xFC,\xC3\xBC,1.500000" ||
                        text == "\xFC \xFC \xFC 1,5")
                << text;
        }
    }
    EXPECT_GT(short4, 0);
}

TEST_F(LocalizerMemoryTest, CheckOfACatalogReportsIt) {
    catalog("default", "1 = x\ny\n");
    const std::string path = catalogPath("default");
    for (uint64_t call = 1; call <= 2; ++call) {
        sim::memory().allocations = 0;
        sim::memory().firstFailure = call;
        uint32_t count = 77;
        EXPECT_EQ(zantLogCheckCatalog(path.c_str(), nullptr, nullptr, &count), 4u);
        EXPECT_EQ(count, 0u);
    }
    sim::memory().firstFailure = 0;
}
