// Saving and registering while one call after the other fails: each key is the old one or the new one.
#include <gtest/gtest.h>

#include "tests/sim/sim.h"
#include "tests/sweeps/product_scenario.h"

namespace zantlog::test {

namespace {

// Three settings are changed, two of them were there; a fourth is removed.
class RecordSaved : public ProductScenario {
public:
    RecordSaved() {
        setting("DebugLevel", "2");
        setting("DiagnosticLevel", "2");
        setting("NumberOfLogFiles", "9");
        setting("LogFileSDDL", "D:");
    }

    void act() override {
        zantLogCfg cfg{};
        cfg.debugLevel = 5;
        cfg.diagLevel = 6;
        cfg.maxLogFileSizeKB = 77;
        cfg.appMsgLogging = 1;
        cfg.changedMask =
            ZANTLOG_SETTING_DEBUG_LEVEL | ZANTLOG_SETTING_DIAG_LEVEL | ZANTLOG_SETTING_MAX_FILE_SIZE;
        result_ = oneOf(zantLogWriteCfg(12, ZANTLOG_DEFAULT_ORIGINATOR, &cfg), {0, 1, 6, 55, 64}, "a save");
        zantLogCfg gone{};
        gone.appMsgLogging = 1;
        gone.removeMask = ZANTLOG_SETTING_LOG_FILE_SDDL;
        oneOf(zantLogWriteCfg(12, ZANTLOG_DEFAULT_ORIGINATOR, &gone), {0, 1, 6, 55, 64}, "a removal");
    }
    void check() override {
        zantLogCfg cfg;
        EXPECT_EQ(zantLogReadCfg(12, ZANTLOG_DEFAULT_ORIGINATOR, &cfg), 0u);
        // A save ends at the key that fails: what comes later is old.
        const bool first = cfg.debugLevel == 5;
        const bool second = cfg.diagLevel == 6;
        const bool third = cfg.maxLogFileSizeKB == 77;
        EXPECT_TRUE(first || cfg.debugLevel == 2) << cfg.debugLevel;
        EXPECT_TRUE(second || cfg.diagLevel == 2) << cfg.diagLevel;
        EXPECT_TRUE(third || cfg.maxLogFileSizeKB == 10240) << cfg.maxLogFileSizeKB;
        EXPECT_TRUE((first || !second) && (second || !third));
        EXPECT_TRUE(result_ != 0 || third);
        EXPECT_EQ(cfg.numberOfLogFiles, 9u) << "nobody touched it";
        zantLogFreeCfg(&cfg);
        ProductScenario::check();
    }

private:
    uint32_t result_ = 1;
};

// The same with the product's settings in the registry, and its registration in a file as before.
class RecordSavedInRegistry : public RecordSaved {
    static constexpr const char *kPath = "SOFTWARE\\sweep-product";

    void prepare() override {
        RecordSaved::prepare();
        sim::putFile(GetZantLogCfgLoc(), std::string("12.Configuration=") + kPath + "\r\n12.Names=sweep\r\n");
        PropertyStore section;
        EXPECT_EQ(CreatePropertyString(kPath, "Default", &section), 0u);
        EXPECT_EQ(utiSetPropertyAsStr(&section, "LogDirectory", logFolder().c_str()), 0u);
        EXPECT_EQ(utiSetPropertyAsStr(&section, "LogFileSDDL", "D:"), 0u);
        const uint32_t two = 2;
        const uint32_t nine = 9;
        EXPECT_EQ(utiSetPropertyAsULong(&section, "DebugLevel", &two), 0u);
        EXPECT_EQ(utiSetPropertyAsULong(&section, "DiagnosticLevel", &two), 0u);
        EXPECT_EQ(utiSetPropertyAsULong(&section, "NumberOfLogFiles", &nine), 0u);
        utiClosePropertyStore(&section);
    }
    void check() override {
        RecordSaved::check();
        PropertyStore parent;
        EXPECT_EQ(utiOpenPropertyStore("SOFTWARE", "", &parent, ZANTLOG_STORE_WRITE), 0u);
        EXPECT_EQ(utiRemovePropertyRoot(&parent, "sweep-product"), 0u);
        utiClosePropertyStore(&parent);
    }
};

class ProductRegistered : public ProductScenario {
    void act() override {
        added_ = oneOf(zantLogAddProductCfg(13, "new", "C:\\sweep\\new.conf"), {0, 1, 6, 27, 55, 64},
                       "a registration");
        oneOf(zantLogAddProductCfg(12, "other", "C:\\sweep\\other.conf"), {6, 27}, "a second one");
    }
    void check() override {
        char *path = nullptr;
        const uint32_t result = GetProductCfgPath(GetZantLogCfgLoc(), 13, &path);
        if (result == 0) {
            EXPECT_STREQ(path, "C:\\sweep\\new.conf");
        }
        EXPECT_TRUE(added_ != 0 || result == 0);
        zantLogFree(path);
        path = nullptr;
        EXPECT_EQ(GetProductCfgPath(GetZantLogCfgLoc(), 12, &path), 0u);
        EXPECT_STREQ(path, "C:\\sweep\\product.conf") << "the first registration stays";
        zantLogFree(path);
        ProductScenario::check();
    }

    uint32_t added_ = 1;
};

TEST(SavingSweep, RecordsOfAProduct) {
    sweep<RecordSaved>();
}

TEST(SavingSweep, RecordsOfAProductInTheRegistry) {
    sweep<RecordSavedInRegistry>();
}

TEST(SavingSweep, Registrations) {
    sweep<ProductRegistered>();
}

} // namespace

} // namespace zantlog::test
