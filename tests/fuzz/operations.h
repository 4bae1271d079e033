// What the fuzz targets of the store and of the texts share: cutting an input into pieces, and saying what is
// wrong.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/sim/sim.h"

namespace zantlog::fuzz {

// Ends the run, which makes the input a finding.
inline void require(bool holds, const std::string &what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what.c_str());
        std::abort();
    }
}

// A text as it can be read in a finding's report.
inline std::string shown(const std::string &text) {
    std::string out = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte >= 0x20 && byte < 0x7f) {
            out += character;
        } else {
            char code[5];
            std::snprintf(code, sizeof code, "\\x%02x", static_cast<unsigned>(byte));
            out += code;
        }
    }
    return out + '"';
}

inline void requireText(const std::string &expected, const std::string &actual, const std::string &what) {
    require(expected == actual, what + " is " + shown(actual) + ", not " + shown(expected));
}

inline void requireNumber(int64_t expected, int64_t actual, const std::string &what) {
    require(expected == actual, what + " is " + std::to_string(actual) + ", not " + std::to_string(expected));
}

// The pieces between separators; always one at least.
inline std::vector<std::string> cut(const std::string &text, char separator) {
    std::vector<std::string> pieces(1);
    for (const char character : text) {
        if (character == separator) {
            pieces.emplace_back();
        } else {
            pieces.back() += character;
        }
    }
    return pieces;
}

// One operation of a sequence: a letter and the fields behind it ("s|name|value"). Fields are terminated
// texts, so they end at a NUL.
struct Operation {
    char letter = '\0';
    std::vector<std::string> fields;

    [[nodiscard]] std::string field(size_t index) const {
        return index < fields.size() ? std::string(fields[index].c_str()) : "";
    }
    [[nodiscard]] uint32_t number(size_t index) const {
        uint32_t value = 0;
        for (const char digit : field(index)) {
            value = value * 10 + static_cast<unsigned char>(digit - '0');
        }
        return value;
    }
};

inline std::vector<Operation> operationsOf(const std::string &text) {
    constexpr size_t kMost = 64; // longer sequences find nothing that these do not
    std::vector<Operation> operations;
    for (const std::string &line : cut(text, '\n')) {
        std::vector<std::string> fields = cut(line, '|');
        if (line.empty() || operations.size() == kMost) {
            continue;
        }
        const char letter = line[0];
        fields.erase(fields.begin());
        operations.push_back({letter, fields});
    }
    return operations;
}

// An input is "FILE%%\nOPERATIONS"; without the mark all of it is the file.
struct FileAndOperations {
    std::string file;
    std::vector<Operation> operations;
};

inline FileAndOperations splitInput(const uint8_t *data, size_t size) {
    const std::string input(reinterpret_cast<const char *>(data), size);
    const size_t mark = input.find("%%\n");
    if (mark == std::string::npos) {
        return {input, {}};
    }
    return {input.substr(0, mark), operationsOf(input.substr(mark + 3))};
}

} // namespace zantlog::fuzz
