// The part of an expression that files can be selected by.
#pragma once

#include <deque>
#include <string>

#include "zantlog/discovery_types.h"

namespace zantlog::view {

class Expression;

// A query tree for the library that selects every file which may hold a wanted record, and others as far as
// only their records tell.
class FileQuery {
public:
    explicit FileQuery(const Expression *expression); // null: everything is wanted
    FileQuery(const FileQuery &) = delete;
    FileQuery &operator=(const FileQuery &) = delete;

    // Null: all files.
    [[nodiscard]] QueryNode *root() { return root_; }

private:
    // Each gives null for what every file may satisfy.
    QueryNode *build(const Expression &expression, bool inverted);
    QueryNode *buildJoined(const Expression &expression, bool inverted);
    QueryNode *buildProduct(const Expression &expression, bool inverted);
    QueryNode *buildTime(const Expression &expression, bool inverted);
    QueryNode *compare(uint32_t field, int32_t operatorCode, int64_t number);
    QueryNode *compareText(uint32_t field, const std::string &text);
    QueryNode *atHeaderLevel(QueryNode *node);
    QueryNode *join(int32_t operatorCode, QueryNode *left, QueryNode *right);
    QueryNode *add(const QueryNode &node);

    std::deque<QueryNode> nodes_;
    std::deque<std::string> texts_;
    size_t operators_ = 0;
    QueryNode *root_ = nullptr;
};

} // namespace zantlog::view
