// Removing properties and whole roots from a `.conf` file.
#include "tests/propstore/store_test.h"

namespace zantlog::test {
namespace {

class FileRemoval : public FileStoreTest {
protected:
    // What removing root.name makes of these lines.
    std::string after(const std::string &lines, const std::string &root, const std::string &name) {
        utiClosePropertyStore(store);
        fileOf(lines);
        EXPECT_EQ(0u, store.open(path, root));
        EXPECT_EQ(0u, utiRemoveProperty(store, name.c_str()));
        EXPECT_NE(nullptr, store.record.file.stream);
        return linesOf(readBytes(path));
    }
};

TEST_F(FileRemoval, LineOfThePropertyGoes) {
    EXPECT_EQ("# c\n1.A=a\n2.B=b\n", after("# c\n1.A=a\n1.B=b\n2.B=b\n", "1", "B"));
    EXPECT_EQ("", after("1.A=a\n", "1", "A"));
    EXPECT_EQ("LOGSET.y.A=2\nx.A=3\n", after("LOGSET.x.A=1\nLOGSET.y.A=2\nx.A=3\n", "LOGSET.x", "A"));
}

TEST_F(FileRemoval, AllLinesOfThePropertyGo) {
    EXPECT_EQ("2.A=c\n", after("1.A=a\n1.A=b\n2.A=c\n1.A=d\n==1.A=e\n1.A", "1", "A"));
}

TEST_F(FileRemoval, KeysAreComparedExactly) {
    const std::string lines = " 1.A=a\n1.A =b\n1.a=c\n11.A=d\n#1.A=e\n1.AA=f\n1.A\n.1.A=g\n=.=\n";
    EXPECT_EQ(lines, after(lines, "1", "A"));
}

TEST_F(FileRemoval, EmptyRootRemovesTheNameAlone) {
    EXPECT_EQ("1.A=b\n", after("A=a\n1.A=b\n", "", "A"));
    EXPECT_EQ("A=a\n", after("A=a\n1.A=b\n", "", "1.A"));
    EXPECT_EQ(".A=a\n", after(".A=a\n", "", "A"));
    EXPECT_EQ("=\n==", after("=\n==", "", ""));
}

TEST_F(FileRemoval, TemporaryFileIsGoneAfterAChange) {
    after("1.A=a\n", "1", "A");
    EXPECT_FALSE(exists(temporary));
}

TEST_F(FileRemoval, StoreIsUsableAfterwards) {
    after("1.A=a\n1.B=b\n", "1", "A");
    EXPECT_EQ("(3)", text("A"));
    EXPECT_EQ("b", text("B"));
    EXPECT_EQ(0u, utiRemoveProperty(store, "B"));
    expectFile("");
}

TEST_F(FileRemoval, MissingPropertyIsASuccessThatLeavesTheTemporaryFile) {
    const std::string lines = "1.A=a\n2.A=b\n";
    EXPECT_EQ(lines, after(lines, "1", "B"));
    EXPECT_EQ(onDisk(lines), readBytes(temporary));
    EXPECT_EQ("a", text("A"));
    EXPECT_EQ(0u, set("A", "c"));
    expectFile("1.A=c\n2.A=b\n");
    EXPECT_FALSE(exists(temporary));
}

// Nothing is renamed, so it does not matter that somebody has the file open.
TEST_F(FileRemoval, MissingPropertyIsASuccessInAFileThatIsInUse) {
    fileOf("1.A=a\n");
    open("1");
    OpenStore holder(path, "1");
    EXPECT_EQ(0u, utiRemoveProperty(store, "B"));
}

TEST_F(FileRemoval, EnumerationIsAtItsEndAfterTheRemovalOfAMissingProperty) {
    after("1.A=a\n2.A=b\n", "1", "B");
    char name[80] = "";
    uint32_t length = sizeof name;
    EXPECT_EQ(7u, utiEnumProductId(store, 0, name, &length));
    EXPECT_EQ(7u, utiEnumLogsetForProductId(store, 0, name, &length));
    EXPECT_EQ(80u, length);
}

TEST_F(FileRemoval, OverlongNameIsAMissingProperty) {
    const std::string name(100000, 'n');
    EXPECT_EQ("1.A=a\n", after("1.A=a\n", "1", name));
}

TEST_F(FileRemoval, RenameDeniedFiveTimesGives10AndClosesTheStore) {
    fileOf("1.A=a\n");
    open("1");
    OpenStore holder(path, "1");
    EXPECT_EQ(10u, utiRemoveProperty(store, "A"));
    expectFile("1.A=a\n");
    EXPECT_FALSE(exists(temporary));
    EXPECT_EQ(nullptr, store.record.file.stream);
}

TEST_F(FileRemoval, RenameThatFailsOtherwiseGives6AndClosesTheStore) {
    fileOf("1.A=a\n");
    open("1");
    writeBytes(temporary, "");
    OpenStore holder(temporary, "1");
    ASSERT_EQ(0u, holder.result);
    EXPECT_EQ(6u, utiRemoveProperty(store, "A"));
    expectFile("1.A=a\n");
    EXPECT_EQ(nullptr, store.record.file.stream);
}

TEST_F(FileRemoval, NullArguments) {
    fileOf("1.A=a\n");
    open("1");
    EXPECT_EQ(1u, utiRemoveProperty(nullptr, "A"));
    EXPECT_EQ(1u, utiRemoveProperty(store, nullptr));
    EXPECT_FALSE(exists(temporary));
    EXPECT_EQ("a", text("A"));
}

class FileRootRemoval : public FileStoreTest {
protected:
    // What removing a root makes of these lines.
    std::string after(const std::string &lines, const std::string &root, uint32_t expected = 0) {
        utiClosePropertyStore(store);
        fileOf(lines);
        EXPECT_EQ(0u, store.open(path, "77"));
        EXPECT_EQ(expected, utiRemovePropertyRoot(store, root.c_str()));
        EXPECT_NE(nullptr, store.record.file.stream);
        EXPECT_STREQ("77", store.record.file.root);
        EXPECT_FALSE(exists(temporary));
        return linesOf(readBytes(path));
    }
};

TEST_F(FileRootRemoval, AllLinesOfTheRootGo) {
    EXPECT_EQ("# c\n2.A=c\n11.A=e\n", after("# c\n1.A=a\n1.B=b\n2.A=c\n1.C=d\n11.A=e\n", "1"));
    EXPECT_EQ("", after("1.A=a\n", "1"));
}

TEST_F(FileRootRemoval, LogSetIsRemovedByItsRootOnly) {
    const std::string lines = "LOGSET.x.A=1\nx.A=2\nLOGSET.y.A=3\nLOGSET.x.B=4\n";
    EXPECT_EQ("x.A=2\nLOGSET.y.A=3\n", after(lines, "LOGSET.x"));
    EXPECT_EQ("LOGSET.x.A=1\nLOGSET.y.A=3\nLOGSET.x.B=4\n", after(lines, "x"));
    EXPECT_EQ(lines, after(lines, "LOGSET", 8));
    EXPECT_EQ(lines, after(lines, "LOGSET.", 8));
}

// Here a line is split at the dots alone, unlike in a set.
TEST_F(FileRootRemoval, LineIsSplitAtItsDots) {
    EXPECT_EQ("1=5\n=1.A=6\n 1.A=8\n1\n", after("1=5\n=1.A=6\n..1.A=7\n 1.A=8\n1\n", "1"));
    EXPECT_EQ("1.A=1\n", after("#2.A=1\n1.A=1\n", "#2"));
    EXPECT_EQ("...\n", after("1.A\n...\n1", "1"));
    EXPECT_EQ("LOGSET.", after("1.A=1\nLOGSET.", "1"));
}

TEST_F(FileRootRemoval, MissingRootGives8AndLeavesTheFileAsItWas) {
    const std::string lines = "# c\n\n1.A=a\n  x\n2.A=b";
    EXPECT_EQ(lines, after(lines, "9", 8));
    EXPECT_EQ(lines, after(lines, "", 8));
    EXPECT_EQ("", after("", "9", 8));
    EXPECT_EQ(lines, after(lines, std::string(100000, '9'), 8));
}

// Seen by what a copy loses: the bytes from Ctrl-Z on.
TEST_F(FileRootRemoval, MissingRootRewritesTheFile) {
    EXPECT_EQ("1.A=a\n", after("1.A=a\n\x1a"
                               "2.A=b\n",
                               "9", 8));
}

TEST_F(FileRootRemoval, StoreIsUsableAfterwards) {
    after("1.A=a\n77.A=b\n", "1");
    EXPECT_EQ("b", text("A"));
    EXPECT_EQ(0u, set("A", "c"));
    expectFile("77.A=c\n");
}

TEST_F(FileRootRemoval, FailedRenameIsTheResultAlsoWhenTheRootIsMissing) {
    fileOf("1.A=a\n");
    for (const char *root : {"1", "9"}) {
        open("1");
        OpenStore holder(path, "1");
        EXPECT_EQ(10u, utiRemovePropertyRoot(store, root));
        EXPECT_EQ(nullptr, store.record.file.stream);
        expectFile("1.A=a\n");
        EXPECT_FALSE(exists(temporary));
    }
}

TEST_F(FileRootRemoval, ConfPathDeletesThatFile) {
    const std::string other = folder.file("other.conf");
    writeBytes(other, "1.A=a\r\n");
    fileOf("1.A=a\n");
    open("1");
    EXPECT_EQ(0u, utiRemovePropertyRoot(store, other.c_str()));
    EXPECT_FALSE(exists(other));
    EXPECT_EQ(6u, utiRemovePropertyRoot(store, other.c_str()));
    EXPECT_EQ(6u, utiRemovePropertyRoot(store, path.c_str())); // it is open
    expectFile("1.A=a\n");
    EXPECT_EQ("a", text("A"));
    EXPECT_FALSE(exists(temporary));
}

TEST_F(FileRootRemoval, NullArguments) {
    fileOf("1.A=a\n");
    open("1");
    EXPECT_EQ(1u, utiRemovePropertyRoot(nullptr, "1"));
    EXPECT_EQ(1u, utiRemovePropertyRoot(store, nullptr));
    expectFile("1.A=a\n");
}

} // namespace
} // namespace zantlog::test
