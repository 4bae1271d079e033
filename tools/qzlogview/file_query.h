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
    friend class FileQueryBuilder;
    std::deque<QueryNode> nodes_;
    std::deque<std::string> texts_;
    QueryNode *root_ = nullptr;
};

} // namespace zantlog::view
