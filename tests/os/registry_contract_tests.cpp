// What every implementation of the seam promises of the registry.
#include "logfile/os/os_registry.h"
#include "logfile/os/os_thread.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace zantlog::test {

namespace {

using namespace zantlog::os;

constexpr char kParent[] = "SOFTWARE\\KORVANE";

class RegistryContract : public testing::Test {
protected:
    RegistryContract() { EXPECT_EQ(createRegistryKey(path.c_str(), &key), kErrorNone); }
    ~RegistryContract() override {
        closeRegistryKey(key);
        void *parent = nullptr;
        EXPECT_EQ(openRegistryKey(kParent, RegistryAccess::All, &parent), kErrorNone);
        EXPECT_EQ(deleteRegistryTree(parent, name.c_str()), kErrorNone);
        closeRegistryKey(parent);
    }

    void *makeSubKey(const std::string &subKey) {
        void *made = nullptr;
        EXPECT_EQ(createRegistryKey((path + "\\" + subKey).c_str(), &made), kErrorNone);
        return made;
    }

    const std::string name = "contract-" + std::to_string(processId());
    const std::string path = std::string(kParent) + "\\" + name;
    void *key = nullptr;
};

TEST_F(RegistryContract, MissingKeyIs2) {
    void *opened = this;
    EXPECT_EQ(openRegistryKey((path + "\\nowhere").c_str(), RegistryAccess::Read, &opened), 2u);
    EXPECT_EQ(opened, nullptr);
    opened = this;
    EXPECT_EQ(openRegistryKey((path + "\\nowhere").c_str(), RegistryAccess::All, &opened), 2u);
    EXPECT_EQ(opened, nullptr);
}

TEST_F(RegistryContract, CreatingMakesTheWholePath) {
    closeRegistryKey(makeSubKey("a\\b\\c"));
    void *opened = nullptr;
    EXPECT_EQ(openRegistryKey((path + "\\a\\b").c_str(), RegistryAccess::Read, &opened), 0u);
    closeRegistryKey(opened);
}

TEST_F(RegistryContract, CreatingOpensWhatExists) {
    ASSERT_EQ(setRegistryValue(key, "Name", RegistryType::Text, "kept", 5), 0u);
    void *again = nullptr;
    ASSERT_EQ(createRegistryKey(path.c_str(), &again), 0u);
    char value[16];
    uint32_t size = sizeof(value);
    uint32_t type = 0;
    EXPECT_EQ(queryRegistryValue(again, "Name", &type, value, &size), 0u);
    EXPECT_STREQ(value, "kept");
    closeRegistryKey(again);
}

TEST_F(RegistryContract, TextIsReadBackWithItsTypeAndSize) {
    ASSERT_EQ(setRegistryValue(key, "Text", RegistryType::Text, "C:\\logs\\", 9), 0u);
    uint32_t type = 0;
    uint32_t size = 0;
    EXPECT_EQ(queryRegistryValue(key, "Text", &type, nullptr, &size), 0u);
    EXPECT_EQ(type, 1u);
    EXPECT_EQ(size, 9u);
    char value[32] = {};
    size = sizeof(value);
    EXPECT_EQ(queryRegistryValue(key, "Text", &type, value, &size), 0u);
    EXPECT_EQ(size, 9u);
    EXPECT_STREQ(value, "C:\\logs\\");
}

TEST_F(RegistryContract, BytesAbove127AreReadBackAsWritten) {
    char written[34];
    for (int i = 0; i < 32; ++i) {
        written[i] = static_cast<char>(0x80 + i);
    }
    written[32] = static_cast<char>(0xff);
    written[33] = '\0';
    ASSERT_EQ(setRegistryValue(key, "Text", RegistryType::Text, written, sizeof(written)), 0u);
    char value[64] = {};
    uint32_t size = sizeof(value);
    uint32_t type = 0;
    EXPECT_EQ(queryRegistryValue(key, "Text", &type, value, &size), 0u);
    EXPECT_STREQ(value, written);
}

TEST_F(RegistryContract, EmptyTextHasItsTerminator) {
    ASSERT_EQ(setRegistryValue(key, "Text", RegistryType::Text, "", 1), 0u);
    uint32_t type = 0;
    uint32_t size = 0;
    EXPECT_EQ(queryRegistryValue(key, "Text", &type, nullptr, &size), 0u);
    EXPECT_EQ(size, 1u);
}

TEST_F(RegistryContract, NumberIsReadBackWithItsTypeAndSize) {
    const uint32_t number = 0xfffffffeu;
    ASSERT_EQ(setRegistryValue(key, "Number", RegistryType::Number, &number, 4), 0u);
    uint32_t type = 0;
    uint32_t value = 0;
    uint32_t size = sizeof(value);
    EXPECT_EQ(queryRegistryValue(key, "Number", &type, &value, &size), 0u);
    EXPECT_EQ(type, 4u);
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(value, 0xfffffffeu);
}

TEST_F(RegistryContract, ValueTakesTheTypeOfTheLastSet) {
    const uint32_t number = 7;
    ASSERT_EQ(setRegistryValue(key, "Value", RegistryType::Text, "text", 5), 0u);
    ASSERT_EQ(setRegistryValue(key, "VALUE", RegistryType::Number, &number, 4), 0u);
    uint32_t type = 0;
    uint32_t size = 0;
    EXPECT_EQ(queryRegistryValue(key, "Value", &type, nullptr, &size), 0u);
    EXPECT_EQ(type, 4u);
}

TEST_F(RegistryContract, MissingValueIs2) {
    uint32_t type = 0;
    uint32_t size = 0;
    EXPECT_EQ(queryRegistryValue(key, "Nothing", &type, nullptr, &size), 2u);
    EXPECT_EQ(deleteRegistryValue(key, "Nothing"), 2u);
}

TEST_F(RegistryContract, BufferThatIsTooSmallIs234AndNamesTheSize) {
    ASSERT_EQ(setRegistryValue(key, "Text", RegistryType::Text, "12345", 6), 0u);
    char value[3];
    uint32_t size = sizeof(value);
    uint32_t type = 0;
    EXPECT_EQ(queryRegistryValue(key, "Text", &type, value, &size), 234u);
    EXPECT_EQ(size, 6u);
}

TEST_F(RegistryContract, DeletedValueIsGone) {
    ASSERT_EQ(setRegistryValue(key, "Text", RegistryType::Text, "x", 2), 0u);
    EXPECT_EQ(deleteRegistryValue(key, "Text"), 0u);
    uint32_t type = 0;
    uint32_t size = 0;
    EXPECT_EQ(queryRegistryValue(key, "Text", &type, nullptr, &size), 2u);
}

TEST_F(RegistryContract, ReadAccessReadsAndChangesNothing) {
    ASSERT_EQ(setRegistryValue(key, "Text", RegistryType::Text, "x", 2), 0u);
    void *readOnly = nullptr;
    ASSERT_EQ(openRegistryKey(path.c_str(), RegistryAccess::Read, &readOnly), 0u);
    uint32_t type = 0;
    uint32_t size = 0;
    EXPECT_EQ(queryRegistryValue(readOnly, "Text", &type, nullptr, &size), 0u);
    EXPECT_EQ(setRegistryValue(readOnly, "Text", RegistryType::Text, "y", 2), 5u);
    EXPECT_EQ(deleteRegistryValue(readOnly, "Text"), 5u);
    closeRegistryKey(readOnly);
}

TEST_F(RegistryContract, EmptyKeyEnumeratesNothing) {
    char buffer[32];
    uint32_t length = sizeof(buffer);
    EXPECT_EQ(enumRegistryKey(key, 0, buffer, &length), 259u);
}

TEST_F(RegistryContract, EnumerationGivesEachSubKeyAndItsLength) {
    closeRegistryKey(makeSubKey("12"));
    closeRegistryKey(makeSubKey("345"));
    char first[32];
    char second[32];
    uint32_t firstLength = sizeof(first);
    uint32_t secondLength = sizeof(second);
    EXPECT_EQ(enumRegistryKey(key, 0, first, &firstLength), 0u);
    EXPECT_EQ(enumRegistryKey(key, 1, second, &secondLength), 0u);
    EXPECT_STREQ(first, "12");
    EXPECT_EQ(firstLength, 2u);
    EXPECT_STREQ(second, "345");
    EXPECT_EQ(secondLength, 3u);
    EXPECT_EQ(enumRegistryKey(key, 2, first, &firstLength), 259u);
}

TEST_F(RegistryContract, SubKeyNameNeedsRoomForItsTerminator) {
    closeRegistryKey(makeSubKey("345"));
    char buffer[4];
    uint32_t length = 3;
    EXPECT_EQ(enumRegistryKey(key, 0, buffer, &length), 234u);
    length = 4;
    EXPECT_EQ(enumRegistryKey(key, 0, buffer, &length), 0u);
    EXPECT_STREQ(buffer, "345");
}

TEST_F(RegistryContract, TreeIsDeletedWithAllBelowIt) {
    closeRegistryKey(makeSubKey("root\\a\\b"));
    closeRegistryKey(makeSubKey("root\\c"));
    closeRegistryKey(makeSubKey("rest"));
    EXPECT_EQ(deleteRegistryTree(key, "root"), 0u);
    void *opened = nullptr;
    EXPECT_EQ(openRegistryKey((path + "\\root").c_str(), RegistryAccess::Read, &opened), 2u);
    EXPECT_EQ(openRegistryKey((path + "\\rest").c_str(), RegistryAccess::Read, &opened), 0u);
    closeRegistryKey(opened);
}

TEST_F(RegistryContract, DeletingAMissingTreeIs2) {
    EXPECT_EQ(deleteRegistryTree(key, "nowhere"), 2u);
}

} // namespace

} // namespace zantlog::test
