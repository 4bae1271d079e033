// Ids by number and by short name.
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "zantlog/query.h"

namespace {

constexpr uint32_t kProduct = 263;
constexpr uint32_t kOriginator = 264;

// Configuration records with ids and names.
class NamedIds : public testing::Test {
protected:
    void add(uint32_t product, const std::string &productNames, uint32_t originator,
             const std::string &originatorNames) {
        auto &cfg = records_.emplace_back(std::make_unique<zantLogCfg>());
        cfg->productId = product;
        cfg->originatorId = originator;
        std::strncpy(cfg->productNames, productNames.c_str(), sizeof cfg->productNames - 1);
        std::strncpy(cfg->originatorNames, originatorNames.c_str(), sizeof cfg->originatorNames - 1);
        array_.push_back(cfg.get());
    }

    void addProduct(uint32_t product, const std::string &names) { add(product, names, 0, ""); }

    uint32_t idOf(uint32_t code, const char *text) {
        return GetIdFromName(array_.data(), static_cast<uint32_t>(array_.size()), code, text);
    }

    std::vector<std::unique_ptr<zantLogCfg>> records_;
    std::vector<zantLogCfg *> array_;
};

TEST_F(NamedIds, AreFoundByNumber) {
    addProduct(12, "Alpha");
    addProduct(7, "Beta");
    EXPECT_EQ(idOf(kProduct, "7"), 7u);
    EXPECT_EQ(idOf(kProduct, "12"), 12u);
    EXPECT_EQ(idOf(kProduct, "007"), 7u);
    EXPECT_EQ(idOf(kProduct, "8"), 0u);
    EXPECT_EQ(idOf(kProduct, "1"), 0u);
}

TEST_F(NamedIds, NumberMayHaveSignAndWhiteSpaceBeforeIt) {
    addProduct(7, "Beta");
    EXPECT_EQ(idOf(kProduct, " 7"), 7u);
    EXPECT_EQ(idOf(kProduct, "\t+7"), 7u);
    EXPECT_EQ(idOf(kProduct, "-7"), 0u);
    EXPECT_EQ(idOf(kProduct, "7 "), 0u);
    EXPECT_EQ(idOf(kProduct, "7x"), 0u);
    EXPECT_EQ(idOf(kProduct, "0x7"), 0u);
    EXPECT_EQ(idOf(kProduct, "+"), 0u);
}

TEST_F(NamedIds, UseAll32Bits) {
    addProduct(3000000000, "Beta");
    addProduct(0xFFFFFFFF, "Gamma");
    EXPECT_EQ(idOf(kProduct, "3000000000"), 3000000000u);
    EXPECT_EQ(idOf(kProduct, "4294967295"), 0xFFFFFFFFu);
    EXPECT_EQ(idOf(kProduct, "2147483647"), 0u);
}

TEST_F(NamedIds, NumberNeedsARecordWithNames) {
    add(7, "", 3, "Owner");
    EXPECT_EQ(idOf(kProduct, "7"), 0u);
    EXPECT_EQ(idOf(kOriginator, "3"), 3u);
    addProduct(7, "Beta");
    EXPECT_EQ(idOf(kProduct, "7"), 7u);
}

TEST_F(NamedIds, NumberIsNeverAName) {
    addProduct(12, "7,Alpha");
    EXPECT_EQ(idOf(kProduct, "7"), 0u);
    EXPECT_EQ(idOf(kProduct, "12"), 12u);
}

TEST_F(NamedIds, AreFoundByEveryNameOfTheList) {
    addProduct(12, "Alpha,Al,A");
    addProduct(7, "Beta");
    for (const char *name : {"Alpha", "Al", "A"}) {
        EXPECT_EQ(idOf(kProduct, name), 12u) << name;
    }
    EXPECT_EQ(idOf(kProduct, "Beta"), 7u);
}

TEST_F(NamedIds, NamesAreExact) {
    addProduct(12, "Alpha,Beta");
    for (const char *name :
         {"alpha", "Alph", "Alphaa", "Alpha,Beta", ",", "Alpha,", "lpha", "eta", "AlphaBeta"}) {
        EXPECT_EQ(idOf(kProduct, name), 0u) << name;
    }
}

TEST_F(NamedIds, BlanksOfTheListDoNotCountAndThoseOfTheTextDo) {
    addProduct(12, "My Prod, Second , T h i r d");
    EXPECT_EQ(idOf(kProduct, "MyProd"), 12u);
    EXPECT_EQ(idOf(kProduct, "Second"), 12u);
    EXPECT_EQ(idOf(kProduct, "Third"), 12u);
    EXPECT_EQ(idOf(kProduct, "My Prod"), 0u);
    EXPECT_EQ(idOf(kProduct, " Second"), 0u);
    EXPECT_EQ(idOf(kProduct, "Second "), 0u);
    EXPECT_EQ(idOf(kProduct, "My"), 0u);
}

TEST_F(NamedIds, OtherWhiteSpaceIsPartOfAName) {
    addProduct(12, "My\tProd");
    EXPECT_EQ(idOf(kProduct, "MyProd"), 0u);
    EXPECT_EQ(idOf(kProduct, "My\tProd"), 12u);
}

TEST_F(NamedIds, EmptyTextIsNoName) {
    addProduct(12, "Alpha,,Beta");
    addProduct(13, "  ,");
    addProduct(0, " ");
    EXPECT_EQ(idOf(kProduct, ""), 0u);
    EXPECT_EQ(idOf(kProduct, " "), 0u);
    EXPECT_EQ(idOf(kProduct, "Beta"), 12u);
}

TEST_F(NamedIds, FieldChoosesProductsOrOriginators) {
    add(12, "Alpha", 3, "Owner");
    EXPECT_EQ(idOf(kProduct, "Alpha"), 12u);
    EXPECT_EQ(idOf(kProduct, "Owner"), 0u);
    EXPECT_EQ(idOf(kProduct, "3"), 0u);
    for (const uint32_t code : {264u, 265u, 0u, 262u, 0xFFFFFFFFu}) {
        EXPECT_EQ(idOf(code, "Owner"), 3u) << code;
        EXPECT_EQ(idOf(code, "3"), 3u) << code;
        EXPECT_EQ(idOf(code, "Alpha"), 0u) << code;
        EXPECT_EQ(idOf(code, "12"), 0u) << code;
    }
}

TEST_F(NamedIds, FirstRecordThatMatchesIsTheResult) {
    add(12, "Alpha", 3, "Same");
    add(12, "Alpha", 4, "Same,Other");
    EXPECT_EQ(idOf(kOriginator, "Same"), 3u);
    EXPECT_EQ(idOf(kOriginator, "Other"), 4u);
}

TEST_F(NamedIds, LastNameOfAFullListIsFound) {
    const std::string name(512, 'n');
    addProduct(12, std::string(511, 'x') + "," + name);
    EXPECT_EQ(idOf(kProduct, name.c_str()), 12u);
    EXPECT_EQ(idOf(kProduct, name.substr(1).c_str()), 0u);
    EXPECT_EQ(idOf(kProduct, (name + "n").c_str()), 0u);
}

TEST_F(NamedIds, CountLimitsTheRecords) {
    addProduct(12, "Alpha");
    addProduct(7, "Beta");
    EXPECT_EQ(GetIdFromName(array_.data(), 1, kProduct, "Beta"), 0u);
    EXPECT_EQ(GetIdFromName(array_.data(), 0, kProduct, "Alpha"), 0u);
}

TEST_F(NamedIds, NothingIsNowhere) {
    addProduct(12, "Alpha");
    array_.insert(array_.begin(), nullptr);
    EXPECT_EQ(idOf(kProduct, "Alpha"), 12u);
    EXPECT_EQ(idOf(kProduct, nullptr), 0u);
    EXPECT_EQ(GetIdFromName(nullptr, 1, kProduct, "Alpha"), 0u);
}

} // namespace
