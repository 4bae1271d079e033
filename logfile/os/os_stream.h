// Buffered text streams of the property store: CRLF on disk, "\n" in memory, Ctrl-Z ends the reading.
#pragma once

#include <cstdint>

namespace zantlog::os {

enum class StreamMode { Read, Write };

// Null when the file cannot be opened. Child processes do not inherit the stream.
void *openTextStream(const char *path, StreamMode mode);

// As fgets: at most capacity - 1 characters, up to and with the line end, terminated. False at the end.
[[nodiscard]] bool readLine(void *stream, char *buffer, int32_t capacity);

[[nodiscard]] bool writeText(void *stream, const char *text);
[[nodiscard]] bool atEndOfStream(void *stream); // a read has met the end
void rewindStream(void *stream);

// False when something buffered could not be written; the stream is closed all the same.
[[nodiscard]] bool closeStream(void *stream);

} // namespace zantlog::os
