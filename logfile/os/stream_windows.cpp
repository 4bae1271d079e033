// Buffered text streams of the property store.
#include "logfile/os/os_stream.h"

#include <cstdio>

namespace zantlog::os {

namespace {

std::FILE *asFile(void *stream) {
    return static_cast<std::FILE *>(stream);
}

} // namespace

void *openTextStream(const char *path, StreamMode mode) {
    // "N": child processes do not inherit the file, so they cannot keep it from being replaced.
    return std::fopen(path, mode == StreamMode::Write ? "wN" : "rN");
}

bool readLine(void *stream, char *buffer, int32_t capacity) {
    return std::fgets(buffer, capacity, asFile(stream)) != nullptr;
}

bool writeText(void *stream, const char *text) {
    return std::fputs(text, asFile(stream)) != EOF;
}

bool atEndOfStream(void *stream) {
    return std::feof(asFile(stream)) != 0;
}

void rewindStream(void *stream) {
    std::rewind(asFile(stream));
}

bool closeStream(void *stream) {
    return std::fclose(asFile(stream)) == 0;
}

} // namespace zantlog::os
