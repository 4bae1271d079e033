// Regular expressions: every construct, what is refused, and times that stay short.
#include "tools/qzlogview/regex.h"

#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <regex>

namespace zantlog::view {
namespace {

using namespace std::string_literals;

struct RegexCase {
    std::string expression;
    std::string text;
    bool found;
};

void PrintTo(const RegexCase &one, std::ostream *out) {
    *out << "\"" << one.expression << "\" in \"" << one.text << "\"";
}

std::optional<Regex> compiled(std::string_view expression) {
    Regex::Error error;
    std::optional<Regex> regex = Regex::compile(expression, &error);
    EXPECT_TRUE(regex) << expression << ": " << error.what << " at " << error.position;
    return regex;
}

bool isFound(std::string_view expression, std::string_view text) {
    const std::optional<Regex> regex = compiled(expression);
    return regex && regex->isFoundIn(text);
}

class Regexes : public testing::TestWithParam<RegexCase> {};

TEST_P(Regexes, AreFoundWhereTheyAre) {
    EXPECT_EQ(isFound(GetParam().expression, GetParam().text), GetParam().found);
}

const RegexCase kTexts[] = {
    {"", "", true},         {"", "abc", true},
    {"abc", "abc", true},   {"abc", "xxabcxx", true},
    {"abc", "ababc", true}, {"abc", "ab", false},
    {"abc", "ABC", false},  {"a b", "a b", true},
    {"]}", "x]}x", true},   {"-,:;<>=!\"'#%&/@_`~", "-,:;<>=!\"'#%&/@_`~", true},
};
INSTANTIATE_TEST_SUITE_P(Texts, Regexes, testing::ValuesIn(kTexts));

const RegexCase kAnchors[] = {
    {"^abc", "abcd", true}, {"^abc", "xabc", false},    {"abc$", "xabc", true},  {"abc$", "abcx", false},
    {"^abc$", "abc", true}, {"^abc$", "abcabc", false}, {"^$", "", true},        {"^$", "x", false},
    {"^", "", true},        {"$", "x", true},           {"a^b", "ab", false},    {"a$b", "ab", false},
    {"^b", "a\nb", false},  {"a$", "a\nb", false},      {"(^a|b)c", "bc", true}, {"(^a|b)c", "xac", false},
    {"a($|b)", "xa", true}, {"a($|b)", "ac", false},    {"^^a$$", "a", true},    {"(^)*a", "ba", true},
    {"^*a", "ba", true},    {"(a|$)+", "", true},
};
INSTANTIATE_TEST_SUITE_P(Anchors, Regexes, testing::ValuesIn(kAnchors));

const RegexCase kCharacters[] = {
    {".", "a", true},
    {".", "", false},
    {".", "\n", false},
    {".", "\r", true},
    {"^a.c$", "abc", true},
    {"^a.c$", "a\nc", false},
    {"^.$", "\0"s, true},
    {"^..$", "a\0"s, true},
    {"\\.", "a", false},
    {"\\.", ".", true},
    {"\\\\", "\\", true},
    {"\\\\", "/", false},
    {"\\(\\)\\[\\]\\{\\}", "()[]{}", true},
    {"\\*\\+\\?\\|\\^\\$", "*+?|^$", true},
    {"\\-\\/\\\"\\'\\ ", "-/\"' ", true},
    {"a\\nb", "a\nb", true},
    {"\\r", "\r", true},
    {"\\t", "\t", true},
    {"\\f", "\f", true},
    {"\\v", "\v", true},
    {"\\0", "a\0b"s, true},
    {"\\n", "n", false},
    {"\\t", "t", false},
};
INSTANTIATE_TEST_SUITE_P(Characters, Regexes, testing::ValuesIn(kCharacters));

const RegexCase kSets[] = {
    {"[abc]", "xbx", true},
    {"[abc]", "xyz", false},
    {"[a-c]", "b", true},
    {"[a-c]", "d", false},
    {"[a-c]", "`", false},
    {"[^a-c]", "abcabc", false},
    {"[^a-c]", "abcd", true},
    {"[^a]", "", false},
    {"[^a]", "\n", true},
    {"[]]", "]", true},
    {"[]a]", "a", true},
    {"[^]]", "]", false},
    {"[^]]", "a", true},
    {"[a-]", "-", true},
    {"[-a]", "-", true},
    {"[a-]", "b", false},
    {"[a\\-c]", "-", true},
    {"[a\\-c]", "b", false},
    {"[\\]]", "]", true},
    {"[\\\\]", "\\", true},
    {"[.]", "a", false},
    {"[.*+?()|$]", "$", true},
    {"[a^]", "^", true},
    {"[\\^a]", "^", true},
    {"[\\d]", "5", true},
    {"[\\d]", "x", false},
    {"[\\w-]", "-", true},
    {"[\\s,]", " ", true},
    {"[^\\d\\s]", "1 2", false},
    {"[^\\d\\s]", "1 x", true},
    {"[\\n\\t]", "\t", true},
    {"[a-cx-z]", "y", true},
    {"[a-cx-z]", "m", false},
    {"[\\d-z]", "-", true},
    {"[\\d-z]", "m", false},
    {"[a-a]", "a", true},
    {"^[0-9a-fA-F]+$", "00FfaA", true},
    {"^[0-9a-fA-F]+$", "00Fg", false},
    {"[\\0-\\t]", "\x05", true},
    {"[!--]", "#", true},
};
INSTANTIATE_TEST_SUITE_P(Sets, Regexes, testing::ValuesIn(kSets));

const RegexCase kClasses[] = {
    {"^\\d$", "0", true},        {"^\\d$", "9", true},           {"^\\d$", "/", false},
    {"^\\d$", ":", false},       {"^\\D$", "5", false},          {"^\\D$", "a", true},
    {"^\\D$", "\n", true},       {"^\\w$", "a", true},           {"^\\w$", "Z", true},
    {"^\\w$", "_", true},        {"^\\w$", "-", false},          {"^\\w$", "\xC3\xA9", false},
    {"^\\W$", "a", false},       {"^\\W$", "\xC3\xA9", true},    {"^\\s$", " ", true},
    {"^\\s$", "\t", true},       {"^\\s$", "\n", true},          {"^\\s$", "\v", true},
    {"^\\s$", "\xC2\xA0", true}, {"^\\s$", "\b", false},         {"^\\S$", " ", false},
    {"^\\S$", "x", true},        {"\\d+\\s\\w+", "42 is", true}, {"^\\d{3}-\\d{2}$", "555-12", true},
};
INSTANTIATE_TEST_SUITE_P(Classes, Regexes, testing::ValuesIn(kClasses));

const RegexCase kWordBoundaries[] = {
    {"\\bcat\\b", "a cat sat", true},
    {"\\bcat\\b", "cat", true},
    {"\\bcat\\b", "concatenate", false},
    {"\\bcat\\b", "cat_", false},
    {"\\bcat", "(cat", true},
    {"cat\\b", "cats", false},
    {"\\b", "", false},
    {"\\b", "x", true},
    {"\\b", " - ", false},
    {"a\\b", "a", true},
    {"a\\bb", "ab", false},
    {"\\b\\ba", "a", true},
    {"(\\b)+a", "a", true},
    {" \\b ", "   ", false},
    {"\\bcat\\b",
     "\xC3\xA9"
     "cat",
     true},
};
INSTANTIATE_TEST_SUITE_P(WordBoundaries, Regexes, testing::ValuesIn(kWordBoundaries));

const RegexCase kRepetitions[] = {
    {"^a*$", "", true},
    {"^a*$", "aaa", true},
    {"^a*$", "ab", false},
    {"^a+$", "", false},
    {"^a+$", "aaa", true},
    {"^a?$", "", true},
    {"^a?$", "a", true},
    {"^a?$", "aa", false},
    {"^a{2}$", "a", false},
    {"^a{2}$", "aa", true},
    {"^a{2}$", "aaa", false},
    {"^a{2,}$", "a", false},
    {"^a{2,}$", "aa", true},
    {"^a{2,}$", "aaaaa", true},
    {"^a{2,3}$", "a", false},
    {"^a{2,3}$", "aa", true},
    {"^a{2,3}$", "aaa", true},
    {"^a{2,3}$", "aaaa", false},
    {"^a{0}$", "", true},
    {"^a{0}$", "a", false},
    {"^a{0,0}b$", "b", true},
    {"^a{0,1}$", "aa", false},
    {"^a{1,1}$", "a", true},
    {"^ab{2}$", "abb", true},
    {"^ab{2}$", "abab", false},
    {"^(ab){2}$", "abab", true},
    {"^(ab)*$", "ababa", false},
    {"^[ab]{3}$", "aba", true},
    {"^\\d{2}$", "42", true},
    {"^.{3}$", "abc", true},
    {"^(a{2}){3}$", "aaaaaa", true},
    {"^(a{2}){3}$", "aaaaa", false},
    {"^a{2}{3}$", "aaaaaa", true},
    {"^a{2}{3}$", "aaaa", false},
    {"^a**$", "aaa", true},
    {"^a+*b$", "b", true},
    {"^(a|b)*c$", "abbac", true},
    {"^(a*b*)*c$", "aabbabc", true},
    // The shortest match is found where the longest is.
    {"^a*?$", "aaa", true},
    {"^a+?b$", "aab", true},
    {"^a??b$", "ab", true},
    {"^a{2,3}?$", "aaa", true},
    {"a+?", "b", false},
    {"^a{2}?$", "aa", true},
    // Braces that are no repetition are characters.
    {"^a{$", "a{", true},
    {"^a{,3}$", "a{,3}", true},
    {"^a{x}$", "a{x}", true},
    {"^a{1$", "a{1", true},
    {"^{2}$", "", true},
    {"^a{1,2$", "a{1,2", true},
    {"^a{1,x}$", "a{1,x}", true},
    {"^a{}$", "a{}", true},
    {"^a{1,2,3}$", "a{1,2,3}", true},
    {"^({1})$", "{1}", true},
    {"a{ 1}", "a{ 1}", true},
};
INSTANTIATE_TEST_SUITE_P(Repetitions, Regexes, testing::ValuesIn(kRepetitions));

const RegexCase kGroups[] = {
    {"a|b", "b", true},
    {"a|b", "c", false},
    {"^(a|b)$", "b", true},
    {"^a|b$", "ax", true},
    {"^a|b$", "xb", true},
    {"^a|b$", "xbx", false},
    {"a||b", "", true},
    {"^(a|)$", "", true},
    {"^(|a)$", "a", true},
    {"|", "", true},
    {"^()$", "", true},
    {"^(?:ab)+$", "abab", true},
    {"^(?:a|b)c$", "bc", true},
    {"^((a)(b))$", "ab", true},
    {"^(abc|abd|abe)$", "abe", true},
    {"^(abc|abd|abe)$", "abf", false},
    {"^(a|ab)(c|bcd)$", "abcd", true},
    {"^(a|ab)(c|bcd)$", "ac", true},
    {"^(a|ab)(c|bcd)$", "abcbcd", false},
    {"^a(b(c|d)|e(f|g))$", "aeg", true},
    {"^a(b(c|d)|e(f|g))$", "aed", false},
    {"^(a|b|c|d){2}$", "da", true},
    {"one|two|three", "twenty-three", true},
    {"^()*a$", "a", true},
    {"^(a?)*b$", "aab", true},
    {"^(a|b*)*c$", "abbc", true},
    {"^(?:)+$", "", true},
};
INSTANTIATE_TEST_SUITE_P(Groups, Regexes, testing::ValuesIn(kGroups));

const RegexCase kIgnoringCase[] = {
    {"(?i)abc", "xAbCx", true},
    {"(?i)ABC", "abc", true},
    {"(?i)abc", "abd", false},
    {"(?i)[a-c]+$", "ABC", true},
    {"(?i)^[A-C]$", "b", true},
    {"(?i)^[^a]$", "A", false},
    {"(?i)^[^A]$", "a", false},
    {"(?i)^[^a]$", "B", true},
    {"(?i)", "", true},
    {"(?i)1", "1", true},
    {"(?i)[@]", "`", false},
    {"(?i)@", "`", false},
    {"(?i)\\[", "{", false},
    {"(?i)[Z-a]", "z", true},
    {"(?i)\xC3\xA9", "\xC3\x89", false},
    {"(?i)\xC3\xA9", "\xC3\xA9", true},
    {"(?i)^\\d$", "5", true},
    {"(?i)a|B", "b", true},
};
INSTANTIATE_TEST_SUITE_P(IgnoringCase, Regexes, testing::ValuesIn(kIgnoringCase));

const RegexCase kUtf8[] = {
    {"^.$", "\xC3\xA9", true},         // é
    {"^.$", "\xE2\x82\xAC", true},     // €
    {"^.$", "\xF0\x9F\x98\x80", true}, // a smiley
    {"^..$", "\xC3\xA9", false},
    {"^\xC3\xA9+$", "\xC3\xA9\xC3\xA9", true},
    {"\xC3\xA9", "caf\xC3\xA9", true},
    {"[\xC3\xA9\xC3\xA8]", "\xC3\xA8", true},
    {"[\xC3\xA0-\xC3\xBF]", "\xC3\xA9", true},
    {"[\xC3\xA0-\xC3\xBF]", "\xC3\x89", false},
    {"^[^\xC3\xA9]$", "\xC3\xA8", true},
    {"\\\xC3\xA9", "\xC3\xA9", true},
    {"[\xE2\x82\xAC]", "\xE2\x82\xAD", false},
    // Bytes that are no UTF-8 are characters of their own.
    {"^.$", "\xE9", true},
    {"^..$", "\xC3\xC3", true},
    {"^..$", "\xE2\x82", true},
    {"^.{3}$", "\xED\xA0\x80", true},
    {"^..$", "\xC0\x80", true},
    {"^.{4}$", "\xF4\x90\x80\x80", true},
    {"^\xE9$", "\xE9", true},
    {"^\xE9$", "\xC3\xA9", false},
    {"\xE9", "caf\xE9", true},
    {"^[\xE8-\xEA]$", "\xE9", true},
    {"^[^a]$", "\xFF", true},
    {"^\\W$", "\xFF", true},
    {"^[a-\xFF]$", "\xC3\xA9", true},
    // A part of a character is none, in an expression with a construct as in one without.
    {"\xA9", "\xC3\xA9", false},
    {"(\xA9)", "\xC3\xA9", false},
    {"\xC3", "\xC3\xA9", false},
    {"\xA9", "\xA9", true},
};
INSTANTIATE_TEST_SUITE_P(Utf8, Regexes, testing::ValuesIn(kUtf8));

struct ErrorCase {
    std::string expression;
    std::string what;
    size_t position;
};

void PrintTo(const ErrorCase &error, std::ostream *out) {
    *out << error.expression;
}

class RegexErrors : public testing::TestWithParam<ErrorCase> {};

TEST_P(RegexErrors, AreSaidWithTheirPlaces) {
    Regex::Error error;
    EXPECT_FALSE(Regex::compile(GetParam().expression, &error));
    EXPECT_EQ(error.what, GetParam().what);
    EXPECT_EQ(error.position, GetParam().position);
}

constexpr const char *kGroupKinds =
    "of groups with a \"?\" there is \"(?:\" alone, and \"(?i)\" at the beginning";
constexpr const char *kNumbers = "a repetition goes from a smaller number to a larger one, up to 1000";

const ErrorCase kErrors[] = {
    {"a)b", "a \")\" without a \"(\"", 1},
    {")", "a \")\" without a \"(\"", 0},
    {"(a))", "a \")\" without a \"(\"", 3},
    {"(a", "the \")\" is missing", 2},
    {"((a)", "the \")\" is missing", 4},
    {"(", "the \")\" is missing", 1},
    {"(a|", "the \")\" is missing", 3},
    {"*a", "nothing stands before the \"*\"", 0},
    {"a|+", "nothing stands before the \"+\"", 2},
    {"(?a)", kGroupKinds, 2},
    {"(?=a)", kGroupKinds, 2},
    {"a(?i)b", kGroupKinds, 3},
    {"(?", kGroupKinds, 2},
    {"(*)", "nothing stands before the \"*\"", 1},
    {"?", "nothing stands before the \"?\"", 0},
    {"[a", "the \"]\" is missing", 2},
    {"[]", "the \"]\" is missing", 2},
    {"[^]", "the \"]\" is missing", 3},
    {"[", "the \"]\" is missing", 1},
    {"[\\]", "the \"]\" is missing", 3},
    {"[c-a]", "a range that ends before it begins", 4},
    {"[a-\\d]", "a class cannot be the end of a range", 5},
    {"[\\D]", "\\D, \\S and \\W have no place in a set: write [^...]", 2},
    {"[\\S]", "\\D, \\S and \\W have no place in a set: write [^...]", 2},
    {"[\\W]", "\\D, \\S and \\W have no place in a set: write [^...]", 2},
    {"[\\q]", "there is no \"\\q\"", 2},
    {"[\\", "a single backslash at the end", 2},
    {"a\\", "a single backslash at the end", 2},
    {"\\q", "there is no \"\\q\"", 1},
    {"\\B", "there is no \"\\B\"", 1},
    {"a\\1", "there is no \"\\1\"", 2},
    {"\\x41", "there is no \"\\x\"", 1},
    {"a{3,2}", kNumbers, 6},
    {"a{1001}", kNumbers, 7},
    {"a{1,1001}", kNumbers, 9},
    {"a{1001,}", kNumbers, 8},
    {"a{100000}", kNumbers, 9},
    {"a{99999999999999999999}", kNumbers, 23},
    {"a{0,99999999999999999999}", kNumbers, 25},
};

INSTANTIATE_TEST_SUITE_P(Each, RegexErrors, testing::ValuesIn(kErrors));

std::string repeated(const std::string &text, size_t times) {
    std::string all;
    for (size_t i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

TEST(Regex, ExpressionsThatAreTooLargeAreRefused) {
    Regex::Error error;
    EXPECT_FALSE(Regex::compile("x{1000}{1000}", &error));
    EXPECT_EQ(error.what, "the expression is too large");
    EXPECT_EQ(error.position, 13U);
    EXPECT_FALSE(Regex::compile("((x{100}){100}){100}", &error));
    EXPECT_EQ(error.what, "the expression is too large");
    EXPECT_FALSE(Regex::compile("(x*){0,1000}{0,1000}", &error));
    EXPECT_EQ(error.what, "the expression is too large");
    EXPECT_FALSE(Regex::compile("(?:){0,1000}{1000}", &error));
    EXPECT_EQ(error.what, "the expression is too large");
    EXPECT_FALSE(Regex::compile(repeated(".", 100000), &error));
    EXPECT_EQ(error.what, "the expression is too large");
    EXPECT_FALSE(Regex::compile(repeated("a|", 100000), &error));
    EXPECT_EQ(error.what, "the expression is too large");
    EXPECT_TRUE(Regex::compile("x{1000}{20}", &error) || error.what == "the expression is too large");
    EXPECT_TRUE(Regex::compile("x{1000}", &error));
}

TEST(Regex, GroupsAreNestedUpTo200Deep) {
    Regex::Error error;
    EXPECT_TRUE(isFound(repeated("(", 200) + "a" + repeated(")", 200), "xax"));
    EXPECT_FALSE(Regex::compile(repeated("(", 201) + "a" + repeated(")", 201), &error));
    EXPECT_EQ(error.what, "groups are nested too deeply");
    EXPECT_EQ(error.position, 201U);
    EXPECT_FALSE(Regex::compile(repeated("(", 100000), &error));
    EXPECT_EQ(error.what, "groups are nested too deeply");
}

TEST(Regex, ManyRepetitionsOfNothingTakeNoRoom) {
    EXPECT_TRUE(isFound("^" + repeated("(){1000}", 1000) + "a$", "a"));
    EXPECT_TRUE(isFound("^a" + repeated("*", 5000) + "$", "aaa"));
    EXPECT_TRUE(isFound("^a" + repeated("{1}", 5000) + "$", "a"));
}

TEST(Regex, ATextOfPlainCharactersMayBeLong) {
    const std::string text = repeated("abcdefghij", 100000);
    EXPECT_TRUE(isFound(text, "x" + text + "x"));
    EXPECT_FALSE(isFound(text + "k", text));
}

// Each within a second; backtracking would take longer than anybody waits.
TEST(Regex, NoExpressionHangs) {
    const std::string many = repeated("a", 20000);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(isFound("(a*)*b", many));
    EXPECT_FALSE(isFound("(a|a)*b", many));
    EXPECT_FALSE(isFound("(a+)+b", many));
    EXPECT_FALSE(isFound("(a?){20}a{20}b", many));
    EXPECT_FALSE(isFound("((a*)*)*b", many));
    EXPECT_FALSE(isFound("^(a|b|ab)*c", many));
    EXPECT_TRUE(isFound("(a*)*$", many));
    EXPECT_FALSE(isFound("(.*)(.*)(.*)(.*)(.*)[^a]", many));
    EXPECT_FALSE(isFound("(()*)*b", many));
    EXPECT_FALSE(isFound("(^|$|\\b|a)*b", many));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(Regex, LongTextsTakeNoLongerThanTheyAre) {
    const std::string text = repeated("2026-11-20 14:03:05 the quick brown fox \xC3\xA9\n", 24000); // 1 MB
    ASSERT_GT(text.size(), 1000000U);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(isFound("lazy dog", text));
    EXPECT_FALSE(isFound("fox\\s+jumps", text));
    EXPECT_FALSE(isFound("(?i)(LAZY|SLEEPY) dog", text));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

// The same answers as the standard library's, which has the same constructs as far as these go.
TEST(Regex, AnswersAsTheStandardLibraryDoes) {
    static const char *const kPieces[] = {"a",   "b",   "c",     "ab",   ".",   "[ab]", "[^a]", "[a-b]",
                                          "\\w", "\\d", "(",     ")",    "(?:", "|",    "*",    "+",
                                          "?",   "{2}", "{1,2}", "{0,}", "^",   "$",    "\\b",  "*?"};
    std::mt19937 random(20261120);
    const auto below = [&](size_t limit) { return random() % limit; };
    size_t compared = 0;
    for (int round = 0; round < 60000; ++round) {
        std::string expression;
        for (size_t left = 1 + below(7); left > 0; --left) {
            expression += kPieces[below(std::size(kPieces))];
        }
        std::string text;
        for (size_t left = below(7); left > 0; --left) {
            text += "abc1 "[below(5)];
        }
        Regex::Error error;
        const std::optional<Regex> regex = Regex::compile(expression, &error);
        std::optional<std::regex> standard;
        try {
            standard.emplace(expression, std::regex::ECMAScript);
        } catch (const std::regex_error &) {
        }
        if (!regex || !standard) {
            continue; // it refuses repetitions of repetitions and of anchors
        }
        ++compared;
        ASSERT_EQ(regex->isFoundIn(text), std::regex_search(text, *standard))
            << "\"" << expression << "\" in \"" << text << "\"";
    }
    EXPECT_GT(compared, 10000U);
}

} // namespace
} // namespace zantlog::view
