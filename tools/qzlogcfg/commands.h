// The commands that change what is configured, and those that move it. Each returns the exit code.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "tools/qzlogcfg/changes.h"

namespace zantlog::tools {

struct Target {
    std::string product; // id or name
    SectionName section;
};

// Assignments are "KEY=VALUE" as people write them.
int setSettings(const Target &target, const std::vector<std::string> &assignments, DryRun dryRun,
                std::ostream &output);

// Keys as people write them; `all` removes all that the section holds.
int unsetSettings(const Target &target, const std::vector<std::string> &keys, bool all, DryRun dryRun,
                  std::ostream &output);

// Levels as people write them. Says when running products will see them.
int setLevels(const Target &target, const std::optional<std::string> &debug,
              const std::optional<std::string> &diag, DryRun dryRun, std::ostream &output);

int registerProduct(uint32_t product, const std::string &names, const std::string &configuration,
                    std::ostream &output);
int unregisterProduct(const std::string &product, std::ostream &output);

// To a file, or to standard output.
int exportConfiguration(const std::optional<std::string> &file, std::ostream &output);

// Registers what is missing and sets what differs; `replace` also removes settings that the file does not
// hold.
int importConfiguration(const std::string &file, bool replace, DryRun dryRun, std::ostream &output);

// Each side is an exported file (*.json), a configuration location, or "current". 1 when they differ.
int diffConfigurations(const std::string &a, const std::string &b, std::ostream &output);

} // namespace zantlog::tools
