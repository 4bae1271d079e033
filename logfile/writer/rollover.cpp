#include "logfile/writer/rollover.h"

#include "logfile/os/os_clock.h"
#include "logfile/writer/current_file.h"
#include "logfile/writer/retention.h"
#include "logfile/writer/rollover_time.h"

namespace zantlog {

namespace {

constexpr uint32_t kHighestMode = ZANTLOG_ROLLOVER_FILE_SIZE | ZANTLOG_ROLLOVER_PERIODIC;
constexpr uint64_t kBytesPerKB = 1024;
constexpr uint32_t kPauseMilliseconds = 10;
constexpr uint32_t kMostPauses = 200;

bool isSizeReached(zantLogFile *state, uint32_t recordLength) {
    if ((state->rolloverMode & ZANTLOG_ROLLOVER_FILE_SIZE) == 0 || state->maximumSizeKB == 0) {
        return false;
    }
    uint32_t size = 0;
    if (zantLogOs_fsize(&state->file, &size) != ZANTLOG_OS_OK) {
        return false;
    }
    return (uint64_t{size} + recordLength) / kBytesPerKB >= state->maximumSizeKB;
}

bool isTimeReached(const zantLogFile &state) {
    return usesClock(state.rolloverMode) && os::nowSeconds() >= state.nextRollover;
}

// A log set file's name says its second: until the clock has moved on, every try would find the same file.
// False when it does not move.
bool waitForNextSecond(int64_t second) {
    for (uint32_t pause = 0; pause < kMostPauses; ++pause) {
        if (os::nowSeconds() != second) {
            return true;
        }
        os::sleepMilliseconds(kPauseMilliseconds);
    }
    return os::nowSeconds() != second;
}

// Whether the file that was opened at `second` is to be left for yet another one. A file that was created
// here is not: the next would be no better, and there would be no end of them.
bool tryNextFile(zantLogFile *state, FileOrigin origin, int64_t second) {
    if (origin == FileOrigin::Created || !isRolloverDue(state, 0)) {
        return false;
    }
    return !isLogSetFile(*state) || waitForNextSecond(second);
}

} // namespace

bool isRolloverDue(zantLogFile *state, uint32_t recordLength) {
    if (!isHeaderCurrent(*state)) {
        return true;
    }
    if (state->rolloverMode > kHighestMode) {
        state->rolloverMode = ZANTLOG_ROLLOVER_NONE;
    }
    return isSizeReached(state, recordLength) || isTimeReached(*state);
}

bool rollOver(zantLogFile *state) {
    int64_t second = 0;
    FileOrigin origin{};
    do {
        second = os::nowSeconds();
        if (openCurrentFile(state, nullptr, &origin) != ZANTLOG_OK) {
            return false;
        }
    } while (tryNextFile(state, origin, second));

    if (state->recycle != 0) {
        recycleOldFiles(*state);
    }
    return true;
}

bool reopenFile(zantLogFile *state) {
    --state->daySequence;
    FileOrigin origin{};
    return openCurrentFile(state, nullptr, &origin) == ZANTLOG_OK;
}

} // namespace zantlog
