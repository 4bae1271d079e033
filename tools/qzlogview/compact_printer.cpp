// One line a record, for people.
#include <charconv>

#include "tools/qzlogview/printer.h"
#include "tools/qzlogview/shown_text.h"

namespace zantlog::view {

std::unique_ptr<Printer> makeCompactPrinter(bool colours);

namespace {

constexpr size_t kIndentation = 4;

struct Word {
    const char *text;   // padded
    const char *colour; // escape sequence
};

constexpr const char *kPlain = "";
constexpr const char *kDim = "\x1b[2m";
constexpr const char *kYellow = "\x1b[33m";
constexpr const char *kRed = "\x1b[31m";
constexpr const char *kBoldRed = "\x1b[1;31m";
constexpr const char *kCyan = "\x1b[36m";
constexpr const char *kEnd = "\x1b[0m";

constexpr Word kSeverities[] = {{"info    ", kPlain},
                                {"warning ", kYellow},
                                {"error   ", kRed},
                                {"severe  ", kBoldRed},
                                {"fatal   ", kBoldRed}};
constexpr Word kTypes[] = {
    {"debug   ", kDim}, {"diag    ", kDim}, {"app     ", kPlain}, {"context ", kCyan}, {"audit   ", kCyan}};

Word wordOf(const Record &record) {
    if (record.type() == ZANTLOG_MSG_APPLICATION) {
        return kSeverities[record.level()]; // 0 to 4: any other is no record
    }
    return kTypes[record.type()];
}

template <typename Number> void appendNumber(Number value, std::string *out) {
    char digits[24];
    out->append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

class CompactPrinter : public Printer {
public:
    explicit CompactPrinter(bool colours) : colours_(colours) {}

    void print(const Entry &entry, Look *look, std::string *out) override {
        const Record &record = entry.record;
        look->appendTime(record, out);
        out->push_back(' ');
        appendWord(record, out);
        appendShown(look->product(record.fields.productId), Lines::one, 0, out);
        out->push_back('/');
        if (record.source->logSet.empty()) {
            appendShown(look->originator(record.fields.productId, record.fields.originatorId), Lines::one, 0,
                        out);
        } else {
            appendShown(record.source->logSet, Lines::one, 0, out);
        }
        out->push_back(' ');
        appendNumber(record.fields.processId, out);
        out->push_back(':');
        appendNumber(record.fields.threadId, out);
        appendContext(record, out);
        appendWho(record, out);
        out->push_back(' ');
        appendShown(record.text(), Lines::indented, kIndentation, out);
        appendRest(record, out);
        out->push_back('\n');
    }

private:
    // Levels in the word's padding: "debug 3 ".
    void appendWord(const Record &record, std::string *out) const {
        const Word word = wordOf(record);
        *out += colours_ ? word.colour : "";
        if (record.type() <= ZANTLOG_MSG_DIAGNOSTIC) {
            const size_t begin = out->size();
            *out += record.type() == ZANTLOG_MSG_DEBUG ? "debug " : "diag ";
            appendNumber(record.level(), out);
            out->append(8 - std::min<size_t>(7, out->size() - begin), ' ');
        } else {
            *out += word.text;
        }
        *out += colours_ && word.colour != kPlain ? kEnd : "";
    }

    static void appendContext(const Record &record, std::string *out) {
        const bool context = record.type() == ZANTLOG_MSG_CONTEXT;
        const std::string_view token = context ? record.contextString() : record.contextToken();
        if (!token.empty()) {
            *out += " {";
            appendShown(token, Lines::one, 0, out);
            out->push_back('}');
        }
    }

    static void appendWho(const Record &record, std::string *out) {
        if (!record.who().empty()) {
            out->push_back(' ');
            appendShown(record.who(), Lines::one, 0, out);
            out->push_back(':');
        }
    }

    static void appendRest(const Record &record, std::string *out) {
        if (record.type() == ZANTLOG_MSG_AUDIT) {
            *out += record.text().empty() ? "outcome " : " outcome ";
            appendNumber(static_cast<int32_t>(record.fields.outcome), out);
        }
        if (record.fields.lis.first != nullptr) {
            *out += out->back() == ' ' ? "" : " ";
            appendArguments(record, out);
        }
        if (out->back() == ' ') {
            out->pop_back(); // of a record without a text
        }
    }

    bool colours_;
};

} // namespace

std::unique_ptr<Printer> makeCompactPrinter(bool colours) {
    return std::make_unique<CompactPrinter>(colours);
}

} // namespace zantlog::view
