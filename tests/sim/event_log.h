// The event log, which keeps what was reported.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zantlog::sim {

struct ReportedEvent {
    std::string source;
    uint16_t type = 0;
    uint16_t category = 0;
    uint32_t id = 0;
    std::vector<std::u16string> strings; // u"(null)" for one that is not there
};

std::vector<ReportedEvent> reportedEvents();
void clearEvents();

// A source that cannot be opened.
void refuseEventSource(const std::string &source, bool refused);

// ---- for the implementation of the seam
bool isRefused(const std::string &source);
void addEvent(const ReportedEvent &event);

} // namespace zantlog::sim
