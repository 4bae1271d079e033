// Environment variables that are set to an empty text, which the C runtime of Windows cannot do.
#pragma once

namespace zantlog::test {

void setEmptyVariable(const char *name);

} // namespace zantlog::test
