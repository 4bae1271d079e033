#include "tools/qzlogview/printer.h"

#include "tools/common/ascii.h"
#include "tools/common/suggestions.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogview/shown_text.h"

namespace zantlog::view {

std::unique_ptr<Printer> makeCompactPrinter(bool colours);
std::unique_ptr<Printer> makeJsonPrinter(const std::vector<std::string> &fields);

namespace {

bool isArguments(const std::string &name) {
    return tools::lowered(name) == kArgumentsField;
}

std::vector<std::string> allFields() {
    std::vector<std::string> names;
    for (const Field &field : fields()) {
        names.emplace_back(field.name);
        if (names.back() == "text") {
            names.emplace_back(kArgumentsField);
        }
    }
    return names;
}

// A field's value, unsafe characters and all.
void appendValue(const Entry &entry, const std::string &name, Look *look, std::string *out) {
    if (isArguments(name)) {
        appendArguments(entry.record, out);
    } else {
        findField(name)->append(entry.record, look, out);
    }
}

class RawPrinter : public Printer {
public:
    // As it stands in the file: with carriage returns for the line feeds inside.
    void print(const Entry &entry, Look *, std::string *out) override {
        const size_t begin = out->size();
        *out += entry.line;
        for (size_t at = begin; at < out->size(); ++at) {
            if ((*out)[at] == '\n') {
                (*out)[at] = '\r';
            }
        }
        out->push_back('\n');
    }
};

// Chosen fields between tabs.
class FieldPrinter : public Printer {
public:
    explicit FieldPrinter(std::vector<std::string> names) : names_(std::move(names)) {}

    void print(const Entry &entry, Look *look, std::string *out) override {
        for (size_t i = 0; i < names_.size(); ++i) {
            *out += i > 0 ? "\t" : "";
            value_.clear();
            appendValue(entry, names_[i], look, &value_);
            appendShown(value_, Lines::one, 0, out);
        }
        out->push_back('\n');
    }

private:
    std::vector<std::string> names_;
    std::string value_;
};

// A line for each field that has a value, and an empty line behind a record.
class LongPrinter : public Printer {
public:
    LongPrinter(std::vector<std::string> names, bool colours) : names_(std::move(names)), colours_(colours) {}

    void print(const Entry &entry, Look *look, std::string *out) override {
        constexpr size_t kColumn = 16;
        for (const std::string &name : names_) {
            value_.clear();
            appendValue(entry, name, look, &value_);
            if (value_.empty()) {
                continue;
            }
            *out += colours_ ? "\x1b[2m" : "";
            *out += name;
            out->push_back(':');
            *out += colours_ ? "\x1b[0m" : "";
            out->append(kColumn - std::min(kColumn - 1, name.size() + 1), ' ');
            appendShown(value_, Lines::indented, kColumn, out);
            out->push_back('\n');
        }
        out->push_back('\n');
    }

private:
    std::vector<std::string> names_;
    bool colours_;
    std::string value_;
};

// RFC 4180, with LF line ends. A value that a spreadsheet would take for a formula stays what it is.
class CsvPrinter : public Printer {
public:
    explicit CsvPrinter(std::vector<std::string> names) : names_(std::move(names)) {}

    void begin(std::string *out) override {
        for (size_t i = 0; i < names_.size(); ++i) {
            *out += (i > 0 ? "," : "") + names_[i];
        }
        out->push_back('\n');
    }

    void print(const Entry &entry, Look *look, std::string *out) override {
        for (size_t i = 0; i < names_.size(); ++i) {
            *out += i > 0 ? "," : "";
            value_.clear();
            appendValue(entry, names_[i], look, &value_);
            appendCell(out);
        }
        out->push_back('\n');
    }

private:
    void appendCell(std::string *out) {
        shown_.clear();
        appendShown(value_, Lines::indented, 0, &shown_);
        if (shown_.find_first_of(",\"\n") == std::string::npos) {
            *out += shown_;
            return;
        }
        out->push_back('"');
        for (const char character : shown_) {
            *out += character == '"' ? "\"\"" : std::string(1, character);
        }
        out->push_back('"');
    }

    std::vector<std::string> names_;
    std::string value_;
    std::string shown_;
};

} // namespace

std::unique_ptr<Printer> makePrinter(const PrinterOptions &options) {
    const bool chosen = !options.fields.empty();
    const std::vector<std::string> names = chosen ? options.fields : allFields();
    switch (options.format) {
    case OutputFormat::raw:
        return std::make_unique<RawPrinter>();
    case OutputFormat::json:
        return makeJsonPrinter(names);
    case OutputFormat::csv:
        return std::make_unique<CsvPrinter>(names);
    case OutputFormat::longForm:
        return std::make_unique<LongPrinter>(names, options.colours);
    case OutputFormat::compact:
        break;
    }
    return chosen ? std::make_unique<FieldPrinter>(names) : makeCompactPrinter(options.colours);
}

void checkFields(const std::vector<std::string> &names) {
    for (const std::string &name : names) {
        if (findField(name) == nullptr && !isArguments(name)) {
            tools::usageError("there is no field \"" + name + "\"" +
                              tools::didYouMean(tools::nearest(name, allFields())));
        }
    }
}

} // namespace zantlog::view
