// qzlogger with the localisation library: checks of catalogs, and messages on the console.
#include <string>

#include <gtest/gtest.h>

#include "tests/api/localizer_library.h"
#include "tests/api/product_fixture.h"
#include "tests/support/files.h"
#include "tests/tools/support/run_tool.h"

using namespace zantlog::test;

namespace {

class CatalogToolTest : public ProductTest {
protected:
    std::string file(const std::string &name, const std::string &text) const {
        writeFileBytes(folder_.file(name), text);
        return folder_.file(name);
    }

    ScopedFolder folder_;
};

} // namespace

TEST_F(CatalogToolTest, GoodCatalogsAreNothingToSay) {
    const OfferedLocalizer offered;
    const ToolRun run =
        runTool("qzlogger", {"--check-catalog", file("a.msg", "1 = one\n"), file("b.msg", "# nothing\n")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, "");
}

TEST_F(CatalogToolTest, DefectsAreNamedByFileAndLine) {
    const OfferedLocalizer offered;
    const std::string good = file("a.msg", "1 = one\n");
    const std::string bad = file("b.msg", "1 = one\n1 = two\nthree\n");
    const std::string missing = folder_.file("c.msg");
    const ToolRun run = runTool("qzlogger", {"--check-catalog", good, bad, missing});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, bad + ":3: a line is \"id = text\"; the \"=\" is missing\n" + bad +
                             ":2: this id stands in line 1 already\n" + "qzlogger: cannot read \"" + missing +
                             "\": it is missing, not to be opened, or longer than 8 MiB\n");
}

TEST_F(CatalogToolTest, WithoutTheLibraryNothingCanBeChecked) {
    const ToolRun run = runTool("qzlogger", {"--check-catalog", file("a.msg", "1 = one\n")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.error.find("zantLogFormatMsg_3.dll cannot be loaded"), std::string::npos) << run.error;
}

TEST_F(CatalogToolTest, CheckNeedsAFile) {
    EXPECT_EQ(runTool("qzlogger", {"--check-catalog"}).exitCode, 2);
}

TEST_F(CatalogToolTest, MessagesAreOnTheStreamsInTheLongForm) {
    const OfferedLocalizer offered;
    const ToolRun run =
        runTool("qzlogger", {"--product", "12", "--originator", "3", "--app", "--who", "backup", "--severity",
                             "1", "--stdout", "--stderr", "disk C: is full"});
    EXPECT_EQ(run.exitCode, 0);
    // The time is the one of the user's locale.
    const std::string expected = " [application, warning 1] originator 3, backup: disk C: is full\n";
    EXPECT_NE(run.output.find(expected), std::string::npos) << run.output;
    EXPECT_EQ(run.error, run.output);
}
