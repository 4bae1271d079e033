// Query trees for the tests.
#pragma once

#include <cstdint>
#include <deque>

#include "zantlog/query.h"

namespace zantlog::test {

// Owns the nodes of a tree. Every node starts with an index that an earlier evaluation might have left.
class QueryTree {
public:
    static constexpr int32_t kStaleIndex = 5;

    QueryNode *number(uint32_t value, int32_t kind = ZANTLOG_QUERY_NUMBER) {
        return add({kind, kStaleIndex, value, nullptr, nullptr, nullptr});
    }
    QueryNode *string(const char *text) {
        return add({ZANTLOG_QUERY_STRING, kStaleIndex, 0, text, nullptr, nullptr});
    }
    QueryNode *field(uint32_t code) {
        return add({ZANTLOG_QUERY_FIELD, kStaleIndex, code, nullptr, nullptr, nullptr});
    }
    QueryNode *node(int32_t operatorCode, QueryNode *left, QueryNode *right) {
        return add({operatorCode, kStaleIndex, 0, nullptr, left, right});
    }
    QueryNode *compare(uint32_t code, int32_t operatorCode, uint32_t value) {
        return node(operatorCode, field(code), number(value));
    }
    QueryNode *compare(uint32_t code, int32_t operatorCode, const char *text) {
        return node(operatorCode, field(code), string(text));
    }

    // A tree of so many operators, an odd number, that is as deep as can be: at its end stands `bottom`, and
    // every "and" above it adds a comparison that is true for every product.
    QueryNode *chain(QueryNode *bottom, int operators, bool onTheLeft) {
        QueryNode *top = bottom;
        for (int made = 1; made + 2 <= operators; made += 2) {
            QueryNode *side = compare(ZANTLOG_QUERY_PRODUCT, ZANTLOG_QUERY_NOT_EQUAL, 0u);
            top = onTheLeft ? node(ZANTLOG_QUERY_AND, top, side) : node(ZANTLOG_QUERY_AND, side, top);
        }
        return top;
    }

private:
    QueryNode *add(const QueryNode &node) { return &nodes_.emplace_back(node); }

    std::deque<QueryNode> nodes_; // nodes stay where they are
};

} // namespace zantlog::test
