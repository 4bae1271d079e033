#include "tests/time_travel/traveller.h"

#include <gtest/gtest.h>

#include "logfile/os/os_thread.h"
#include "tests/sim/sim.h"
#include "tests/support/log_folder.h"

namespace zantlog::test {

namespace {

WriterRules withPrefix(WriterRules rules) {
    rules.prefix = rules.logSet ? "12-trade-" : "12-3-" + std::to_string(zantLogHostId()) + "-";
    return rules;
}

std::string modeText(uint32_t mode) {
    char text[ZANTLOG_ROLLOVER_MODE_TEXT] = "";
    return RolloverModeEnumToSettingString(mode, text);
}

std::string clockText(int64_t seconds) {
    return std::to_string(seconds / 3600) + ":" + std::to_string(seconds % 3600 / 60);
}

// The fifth field of a product file's record, the third of a log set's.
uint32_t sequenceOf(std::string line, bool logSet) {
    for (int fields = logSet ? 2 : 4; fields > 0; --fields) {
        line = line.substr(line.find(',') + 1);
    }
    return static_cast<uint32_t>(std::stoul(line));
}

} // namespace

Traveller::Traveller(const WriterRules &rules, const sim::TimeZone &zone, int64_t start)
    : zone_(zone), rules_(withPrefix(rules)),
      model_(
          [this] {
              rules_.headerLength = [this](int64_t now) { return headerLength(now); };
              return rules_;
          }(),
          zone) {
    setEnvironment("TZ", nullptr);
    sim::machineZone() = zone;
    sim::clock().setSeconds(start);
    const std::string root = rules.logSet ? "LOGSET.trade." : "Default.";
    const std::string product = folder_.file("product.conf");
    writeFileBytes(product, root + "LogDirectory=" + folder_.path() + "\\logs\r\n" + root +
                                "RolloverMode=" + modeText(rules.mode) + "\r\n" + root +
                                "MaxLogFileSizeKB=" + std::to_string(rules.maximumSizeKB) + "\r\n" + root +
                                "RolloverPeriodInSeconds=" + std::to_string(rules.period) + "\r\n" + root +
                                "RolloverAtLocalTime=" + clockText(rules.timeOfDay) + "\r\n");
    writeFileBytes(GetZantLogCfgLoc(), "12.Configuration=" + product + "\r\n12.Names=traveller\r\n");
    openLog();
}

Traveller::~Traveller() {
    zantLogClose(&handle_);
    writeFileBytes(GetZantLogCfgLoc(), "");
    sim::machineZone() = sim::TimeZone{};
}

void Traveller::openLog() {
    handle_ = {};
    model_.open(sim::clock().seconds());
    const uint32_t result =
        rules_.logSet ? zantLogOpenLogSet(12, 3, "trade", &handle_) : zantLogOpen(12, 3, &handle_);
    ASSERT_EQ(result, 0u);
}

void Traveller::restart() {
    EXPECT_EQ(zantLogClose(&handle_), 0u);
    openLog();
}

void Traveller::logAt(int64_t now) {
    sim::clock().setSeconds(now);
    log();
}

// What stands in a header of this moment: UTC minus local time is its offset.
size_t Traveller::headerLength(int64_t now) const {
    std::tm local{};
    sim::breakDownUtc(now, &local);
    local.tm_isdst = -1;
    const int64_t offset = sim::composeLocal(zone_, &local) - now;
    char host[512];
    EXPECT_EQ(osGetHostName(host, sizeof host), 0);
    const std::string numbers = rules_.logSet ? "65544," : "65543,12,3," + std::to_string(now) + ",";
    return ("$Header " + numbers + std::to_string(offset) + "," + host + "\n").size();
}

std::string Traveller::nextLine(const std::string &text) {
    const std::string ids = rules_.logSet ? "2,3," : "2,12,3,3,";
    return ids + std::to_string(++sequence_) + "," +
           std::to_string(sim::clock().now() / sim::kUnitsPerMillisecond) + "," +
           std::to_string(os::processId()) + "," + std::to_string(os::threadId()) + ",0:," +
           std::to_string(text.size()) + ":" + text + ",0:,2,(0|)\n";
}

void Traveller::log() {
    const std::string text(200, 'x');
    const std::string line = nextLine(text);
    const std::string name =
        model_.write(sim::clock().now() / sim::kUnitsPerMillisecond, sequence_, line.size());
    ASSERT_EQ(zantLogAppMsg2(&handle_, sequence_, 0, 2, 0, "%s", text.c_str()), 0u);
    const std::string bytes = fileBytes(folder_.file("logs\\" + name));
    ASSERT_TRUE(bytes.size() >= line.size() && bytes.substr(bytes.size() - line.size()) == line)
        << "message " << sequence_ << " is not at the end of " << name << " at " << sim::clock().seconds();
}

std::vector<std::string> Traveller::files() const {
    std::vector<std::string> rests;
    for (const std::string &name : fileNames(folder_.file("logs"))) {
        rests.push_back(name.substr(rules_.prefix.size()));
    }
    return rests;
}

void Traveller::expectFilesOfModel() const {
    std::vector<std::string> names;
    for (const auto &[name, file] : model_.files()) {
        names.push_back(name.substr(rules_.prefix.size()));
        const std::vector<std::string> lines = linesOf(fileBytes(folder_.file("logs\\" + name)));
        ASSERT_EQ(lines.size(), file.records.size() + 1) << name;
        EXPECT_EQ(lines[0].substr(0, 8), "$Header ") << name;
        for (size_t i = 0; i < file.records.size(); ++i) {
            EXPECT_EQ(sequenceOf(lines[i + 1], rules_.logSet), file.records[i]) << name;
        }
    }
    EXPECT_EQ(files(), names);
}

int64_t utc(int year, int month, int day, int hour, int minute, int second) {
    return sim::daysOfDate(year, month - 1, day) * 86400 + hour * 3600 + minute * 60 + second;
}

} // namespace zantlog::test
