// Command lines of the viewer; the examples of docs/qzlogview.md and of --help are some that it takes.
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tools/common/tool_error.h"
#include "tools/qzlogview/options.h"
#include "tools/qzlogview/where_parser.h"

using namespace zantlog::view;

namespace {

// Lines of all blocks of that language.
std::vector<std::string> linesOfBlocks(const std::string &language) {
    std::ifstream file(ZANTLOG_SOURCE_FOLDER "/docs/qzlogview.md");
    std::vector<std::string> lines;
    bool inside = false;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("```", 0) == 0) {
            inside = line == "```" + language;
        } else if (inside && !line.empty()) {
            lines.push_back(line);
        }
    }
    return lines;
}

// Words between blanks; quotation marks of either kind keep blanks together.
std::vector<std::string> wordsOf(const std::string &line) {
    std::vector<std::string> words;
    std::string word;
    char quote = '\0';
    for (const char character : line + " ") {
        if (quote == '\0' && (character == '"' || character == '\'')) {
            quote = character;
        } else if (character == quote) {
            quote = '\0';
        } else if (character == ' ' && quote == '\0') {
            if (!word.empty()) {
                words.push_back(word);
            }
            word.clear();
        } else {
            word += character;
        }
    }
    return words;
}

void expectTaken(const std::string &line) {
    std::vector<std::string> words = wordsOf(line);
    ASSERT_GT(words.size(), 1U);
    ASSERT_EQ(words.front(), "qzlogview");
    words.erase(words.begin());
    int exitCode = -1;
    const std::optional<ViewOptions> options = readViewOptions(words, &exitCode);
    ASSERT_TRUE(options.has_value()) << line;
    if (options->selection.where) {
        EXPECT_NO_THROW(parseWhere(*options->selection.where, {})) << line;
    }
}

} // namespace

TEST(ViewerOptions, OnePurposeAtATime) {
    int exitCode = -1;
    for (const std::vector<std::string> &words : {std::vector<std::string>{"-f", "--count"},
                                                  {"--verify", "--html", "x.html"},
                                                  {"--head", "1", "-n", "1"},
                                                  {"-f", "--reverse"},
                                                  {"--count", "--head", "1"},
                                                  {"--html", "x.html", "-n", "5"},
                                                  {"--verify", "--reverse"}}) {
        EXPECT_THROW((void)readViewOptions(words, &exitCode), zantlog::tools::ToolError) << words.front();
    }
    EXPECT_TRUE(readViewOptions({"-f", "-n", "5"}, &exitCode).has_value());
    EXPECT_TRUE(readViewOptions({"--reverse", "--head", "5"}, &exitCode).has_value());
}

TEST(ViewerDocument, CommandLines) {
    const std::vector<std::string> lines = linesOfBlocks("console");
    ASSERT_GE(lines.size(), 3U);
    for (const std::string &line : lines) {
        expectTaken(line);
    }
}

TEST(ViewerDocument, Expressions) {
    const std::vector<std::string> lines = linesOfBlocks("where");
    ASSERT_EQ(lines.size(), 3U);
    for (const std::string &line : lines) {
        EXPECT_NO_THROW(parseWhere(line, {})) << line;
    }
}

TEST(ViewerHelp, ItsExamplesAreCommandLines) {
    testing::internal::CaptureStdout();
    int exitCode = -1;
    EXPECT_FALSE(readViewOptions({"--help"}, &exitCode).has_value());
    std::istringstream help(testing::internal::GetCapturedStdout());
    EXPECT_EQ(exitCode, 0);
    int examples = 0;
    for (std::string line; std::getline(help, line);) {
        if (line.rfind("  qzlogview ", 0) == 0) {
            expectTaken(line.substr(2));
            ++examples;
        }
    }
    EXPECT_EQ(examples, 7);
}
