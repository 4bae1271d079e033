#include "tools/qzlogview/file_query.h"

#include <string_view>

#include "tools/common/code_page.h"
#include "tools/qzlogview/expression.h"
#include "zantlog/query.h"

namespace zantlog::view {

namespace {

constexpr int64_t kMilliseconds = 1000;

// In seconds. Clocks of file systems are coarse. A file may be made a little later than its first message,
// and a log set's tells its beginning in the local time of a host that may be in any zone.
constexpr int64_t kSlackSince = 5;
constexpr int64_t kSlackUntil = 26 * 3600;

int64_t secondsBelow(int64_t milliseconds) {
    return milliseconds / kMilliseconds - (milliseconds % kMilliseconds < 0 ? 1 : 0);
}

Comparison opposite(Comparison comparison) {
    switch (comparison) {
    case Comparison::equal:
        return Comparison::notEqual;
    case Comparison::notEqual:
        return Comparison::equal;
    case Comparison::less:
        return Comparison::greaterOrEqual;
    case Comparison::lessOrEqual:
        return Comparison::greater;
    case Comparison::greater:
        return Comparison::lessOrEqual;
    case Comparison::greaterOrEqual:
        return Comparison::less;
    default:
        return comparison;
    }
}

int32_t operatorOf(Comparison comparison) {
    switch (comparison) {
    case Comparison::notEqual:
        return ZANTLOG_QUERY_NOT_EQUAL;
    case Comparison::less:
        return ZANTLOG_QUERY_LESS;
    case Comparison::lessOrEqual:
        return ZANTLOG_QUERY_LESS_OR_EQUAL;
    case Comparison::greater:
        return ZANTLOG_QUERY_GREATER;
    case Comparison::greaterOrEqual:
        return ZANTLOG_QUERY_GREATER_OR_EQUAL;
    default:
        return ZANTLOG_QUERY_EQUAL;
    }
}

} // namespace

FileQuery::FileQuery(const Expression *expression) {
    if (expression != nullptr) {
        root_ = build(*expression, false);
    }
    // A larger tree is none to the library, and no file would match it.
    if (operators_ > ZANTLOG_QUERY_OPERATORS) {
        root_ = nullptr;
    }
}

QueryNode *FileQuery::add(const QueryNode &node) {
    return &nodes_.emplace_back(node);
}

QueryNode *FileQuery::join(int32_t operatorCode, QueryNode *left, QueryNode *right) {
    ++operators_;
    QueryNode node = {};
    node.type = operatorCode;
    node.left = left;
    node.right = right;
    return add(node);
}

QueryNode *FileQuery::compare(uint32_t field, int32_t operatorCode, int64_t number) {
    if (number < 0 || number > UINT32_MAX) {
        return nullptr; // no number of the library's
    }
    QueryNode left = {};
    left.type = ZANTLOG_QUERY_FIELD;
    left.value = field;
    QueryNode right = {};
    right.type = ZANTLOG_QUERY_NUMBER;
    right.value = static_cast<uint32_t>(number);
    QueryNode *const leftNode = add(left);
    return join(operatorCode, leftNode, add(right));
}

// What the library knows of the file originator holds at file level for every file, and at header level for
// none: the other comparison decides there alone.
QueryNode *FileQuery::atHeaderLevel(QueryNode *node) {
    return node == nullptr ? nullptr
                           : join(ZANTLOG_QUERY_OR, node,
                                  compare(ZANTLOG_QUERY_FILE_ORIGINATOR, ZANTLOG_QUERY_GREATER_OR_EQUAL, 0));
}

QueryNode *FileQuery::compareText(uint32_t field, const std::string &text) {
    constexpr size_t kLongest = 511;
    const std::string &native = texts_.emplace_back(tools::codePageFromUtf8(text));
    if (native.size() > kLongest) {
        return nullptr;
    }
    QueryNode left = {};
    left.type = ZANTLOG_QUERY_FIELD;
    left.value = field;
    QueryNode right = {};
    right.type = ZANTLOG_QUERY_STRING;
    right.text = native.c_str();
    QueryNode *const leftNode = add(left);
    return join(ZANTLOG_QUERY_EQUAL, leftNode, add(right));
}

// An inverted "both" is an "either" of what is inverted, and the reverse.
QueryNode *FileQuery::buildJoined(const Expression &expression, bool inverted) {
    const bool both = (expression.kind() == Expression::Kind::both) != inverted;
    QueryNode *joined = nullptr;
    bool first = true;
    for (const Expression &child : expression.children()) {
        QueryNode *node = build(child, inverted);
        if (node == nullptr && !both) {
            return nullptr; // one that every file may satisfy is enough
        }
        if (node == nullptr) {
            continue;
        }
        joined = first ? node : join(both ? ZANTLOG_QUERY_AND : ZANTLOG_QUERY_OR, joined, node);
        first = false;
    }
    return joined;
}

QueryNode *FileQuery::buildProduct(const Expression &expression, bool inverted) {
    const Comparison comparison = inverted ? opposite(expression.comparison()) : expression.comparison();
    return compare(ZANTLOG_QUERY_PRODUCT, operatorOf(comparison), expression.number());
}

// A file holds messages from about its beginning to its last write, and the library's time is either of both:
// a comparison holds for a file as soon as it may hold for one of its messages. The beginning is what the
// header says: that of the listing is later in a file that has been copied.
QueryNode *FileQuery::buildTime(const Expression &expression, bool inverted) {
    const int64_t seconds = secondsBelow(expression.number());
    const auto since = [&] {
        return compare(ZANTLOG_QUERY_TIME, ZANTLOG_QUERY_GREATER_OR_EQUAL, seconds - kSlackSince);
    };
    const auto until = [&] {
        return atHeaderLevel(
            compare(ZANTLOG_QUERY_TIME, ZANTLOG_QUERY_LESS_OR_EQUAL, seconds + 1 + kSlackUntil));
    };
    switch (inverted ? opposite(expression.comparison()) : expression.comparison()) {
    case Comparison::greater:
    case Comparison::greaterOrEqual:
        return since();
    case Comparison::less:
    case Comparison::lessOrEqual:
        return until();
    case Comparison::equal: {
        QueryNode *const from = since();
        QueryNode *const to = until();
        return from != nullptr && to != nullptr ? join(ZANTLOG_QUERY_AND, from, to) : nullptr;
    }
    default:
        return nullptr;
    }
}

QueryNode *FileQuery::build(const Expression &expression, bool inverted) {
    switch (expression.kind()) {
    case Expression::Kind::both:
    case Expression::Kind::either:
        return buildJoined(expression, inverted);
    case Expression::Kind::inverse:
        return build(expression.children().front(), !inverted);
    case Expression::Kind::comparison:
        break;
    }
    const std::string_view field = expression.field()->name;
    if (field == "product") {
        return buildProduct(expression, inverted);
    }
    if (field == "time") {
        return buildTime(expression, inverted);
    }
    // The library knows no other comparison of a log set, and takes every one of a product's file for false.
    // At file level it compares what the log set's files are called today, not what this one is called. The
    // originator of a record need not be the one that the file belongs to.
    if (field == "logset" && expression.comparison() == Comparison::equal && !inverted) {
        return atHeaderLevel(compareText(ZANTLOG_QUERY_LOG_SET, expression.text()));
    }
    return nullptr;
}

} // namespace zantlog::view
