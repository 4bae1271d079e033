// Terms and operators of query trees.
#include <cstring>

#include "reader/query_tree.h"

namespace {

bool holds(int32_t operatorCode, uint32_t a, uint32_t b) {
    switch (operatorCode) {
    case ZANTLOG_QUERY_AND:
        return a != 0 && b != 0;
    case ZANTLOG_QUERY_OR:
        return a != 0 || b != 0;
    case ZANTLOG_QUERY_LESS:
        return a < b;
    case ZANTLOG_QUERY_GREATER:
        return a > b;
    case ZANTLOG_QUERY_LESS_OR_EQUAL:
        return a <= b;
    case ZANTLOG_QUERY_GREATER_OR_EQUAL:
        return a >= b;
    case ZANTLOG_QUERY_EQUAL:
        return a == b;
    case ZANTLOG_QUERY_NOT_EQUAL:
        return a != b;
    default:
        return false;
    }
}

} // namespace

int32_t isterm(int32_t kind) {
    return zantlog::isTermKind(kind) ? 1 : 0;
}

int32_t eval(int32_t operatorCode, uint32_t a, uint32_t b) {
    return holds(operatorCode, a, b) ? 1 : 0;
}

int32_t evalString(int32_t operatorCode, const char *a, const char *b) {
    if (a == nullptr || b == nullptr) {
        return 0;
    }
    const bool equal = std::strcmp(a, b) == 0;
    return (operatorCode == ZANTLOG_QUERY_EQUAL && equal) ||
                   (operatorCode == ZANTLOG_QUERY_NOT_EQUAL && !equal)
               ? 1
               : 0;
}
