#include "reader/query_tree.h"

namespace zantlog {

namespace {

// Until the list is complete, a node's index is its place there, counted from 1. An index that somebody else
// has left proves nothing: the list must have the node at that place.
bool isListed(const OperatorList &list, const QueryNode *node) {
    const auto place = static_cast<size_t>(node->index);
    return node->index > 0 && place <= list.count && list.nodes[place - 1] == node;
}

// False when the list is full.
[[nodiscard]] bool addOnce(OperatorList *list, QueryNode *node) {
    if (isTerm(*node)) {
        node->index = 0;
        return true;
    }
    if (isListed(*list, node)) {
        return true;
    }
    if (list->count == list->capacity) {
        return false;
    }
    list->nodes[list->count] = node;
    node->index = static_cast<int32_t>(++list->count);
    return true;
}

[[nodiscard]] TreeShape fill(QueryNode *root, OperatorList *list) {
    if (!addOnce(list, root)) {
        return TreeShape::TooLarge;
    }
    for (size_t place = 0; place < list->count; ++place) {
        QueryNode *left = list->nodes[place]->left;
        QueryNode *right = list->nodes[place]->right;
        if (left == nullptr || right == nullptr) {
            return TreeShape::LacksOperand;
        }
        if (!addOnce(list, left) || !addOnce(list, right)) {
            return TreeShape::TooLarge;
        }
    }
    return TreeShape::Whole;
}

} // namespace

TreeShape listOperators(QueryNode *root, OperatorList *list) {
    list->count = 0;
    const TreeShape shape = fill(root, list);
    for (size_t place = 0; place < list->count; ++place) {
        list->nodes[place]->index = 0;
    }
    return shape;
}

} // namespace zantlog
