// Enumeration of locations that are missing, broken, or written by hand.
#include "tests/config/read_records.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

namespace zantlog::test {
namespace {

TEST(ConfigEnumerationLocation, AMissingOneIsSix) {
    zantLogCfg *array[1] = {};
    uint32_t count = 77;
    EXPECT_EQ(zantLogReadAllCfg("SOFTWARE\\zantlog-test-no-such-key", 1, array, &count), 6U);
    EXPECT_EQ(count, 0U);
    count = 77;
    EXPECT_EQ(zantLogReadProdIDCfg("SOFTWARE\\zantlog-test-no-such-key", 31, 1, array, &count), 6U);
    EXPECT_EQ(count, 0U);
    const std::string file = inProcessFolder("no-such-file.conf");
    EXPECT_EQ(zantLogReadAllCfg(file.c_str(), 1, array, &count), 6U);
    EXPECT_EQ(zantLogReadProdIDCfg(file.c_str(), 31, 1, array, &count), 6U);
}

TEST(ConfigEnumerationLocation, AFailingEnumerationIsOneUnlessSomethingWasRead) {
    const std::unique_ptr<TestStore> location = makeStore(BackEnd::Conf);
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Conf);
    location->text(std::string(100, '9'), "Configuration", "x");
    Records none;
    EXPECT_EQ(none.readAll(*location), 1U);
    EXPECT_EQ(none.count, 0U);
    EXPECT_EQ(none.readOne(*location, 31), 1U);

    writeConf(location->path(), {});
    registerProduct(*location, 31, store->path(), "billing");
    location->text(std::string(100, '9'), "Configuration", "x");
    Records some;
    EXPECT_EQ(some.readAll(*location), 0U);
    EXPECT_EQ(some.names(), "31/112");
    EXPECT_EQ(Records().readOne(*location, 32), 1U);
}

TEST(ConfigEnumerationLocation, NullMeansTheConfigurationLocation) {
    const std::unique_ptr<TestStore> location = makeLocation();
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Conf);
    registerProduct(*location, 41, store->path(), "billing");
    Records all;
    EXPECT_EQ(zantLogReadAllCfg(nullptr, kCapacity, all.array, &all.count), 0U);
    EXPECT_EQ(all.names(), "41/112");
    Records one;
    EXPECT_EQ(zantLogReadProdIDCfg(nullptr, 41, kCapacity, one.array, &one.count), 0U);
    EXPECT_EQ(one.names(), "41/112");
}

TEST(ConfigEnumerationLocation, LongNamesOfAProductAreCut) {
    // In a file's line such names have no room.
    const std::unique_ptr<TestStore> location = makeStore(BackEnd::Registry);
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Registry);
    registerProduct(*location, 31, store->path(), std::string(2000, 'n'));
    store->number("3", "DebugLevel", 1);
    store->number(store->logSet("nightly"), "DebugLevel", 1);
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    ASSERT_EQ(records.names(), "31/112 31/3 31:nightly");
    for (uint32_t i = 0; i < records.count; ++i) {
        EXPECT_EQ(records.array[i]->productNames, std::string(1024, 'n')) << i;
        EXPECT_STREQ(records.array[i]->originatorNames, "") << i;
    }
}

// Lines of one root in two places, as hand-edited files have them.

TEST(ConfigEnumerationInFile, AProductInTwoRunsIsReadOnce) {
    const std::unique_ptr<TestStore> location = makeStore(BackEnd::Conf);
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Conf);
    const std::unique_ptr<TestStore> other = makeStore(BackEnd::Conf);
    writeConf(location->path(), {"31.Configuration=" + store->path(), "32.Configuration=" + other->path(),
                                 "31.Names=billing", "32.Names=other"});
    writeConf(store->path(),
              {"3.DebugLevel=1", "LOGSET.Default.DebugLevel=1", "LOGSET.nightly.DebugLevel=2"});
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    EXPECT_EQ(records.names(), "31/112 31/3 31:Default 31:nightly 32/112");
    EXPECT_STREQ(records.array[0]->productNames, "billing");
    EXPECT_STREQ(records.array[4]->productNames, "other");
    Records one;
    ASSERT_EQ(one.readOne(*location, 31), 0U);
    EXPECT_EQ(one.names(), "31/112 31/3 31:Default 31:nightly");
}

TEST(ConfigEnumerationInFile, SectionsInTwoRunsAreReadOnceWithAllTheirKeys) {
    const std::unique_ptr<TestStore> location = makeStore(BackEnd::Conf);
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Conf);
    registerProduct(*location, 31, store->path(), "billing");
    writeConf(store->path(), {"# a comment", "3.DebugLevel=1", "LOGSET.nightly.DebugLevel=2",
                              "4.DebugLevel=3", "3.DiagnosticLevel=4", "LOGSET.weekly.DebugLevel=5",
                              "LOGSET.nightly.DiagnosticLevel=6", "Default.LogToStdout=true", "no property"});
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    EXPECT_EQ(records.names(), "31/112 31/3 31/4 31:nightly 31:weekly");
    EXPECT_EQ(records.array[1]->debugLevel, 1U);
    EXPECT_EQ(records.array[1]->diagLevel, 4U);
    EXPECT_EQ(records.array[1]->outputFlags, 1U);
    EXPECT_EQ(records.named("nightly").diagLevel, 6U);
}

TEST(ConfigEnumerationInFile, LocationAndConfigurationMayBeOneFile) {
    const std::unique_ptr<TestStore> location = makeStore(BackEnd::Conf);
    writeConf(location->path(), {"31.Configuration=" + location->path(), "31.Names=billing",
                                 "Default.DebugLevel=2", "3.DebugLevel=1", "LOGSET.nightly.DebugLevel=4"});
    Records records;
    ASSERT_EQ(records.readAll(*location), 0U);
    // The product's own entry looks like an originator there.
    EXPECT_EQ(records.names(), "31/112 31/31 31/3 31:nightly");
    EXPECT_EQ(records.array[1]->debugLevel, 2U);
}

TEST(ConfigArrays, AreFreedWithTheirTextsAndCleared) {
    const std::unique_ptr<TestStore> location = makeStore(BackEnd::Conf);
    const std::unique_ptr<TestStore> store = makeStore(BackEnd::Conf);
    registerProduct(*location, 31, store->path(), "billing");
    store->number("LOGSET.nightly", "DebugLevel", 2);
    zantLogCfg *array[3] = {};
    uint32_t count = 0;
    ASSERT_EQ(zantLogReadAllCfg(location->path().c_str(), 3, array, &count), 0U);
    ASSERT_EQ(count, 2U);
    EXPECT_EQ(FreeConfigArray(array, count), 0U);
    EXPECT_EQ(array[0], nullptr);
    EXPECT_EQ(array[1], nullptr);
    EXPECT_EQ(FreeConfigArray(array, 3), 0U);
    EXPECT_EQ(FreeConfigArray(array, 0), 0U);
}

} // namespace
} // namespace zantlog::test
