#include "logfile/writer/current_file.h"

#include <cstring>

#include "base/bounded_text.h"
#include "logfile/format/file_header.h"
#include "logfile/format/file_name.h"
#include "logfile/os/directory_tree.h"
#include "logfile/os/file_layer.h"
#include "logfile/os/os_clock.h"
#include "logfile/writer/rollover_time.h"
#include "zantlog/reader.h"

namespace zantlog {

namespace {

constexpr size_t kHostNameBytes = 512;
constexpr size_t kNameBytes = ZANTLOG_TEXT_FIELD + 64;
constexpr uint32_t kPausesForHeader = 10;
constexpr uint32_t kPauseMilliseconds = 10;

struct CurrentName {
    char path[ZANTLOG_TEXT_FIELD + kNameBytes];
    const char *date; // log set files: the date in the path
};

// What is known of a file before it is opened for writing.
struct FoundFile {
    bool exists;
    uint32_t version; // 0: no header
    int64_t creationTime;
};

// A log set file's name is "<product>-<log set>-<date>.log".
const char *dateInLogSetPath(const zantLogFile &state, const char *path) {
    const char *at = std::strchr(path + std::strlen(state.directory), '-');
    return at == nullptr ? nullptr : at + 1 + std::strlen(state.logSetName) + 1;
}

bool nameExistingFile(zantLogFile *state, const char *existingName, CurrentName *name) {
    BoundedText path(name->path);
    path.text(state->directory).text(existingName);
    if (isLogSetFile(*state)) {
        name->date = dateInLogSetPath(*state, name->path);
    } else {
        FileDay day{};
        uint32_t sequence = 0;
        if (parseContinuedFileName(existingName, &day.year, &day.month, &day.day, &sequence)) {
            state->fileDay = day;
            state->daySequence = sequence;
        }
    }
    return !path.cut();
}

// The number is taken here: it is used up even when the file cannot be opened then.
void takeDaySequence(zantLogFile *state, const std::tm &now) {
    const FileDay today{now.tm_year - 100, now.tm_mon + 1, now.tm_mday};
    if (today == state->fileDay) {
        ++state->daySequence;
    } else {
        state->daySequence = 0;
        state->fileDay = today;
    }
}

uint32_t nameNewFile(zantLogFile *state, CurrentName *name) {
    std::tm now{};
    if (!os::localTime(os::nowSeconds(), &now)) {
        return ZANTLOG_FAILURE;
    }
    takeDaySequence(state, now);

    // A log set file's name holds no host number, but is not given without one either.
    const uint32_t hostId = zantLogHostId();
    if (hostId == 0) {
        return ZANTLOG_FAILURE;
    }
    bool fits = false;
    if (isLogSetFile(*state)) {
        fits = formatLogSetFilePath(name->path, sizeof name->path, state->directory, state->productId,
                                    state->logSetName, now);
        name->date = fits ? dateInLogSetPath(*state, name->path) : nullptr;
    } else {
        const ProductFileName fields{state->productId,    state->originatorId,  hostId,
                                     state->fileDay.year, state->fileDay.month, state->fileDay.day,
                                     state->daySequence};
        fits = formatProductFilePath(name->path, sizeof name->path, state->directory, fields);
    }
    return fits ? ZANTLOG_OK : ZANTLOG_FILE_NOT_OPENED;
}

// Reads the header of a file through the state's own record. *empty: the file is there and holds nothing.
FoundFile readExistingFile(zantLogFile *state, const char *path, bool *empty) {
    FoundFile found{};
    *empty = false;
    if (zantLogOs_open(&state->file, path, ZANTLOG_OPEN_READ, nullptr) != ZANTLOG_OS_OK) {
        return found;
    }
    found.exists = true;
    LogFileHeader header;
    if (ReadHeaderEx(&state->file, &header) == ZANTLOG_OK) {
        found.version = header.version;
        found.creationTime = header.startTime;
    } else {
        uint32_t size = 0;
        *empty = zantLogOs_fsize(&state->file, &size) == ZANTLOG_OS_OK && size == 0;
        found.creationTime = os::nowSeconds();
    }
    closeCurrentFile(state);
    return found;
}

// A file that another process is just creating is empty for a moment. Its header is waited for: without one
// the file would be given up at the first write, and both processes would end in files of their own.
FoundFile findFile(zantLogFile *state, const char *path) {
    bool empty = false;
    FoundFile found = readExistingFile(state, path, &empty);
    for (uint32_t pause = 0; empty && pause < kPausesForHeader; ++pause) {
        os::sleepMilliseconds(kPauseMilliseconds);
        found = readExistingFile(state, path, &empty);
    }
    return found;
}

uint32_t openForAppending(zantLogFile *state, const char *path) {
    switch (zantLogOs_open(&state->file, path, ZANTLOG_OPEN_APPEND, state->fileSecurity)) {
    case ZANTLOG_OS_OK:
        return ZANTLOG_OK;
    case ZANTLOG_OS_PATH_DENIED:
        return ZANTLOG_PATH_DENIED;
    case ZANTLOG_OS_OPEN_FAILED:
        return ZANTLOG_FILE_NOT_OPENED;
    default:
        return ZANTLOG_FAILURE;
    }
}

uint32_t giveHeader(zantLogFile *state, FoundFile *file) {
    LogFileHeader header;
    uint32_t result = fillHeader(&header, writtenVersion(*state), state->productId, state->originatorId);
    if (result == ZANTLOG_OK) {
        result = writeHeader(&state->file, header);
    }
    file->version = header.version;
    file->creationTime = header.startTime;
    return result;
}

// Kept: the plan is made for the open file. Of a handle that joins it, mode, time and period take effect on
// the plan with the next file; a clock mode that meets no plan yet finds the file due at once.
void planNextRollover(zantLogFile *state) {
    if (usesClock(state->rolloverMode)) {
        const RolloverSchedule schedule{state->rolloverMode, state->timeOfDay, state->period};
        state->nextRollover = nextRolloverTime(schedule, state->startTime, os::nowSeconds());
    }
}

int64_t inMilliseconds(int64_t seconds) {
    int64_t milliseconds = 0;
    if (__builtin_mul_overflow(seconds, INT64_C(1000), &milliseconds)) {
        return seconds > 0 ? INT64_MAX : INT64_MIN;
    }
    return milliseconds;
}

uint32_t openNamedFile(zantLogFile *state, const CurrentName &name, FileOrigin *origin) {
    FoundFile file = findFile(state, name.path);
    *origin = file.exists ? FileOrigin::Existing : FileOrigin::Created;

    uint32_t result = openForAppending(state, name.path);
    if (result == ZANTLOG_OK && !file.exists) {
        result = giveHeader(state, &file);
    }
    if (result != ZANTLOG_OK) {
        closeCurrentFile(state);
        return result;
    }
    state->version = file.version;
    state->startTime = file.exists && name.date != nullptr ? parseFileNameTime(name.date) : file.creationTime;
    state->lastReopen = inMilliseconds(state->startTime);
    planNextRollover(state);
    return ZANTLOG_OK;
}

} // namespace

uint32_t openCurrentFile(zantLogFile *state, const char *existingName, FileOrigin *origin) {
    closeCurrentFile(state);
    uint32_t result = createDirectoryTree(state->directory, state->fileSecurity);
    if (result != ZANTLOG_OK) {
        return result;
    }
    CurrentName name{};
    if (existingName != nullptr) {
        result = nameExistingFile(state, existingName, &name) ? ZANTLOG_OK : ZANTLOG_FILE_NOT_OPENED;
    } else {
        result = nameNewFile(state, &name);
    }
    if (result != ZANTLOG_OK) {
        return result;
    }
    char hostName[kHostNameBytes];
    if (osGetHostName(hostName, sizeof hostName) != ZANTLOG_OS_OK) {
        return ZANTLOG_FAILURE;
    }
    return openNamedFile(state, name, origin);
}

void closeCurrentFile(zantLogFile *state) {
    (void)zantLogOs_close(&state->file);
    resetOsFile(&state->file);
}

} // namespace zantlog
