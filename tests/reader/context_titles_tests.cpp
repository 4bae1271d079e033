// The table of context titles.
#include <gtest/gtest.h>
#include <string>

#include "zantlog/message.h"
#include "zantlog/query.h"

namespace {

constexpr uint32_t kOtherTypes[] = {0, 1, 2, 4, 5, 6};
constexpr uint32_t kContextType = 3;

class ContextTitles : public testing::Test {
protected:
    ~ContextTitles() override {
        for (ContextTitle *entry : {&first_, &second_, &third_}) {
            zantLogFree(entry->title);
        }
    }

    static ContextTitle entryOf(uint32_t product, uint32_t originator, const char *key, const char *title,
                                ContextTitle *next) {
        return {next, product, originator, const_cast<char *>(key), zantLogSafeStrdup(title)};
    }

    static zantLogMsgRec messageOf(uint32_t type, uint32_t product, uint32_t originator) {
        zantLogMsgRec message{};
        message.type = type;
        message.productId = product;
        message.originatorId = originator;
        return message;
    }

    ContextTitle *search(uint32_t type, uint32_t product, uint32_t originator, const char *key,
                         const char *title = "new") {
        const zantLogMsgRec message = messageOf(type, product, originator);
        return SearchContextTitleInList(&message, title, key, table_);
    }

    // "Aa" and "BB" share the chain 112.
    ContextTitle third_ = entryOf(7, 3, "Aa", "third", nullptr);
    ContextTitle second_ = entryOf(7, 3, "BB", "second", &third_);
    ContextTitle first_ = entryOf(7, 4, "Aa", "first", &second_);
    ContextTitle *table_[200] = {};

    void SetUp() override { table_[112] = &first_; }
};

TEST_F(ContextTitles, AreFoundByKeyAndBothIds) {
    EXPECT_EQ(search(2, 7, 4, "Aa"), &first_);
    EXPECT_EQ(search(2, 7, 3, "BB"), &second_);
    EXPECT_EQ(search(2, 7, 3, "Aa"), &third_);
    EXPECT_EQ(search(2, 8, 3, "Aa"), nullptr);
    EXPECT_EQ(search(2, 7, 5, "Aa"), nullptr);
    EXPECT_EQ(search(2, 3, 7, "Aa"), nullptr);
}

TEST_F(ContextTitles, AreFoundByTheWholeKeyAsItIsWritten) {
    for (const char *key : {"aa", "A", "Aaa", "", "Aa ", "bb"}) {
        EXPECT_EQ(search(2, 7, 3, key), nullptr) << key;
    }
}

TEST_F(ContextTitles, AreLookedForInTheChainOfTheirKeyOnly) {
    table_[112] = nullptr;
    table_[111] = &first_;
    table_[113] = &first_;
    EXPECT_EQ(search(2, 7, 4, "Aa"), nullptr);
    table_[0] = &first_;
    first_.key = const_cast<char *>("");
    EXPECT_EQ(search(2, 7, 4, ""), &first_);
    table_[73] = &third_;
    third_.key = const_cast<char *>("\xE9");
    EXPECT_EQ(search(2, 7, 3, "\xE9"), &third_);
}

TEST_F(ContextTitles, FirstOfSeveralIsTheResult) {
    third_.key = second_.key;
    EXPECT_EQ(search(2, 7, 3, "BB"), &second_);
}

TEST_F(ContextTitles, AreReplacedByAContextMessage) {
    std::string title = "a longer title";
    ContextTitle *entry = search(kContextType, 7, 3, "BB", title.c_str());
    ASSERT_EQ(entry, &second_);
    EXPECT_NE(entry->title, title.c_str());
    title = "overwritten";
    EXPECT_STREQ(entry->title, "a longer title");
    EXPECT_STREQ(first_.title, "first");
    EXPECT_STREQ(third_.title, "third");
    EXPECT_EQ(search(kContextType, 7, 3, "BB", ""), &second_);
    EXPECT_STREQ(second_.title, "");
}

TEST_F(ContextTitles, StayWithEveryOtherMessage) {
    for (const uint32_t type : kOtherTypes) {
        const char *before = second_.title;
        EXPECT_EQ(search(type, 7, 3, "BB"), &second_) << type;
        EXPECT_EQ(second_.title, before) << type;
        EXPECT_STREQ(second_.title, "second") << type;
    }
}

TEST_F(ContextTitles, StayWhenNoEntryIsTheMessages) {
    EXPECT_EQ(search(kContextType, 7, 5, "BB"), nullptr);
    EXPECT_STREQ(first_.title, "first");
    EXPECT_STREQ(second_.title, "second");
    EXPECT_STREQ(third_.title, "third");
}

TEST_F(ContextTitles, CanBeReplacedByTheEntrysOwn) {
    EXPECT_EQ(search(kContextType, 7, 3, "BB", second_.title), &second_);
    EXPECT_STREQ(second_.title, "second");
}

TEST_F(ContextTitles, CanBeMissing) {
    EXPECT_EQ(search(kContextType, 7, 3, "BB", nullptr), &second_);
    EXPECT_EQ(second_.title, nullptr);
    EXPECT_EQ(search(kContextType, 7, 3, "BB", "again"), &second_);
    EXPECT_STREQ(second_.title, "again");
}

TEST_F(ContextTitles, EntriesWithoutKeyAreNobodys) {
    first_.key = nullptr;
    EXPECT_EQ(search(2, 7, 4, "Aa"), nullptr);
    EXPECT_EQ(search(2, 7, 3, "Aa"), &third_);
}

TEST_F(ContextTitles, NullArgumentsFindNothing) {
    const zantLogMsgRec message = messageOf(kContextType, 7, 3);
    EXPECT_EQ(SearchContextTitleInList(nullptr, "t", "Aa", table_), nullptr);
    EXPECT_EQ(SearchContextTitleInList(&message, "t", nullptr, table_), nullptr);
    EXPECT_EQ(SearchContextTitleInList(&message, "t", "Aa", nullptr), nullptr);
    EXPECT_STREQ(third_.title, "third");
}

} // namespace
