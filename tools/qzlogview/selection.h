// Which records are wanted.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/qzlogview/file_set.h"
#include "tools/qzlogview/time_text.h"

namespace zantlog::view {

class Expression;

// The texts of the options, as they were given. Several values of one option are alternatives; all options
// must hold.
struct Selection {
    std::vector<std::string> products;    // ids or names
    std::vector<std::string> originators; // ids or names
    std::vector<std::string> logSets;
    std::optional<std::string> since; // times, both inclusive
    std::optional<std::string> until;
    std::vector<std::string> types;
    std::optional<std::string> severity; // "2", "warning", ">=2"
    std::optional<std::string> level;    // the same
    std::vector<std::string> who;
    std::vector<std::string> contexts; // tokens; the context's own record belongs to it
    std::vector<std::string> processes;
    std::vector<std::string> threads;
    std::optional<std::string> grep;  // a regular expression that the text holds
    std::optional<std::string> where; // an expression of the query language
    bool inverted = false;            // all but products, originators and log sets
};

struct SelectionContext {
    int64_t now = 0; // milliseconds since 1970-01-01 00:00 UTC
    Zone zone;
    Configurations *configurations = nullptr; // for names
};

// One expression of it all; null when everything is wanted. A usage error says what is wrong with an option.
std::shared_ptr<const Expression> compileSelection(const Selection &selection,
                                                   const SelectionContext &context);

// Whether the record is wanted; a null expression wants every one.
bool matches(const Expression *expression, const Record &record);

} // namespace zantlog::view
