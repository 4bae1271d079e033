// Every field of the table, at both levels.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "reader/query.h"
#include "tests/reader/query_builder.h"

namespace {

using namespace zantlog;
using namespace zantlog::test;

constexpr int32_t kLess = 283;
constexpr int32_t kGreater = 284;
constexpr int32_t kLessOrEqual = 285;
constexpr int32_t kGreaterOrEqual = 286;
constexpr int32_t kEqual = 287;
constexpr int32_t kNotEqual = 288;
constexpr int32_t kOperators[] = {281, 282, 283, 284, 285, 286, 287, 288};
constexpr int32_t kNoOperators[] = {0, 280, 289, -1};

constexpr FileLevelFields kFile{.productId = 7,
                                .originatorId = 3,
                                .headerText = "hostA",
                                .logSetFileName = "ops",
                                .creationTime = 1000,
                                .lastWriteTime = 2000};
constexpr HeaderLevelFields kHeader{
    .productId = 7, .originatorId = 3, .startTime = 1000, .logSetName = "ops", .lastWriteTime = 2000};

bool matches(QueryNode *query, const FileLevelFields &file) {
    return fileMatches(query, file);
}

bool matches(QueryNode *query, const HeaderLevelFields &header) {
    return headerMatches(query, header);
}

template <typename Fields, typename Literal>
bool matches(const Fields &fields, uint32_t field, int32_t operatorCode, Literal literal) {
    QueryTree tree;
    return matches(tree.compare(field, operatorCode, literal), fields);
}

// A number against its neighbours and itself.
template <typename Fields> void expectNumber(const Fields &fields, uint32_t field, uint32_t value) {
    struct Case {
        int32_t operatorCode;
        bool below;
        bool same;
        bool above;
    };
    // Whether value-of-field OP literal holds for a literal that is smaller, the same, greater.
    for (const Case &one : {Case{281, true, true, true}, Case{282, true, true, true},
                            Case{kLess, false, false, true}, Case{kGreater, true, false, false},
                            Case{kLessOrEqual, false, true, true}, Case{kGreaterOrEqual, true, true, false},
                            Case{kEqual, false, true, false}, Case{kNotEqual, true, false, true},
                            Case{280, false, false, false}, Case{289, false, false, false}}) {
        EXPECT_EQ(matches(fields, field, one.operatorCode, value - 1), one.below) << one.operatorCode;
        EXPECT_EQ(matches(fields, field, one.operatorCode, value), one.same) << one.operatorCode;
        EXPECT_EQ(matches(fields, field, one.operatorCode, value + 1), one.above) << one.operatorCode;
    }
    EXPECT_FALSE(matches(fields, field, 281, 0u));
    EXPECT_TRUE(matches(fields, field, 282, 0u));
}

template <typename Fields> void expectText(const Fields &fields, uint32_t field, const std::string &value) {
    const std::string other = value + "x";
    EXPECT_TRUE(matches(fields, field, kEqual, value.c_str()));
    EXPECT_FALSE(matches(fields, field, kEqual, other.c_str()));
    EXPECT_FALSE(matches(fields, field, kNotEqual, value.c_str()));
    EXPECT_TRUE(matches(fields, field, kNotEqual, other.c_str()));
    for (const int32_t operatorCode : {281, 282, kLess, kGreater, kLessOrEqual, kGreaterOrEqual, 280, 289}) {
        EXPECT_FALSE(matches(fields, field, operatorCode, value.c_str())) << operatorCode;
        EXPECT_FALSE(matches(fields, field, operatorCode, other.c_str())) << operatorCode;
    }
}

template <typename Fields>
void expectAlways(const Fields &fields, const std::vector<uint32_t> &codes, bool expected) {
    for (const uint32_t code : codes) {
        for (const int32_t operatorCode : kOperators) {
            for (const uint32_t value : {0u, 3u, 7u, 0xFFFFFFFFu}) {
                EXPECT_EQ(matches(fields, code, operatorCode, value), expected)
                    << code << " " << operatorCode << " " << value;
            }
            EXPECT_EQ(matches(fields, code, operatorCode, "hostA"), expected) << code << " " << operatorCode;
        }
        for (const int32_t operatorCode : kNoOperators) {
            EXPECT_EQ(matches(fields, code, operatorCode, 7u), expected) << code << " " << operatorCode;
        }
    }
}

const std::vector<uint32_t> kNoFields{0, 1, 257, 259, 261, 262, 280, 281, 288, 0x10107, 0xFFFFFFFF};

TEST(FileLevel, ProductIsThatOfTheName) {
    expectNumber(kFile, 263, 7);
}

TEST(FileLevel, FileOriginatorIsThatOfTheName) {
    expectNumber(kFile, 265, 3);
}

TEST(FileLevel, StartTimeIsTheCreation) {
    expectNumber(kFile, 269, 1000);
}

TEST(FileLevel, TimeIsCreationOrLastWrite) {
    EXPECT_TRUE(matches(kFile, 268, kGreaterOrEqual, 2000u));
    EXPECT_FALSE(matches(kFile, 268, kGreaterOrEqual, 2001u));
    EXPECT_TRUE(matches(kFile, 268, kGreater, 1999u));
    EXPECT_FALSE(matches(kFile, 268, kGreater, 2000u));
    EXPECT_TRUE(matches(kFile, 268, kLessOrEqual, 1000u));
    EXPECT_FALSE(matches(kFile, 268, kLessOrEqual, 999u));
    EXPECT_TRUE(matches(kFile, 268, kLess, 1001u));
    EXPECT_FALSE(matches(kFile, 268, kLess, 1000u));
    EXPECT_TRUE(matches(kFile, 268, kEqual, 1000u));
    EXPECT_TRUE(matches(kFile, 268, kEqual, 2000u));
    EXPECT_FALSE(matches(kFile, 268, kEqual, 1500u));
    EXPECT_TRUE(matches(kFile, 268, kNotEqual, 1000u));
    EXPECT_TRUE(matches(kFile, 268, kNotEqual, 2000u));
    EXPECT_FALSE(matches(kFile, 268, 289, 1000u));
}

TEST(FileLevel, TimeThatIsBothIsNotUnequalToItself) {
    FileLevelFields file = kFile;
    file.lastWriteTime = 1000;
    EXPECT_FALSE(matches(file, 268, kNotEqual, 1000u));
    EXPECT_TRUE(matches(file, 268, kNotEqual, 1001u));
}

TEST(FileLevel, LastWriteMayLieBeforeTheCreation) {
    FileLevelFields file = kFile;
    file.creationTime = 3000;
    EXPECT_TRUE(matches(file, 268, kGreaterOrEqual, 3000u));
    EXPECT_TRUE(matches(file, 268, kLessOrEqual, 2000u));
    expectNumber(file, 269, 3000);
}

TEST(FileLevel, HeaderTextIsAText) {
    expectText(kFile, 278, "hostA");
    FileLevelFields file = kFile;
    file.headerText = "";
    expectText(file, 278, "");
    const std::string longest(511, 'h');
    file.headerText = longest.c_str();
    expectText(file, 278, longest);
}

TEST(FileLevel, HeaderTextThatIsMissingComparesWithNothing) {
    FileLevelFields file = kFile;
    file.headerText = nullptr;
    EXPECT_FALSE(matches(file, 278, kEqual, ""));
    EXPECT_FALSE(matches(file, 278, kNotEqual, "hostA"));
}

TEST(FileLevel, LogSetIsTheConfigurationsFileName) {
    expectText(kFile, 279, "ops");
    FileLevelFields file = kFile;
    file.logSetFileName = nullptr;
    expectAlways(file, {279}, false);
}

TEST(FileLevel, FieldsOfRecordsPass) {
    expectAlways(kFile, {264, 266, 267, 270, 271, 272, 273, 274, 275, 277}, true);
}

TEST(FileLevel, OtherCodesAreFalse) {
    expectAlways(kFile, {276}, false);
    expectAlways(kFile, kNoFields, false);
}

TEST(HeaderLevel, ProductIsTheHeaders) {
    expectNumber(kHeader, 263, 7);
}

TEST(HeaderLevel, OriginatorIsTheHeaders) {
    expectNumber(kHeader, 264, 3);
}

TEST(HeaderLevel, StartTimeIsTheHeaders) {
    expectNumber(kHeader, 269, 1000);
}

TEST(HeaderLevel, TimeIsStartOrLastWrite) {
    EXPECT_TRUE(matches(kHeader, 268, kGreaterOrEqual, 2000u));
    EXPECT_FALSE(matches(kHeader, 268, kGreaterOrEqual, 2001u));
    EXPECT_TRUE(matches(kHeader, 268, kLessOrEqual, 1000u));
    EXPECT_FALSE(matches(kHeader, 268, kLessOrEqual, 999u));
    EXPECT_TRUE(matches(kHeader, 268, kEqual, 1000u));
    EXPECT_TRUE(matches(kHeader, 268, kEqual, 2000u));
    EXPECT_FALSE(matches(kHeader, 268, kEqual, 1500u));
    EXPECT_TRUE(matches(kHeader, 268, kNotEqual, 1000u));
}

TEST(HeaderLevel, LogSetIsTheNames) {
    expectText(kHeader, 279, "ops");
    HeaderLevelFields header = kHeader;
    header.logSetName = nullptr;
    expectAlways(header, {279}, false);
}

TEST(HeaderLevel, OtherCodesAreFalse) {
    expectAlways(kHeader, {265, 266, 267, 270, 271, 272, 273, 274, 275, 276, 277, 278}, false);
    expectAlways(kHeader, kNoFields, false);
}

TEST(BothLevels, TimesAreCutTo32BitsUnsigned) {
    FileLevelFields file = kFile;
    file.creationTime = 0x1'0000'03E8;
    file.lastWriteTime = 0x80000000; // 2038-01-19
    expectNumber(file, 269, 1000);
    EXPECT_TRUE(matches(file, 268, kEqual, 1000u));
    EXPECT_TRUE(matches(file, 268, kGreaterOrEqual, 0x80000000u));
    EXPECT_TRUE(matches(file, 268, kGreater, 0x7FFFFFFFu));
    HeaderLevelFields header = kHeader;
    header.startTime = -1;
    header.lastWriteTime = 0x7'0000'0002;
    EXPECT_TRUE(matches(header, 269, kEqual, 0xFFFFFFFFu));
    EXPECT_TRUE(matches(header, 269, kGreater, 2000u));
    EXPECT_TRUE(matches(header, 268, kEqual, 2u));
}

TEST(BothLevels, EveryKindOfLiteralIsANumber) {
    for (const int32_t kind : {257, 258, 260, 261}) {
        QueryTree tree;
        QueryNode *seven = tree.node(kEqual, tree.field(263), tree.number(7, kind));
        QueryNode *eight = tree.node(kEqual, tree.field(263), tree.number(8, kind));
        EXPECT_TRUE(matches(seven, kFile)) << kind;
        EXPECT_FALSE(matches(eight, kFile)) << kind;
        EXPECT_TRUE(matches(seven, kHeader)) << kind;
    }
}

TEST(BothLevels, FieldOnTheRightDoesNotMirrorTheOperator) {
    QueryTree tree;
    const auto reversed = [&tree](int32_t code, uint32_t literal) {
        return matches(tree.node(code, tree.number(literal), tree.field(263)), kFile);
    };
    EXPECT_TRUE(reversed(kEqual, 7));
    EXPECT_FALSE(reversed(kEqual, 8));
    EXPECT_FALSE(reversed(kLess, 5)); // as product < 5
    EXPECT_TRUE(reversed(kLess, 9));
    EXPECT_TRUE(reversed(kGreater, 5));
    EXPECT_FALSE(reversed(kGreater, 9));
    EXPECT_FALSE(reversed(kLessOrEqual, 6));
    EXPECT_TRUE(reversed(kGreaterOrEqual, 6));
    EXPECT_FALSE(matches(tree.node(kLess, tree.number(5), tree.field(263)), kHeader));
}

TEST(BothLevels, StringLiteralOnTheLeftIsNone) {
    for (const int32_t code : kOperators) {
        for (const uint32_t field : {278u, 279u}) {
            for (const char *text : {"hostA", "ops", ""}) {
                QueryTree tree;
                EXPECT_FALSE(matches(tree.node(code, tree.string(text), tree.field(field)), kFile));
                EXPECT_FALSE(matches(tree.node(code, tree.string(text), tree.field(field)), kHeader));
            }
        }
    }
}

TEST(BothLevels, TextComparesWithStringLiteralsOnly) {
    QueryTree tree;
    for (const int32_t kind : {258, 259, 260, 261}) {
        QueryNode *literal = tree.string("hostA");
        literal->type = kind;
        literal->value = 0;
        EXPECT_FALSE(matches(tree.node(kEqual, tree.field(278), literal), kFile)) << kind;
        EXPECT_FALSE(matches(tree.node(kNotEqual, tree.field(278), literal), kFile)) << kind;
    }
    QueryNode *inner = tree.compare(263, kEqual, 7u);
    inner->text = "hostA";
    EXPECT_FALSE(matches(tree.node(kEqual, tree.field(278), inner), kFile));
    EXPECT_FALSE(matches(tree.node(kNotEqual, tree.field(278), tree.string(nullptr)), kFile));
}

TEST(BothLevels, FieldBesideAFieldStandsForItsCode) {
    FileLevelFields file = kFile;
    file.originatorId = 263;
    file.productId = 265;
    QueryTree tree;
    // The right one is the field, the left one the number 263.
    EXPECT_TRUE(matches(tree.node(kEqual, tree.field(263), tree.field(265)), file));
    EXPECT_FALSE(matches(tree.node(kEqual, tree.field(264), tree.field(265)), file));
    EXPECT_FALSE(matches(tree.node(kEqual, tree.field(263), tree.field(265)), kHeader));
    HeaderLevelFields header = kHeader;
    header.productId = 264;
    EXPECT_TRUE(matches(tree.node(kEqual, tree.field(264), tree.field(263)), header));
}

TEST(BothLevels, FieldComparesWithTheResultOfAnOperator) {
    FileLevelFields file = kFile;
    file.originatorId = 1;
    QueryTree tree;
    QueryNode *isTrue = tree.compare(263, kEqual, 7u);
    QueryNode *isFalse = tree.compare(263, kEqual, 8u);
    isTrue->value = 9;
    isFalse->value = 1;
    EXPECT_TRUE(matches(tree.node(kEqual, tree.field(265), isTrue), file));
    EXPECT_FALSE(matches(tree.node(kEqual, tree.field(265), isFalse), file));
    EXPECT_TRUE(matches(tree.node(kEqual, isTrue, tree.field(265)), file));
    EXPECT_FALSE(matches(tree.node(kEqual, isFalse, tree.field(265)), file));
    EXPECT_TRUE(matches(tree.node(kGreater, isFalse, tree.field(265)), file)); // as originator > 0
}

TEST(HeaderTextNeed, IsAFieldTermAnywhereInTheTree) {
    QueryTree tree;
    QueryNode *text = tree.compare(278, kEqual, "hostA");
    QueryNode *product = tree.compare(263, kEqual, 7u);
    EXPECT_TRUE(readsHeaderText(text));
    EXPECT_FALSE(readsHeaderText(product));
    EXPECT_TRUE(readsHeaderText(tree.node(kEqual, tree.number(7), tree.field(278))));
    EXPECT_TRUE(readsHeaderText(tree.node(281, product, text)));
    EXPECT_TRUE(readsHeaderText(tree.node(282, text, product)));
    EXPECT_TRUE(
        readsHeaderText(tree.node(281, product, tree.node(281, product, tree.node(282, product, text)))));
    EXPECT_TRUE(readsHeaderText(tree.chain(text, 199, true)));
    EXPECT_TRUE(readsHeaderText(tree.chain(text, 199, false)));
}

TEST(HeaderTextNeed, IsNotAnythingElse) {
    QueryTree tree;
    EXPECT_FALSE(readsHeaderText(nullptr));
    EXPECT_FALSE(readsHeaderText(tree.compare(263, kEqual, 278u)));
    EXPECT_FALSE(readsHeaderText(tree.compare(279, kEqual, "ops")));
    QueryNode *product = tree.compare(263, kEqual, 7u);
    product->value = 278;
    EXPECT_FALSE(readsHeaderText(tree.node(281, product, product)));
    EXPECT_FALSE(readsHeaderText(tree.field(278))); // no tree that can be evaluated
    EXPECT_FALSE(readsHeaderText(tree.node(kEqual, tree.field(278), nullptr)));
}

} // namespace
