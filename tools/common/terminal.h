// Whether a person is looking.
#pragma once

namespace zantlog::tools {

bool standardOutputIsTerminal();
bool standardErrorIsTerminal();

// Makes escape sequences work on standard output; false where they do not.
bool enableEscapeSequences();

// Standard output gives bytes as they are from here on.
void makeStandardOutputBinary();

} // namespace zantlog::tools
