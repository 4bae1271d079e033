// Writes a page for the browser tests to standard output: report_sample COUNT, or report_sample hostile.
#include <charconv>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>

#include "tools/qzlogview/report/html_report.h"

namespace {

using zantlog::view::HtmlReport;
using zantlog::view::Record;
using zantlog::view::ReportSettings;
using zantlog::view::Source;

constexpr uint64_t kStart = 1'772'366'400'000; // 2026-03-01 12:00:00 UTC

struct Line {
    uint64_t time;
    uint32_t type;
    int32_t level;
    uint32_t originator;
    std::string who;
    std::string text;
};

void give(HtmlReport *report, const Source &source, uint32_t number, const Line &line) {
    Record record;
    record.source = &source;
    record.offset = 100 + uint64_t{number} * 90;
    record.fields.origin = ZANTLOG_ORIGIN_READER;
    record.fields.type = line.type;
    record.fields.productId = 12;
    record.fields.originatorId = line.originator;
    record.fields.fid = line.originator;
    record.fields.sequence = number + 1;
    record.fields.timestamp = line.time;
    record.fields.processId = 4242;
    record.fields.threadId = 700 + number % 8;
    record.fields.text = zantLogSafeStrdup(line.text.c_str());
    record.fields.who = zantLogSafeStrdup(line.who.c_str());
    record.fields.slot.level = line.level;
    report->take(record);
}

// Mostly quiet, with a storm of errors after two thirds; deterministic.
Line ordinaryLine(uint32_t i, uint32_t count) {
    const char *const components[] = {"scanner", "backup", "scheduler", "disk watch", "mail"};
    const uint32_t dice = (i * 2'654'435'761U) >> 16;
    const bool storm = i > count / 3 * 2 && i < count / 3 * 2 + count / 20;
    Line line{kStart + uint64_t{i} * 864 + dice % 700, 2, 0, 3 + dice % 3, components[dice % 5], {}};
    if (dice % 4 == 0) {
        line.type = dice % 8 == 0 ? ZANTLOG_MSG_DEBUG : ZANTLOG_MSG_DIAGNOSTIC;
        line.level = static_cast<int32_t>(1 + dice % 6);
        line.text =
            "step " + std::to_string(i) + " of the nightly run took " + std::to_string(dice % 900) + " ms";
    } else if (storm || dice % 97 == 0) {
        line.level = storm ? static_cast<int32_t>(2 + dice % 3) : 1;
        line.text = "disk C: is " + std::to_string(80 + dice % 20) + " % full, file " + std::to_string(i);
    } else if (dice % 31 == 0) {
        line.type = ZANTLOG_MSG_AUDIT;
        line.who = "mary";
        line.text = "login from station " + std::to_string(dice % 40);
    } else {
        line.text =
            "backup of volume " + std::to_string(dice % 26) + " finished, " + std::to_string(i) + " files";
    }
    return line;
}

void giveHostileLines(HtmlReport *report, const Source &source) {
    const std::string texts[] = {
        "</script><script>window.attacked = 1</script>",
        "<!--<script>",
        "<img src=x onerror=\"window.attacked = 2\">",
        "]]>&lt;b&gt;\"'`${window.attacked = 3}",
        "right \xE2\x80\xAE"
        "to left, zero\xE2\x80\x8Bwidth, bell \x07, line\nline",
        "not UTF-8: \xFF\xFE \xED\xA0\x80",
        "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xF0\x9F\x92\xBE \xE2\x80\xA8 end",
        std::string(1 << 20, 'x') + "<END>",
    };
    uint32_t number = 0;
    for (const std::string &text : texts) {
        give(report, source, number, {kStart + number * 1000, 2, 2, 3, text.substr(0, 200), text});
        ++number;
    }
}

void write(const std::string &what) {
    const bool hostile = what == "hostile";
    Source source;
    source.path = hostile ? "C:\\logs\\<b>\"x\".log" : "C:\\logs\\zantlog_12_3_20260301.log";
    std::strcpy(source.header.text, hostile ? "<i>host" : "nightingale");
    source.header.tzOffset = -3600;
    ReportSettings settings;
    settings.title = hostile ? "</title><script>window.attacked = 4</script>" : "Log of shop";
    settings.selection = hostile ? "text contains \"</script><b>\"" : "product 12, 1 March 2026, every type";
    settings.zones = {{"Europe/Berlin", 3600}, {"UTC", 0}};
    settings.names.product = [](uint32_t) { return "shop"; };
    settings.names.originator = [hostile](uint32_t, uint32_t originator) {
        return hostile ? "<option>" : originator == 3 ? "till" : originator == 4 ? "warehouse" : "";
    };
    HtmlReport report(std::cout, settings);
    uint32_t count = 0;
    std::from_chars(what.data(), what.data() + what.size(), count);
    for (uint32_t i = 0; i < count; ++i) {
        give(&report, source, i, ordinaryLine(i, count));
    }
    if (hostile) {
        giveHostileLines(&report, source);
    }
    report.finish();
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::cerr << "usage: report_sample COUNT | report_sample hostile\n";
        return 2;
    }
    std::ios::sync_with_stdio(false);
    write(argv[1]);
    return std::cout.good() ? 0 : 1;
}
