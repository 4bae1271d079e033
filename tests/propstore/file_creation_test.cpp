// Creating and opening a `.conf` file.
#include "tests/propstore/store_test.h"
#include "tests/support/files.h"

#include <cstring>

namespace zantlog::test {
namespace {

constexpr char kBannerOnDisk[] = "###############################################\r\n"
                                 "# Caution! Do not update/modify file by hand. \r\n"
                                 "# Use qzlogcfg tool to update/modify this file\r\n"
                                 "###############################################\r\n";

class FileCreation : public FileStoreTest {
protected:
    uint32_t create(const std::string &location, const std::string &section = "12") {
        utiClosePropertyStore(store);
        return CreatePropertyString(location.c_str(), section.c_str(), store);
    }
};

TEST_F(FileCreation, NewFileHoldsTheFourLinesOfTheBanner) {
    ASSERT_EQ(0u, create(path));
    EXPECT_EQ(kBannerOnDisk, readBytes(path));
    EXPECT_EQ(194u, readBytes(path).size());
    EXPECT_FALSE(exists(temporary));
}

TEST_F(FileCreation, NewFileIsOpenOnItsRootAndUsable) {
    ASSERT_EQ(0u, create(path, "12"));
    EXPECT_EQ(nullptr, store.record.key);
    EXPECT_NE(nullptr, store.record.file.stream);
    EXPECT_STREQ("12", store.record.file.root);
    EXPECT_EQ(path, store.record.file.path);
    EXPECT_EQ("(3)", text("A"));
    EXPECT_EQ(0u, set("A", "one"));
    EXPECT_EQ(std::string(kBannerOnDisk) + "12.A=one\r\n", readBytes(path));
}

TEST_F(FileCreation, DirectoriesAreMade) {
    const std::string deep = folder.file("a\\b\\c\\x.conf");
    ASSERT_EQ(0u, create(deep));
    EXPECT_EQ(kBannerOnDisk, readBytes(deep));
}

TEST_F(FileCreation, ExistingFileIsOpenedAsItIs) {
    fileOf("12.A=one\n");
    ASSERT_EQ(0u, create(path));
    expectFile("12.A=one\n");
    EXPECT_EQ("one", text("A"));
}

TEST_F(FileCreation, PathWithoutBackslashIsNotCreated) {
    EXPECT_EQ(6u, create("zantlog-test-plain.conf"));
    EXPECT_FALSE(exists("zantlog-test-plain.conf"));
    std::string slashes = path;
    for (char &c : slashes) {
        c = c == '\\' ? '/' : c;
    }
    EXPECT_EQ(6u, create(slashes));
    EXPECT_FALSE(exists(path));
}

TEST_F(FileCreation, FileThatStandsWhereADirectoryIsNeededGives6) {
    writeBytes(folder.file("taken"), "");
    EXPECT_EQ(6u, create(folder.file("taken\\x.conf")));
    EXPECT_EQ(nullptr, store.record.file.stream);
}

TEST_F(FileCreation, DirectoryThatStandsWhereTheFileIsNeededGives6) {
    makeFolder(path);
    EXPECT_EQ(6u, create(path));
    EXPECT_EQ(nullptr, store.record.key);
    EXPECT_EQ(nullptr, store.record.file.stream);
}

TEST_F(FileCreation, NullArguments) {
    EXPECT_EQ(3u, CreatePropertyString(path.c_str(), "1", nullptr));
    EXPECT_EQ(1u, CreatePropertyString(nullptr, "1", store));
    EXPECT_EQ(1u, CreatePropertyString(path.c_str(), nullptr, store));
    EXPECT_FALSE(exists(path));
}

TEST_F(FileCreation, ConfAnywhereInTheLocationMeansAFile) {
    const std::string other = folder.file("x.config.txt");
    ASSERT_EQ(0u, create(other));
    EXPECT_EQ(kBannerOnDisk, readBytes(other));
    ASSERT_EQ(0u, create(folder.file("dir.conf\\plain")));
    EXPECT_EQ(kBannerOnDisk, readBytes(folder.file("dir.conf\\plain")));
}

using FileOpening = FileStoreTest;

TEST_F(FileOpening, MissingFileGives2AndIsNotMade) {
    EXPECT_EQ(2u, store.open(path, "1"));
    EXPECT_EQ(nullptr, store.record.key);
    EXPECT_EQ(nullptr, store.record.file.stream);
    EXPECT_FALSE(exists(path));
}

TEST_F(FileOpening, OpenClearsTheRecordFirst) {
    PropertyStore record;
    memset(&record, 0x5a, sizeof record);
    EXPECT_EQ(2u, utiOpenPropertyStore(path.c_str(), "1", &record, 0));
    const PropertyStore clear = {};
    EXPECT_EQ(0, memcmp(&record, &clear, sizeof record));
}

TEST_F(FileOpening, BothModesReadAndWrite) {
    fileOf("1.A=one\n");
    for (const uint32_t mode : {0u, 1u, 7u}) {
        ASSERT_EQ(0u, store.open(path, "1", mode));
        EXPECT_EQ("one", text("A"));
        EXPECT_EQ(0u, set("B", "two"));
        EXPECT_EQ("two", text("B"));
    }
}

TEST_F(FileOpening, NullArguments) {
    EXPECT_EQ(1u, utiOpenPropertyStore(nullptr, "1", store, 0));
    EXPECT_EQ(1u, utiOpenPropertyStore(path.c_str(), nullptr, store, 0));
    EXPECT_EQ(1u, utiOpenPropertyStore(path.c_str(), "1", nullptr, 0));
    EXPECT_EQ(1u, utiClosePropertyStore(nullptr));
}

TEST_F(FileOpening, ClosedStoreFindsNothingAndChangesNothing) {
    fileOf("1.A=1\n");
    open("1");
    ASSERT_EQ(0u, utiClosePropertyStore(store));
    EXPECT_EQ(nullptr, store.record.file.stream);
    EXPECT_EQ(0u, utiClosePropertyStore(store));
    uint32_t number = 77;
    char name[8] = "";
    uint32_t length = sizeof name;
    EXPECT_EQ("(3)", text("A"));
    EXPECT_EQ(3u, utiGetPropertyAsULong(store, "A", &number));
    EXPECT_EQ(3u, utiGetPropertyAsBool(store, "A", &number));
    EXPECT_EQ(77u, number);
    EXPECT_EQ(1u, set("A", "2"));
    EXPECT_EQ(1u, utiRemoveProperty(store, "A"));
    EXPECT_EQ(1u, utiRemovePropertyRoot(store, "1"));
    EXPECT_EQ(1u, utiEnumProductId(store, 0, name, &length));
    EXPECT_EQ(1u, utiEnumLogsetForProductId(store, 0, name, &length));
    expectFile("1.A=1\n");
    EXPECT_FALSE(exists(temporary));
}

TEST_F(FileOpening, RootOf400BytesIsCutTo399) {
    fileOf("");
    open(std::string(399, 'r'));
    EXPECT_EQ(399u, strlen(store.record.file.root));
    open(std::string(400, 'r'));
    EXPECT_EQ(399u, strlen(store.record.file.root));
    EXPECT_EQ(path, store.record.file.path);
    ASSERT_EQ(0u, set("A", "1"));
    expectFile(std::string(399, 'r') + ".A=1\n");
    open(std::string(5000, 'r'));
    EXPECT_EQ("1", text("A"));
}

TEST_F(FileOpening, OverlongPathIsRefused) {
    EXPECT_EQ(2u, store.open(path + std::string(5000, 'p'), "1"));
    EXPECT_EQ(6u, CreatePropertyString((path + std::string(5000, 'p')).c_str(), "1", store));
}

class LongPath : public FileStoreTest {
protected:
    // Another name of the file, of so many bytes or one more.
    std::string longPath(size_t length) {
        std::string name = folder.path() + "\\";
        while (name.size() + strlen("x.conf") < length) {
            name += ".\\";
        }
        return name + "x.conf";
    }
};

// A path so long that its ".tmp" does not fit any more: the file must not be taken for its own temporary
// file.
TEST_F(LongPath, FileWithoutRoomForTheTemporaryNameIsNotChanged) {
    fileOf("1.A=1\n");
    ASSERT_EQ(0u, store.open(longPath(397), "1"));
    EXPECT_EQ(5u, set("A", "2"));
    EXPECT_EQ(5u, utiRemoveProperty(store, "A"));
    EXPECT_EQ(5u, utiRemovePropertyRoot(store, "1"));
    EXPECT_EQ("1", text("A"));
    expectFile("1.A=1\n");
}

TEST_F(LongPath, PathOf400BytesIsOpenedWholeAndKeptCut) {
    fileOf("1.A=1\n");
    for (const size_t length : {399u, 400u, 600u}) {
        const std::string name = longPath(length);
        ASSERT_EQ(0u, store.open(name, "1"));
        EXPECT_EQ(name.substr(0, 399), store.record.file.path);
        EXPECT_EQ("1", text("A"));
        EXPECT_EQ(5u, set("A", "2"));
        EXPECT_EQ("1", text("A"));
    }
    expectFile("1.A=1\n");
}

TEST_F(LongPath, FileWhoseFolderHasMoreThan1024BytesIsNotMade) {
    EXPECT_EQ(6u, CreatePropertyString(longPath(1040).c_str(), "1", store));
    EXPECT_FALSE(exists(path));
}

} // namespace
} // namespace zantlog::test
