// qzlogger as its users meet it: command lines in, log files and words out.
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/localizer_library.h"
#include "tests/api/product_fixture.h"
#include "tests/support/log_folder.h"
#include "tests/tools/support/run_tool.h"

using namespace zantlog::test;

namespace {

using Arguments = std::vector<std::string>;

class LoggerTest : public ProductTest {
protected:
    // With the ids of the product in front.
    ToolRun log(const Arguments &arguments, const std::string &input = "") {
        Arguments all = {"--product", "12", "--originator", "3"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        return runTool("qzlogger", all, input);
    }

    void expectLogged(const Arguments &arguments, const std::string &input = "") {
        const ToolRun run = log(arguments, input);
        EXPECT_EQ(run.exitCode, 0) << run.error;
        EXPECT_EQ(run.error, "");
        EXPECT_EQ(run.output, "");
    }

    void expectUsageError(const Arguments &arguments, const std::string &words) {
        const ToolRun run = log(arguments);
        EXPECT_EQ(run.exitCode, 2) << words;
        EXPECT_NE(run.error.find(words), std::string::npos) << run.error;
        EXPECT_NE(run.error.find("--help"), std::string::npos) << run.error;
        EXPECT_EQ(run.output, "");
        EXPECT_TRUE(logNames().empty()) << words;
    }

    // The fields behind the numbers, one record each.
    std::vector<std::string> rests() const {
        std::vector<std::string> all;
        for (const RecordLine &record : records()) {
            all.push_back(record.rest);
        }
        return all;
    }
};

using Rests = std::vector<std::string>;

std::string bytes(const char *text, size_t length) {
    return std::string(text, length);
}

} // namespace

TEST_F(LoggerTest, ApplicationMessage) {
    expectLogged({"--app", "--severity", "2", "disk C: is full"});
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].type, 2u);
    EXPECT_EQ(records()[0].productId, 12u);
    EXPECT_EQ(records()[0].originatorId, 3u);
    EXPECT_EQ(records()[0].sequence, 1u);
    EXPECT_EQ(records()[0].rest, "0:,15:disk C: is full,0:,2,(0|)");
}

TEST_F(LoggerTest, ApplicationMessageUnlessToldOtherwise) {
    expectLogged({"--app", "--who", "backup", "x"});
    EXPECT_EQ(rests(), Rests{"0:,1:x,6:backup,0,(0|)"});
}

TEST_F(LoggerTest, DiagnosticMessage) {
    setting("Default", "DiagnosticLevel", "6");
    expectLogged({"--diag", "x"});
    expectLogged({"--diag", "--level", "6", "--who", "backup", "y"});
    ASSERT_EQ(records().size(), 2u);
    EXPECT_EQ(records()[0].type, 1u);
    EXPECT_EQ(rests(), (Rests{"0:,1:x,8:qzlogger,1,(0|)", "0:,1:y,6:backup,6,(0|)"}));
}

TEST_F(LoggerTest, DebugMessage) {
    setting("Default", "DebugLevel", "6");
    expectLogged({"--debug", "x"});
    expectLogged({"--debug", "--level", "3", "--who", "backup", ""});
    ASSERT_EQ(records().size(), 2u);
    EXPECT_EQ(records()[0].type, 0u);
    EXPECT_EQ(rests(), (Rests{"0:,1:x,8:qzlogger,1", "0:,0:,6:backup,3"}));
}

TEST_F(LoggerTest, AuditMessage) {
    expectLogged({"--audit", "--message-id", "4711", "--subject", "mary", "--outcome", "5", "login"});
    expectLogged({"--audit", "--message-id", "4711", "login"});
    ASSERT_EQ(records().size(), 2u);
    EXPECT_EQ(records()[0].type, 4u);
    EXPECT_EQ(rests(), (Rests{"0:,0:,4:mary,5,(1|A5:login|)", "0:,0:,0:,0,(1|A5:login|)"}));
}

TEST_F(LoggerTest, SecureAuditMessagesGoToTheEventLogAlone) {
    setting("Default", "NtEventLogSourceName", "Application");
    const ToolRun run = log({"--secure-audit", "--message-id", "4711", "--subject", "mary", "login"});
    EXPECT_TRUE(logNames().empty());
    EXPECT_EQ(run.exitCode, 0) << run.error;
}

TEST_F(LoggerTest, ApplicationMessagesAreEvents) {
    const OfferedLocalizer offered;
    setting("Default", "NtEventLogSourceName", "Application");
    setting("Default", "NtEventLogCategory", "7");
    expectLogged({"--app", "--event-log", "--severity", "1", "disk C: is full"});
    expectLogged({"--app", "--event-log", "--severity", "2", "--message-id", "4711", "C:\xE2\x82\xAC"});
    EXPECT_EQ(records().size(), 2u);
}

TEST_F(LoggerTest, MessageIdMakesTheTextAnArgument) {
    setting("Default", "DiagnosticLevel", "6");
    expectLogged({"--app", "--message-id", "7", "--severity", "1", "x"});
    expectLogged({"--diag", "--message-id", "7", "y"});
    EXPECT_EQ(rests(), (Rests{"0:,0:,0:,1,(1|A1:x|)", "0:,0:,8:qzlogger,1,(1|A1:y|)"}));
}

TEST_F(LoggerTest, ArgumentsOfCatalogMessagesDependOnNoCodePage) {
    expectLogged({"--app", "--message-id", "7", "--from", "-"}, "\xE2\x82\xAC \xF0\x9F\x98\x80\n\n");
    EXPECT_EQ(rests(), (Rests{"0:,0:,0:,0,(1|A8:\xE2\x82\xAC \xF0\x9F\x98\x80|)", "0:,0:,0:,0,(1|A0:|)"}));
}

TEST_F(LoggerTest, TextsAreNeverFormats) {
    const std::string text = "100 %n %s %d %% %";
    setting("Default", "DebugLevel", "6");
    expectLogged({"--app", text});
    expectLogged({"--debug", text});
    EXPECT_EQ(rests(), (Rests{"0:,17:" + text + ",0:,0,(0|)", "0:,17:" + text + ",8:qzlogger,1"}));
}

TEST_F(LoggerTest, TextsMayLookLikeAnything) {
    expectLogged({"--app", "[a,b]"});
    expectLogged({"--app", "/var/log is full"});
    expectLogged({"--app", "--", "--app"});
    expectLogged({"--app", "*.log ?"});
    expectLogged({"--app", "quote \" and \\"});
    EXPECT_EQ(rests(),
              (Rests{"0:,5:[a,b],0:,0,(0|)", "0:,16:/var/log is full,0:,0,(0|)", "0:,5:--app,0:,0,(0|)",
                     "0:,7:*.log ?,0:,0,(0|)", "0:,13:quote \" and \\,0:,0,(0|)"}));
}

TEST_F(LoggerTest, ArgumentsAreUnicode) {
    expectLogged({"--app", "--who", "\xE6\x97\xA5", "\xE2\x82\xAC \xF0\x9F\x98\x80"});
    EXPECT_EQ(rests(), Rests{"0:,8:\xE2\x82\xAC \xF0\x9F\x98\x80,3:\xE6\x97\xA5,0,(0|)"});
}

TEST_F(LoggerTest, LinesOfStandardInput) {
    expectLogged({"--app", "--from", "-"}, "one\ntwo\r\n\nfour\n");
    ASSERT_EQ(records().size(), 4u);
    EXPECT_EQ(records()[0].sequence, 1u);
    EXPECT_EQ(records()[3].sequence, 4u);
    EXPECT_EQ(rests(),
              (Rests{"0:,3:one,0:,0,(0|)", "0:,3:two,0:,0,(0|)", "0:,0:,0:,0,(0|)", "0:,4:four,0:,0,(0|)"}));
}

TEST_F(LoggerTest, TheLastLineNeedsNoLineEnd) {
    expectLogged({"--app", "--from", "-"}, "one\nlast");
    EXPECT_EQ(rests(), (Rests{"0:,3:one,0:,0,(0|)", "0:,4:last,0:,0,(0|)"}));
}

TEST_F(LoggerTest, NoInputIsNoMessage) {
    expectLogged({"--app", "--from", "-"}, "");
    EXPECT_TRUE(records().empty());
}

TEST_F(LoggerTest, StandardInputIsBinary) {
    // Ctrl-Z ends no input; NUL cannot be logged and is replaced; CR inside a line stays.
    expectLogged({"--app", "--from", "-"}, bytes("a\x1A"
                                                 "b\nc\0d\ne\rf\n",
                                                 12));
    EXPECT_EQ(rests(), (Rests{"0:,3:a\x1A"
                              "b,0:,0,(0|)",
                              "0:,5:c\xEF\xBF\xBD"
                              "d,0:,0,(0|)",
                              "0:,3:e\rf,0:,0,(0|)"}));
}

TEST_F(LoggerTest, LinesThatAreNotUtf8AreReadInTheCodePage) {
    expectLogged({"--app", "--from", "-"}, "gr\xFC\xDF\ngr\xC3\xBC\n");
    EXPECT_EQ(rests(), (Rests{"0:,6:gr\xC3\xBC\xC3\x9F,0:,0,(0|)", "0:,4:gr\xC3\xBC,0:,0,(0|)"}));
}

TEST_F(LoggerTest, AByteOrderMarkIsNoText) {
    expectLogged({"--app", "--from", "-"}, "\xEF\xBB\xBFone\n\xEF\xBB\xBFtwo\n");
    EXPECT_EQ(rests(), (Rests{"0:,3:one,0:,0,(0|)", "0:,6:\xEF\xBB\xBFtwo,0:,0,(0|)"}));
}

TEST_F(LoggerTest, LongLinesAreWhole) {
    const std::string line(300000, 'x');
    expectLogged({"--app", "--from", "-"}, line + "\nshort\n");
    EXPECT_EQ(rests(), (Rests{"0:,300000:" + line + ",0:,0,(0|)", "0:,5:short,0:,0,(0|)"}));
}

TEST_F(LoggerTest, ManyLinesKeepTheirOrder) {
    std::string input;
    for (int line = 1; line <= 3000; ++line) {
        input += "line " + std::to_string(line) + "\n";
    }
    expectLogged({"--app", "--from", "-"}, input);
    const std::vector<RecordLine> all = records();
    ASSERT_EQ(all.size(), 3000u);
    EXPECT_EQ(all[0].rest, "0:,6:line 1,0:,0,(0|)");
    EXPECT_EQ(all[2999].rest, "0:,9:line 3000,0:,0,(0|)");
    for (uint32_t index = 0; index < 3000; ++index) {
        EXPECT_EQ(all[index].sequence, index + 1);
    }
}

TEST_F(LoggerTest, LinesOfAFile) {
    const ScopedFolder folder;
    const std::string name = folder.file("report \xC3\xA9.txt");
    const std::u8string path(name.begin(), name.end());
    std::ofstream(std::filesystem::path(path), std::ios::binary) << "one\r\ntwo";
    expectLogged({"--app", "--from", name});
    EXPECT_EQ(rests(), (Rests{"0:,3:one,0:,0,(0|)", "0:,3:two,0:,0,(0|)"}));
}

TEST_F(LoggerTest, AMissingFileIsNamedAndLeavesNoLogBehind) {
    const ToolRun run = log({"--app", "--from", "no such file"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.error, "qzlogger: cannot open \"no such file\": No such file or directory\n");
    EXPECT_TRUE(logNames().empty());
}

TEST_F(LoggerTest, SequenceNumbersGoOnFromTheGivenOne) {
    setting("Default", "DiagnosticLevel", "6");
    setting("Default", "DebugLevel", "6");
    expectLogged({"--app", "--sequence", "77", "--from", "-"}, "a\nb\n");
    expectLogged({"--diag", "--sequence", "0", "c"});
    expectLogged({"--debug", "--sequence", "4294967295", "--from", "-"}, "d\ne\n");
    expectLogged({"--audit", "--message-id", "1", "--sequence", "5", "f"});
    const std::vector<RecordLine> all = records();
    ASSERT_EQ(all.size(), 6u);
    const uint32_t expected[] = {77, 78, 0, 4294967295, 0, 5};
    for (size_t index = 0; index < 6; ++index) {
        EXPECT_EQ(all[index].sequence, expected[index]) << index;
    }
}

TEST_F(LoggerTest, MessagesAboveTheLevelAreNotedAndNotWritten) {
    setting("Default", "DiagnosticLevel", "2");
    const ToolRun run = log({"--diag", "--level", "3", "x"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.error, "qzlogger: note: level 3 is above the configured level 2: nothing is written\n");
    const ToolRun debug = log({"--debug", "--level", "1", "x"});
    EXPECT_EQ(debug.error, "qzlogger: note: level 1 is above the configured level 0: nothing is written\n");
    EXPECT_TRUE(records().empty());
}

TEST_F(LoggerTest, SinkFlagsAreTakenWhereTheyApply) {
    setting("Default", "DiagnosticLevel", "6");
    setting("Default", "NtEventLogSourceName", "Application");
    EXPECT_EQ(log({"--app", "--stdout", "--stderr", "--event-log", "x"}).exitCode, 0);
    EXPECT_EQ(log({"--diag", "--stdout", "--stderr", "x"}).exitCode, 0);
    EXPECT_EQ(records().size(), 2u);
}

TEST_F(LoggerTest, LogSet) {
    setting("LOGSET.nightly", "LogDirectory", logFolder());
    expectLogged({"--app", "--log-set", "nightly", "x"});
    ASSERT_EQ(logNames().size(), 1u);
    EXPECT_EQ(logNames()[0].substr(0, 11), "12-nightly-");
    ASSERT_EQ(lines().size(), 1u);
    EXPECT_EQ(lines()[0].substr(0, 6), "2,3,1,");
}

TEST_F(LoggerTest, ContextStampsItsTokenIntoAllMessages) {
    setting("Default", "DebugLevel", "6");
    expectLogged({"--app", "--context", "job-7", "--title", "nightly 100 % \xC3\xBC", "--from", "-"},
                 "one\n\xC3\xBC\n");
    expectLogged({"--debug", "--context", "job-8", "x"});
    expectLogged({"--audit", "--context", "job-9", "--message-id", "4711", "login"});
    EXPECT_EQ(rests(),
              (Rests{"0:,16:nightly 100 % \xC3\xBC,5:job-7,(1|S15:nightly 100 % \xFC|)",
                     "5:job-7,3:one,0:,0,(0|)", "5:job-7,2:\xC3\xBC,0:,0,(0|)", "0:,0:,5:job-8,(1|S0:|)",
                     "5:job-8,1:x,8:qzlogger,1", "0:,0:,5:job-9,(1|S0:|)", "5:job-9,0:,0:,0,(1|A5:login|)"}));
}

TEST_F(LoggerTest, UnknownLogSet) {
    const ToolRun run = log({"--app", "--log-set", "no such set", "x"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.error.find("product 12, originator 3, log set \"no such set\""), std::string::npos)
        << run.error;
    EXPECT_NE(run.error.find("(result 6)"), std::string::npos) << run.error;
}

TEST_F(LoggerTest, UnregisteredProduct) {
    unregister();
    const ToolRun run = log({"--app", "x"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.error,
              "qzlogger: cannot open the log of product 12, originator 3: the product or log set is not "
              "registered, or its configuration cannot be read (result 6); register it, or point the "
              "environment variable ZANTLOG_CFG_LOC to the right configuration\n");
}

TEST_F(LoggerTest, EmptyLogDirectory) {
    removeSetting("Default", "LogDirectory");
    const ToolRun run = log({"--app", "x"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.error.find("(result 53); set \"LogDirectory\""), std::string::npos) << run.error;
}

TEST_F(LoggerTest, WrongCommandLines) {
    expectUsageError({"x"}, "the kind of message is missing");
    expectUsageError({"--app", "--diag", "x"}, "--app and --diag exclude each other");
    expectUsageError({"--app"}, "there is no message: give a text");
    expectUsageError({"--app", "--from", "-", "x"}, "a text and --from exclude each other");
    expectUsageError({"--app", "two", "words"}, "words; put a text of several words in quotation marks");
    expectUsageError({"--app", "--bogus", "x"}, "--bogus");
    expectUsageError({"--app", "--severity", "5", "x"}, "--severity takes a number from 0 to 4, not \"5\"");
    expectUsageError({"--app", "--severity", "-1", "x"}, "--severity takes a number from 0 to 4, not \"-1\"");
    expectUsageError({"--diag", "--level", "0", "x"},
                     "--level takes a number from 1 to 6 with --diag, not \"0\"");
    expectUsageError({"--debug", "--level", "7", "x"}, "--level takes a number from 1 to 6 with --debug");
    expectUsageError({"--app", "--level", "2", "x"}, "--level does not go with --app");
    expectUsageError({"--diag", "--severity", "2", "x"}, "--severity does not go with --diag");
    expectUsageError({"--app", "--subject", "s", "x"}, "--subject does not go with --app");
    expectUsageError({"--app", "--outcome", "1", "x"}, "--outcome does not go with --app");
    expectUsageError({"--debug", "--message-id", "1", "x"}, "--message-id does not go with --debug");
    expectUsageError({"--audit", "--message-id", "1", "--who", "w", "x"}, "--who does not go with --audit");
    expectUsageError({"--audit", "--message-id", "1", "--stdout", "x"}, "--stdout does not go with --audit");
    expectUsageError({"--debug", "--stderr", "x"}, "--stderr does not go with --debug");
    expectUsageError({"--diag", "--event-log", "x"}, "--event-log does not go with --diag");
    expectUsageError({"--secure-audit", "--message-id", "1", "--sequence", "1", "x"},
                     "--sequence does not go with --secure-audit");
    expectUsageError({"--secure-audit", "--message-id", "1", "--log-set", "n", "x"},
                     "--log-set does not go with --secure-audit");
    expectUsageError({"--app", "--log-set", "night-ly", "x"},
                     "--log-set takes a name without \"-\", not \"night-ly\"");
    expectUsageError({"--app", "--log-set", "", "x"},
                     "--log-set takes the name of a log set, not an empty one");
    expectUsageError({"--secure-audit", "--message-id", "1", "--context", "t", "x"},
                     "--context does not go with --secure-audit");
    expectUsageError({"--app", "--title", "t", "x"}, "--title needs --context");
    expectUsageError({"--app", "--context", "", "x"}, "--context takes a token of ASCII characters");
    expectUsageError({"--app", "--context", "\xC3\xBC", "x"}, "--context takes a token of ASCII characters");
    expectUsageError({"--check-catalog", "x.msg"}, "--check-catalog logs nothing");
    expectUsageError({"--audit", "x"}, "--audit needs --message-id");
    expectUsageError({"--secure-audit", "x"}, "--secure-audit needs --message-id");
    expectUsageError({"--app", "--message-id", "0", "x"}, "--message-id takes a number from 1 to 4294967295");
    expectUsageError({"--app", "--sequence", "4294967296", "x"},
                     "--sequence takes a number from 0 to 4294967295");
    expectUsageError({"--app", "--sequence", "1x", "x"}, "not \"1x\"");
    expectUsageError({"--app", "x", "--who"}, "--who");
    expectUsageError({"--app", "--who", "a", "--who", "b", "x"}, "--who");
}

TEST_F(LoggerTest, IdsAreRequiredAndNotZero) {
    const ToolRun none = runTool("qzlogger", {"--app", "x"});
    EXPECT_EQ(none.exitCode, 2);
    EXPECT_NE(none.error.find("--product is missing"), std::string::npos) << none.error;
    const ToolRun one = runTool("qzlogger", {"--product", "12", "--app", "x"});
    EXPECT_EQ(one.exitCode, 2);
    EXPECT_NE(one.error.find("--originator is missing"), std::string::npos) << one.error;
    const ToolRun zero = runTool("qzlogger", {"--product", "0", "--originator", "3", "--app", "x"});
    EXPECT_EQ(zero.exitCode, 2);
    EXPECT_NE(zero.error.find("--product takes a number from 1 to 4294967295, not \"0\""), std::string::npos);
}

TEST_F(LoggerTest, LeadingZerosMakeNoOctalNumbers) {
    const ToolRun run = runTool("qzlogger", {"--product", "012", "--originator", "003", "--app", "x"});
    EXPECT_EQ(run.exitCode, 0) << run.error;
    ASSERT_EQ(records().size(), 1u);
    EXPECT_EQ(records()[0].originatorId, 3u);
}

TEST(LoggerHelp, BeginsWithExamples) {
    const ToolRun run = runTool("qzlogger", {"--help"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output.substr(0, 9), "Examples:");
    EXPECT_EQ(run.error, "");
    for (const char *option : {"--product", "--originator",   "--app",        "--diag",     "--debug",
                               "--audit",   "--secure-audit", "--severity",   "--level",    "--who",
                               "--subject", "--outcome",      "--message-id", "--sequence", "--log-set",
                               "--stdout",  "--stderr",       "--event-log",  "--from",     "--version"}) {
        EXPECT_NE(run.output.find(option), std::string::npos) << option;
    }
}

TEST(LoggerHelp, VersionIsTheLibrarys) {
    const ToolRun run = runTool("qzlogger", {"--version"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "qzlogger 3.9.0.3\n");
}

TEST_F(LoggerTest, TwoProcessesWriteOneFileInTheirOrder) {
    expectLogged({"--app", "first"});
    expectLogged({"--app", "second"});
    EXPECT_EQ(logNames().size(), 1u);
    EXPECT_EQ(rests(), (Rests{"0:,5:first,0:,0,(0|)", "0:,6:second,0:,0,(0|)"}));
    EXPECT_NE(records()[0].processId, records()[1].processId);
}
