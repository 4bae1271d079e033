// Folders with log files made by hand, configurations that name them, and selections.
#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/file_times.h"
#include "tests/support/files.h"
#include "tests/support/machine.h"
#include "tests/support/test_folder.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

inline constexpr uint32_t kNoMoreFiles = 9;
inline constexpr uint32_t kNoLogFile = 45;

// Headers that the library's writers leave; the product's was begun at 1763249000.
std::string productHeader(uint32_t product, uint32_t originator, const std::string &host = "buildhost",
                          int64_t startTime = 1763249000);
std::string logSetHeader(const std::string &host = "buildhost");
inline const std::string kHeaderFromTheFuture = "$Header 65545,12,3,1763249000,-3600,buildhost\n";

// "12-3-1-251116-0000000000.log" and the like.
std::string productFile(uint32_t product, uint32_t originator, uint32_t number);

// Selected files, freed at the end of the scope.
struct Selection : LogFindContext {
    explicit Selection(QueryNode *root = nullptr) : LogFindContext{0, nullptr, nullptr, root} {}
    ~Selection() { clear(); }
    Selection(const Selection &) = delete;
    Selection &operator=(const Selection &) = delete;
    void clear();

    [[nodiscard]] std::vector<std::string> names() const; // of all entries, in their order
    [[nodiscard]] std::vector<std::string> fetchNames();  // of those that can be fetched, until the 9
    [[nodiscard]] std::vector<std::string> fetchPaths();
};

// Nodes of query trees, which live as long as the object.
class Query {
public:
    QueryNode *field(uint32_t code) { return term(259, code, nullptr); }
    QueryNode *number(uint32_t value) { return term(258, value, nullptr); }
    QueryNode *text(const char *value) { return term(257, 0, value); }
    QueryNode *op(int32_t code, QueryNode *left, QueryNode *right);
    QueryNode *is(uint32_t code, uint32_t value) { return op(287, field(code), number(value)); }
    QueryNode *isText(uint32_t code, const char *value) { return op(287, field(code), text(value)); }
    QueryNode *both(QueryNode *left, QueryNode *right) { return op(281, left, right); }
    QueryNode *either(QueryNode *left, QueryNode *right) { return op(282, left, right); }

private:
    QueryNode *term(int32_t kind, uint32_t value, const char *text);

    std::list<QueryNode> nodes_;
};

class SelectionTest : public testing::Test {
protected:
    // A configuration of a product's originator, or of a log set, whose files are in a folder of this name
    // (the empty one is the test's own); borrowed.
    zantLogCfg *product(uint32_t productId, uint32_t originatorId, const std::string &subfolder = "");
    zantLogCfg *logSet(uint32_t productId, const std::string &name, const std::string &subfolder = "");

    // A file; without a time it has that of now.
    std::string make(const std::string &name, const std::string &bytes, int64_t time = 0,
                     const std::string &subfolder = "");
    // One that has the header that its name calls for.
    std::string makeProductFile(uint32_t productId, uint32_t originatorId, uint32_t number, int64_t time = 0,
                                const std::string &subfolder = "");

    uint32_t select(const std::vector<zantLogCfg *> &configurations, Selection *selection);

    // Ends in a separator.
    [[nodiscard]] std::string directory(const std::string &subfolder = "") const;

private:
    zantLogCfg *newConfiguration(const std::string &subfolder);

    ScopedFolder folder_;
    std::list<zantLogCfg> configurations_;
    std::list<std::string> texts_;
};

} // namespace zantlog::test
