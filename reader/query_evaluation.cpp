// Evaluating a query tree, without recursion and within fixed room, whatever its shape.
#include <array>

#include "reader/query.h"
#include "reader/query_fields.h"
#include "reader/query_tree.h"

namespace zantlog {

namespace {

// The results so far, at the place that a node's index says; nothing stands at 0.
using Results = std::array<bool, ZANTLOG_QUERY_OPERATORS + 1>;

bool isEvaluated(const QueryNode &node) {
    return node.index != 0;
}

bool resultOf(const QueryNode &node, const Results &results) {
    return results[static_cast<size_t>(node.index)];
}

template <typename Fields>
bool evaluateOperator(const QueryNode &node, const Results &results, const Fields &fields) {
    const QueryNode &left = *node.left;
    const QueryNode &right = *node.right;
    if (!isField(left) && !isField(right)) {
        return eval(node.type, resultOf(left, results), resultOf(right, results)) != 0;
    }
    // Kept: the operator is not mirrored for a field on the right, and a string literal on the left is none.
    const QueryNode &field = isField(right) ? right : left;
    const QueryNode &other = isField(right) ? left : right;
    return holds({.operatorCode = node.type,
                  .field = field.value,
                  .number = isEvaluated(other) ? uint32_t{resultOf(other, results)} : other.value,
                  .literal = right.type == ZANTLOG_QUERY_STRING ? right.text : nullptr},
                 fields);
}

// Null when both operands are there.
QueryNode *operandToEvaluate(const QueryNode &node) {
    for (QueryNode *operand : {node.left, node.right}) {
        if (!isTerm(*operand) && !isEvaluated(*operand)) {
            return operand;
        }
    }
    return nullptr;
}

// Of a tree that canBeEvaluated().
template <typename Fields> bool evaluate(QueryNode *root, const Fields &fields) {
    Results results;
    std::array<QueryNode *, ZANTLOG_QUERY_OPERATORS> pending;
    size_t depth = 0;
    int32_t evaluated = 0;
    for (QueryNode *current = root;;) {
        if (QueryNode *operand = operandToEvaluate(*current); operand != nullptr) {
            if (depth == pending.size()) {
                return false; // more than there are operators: the tree contains itself
            }
            pending[depth++] = current;
            current = operand;
            continue;
        }
        const bool result = evaluateOperator(*current, results, fields);
        current->index = ++evaluated;
        results[static_cast<size_t>(evaluated)] = result;
        if (depth == 0) {
            return result;
        }
        current = pending[--depth];
    }
}

// The operators of a tree within the limit.
struct Operators {
    std::array<QueryNode *, ZANTLOG_QUERY_OPERATORS> room;
    OperatorList list{room.data(), room.size(), 0};

    QueryNode **begin() { return list.nodes; }
    QueryNode **end() { return list.nodes + list.count; }
};

// Literals have a meaning beside a field only.
bool hasEvaluableOperands(const QueryNode &node) {
    return isField(*node.left) || isField(*node.right) || (!isTerm(*node.left) && !isTerm(*node.right));
}

// Sets the index of all nodes to 0.
[[nodiscard]] bool canBeEvaluated(QueryNode *root, Operators *operators) {
    if (listOperators(root, &operators->list) != TreeShape::Whole || operators->list.count == 0) {
        return false;
    }
    for (const QueryNode *node : *operators) {
        if (!hasEvaluableOperands(*node)) {
            return false;
        }
    }
    return true;
}

template <typename Fields> bool matches(QueryNode *query, const Fields &fields) {
    if (query == nullptr) {
        return true;
    }
    Operators operators;
    return canBeEvaluated(query, &operators) && evaluate(query, fields);
}

bool isHeaderText(const QueryNode &node) {
    return isField(node) && node.value == ZANTLOG_QUERY_HEADER_TEXT;
}

} // namespace

bool fileMatches(QueryNode *query, const FileLevelFields &file) {
    return matches(query, file);
}

bool headerMatches(QueryNode *query, const HeaderLevelFields &header) {
    return matches(query, header);
}

bool readsHeaderText(QueryNode *query) {
    Operators operators;
    if (query == nullptr || !canBeEvaluated(query, &operators)) {
        return false;
    }
    for (const QueryNode *node : operators) {
        if (isHeaderText(*node->left) || isHeaderText(*node->right)) {
            return true;
        }
    }
    return false;
}

} // namespace zantlog
