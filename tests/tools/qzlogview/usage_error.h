// What a tool says when something that was given to it is wrong.
#pragma once

#include <string>

#include "tools/common/tool_error.h"

namespace zantlog::view {

// The usage error that the call ends with; empty when it ends with none.
template <typename Call> std::string usageErrorOf(Call call) {
    try {
        (void)call();
    } catch (const tools::ToolError &error) {
        return error.code() == tools::kExitUsage ? error.what()
                                                 : std::string("another exit code: ") + error.what();
    }
    return "";
}

} // namespace zantlog::view
