// Files that the library wrote in several modes, selected by every field and held against a plain model.
#include <algorithm>
#include <functional>
#include <list>
#include <map>
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

    std::vector<Predicate> predicates();

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
            writeFileBytes(path, "Default" + directory +
                                     "Default.RolloverMode=FileSize\r\nDefault.MaxLogFileSizeKB=1\r\n"
                                     "3.RolloverMode=None\r\n4.RolloverMode=FileSize\r\n"
                                     "LOGSET.Default" +
                                     directory +
                                     "LOGSET.audit.RolloverMode=None\r\nLOGSET.audit.FileName=auditfile\r\n"
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

    // Each file gets a time of its own; the model is read from its name and first line.
    void readFiles() {
        int64_t time = 1763300000;
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

    ScopedFolder store_;
    ScopedFolder logs_;
    std::list<QueryNode> nodes_;
    zantLogCfg *array_[64] = {};
    uint32_t count_ = 0;
};

constexpr auto kAny = [](const File &) { return true; };
constexpr auto kNone = [](const File &) { return false; };

std::vector<Predicate> SelectionRoundTrip::predicates() {
    std::vector<Predicate> all;
    const auto add = [&all](QueryNode *root, const std::function<bool(const File &)> &file,
                            const std::function<bool(const File &)> &header) {
        all.push_back({root, file, header});
    };
    for (const uint32_t product : {12u, 13u, 14u}) {
        const auto is = [product](const File &file) { return file.product == product; };
        add(number(287, 263, product), is, is);
        const auto above = [product](const File &file) { return file.product > product; };
        add(number(284, 263, product), above, above);
    }
    for (const uint32_t originator : {0u, 3u, 4u, 112u}) {
        add(
            number(287, 265, originator),
            [originator](const File &file) { return file.originator == originator; }, kNone);
        add(number(287, 264, originator), kAny,
            [originator](const File &file) { return file.originator == originator; });
    }
    static const std::string kHost = files_.begin()->second.host;
    for (const char *host : {kHost.c_str(), "elsewhere"}) {
        add(
            text(287, 278, host), [host](const File &file) { return file.host == host; }, kNone);
        add(
            text(288, 278, host), [host](const File &file) { return file.host != host; }, kNone);
    }
    for (const char *name : {"audit", "auditfile", "trail", "Default"}) {
        add(
            text(287, 279, name), [name](const File &file) { return file.logSetFile == name; },
            [name](const File &file) { return file.logSet == name; });
        add(
            text(288, 279, name),
            [name](const File &file) { return !file.logSet.empty() && file.logSetFile != name; },
            [name](const File &file) { return !file.logSet.empty() && file.logSet != name; });
    }
    // The listing's times lie a day and more before or behind those in names and headers.
    for (const int64_t moment : {int64_t{1763300000}, int64_t{1763300004}, int64_t{1763300011}}) {
        const auto value = static_cast<uint32_t>(moment);
        add(
            number(287, 268, value), [moment](const File &file) { return file.time == moment; },
            [moment](const File &file) { return file.time == moment; });
        add(
            number(287, 269, value),
            [moment](const File &file) { return file.originator != 0 && file.time == moment; }, kNone);
    }
    add(number(287, 270, 5), kAny, kNone);
    add(number(287, 276, 5), kNone, kNone);
    return all;
}

TEST_F(SelectionRoundTrip, EveryFieldAtBothLevels) {
    for (const Predicate &predicate : predicates()) {
        EXPECT_EQ(selected(predicate.node, nullptr), expected(predicate.file))
            << predicate.node->left->value << " file level";
        EXPECT_EQ(selected(nullptr, predicate.node), expected(predicate.header))
            << predicate.node->left->value << " header level";
        EXPECT_EQ(selected(predicate.node, predicate.node),
                  expected([&](const File &file) { return predicate.file(file) && predicate.header(file); }));
    }
}

TEST_F(SelectionRoundTrip, EveryPairOfFieldsTiedByAndAndOr) {
    const std::vector<Predicate> all = predicates();
    for (size_t i = 0; i < all.size(); ++i) {
        const Predicate &one = all[i];
        const Predicate &other = all[(i * 7 + 3) % all.size()];
        QueryNode *both = node(281, 0, nullptr, one.node, other.node);
        EXPECT_EQ(selected(both, nullptr),
                  expected([&](const File &file) { return one.file(file) && other.file(file); }));
        EXPECT_EQ(selected(nullptr, both),
                  expected([&](const File &file) { return one.header(file) && other.header(file); }));
        QueryNode *either = node(282, 0, nullptr, one.node, other.node);
        EXPECT_EQ(selected(either, nullptr),
                  expected([&](const File &file) { return one.file(file) || other.file(file); }));
        EXPECT_EQ(selected(nullptr, either),
                  expected([&](const File &file) { return one.header(file) || other.header(file); }));
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
    EXPECT_EQ(selected(nullptr, node(281, 0, nullptr, later, earlier)), expected(kAny));
    EXPECT_TRUE(selected(nullptr, number(284, 269, tomorrow)).empty());
    const auto isLogSet = [](const File &file) { return !file.logSet.empty(); };
    EXPECT_EQ(selected(number(284, 269, yesterday), nullptr),
              expected([&](const File &file) { return isLogSet(file) || file.time > yesterday; }));
}

} // namespace

} // namespace zantlog::test
