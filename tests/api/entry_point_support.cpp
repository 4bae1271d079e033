#include "tests/api/entry_point_support.h"

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

#include "tests/support/machine.h"

namespace zantlog::test {

GivenObject::GivenObject(uint32_t msgid, const char *fmt, ...) : zantLis{} {
    va_list args;
    va_start(args, fmt);
    EXPECT_EQ(msgid != 0 ? zantLisVEx(this, 0, msgid, fmt, args) : zantLisTextV(this, fmt, args), 0);
    va_end(args);
}

#define ZANTLOG_FORWARD(call)                                                                                \
    va_list args;                                                                                            \
    va_start(args, fmt);                                                                                     \
    const uint32_t result = call;                                                                            \
    va_end(args);                                                                                            \
    return result

uint32_t appMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity, uint32_t msgid,
                  const char *fmt, ...) {
    ZANTLOG_FORWARD(zantLogAppMsg2V(handle, seq, flags, severity, msgid, fmt, args));
}

uint32_t appMsg2VEx(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity, const char *who,
                    uint32_t msgid, const char *fmt, ...) {
    ZANTLOG_FORWARD(zantLogAppMsg2VEx(handle, seq, flags, severity, who, msgid, fmt, args));
}

uint32_t diagMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who,
                   uint32_t msgid, const char *fmt, ...) {
    ZANTLOG_FORWARD(zantLogDiagMsg2V(handle, seq, flags, level, who, msgid, fmt, args));
}

uint32_t auditMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, const char *subject,
                    uint32_t outcome, uint32_t msgid, const char *fmt, ...) {
    ZANTLOG_FORWARD(zantLogAuditMsg2V(handle, seq, flags, subject, outcome, msgid, fmt, args));
}

uint32_t secureAuditMsgV(zantLogHandle *handle, int32_t level, const char *subject, uint32_t outcome,
                         uint32_t msgid, const char *fmt, ...) {
    ZANTLOG_FORWARD(zantLogSecureAuditMsgV(handle, level, subject, outcome, msgid, fmt, args));
}

uint32_t debugMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who,
                    const char *fmt, ...) {
    ZANTLOG_FORWARD(zantLogDebugMsg2V(handle, seq, flags, level, who, fmt, args));
}

bool commonLockIsFree() {
    static const char label[] = "commonLockIsFree()";
    std::atomic<bool> taken{false};
    std::thread other([&taken] {
        zantLockCommon(label);
        taken = true;
        zantUnlockCommon(label);
    });
    for (int tries = 0; tries < 500 && !taken; ++tries) {
        pauseFor(10);
    }
    const bool free = taken;
    if (free) {
        other.join();
    } else {
        other.detach(); // waits for ever
    }
    return free;
}

void breakContext(zantLogHandle *handle) {
    handle->noContext = 0;
}

} // namespace zantlog::test
