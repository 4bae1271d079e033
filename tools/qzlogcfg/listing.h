// The commands that show what is configured. Each returns the exit code.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "tools/qzlogcfg/store_section.h"

namespace zantlog::tools {

enum class Format { text, json };

int listProducts(Format format, std::ostream &output);
int listOriginators(const std::string &product, Format format, std::ostream &output);
int listLogSets(const std::string &product, Format format, std::ostream &output);

// Which sections; nothing: all of them.
struct ShowScope {
    std::optional<std::string> product;
    std::optional<SectionName> section;
};

int showSettings(const ShowScope &scope, Format format, std::ostream &output);
int showPaths(Format format, std::ostream &output);

} // namespace zantlog::tools
