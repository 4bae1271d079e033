// Each output format byte for byte, on records written by hand.
#include "tools/qzlogview/printer.h"

#include <nlohmann/json.hpp>

#include "tests/tools/qzlogview/record_lines.h"
#include "tools/common/tool_error.h"

using namespace zantlog;
using namespace zantlog::view;
using namespace zantlog::view::test;

namespace {

constexpr char kTime[] = "2025-11-15 23:23:20.123";

class Printers : public testing::Test {
protected:
    std::string print(const std::string &line, OutputFormat format = OutputFormat::compact,
                      const std::vector<std::string> &fields = {}, bool colours = false) {
        const Entry entry = entryOf(source_, line);
        std::string out;
        makePrinter({format, fields, colours})->print(entry, &look_, &out);
        return out;
    }
    // A record with these last fields, behind the context token.
    static std::string record(int type, const std::string &rest) {
        return std::to_string(type) + ",12,3,3,57,1763249000123,4242,777," + rest;
    }

    Source source_ = productSource();
    Look look_{kUtc, nullptr};
};

} // namespace

TEST_F(Printers, CompactOfEveryType) {
    const std::string time = kTime;
    EXPECT_EQ(print(record(0, "0:,5:start,4:scan,3")), time + " debug 3 12/3 4242:777 scan: start\n");
    EXPECT_EQ(print(record(1, "0:,12:disk failure,7:scanner,2,(2|u32:5|S2:C:|)")),
              time + " diag 2  12/3 4242:777 scanner: disk failure [5, \"C:\"]\n");
    EXPECT_EQ(print(record(2, "0:,5:saved,0:,0,(0|)")), time + " info    12/3 4242:777 saved\n");
    EXPECT_EQ(print(record(2, "0:,5:saved,2:db,1,(0|)")), time + " warning 12/3 4242:777 db: saved\n");
    EXPECT_EQ(print(record(2, "4:a81f,5:saved,2:db,2,(0|)")),
              time + " error   12/3 4242:777 {a81f} db: saved\n");
    EXPECT_EQ(print(record(2, "0:,1:x,0:,3,(0|)")), time + " severe  12/3 4242:777 x\n");
    EXPECT_EQ(print(record(2, "0:,1:x,0:,4,(0|)")), time + " fatal   12/3 4242:777 x\n");
    EXPECT_EQ(print(record(3, "0:,11:night batch,4:a81f,(0|)")),
              time + " context 12/3 4242:777 {a81f} night batch\n");
    EXPECT_EQ(print(record(4, "0:,6:log in,3:amy,5,(0|)")),
              time + " audit   12/3 4242:777 amy: log in outcome 5\n");
}

TEST_F(Printers, CompactLevelsOfSeveralDigitsKeepABlank) {
    EXPECT_EQ(print(record(0, "0:,1:x,1:c,10")), std::string(kTime) + " debug 10 12/3 4242:777 c: x\n");
    EXPECT_EQ(print(record(1, "0:,1:x,1:c,999,(0|)")), std::string(kTime) + " diag 999 12/3 4242:777 c: x\n");
}

TEST_F(Printers, CompactWithoutATextHasNoBlankAtTheEnd) {
    const std::string time = kTime;
    EXPECT_EQ(print(record(2, "0:,0:,0:,0,(0|)")), time + " info    12/3 4242:777\n");
    EXPECT_EQ(print(record(2, "0:,0:,0:,0,(1|u32:5|)")), time + " info    12/3 4242:777 [5]\n");
    EXPECT_EQ(print(record(4, "0:,0:,0:,-1,(0|)")), time + " audit   12/3 4242:777 outcome -1\n");
}

TEST_F(Printers, CompactShowsTextsSafely) {
    EXPECT_EQ(print(record(2, "3:a\nb,5:a\n\x1b[m,3:w\nw,0,(0|)")),
              std::string(kTime) + " info    12/3 4242:777 {a\\nb} w\\nw: a\n    \\x1b[m\n");
}

TEST_F(Printers, CompactColoursSeverities) {
    const std::string begin = std::string(kTime) + " ";
    const auto coloured = [&](const std::string &line) {
        return print(line, OutputFormat::compact, {}, true);
    };
    EXPECT_EQ(coloured(record(2, "0:,1:x,0:,2,(0|)")), begin + "\x1b[31merror   \x1b[0m12/3 4242:777 x\n");
    EXPECT_EQ(coloured(record(2, "0:,1:x,0:,1,(0|)")), begin + "\x1b[33mwarning \x1b[0m12/3 4242:777 x\n");
    EXPECT_EQ(coloured(record(2, "0:,1:x,0:,0,(0|)")), begin + "info    12/3 4242:777 x\n");
    EXPECT_EQ(coloured(record(0, "0:,1:x,0:,7")), begin + "\x1b[2mdebug 7 \x1b[0m12/3 4242:777 x\n");
}

TEST_F(Printers, CompactNamesTheLogSet) {
    source_.header = {};
    source_.header.version = ZANTLOG_FORMAT_LOGSET;
    source_.header.productId = 12;
    source_.logSet = "night";
    EXPECT_EQ(print("2,3,57,1763249000123,4242,777,0:,1:x,0:,0,(0|)"),
              std::string(kTime) + " info    12/night 4242:777 x\n");
}

TEST_F(Printers, LongHasALineForEachFieldWithAValue) {
    EXPECT_EQ(print(record(1, "0:,3:a\nb,7:scanner,2,(1|u32:5|)"), OutputFormat::longForm),
              "time:           2025-11-15 23:23:20.123\n"
              "timestamp:      1763249000123\n"
              "type:           diagnostic\n"
              "level:          2\n"
              "product:        12\n"
              "originator:     3\n"
              "fileoriginator: 3\n"
              "sequence:       57\n"
              "pid:            4242\n"
              "tid:            777\n"
              "who:            scanner\n"
              "text:           a\n"
              "                b\n"
              "args:           [5]\n"
              "host:           buildhost\n"
              "version:        65543\n"
              "file:           C:\\logs\\a.log\n"
              "offset:         46\n"
              "\n");
}

TEST_F(Printers, LongOfChosenFields) {
    EXPECT_EQ(print(record(4, "0:,2:in,3:amy,-5,(0|)"), OutputFormat::longForm, {"who", "outcome", "level"}),
              "who:            amy\noutcome:        -5\n\n");
}

TEST_F(Printers, JsonIsTyped) {
    EXPECT_EQ(print(record(2, "4:a81f,6:\"a\"\n\\b,2:db,1,(2|i32:-5|S2:C:|)"), OutputFormat::json),
              "{\"time\":\"2025-11-15 23:23:20.123\",\"timestamp\":1763249000123,\"type\":\"application\","
              "\"severity\":1,\"product\":12,\"originator\":3,\"fileoriginator\":3,"
              "\"sequence\":57,\"pid\":4242,\"tid\":777,\"context\":\"a81f\",\"who\":\"db\","
              "\"text\":\"\\\"a\\\"\\n\\\\b\",\"args\":[{\"type\":\"signed\",\"value\":-5},"
              "{\"type\":\"native\",\"value\":\"C:\"}],\"host\":\"buildhost\",\"version\":65543,"
              "\"file\":\"C:\\\\logs\\\\a.log\",\"offset\":46}\n");
}

TEST_F(Printers, JsonIsValidForAnyBytes) {
    std::string text;
    for (int byte = 1; byte < 256; ++byte) {
        text += byte == '\r' ? '-' : static_cast<char>(byte);
    }
    const std::string line = print(record(2, "0:," + field(text) + ",0:,0,(1|" + "S2:\xC3\xFF|)"),
                                   OutputFormat::json, {"text", "args"});
    EXPECT_EQ(line.find('\n'), line.size() - 1);
    const nlohmann::json object = nlohmann::json::parse(line);
    EXPECT_EQ(object["text"].get<std::string>().substr(0, 9), "\x01\x02\x03\x04\x05\x06\x07\x08\t");
    EXPECT_EQ(object["args"][0]["value"], "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST_F(Printers, JsonHasNestedAndWideValues) {
    EXPECT_EQ(print(record(2, "0:,0:,0:,0,(4|(1|u64:18446744073709551615|),83.250000|964:16|C64:7|)"),
                    OutputFormat::json, {"text", "args"}),
              "{\"text\":\"\",\"args\":[{\"type\":\"list\",\"value\":[{\"type\":\"unsigned\",\"value\":"
              "18446744073709551615}]},{\"type\":\"double\",\"value\":3.25},{\"type\":\"pointer\",\"value\":"
              "\"0x10\"},{\"type\":\"time\",\"value\":7}]}\n");
}

TEST_F(Printers, CsvQuotesWhatNeedsIt) {
    std::string head;
    makePrinter({OutputFormat::csv, {"time", "text", "args"}, false})->begin(&head);
    EXPECT_EQ(head, "time,text,args\n");
    const auto csv = [&](const std::string &text) {
        return print(record(2, "0:," + field(text) + ",0:,0,(0|)"), OutputFormat::csv, {"text", "pid"});
    };
    EXPECT_EQ(csv("plain"), "plain,4242\n");
    EXPECT_EQ(csv("a,b"), "\"a,b\",4242\n");
    EXPECT_EQ(csv("say \"x\""), "\"say \"\"x\"\"\",4242\n");
    EXPECT_EQ(csv("a\nb"), "\"a\nb\",4242\n");
    EXPECT_EQ(csv("=1+1"), "=1+1,4242\n");
    EXPECT_EQ(csv("\x1b"), "\\x1b,4242\n");
    EXPECT_EQ(csv(""), ",4242\n");
}

TEST_F(Printers, CsvHasAllFieldsUnlessToldOtherwise) {
    std::string head;
    makePrinter({OutputFormat::csv, {}, false})->begin(&head);
    EXPECT_EQ(head,
              "time,timestamp,type,severity,level,product,originator,fileoriginator,logset,sequence,pid,"
              "tid,context,who,outcome,text,args,host,version,file,offset\n");
}

TEST_F(Printers, RawIsTheLineOfTheFile) {
    EXPECT_EQ(print(record(2, "0:,3:a\nb,0:,0,(0|)"), OutputFormat::raw), record(2, "0:,3:a\rb,0:,0,(0|)\n"));
    EXPECT_EQ(print(record(2, "0:,3:\x1b\xFF\t,0:,0,(0|)"), OutputFormat::raw),
              record(2, "0:,3:\x1b\xFF\t,0:,0,(0|)\n"));
}

TEST_F(Printers, FieldsStandBetweenTabs) {
    EXPECT_EQ(print(record(2, "0:,3:a\tb,0:,0,(2|u32:5|S2:C:|)"), OutputFormat::compact,
                    {"Time", "who", "TEXT", "args", "offset"}),
              std::string(kTime) + "\t\ta\\tb\t[5, \"C:\"]\t46\n");
    EXPECT_EQ(print(record(2, "0:,3:a\nb,0:,0,(0|)"), OutputFormat::compact, {"text"}), "a\\nb\n");
}

TEST(PrinterFields, AnUnknownOneIsAUsageErrorWithAHint) {
    EXPECT_NO_THROW(checkFields({"time", "ARGS", "FileOriginator"}));
    try {
        checkFields({"time", "contxt"});
        FAIL() << "no error";
    } catch (const tools::ToolError &error) {
        EXPECT_EQ(error.code(), 2);
        EXPECT_NE(std::string(error.what()).find("\"contxt\""), std::string::npos);
        EXPECT_NE(std::string(error.what()).find("context"), std::string::npos) << error.what();
    }
}
