// The query language: what expressions say of records, and what is said of those that are wrong.
#include "tools/qzlogview/where_parser.h"

#include <gtest/gtest.h>

#include "tests/tools/qzlogview/sample_records.h"
#include "tests/tools/qzlogview/usage_error.h"

namespace zantlog::view {
namespace {

constexpr WhereContext kContext = {1763249100000, kUtc};

const SampleRecords &samples() {
    static const SampleRecords records;
    return records;
}

struct WhereCase {
    const char *expression;
    bool holds;
};

void PrintTo(const WhereCase &one, std::ostream *out) {
    *out << one.expression;
}

bool holds(const Record &record, std::string_view expression) {
    return parseWhere(expression, kContext).holdsFor(record);
}

class ApplicationRecord : public testing::TestWithParam<WhereCase> {};

TEST_P(ApplicationRecord, IsAsked) {
    EXPECT_EQ(holds(samples().application, GetParam().expression), GetParam().holds);
}

const WhereCase kNumbers[] = {
    {"product == 12", true},
    {"product = 12", true},
    {"product == 11", false},
    {"product != 12", false},
    {"product != 11", true},
    {"product < 12", false},
    {"product < 13", true},
    {"product <= 12", true},
    {"product <= 11", false},
    {"product > 12", false},
    {"product > 11", true},
    {"product >= 12", true},
    {"product >= 13", false},
    {"product==12", true},
    {"product==0xc", true},
    {"product == 0x0C", true},
    {"product == 012", true},
    {"product > -1", true},
    {"product < -1", false},
    {"product > -0x10", true},
    {"product != -9223372036854775807", true},
    {"product < 9223372036854775807", true},
    {"PRODUCT == 12", true},
    {"originator == 4", true},
    {"fileoriginator == 3", true},
    {"FileOriginator == 4", false},
    {"pid == 4242", true},
    {"tid == 777", true},
    {"tid != 778", true},
    {"sequence == 57", true},
    {"sequence >= 58", false},
    {"version == 65543", true},
    {"severity == 2", true},
    {"severity > 1", true},
    {"severity != 2", false},
    {"level == 2", false},
    {"level != 2", false},
    {"outcome == 0", false},
    {"outcome != 5", false},
    {"type == 2", true},
    {"type != 2", false},
    {"product in (12)", true},
    {"product in (1, 12, 3)", true},
    {"product in(1,2,3)", false},
    {"product in (-1, 0xC)", true},
    {"pid IN (4242)", true},
};
INSTANTIATE_TEST_SUITE_P(Numbers, ApplicationRecord, testing::ValuesIn(kNumbers));

const WhereCase kNames[] = {
    {"type == application", true},
    {"type == app", true},
    {"type == \"application\"", true},
    {"type == APP", true},
    {"type == debug", false},
    {"type != audit", true},
    {"type == diag", false},
    {"type == diagnostic", false},
    {"type == context", false},
    {"type in (debug, app)", true},
    {"type in (debug, 4)", false},
    {"type <= application", true},
    {"severity == error", true},
    {"severity == 'error'", true},
    {"severity == Error", true},
    {"severity >= warning", true},
    {"severity < severe", true},
    {"severity == information", false},
    {"severity == info", false},
    {"severity > info", true},
    {"severity == fatal", false},
    {"severity in (warning, error)", true},
    {"severity in (\"severe\", 4)", false},
};
INSTANTIATE_TEST_SUITE_P(Names, ApplicationRecord, testing::ValuesIn(kNames));

const WhereCase kTexts[] = {
    {"text == \"Hello World\"", true},
    {"text = 'Hello World'", true},
    {"text == \"hello world\"", false},
    {"text == \"Hello\"", false},
    {"text != \"Hello\"", true},
    {"text != \"Hello World\"", false},
    {"text < \"I\"", true},
    {"text < \"Hello World\"", false},
    {"text <= \"Hello World\"", true},
    {"text > \"Hello\"", true},
    {"text >= \"Hello World\"", true},
    {"text > \"\xC3\xA9\"", false},
    {"text contains \"lo Wo\"", true},
    {"text contains \"LO\"", false},
    {"text contains \"\"", true},
    {"text icontains \"LO WO\"", true},
    {"text icontains \"lo wo\"", true},
    {"text icontains \"lowo\"", false},
    {"text icontains \"\"", true},
    {"text startswith \"Hell\"", true},
    {"text startswith \"ello\"", false},
    {"text startswith \"\"", true},
    {"text endswith \"World\"", true},
    {"text endswith \"Worl\"", false},
    {"text endswith \"xHello World\"", false},
    {"text matches \"o.W\"", true},
    {"text matches '^Hello'", true},
    {"text matches \"^World\"", false},
    {"text matches \"(?i)WORLD$\"", true},
    {"text matches \"\"", true},
    {"text CONTAINS \"Hello\"", true},
    {"text Matches \"\\s\"", true},
    {"text contains\"Hello\"", true},
    {"text in (\"x\", \"Hello World\")", true},
    {"text in (\"x\", \"y\")", false},
    {"who == \"Trade\"", true},
    {"who == \"trade\"", false},
    {"who icontains \"TRADE\"", true},
    {"context == \"token\"", true},
    {"context != \"other\"", true},
    {"host == \"buildhost\"", true},
    {"host startswith \"build\"", true},
    {"file endswith \".log\"", true},
    {"file contains \"C:\\logs\\12\"", true},
    {"file contains \"C:\\\\logs\\\\12\"", true},
    {"logset == \"night\"", false},
    {"logset != \"night\"", false},
    {"logset contains \"\"", false},
    {"subject == \"Trade\"", false},
    {"subject != \"x\"", false},
    {"title != \"x\"", false},
    {"title == \"Hello World\"", false},
    {"text contains '\"'", false},
    {"text contains \"'\"", false},
    {"text == \"Hello\\ World\"", false},
    {"text == 'Hello World' ", true},
};
INSTANTIATE_TEST_SUITE_P(Texts, ApplicationRecord, testing::ValuesIn(kTexts));

const WhereCase kArguments[] = {
    {"args == \"5\"", true},
    {"args == \"C:\"", true},
    {"args == \"-7\"", true},
    {"args == \"inner\"", true},
    {"args == \"outer\"", false},
    {"args contains \"inn\"", true},
    {"args icontains \"INN\"", true},
    {"args matches \"^i.*r$\"", true},
    {"args startswith \"-\"", true},
    {"args endswith \":\"", true},
    {"args endswith \";\"", false},
    {"args != \"5\"", true},
    {"args in (\"1\", \"C:\")", true},
    {"args in (\"1\", \"2\")", false},
    {"not args == \"5\"", false},
    {"args > \"z\"", false},
    {"args < \"a\"", true},
};
INSTANTIATE_TEST_SUITE_P(Arguments, ApplicationRecord, testing::ValuesIn(kArguments));

const WhereCase kTimes[] = {
    {"time == \"2025-11-15 23:23:20.123\"", true},
    {"time != \"2025-11-15 23:23:20.123\"", false},
    {"time >= \"2025-11-15 23:23:20.123\"", true},
    {"time > \"2025-11-15 23:23:20.123\"", false},
    {"time < \"2025-11-15 23:23:20.124\"", true},
    {"time <= '2025-11-15 23:23:20.122'", false},
    {"time > \"2025-11-15\"", true},
    {"time > \"2025-11-15 23:23:20.123Z\"", false},
    {"time < \"2025-11-16 00:23:21+01:00\"", true},
    {"time > \"-2m\"", true},
    {"time > \"-90s\"", false},
    {"time > \"-3h\"", true},
    {"time < now", true},
    {"time > today", true},
    {"time < Yesterday", false},
    {"time > \"23:23\"", true},
    {"time in (\"2025-11-15 23:23:20.123\", now)", true},
    {"time in (today)", false},
};
INSTANTIATE_TEST_SUITE_P(Times, ApplicationRecord, testing::ValuesIn(kTimes));

// Not before and, and before or; T and F are true and false of the record.
const WhereCase kJoined[] = {
    {"pid == 4242 && tid == 777", true},
    {"pid == 4242 && tid == 1", false},
    {"pid == 1 || tid == 777", true},
    {"pid == 1 || tid == 1", false},
    {"pid == 4242 and tid == 777", true},
    {"pid == 1 or tid == 777", true},
    {"pid == 1 OR tid == 777", true},
    {"! pid == 1", true},
    {"!pid == 4242", false},
    {"not pid == 1", true},
    {"NOT NOT pid == 4242", true},
    {"!!!pid == 4242", false},
    {"pid == 4242 || pid == 1 && tid == 1", true},
    {"pid == 1 && tid == 1 || pid == 4242", true},
    {"(pid == 4242 || pid == 1) && tid == 1", false},
    {"pid == 4242 and (tid == 1 or tid == 777)", true},
    {"not pid == 1 && tid == 1", false},
    {"not (pid == 1 && tid == 1)", true},
    {"not pid == 4242 || tid == 777", true},
    {"not (pid == 4242 || tid == 777)", false},
    {"((((pid == 4242))))", true},
    {"!(pid == 1)and!(tid == 1)", true},
    {"pid==4242&&tid==777||severity==0", true},
    {"\tpid\n==\r\n4242 ", true},
    {"pid in (1, 2) || tid in (777)", true},
    {"not pid in (1, 2)", true},
    {"pid == 4242 && tid == 777 && sequence == 57 && product == 12", true},
    {"pid == 4242 && tid == 777 && sequence == 57 && product == 11", false},
    {"pid == 1 || tid == 1 || sequence == 1 || product == 12", true},
    // A field that is missing compares false, and its inverse true.
    {"not outcome == 0", true},
    {"outcome == 0 || outcome != 0", false},
    {"not (outcome == 0 || outcome != 0)", true},
    {"not subject contains \"\"", true},
};
INSTANTIATE_TEST_SUITE_P(Joined, ApplicationRecord, testing::ValuesIn(kJoined));

TEST(WhereFields, OfADiagnosticRecord) {
    const Record &record = samples().diagnostic;
    EXPECT_TRUE(holds(record, "type == diag && type == diagnostic && level == 7 && who == \"scanner\""));
    for (const char *missing :
         {"severity == 7", "severity != 7", "severity >= 0", "context == \"\"", "context != \"x\"",
          "outcome >= 0", "subject != \"x\"", "title != \"x\"", "args == \"\"", "args != \"x\"",
          "args contains \"\"", "args matches \"\"", "logset != \"x\"", "logset in (\"\")"}) {
        EXPECT_FALSE(holds(record, missing)) << missing;
    }
}

TEST(WhereFields, OfADebugRecordWithNothingInIt) {
    const Record &record = samples().debug;
    EXPECT_TRUE(
        holds(record, "type == debug && level == -6 && level < 0 && sequence == 4294967295 && pid == 0"));
    EXPECT_TRUE(holds(record, "time == \"1970-01-01\""));
    EXPECT_TRUE(holds(record, "text == \"\"")) << "every record has a text";
    for (const char *missing : {"who == \"\"", "who != \"x\"", "who contains \"\"", "severity <= 4"}) {
        EXPECT_FALSE(holds(record, missing)) << missing;
    }
}

TEST(WhereFields, OfAContextRecord) {
    const Record &record = samples().context;
    EXPECT_TRUE(holds(record, "type == context && title == \"title\" && text == \"title\" && args == \"x\""));
    EXPECT_TRUE(holds(record, "context == \"token\"")) << "it belongs to the context that it begins";
    EXPECT_FALSE(holds(record, "context == \"outer\""));
    EXPECT_FALSE(holds(record, "level != 1 || severity != 1 || who != \"x\" || subject != \"x\""));
}

TEST(WhereFields, OfAnAuditRecord) {
    const Record &record = samples().audit;
    EXPECT_TRUE(holds(record, "type == audit && subject == \"mary\" && who == \"mary\" && outcome == -1"));
    EXPECT_TRUE(holds(record, "outcome != 0 && outcome < 0"));
    EXPECT_FALSE(holds(record, "level != 1 || severity != 1 || title != \"x\""));
}

TEST(WhereFields, OfARecordInALogSet) {
    const Record &record = samples().inLogSet;
    EXPECT_TRUE(holds(record, "logset == \"night\" && product == 12 && version == 65544 && originator == 3"));
    EXPECT_TRUE(holds(record, "severity == info && severity == information && severity == 0"));
    EXPECT_FALSE(holds(record, "logset == \"Night\""));
    EXPECT_TRUE(holds(record, "logset != \"Night\" && logset icontains \"NIGHT\""));
}

TEST(WhereFields, OfAnOldRecord) {
    const Record &record = samples().old;
    EXPECT_TRUE(holds(record, "version == 65540 && product == 12 && originator == 3 && severity == fatal"));
    EXPECT_TRUE(holds(record, "time == \"2025-11-15 23:23:20\"")) << "the beginning of its file";
}

struct WrongCase {
    std::string expression;
    std::string error;
};

void PrintTo(const WrongCase &wrong, std::ostream *out) {
    *out << wrong.expression;
}

class WrongExpressions : public testing::TestWithParam<WrongCase> {};

TEST_P(WrongExpressions, AreShownWithTheirPlaces) {
    EXPECT_EQ(usageErrorOf([] { return parseWhere(GetParam().expression, kContext); }), GetParam().error);
}

constexpr const char *kFieldExpected = "a field was expected here, such as product, time, severity or text\n";
constexpr const char *kComparisonExpected =
    "a comparison was expected here: ==, !=, <, <=, >, >=, in, contains, "
    "icontains, startswith, endswith or matches\n";
constexpr const char *kNoNumber = "this is no number; times and texts stand between quotation marks\n";

std::string at(const char *what, const char *shown) {
    return std::string(what) + shown;
}

const WrongCase kWrong[] = {
    {"", at(kFieldExpected, "  \n"
                            "  ^")},
    {"   ", at(kFieldExpected, "     \n"
                               "     ^")},
    {"pid ==", "a number was expected here: pid is a number\n"
               "  pid ==\n"
               "        ^"},
    {"pid", at(kComparisonExpected, "  pid\n"
                                    "     ^")},
    {"pid 5", at(kComparisonExpected, "  pid 5\n"
                                      "      ^")},
    {"pid \"==\" 5", at(kComparisonExpected, "  pid \"==\" 5\n"
                                             "      ^")},
    {"5 == pid", at(kFieldExpected, "  5 == pid\n"
                                    "  ^")},
    {"\"pid\" == 5", at(kFieldExpected, "  \"pid\" == 5\n"
                                        "  ^")},
    {"pid == 5 tid == 5", "\"&&\", \"||\" or the end was expected here\n"
                          "  pid == 5 tid == 5\n"
                          "           ^"},
    {"pid == 5)", "\"&&\", \"||\" or the end was expected here\n"
                  "  pid == 5)\n"
                  "          ^"},
    {"pid == 5 &&", at(kFieldExpected, "  pid == 5 &&\n"
                                       "             ^")},
    {"|| pid == 5", at(kFieldExpected, "  || pid == 5\n"
                                       "  ^")},
    {"(pid == 5", "a \")\" was expected here\n"
                  "  (pid == 5\n"
                  "           ^"},
    {"()", at(kFieldExpected, "  ()\n"
                              "   ^")},
    {"not", at(kFieldExpected, "  not\n"
                               "     ^")},
    {"pdi == 5", "there is no field \"pdi\"; did you mean pid?\n"
                 "  pdi == 5\n"
                 "  ^"},
    {"pid == 1 or xyzzy-1 == 5", "there is no field \"xyzzy-1\"\n"
                                 "  pid == 1 or xyzzy-1 == 5\n"
                                 "              ^"},
    {"pid contains \"5\"", "pid is no text: compare it with ==, !=, <, <=, > or >=\n"
                           "  pid contains \"5\"\n"
                           "      ^"},
    {"time matches \"5\"", "time is no text: compare it with ==, !=, <, <=, > or >=\n"
                           "  time matches \"5\"\n"
                           "       ^"},
    {"pid == \"5\"", "a number was expected here: pid is a number\n"
                     "  pid == \"5\"\n"
                     "         ^"},
    {"pid == five", "a number was expected here: pid is a number\n"
                    "  pid == five\n"
                    "         ^"},
    {"text == 5", "a text between quotation marks was expected here: text is a text\n"
                  "  text == 5\n"
                  "          ^"},
    {"text == hello", "a text between quotation marks was expected here: text is a text\n"
                      "  text == hello\n"
                      "          ^"},
    {"type == apple", "there is no type \"apple\"\n"
                      "  type == apple\n"
                      "          ^"},
    {"severity in (error, \"awful\")", "there is no severity \"awful\"\n"
                                       "  severity in (error, \"awful\")\n"
                                       "                      ^"},
    {"severity == (1)", "a number was expected here: severity is a number\n"
                        "  severity == (1)\n"
                        "              ^"},
    {"level == error", "a number was expected here: level is a number\n"
                       "  level == error\n"
                       "           ^"},
    {"pid in 5", "a \"(\" was expected here, and values between commas\n"
                 "  pid in 5\n"
                 "         ^"},
    {"pid in ()", "a number was expected here: pid is a number\n"
                  "  pid in ()\n"
                  "          ^"},
    {"pid in (1,)", "a number was expected here: pid is a number\n"
                    "  pid in (1,)\n"
                    "            ^"},
    {"pid in (1 2)", "a \",\" or a \")\" was expected here\n"
                     "  pid in (1 2)\n"
                     "            ^"},
    {"pid in (1", "a \",\" or a \")\" was expected here\n"
                  "  pid in (1\n"
                  "           ^"},
    {"pid == 5s", at(kNoNumber, "  pid == 5s\n"
                                "         ^")},
    {"pid == 0x", at(kNoNumber, "  pid == 0x\n"
                                "         ^")},
    {"pid == 9223372036854775808", at(kNoNumber, "  pid == 9223372036854775808\n"
                                                 "         ^")},
    {"pid == -99999999999999999999", at(kNoNumber, "  pid == -99999999999999999999\n"
                                                   "         ^")},
    {"pid == 1.5", "this is not understood\n"
                   "  pid == 1.5\n"
                   "          ^"},
    {"pid == - 5", "this is not understood\n"
                   "  pid == - 5\n"
                   "         ^"},
    {"pid & 5", "this is not understood\n"
                "  pid & 5\n"
                "      ^"},
    {"pid == 5;", "this is not understood\n"
                  "  pid == 5;\n"
                  "          ^"},
    {"_pid == 5", "this is not understood\n"
                  "  _pid == 5\n"
                  "  ^"},
    {"text == \"abc", "the quotation mark at the end is missing\n"
                      "  text == \"abc\n"
                      "          ^"},
    {"text == \"abc\\\"", "the quotation mark at the end is missing\n"
                          "  text == \"abc\\\"\n"
                          "          ^"},
    {"text == '", "the quotation mark at the end is missing\n"
                  "  text == '\n"
                  "          ^"},
    {"time == 5",
     "a time between quotation marks was expected here, such as \"2026-11-20 14:03\" or \"-3h\"\n"
     "  time == 5\n"
     "          ^"},
    {"time > \"2026-02-30\"", "\"2026-02-30\" is no time: there is no such day\n"
                              "  time > \"2026-02-30\"\n"
                              "         ^"},
    {"time > tomorrow",
     "\"tomorrow\" is no time: write 2026-11-20, \"2026-11-20 14:03\", 14:03:05, now, today, "
     "yesterday, -90m, -3h or -2d\n"
     "  time > tomorrow\n"
     "         ^"},
    {"text matches \"a(b\"", "the regular expression is wrong: the \")\" is missing\n"
                             "  text matches \"a(b\"\n"
                             "                   ^"},
    {"text matches '*'", "the regular expression is wrong: nothing stands before the \"*\"\n"
                         "  text matches '*'\n"
                         "                ^"},
    // Backslashes that stand twice count twice.
    {"text matches \"\\\\\\\\*)\"", "the regular expression is wrong: a \")\" without a \"(\"\n"
                                    "  text matches \"\\\\\\\\*)\"\n"
                                    "                     ^"},
    {"text matches '\\d\\'*)'", "the regular expression is wrong: a \")\" without a \"(\"\n"
                                "  text matches '\\d\\'*)'\n"
                                "                     ^"},
    // What is shown of it stands in one line, and the caret below its place.
    {"text == \"\xC3\xA9\xE2\x82\xAC\" x", "\"&&\", \"||\" or the end was expected here\n"
                                           "  text == \"\xC3\xA9\xE2\x82\xAC\" x\n"
                                           "               ^"},
    {"pid\n==\t\x1B", "this is not understood\n"
                      "  pid\\n==\\t\\x1b\n"
                      "           ^"},
    {"text == \"\xFF\" x", "\"&&\", \"||\" or the end was expected here\n"
                           "  text == \"\xEF\xBF\xBD\" x\n"
                           "              ^"},
    {"severity == \"a\x1B\nb\"", "there is no severity \"a\\x1b\\nb\"\n"
                                 "  severity == \"a\\x1b\\nb\"\n"
                                 "              ^"},
};

INSTANTIATE_TEST_SUITE_P(Each, WrongExpressions, testing::ValuesIn(kWrong));

std::string repeated(const std::string &text, size_t times) {
    std::string all;
    for (size_t i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

// Of a long one, what is around the place.
TEST(Where, ALongExpressionIsShownInPart) {
    const std::string expression =
        repeated("pid == 1 || ", 1000) + "nonsense == 1" + repeated(" || pid == 1", 1000);
    EXPECT_EQ(usageErrorOf([&] { return parseWhere(expression, kContext); }),
              "there is no field \"nonsense\"\n"
              "  pid == 1 || pid == 1 || pid == 1 || pid == 1 || pid == 1 || nonsense == 1 || pid == 1 || "
              "pid == 1 ||\n"
              "                                                              ^");
}

TEST(Where, NestingUpTo499DeepIsFine) {
    const Record &record = samples().application;
    EXPECT_TRUE(holds(record, repeated("(", 499) + "pid == 4242" + repeated(")", 499)));
    EXPECT_FALSE(holds(record, repeated("!", 499) + "pid == 4242"));
    EXPECT_TRUE(holds(record, repeated("not ", 498) + "pid == 4242"));
}

TEST(Where, DeeperNestingIsRefused) {
    for (const std::string &expression :
         {repeated("(", 500) + "pid == 1" + repeated(")", 500), repeated("(", 100000), repeated("!", 100000),
          repeated("not ", 100000) + "pid == 1", repeated("(!", 100000) + "pid == 1"}) {
        const std::string error = usageErrorOf([&] { return parseWhere(expression, kContext); });
        EXPECT_EQ(error.substr(0, error.find('\n')), "this is nested too deeply");
        EXPECT_EQ(error.back(), '^');
    }
}

TEST(Where, LongExpressionsEndInAResultOrAnError) {
    const Record &record = samples().application;
    EXPECT_TRUE(holds(record, repeated("pid == 1 || ", 100000) + "pid == 4242"));
    EXPECT_FALSE(holds(record, repeated("pid == 4242 && ", 100000) + "pid == 1"));
    EXPECT_TRUE(holds(record, "pid in (" + repeated("1,", 100000) + "4242)"));
    EXPECT_TRUE(holds(record, "text != \"" + repeated("x", 1000000) + "\""));
    EXPECT_TRUE(holds(record, "pid == " + repeated("0", 100000) + "4242"));
    for (const std::string &wrong : {repeated("pid ", 100000), repeated(")", 100000), repeated("\"", 100001),
                                     repeated("x", 100000) + " == 1", "pid == " + repeated("9", 100000),
                                     "severity == " + repeated("x", 100000)}) {
        const std::string error = usageErrorOf([&] { return parseWhere(wrong, kContext); });
        ASSERT_FALSE(error.empty());
        EXPECT_EQ(error.back(), '^');
        EXPECT_LT(error.size(), 1000U) << "nobody reads more";
    }
}

TEST(Where, ARegularExpressionOfItsOwnIsShownAsWell) {
    EXPECT_EQ(usageErrorOf([] { return compileRegex("ab(c"); }),
              "the regular expression is wrong: the \")\" is missing\n"
              "  ab(c\n"
              "      ^");
    EXPECT_TRUE(compileRegex("a.c").isFoundIn("xabcx"));
}

TEST(WhereFields, AreFoundWhateverTheirCase) {
    ASSERT_NE(findWhereField("FileOriginator"), nullptr);
    EXPECT_STREQ(findWhereField("FileOriginator")->name, "fileoriginator");
    EXPECT_EQ(findWhereField(""), nullptr);
    EXPECT_EQ(findWhereField("pi"), nullptr);
    EXPECT_EQ(whereFieldNames().size(), 21U);
}

} // namespace
} // namespace zantlog::view
