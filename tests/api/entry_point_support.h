// Catalog objects and argument lists for tests of the entry points.
#pragma once

#include <cstdarg>
#include <cstdint>

#include "zantlog/zantlog.h"

namespace zantlog::test {

// An object that the test gives to an entry point; what is still in it at the end of the scope is freed.
struct GivenObject : zantLis {
    GivenObject(uint32_t msgid, const char *fmt, ...);
    ~GivenObject() { zantLisFree(this); }
    GivenObject(const GivenObject &) = delete;
    GivenObject &operator=(const GivenObject &) = delete;

    // The entry point has taken it over, or freed it.
    [[nodiscard]] bool isGone() const { return first == nullptr && argCount == 0 && textId == 0; }
};

// The "V" forms, called with arguments of their own.
uint32_t appMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity, uint32_t msgid,
                  const char *fmt, ...);
uint32_t appMsg2VEx(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t severity, const char *who,
                    uint32_t msgid, const char *fmt, ...);
uint32_t diagMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who,
                   uint32_t msgid, const char *fmt, ...);
uint32_t auditMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, const char *subject,
                    uint32_t outcome, uint32_t msgid, const char *fmt, ...);
uint32_t secureAuditMsgV(zantLogHandle *handle, int32_t level, const char *subject, uint32_t outcome,
                         uint32_t msgid, const char *fmt, ...);
uint32_t debugMsg2V(zantLogHandle *handle, uint32_t seq, uint32_t flags, int32_t level, const char *who,
                    const char *fmt, ...);

// A call leaves the common lock free for other threads.
bool commonLockIsFree();

// A handle whose context record is damaged, so that no message record can be initialised for it: result 3.
void breakContext(zantLogHandle *handle);

} // namespace zantlog::test
