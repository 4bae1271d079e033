// Values in the registry that no set of ours would write: without terminator, of odd sizes and types.
#include "logfile/os/os_registry.h"
#include "tests/propstore/store_test.h"

namespace zantlog::test {
namespace {

class RegistryValues : public testing::Test {
protected:
    RegistryValues() { EXPECT_EQ(0u, CreatePropertyString("SOFTWARE", top.c_str(), store)); }
    ~RegistryValues() override {
        OpenStore software("SOFTWARE", "");
        EXPECT_EQ(0u, utiRemovePropertyRoot(software, top.c_str()));
    }

    void put(os::RegistryType type, const void *bytes, uint32_t size) {
        ASSERT_EQ(os::kErrorNone, os::setRegistryValue(store.record.key, "A", type, bytes, size));
    }
    std::string text() { return textOf(store, "A"); }
    std::string number() {
        uint32_t value = 77;
        const uint32_t result = utiGetPropertyAsULong(store, "A", &value);
        return result == 0 ? std::to_string(value) : "(" + std::to_string(result) + ")";
    }
    std::string boolean() {
        uint32_t value = 77;
        const uint32_t result = utiGetPropertyAsBool(store, "A", &value);
        return result == 0 ? std::to_string(value) : "(" + std::to_string(result) + ")";
    }

    const std::string top = processFolder().substr(processFolder().find_last_of("\\/") + 1);
    OpenStore store;
};

constexpr auto kBinary = static_cast<os::RegistryType>(3);
constexpr auto kExpandableText = static_cast<os::RegistryType>(2);

TEST_F(RegistryValues, TextWithoutTerminatorIsReadToItsEnd) {
    put(os::RegistryType::Text, "true", 4);
    EXPECT_EQ("true", text());
    EXPECT_EQ("1", boolean());
}

TEST_F(RegistryValues, TextOfNoBytesIsEmpty) {
    put(os::RegistryType::Text, "", 0);
    EXPECT_EQ("", text());
    EXPECT_EQ("0", boolean());
}

TEST_F(RegistryValues, TextEndsAtItsFirstTerminator) {
    put(os::RegistryType::Text, "one\0two", 8);
    EXPECT_EQ("one", text());
}

TEST_F(RegistryValues, NumberOfFewerThanFourBytesGives3) {
    const uint32_t bytes = 0x01020304;
    for (const uint32_t size : {0u, 1u, 3u}) {
        put(os::RegistryType::Number, &bytes, size);
        EXPECT_EQ("(3)", number());
    }
}

TEST_F(RegistryValues, NumberOfMoreThanFourBytesIsItsFirstFour) {
    const uint64_t bytes = 0x0102030400000005;
    put(os::RegistryType::Number, &bytes, 8);
    EXPECT_EQ("5", number());
}

TEST_F(RegistryValues, OtherTypesGive3) {
    put(kBinary, "true", 5);
    EXPECT_EQ("(3)", text());
    EXPECT_EQ("(3)", number());
    EXPECT_EQ("(3)", boolean());
    put(kExpandableText, "true", 5);
    EXPECT_EQ("(3)", text());
    EXPECT_EQ("(3)", boolean());
}

// The types that are written, as other programs see them.
TEST_F(RegistryValues, TypesAndSizesOnDisk) {
    const uint32_t one = 1;
    uint32_t type = 0;
    uint32_t size = 0;
    ASSERT_EQ(0u, utiSetPropertyAsStr(store, "A", "one"));
    ASSERT_EQ(os::kErrorNone, os::queryRegistryValue(store.record.key, "A", &type, nullptr, &size));
    EXPECT_EQ(1u, type);
    EXPECT_EQ(4u, size);
    ASSERT_EQ(0u, utiSetPropertyAsULong(store, "A", &one));
    ASSERT_EQ(os::kErrorNone, os::queryRegistryValue(store.record.key, "A", &type, nullptr, &size));
    EXPECT_EQ(4u, type);
    EXPECT_EQ(4u, size);
    ASSERT_EQ(0u, utiSetPropertyAsBool(store, "A", &one));
    ASSERT_EQ(os::kErrorNone, os::queryRegistryValue(store.record.key, "A", &type, nullptr, &size));
    EXPECT_EQ(1u, type);
    EXPECT_EQ(5u, size);
}

} // namespace
} // namespace zantlog::test
