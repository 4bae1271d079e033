// The selected records as one HTML page that needs nothing beside it: no network, no further file.
#pragma once

#include <ostream>
#include <vector>

#include "tools/qzlogview/report/record_block.h"

namespace zantlog::view {

// A zone in which the page can show times.
struct ReportZone {
    std::string name;
    int32_t offset = 0; // seconds, local time minus UTC
};

struct ReportSettings {
    std::string title;
    std::string selection; // which records were asked for, in words
    // The first one is shown until the reader chooses another. UTC and the reader's own zone are always
    // there.
    std::vector<ReportZone> zones;
    ReportNames names;
};

// Writes while records arrive: what it keeps in memory does not grow with their number. The records' sources
// are to outlive it, and the stream's state tells afterwards whether all was written.
class HtmlReport : public RecordSink {
public:
    HtmlReport(std::ostream &out, ReportSettings settings);
    HtmlReport(const HtmlReport &) = delete;
    HtmlReport &operator=(const HtmlReport &) = delete;

    // False when the stream has failed.
    bool take(const Record &record) override;
    void finish() override;

private:
    void writeBlock();

    std::ostream &out_;
    ReportSettings settings_;
    RecordBlock block_;
    uint64_t records_ = 0;
};

} // namespace zantlog::view
