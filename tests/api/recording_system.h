// A stand-in for the parts of the operating system that the sinks reach: the localisation library that can be
// loaded, the standard streams and the event log. It replaces the real ones at link time and records what it
// is asked for.
#pragma once

#include <string>
#include <vector>

#include "tests/support/wide_text.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

// One call of the localisation library's export.
struct FormatCall {
    zantLogLocalizerList *list;
    uint32_t reserved1;
    const char *locale;
    uint32_t reserved2;
    uint32_t flags;
    uint32_t reserved3;
    zantLogMsgRec *rec;
    zantLogHandle *handle;
};

struct ReportedEvent {
    void *log;
    uint16_t type;
    uint16_t category;
    uint32_t id;
    std::vector<WideText> strings; // L"(null)" for one that is not set
};

struct RecordingSystem {
    bool libraryExists = true;
    bool exportExists = true;
    uint32_t formatResult = 0;
    std::string formattedText = "formatted";
    bool formatsNull = false;
    bool eventLogOpens = true;
    bool reportSucceeds = true;

    std::vector<std::string> loads;
    int unloads = 0;
    std::vector<FormatCall> formats;
    std::vector<std::string> printed; // "out:" or "err:", text and suffix
    std::vector<std::string> openedSources;
    int closedLogs = 0;
    std::vector<ReportedEvent> events;
};

// Of this process; assign a fresh one to begin a test.
extern RecordingSystem recording;

} // namespace zantlog::test
