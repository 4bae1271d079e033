// The registry back end, below a key of this process that is removed in the end.
#include "tests/propstore/store_test.h"

#include <cstring>

namespace zantlog::test {
namespace {

class RegistryTest : public testing::Test {
protected:
    // The last part of the process's folder is unique among the processes that run now.
    RegistryTest()
        : top(processFolder().substr(processFolder().find_last_of("\\/") + 1)), location("SOFTWARE\\" + top) {
        removeTop();
        EXPECT_EQ(0u, CreatePropertyString("SOFTWARE", top.c_str(), store));
    }
    ~RegistryTest() override {
        utiClosePropertyStore(store);
        removeTop();
        EXPECT_EQ(2u, OpenStore(location, "").result) << "the test key is still there";
    }

    void removeTop() {
        OpenStore software("SOFTWARE", "");
        ASSERT_EQ(0u, software.result);
        utiRemovePropertyRoot(software, top.c_str());
    }
    void makeKey(const std::string &section) {
        OpenStore made;
        ASSERT_EQ(0u, CreatePropertyString(location.c_str(), section.c_str(), made));
    }
    bool hasKey(const std::string &section) {
        return OpenStore(location, section, ZANTLOG_STORE_READ).result == 0;
    }
    std::string text(const std::string &name) { return textOf(store, name); }
    uint32_t set(const std::string &name, const std::string &value) {
        return utiSetPropertyAsStr(store, name.c_str(), value.c_str());
    }

    const std::string top;
    const std::string location;
    OpenStore store; // on the test key
};

using Registry = RegistryTest;

TEST_F(Registry, CreatedKeyIsOpenForWriting) {
    OpenStore made;
    ASSERT_EQ(0u, CreatePropertyString(location.c_str(), "12", made));
    EXPECT_NE(nullptr, made.record.key);
    EXPECT_EQ(nullptr, made.record.file.stream);
    EXPECT_EQ(0u, utiSetPropertyAsStr(made, "A", "one"));
    EXPECT_EQ("one", textOf(made, "A"));
}

TEST_F(Registry, CreatingMakesTheKeysAbove) {
    makeKey("a\\b\\c");
    EXPECT_TRUE(hasKey("a"));
    EXPECT_TRUE(hasKey("a\\b"));
    EXPECT_TRUE(hasKey("a\\b\\c"));
}

TEST_F(Registry, CreatingAnExistingKeyOpensIt) {
    set("A", "one");
    OpenStore again;
    ASSERT_EQ(0u, CreatePropertyString("SOFTWARE", top.c_str(), again));
    EXPECT_EQ("one", textOf(again, "A"));
}

TEST_F(Registry, CreatingWithAnEmptySectionMakesTheLocation) {
    OpenStore made;
    ASSERT_EQ(0u, CreatePropertyString((location + "\\new").c_str(), "", made));
    EXPECT_TRUE(hasKey("new"));
}

TEST_F(Registry, KeyThatCannotBeCreatedGives6) {
    OpenStore made;
    EXPECT_EQ(6u, CreatePropertyString(location.c_str(), std::string(300, 'k').c_str(), made));
    EXPECT_EQ(nullptr, made.record.key);
}

TEST_F(Registry, CreationWithNullArguments) {
    OpenStore made;
    EXPECT_EQ(3u, CreatePropertyString(location.c_str(), "a", nullptr));
    EXPECT_EQ(1u, CreatePropertyString(nullptr, "a", made));
    EXPECT_EQ(1u, CreatePropertyString(location.c_str(), nullptr, made));
    EXPECT_FALSE(hasKey("a"));
}

TEST_F(Registry, MissingKeyGives2) {
    for (const uint32_t mode : {0u, 1u}) {
        PropertyStore record;
        memset(&record, 0x5a, sizeof record);
        EXPECT_EQ(2u, utiOpenPropertyStore(location.c_str(), "missing", &record, mode));
        const PropertyStore clear = {};
        EXPECT_EQ(0, memcmp(&record, &clear, sizeof record));
    }
    EXPECT_FALSE(hasKey("missing"));
}

TEST_F(Registry, EmptySectionIsTheLocationItself) {
    set("A", "one");
    OpenStore whole(location, "");
    EXPECT_EQ("one", textOf(whole, "A"));
}

TEST_F(Registry, OpeningWithNullArguments) {
    OpenStore opened;
    EXPECT_EQ(1u, utiOpenPropertyStore(nullptr, "", opened, 1));
    EXPECT_EQ(1u, utiOpenPropertyStore(location.c_str(), nullptr, opened, 1));
    EXPECT_EQ(1u, utiOpenPropertyStore(location.c_str(), "", nullptr, 1));
}

TEST_F(Registry, OverlongLocationIsRefused) {
    OpenStore opened;
    EXPECT_EQ(2u, opened.open(location + "\\" + std::string(100000, 'k'), ""));
    EXPECT_EQ(2u, opened.open(location, std::string(100000, 'k')));
}

TEST_F(Registry, ClosingEmptiesTheRecordAndCanBeRepeated) {
    EXPECT_EQ(0u, utiClosePropertyStore(store));
    EXPECT_EQ(nullptr, store.record.key);
    EXPECT_EQ(0u, utiClosePropertyStore(store));
    EXPECT_EQ("(3)", text("A"));
    EXPECT_EQ(1u, set("A", "one"));
}

TEST_F(Registry, TextIsKeptAsItIsPassed) {
    for (const std::string &value :
         {std::string(), std::string("one"), std::string(" a=b  "), std::string("caf\xe9\x80\x9f"),
          std::string("two\nlines"), std::string(20000, 'v')}) {
        ASSERT_EQ(0u, set("A", value));
        EXPECT_EQ(value, text("A"));
    }
}

TEST_F(Registry, LastTextCounts) {
    EXPECT_EQ(0u, set("A", "a longer text"));
    EXPECT_EQ(0u, set("A", "short"));
    EXPECT_EQ("short", text("A"));
}

TEST_F(Registry, FormerTextIsReplacedByTheNewOneAndKeptByAFailure) {
    set("A", "one");
    char *value = zantLogSafeStrdup("former");
    ASSERT_EQ(0u, utiGetPropertyAsStr(store, "A", &value)); // frees the former one
    EXPECT_STREQ("one", value);
    EXPECT_EQ(3u, utiGetPropertyAsStr(store, "missing", &value));
    EXPECT_STREQ("one", value);
    zantLogFree(value);
}

TEST_F(Registry, NumberIsKeptWhole) {
    for (const uint32_t value : {0u, 1u, 2147483648u, 4294967295u}) {
        ASSERT_EQ(0u, utiSetPropertyAsULong(store, "N", &value));
        uint32_t back = 77;
        EXPECT_EQ(0u, utiGetPropertyAsULong(store, "N", &back));
        EXPECT_EQ(value, back);
    }
}

TEST_F(Registry, BooleanIsKeptAsTrueFor1Only) {
    for (const uint32_t value : {0u, 1u, 2u, 4294967295u}) {
        ASSERT_EQ(0u, utiSetPropertyAsBool(store, "B", &value));
        EXPECT_EQ(value == 1 ? "true" : "false", text("B"));
        uint32_t back = 77;
        EXPECT_EQ(0u, utiGetPropertyAsBool(store, "B", &back));
        EXPECT_EQ(value == 1 ? 1u : 0u, back);
    }
}

TEST_F(Registry, BooleanIsReadWithoutRegardToCase) {
    const std::pair<const char *, uint32_t> cases[] = {{"true", 1},  {"TRUE", 1},  {"tRuE", 1}, {"true ", 0},
                                                       {" true", 0}, {"false", 0}, {"1", 0},    {"", 0}};
    for (const auto &[value, expected] : cases) {
        set("B", value);
        uint32_t back = 77;
        EXPECT_EQ(0u, utiGetPropertyAsBool(store, "B", &back));
        EXPECT_EQ(expected, back) << value;
    }
}

TEST_F(Registry, ValueOfAnotherTypeGives3AndStoresNothing) {
    const uint32_t number = 1;
    utiSetPropertyAsULong(store, "N", &number);
    set("T", "1");
    uint32_t back = 77;
    EXPECT_EQ("(3)", text("N"));
    EXPECT_EQ(3u, utiGetPropertyAsBool(store, "N", &back));
    EXPECT_EQ(3u, utiGetPropertyAsULong(store, "T", &back));
    EXPECT_EQ(77u, back);
}

TEST_F(Registry, SetChangesTheTypeOfAValue) {
    const uint32_t number = 5;
    set("A", "one");
    EXPECT_EQ(0u, utiSetPropertyAsULong(store, "A", &number));
    uint32_t back = 77;
    EXPECT_EQ(0u, utiGetPropertyAsULong(store, "A", &back));
    EXPECT_EQ(5u, back);
}

TEST_F(Registry, MissingValueGives3) {
    uint32_t back = 77;
    EXPECT_EQ("(3)", text("missing"));
    EXPECT_EQ(3u, utiGetPropertyAsULong(store, "missing", &back));
    EXPECT_EQ(3u, utiGetPropertyAsBool(store, "missing", &back));
    EXPECT_EQ(77u, back);
}

TEST_F(Registry, StoreOpenedForReadingRefusesChanges) {
    set("A", "one");
    const uint32_t one = 1;
    for (const uint32_t mode : {0u, 2u}) {
        OpenStore reader("SOFTWARE", top, mode);
        ASSERT_EQ(0u, reader.result);
        EXPECT_EQ("one", textOf(reader, "A"));
        EXPECT_EQ(3u, utiSetPropertyAsStr(reader, "A", "two"));
        EXPECT_EQ(3u, utiSetPropertyAsULong(reader, "A", &one));
        EXPECT_EQ(3u, utiSetPropertyAsBool(reader, "A", &one));
        EXPECT_EQ(6u, utiRemoveProperty(reader, "A"));
    }
    EXPECT_EQ("one", text("A"));
}

TEST_F(Registry, RemovedPropertyIsGoneAndCannotBeRemovedAgain) {
    set("A", "one");
    set("B", "two");
    EXPECT_EQ(0u, utiRemoveProperty(store, "A"));
    EXPECT_EQ("(3)", text("A"));
    EXPECT_EQ("two", text("B"));
    EXPECT_EQ(6u, utiRemoveProperty(store, "A"));
}

TEST_F(Registry, EmptyKeyEnumeratesNothing) {
    char name[80] = "x";
    uint32_t length = sizeof name;
    EXPECT_EQ(7u, utiEnumProductId(store, 0, name, &length));
    EXPECT_EQ(7u, utiEnumLogsetForProductId(store, 0, name, &length));
    EXPECT_EQ(80u, length);
    EXPECT_STREQ("x", name);
}

TEST_F(Registry, EnumerationGoesByIndex) {
    makeKey("12");
    makeKey("345");
    for (const auto operation : {utiEnumProductId, utiEnumLogsetForProductId}) {
        char name[80] = "";
        uint32_t length = sizeof name;
        EXPECT_EQ(0u, operation(store, 1, name, &length));
        EXPECT_STREQ("345", name);
        EXPECT_EQ(3u, length);
        length = sizeof name;
        EXPECT_EQ(0u, operation(store, 0, name, &length));
        EXPECT_STREQ("12", name);
        EXPECT_EQ(2u, length);
        EXPECT_EQ(7u, operation(store, 2, name, &length));
        EXPECT_EQ(7u, operation(store, 4294967295u, name, &length));
    }
}

TEST_F(Registry, EnumerationWorksOnAStoreOpenedForReading) {
    makeKey("12");
    OpenStore reader("SOFTWARE", top, ZANTLOG_STORE_READ);
    char name[80] = "";
    uint32_t length = sizeof name;
    EXPECT_EQ(0u, utiEnumProductId(reader, 0, name, &length));
    EXPECT_STREQ("12", name);
}

TEST_F(Registry, NameThatDoesNotFitGives6) {
    makeKey("345");
    for (const uint32_t capacity : {0u, 1u, 3u}) {
        char name[80] = "old";
        uint32_t length = capacity;
        EXPECT_EQ(6u, utiEnumProductId(store, 0, name, &length));
        EXPECT_EQ(capacity, length);
    }
    char name[80] = "old";
    uint32_t length = 4;
    EXPECT_EQ(0u, utiEnumProductId(store, 0, name, &length));
    EXPECT_STREQ("345", name);
}

TEST_F(Registry, SubKeyIsRemovedWithEverythingBelowIt) {
    makeKey("12\\a\\b");
    makeKey("12\\c");
    makeKey("34");
    EXPECT_EQ(0u, utiRemovePropertyRoot(store, "12"));
    EXPECT_FALSE(hasKey("12"));
    EXPECT_TRUE(hasKey("34"));
    EXPECT_EQ(8u, utiRemovePropertyRoot(store, "12"));
}

TEST_F(Registry, RootWithBackslashesDoesNotDependOnTheStore) {
    makeKey("12\\a\\b");
    makeKey("34");
    OpenStore other(location, "34");
    EXPECT_EQ(0u, utiRemovePropertyRoot(other, (location + "\\12\\a").c_str()));
    EXPECT_TRUE(hasKey("12"));
    EXPECT_FALSE(hasKey("12\\a"));
    EXPECT_EQ(8u, utiRemovePropertyRoot(other, (location + "\\12\\a").c_str()));
    EXPECT_EQ(6u, utiRemovePropertyRoot(other, (location + "\\missing\\a").c_str()));
}

TEST_F(Registry, RootWithOneBackslashGives6) {
    makeKey("12\\a");
    EXPECT_EQ(6u, utiRemovePropertyRoot(store, "12\\a"));
    EXPECT_EQ(6u, utiRemovePropertyRoot(store, location.c_str()));
    EXPECT_EQ(6u, utiRemovePropertyRoot(store, "\\"));
    EXPECT_TRUE(hasKey("12\\a"));
}

TEST_F(Registry, ConfRootDeletesThatFile) {
    const ScopedFolder folder;
    const std::string file = folder.file("x.conf");
    writeBytes(file, "1.A=a\r\n");
    EXPECT_EQ(0u, utiRemovePropertyRoot(store, file.c_str()));
    EXPECT_FALSE(exists(file));
    EXPECT_EQ(6u, utiRemovePropertyRoot(store, file.c_str()));
}

TEST_F(Registry, NullArguments) {
    char *value = nullptr;
    uint32_t number = 77;
    char name[8] = "";
    uint32_t length = sizeof name;
    EXPECT_EQ(1u, utiGetPropertyAsStr(store, nullptr, &value));
    EXPECT_EQ(1u, utiGetPropertyAsStr(store, "A", nullptr));
    EXPECT_EQ(1u, utiSetPropertyAsStr(store, nullptr, "x"));
    EXPECT_EQ(1u, utiSetPropertyAsStr(store, "A", nullptr));
    EXPECT_EQ(1u, utiGetPropertyAsULong(store, nullptr, &number));
    EXPECT_EQ(1u, utiGetPropertyAsULong(store, "A", nullptr));
    EXPECT_EQ(1u, utiSetPropertyAsULong(store, nullptr, &number));
    EXPECT_EQ(1u, utiSetPropertyAsULong(store, "A", nullptr));
    EXPECT_EQ(1u, utiGetPropertyAsBool(store, nullptr, &number));
    EXPECT_EQ(1u, utiGetPropertyAsBool(store, "A", nullptr));
    EXPECT_EQ(1u, utiSetPropertyAsBool(store, nullptr, &number));
    EXPECT_EQ(1u, utiSetPropertyAsBool(store, "A", nullptr));
    EXPECT_EQ(1u, utiRemoveProperty(store, nullptr));
    EXPECT_EQ(1u, utiRemovePropertyRoot(store, nullptr));
    EXPECT_EQ(1u, utiEnumProductId(store, 0, nullptr, &length));
    EXPECT_EQ(1u, utiEnumProductId(store, 0, name, nullptr));
    EXPECT_EQ(1u, utiEnumLogsetForProductId(store, 0, nullptr, &length));
    EXPECT_EQ(1u, utiEnumLogsetForProductId(store, 0, name, nullptr));
    EXPECT_EQ(77u, number);
    EXPECT_EQ(nullptr, value);
    EXPECT_EQ("(3)", text("A"));
}

} // namespace
} // namespace zantlog::test
