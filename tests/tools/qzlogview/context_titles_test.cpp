// Titles of contexts, from the files that hold them.
#include "tools/qzlogview/context_titles.h"

#include "tests/tools/qzlogview/record_lines.h"

using namespace zantlog::view;
using namespace zantlog::view::test;
using zantlog::test::ScopedFolder;

namespace {

constexpr uint64_t kTime = 1763249000000;

std::string contextLine(const std::string &token, const std::string &title) {
    return "3,12,3,3,1," + std::to_string(kTime) + ",4242,777,0:," + field(title) + "," + field(token) +
           ",(0|)\n";
}

using Names = std::vector<ContextName>;

} // namespace

TEST(ContextTitles, AreFoundInAnyOfTheFiles) {
    const ScopedFolder folder;
    const std::vector<Source> sources = {
        fileOf(folder, "a.log",
               kProductHeader + recordLine(kTime, 1, "x") + "\n3,damage\n" +
                   contextLine("a81f", "night batch")),
        fileOf(folder, "b.log",
               kProductHeader + contextLine("other", "no") + contextLine("b2", "day batch"))};
    EXPECT_EQ(contextTitles(sources, {"b2", "none", "a81f", "b2"}),
              (Names{{"b2", "day batch"}, {"a81f", "night batch"}}));
    EXPECT_EQ(contextTitles(sources, {}), Names{});
    EXPECT_EQ(contextTitles({}, {"b2"}), Names{});
}

TEST(ContextTitles, TheFirstOneCounts) {
    const ScopedFolder folder;
    const std::vector<Source> sources = {
        fileOf(folder, "a.log", kProductHeader + contextLine("t", "first") + contextLine("t", "again"))};
    EXPECT_EQ(contextTitles(sources, {"t"}), (Names{{"t", "first"}}));
}

TEST(ContextTitles, AFileThatHasGoneIsPassed) {
    const ScopedFolder folder;
    const std::vector<Source> sources = {fileOf(folder, "a.log", kProductHeader + contextLine("t", "gone")),
                                         fileOf(folder, "b.log", kProductHeader + contextLine("t", "there"))};
    ASSERT_TRUE(zantlog::test::removeFile(folder.file("a.log")));
    EXPECT_EQ(contextTitles(sources, {"t"}), (Names{{"t", "there"}}));
}

TEST(ContextTitles, AreShownSafely) {
    std::string out;
    appendContextTitles({{"a81f", "night batch"}, {"x\n", "a\nb\x1b"}}, &out);
    EXPECT_EQ(out, "context a81f: night batch\ncontext x\\n: a\n    b\\x1b\n");
}
