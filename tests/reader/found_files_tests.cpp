// The order of found files, held against the table of chains that it stands for.
#include "reader/found_files.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <deque>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "reader/text_hash.h"
#include "zantlog/reader.h"

namespace zantlog::test {

namespace {

struct Given {
    std::string directory;
    std::string name;
    int64_t time;
};

OwnedEntry entryOf(const Given &given) {
    zantLogListing listing{};
    given.name.copy(listing.data.name, sizeof listing.data.name - 1);
    OwnedEntry entry(alloc_file(&listing));
    std::snprintf(entry->directory, sizeof entry->directory, "%s", given.directory.c_str());
    entry->creationTime = given.time;
    return entry;
}

FileKey keyOf(const Given &given) {
    return {given.directory.c_str(), given.name.c_str(),
            hashOn(hashOn(0, given.directory.c_str()), given.name.c_str())};
}

std::vector<std::string> orderOf(const std::vector<Given> &all) {
    FoundFiles found;
    EXPECT_TRUE(found.begin());
    for (const Given &given : all) {
        if (!found.holds(keyOf(given))) {
            EXPECT_TRUE(found.add(entryOf(given), keyOf(given)));
        }
        EXPECT_TRUE(found.holds(keyOf(given)));
    }
    std::vector<std::string> order;
    LogFileEntry *entry = found.takeList();
    while (entry != nullptr) {
        order.push_back(std::string(entry->directory) + &entry->name[0]);
        LogFileEntry *next = entry->next;
        zantLogFree(entry);
        entry = next;
    }
    return order;
}

// The description of the order, step by step.
std::vector<std::string> orderOfChains(const std::vector<Given> &all) {
    std::vector<std::deque<Given>> chains(300);
    for (const Given &given : all) {
        const std::string key = given.directory + given.name;
        uint32_t hash = 0;
        for (const char c : key) {
            hash = hash * 31 + static_cast<uint32_t>(static_cast<signed char>(c));
        }
        std::deque<Given> &chain = chains[hash % 300];
        const bool known = std::any_of(chain.begin(), chain.end(), [&](const Given &other) {
            return other.directory == given.directory && other.name == given.name;
        });
        if (!known) {
            chain.push_front(given);
        }
    }
    std::vector<Given> list;
    for (const std::deque<Given> &chain : chains) {
        for (const Given &given : chain) {
            auto place = list.begin();
            while (place != list.end() && place->time <= given.time) {
                ++place;
            }
            list.insert(place, given);
        }
    }
    std::vector<std::string> order;
    for (const Given &given : list) {
        order.push_back(given.directory + given.name);
    }
    return order;
}

TEST(FoundFilesHash, IsTheOneOfTheTextsTogether) {
    EXPECT_EQ(hashOn(0, ""), 0u);
    EXPECT_EQ(hashOn(0, "a"), 97u);
    EXPECT_EQ(hashOn(0, "ab"), 3105u); // 97 * 31 + 98
    EXPECT_EQ(hashOn(hashOn(0, "a"), "b"), 3105u);
    EXPECT_EQ(hashOn(0, "\xff"), 4294967295u); // bytes are signed
}

TEST(FoundFiles, EqualTimesKeepTheOrderOfTheChains) {
    // One-letter names in an empty directory: the hash is the letter, the chain is the letter.
    EXPECT_EQ(orderOf({{"", "c", 5}, {"", "a", 5}, {"", "b", 5}}), (std::vector<std::string>{"a", "b", "c"}));
    // Equal chains: "Aa" and "BB" have one hash; the one found last is at the front.
    EXPECT_EQ(orderOf({{"", "Aa", 5}, {"", "BB", 5}}), (std::vector<std::string>{"BB", "Aa"}));
    EXPECT_EQ(orderOf({{"", "BB", 5}, {"", "Aa", 5}}), (std::vector<std::string>{"Aa", "BB"}));
    // Time comes before chain.
    EXPECT_EQ(orderOf({{"", "a", 6}, {"", "z", 5}}), (std::vector<std::string>{"z", "a"}));
    EXPECT_EQ(orderOf({{"", "a", 0}, {"", "z", -5}}), (std::vector<std::string>{"z", "a"}));
}

TEST(FoundFiles, ChainsGoByTheRemainderAndNotByTheHash) {
    // "j*" is 106 * 31 + 42 = 3328 and lands in chain 28; "a" in chain 97.
    EXPECT_EQ(orderOf({{"", "a", 5}, {"", "j*", 5}}), (std::vector<std::string>{"j*", "a"}));
}

TEST(FoundFiles, AreToldApartByDirectoryAndName) {
    // The key's text is one and the same.
    EXPECT_EQ(orderOf({{"a", "bc", 5}, {"ab", "c", 5}}).size(), 2u);
    EXPECT_EQ(orderOf({{"a", "bc", 5}, {"a", "bc", 6}}).size(), 1u);
    // Two directories of one hash.
    EXPECT_EQ(orderOf({{"Aa", "c", 5}, {"BB", "c", 5}}).size(), 2u);
}

TEST(FoundFiles, AgreeWithTheTableOfChains) {
    std::mt19937 engine(20251116);
    const auto random = [&engine] { return static_cast<uint32_t>(engine()); };
    for (int round = 0; round < 40; ++round) {
        std::vector<Given> all;
        const uint32_t files = random() % 400;
        for (uint32_t i = 0; i < files; ++i) {
            char name[60];
            std::snprintf(name, sizeof name, "12-%u-1-2511%02u-%010u.log", random() % 3 + 1,
                          random() % 3 + 10, random() % 100);
            all.push_back({random() % 2 == 0 ? "C:\\logs\\" : "D:\\other\\", name,
                           static_cast<int64_t>(random() % (round % 2 == 0 ? 3 : 1000)) - 1});
        }
        EXPECT_EQ(orderOf(all), orderOfChains(all)) << round;
    }
}

TEST(FoundFiles, NoneAreNoList) {
    FoundFiles found;
    EXPECT_FALSE(found.holds({"C:\\", "a.log", 1}));
    ASSERT_TRUE(found.begin());
    EXPECT_FALSE(found.holds({"C:\\", "a.log", 1}));
    EXPECT_EQ(found.takeList(), nullptr);
}

} // namespace

} // namespace zantlog::test
