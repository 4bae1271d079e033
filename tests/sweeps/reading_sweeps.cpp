// Reading configurations and log files while one call after the other fails.
#include <gtest/gtest.h>

#include "tests/sim/sim.h"
#include "tests/sweeps/product_scenario.h"

namespace zantlog::test {

namespace {

// Records of one product with an originator and a log set.
class ConfigurationsRead : public ProductScenario {
public:
    ConfigurationsRead() { setting("DebugLevel", "4"); }

private:
    void prepare() override {
        ProductScenario::prepare();
        sim::appendToFile(
            folder() + "\\product.conf",
            "3.DiagnosticLevel=5\r\nLOGSET.a.LogDirectory=C:\\sweep\\sets\r\nLOGSET.a.LogFileSDDL=D:\r\n");
    }
    [[nodiscard]] bool changesAnything() const override { return false; }
    void act() override {
        zantLogCfg cfg;
        expectRecord(zantLogReadCfg(12, 3, &cfg), &cfg);
        const uint32_t logSet = zantLogReadlogsetCfg(12, "a", &cfg);
        oneOf(logSet, {0, 4, 6}, "a log set");
        zantLogFreeCfg(&cfg);
        zantLogCfg *all[8] = {};
        uint32_t count = 0;
        if (oneOf(zantLogReadAllCfg(nullptr, 8, all, &count), {0, 1, 4, 6, 39}, "all records") == 0) {
            FreeConfigArray(all, count);
        }
        uint32_t count2 = 0;
        if (oneOf(zantLogReadProdIDCfg(nullptr, 12, 8, all, &count2), {0, 1, 4, 6, 39},
                  "a product's records") == 0) {
            FreeConfigArray(all, count2);
        }
    }
    static void expectRecord(uint32_t result, zantLogCfg *cfg) {
        oneOf(result, {0, 4, 6}, "a record");
        // What is read is what is stored; what cannot be read has its default.
        EXPECT_TRUE(cfg->debugLevel == 4 || cfg->debugLevel == 0) << cfg->debugLevel;
        EXPECT_TRUE(cfg->diagLevel == 5 || cfg->diagLevel == 0) << cfg->diagLevel;
        zantLogFreeCfg(cfg);
    }
};

// Levels of an open handle that are read again.
class LevelsReloaded : public ProductScenario {
public:
    LevelsReloaded() {
        setting("DebugLevel", "4");
        setting("DynaReloadInSec", "60");
    }

private:
    void prepare() override {
        ProductScenario::prepare();
        open();
        log();
        sim::clock().advanceSeconds(61);
    }
    void act() override {
        EXPECT_EQ(zantDynaLoadConfig(&handle_), 0u);
        EXPECT_TRUE(handle_.debugLevel == 4 || handle_.debugLevel == 0) << handle_.debugLevel;
        log();
    }
};

class RecordsRead : public ProductScenario {
    void prepare() override {
        ProductScenario::prepare();
        open();
        log(5000);
        log(40000);
        log();
        close();
        path_ = logFolder() + "\\" + sim::namesIn(logFolder()).front();
    }
    void act() override {
        const auto entry = std::make_unique<LogFileEntry>();
        const int32_t opened = zantLogOs_open(&entry->file, path_.c_str(), ZANTLOG_OPEN_READ, nullptr);
        EXPECT_TRUE(opened == ZANTLOG_OS_OK || opened == ZANTLOG_OS_PATH_DENIED ||
                    opened == ZANTLOG_OS_OPEN_FAILED)
            << opened;
        if (opened != ZANTLOG_OS_OK) {
            return;
        }
        LogFileHeader header;
        if (oneOf(ReadHeader(entry.get(), &header), {0, 1}, "a header") == 0) {
            EXPECT_EQ(header.productId, 12u);
            readRecords(&entry->file);
        }
        zantLogOs_close(&entry->file);
    }
    // As many as there are, and whole, until one cannot be read.
    static void readRecords(zantLogOsFile *file) {
        int records = 0;
        int32_t result = 1;
        while (result == 1) {
            text_msg buffer;
            init_text_msg(&buffer);
            result = readrecord(file, &buffer);
            EXPECT_TRUE(result == 1 || result == 0 || result == -1) << result;
            if (result == 1) {
                const std::string number = "message " + std::to_string(++records);
                EXPECT_NE(std::string(buffer.data).find(number), std::string::npos);
            }
            free_text_msg(&buffer);
        }
        EXPECT_TRUE(result == -1 || records == 3) << records << " records, and then the end";
    }

    std::string path_;
};

// A copy is whole, or the failure is said; the source stays as it is.
class FileCopied : public ProductScenario {
    void prepare() override {
        ProductScenario::prepare();
        open();
        log(40000);
        close();
        sim::makeFolders("C:\\sweep\\copies");
        name_ = sim::namesIn(logFolder()).front();
        source_ = sim::bytesOf(logFolder() + "\\" + name_);
    }
    void act() override {
        const std::string path = logFolder() + "\\" + name_;
        const uint32_t copied = oneOf(zantLogCopyFile(path.c_str(), "C:\\sweep\\copies"),
                                      {0, 4, 31, 32, 33, 34, 47, 54}, "a copy");
        if (copied == 0) {
            EXPECT_EQ(sim::bytesOf("C:\\sweep\\copies\\" + name_), source_);
        }
        const uint32_t again =
            oneOf(zantLogCopyFileEx(path.c_str(), "C:\\sweep\\copies"), {0, 4, 34}, "the system's copy");
        if (again == 0) {
            EXPECT_EQ(sim::bytesOf("C:\\sweep\\copies\\" + name_), source_);
        }
        EXPECT_EQ(sim::bytesOf(path), source_);
    }

    std::string name_;
    std::string source_;
};

TEST(ReadingSweep, Configurations) {
    sweep<ConfigurationsRead>();
}

TEST(ReadingSweep, LevelsThatAreReloaded) {
    sweep<LevelsReloaded>();
}

TEST(ReadingSweep, Records) {
    sweep<RecordsRead>();
}

TEST(ReadingSweep, FilesThatAreCopied) {
    sweep<FileCopied>();
}

} // namespace

} // namespace zantlog::test
