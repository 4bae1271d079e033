// The HTML report as it is written. What a browser makes of it is in tests/browser.
#include "tools/qzlogview/characters.h"
#include "tools/qzlogview/report/html_report.h"

#include <gtest/gtest.h>

#include <cstring>
#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/support/catalog_objects.h"
#include "tools/qzlogview/report/argument_json.h"
#include "tools/qzlogview/report/json_text.h"

namespace zantlog::view {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

constexpr char kOpenData[] = "<script type=\"application/json\" ";

Record recordOf(const char *text, const char *who = "") {
    Record record;
    record.fields.origin = ZANTLOG_ORIGIN_READER;
    record.fields.type = ZANTLOG_MSG_APPLICATION;
    record.fields.text = zantLogSafeStrdup(text);
    record.fields.who = zantLogSafeStrdup(who);
    return record;
}

size_t occurrences(const std::string &text, std::string_view of) {
    size_t count = 0;
    for (size_t at = text.find(of); at != std::string::npos; at = text.find(of, at + of.size())) {
        ++count;
    }
    return count;
}

// The data blocks that follow such an opening.
std::vector<json> blocksOf(const std::string &page, const std::string &opening) {
    std::vector<json> blocks;
    for (size_t at = page.find(kOpenData + opening); at != std::string::npos;
         at = page.find(kOpenData + opening, at + 1)) {
        const size_t begin = page.find('>', at) + 1;
        blocks.push_back(json::parse(page.substr(begin, page.find("</script>", begin) - begin)));
    }
    return blocks;
}

std::vector<json> recordBlocks(const std::string &page) {
    return blocksOf(page, "class=\"records\"");
}

json reportBlock(const std::string &page) {
    return blocksOf(page, "id=\"report\"").at(0);
}

json endBlock(const std::string &page) {
    return blocksOf(page, "id=\"end\"").at(0);
}

template <typename... Records> std::string pageOf(const ReportSettings &settings, const Records &...records) {
    std::ostringstream out;
    HtmlReport report(out, settings);
    (void)(report.take(records) && ...);
    report.finish();
    return out.str();
}

// ---- the page

TEST(HtmlReport, WithoutRecordsIsAWholePage) {
    const std::string page = pageOf({});
    EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n<html lang=\"en\">\n"));
    EXPECT_TRUE(page.ends_with("</body>\n</html>\n"));
    EXPECT_TRUE(recordBlocks(page).empty());
    EXPECT_EQ(endBlock(page), json({{"records", 0}}));
}

TEST(HtmlReport, LeavesNoPlaceUnfilled) {
    const std::string page = pageOf({});
    for (const char *place : {"@POLICY@", "@STYLE@", "@SCRIPT@", "@DATA@"}) {
        EXPECT_THAT(page, Not(HasSubstr(place)));
    }
}

TEST(HtmlReport, ForbidsEverythingButItsOwnScriptAndStyle) {
    const std::string page = pageOf({});
    EXPECT_THAT(page, HasSubstr("http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
                                "script-src 'sha256-"));
    EXPECT_THAT(page, HasSubstr("; style-src 'sha256-"));
    EXPECT_THAT(page, HasSubstr("; base-uri 'none'; form-action 'none'; require-trusted-types-for 'script'; "
                                "trusted-types 'none'\""));
    EXPECT_THAT(page, Not(HasSubstr("unsafe-")));
    EXPECT_LT(page.find("Content-Security-Policy"), page.find("<style>"));
}

TEST(HtmlReport, NamesNothingOfTheNetwork) {
    const std::string page = pageOf({});
    // The name of a vocabulary is no address.
    EXPECT_EQ(occurrences(page, "://"), occurrences(page, "'http://www.w3.org/2000/svg'"));
    EXPECT_THAT(page, Not(HasSubstr(" src=")));
    EXPECT_THAT(page, Not(HasSubstr("<link")));
}

TEST(HtmlReport, HoldsTitleSelectionAndZones) {
    ReportSettings settings;
    settings.title = "Log of shop";
    settings.selection = "severity >= 2";
    settings.zones = {{"Europe/Berlin", 3600}, {"", -12600}};
    EXPECT_EQ(reportBlock(pageOf(settings)),
              json::parse(R"({"title":"Log of shop","selection":"severity >= 2",
                              "zones":[["Europe/Berlin",3600],["",-12600]]})"));
}

// ---- records

TEST(HtmlReport, HoldsEveryFieldOfARecord) {
    Source source;
    source.path = "C:\\logs\\a.log";
    source.logSet = "night";
    std::strcpy(source.header.text, "host");
    source.header.tzOffset = -7200;
    Record record = recordOf("disk is full", "scanner");
    record.source = &source;
    record.offset = 8'589'934'592;
    record.fields.productId = 12;
    record.fields.originatorId = 3;
    record.fields.fid = 4;
    record.fields.sequence = 57;
    record.fields.timestamp = 1'763'249'000'123;
    record.fields.processId = 4242;
    record.fields.threadId = 777;
    record.fields.contextToken = zantLogSafeStrdup("token");
    record.fields.slot.level = 2;
    const json expected = json::parse(R"({
        "records": 1, "texts": ["token", "disk is full", "scanner", ""],
        "files": [["C:\\logs\\a.log", "host", "night", 7200]], "originators": [[12, 3, "", ""]],
        "time": 1763249000123, "type": 2, "level": 2, "originator": 0, "fid": 4, "sequence": 57,
        "process": 4242, "thread": 777, "token": 0, "text": 1, "who": 2, "context": 3, "outcome": 0,
        "message": 0, "arguments": 3, "file": 0, "offset": 8589934592})");
    EXPECT_EQ(recordBlocks(pageOf({}, record)), std::vector<json>{expected});
}

TEST(HtmlReport, HoldsTheLargestValues) {
    Record record = recordOf("x");
    record.offset = UINT64_MAX;
    record.fields.timestamp = UINT64_MAX;
    record.fields.productId = UINT32_MAX;
    record.fields.slot.level = INT32_MIN;
    const std::string page = pageOf({}, record);
    const json block = recordBlocks(page).at(0);
    EXPECT_THAT(page, HasSubstr("\"time\":18446744073709551615,"));
    EXPECT_THAT(page, HasSubstr("\"offset\":18446744073709551615"));
    EXPECT_EQ(block["originators"], json::parse(R"([[4294967295, 0, "", ""]])"));
    EXPECT_EQ(block["level"], INT32_MIN);
}

TEST(HtmlReport, ARecordWithoutSourceTextAndWhoIsOneToo) {
    Record record;
    const json block = recordBlocks(pageOf({}, record)).at(0);
    EXPECT_EQ(block["files"], json::parse(R"([["", "", "", null]])"));
    EXPECT_EQ(block["texts"], json::parse(R"([""])"));
}

TEST(HtmlReport, AnUnknownZoneIsNull) {
    Source source;
    source.header.tzOffset = -1;
    Record record = recordOf("x");
    record.source = &source;
    EXPECT_EQ(recordBlocks(pageOf({}, record)).at(0)["files"][0][3], nullptr);
}

TEST(HtmlReport, AHostThatFillsItsFieldEndsThere) {
    Source source;
    std::memset(source.header.text, 'h', sizeof source.header.text);
    Record record = recordOf("x");
    record.source = &source;
    EXPECT_EQ(recordBlocks(pageOf({}, record)).at(0)["files"][0][1], std::string(512, 'h'));
}

TEST(HtmlReport, TheContextOfAContextRecordIsNoLevel) {
    Record record;
    record.fields.type = ZANTLOG_MSG_CONTEXT;
    record.fields.text = zantLogSafeStrdup("the title");
    record.fields.slot.contextString = zantLogSafeStrdup("token");
    const json block = recordBlocks(pageOf({}, record)).at(0);
    EXPECT_EQ(block["level"], -1);
    EXPECT_EQ(block["texts"][block["context"].get<size_t>()], "token");
}

TEST(HtmlReport, OnlyAuditMessagesHaveAnOutcome) {
    Record audit = recordOf("login");
    audit.fields.type = ZANTLOG_MSG_AUDIT;
    audit.fields.outcome = 7;
    EXPECT_EQ(recordBlocks(pageOf({}, audit)).at(0)["outcome"], 7);
    Record application = recordOf("login");
    application.fields.outcome = 7;
    EXPECT_EQ(recordBlocks(pageOf({}, application)).at(0)["outcome"], 0);
}

TEST(HtmlReport, EqualTextsAndEqualColumnsAreWrittenOnce) {
    const Record a = recordOf("again", "me");
    const Record b = recordOf("again", "you");
    const json block = recordBlocks(pageOf({}, a, b)).at(0);
    EXPECT_EQ(block["records"], 2);
    EXPECT_EQ(block["texts"], json::parse(R"(["", "again", "me", "you"])"));
    EXPECT_EQ(block["text"], 1);
    EXPECT_EQ(block["who"], json::parse("[2, 3]"));
}

TEST(HtmlReport, AsksForNamesOnceABlock) {
    int asked = 0;
    ReportSettings settings;
    settings.names.product = [&](uint32_t product) {
        ++asked;
        return "product " + std::to_string(product);
    };
    settings.names.originator = [&](uint32_t product, uint32_t originator) {
        ++asked;
        return std::to_string(product) + " and <" + std::to_string(originator) + ">";
    };
    Record a = recordOf("x");
    a.fields.productId = 12;
    a.fields.originatorId = 3;
    Record b = recordOf("y");
    b.fields.productId = 12;
    b.fields.originatorId = 3;
    const json block = recordBlocks(pageOf(settings, a, b)).at(0);
    EXPECT_EQ(block["originators"], json::parse(R"([[12, 3, "product 12", "12 and <3>"]])"));
    EXPECT_EQ(asked, 2);
}

// ---- many records

TEST(HtmlReport, CountsEveryRecordAndKeepsTheirOrder) {
    std::ostringstream out;
    HtmlReport report(out, {});
    for (uint32_t i = 0; i < 10'000; ++i) {
        Record record = recordOf("same");
        record.fields.sequence = i;
        ASSERT_TRUE(report.take(record));
    }
    report.finish();
    const std::vector<json> blocks = recordBlocks(out.str());
    ASSERT_GT(blocks.size(), 1U);
    uint32_t next = 0;
    for (const json &block : blocks) {
        EXPECT_EQ(block["records"], block["sequence"].size());
        for (const json &sequence : block["sequence"]) {
            EXPECT_EQ(sequence, next++);
        }
    }
    EXPECT_EQ(next, 10'000U);
    EXPECT_EQ(endBlock(out.str()), json({{"records", 10'000}}));
}

TEST(HtmlReport, WritesWhileRecordsArrive) {
    std::ostringstream out;
    HtmlReport report(out, {});
    const auto begin = out.tellp();
    const std::string text(100'000, 'x');
    for (int i = 0; i < 30; ++i) {
        report.take(recordOf((text + std::to_string(i)).c_str()));
    }
    EXPECT_GT(out.tellp() - begin, 2'000'000);
}

TEST(HtmlReport, WantsNoMoreWhenTheStreamHasFailed) {
    std::ostringstream out;
    HtmlReport report(out, {});
    EXPECT_TRUE(report.take(recordOf("x")));
    out.setstate(std::ios::badbit);
    EXPECT_FALSE(report.take(recordOf("x")));
}

// ---- hostile texts

TEST(HtmlReport, NoTextOfARecordCanEndItsScriptElement) {
    const size_t scripts = occurrences(pageOf({}, recordOf("harmless")), "<script");
    for (const char *text : {"</script><script>alert(1)</script>", "<!--<script>", "-->", "<![CDATA[",
                             "<img src=x onerror=alert(1)>", "&lt;script&gt;", "</SCRIPT >"}) {
        const std::string page = pageOf({}, recordOf(text, text));
        EXPECT_EQ(occurrences(page, "<script"), scripts) << text;
        EXPECT_EQ(occurrences(page, "</script"), scripts) << text;
        EXPECT_THAT(page, Not(HasSubstr(text)));
        EXPECT_EQ(recordBlocks(page).at(0)["texts"][1], text);
    }
}

TEST(HtmlReport, NoTitleSelectionPathOrNameCanEither) {
    const std::string evil = "</script></title><script>alert(1)</script>";
    Source source;
    source.path = evil;
    source.logSet = evil;
    std::strcpy(source.header.text, evil.c_str());
    Record record = recordOf("x");
    record.source = &source;
    ReportSettings settings;
    settings.title = evil;
    settings.selection = evil;
    settings.zones = {{evil, 0}};
    settings.names.product = [&](uint32_t) { return evil; };
    settings.names.originator = [&](uint32_t, uint32_t) { return evil; };
    const std::string page = pageOf(settings, record);
    EXPECT_THAT(page, Not(HasSubstr("<script>alert")));
    EXPECT_EQ(occurrences(page, "</title>"), 1U);
    EXPECT_EQ(reportBlock(page)["title"], evil);
    EXPECT_EQ(recordBlocks(page).at(0)["files"][0][0], evil);
}

TEST(HtmlReport, ATextOfAMegabyteIsThereWhole) {
    const std::string text = std::string(1 << 20, '<') + "end";
    const json block = recordBlocks(pageOf({}, recordOf(text.c_str()))).at(0);
    EXPECT_EQ(block["texts"][1], text);
}

TEST(JsonText, EscapesWhatAScriptElementCouldMisread) {
    EXPECT_EQ(jsonText("<a>&\"\\/"), R"("\u003ca\u003e\u0026\"\\/")");
    EXPECT_EQ(jsonText("\xE2\x80\xA8\xE2\x80\xA9\xE2\x80\xA7"), "\"\\u2028\\u2029\xE2\x80\xA7\"");
    EXPECT_EQ(jsonText(std::string_view("a\0b\x1F\n", 5)), R"("a\u0000b\u001f\n")");
    EXPECT_EQ(jsonText(""), "\"\"");
}

TEST(JsonText, KeepsUtf8) {
    EXPECT_EQ(jsonText("gr\xC3\xBC\xC3\x9F \xE2\x82\xAC \xF0\x9F\x92\xBE"),
              "\"gr\xC3\xBC\xC3\x9F \xE2\x82\xAC \xF0\x9F\x92\xBE\"");
}

TEST(JsonText, ReplacesWhatIsNotUtf8) {
    EXPECT_EQ(jsonText("a\xFFz"), "\"a\xEF\xBF\xBDz\"");
    // Half of a surrogate pair.
    EXPECT_EQ(jsonText("\xED\xA0\x80"), "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"");
    // A character that is cut short by the end, and by the next one.
    EXPECT_EQ(jsonText("\xE2\x82"), "\"\xEF\xBF\xBD\"");
    EXPECT_EQ(jsonText("\xE2\x80<"), "\"\xEF\xBF\xBD\\u003c\"");
    // '<' in two bytes.
    EXPECT_EQ(jsonText("\xC0\xBC"), "\"\xEF\xBF\xBD\xEF\xBF\xBD\"");
}

TEST(Utf8Of, ConvertsPairsAndReplacesHalves) {
    EXPECT_EQ(utf8Of(L""), "");
    EXPECT_EQ(utf8Of(L"a\u00FC\u20AC"), "a\xC3\xBC\xE2\x82\xAC");
    const wchar_t pair[] = {0xD83D, 0xDCBE, 0};
    EXPECT_EQ(utf8Of(pair), "\xF0\x9F\x92\xBE");
    const wchar_t halves[] = {0xDCBE, 'x', 0xD83D, 0};
    EXPECT_EQ(utf8Of(halves), "\xEF\xBF\xBDx\xEF\xBF\xBD");
}

// ---- arguments

TEST(ArgumentJson, OfNoArgumentsIsEmpty) {
    test::CatalogObject object;
    EXPECT_EQ(argumentJson(*object.lis()), "");
}

TEST(ArgumentJson, HoldsEveryKind) {
    test::CatalogObject inner;
    inner.unsignedNumber(18'446'744'073'709'551'615U).utf8("in");
    test::CatalogObject object(4711);
    object.wideCharacter(0x20AC)
        .signedNumber(-5, 32)
        .real(3.25)
        .pointer(4096)
        .wideString(L"\u00FC<")
        .error(5)
        .error(6, ZANTLIS_OS_ERROR_WIDE)
        .dateTime(1'763'249'000)
        .nested(inner)
        .native("C:");
    EXPECT_EQ(
        json::parse(argumentJson(*object.lis())),
        json::parse(R"json([["character", "€"], ["signed", "-5"], ["double", "3.25"], ["pointer", "0x1000"],
                              ["wide text", "ü<"], ["error code", "5"], ["error code (wide)", "6"],
                              ["date and time", "1763249000"],
                              ["nested arguments", [["unsigned", "18446744073709551615"], ["UTF-8 text", "in"]]],
                              ["text", "C:"]])json"));
}

TEST(ArgumentJson, NullTextsAreEmpty) {
    test::CatalogObject object;
    object.wideString(nullptr).utf8(nullptr).native(nullptr);
    EXPECT_EQ(argumentJson(*object.lis()), R"([["wide text",""],["UTF-8 text",""],["text",""]])");
}

TEST(HtmlReport, HoldsMessageIdAndArguments) {
    test::CatalogObject object(4711);
    object.utf8("</script>");
    Record record = recordOf("");
    record.fields.lis = *object.lis();
    const std::string page = pageOf({}, record);
    record.fields.lis = {}; // the object's own
    const json block = recordBlocks(page).at(0);
    EXPECT_EQ(block["message"], 4711);
    EXPECT_EQ(json::parse(block["texts"][block["arguments"].get<size_t>()].get<std::string>()),
              json::parse(R"([["UTF-8 text", "</script>"]])"));
    EXPECT_EQ(occurrences(page, "</script>"), occurrences(pageOf({}, recordOf("")), "</script>"));
}

} // namespace
} // namespace zantlog::view
