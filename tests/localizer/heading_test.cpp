#include <string>

#include <gtest/gtest.h>

#include "tests/localizer/localizer_fixture.h"

using namespace zantlog::test;

namespace {

[[maybe_unused]] const bool kZone = useTimeZone("CET-1CEST");

class HeadingTest : public LocalizerTest {
protected:
    HeadingTest() {
        rec_.timestamp = 1774778405007; // 2026-03-29 12:00:05.007 in the zone
        rec_.text = const_cast<char *>("disk C: is full");
        rec_.who = const_cast<char *>("backup");
        rec_.slot.level = 2;
    }

    std::string ofType(uint32_t type, const char *locale = "C") {
        rec_.type = type;
        return format(locale, kLong);
    }
};

} // namespace

TEST_F(HeadingTest, EachTypeHasItsOwn) {
    EXPECT_EQ(ofType(0), "2026-03-29 12:00:05.007 [debug, level 2] originator 3, backup: disk C: is full");
    EXPECT_EQ(ofType(1),
              "2026-03-29 12:00:05.007 [diagnostic, level 2] originator 3, backup: disk C: is full");
    EXPECT_EQ(ofType(2),
              "2026-03-29 12:00:05.007 [application, error 2] originator 3, backup: disk C: is full");
    EXPECT_EQ(ofType(4), "2026-03-29 12:00:05.007 [audit, success] originator 3, backup: disk C: is full");
    EXPECT_EQ(
        ofType(5),
        "2026-03-29 12:00:05.007 [secure audit, level 2, success] originator 3, backup: disk C: is full");
    EXPECT_EQ(ofType(9), "2026-03-29 12:00:05.007 [9] originator 3, backup: disk C: is full");
}

TEST_F(HeadingTest, ContextsHaveATokenInTheLevelsPlace) {
    rec_.slot.contextString = const_cast<char *>("token");
    EXPECT_EQ(ofType(3), "2026-03-29 12:00:05.007 [context] originator 3: disk C: is full");
}

TEST_F(HeadingTest, SeveritiesHaveTheEventLogsWords) {
    const std::pair<int32_t, std::string> rows[] = {
        {0, "information 0"}, {1, "warning 1"},     {2, "error 2"},        {3, "error 3"},
        {4, "error 4"},       {5, "information 5"}, {-1, "information -1"}};
    for (const auto &[severity, words] : rows) {
        rec_.slot.level = severity;
        EXPECT_EQ(ofType(2), "2026-03-29 12:00:05.007 [application, " + words +
                                 "] originator 3, backup: disk C: is full");
    }
}

TEST_F(HeadingTest, FailedAuditsSayTheirOutcome) {
    rec_.outcome = 5;
    EXPECT_EQ(ofType(4), "2026-03-29 12:00:05.007 [audit, failure 5] originator 3, backup: disk C: is full");
    rec_.outcome = 0xFFFFFFFF;
    EXPECT_EQ(ofType(4), "2026-03-29 12:00:05.007 [audit, failure -1] originator 3, backup: disk C: is full");
}

TEST_F(HeadingTest, NobodyIsLeftOut) {
    rec_.who = nullptr;
    EXPECT_EQ(ofType(2), "2026-03-29 12:00:05.007 [application, error 2] originator 3: disk C: is full");
    rec_.who = const_cast<char *>("");
    EXPECT_EQ(ofType(2), "2026-03-29 12:00:05.007 [application, error 2] originator 3: disk C: is full");
}

TEST_F(HeadingTest, LocaleWritesTheTime) {
    EXPECT_EQ(ofType(0, "de_DE"),
              "29.03.2026 12:00:05.007 [debug, level 2] originator 3, backup: disk C: is full");
    EXPECT_EQ(ofType(0, "en_US"),
              "03/29/2026 12:00:05.007 PM [debug, level 2] originator 3, backup: disk C: is full");
}

TEST_F(HeadingTest, CatalogHasTheWords) {
    catalog("de", "application = Anwendung\nerror = Fehler\noriginator = Ursprung\ntime = um %H\n");
    EXPECT_EQ(ofType(2, "de_AT"),
              "29.03.2026 um 12.007 [Anwendung, Fehler 2] Ursprung 3, backup: disk C: is full");
}

TEST_F(HeadingTest, TimeThatCannotBeBrokenDownIsItsSeconds) {
    rec_.timestamp = UINT64_MAX;
    EXPECT_EQ(ofType(0), "18446744073709551 [debug, level 2] originator 3, backup: disk C: is full");
}

TEST_F(HeadingTest, OneBitChoosesTheForm) {
    rec_.type = 0;
    const std::string shortForm = "disk C: is full";
    for (const uint32_t flags : {0u, 0x200u, 0x400u, 0x600u, 0xFFFFFEFFu}) {
        EXPECT_EQ(format("C", flags), shortForm);
    }
    for (const uint32_t flags : {0x100u, 0x700u, 0xFFFFFFFFu}) {
        EXPECT_GT(format("C", flags).size(), shortForm.size());
    }
}

TEST_F(HeadingTest, WhoIsUtf8InUtf8Records) {
    rec_.who = const_cast<char *>("J\xC3\xBCrgen");
    rec_.catalogSelector = 1;
    EXPECT_EQ(ofType(4), "2026-03-29 12:00:05.007 [audit, success] originator 3, J\xFCrgen: disk C: is full");
}
