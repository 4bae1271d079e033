// Moving the time literals of a query into the local time zone.
#include "base/owned_text.h"
#include "reader/query_tree.h"
#include "zantlog/log_file.h"
#include "zantlog/results.h"

namespace {

using namespace zantlog;

bool isTimeField(const QueryNode &node) {
    return isField(node) && (node.value == ZANTLOG_QUERY_TIME || node.value == ZANTLOG_QUERY_START_TIME);
}

void adjustLiterals(const OperatorList &list, uint32_t seconds) {
    for (size_t place = 0; place < list.count; ++place) {
        const QueryNode &node = *list.nodes[place];
        if (isTimeField(*node.left) && isTerm(*node.right) && node.right->value != 0) {
            node.right->value += seconds;
        }
    }
}

} // namespace

uint32_t updateQueryForTZ(QueryNode *root, int32_t queryOffset) {
    if (root == nullptr) {
        return ZANTLOG_OK;
    }
    const auto seconds =
        static_cast<uint32_t>(queryOffset) - static_cast<uint32_t>(getLocalTZOffsetFromGMT());

    QueryNode *room[ZANTLOG_QUERY_OPERATORS];
    OperatorList list{room, ZANTLOG_QUERY_OPERATORS, 0};
    OwnedBlock<QueryNode *> larger;
    TreeShape shape = listOperators(root, &list);
    while (shape == TreeShape::TooLarge) {
        list.capacity *= 2;
        larger = allocateBlock<QueryNode *>(list.capacity);
        if (larger == nullptr) {
            return ZANTLOG_OUT_OF_MEMORY;
        }
        list.nodes = larger.get();
        shape = listOperators(root, &list);
    }
    if (shape == TreeShape::LacksOperand) {
        return ZANTLOG_FAILURE;
    }
    adjustLiterals(list, seconds);
    return ZANTLOG_OK;
}
