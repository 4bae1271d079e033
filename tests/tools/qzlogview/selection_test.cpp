// The options that select records.
#include "tools/qzlogview/selection.h"

#include <gtest/gtest.h>

#include "tests/config/test_stores.h"
#include "tests/tools/qzlogview/sample_records.h"
#include "tests/tools/qzlogview/usage_error.h"
#include "tools/qzlogview/expression.h"

// Options that are not named are not given.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace zantlog::view {
namespace {

constexpr int64_t kNow = 1763249100000; // 2025-11-15 23:25 UTC

const SampleRecords &samples() {
    static const SampleRecords records;
    return records;
}

SelectionContext context() {
    return {kNow, kUtc, nullptr};
}

// The samples that are wanted, a letter each.
std::string wanted(const Selection &selection, const SelectionContext &in = context()) {
    const auto expression = compileSelection(selection, in);
    const SampleRecords &all = samples();
    std::string letters;
    const std::pair<char, const Record *> records[] = {
        {'A', &all.application}, {'d', &all.diagnostic}, {'D', &all.debug}, {'C', &all.context},
        {'U', &all.audit},       {'L', &all.inLogSet},   {'O', &all.old}};
    for (const auto &[letter, record] : records) {
        letters += matches(expression.get(), *record) ? std::string(1, letter) : "";
    }
    return letters;
}

std::string errorOf(const Selection &selection) {
    return usageErrorOf([&] { return compileSelection(selection, context()); });
}

TEST(Selection, NothingSelectsEverything) {
    EXPECT_EQ(compileSelection({}, context()), nullptr);
    EXPECT_EQ(wanted({}), "AdDCULO");
}

TEST(Selection, Ids) {
    EXPECT_EQ(wanted({.products = {"12"}}), "AdDCULO");
    EXPECT_EQ(wanted({.products = {"13"}}), "");
    EXPECT_EQ(wanted({.products = {"13", "12"}}), "AdDCULO");
    EXPECT_EQ(wanted({.originators = {"4"}}), "A");
    EXPECT_EQ(wanted({.originators = {"3"}}), "dDCULO");
    EXPECT_EQ(wanted({.originators = {"4", "3"}}), "AdDCULO");
    EXPECT_EQ(wanted({.originators = {"4294967295"}}), "");
}

TEST(Selection, LogSets) {
    EXPECT_EQ(wanted({.logSets = {"night"}}), "L");
    EXPECT_EQ(wanted({.logSets = {"day"}}), "");
    EXPECT_EQ(wanted({.logSets = {"day", "night"}}), "L");
    EXPECT_EQ(wanted({.logSets = {"Night"}}), "");
}

// The records' milliseconds are 123 (A, L), 124 (d), 125 (C) and 126 (U); the old one has its file's time.
TEST(Selection, TimesAreInclusive) {
    EXPECT_EQ(wanted({.since = "2025-11-15 23:23:20.124"}), "dCU");
    EXPECT_EQ(wanted({.until = "2025-11-15 23:23:20.124"}), "AdDLO");
    EXPECT_EQ(wanted({.since = "2025-11-15 23:23:20.124", .until = "2025-11-15 23:23:20.124"}), "d");
    EXPECT_EQ(wanted({.since = "2025-11-15 23:23:20.125", .until = "2025-11-15 23:23:20.124"}), "");
    EXPECT_EQ(wanted({.since = "-2m"}), "AdCULO");
    EXPECT_EQ(wanted({.since = "now"}), "");
    EXPECT_EQ(wanted({.until = "now"}), "AdDCULO");
}

TEST(Selection, TimesAreOfTheZone) {
    const SelectionContext east = {kNow, {false, 3600}, nullptr};
    EXPECT_EQ(wanted({.since = "2025-11-16 00:23:20.126"}, east), "U");
    EXPECT_EQ(wanted({.where = "time >= \"2025-11-16 00:23:20.126\""}, east), "U");
}

TEST(Selection, Types) {
    EXPECT_EQ(wanted({.types = {"debug"}}), "D");
    EXPECT_EQ(wanted({.types = {"diagnostic"}}), "d");
    EXPECT_EQ(wanted({.types = {"diag"}}), "d");
    EXPECT_EQ(wanted({.types = {"application"}}), "ALO");
    EXPECT_EQ(wanted({.types = {"APP"}}), "ALO");
    EXPECT_EQ(wanted({.types = {"context"}}), "C");
    EXPECT_EQ(wanted({.types = {"audit"}}), "U");
    EXPECT_EQ(wanted({.types = {"audit", "debug"}}), "DU");
}

TEST(Selection, Severities) {
    EXPECT_EQ(wanted({.severity = "2"}), "A");
    EXPECT_EQ(wanted({.severity = "error"}), "A");
    EXPECT_EQ(wanted({.severity = "Error"}), "A");
    EXPECT_EQ(wanted({.severity = "=2"}), "A");
    EXPECT_EQ(wanted({.severity = "==error"}), "A");
    EXPECT_EQ(wanted({.severity = "!=error"}), "LO");
    EXPECT_EQ(wanted({.severity = ">=error"}), "AO");
    EXPECT_EQ(wanted({.severity = ">2"}), "O");
    EXPECT_EQ(wanted({.severity = "<=2"}), "AL");
    EXPECT_EQ(wanted({.severity = "<warning"}), "L");
    EXPECT_EQ(wanted({.severity = "info"}), "L");
    EXPECT_EQ(wanted({.severity = "information"}), "L");
    EXPECT_EQ(wanted({.severity = "fatal"}), "O");
    EXPECT_EQ(wanted({.severity = "severe"}), "");
}

TEST(Selection, Levels) {
    EXPECT_EQ(wanted({.level = "7"}), "d");
    EXPECT_EQ(wanted({.level = "<=7"}), "dD");
    EXPECT_EQ(wanted({.level = "<0"}), "D");
    EXPECT_EQ(wanted({.level = "!=7"}), "D");
}

TEST(Selection, Texts) {
    EXPECT_EQ(wanted({.who = {"scanner"}}), "d");
    EXPECT_EQ(wanted({.who = {"mary"}}), "U");
    EXPECT_EQ(wanted({.who = {"mary", "trade", "nobody"}}), "UL");
    EXPECT_EQ(wanted({.contexts = {"token"}}), "AC") << "the context's own record belongs to it";
    EXPECT_EQ(wanted({.contexts = {"outer"}}), "");
    EXPECT_EQ(wanted({.grep = "^t"}), "CO");
    EXPECT_EQ(wanted({.grep = "(?i)WORLD|disk"}), "Ad");
    EXPECT_EQ(wanted({.grep = ""}), "AdDCULO");
}

TEST(Selection, ProcessesAndThreads) {
    EXPECT_EQ(wanted({.processes = {"4242"}}), "AdL");
    EXPECT_EQ(wanted({.threads = {"777"}}), "AL");
    EXPECT_EQ(wanted({.processes = {"0"}, .threads = {"0", "2"}}), "DO");
    EXPECT_EQ(wanted({.processes = {"1", "4242"}, .threads = {"2", "778"}}), "dCU");
}

TEST(Selection, AllOptionsHaveToHold) {
    EXPECT_EQ(
        wanted({.products = {"12"}, .types = {"application"}, .severity = ">=0", .where = "pid == 4242"}),
        "AL");
    EXPECT_EQ(wanted({.logSets = {"night"}, .types = {"audit"}}), "");
    EXPECT_EQ(wanted({.where = "pid == 1 || pid == 4242"}), "AdCUL");
    EXPECT_EQ(wanted({.grep = "o", .where = "pid == 1 || pid == 4242"}), "AU");
}

TEST(Selection, NotInvertsAllButProductsOriginatorsAndLogSets) {
    EXPECT_EQ(wanted({.types = {"audit", "debug"}, .inverted = true}), "AdCLO");
    EXPECT_EQ(wanted({.types = {"application"}, .severity = "error", .inverted = true}), "dDCULO")
        << "what both select is left out";
    EXPECT_EQ(wanted({.originators = {"4"}, .types = {"audit"}, .inverted = true}), "A");
    EXPECT_EQ(wanted({.originators = {"3"}, .types = {"audit"}, .inverted = true}), "dDCLO");
    EXPECT_EQ(wanted({.logSets = {"night"}, .grep = "x", .inverted = true}), "L");
    EXPECT_EQ(wanted({.products = {"13"}, .types = {"audit"}, .inverted = true}), "");
    EXPECT_EQ(wanted({.severity = "!=error", .inverted = true}), "AdDCU")
        << "no severity is none that compares";
    EXPECT_EQ(wanted({.until = "now", .inverted = true}), "");
}

TEST(Selection, NotOfNothingIsWrong) {
    const char *const expected = "--not inverts other options, and none of those is given";
    EXPECT_EQ(errorOf({.inverted = true}), expected);
    EXPECT_EQ(errorOf({.products = {"12"}, .originators = {"3"}, .logSets = {"night"}, .inverted = true}),
              expected);
}

TEST(Selection, WrongValues) {
    const std::string ids =
        " takes an id from 1 to 4294967295, or a name of a configuration on this machine, not ";
    EXPECT_EQ(errorOf({.products = {"scanner"}}), "--product" + ids + "\"scanner\"");
    EXPECT_EQ(errorOf({.products = {"12", ""}}), "--product" + ids + "\"\"");
    EXPECT_EQ(errorOf({.products = {"0"}}), "--product" + ids + "\"0\"");
    EXPECT_EQ(errorOf({.originators = {"4294967296"}}), "--originator" + ids + "\"4294967296\"");
    EXPECT_EQ(errorOf({.originators = {"-3"}}), "--originator" + ids + "\"-3\"");
    EXPECT_EQ(errorOf({.types = {"secure"}}),
              "--type takes debug, diagnostic, application, context or audit, not \"secure\"");
    EXPECT_EQ(errorOf({.types = {"2"}}),
              "--type takes debug, diagnostic, application, context or audit, not \"2\"");
    for (const char *text : {"", ">=", "awful", ">= 2", "=>2", "-1", "4294967296", "2 ", ">>2"}) {
        EXPECT_EQ(
            errorOf({.severity = text}),
            "--severity takes a number or information, warning, error, severe, fatal, and >= or another "
            "comparison before it, not \"" +
                std::string(text) + "\"");
    }
    EXPECT_EQ(errorOf({.level = "error"}),
              "--level takes a number, and >= or another comparison before it, not \"error\"");
    EXPECT_EQ(errorOf({.processes = {"1", "x"}}), "--pid takes a number from 0 to 4294967295, not \"x\"");
    EXPECT_EQ(errorOf({.threads = {"4294967296"}}),
              "--tid takes a number from 0 to 4294967295, not \"4294967296\"");
    EXPECT_EQ(errorOf({.since = "24:00"}),
              "\"24:00\" is no time: a day has 24 hours, an hour 60 minutes and a minute 60 seconds");
    EXPECT_EQ(errorOf({.until = "2026-02-30"}), "\"2026-02-30\" is no time: there is no such day");
    EXPECT_EQ(errorOf({.grep = "a("}), "the regular expression is wrong: the \")\" is missing\n"
                                       "  a(\n"
                                       "    ^");
    EXPECT_EQ(errorOf({.where = "pid = x"}), "a number was expected here: pid is a number\n"
                                             "  pid = x\n"
                                             "        ^");
    EXPECT_EQ(errorOf({.types = {"\x1B[2J"}}),
              "--type takes debug, diagnostic, application, context or audit, not \"\\x1b[2J\"");
}

// Two products, whose originators 3 and 4 have the same name.
class SelectionByName : public testing::Test {
protected:
    SelectionByName() {
        registerProduct(*location_, 12, first_->path(), "Scanner,scan");
        registerProduct(*location_, 13, second_->path(), "Printer");
        first_->text("4", "OIDNames", "engine,motor");
        second_->text("3", "OIDNames", "engine");
        second_->text("9", "OIDNames", "paper");
    }

    std::string named(const Selection &selection) {
        Configurations configurations;
        return wanted(selection, {kNow, kUtc, &configurations});
    }
    std::string errorOfNamed(const Selection &selection) {
        Configurations configurations;
        return usageErrorOf([&] { return compileSelection(selection, {kNow, kUtc, &configurations}); });
    }

private:
    std::unique_ptr<test::TestStore> location_ = test::makeLocation();
    std::unique_ptr<test::TestStore> first_ = test::makeStore(test::BackEnd::Conf);
    std::unique_ptr<test::TestStore> second_ = test::makeStore(test::BackEnd::Conf);
};

TEST_F(SelectionByName, NamesStandForIds) {
    EXPECT_EQ(named({.products = {"Scanner"}}), "AdDCULO");
    EXPECT_EQ(named({.products = {"scan"}}), "AdDCULO");
    EXPECT_EQ(named({.products = {"Printer"}}), "");
    EXPECT_EQ(named({.products = {"Printer", "scan"}}), "AdDCULO");
    EXPECT_EQ(named({.originators = {"motor"}}), "A");
    EXPECT_EQ(named({.originators = {"4"}}), "A");
    EXPECT_EQ(named({.originators = {"77"}}), "") << "an id needs no configuration";
}

TEST_F(SelectionByName, AnOriginatorsNameIsThatOfTheSelectedProducts) {
    EXPECT_EQ(named({.products = {"12"}, .originators = {"engine"}}), "A");
    EXPECT_EQ(named({.products = {"Scanner"}, .originators = {"engine"}}), "A");
    EXPECT_EQ(named({.products = {"13"}, .originators = {"engine"}}), "");
    Configurations configurations;
    const auto ofPrinter =
        compileSelection({.products = {"13"}, .originators = {"engine"}}, {kNow, kUtc, &configurations});
    ASSERT_EQ(ofPrinter->children().size(), 2U);
    EXPECT_EQ(ofPrinter->children()[1].number(), 3);
    EXPECT_NE(errorOfNamed({.products = {"12"}, .originators = {"paper"}}), "");
    EXPECT_EQ(errorOfNamed({.products = {"12", "13"}, .originators = {"paper"}}), "");
}

TEST_F(SelectionByName, OtherNamesAreWrong) {
    EXPECT_EQ(errorOfNamed({.products = {"engine"}}),
              "--product takes an id from 1 to 4294967295, or a name of a configuration on this machine, not "
              "\"engine\"");
    EXPECT_NE(errorOfNamed({.originators = {"Scanner"}}), "");
    EXPECT_NE(errorOfNamed({.originators = {"ENGINE"}}), "");
}

} // namespace
} // namespace zantlog::view
