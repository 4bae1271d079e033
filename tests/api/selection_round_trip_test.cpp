// Files that the library wrote in several modes, selected by every field and held against a plain model.
#include <algorithm>
#include <functional>
#include <list>
#include <map>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "tests/support/file_times.h"
#include "tests/support/files.h"
#include "tests/support/log_folder.h"
#include "tests/support/machine.h"
#include "tests/support/test_folder.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

namespace {

// What the model knows of a file: read from name and first line by the test itself.
struct File {
    uint32_t product;       // in the name
    uint32_t originator;    // in the name; 0: a log set's
    std::string logSet;     // in the name; empty: a product's
    std::string host;       // in the header
    int64_t time;           // creation and last write alike
    std::string logSetFile; // of the configuration
};

std::vector<std::string> split(const std::string &text, char delimiter) {
    std::vector<std::string> pieces;
    size_t at = 0;
    for (size_t end = 0; (end = text.find(delimiter, at)) != std::string::npos; at = end + 1) {
        pieces.push_back(text.substr(at, end - at));
    }
    pieces.push_back(text.substr(at));
    return pieces;
}

constexpr int32_t kAnd = 281;
constexpr int32_t kOr = 282;

// A comparison as the model makes it.
struct Comparison {
    int32_t op;
    bool (*holds)(int64_t left, int64_t right);
};

constexpr Comparison kComparisons[] = {
    {283, [](int64_t left, int64_t right) { return left < right; }},
    {284, [](int64_t left, int64_t right) { return left > right; }},
    {285, [](int64_t left, int64_t right) { return left <= right; }},
    {286, [](int64_t left, int64_t right) { return left >= right; }},
    {287, [](int64_t left, int64_t right) { return left == right; }},
    {288, [](int64_t left, int64_t right) { return left != right; }},
};

struct Predicate {
    QueryNode *node;
    std::function<bool(const File &)> file;   // at file level
    std::function<bool(const File &)> header; // at header level
};

class SelectionRoundTrip : public testing::Test {
protected:
    SelectionRoundTrip() {
        writeStore();
        writeLogs();
        readFiles();
        readConfigurations();
    }
    ~SelectionRoundTrip() override {
        FreeConfigArray(array_, count_);
        writeFileBytes(GetZantLogCfgLoc(), "");
    }

    QueryNode *node(int32_t type, uint32_t value, const char *text, QueryNode *left, QueryNode *right) {
        nodes_.push_back({type, 0, value, text, left, right});
        return &nodes_.back();
    }
    QueryNode *number(int32_t op, uint32_t field, uint32_t value) {
        return node(op, 0, nullptr, node(259, field, nullptr, nullptr, nullptr),
                    node(258, value, nullptr, nullptr, nullptr));
    }
    QueryNode *text(int32_t op, uint32_t field, const char *value) {
        return node(op, 0, nullptr, node(259, field, nullptr, nullptr, nullptr),
                    node(257, 0, value, nullptr, nullptr));
    }

    // One for each field that a file answers, with every operator.
    std::vector<Predicate> predicates();
    void addNumbers(std::vector<Predicate> *all);
    void addTimes(std::vector<Predicate> *all);
    void addTexts(std::vector<Predicate> *all);

    Predicate tie(int32_t op, const Predicate &one, const Predicate &other) {
        const auto join = [op](const std::function<bool(const File &)> &left,
                               const std::function<bool(const File &)> &right) {
            return [op, left, right](const File &file) {
                return op == kAnd ? left(file) && right(file) : left(file) || right(file);
            };
        };
        return {node(op, 0, nullptr, one.node, other.node), join(one.file, other.file),
                join(one.header, other.header)};
    }
    void expectBothLevels(const Predicate &predicate) {
        EXPECT_EQ(selected(predicate.node, nullptr), expected(predicate.file)) << "file level";
        EXPECT_EQ(selected(nullptr, predicate.node), expected(predicate.header)) << "header level";
        EXPECT_EQ(selected(predicate.node, predicate.node),
                  expected([&](const File &file) { return predicate.file(file) && predicate.header(file); }))
            << "both levels";
    }

    // Names by a selection with one query and fetches with another.
    std::multiset<std::string> selected(QueryNode *fileQuery, QueryNode *headerQuery) {
        LogFindContext context{0, nullptr, nullptr, fileQuery};
        const uint32_t result = GetLogFiles(array_, count_, &context);
        EXPECT_EQ(result, context.head != nullptr ? 0u : 45u);
        context.query = headerQuery;
        std::multiset<std::string> names;
        LogFileEntry *entry = nullptr;
        while (zantLogFetchNextFileEx(&context, &entry) == 0) {
            names.insert(&entry->name[0]);
        }
        int64_t last = INT64_MIN;
        while (context.head != nullptr) {
            EXPECT_LE(last, context.head->creationTime);
            last = context.head->creationTime;
            LogFileEntry *next = context.head->next;
            zantLogFree(context.head);
            context.head = next;
        }
        return names;
    }
    std::multiset<std::string> expected(const std::function<bool(const File &)> &condition) {
        std::multiset<std::string> names;
        for (const auto &[name, file] : files_) {
            if (condition(file)) {
                names.insert(name);
            }
        }
        return names;
    }

    std::map<std::string, File> files_;

private:
    void writeStore() {
        std::string location;
        for (const std::string product : {"12", "13"}) {
            const std::string path = store_.file(product + ".conf");
            location += product + ".Configuration=" + path + "\r\n";
            const std::string directory = ".LogDirectory=" + logs_.path() + "\\\r\n";
            writeFileBytes(path,
                           "Default" + directory +
                               "Default.RolloverMode=FileSize\r\nDefault.MaxLogFileSizeKB=1\r\n"
                               "3.RolloverMode=None\r\n4.RolloverMode=FileSize | LocalTime\r\n"
                               "LOGSET.Default" +
                               directory +
                               "LOGSET.audit.RolloverMode=LocalTime\r\nLOGSET.audit.FileName=auditfile\r\n"
                               "LOGSET.trail.RolloverMode=Periodic\r\n");
        }
        writeFileBytes(GetZantLogCfgLoc(), location);
    }

    static void write(zantLogHandle *handle, int messages) {
        for (int i = 0; i < messages; ++i) {
            EXPECT_EQ(zantLogFormattedDebugMsg(handle, 0, 1, "writer", std::string(500, 'd').c_str()), 0u);
            EXPECT_EQ(zantLogAppMsg(handle, 0, 0, 0, "%s", std::string(500, 'a').c_str()), 0u);
        }
        EXPECT_EQ(zantLogClose(handle), 0u);
    }

    static void writeLogs() {
        for (const uint32_t product : {12u, 13u}) {
            for (const uint32_t originator : {112u, 3u, 4u}) {
                zantLogHandle handle{};
                ASSERT_EQ(zantLogOpen(product, originator, &handle), 0u);
                write(&handle, 3);
            }
            for (const char *logSet : {"Default", "audit", "trail"}) {
                zantLogHandle handle{};
                ASSERT_EQ(zantLogOpenLogSet(product, 3, logSet, &handle), 0u);
                write(&handle, 2);
            }
        }
    }

    // Each file gets a time of its own, long before those in names and headers, which are of now; the model
    // is read from its name and first line.
    void readFiles() {
        int64_t time = oldest_;
        for (const std::string &name : fileNames(logs_.path())) {
            const std::string path = logs_.path() + "\\" + name;
            setFileTimes(path, time);
            const std::vector<std::string> pieces = split(name, '-');
            const std::vector<std::string> header = split(linesOf(fileBytes(path)).at(0), ',');
            File file{};
            file.product = static_cast<uint32_t>(std::stoul(pieces.at(0)));
            file.host = header.back();
            file.time = time++;
            if (pieces.size() == 3) {
                file.logSet = pieces[1];
                file.logSetFile = pieces[1] == "audit" ? "auditfile" : pieces[1];
            } else {
                file.originator = static_cast<uint32_t>(std::stoul(pieces.at(1)));
            }
            files_[name] = file;
        }
        ASSERT_GE(files_.size(), 20u); // log sets of several seconds may have more
    }

    void readConfigurations() {
        ASSERT_EQ(zantLogReadAllCfg(nullptr, 64, array_, &count_), 0u);
        ASSERT_EQ(count_, 12u);
    }

    const int64_t oldest_ = secondsNow() - 20 * int64_t{86400};
    ScopedFolder store_;
    ScopedFolder logs_;
    std::list<QueryNode> nodes_;
    std::list<std::string> texts_; // of literals
    zantLogCfg *array_[64] = {};
    uint32_t count_ = 0;
};

constexpr auto kAny = [](const File &) { return true; };
constexpr auto kNone = [](const File &) { return false; };

void SelectionRoundTrip::addNumbers(std::vector<Predicate> *all) {
    for (const Comparison &comparison : kComparisons) {
        const auto holds = comparison.holds;
        for (const uint32_t product : {12u, 14u}) {
            const auto ofProduct = [=](const File &file) { return holds(file.product, product); };
            all->push_back({number(comparison.op, 263, product), ofProduct, ofProduct});
        }
        for (const uint32_t originator : {0u, 4u}) {
            const auto ofOriginator = [=](const File &file) { return holds(file.originator, originator); };
            all->push_back({number(comparison.op, 265, originator), ofOriginator, kNone});
            all->push_back({number(comparison.op, 264, originator), kAny, ofOriginator});
        }
    }
    all->push_back({number(287, 270, 5), kAny, kNone});
    all->push_back({number(287, 276, 5), kNone, kNone});
}

void SelectionRoundTrip::addTimes(std::vector<Predicate> *all) {
    // The moments are of the listings, so that names and headers need not be known to the second.
    const int64_t now = secondsNow();
    for (const Comparison &comparison : kComparisons) {
        const auto holds = comparison.holds;
        for (const int64_t moment : {oldest_ + 4, oldest_ + 11}) {
            const auto value = static_cast<uint32_t>(moment);
            const auto ofListing = [=](const File &file) { return holds(file.time, moment); };
            const auto ofNow = [=](const File &) { return holds(now, moment); };
            const auto ofCreation = [=](const File &file) {
                return file.logSet.empty() ? ofListing(file) : ofNow(file);
            };
            all->push_back({number(comparison.op, 268, value),
                            [=](const File &file) { return ofCreation(file) || ofListing(file); },
                            [=](const File &file) { return ofNow(file) || ofListing(file); }});
            all->push_back({number(comparison.op, 269, value), ofCreation, ofNow});
        }
    }
}

void SelectionRoundTrip::addTexts(std::vector<Predicate> *all) {
    for (const std::string &host : {files_.begin()->second.host, std::string("elsewhere")}) {
        texts_.push_back(host);
        const char *literal = texts_.back().c_str();
        all->push_back(
            {text(287, 278, literal), [host](const File &file) { return file.host == host; }, kNone});
        all->push_back(
            {text(288, 278, literal), [host](const File &file) { return file.host != host; }, kNone});
    }
    for (const char *name : {"audit", "auditfile", "trail", "Default"}) {
        all->push_back({text(287, 279, name), [name](const File &file) { return file.logSetFile == name; },
                        [name](const File &file) { return file.logSet == name; }});
        all->push_back({text(288, 279, name),
                        [name](const File &file) { return !file.logSet.empty() && file.logSetFile != name; },
                        [name](const File &file) { return !file.logSet.empty() && file.logSet != name; }});
        all->push_back({text(285, 279, name), kNone, kNone});
    }
}

std::vector<Predicate> SelectionRoundTrip::predicates() {
    std::vector<Predicate> all;
    addNumbers(&all);
    addTimes(&all);
    addTexts(&all);
    return all;
}

TEST_F(SelectionRoundTrip, EveryFieldAndOperatorAtBothLevels) {
    for (const Predicate &predicate : predicates()) {
        SCOPED_TRACE(std::to_string(predicate.node->left->value) + " with " +
                     std::to_string(predicate.node->type));
        expectBothLevels(predicate);
    }
}

TEST_F(SelectionRoundTrip, TreesOfSeveralFields) {
    const std::vector<Predicate> all = predicates();
    std::mt19937 random(20261121);
    const auto any = [&] { return all[random() % all.size()]; };
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        Predicate tree = any();
        for (size_t operators = 1 + random() % 6; operators != 0; --operators) {
            const int32_t op = random() % 2 == 0 ? kAnd : kOr;
            tree = random() % 2 == 0 ? tie(op, tree, any())
                                     : tie(op, tie(op == kAnd ? kOr : kAnd, any(), any()), tree);
        }
        expectBothLevels(tree);
    }
}

TEST_F(SelectionRoundTrip, WithoutAQueryEveryFileOnce) {
    EXPECT_EQ(selected(nullptr, nullptr), expected(kAny));
}

TEST_F(SelectionRoundTrip, TimesOfHeadersAndNames) {
    // All were begun today, give or take the hours of any zone.
    const auto yesterday = static_cast<uint32_t>(secondsNow() - 2 * 86400);
    const auto tomorrow = static_cast<uint32_t>(secondsNow() + 2 * 86400);
    QueryNode *later = number(284, 269, yesterday);
    QueryNode *earlier = number(283, 269, tomorrow);
    EXPECT_EQ(selected(nullptr, node(kAnd, 0, nullptr, later, earlier)), expected(kAny));
    EXPECT_TRUE(selected(nullptr, number(284, 269, tomorrow)).empty());
    EXPECT_EQ(selected(number(284, 269, yesterday), nullptr),
              expected([](const File &file) { return !file.logSet.empty(); }))
        << "only the names of log sets say more than the listing";
}

} // namespace

} // namespace zantlog::test
