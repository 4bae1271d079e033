#include "tests/sim/event_log.h"

#include <mutex>
#include <set>

namespace zantlog::sim {

namespace {

struct EventLog {
    std::mutex lock;
    std::vector<ReportedEvent> events;
    std::set<std::string> refused;
};

EventLog &eventLog() {
    static auto &instance = *new EventLog;
    return instance;
}

using Guard = std::lock_guard<std::mutex>;

} // namespace

std::vector<ReportedEvent> reportedEvents() {
    const Guard guard(eventLog().lock);
    return eventLog().events;
}

void clearEvents() {
    const Guard guard(eventLog().lock);
    eventLog().events.clear();
}

void refuseEventSource(const std::string &source, bool refused) {
    const Guard guard(eventLog().lock);
    if (refused) {
        eventLog().refused.insert(source);
    } else {
        eventLog().refused.erase(source);
    }
}

bool isRefused(const std::string &source) {
    const Guard guard(eventLog().lock);
    return eventLog().refused.contains(source);
}

void addEvent(const ReportedEvent &event) {
    const Guard guard(eventLog().lock);
    eventLog().events.push_back(event);
}

} // namespace zantlog::sim
