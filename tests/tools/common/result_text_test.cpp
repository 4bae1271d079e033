#include <string>

#include <gtest/gtest.h>

#include "tools/common/result_text.h"

using zantlog::tools::resultText;

TEST(ResultText, EveryCodeOfTheLibraryHasWords) {
    for (const uint32_t result :
         {0u,  1u,  2u,  3u,  4u,  5u,  6u,  7u,  9u,  10u, 22u, 27u, 30u, 31u, 32u,
          33u, 34u, 39u, 45u, 47u, 48u, 50u, 51u, 53u, 54u, 55u, 57u, 58u, 61u, 64u}) {
        const std::string text = resultText(result);
        EXPECT_EQ(text.find("unknown"), std::string::npos) << text;
        EXPECT_NE(text.find("(result " + std::to_string(result) + ")"), std::string::npos) << text;
    }
}

TEST(ResultText, MeaningNumberAdvice) {
    EXPECT_EQ(resultText(54), "the disk is full (result 54); make room and try again");
}

TEST(ResultText, ARefusalOfTheEventLogHasWords) {
    EXPECT_EQ(resultText(UINT32_MAX),
              "the event log did not take the message (result 4294967295); check that it is running and not "
              "full, and that the event source of the configuration is registered");
}

TEST(ResultText, UnknownCodesKeepTheirNumber) {
    EXPECT_EQ(resultText(999), "the library failed in an unknown way (result 999)");
    EXPECT_EQ(resultText(UINT32_MAX - 1), "the library failed in an unknown way (result 4294967294)");
}
