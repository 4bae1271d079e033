// Registering products at the configuration location, and what their entries say.
#include "tests/config/test_stores.h"
#include "tests/support/child_process.h"
#include "tests/support/machine.h"

#include <gtest/gtest.h>
#include <iterator>

namespace zantlog::test {
namespace {

constexpr uint32_t kProduct = 831;
constexpr const char *kMaker = "SOFTWARE\\KORVANE";

// Two products come and go at the location that an installation has.
ZANTLOG_CHILD(registerAtTheBuiltInLocation) {
    setEnvironment("ZANTLOG_CFG_LOC", nullptr);
    HandedOut path;
    const uint32_t results[] = {zantLogAddProductCfg(kProduct, "billing", "C:\\a.conf"),
                                zantLogAddProductCfg(832, "other", "C:\\b.conf"),
                                zantLogRemoveProductCfg(kProduct),
                                zantLogRemoveProductCfg(kProduct),
                                GetProductCfgPath(GetZantLogCfgLoc(), 832, &path),
                                zantLogRemoveProductCfg(832)};
    const uint32_t expected[] = {0, 0, 0, 6, 0, 0};
    for (size_t i = 0; i < std::size(expected); ++i) {
        if (results[i] != expected[i]) {
            return static_cast<int>(10 * (i + 1) + results[i]);
        }
    }
    return 0;
}

class Registration : public testing::Test {
protected:
    Registration() : location(makeLocation()) { removeBuiltIn(); }
    ~Registration() override { removeBuiltIn(); }

    static std::string path(uint32_t product) {
        HandedOut text;
        return GetProductCfgPath(GetZantLogCfgLoc(), product, &text) == 0 ? text.get() : "(none)";
    }

    // As the configuration of a registered product has them.
    static std::string names(uint32_t product) {
        Config cfg;
        EXPECT_EQ(zantLogReadCfg(product, 112, &cfg), 0U);
        return cfg.productNames;
    }

    // A key below the maker's, as an installation has them.
    static void makeBuiltIn(const char *section) {
        PropertyStore store{};
        EXPECT_EQ(CreatePropertyString("SOFTWARE\\KORVANE\\zantlog", section, &store), 0U);
        utiClosePropertyStore(&store);
    }
    static bool hasBuiltIn(const char *section) {
        PropertyStore store{};
        const std::string key = std::string(kMaker) + "\\zantlog" + section;
        if (utiOpenPropertyStore(key.c_str(), "", &store, ZANTLOG_STORE_READ) != 0) {
            return false;
        }
        utiClosePropertyStore(&store);
        return true;
    }
    static void removeBuiltIn() {
        PropertyStore store{};
        if (utiOpenPropertyStore("SOFTWARE", "", &store, ZANTLOG_STORE_WRITE) == 0) {
            utiRemovePropertyRoot(&store, "KORVANE");
            utiClosePropertyStore(&store);
        }
    }

    std::unique_ptr<TestStore> location;
};

TEST_F(Registration, IsReadBack) {
    ASSERT_EQ(zantLogAddProductCfg(kProduct, "billing,bil", "C:\\billing.conf"), 0U);
    EXPECT_EQ(path(kProduct), "C:\\billing.conf");
    Config cfg;
    ASSERT_EQ(zantLogReadCfg(kProduct, 112, &cfg), 0U);
    EXPECT_STREQ(cfg.productNames, "billing,bil");
}

TEST_F(Registration, OfARegisteredProductChangesNothing) {
    ASSERT_EQ(zantLogAddProductCfg(kProduct, "billing", "C:\\first.conf"), 0U);
    EXPECT_EQ(zantLogAddProductCfg(kProduct, "other", "C:\\second.conf"), 27U);
    EXPECT_EQ(path(kProduct), "C:\\first.conf");
}

// An entry that somebody else has begun is no registration until it has a path.
TEST_F(Registration, IsThePathAndNotTheNames) {
    location->text("831", "Names", "begun");
    EXPECT_EQ(zantLogRemoveProductCfg(kProduct), 6U);
    EXPECT_EQ(zantLogAddProductCfg(kProduct, "billing", "C:\\a.conf"), 0U);
    EXPECT_EQ(names(kProduct), "billing");
    location->text("832", "Configuration", "C:\\b.conf");
    EXPECT_EQ(zantLogAddProductCfg(832, "other", "C:\\other.conf"), 27U);
    EXPECT_EQ(names(832), "");
}

TEST_F(Registration, EndsWithPathAndNames) {
    ASSERT_EQ(zantLogAddProductCfg(kProduct, "billing", "C:\\a.conf"), 0U);
    zantLogRemoveProductCfg(kProduct); // what it answers is the built-in key's affair
    EXPECT_EQ(path(kProduct), "(none)");
    location->text("831", "Configuration", "C:\\a.conf");
    EXPECT_EQ(names(kProduct), "") << "the old ones have gone";
}

// Removing a value that is not there succeeds in a file; the registry refuses it, which ends the removal.
TEST_F(Registration, WithoutNamesStaysWhereTheRegistryHasIt) {
    makeBuiltIn("831");
    location->text("831", "Configuration", "C:\\a.conf");
    EXPECT_EQ(zantLogRemoveProductCfg(kProduct), location->isFile() ? 0U : 1U);
    EXPECT_EQ(path(kProduct), "(none)");
    EXPECT_EQ(hasBuiltIn("\\831"), !location->isFile());
}

TEST_F(Registration, NeedsItsArguments) {
    EXPECT_EQ(zantLogAddProductCfg(0, "billing", "C:\\a.conf"), 3U);
    EXPECT_EQ(zantLogAddProductCfg(kProduct, nullptr, "C:\\a.conf"), 3U);
    EXPECT_EQ(zantLogAddProductCfg(kProduct, "billing", nullptr), 3U);
    EXPECT_EQ(path(kProduct), "(none)");
    EXPECT_EQ(zantLogRemoveProductCfg(0), 3U);
    EXPECT_EQ(zantLogRemoveProductCfg(kProduct), 6U);
}

TEST_F(Registration, EndsWithTheBuiltInKeysAnswer) {
    ASSERT_EQ(zantLogAddProductCfg(kProduct, "billing", "C:\\a.conf"), 0U);
    EXPECT_EQ(zantLogRemoveProductCfg(kProduct), 6U) << "there is no such key";
    EXPECT_EQ(path(kProduct), "(none)") << "the values are gone all the same";

    makeBuiltIn("");
    ASSERT_EQ(zantLogAddProductCfg(kProduct, "billing", "C:\\a.conf"), 0U);
    EXPECT_EQ(zantLogRemoveProductCfg(kProduct), 50U) << "the key lacks the product";
    EXPECT_EQ(path(kProduct), "(none)");
    EXPECT_TRUE(hasBuiltIn(""));
}

TEST_F(Registration, EndsWithTheProductsKey) {
    makeBuiltIn("831");
    makeBuiltIn("832");
    ASSERT_EQ(zantLogAddProductCfg(kProduct, "billing", "C:\\a.conf"), 0U);
    EXPECT_EQ(zantLogRemoveProductCfg(kProduct), 0U);
    EXPECT_FALSE(hasBuiltIn("\\831"));
    EXPECT_TRUE(hasBuiltIn("\\832"));
}

TEST_F(Registration, OfTheLastProductEndsWithTheWholeKey) {
    makeBuiltIn("831");
    ASSERT_EQ(zantLogAddProductCfg(kProduct, "billing", "C:\\a.conf"), 0U);
    EXPECT_EQ(zantLogRemoveProductCfg(kProduct), 0U);
    EXPECT_FALSE(hasBuiltIn(""));
}

TEST_F(Registration, AtTheBuiltInLocationLeavesNothingBehind) {
    EXPECT_EQ(runChild("registerAtTheBuiltInLocation"), 0);
    EXPECT_FALSE(hasBuiltIn(""));
}

TEST_F(Registration, OfOthersStays) {
    makeBuiltIn("831");
    ASSERT_EQ(zantLogAddProductCfg(kProduct, "billing", "C:\\a.conf"), 0U);
    ASSERT_EQ(zantLogAddProductCfg(83, "other", "C:\\b.conf"), 0U);
    ASSERT_EQ(zantLogAddProductCfg(8312, "another", "C:\\c.conf"), 0U);
    EXPECT_EQ(zantLogRemoveProductCfg(kProduct), 0U);
    EXPECT_EQ(path(83), "C:\\b.conf");
    EXPECT_EQ(path(8312), "C:\\c.conf");
}

TEST_F(Registration, TheEntrysSwitchIsTheTextTrue) {
    uint32_t on = 7;
    EXPECT_EQ(GetProductLoggingLevel(GetZantLogCfgLoc(), kProduct, &on), 6U);
    EXPECT_EQ(on, 7U);
    location->text("831", "AppMsgLogging", "true");
    EXPECT_EQ(GetProductLoggingLevel(GetZantLogCfgLoc(), kProduct, &on), 0U);
    EXPECT_EQ(on, 1U);
    location->text("832", "AppMsgLogging", "ON");
    EXPECT_EQ(GetProductLoggingLevel(GetZantLogCfgLoc(), 832, &on), 0U);
    EXPECT_EQ(on, 0U) << "ON is for the sections";
    EXPECT_EQ(GetProductLoggingLevel(GetZantLogCfgLoc(), 832, nullptr), 6U);
    EXPECT_EQ(GetProductLoggingLevel(nullptr, 832, &on), 6U);
}

TEST_F(Registration, TheToolsHaveAResourceDirectory) {
    HandedOut directory;
    EXPECT_EQ(zantLogCfgGetToolsResDir(nullptr), 3U);
    EXPECT_EQ(zantLogCfgGetToolsResDir(&directory), 6U);
    EXPECT_EQ(directory.get(), nullptr);
    location->text("LoggingTools", "L10nResourceDir", "C:\\texts");
    EXPECT_EQ(zantLogCfgGetToolsResDir(&directory), 0U);
    EXPECT_STREQ(directory.get(), "C:\\texts");
}

} // namespace
} // namespace zantlog::test
