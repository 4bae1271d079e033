// The command line of qzlogview.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/qzlogview/printer.h"
#include "tools/qzlogview/selection.h"
#include "tools/qzlogview/time_text.h"

namespace zantlog::view {

enum class Colours { automatic, always, never };

struct ViewOptions {
    std::vector<std::string> files; // and directories; empty: what the configurations tell
    Selection selection;
    Zone zone;
    OutputFormat format = OutputFormat::compact;
    std::vector<std::string> fields;
    Colours colours = Colours::automatic;
    std::optional<uint64_t> head;
    std::optional<uint64_t> tail;
    bool reverse = false;
    bool follow = false;
    bool count = false;
    std::string countBy; // empty: not by anything
    bool verify = false;
    std::optional<std::string> html; // file
    std::string description;         // the selection, as it was given
};

// Reads the command line. When there is nothing to do (help, version, a usage error), it has said so and
// stores the exit code of the process.
std::optional<ViewOptions> readViewOptions(std::vector<std::string> arguments, int *exitCode);

} // namespace zantlog::view
