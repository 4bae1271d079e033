// Standard streams of the process.
#pragma once

namespace zantlog::os {

// Writes the text and the suffix after it; the stream is not flushed.
void printToStdout(const char *text, const char *suffix);
void printToStderr(const char *text, const char *suffix);

} // namespace zantlog::os
