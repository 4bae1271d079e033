// The nodes of a query tree, found without trusting its shape.
#pragma once

#include <cstddef>

#include "zantlog/query.h"

namespace zantlog {

[[nodiscard]] inline bool isTermKind(int32_t kind) {
    return kind >= ZANTLOG_QUERY_STRING && kind <= ZANTLOG_QUERY_NUMBER3;
}

[[nodiscard]] inline bool isTerm(const QueryNode &node) {
    return isTermKind(node.type);
}

[[nodiscard]] inline bool isField(const QueryNode &node) {
    return node.type == ZANTLOG_QUERY_FIELD;
}

// The operators of a tree, each once, from the root downwards, in room of the caller's.
struct OperatorList {
    QueryNode **nodes;
    size_t capacity;
    size_t count;
};

enum class TreeShape { Whole, LacksOperand, TooLarge };

// Lists the operators of a tree (none for a lone term) and sets the index of all nodes to 0. A tree that is
// whole may still contain itself.
[[nodiscard]] TreeShape listOperators(QueryNode *root, OperatorList *list);

} // namespace zantlog
