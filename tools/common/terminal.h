// Whether a person is looking.
#pragma once

namespace zantlog::tools {

bool standardOutputIsTerminal();
bool standardErrorIsTerminal();

// Whether standard output is a terminal that shows colours, and NO_COLOR does not ask for none.
bool standardOutputHasColours();

// Standard output gives bytes as they are from here on.
void makeStandardOutputBinary();

} // namespace zantlog::tools
