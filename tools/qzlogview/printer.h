// Records as text, in each of the output formats.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tools/qzlogview/fields.h"
#include "tools/qzlogview/file_reader.h"

namespace zantlog::view {

enum class OutputFormat { compact, longForm, json, csv, raw };

struct PrinterOptions {
    OutputFormat format = OutputFormat::compact;
    std::vector<std::string> fields; // checked names; empty: those of the format
    bool colours = false;            // in the compact and the long form
};

class Printer {
public:
    virtual ~Printer() = default;
    // What stands before the first record.
    virtual void begin(std::string *) {}
    // Appends the record, with its line end.
    virtual void print(const Entry &entry, Look *look, std::string *out) = 0;
};

std::unique_ptr<Printer> makePrinter(const PrinterOptions &options);

// A usage error names the field that there is not.
void checkFields(const std::vector<std::string> &fields);

} // namespace zantlog::view
