#include "tools/qzlogview/count.h"

#include <algorithm>
#include <vector>

#include "tools/qzlogview/shown_text.h"

namespace zantlog::view {

namespace {

// Lengths of "2026-11-20 14:00" and "2026-11-20 14:03", to which a time is cut.
constexpr size_t kMinuteText = 16;
constexpr size_t kHourText = 13;

void appendGroup(const std::string &by, const Record &record, Look *look, std::string *out) {
    if (by == "hour" || by == "minute") {
        look->appendTime(record, out);
        out->resize(std::min(out->size(), by == "hour" ? kHourText : kMinuteText));
        *out += by == "hour" ? ":00" : "";
    } else if (by == "originator") {
        *out += look->product(record.fields.productId) + "/" +
                look->originator(record.fields.productId, record.fields.originatorId);
    } else if (by == "severity" && record.type() == ZANTLOG_MSG_APPLICATION) {
        *out += severityName(record.level());
    } else if (by == "severity" || by == "type") {
        *out += typeName(record.type());
    } else {
        *out += record.who();
    }
}

} // namespace

bool RecordCounter::isKnown(const std::string &by) {
    static const std::vector<std::string> kKnown = {"",           "who",  "type",  "severity",
                                                    "originator", "hour", "minute"};
    return std::find(kKnown.begin(), kKnown.end(), by) != kKnown.end();
}

void RecordCounter::add(const Record &record, Look *look) {
    ++total_;
    if (!by_.empty()) {
        key_.clear();
        appendGroup(by_, record, look, &key_);
        ++groups_[key_];
    }
}

std::string RecordCounter::text(size_t barWidth) const {
    if (by_.empty()) {
        return std::to_string(total_) + "\n";
    }
    std::vector<std::pair<std::string, uint64_t>> rows(groups_.begin(), groups_.end());
    if (!byTime()) {
        std::stable_sort(rows.begin(), rows.end(),
                         [](const auto &a, const auto &b) { return a.second > b.second; });
    }
    uint64_t most = 1;
    for (const auto &[name, count] : rows) {
        most = std::max(most, count);
    }
    const size_t width = std::to_string(most).size();
    std::string out;
    for (const auto &[name, count] : rows) {
        const std::string digits = std::to_string(count);
        out.append(width - digits.size(), ' ');
        out += digits + "  ";
        appendShown(name.empty() ? "-" : name, Lines::one, 0, &out);
        if (barWidth > 0) {
            const auto length = static_cast<size_t>(static_cast<double>(count) / static_cast<double>(most) *
                                                    static_cast<double>(barWidth));
            out += "  ";
            for (size_t i = 0; i < std::max<size_t>(length, 1); ++i) {
                out += "\xE2\x96\x88"; // a full block
            }
        }
        out.push_back('\n');
    }
    return out;
}

} // namespace zantlog::view
