// The tree in docs/queries.md is this one, and selects what the page says.
#include <gtest/gtest.h>

#include "reader/query.h"
#include "tests/support/document.h"
#include "zantlog/query.h"

namespace {

using namespace zantlog;
using namespace zantlog::test;

#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

// clang-format off
bool isSelected(uint32_t productId, int64_t creationTime, int64_t lastWriteTime) {
// begin
QueryNode product = {.type = ZANTLOG_QUERY_FIELD, .value = ZANTLOG_QUERY_PRODUCT};
QueryNode seven = {.type = ZANTLOG_QUERY_NUMBER, .value = 7};
QueryNode ofSeven = {.type = ZANTLOG_QUERY_EQUAL, .left = &product, .right = &seven};

QueryNode time = {.type = ZANTLOG_QUERY_FIELD, .value = ZANTLOG_QUERY_TIME};
QueryNode tuesday = {.type = ZANTLOG_QUERY_NUMBER, .value = 1763424000}; /* 2025-11-18 00:00 UTC */
QueryNode sinceTuesday = {.type = ZANTLOG_QUERY_GREATER_OR_EQUAL, .left = &time, .right = &tuesday};

QueryNode query = {.type = ZANTLOG_QUERY_AND, .left = &ofSeven, .right = &sinceTuesday};
// end
    return fileMatches(&query, {productId, 1, nullptr, nullptr, creationTime, lastWriteTime});
}
// clang-format on

std::string withoutCarriageReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

TEST(QueryDocument, ShowsThisTree) {
    const std::string source = withoutCarriageReturns(documentText("tests/reader/query_document_tests.cpp"));
    const size_t begin = source.find("\n// begin\n") + 10;
    const size_t end = source.find("// end\n");
    ASSERT_LT(begin, end);
    const std::string page = withoutCarriageReturns(documentText("docs/queries.md"));
    EXPECT_NE(page.find("```c\n" + source.substr(begin, end - begin) + "```\n"), std::string::npos);
}

TEST(QueryDocument, TreeSelectsAProductSinceTuesday) {
    EXPECT_TRUE(isSelected(7, 1763424000, 1763424000));
    EXPECT_TRUE(isSelected(7, 1763000000, 1763424000));
    EXPECT_FALSE(isSelected(7, 1763000000, 1763423999));
    EXPECT_FALSE(isSelected(8, 1763424000, 1763424000));
}

} // namespace
