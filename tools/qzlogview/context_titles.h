// Titles of contexts, which are shown before their messages.
#pragma once

#include <string>
#include <vector>

#include "tools/qzlogview/record.h"

namespace zantlog::view {

struct ContextName {
    std::string token;
    std::string title;

    bool operator==(const ContextName &) const = default;
};

// The titles of the contexts, in the order of the tokens; those that have none in these files are left out.
// Each file that holds messages of a context holds the context too: a rollover writes it again.
std::vector<ContextName> contextTitles(const std::vector<Source> &sources,
                                       const std::vector<std::string> &tokens);

// "context a81f: night batch", a line each, shown safely.
void appendContextTitles(const std::vector<ContextName> &contexts, std::string *out);

} // namespace zantlog::view
