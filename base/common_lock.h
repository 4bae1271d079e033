// The process-wide lock, held for a scope.
#pragma once

#include "zantlog/dispatch.h"

namespace zantlog {

// The label is a string constant: a release is checked against the very address that the acquisition was
// given.
class CommonLock {
public:
    explicit CommonLock(const char *label) : label_(label) { zantLockCommon(label_); }
    ~CommonLock() { zantUnlockCommon(label_); }
    CommonLock(const CommonLock &) = delete;
    CommonLock &operator=(const CommonLock &) = delete;

private:
    const char *label_;
};

} // namespace zantlog
