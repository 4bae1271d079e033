// The keys of a configuration section: one description that loading, saving and the manual have in common.
#pragma once

#include "zantlog/config.h"

#include <cstdint>
#include <span>

namespace zantlog {

enum class KeyType { Text, Number, Boolean };

// Sections that a key is read from: of products and originators, of log sets, or both.
enum class KeyScope { Both, Product, LogSet };

// A value as it was read; which member counts is the key's type.
struct KeyValue {
    const char *text;
    uint32_t number;       // a number, or a boolean as 0 or 1
    bool inDefaultSection; // read from the section, or the log set, "Default"
};

struct ConfigKey {
    const char *name;
    KeyType type;
    KeyScope scope;
    uint32_t setting; // its bits of the changed mask and of the remove mask

    // Stores a value, unless it is out of its limits. False: the key does not count as found.
    bool (*store)(zantLogCfg *cfg, const KeyValue &value);

    // What happens when the section lacks the key, if anything.
    void (*absent)(zantLogCfg *cfg) = nullptr;
};

// All keys, in the order in which they are read.
[[nodiscard]] std::span<const ConfigKey> configKeys();

} // namespace zantlog
