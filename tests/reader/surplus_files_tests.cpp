// Reducing a selection to what is more than is to be kept.
#include "reader/surplus_files.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "logfile/format/file_name.h"
#include "reader/file_list.h"
#include "zantlog/reader.h"

namespace zantlog::test {

namespace {

bool groupOfName(const void * /*wanted*/, const char *name, FileGroup *group) {
    return parseProductFileIds(name, &group->productId, &group->originatorId);
}

zantLogCfg configuration(uint32_t product, uint32_t originator, uint32_t count) {
    zantLogCfg cfg{};
    cfg.productId = product;
    cfg.originatorId = originator;
    cfg.numberOfLogFiles = count;
    return cfg;
}

// What is left of a selection of these names, in this order.
std::vector<std::string> surplusOf(const std::vector<std::string> &names, std::vector<zantLogCfg> records) {
    LogFindContext context{};
    LogFileEntry **end = &context.head;
    for (const std::string &name : names) {
        zantLogListing listing{};
        name.copy(listing.data.name, sizeof listing.data.name - 1);
        *end = alloc_file(&listing);
        end = &(*end)->next;
    }
    std::vector<zantLogCfg *> array;
    for (zantLogCfg &record : records) {
        array.push_back(&record);
    }
    EXPECT_EQ(reduceToSurplus(&context, array, groupOfName, nullptr), 0u);
    EXPECT_EQ(context.current, context.head);
    std::vector<std::string> left;
    for (const LogFileEntry *entry = context.head; entry != nullptr; entry = entry->next) {
        left.emplace_back(nameOf(*entry));
    }
    freeSelection(&context);
    EXPECT_EQ(context.head, nullptr);
    return left;
}

using Names = std::vector<std::string>;

TEST(SurplusFiles, HaveTheDefaultOriginatorsNumberWithoutOneOfTheirOwn) {
    EXPECT_EQ(surplusOf({"12-5-a.log", "12-5-b.log"}, {configuration(12, 112, 1), configuration(12, 6, 9)}),
              (Names{"12-5-a.log"}));
    EXPECT_EQ(surplusOf({"12-5-a.log", "12-5-b.log"}, {configuration(12, 112, 1), configuration(12, 5, 2)}),
              Names{});
}

TEST(SurplusFiles, OfAGroupWithoutAConfigurationAreNone) {
    EXPECT_EQ(surplusOf({"12-5-a.log", "12-5-b.log"}, {configuration(13, 112, 1), configuration(12, 6, 1)}),
              Names{});
    EXPECT_EQ(surplusOf({"12-5-a.log"}, {}), Names{});
}

TEST(SurplusFiles, FirstOfSeveralConfigurationsCounts) {
    EXPECT_EQ(surplusOf({"12-5-a.log", "12-5-b.log", "12-5-c.log"},
                        {configuration(12, 5, 2), configuration(12, 5, 1)}),
              (Names{"12-5-a.log"}));
}

TEST(SurplusFiles, ComeGroupByGroupEachToTheFront) {
    EXPECT_EQ(surplusOf({"12-5-a.log", "12-3-a.log", "nothing.log", "12-5-b.log", "12-3-b.log", "12-5-c.log"},
                        {configuration(12, 5, 1), configuration(12, 3, 1)}),
              (Names{"12-3-a.log", "12-5-b.log", "12-5-a.log"}));
}

TEST(SurplusFiles, WithANumberOfNoneAreAll) {
    EXPECT_EQ(surplusOf({"12-5-a.log", "12-5-b.log"}, {configuration(12, 5, 0)}),
              (Names{"12-5-b.log", "12-5-a.log"}));
}

} // namespace

} // namespace zantlog::test
