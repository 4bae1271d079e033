#include "logfile/writer/write_record.h"

#include "logfile/os/file_layer.h"
#include "logfile/writer/current_file.h"
#include "logfile/writer/rollover.h"
#include "zantlog/serialization.h"

namespace zantlog {

namespace {

constexpr int64_t kReopenAfter = 600000; // milliseconds

// A record's finished line; released at the end of the scope. A failed serialisation has released it already.
class RecordLine {
public:
    RecordLine() = default;
    ~RecordLine() {
        if (filled_) {
            free_text_msg(&buffer_);
        }
    }
    RecordLine(const RecordLine &) = delete;
    RecordLine &operator=(const RecordLine &) = delete;

    [[nodiscard]] uint32_t fill(const zantLogFile &state, zantLogMsgRec *record) {
        record->formatVersion = writtenVersion(state);
        record->fid = state.originatorId;
        const uint32_t result = zantLogMsgSerialize(record, &buffer_);
        filled_ = result == ZANTLOG_OK;
        return result;
    }

    [[nodiscard]] const char *bytes() const { return buffer_.data; }
    [[nodiscard]] uint32_t length() const { return static_cast<uint32_t>(buffer_.capacity - buffer_.free); }

private:
    text_msg buffer_; // 4 KB: not cleared
    bool filled_ = false;
};

uint32_t appendLine(zantLogFile *state, const RecordLine &line) {
    switch (appendBlock(&state->file, line.bytes(), line.length())) {
    case AppendOutcome::Written:
        return ZANTLOG_OK;
    case AppendOutcome::DiskFull:
        return ZANTLOG_DISK_FULL;
    default:
        return ZANTLOG_WRITE_FAILED;
    }
}

// A reader that has only the new file must find what its context tokens mean. Log set files go without.
void rewriteContexts(zantLogFile *state) {
    if (isLogSetFile(*state)) {
        return;
    }
    for (zantLogHandle *handle = state->handles; handle != nullptr; handle = handle->next) {
        if (handle->noContext == 0) {
            (void)writeRecord(state, &handle->context);
        }
    }
}

void leaveFile(zantLogFile *state) {
    if (rollOver(state)) {
        rewriteContexts(state);
    }
}

bool isReopenDue(const zantLogFile &state, const zantLogMsgRec &record) {
    const auto timestamp = static_cast<int64_t>(record.timestamp);
    int64_t age = 0;
    return state.lastReopen != 0 && !__builtin_sub_overflow(timestamp, state.lastReopen, &age) &&
           age > kReopenAfter;
}

// Age is judged by the messages' own times, so that the path of a message reads no clock for it.
void reopenForMessage(zantLogFile *state, const zantLogMsgRec &record) {
    const int64_t formerStart = state->startTime;
    if (reopenFile(state)) {
        if (!isHeaderCurrent(*state)) {
            leaveFile(state); // the name was taken by a file in which nobody would find the record
        } else if (state->startTime != formerStart) {
            rewriteContexts(state);
        }
    }
    state->lastReopen = static_cast<int64_t>(record.timestamp);
}

} // namespace

uint32_t writeRecord(zantLogFile *state, zantLogMsgRec *record) {
    RecordLine line;
    const uint32_t result = line.fill(*state, record);
    return result == ZANTLOG_OK ? appendLine(state, line) : result;
}

} // namespace zantlog

extern "C" uint32_t zantLogWriteMsgWithRolloverToFile(zantLogFile *file, zantLogMsgRec *rec) {
    using namespace zantlog;
    if (file == nullptr) {
        return ZANTLOG_NO_WRITER;
    }
    if (rec == nullptr) {
        return ZANTLOG_FAILURE;
    }
    RecordLine line;
    const uint32_t result = line.fill(*file, rec);
    if (result != ZANTLOG_OK) {
        return result;
    }
    if (isRolloverDue(file, line.length())) {
        leaveFile(file);
    }
    if (isReopenDue(*file, *rec)) {
        reopenForMessage(file, *rec);
    }
    return appendLine(file, line);
}
