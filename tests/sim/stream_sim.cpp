// Buffered text streams of the property store.
#include "logfile/os/os_stream.h"

#include <string>

#include "tests/sim/faults.h"
#include "tests/sim/volume.h"

namespace zantlog::os {

namespace {

constexpr size_t kBlock = 4096; // what the runtime reads and writes at once
constexpr char kCtrlZ = 0x1a;
constexpr int kEnd = -1;

struct Stream : sim::Object {
    [[nodiscard]] const char *kind() const override { return "stream"; }
    std::shared_ptr<sim::Opening> opening;
    bool writing = false;
    std::string
        buffer; // read and not given out yet from `at` on; or not written yet, which goes with the process
    size_t at = 0;
    bool ended = false;
};

bool refill(Stream &stream) {
    char block[kBlock];
    uint32_t count = 0;
    if (sim::readFrom(*stream.opening, block, kBlock, &count) != kErrorNone) {
        return false;
    }
    stream.buffer.assign(block, count);
    stream.at = 0;
    return count != 0;
}

int peek(Stream &stream) {
    if (stream.at == stream.buffer.size() && !refill(stream)) {
        return kEnd;
    }
    return static_cast<unsigned char>(stream.buffer[stream.at]);
}

// The next character of the text; a line end is one.
int nextCharacter(Stream &stream) {
    const int character = peek(stream);
    if (character == kEnd || character == kCtrlZ) {
        stream.ended = true;
        return kEnd;
    }
    ++stream.at;
    if (character == '\r' && peek(stream) == '\n') {
        ++stream.at;
        return '\n';
    }
    return character;
}

// What cannot be written is dropped, as the runtime does it.
bool flush(Stream &stream) {
    std::string bytes;
    bytes.swap(stream.buffer);
    uint32_t written = 0;
    const auto count = static_cast<uint32_t>(bytes.size());
    return sim::writeTo(*stream.opening, bytes.data(), count, &written) == kErrorNone && written == count;
}

bool put(Stream &stream, char character) {
    stream.buffer += character;
    return stream.buffer.size() < kBlock || flush(stream);
}

} // namespace

void *openTextStream(const char *path, StreamMode mode) {
    if (sim::enter(sim::Call::OpenStream).fails()) {
        return nullptr;
    }
    const bool writing = mode == StreamMode::Write;
    auto stream = std::make_shared<Stream>();
    stream->writing = writing;
    const SystemError error = sim::openNode(
        path, writing ? sim::kWriteAccess : sim::kReadAccess, sim::kReadAccess | sim::kWriteAccess,
        writing ? sim::Disposition::CreateAlways : sim::Disposition::OpenExisting, nullptr, &stream->opening);
    return error == kErrorNone ? sim::newHandle(std::move(stream)) : nullptr;
}

bool readLine(void *stream, char *buffer, int32_t capacity) {
    const sim::Verdict verdict = sim::enter(sim::Call::ReadLine);
    const auto from = sim::objectOf<Stream>(stream);
    if (verdict.fails() || from == nullptr || from->writing) {
        return false;
    }
    int32_t length = 0;
    while (length < capacity - 1) {
        const int character = nextCharacter(*from);
        if (character == kEnd) {
            break;
        }
        buffer[length++] = static_cast<char>(character);
        if (character == '\n') {
            break;
        }
    }
    if (length == 0) {
        return false;
    }
    buffer[length] = '\0';
    return true;
}

bool writeText(void *stream, const char *text) {
    const sim::Verdict verdict = sim::enter(sim::Call::WriteText);
    const auto to = sim::objectOf<Stream>(stream);
    if (verdict.fails() || to == nullptr || !to->writing) {
        return false;
    }
    bool written = true;
    for (; *text != '\0' && written; ++text) {
        written = (*text != '\n' || put(*to, '\r')) && put(*to, *text);
    }
    return written;
}

bool atEndOfStream(void *stream) {
    const auto of = sim::objectOf<Stream>(stream);
    return of != nullptr && of->ended;
}

void rewindStream(void *stream) {
    sim::enter(sim::Call::RewindStream);
    if (const auto of = sim::objectOf<Stream>(stream); of != nullptr) {
        if (of->writing) {
            static_cast<void>(flush(*of));
        }
        of->buffer.clear();
        of->at = 0;
        of->ended = false;
        of->opening->position = 0;
    }
}

bool closeStream(void *stream) {
    const sim::Verdict verdict = sim::enter(sim::Call::CloseStream);
    const auto object = std::dynamic_pointer_cast<Stream>(sim::closeHandle(stream));
    if (object == nullptr) {
        return false;
    }
    // A close that is to fail loses what the stream holds back.
    return !verdict.fails() && (!object->writing || flush(*object));
}

} // namespace zantlog::os
