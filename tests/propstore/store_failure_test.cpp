// What the store does when the operating system fails it, call by call.
#include "propstore/file_store.h"
#include "tests/propstore/failing_seam.h"
#include "zantlog/config_store.h"
#include "zantlog/message.h"
#include "zantlog/results.h"

#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

constexpr char kPath[] = "C:\\dir\\x.conf";
constexpr char kTemporary[] = "C:\\dir\\x.conf.tmp";
constexpr char kLines[] = "# c\n1.A=a\n1.B=b\n2.A=c\n2.B=d\n";
const std::string kRename = std::string("rename ") + kTemporary + " " + kPath;
const std::string kDelete = std::string("delete ") + kTemporary;

using Calls = std::vector<std::string>;

uint32_t setNew(PropertyStore *store) {
    return utiSetPropertyAsStr(store, "C", "new");
}
uint32_t setExisting(PropertyStore *store) {
    return utiSetPropertyAsStr(store, "A", "new");
}
uint32_t removeProperty(PropertyStore *store) {
    return utiRemoveProperty(store, "A");
}
uint32_t removeRoot(PropertyStore *store) {
    return utiRemovePropertyRoot(store, "2");
}
uint32_t removeMissingRoot(PropertyStore *store) {
    return utiRemovePropertyRoot(store, "9");
}

struct Change {
    const char *name;
    uint32_t (*run)(PropertyStore *);
    uint32_t result; // without a failure
    int writes;      // lines of the new file
    const char *lines;
};

constexpr Change kChanges[] = {
    {"set a new property", setNew, 0, 6, "# c\n1.A=a\n1.B=b\n1.C=new\n2.A=c\n2.B=d\n"},
    {"set an existing property", setExisting, 0, 5, "# c\n1.A=new\n1.B=b\n2.A=c\n2.B=d\n"},
    {"remove a property", removeProperty, 0, 4, "# c\n1.B=b\n2.A=c\n2.B=d\n"},
    {"remove a root", removeRoot, 0, 3, "# c\n1.A=a\n1.B=b\n"},
    {"remove a missing root", removeMissingRoot, 8, 5, kLines},
};

class StoreFailure : public testing::TestWithParam<Change> {
protected:
    StoreFailure() {
        seam() = {};
        seam().files[kPath] = kLines;
        EXPECT_EQ(0u, utiOpenPropertyStore(kPath, "1", &store, 1));
    }
    ~StoreFailure() override {
        utiClosePropertyStore(&store);
        EXPECT_EQ(0, seam().openStreams);
    }

    uint32_t change() { return GetParam().run(&store); }
    void expectUnchangedAndOpen() {
        EXPECT_EQ(kLines, seam().files[kPath]);
        EXPECT_NE(nullptr, store.file.stream);
        EXPECT_EQ(1, seam().openStreams);
        uint32_t number = 77;
        EXPECT_EQ(0u, utiGetPropertyAsBool(&store, "A", &number)); // it can be read as before
    }
    void expectClosed() {
        EXPECT_EQ(nullptr, store.file.stream);
        EXPECT_EQ(0, seam().openStreams);
    }

    PropertyStore store = {};
};

std::string nameOfChange(const testing::TestParamInfo<Change> &change) {
    std::string name = change.param.name;
    std::erase(name, ' ');
    return name;
}

INSTANTIATE_TEST_SUITE_P(EveryChange, StoreFailure, testing::ValuesIn(kChanges), nameOfChange);

TEST_P(StoreFailure, WithoutOneTheFileIsReplacedOnce) {
    EXPECT_EQ(GetParam().result, change());
    EXPECT_EQ(GetParam().lines, seam().files[kPath]);
    EXPECT_EQ(Calls{kRename}, seam().calls);
    EXPECT_EQ(1u, seam().files.size());
    EXPECT_EQ(1, seam().openStreams);
}

TEST_P(StoreFailure, FailedWriteGives6AndLeavesTheStoreOpenAndTheTemporaryFile) {
    for (int write = 1; write <= GetParam().writes; ++write) {
        SCOPED_TRACE(write);
        seam().fail.write = write;
        seam().calls.clear();
        EXPECT_EQ(6u, change());
        expectUnchangedAndOpen();
        EXPECT_TRUE(seam().files.contains(kTemporary));
        EXPECT_TRUE(seam().calls.empty() || seam().calls == Calls{kDelete}); // what the last attempt left
    }
    EXPECT_EQ(GetParam().result, change());
    EXPECT_EQ(GetParam().lines, seam().files[kPath]);
    EXPECT_FALSE(seam().files.contains(kTemporary));
}

TEST_P(StoreFailure, FailedCloseOfTheTemporaryFileGives6BeforeAnyRename) {
    seam().fail.close = 1;
    EXPECT_EQ(6u, change());
    expectUnchangedAndOpen();
    EXPECT_TRUE(seam().calls.empty());
    EXPECT_TRUE(seam().files.contains(kTemporary));
}

// A file that cannot be read to its end must not be replaced by its beginning.
TEST_P(StoreFailure, FailedReadGives6BeforeAnyRename) {
    for (int read = 1; read <= 6; ++read) {
        SCOPED_TRACE(read);
        seam().fail.read = read;
        seam().calls.clear();
        EXPECT_EQ(6u, change());
        expectUnchangedAndOpen();
        EXPECT_TRUE(seam().calls.empty() || seam().calls == Calls{kDelete});
    }
}

TEST_P(StoreFailure, TemporaryFileThatCannotBeOpenedGives5) {
    seam().fail.open = 1;
    EXPECT_EQ(5u, change());
    expectUnchangedAndOpen();
    EXPECT_TRUE(seam().calls.empty());
}

TEST_P(StoreFailure, DeniedRenameIsTriedFiveTimes) {
    for (size_t denied = 1; denied <= 4; ++denied) {
        SCOPED_TRACE(denied);
        seam().files[kPath] = kLines;
        ASSERT_EQ(0u, utiClosePropertyStore(&store));
        ASSERT_EQ(0u, utiOpenPropertyStore(kPath, "1", &store, 1));
        seam().calls.clear();
        seam().replaceErrors.assign(denied, 5);
        EXPECT_EQ(GetParam().result, change());
        EXPECT_EQ(GetParam().lines, seam().files[kPath]);
        Calls expected;
        for (size_t attempt = 0; attempt < denied; ++attempt) {
            expected.insert(expected.end(), {kRename, "sleep 10"});
        }
        expected.push_back(kRename);
        EXPECT_EQ(expected, seam().calls);
    }
}

TEST_P(StoreFailure, RenameDeniedFiveTimesGives10) {
    seam().replaceErrors.assign(6, 5);
    EXPECT_EQ(10u, change());
    EXPECT_EQ((Calls{kRename, "sleep 10", kRename, "sleep 10", kRename, "sleep 10", kRename, "sleep 10",
                     kRename, "sleep 10", kDelete}),
              seam().calls);
    EXPECT_EQ(kLines, seam().files[kPath]);
    expectClosed();
}

TEST_P(StoreFailure, RenameThatFailsOtherwiseGives6AtOnce) {
    for (const uint32_t error : {2u, 32u, 112u}) {
        seam().files[kPath] = kLines;
        ASSERT_EQ(0u, utiClosePropertyStore(&store));
        ASSERT_EQ(0u, utiOpenPropertyStore(kPath, "1", &store, 1));
        seam().calls.clear();
        seam().replaceErrors.assign(1, error);
        EXPECT_EQ(6u, change());
        EXPECT_EQ((Calls{kRename, kDelete}), seam().calls);
        EXPECT_EQ(kLines, seam().files[kPath]);
        expectClosed();
    }
}

TEST_P(StoreFailure, RenameDeniedAndThenFailingOtherwiseGives6) {
    seam().replaceErrors = {5, 5, 32};
    EXPECT_EQ(6u, change());
    EXPECT_EQ((Calls{kRename, "sleep 10", kRename, "sleep 10", kRename, kDelete}), seam().calls);
    expectClosed();
}

TEST_P(StoreFailure, NewFileThatCannotBeOpenedGives2AndClosesTheStore) {
    seam().fail.open = 2; // the first is the temporary file
    EXPECT_EQ(2u, change());
    EXPECT_EQ(GetParam().lines, seam().files[kPath]);
    expectClosed();
}

TEST_P(StoreFailure, ChangeReadsTheFileOnce) {
    std::string lines;
    for (int at = 0; at < 10000; ++at) {
        lines += std::to_string(1 + at / 100) + ".P" + std::to_string(at) + "=v\n";
    }
    seam().files[kPath] = lines;
    ASSERT_EQ(0u, utiClosePropertyStore(&store));
    ASSERT_EQ(0u, utiOpenPropertyStore(kPath, "1", &store, 1));
    seam().linesRead = 0;
    change();
    EXPECT_EQ(10001, seam().linesRead); // the last one meets the end
}

class StoreCreationFailure : public testing::Test {
protected:
    StoreCreationFailure() { seam() = {}; }
    ~StoreCreationFailure() override {
        utiClosePropertyStore(&store);
        EXPECT_EQ(0, seam().openStreams);
    }

    // What the file back end says, and what comes of it outside.
    void expectFailure(const Failures &failures, uint32_t inside) {
        PropertyFile file = {};
        seam() = {};
        seam().fail = failures;
        EXPECT_EQ(inside, fileCreatePropertyStore(kPath, "1", &file));
        EXPECT_EQ(nullptr, file.stream);
        EXPECT_EQ(0, seam().openStreams);

        seam() = {};
        seam().fail = failures;
        seam().fail.open += failures.open != 0 ? 1 : 0; // the attempt to open what is there comes first
        EXPECT_EQ(6u, CreatePropertyString(kPath, "1", &store));
        EXPECT_EQ(nullptr, store.key);
        EXPECT_EQ(nullptr, store.file.stream);
        EXPECT_EQ(0, seam().openStreams);
    }

    PropertyStore store = {};
};

TEST_F(StoreCreationFailure, AFileThatCannotBeOpenedForAMomentKeepsWhatItHolds) {
    seam().files[kPath] = kLines;
    seam().fail.open = 1;
    EXPECT_EQ(0u, CreatePropertyString(kPath, "1", &store)) << "the second attempt opens it";
    EXPECT_EQ(kLines, seam().files[kPath]);
}

TEST_F(StoreCreationFailure, DirectoryOrFileThatCannotBeMadeGives5) {
    expectFailure({.createDirectory = 1}, 5);
    expectFailure({.open = 1}, 5);
    expectFailure({.write = 1}, 5);
    expectFailure({.close = 1}, 5);
}

TEST_F(StoreCreationFailure, NewFileThatCannotBeOpenedGives2) {
    expectFailure({.open = 2}, 2);
}

TEST_F(StoreCreationFailure, PathWithoutBackslashGives5) {
    PropertyFile file = {};
    EXPECT_EQ(5u, fileCreatePropertyStore("x.conf", "1", &file));
    EXPECT_TRUE(seam().files.empty());
}

TEST(FileBackEnd, NullArguments) {
    seam() = {};
    PropertyFile file = {};
    EXPECT_EQ(1u, fileOpenPropertyStore(nullptr, "1", &file));
    EXPECT_EQ(1u, fileOpenPropertyStore(kPath, nullptr, &file));
    EXPECT_EQ(1u, fileOpenPropertyStore(kPath, "1", nullptr));
    EXPECT_EQ(1u, fileCreatePropertyStore(nullptr, "1", &file));
    EXPECT_EQ(1u, fileCreatePropertyStore(kPath, nullptr, &file));
    EXPECT_EQ(1u, fileCreatePropertyStore(kPath, "1", nullptr));
    EXPECT_EQ(1u, fileOpenTempStore(nullptr, "1", &file));
    EXPECT_EQ(1u, fileOpenTempStore(kPath, nullptr, &file));
    EXPECT_EQ(1u, fileOpenTempStore(kPath, "1", nullptr));
    EXPECT_EQ(1u, fileClosePropertyStore(nullptr));
    EXPECT_EQ(0u, fileClosePropertyStore(&file));
    EXPECT_TRUE(seam().files.empty());
}

TEST(FileBackEnd, TemporaryStateNamesItsFileAndRoot) {
    seam() = {};
    seam().files[kTemporary] = "left over";
    PropertyFile temporary = {};
    ASSERT_EQ(0u, fileOpenTempStore(kPath, "12", &temporary));
    EXPECT_EQ(Calls{kDelete}, seam().calls);
    EXPECT_STREQ(kTemporary, temporary.path);
    EXPECT_STREQ("12", temporary.root);
    EXPECT_EQ(0u, fileClosePropertyStore(&temporary));
    EXPECT_EQ("", seam().files[kTemporary]);
}

TEST(FileBackEnd, FindNeedsAllItsArguments) {
    seam() = {};
    seam().files[kPath] = kLines;
    PropertyFile file = {};
    char value[8] = "old";
    EXPECT_FALSE(fileFindProperty(&file, "A", value, sizeof value)); // closed
    ASSERT_EQ(0u, fileOpenPropertyStore(kPath, "1", &file));
    EXPECT_FALSE(fileFindProperty(nullptr, "A", value, sizeof value));
    EXPECT_FALSE(fileFindProperty(&file, nullptr, value, sizeof value));
    EXPECT_FALSE(fileFindProperty(&file, "A", nullptr, sizeof value));
    EXPECT_FALSE(fileFindProperty(&file, "A", value, 0));
    EXPECT_STREQ("old", value);
    EXPECT_TRUE(fileFindProperty(&file, "A", value, sizeof value));
    EXPECT_STREQ("a", value);
    EXPECT_EQ(0u, fileClosePropertyStore(&file));
}

TEST(FileBackEnd, FoundValueIsCutAtTheBuffer) {
    seam() = {};
    seam().files[kPath] = "1.A=abcdef\n";
    PropertyFile file = {};
    ASSERT_EQ(0u, fileOpenPropertyStore(kPath, "1", &file));
    char value[8] = "oldold";
    EXPECT_TRUE(fileFindProperty(&file, "A", value, 4));
    EXPECT_STREQ("abc", value);
    EXPECT_TRUE(fileFindProperty(&file, "A", value, 7));
    EXPECT_STREQ("abcdef", value);
    EXPECT_EQ(0u, fileClosePropertyStore(&file));
}

class RegistryFailure : public testing::Test {
protected:
    RegistryFailure() {
        seam() = {};
        seam().texts["A"] = std::string("one\0", 4);
        EXPECT_EQ(0u, utiOpenPropertyStore("SOFTWARE", "zantlog", &store, 1));
    }
    ~RegistryFailure() override {
        utiClosePropertyStore(&store);
        EXPECT_EQ(0, seam().openKeys);
    }

    PropertyStore store = {};
};

TEST_F(RegistryFailure, ValueThatCannotBeReadGives3) {
    for (const int query : {1, 2}) { // for its size, for its bytes
        char *value = zantLogSafeStrdup("former");
        uint32_t number = 77;
        seam().fail.queryValue = query;
        EXPECT_EQ(3u, utiGetPropertyAsStr(&store, "A", &value));
        EXPECT_STREQ("former", value);
        seam().fail.queryValue = query;
        EXPECT_EQ(3u, utiGetPropertyAsBool(&store, "A", &number));
        EXPECT_EQ(77u, number);
        zantLogFree(value);
    }
}

// A sanitizer's build sees a former text that is not freed.
TEST_F(RegistryFailure, WithoutOneTheFormerTextIsFreed) {
    char *value = zantLogSafeStrdup("former");
    EXPECT_EQ(0u, utiGetPropertyAsStr(&store, "A", &value));
    EXPECT_STREQ("one", value);
    zantLogFree(value);
}

TEST_F(RegistryFailure, RemovalByPathClosesTheKeyThatItOpens) {
    EXPECT_EQ(0u, utiRemovePropertyRoot(&store, "SOFTWARE\\zantlog\\12"));
    EXPECT_EQ(Calls{"delete tree 12"}, seam().calls);
    EXPECT_EQ(1, seam().openKeys);
    seam().deleteTreeError = 5;
    EXPECT_EQ(6u, utiRemovePropertyRoot(&store, "SOFTWARE\\zantlog\\12"));
    EXPECT_EQ(1, seam().openKeys);
}

TEST_F(RegistryFailure, DeletionErrorsOfTrees) {
    seam().deleteTreeError = 2;
    EXPECT_EQ(8u, utiRemovePropertyRoot(&store, "12"));
    for (const uint32_t error : {3u, 5u, 1018u}) {
        seam().deleteTreeError = error;
        EXPECT_EQ(6u, utiRemovePropertyRoot(&store, "12"));
    }
}

TEST_F(RegistryFailure, EnumerationThatFailsGives6AndLeavesTheLength) {
    char name[8] = "old";
    uint32_t length = sizeof name;
    EXPECT_EQ(6u, utiEnumProductId(&store, 0, name, &length));
    EXPECT_EQ(6u, utiEnumLogsetForProductId(&store, 0, name, &length));
    EXPECT_EQ(8u, length);
}

} // namespace
} // namespace zantlog::test
