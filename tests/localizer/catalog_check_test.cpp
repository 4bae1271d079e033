#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/localizer/localizer_fixture.h"

using namespace zantlog::test;

namespace {

using Lines = std::vector<std::pair<uint32_t, std::string>>;

void keep(void *context, uint32_t line, const char *what) {
    static_cast<Lines *>(context)->emplace_back(line, what);
}

} // namespace

class CatalogCheckTest : public LocalizerTest {};

TEST_F(CatalogCheckTest, GoodFileHasNoDefects) {
    catalog("default", "1 = one {1}\n# comment\nerror = Fehler\n");
    Lines defects;
    uint32_t count = 77;
    EXPECT_EQ(zantLogCheckCatalog(catalogPath("default").c_str(), keep, &defects, &count), 0u);
    EXPECT_EQ(count, 0u);
    EXPECT_TRUE(defects.empty());
}

TEST_F(CatalogCheckTest, EachMalformedLineIsNamed) {
    catalog("default", "1 = one\nnothing\n2 = {x}\n\n1 = again\n3 = \\q\n");
    Lines defects;
    uint32_t count = 0;
    EXPECT_EQ(zantLogCheckCatalog(catalogPath("default").c_str(), keep, &defects, &count), 0u);
    EXPECT_EQ(count, 4u);
    EXPECT_EQ(defects, (Lines{{2, "a line is \"id = text\"; the \"=\" is missing"},
                              {3, "a place is written {1} to {99}, or {1:x} with a format behind the number"},
                              {6, "behind a \"\\\" stands n, t, s or another \"\\\""},
                              {5, "this id stands in line 1 already"}}));
    count = 0;
    EXPECT_EQ(zantLogCheckCatalog(catalogPath("default").c_str(), nullptr, nullptr, &count), 0u);
    EXPECT_EQ(count, 4u);
    EXPECT_EQ(zantLogCheckCatalog(catalogPath("default").c_str(), nullptr, nullptr, nullptr), 0u);
}

TEST_F(CatalogCheckTest, FilesThatCannotBeRead) {
    uint32_t count = 77;
    EXPECT_EQ(zantLogCheckCatalog(catalogPath("none").c_str(), nullptr, nullptr, &count), 1u);
    EXPECT_EQ(count, 0u);
    catalog("default", "1 = x\n");
    setFileLength(catalogPath("default"), 8 * 1024 * 1024 + 1);
    EXPECT_EQ(zantLogCheckCatalog(catalogPath("default").c_str(), nullptr, nullptr, &count), 1u);
    EXPECT_EQ(zantLogCheckCatalog(nullptr, nullptr, nullptr, &count), 3u);
}
