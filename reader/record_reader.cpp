// Taking records, one line each, out of a log file.
#include <algorithm>

#include "base/byte_scan.h"
#include "logfile/format/text_message.h"
#include "reader/line_copy.h"
#include "zantlog/reader.h"
#include "zantlog/results.h"

namespace {

using namespace zantlog;

constexpr int32_t kRecordRead = 1;

bool nothingBuffered(const zantLogOsFile *file) {
    // A read into a buffer of the caller's own may have left a length that this one does not have.
    return file->position < 0 || file->position >= file->length || file->length > ZANTLOG_READ_BLOCK;
}

enum class Taken { WholeLine, EndOfBlock, NoMemory };

// A line of many blocks, as a file that is no log may have one, at least doubles the buffer: growing it by a
// block at a time would copy what is there as often as there are blocks.
[[nodiscard]] bool makeRoom(text_msg *buffer, size_t count) {
    const uint64_t used = contentLength(buffer);
    return used < count || count < buffer->free || grow_text_msg(buffer, used) == ZANTLOG_OS_OK;
}

// What does not fit into the free room of the buffer: the rest of the line, or of the block.
[[nodiscard]] Taken takeBeyondRoom(zantLogOsFile *file, text_msg *buffer) {
    const char *bytes = file->buffer + file->position;
    const size_t count = countThrough(bytes, static_cast<size_t>(file->length - file->position), '\n');
    if (!makeRoom(buffer, count)) {
        return Taken::NoMemory;
    }
    char *at = append_text_msg(buffer, count);
    if (at == nullptr) {
        return Taken::NoMemory;
    }
    const CopiedLine copied = copyLine(at, bytes, count);
    file->position += static_cast<int32_t>(copied.length);
    return copied.ended ? Taken::WholeLine : Taken::EndOfBlock;
}

// Moves the buffered bytes, up to and including the next line feed, to the end of the record: in one pass
// while they fit there.
[[nodiscard]] Taken takeBuffered(zantLogOsFile *file, text_msg *buffer) {
    const auto available = static_cast<size_t>(file->length - file->position);
    // The buffer grows before its last byte is used.
    const size_t room = buffer->free != 0 ? static_cast<size_t>(buffer->free - 1) : 0;
    const CopiedLine copied =
        copyLine(contentEnd(buffer), file->buffer + file->position, std::min(available, room));
    buffer->free -= copied.length;
    file->position += static_cast<int32_t>(copied.length);
    if (copied.ended) {
        return Taken::WholeLine;
    }
    return copied.length == available ? Taken::EndOfBlock : takeBeyondRoom(file, buffer);
}

} // namespace

int32_t readrecord(zantLogOsFile *file, text_msg *buffer) {
    if (file == nullptr || buffer == nullptr) {
        return ZANTLOG_OS_NULL_ARGUMENT;
    }
    for (;;) {
        if (nothingBuffered(file)) {
            const int32_t result = zantLogOs_read(file, file->buffer, ZANTLOG_READ_BLOCK);
            if (result < 1) {
                return result;
            }
        }
        switch (takeBuffered(file, buffer)) {
        case Taken::WholeLine:
            contentEnd(buffer)[-1] = '\0';
            return kRecordRead;
        case Taken::EndOfBlock:
            break;
        case Taken::NoMemory:
            return ZANTLOG_OS_FAILED;
        }
    }
}
