// Any bytes are an expression of the viewer's query language, or an error that shows the place. An expression
// has an answer for every record, its inverse has the other one, and it makes a tree for the library. The
// bytes are tried as a regular expression, a time and a zone of their own, too.
#include <array>
#include <optional>
#include <string>

#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "tests/tools/qzlogview/sample_records.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogview/file_query.h"
#include "tools/qzlogview/where_parser.h"
#include "zantlog/query.h"

namespace {

using namespace zantlog;
using view::Expression;
using view::Record;

constexpr view::WhereContext kContext = {1763249100000, view::kUtc};

void expectCaret(const tools::ToolError &error) {
    const std::string message = error.what();
    fuzz::expectEqual(error.code(), tools::kExitUsage, "the exit code of a wrong expression");
    const size_t line = message.rfind('\n');
    fuzz::expect(line != std::string::npos &&
                     message.find_first_not_of(' ', line + 1) == message.size() - 1 && message.back() == '^',
                 "the last line of an error is a caret alone");
    for (const char byte : message) {
        fuzz::expect(byte == '\n' || static_cast<unsigned char>(byte) >= ' ', "an error drives no terminal");
    }
}

std::optional<Expression> parsed(const std::string &text) {
    try {
        return view::parseWhere(text, kContext);
    } catch (const tools::ToolError &error) {
        expectCaret(error);
        return std::nullopt;
    }
}

size_t operatorsOf(const QueryNode *node) {
    if (node == nullptr || node->type < ZANTLOG_QUERY_AND) {
        return 0;
    }
    return 1 + operatorsOf(node->left) + operatorsOf(node->right);
}

void ask(const Expression &expression) {
    static const view::SampleRecords records;
    const Expression inverse = Expression::invert(expression);
    for (const Record *record : {&records.application, &records.diagnostic, &records.debug, &records.context,
                                 &records.audit, &records.inLogSet, &records.old}) {
        const bool answer = expression.holdsFor(*record);
        fuzz::expectEqual(inverse.holdsFor(*record), !answer, "the inverse has the other answer");
    }
    for (const Expression *each : {&expression, &inverse}) {
        view::FileQuery query(each);
        fuzz::expect(operatorsOf(query.root()) <= ZANTLOG_QUERY_OPERATORS,
                     "the library can evaluate the tree");
    }
}

void tryAlone(const std::string &text) {
    view::Regex::Error error = {"", 0};
    const std::optional<view::Regex> regex = view::Regex::compile(text, &error);
    fuzz::expect(regex || (!error.what.empty() && error.position <= text.size()),
                 "a place in the expression");
    if (regex) {
        (void)regex->isFoundIn(text);
        (void)regex->isFoundIn("Hello World, 2026-11-20");
    }
    (void)view::zoneFromText(text);
    try {
        (void)view::timeFromText(text, kContext.now, kContext.zone);
    } catch (const tools::ToolError &wrong) {
        fuzz::expectEqual(wrong.code(), tools::kExitUsage, "the exit code of a wrong time");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    fuzz::FuzzInput input(data, size);
    const std::string text = input.rest();
    if (const std::optional<Expression> expression = parsed(text)) {
        ask(*expression);
        fuzz::expect(parsed(text + " or pid == 1").has_value(), "it can be joined to another");
    }
    tryAlone(text);
    return 0;
}
