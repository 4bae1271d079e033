// Loading the configuration of a registered product out of a `.conf` file of any bytes: records of an
// originator and a log set against a model, all records of the file by what holds for every record, and the
// file as a location.
#include "tests/fuzz/conf_model.h"
#include "tests/fuzz/config_model.h"
#include "tests/fuzz/operations.h"
#include "zantlog/config_store.h"

namespace {

using namespace zantlog::fuzz;
namespace sim = zantlog::sim;

constexpr char kFolder[] = "C:\\Fuzz";
constexpr char kProduct[] = "C:\\Fuzz\\product.conf";
constexpr char kLocation[] = "C:\\Fuzz\\location.conf";
constexpr char kRegistration[] = "12.Configuration=C:\\Fuzz\\product.conf\r\n12.Names=prod,p\r\n";

constexpr uint32_t kNotRegistered = 6;
constexpr uint32_t kNone = 39;
constexpr uint32_t kFailure = 1;

void checkOriginator(const std::string &file, uint32_t originator) {
    ExpectedConfig expected;
    loadSection(&expected, file, "Default");
    if (originator != ZANTLOG_DEFAULT_ORIGINATOR) {
        loadSection(&expected, file, std::to_string(originator));
    }
    zantLogCfg cfg;
    requireNumber(0, zantLogReadCfg(12, originator, &cfg), "result of an originator");
    requireConfig(expected, cfg);
    requireNumber(originator, cfg.originatorId, "originator id");
    requireText("prod,p", cfg.productNames, "product names");
    zantLogFreeCfg(&cfg);
}

void checkLogSet(const std::string &file, const std::string &name) {
    ExpectedConfig expected;
    expected.logSetName = name;
    expected.logSetFileName = name;
    loadSection(&expected, file, "LOGSET.Default");
    if (name != "Default") {
        loadSection(&expected, file, "LOGSET." + name);
    }
    zantLogCfg cfg;
    const uint32_t result = zantLogReadlogsetCfg(12, name.c_str(), &cfg);
    if (!expected.unsure) {
        requireNumber(expected.found != 0 ? 0 : kNotRegistered, result, "result of a log set");
    }
    requireConfig(expected, cfg);
    zantLogFreeCfg(&cfg);
}

// What an enumeration of the roots ends with, as the result of a reading without records: a name that does
// not fit is a failure.
uint32_t resultWithoutRecords(const std::string &file) {
    ConfModel model{file, "", 0, false};
    std::string name;
    uint32_t result = 0;
    while (result == 0) {
        uint32_t length = 80;
        result = model.enumerate(false, &name, &length);
    }
    return result == 7 ? kNone : kFailure;
}

void checkAll(const char *location, const std::string &file) {
    const uint32_t withoutRecords = resultWithoutRecords(file);
    for (const uint32_t capacity : {2u, 40u}) {
        zantLogCfg *records[40] = {};
        uint32_t count = 77;
        const uint32_t result = zantLogReadAllCfg(location, capacity, records, &count);
        require(result == (count != 0 ? 0 : withoutRecords), "result of all records");
        require(count <= capacity, "no more records than there is room for");
        for (uint32_t i = 0; i < count; ++i) {
            requireSane(*records[i]);
        }
        FreeConfigArray(records, count);
        requireNumber(0, records[0] == nullptr ? 0 : 1, "freed records");
    }
}

void checkProduct(const char *location, const std::string &file, uint32_t product) {
    const uint32_t withoutRecords = resultWithoutRecords(file);
    zantLogCfg *records[3] = {};
    uint32_t count = 77;
    const uint32_t result = zantLogReadProdIDCfg(location, product, 3, records, &count);
    require(count <= 3, "no more records than there is room for");
    const bool none = count == 0 && (result == kNone || result == withoutRecords);
    require(result == 0 || none, "result of the records of a product");
    for (uint32_t i = 0; i < count; ++i) {
        requireSane(*records[i]);
        requireNumber(product, records[i]->productId, "product id");
    }
    FreeConfigArray(records, count);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    constexpr size_t kMost = 2000; // every key of every section reads the whole file
    if (size > kMost) {
        return 0;
    }
    const std::string file(reinterpret_cast<const char *>(data), size);
    sim::setEnvironmentValue("ZANTLOG_CFG_LOC", kLocation);
    sim::makeFolders(kFolder);
    sim::putFile(kLocation, kRegistration);
    sim::putFile(kProduct, file);
    requireText(kLocation, GetZantLogCfgLoc(), "location");
    // The common lock is made by its first use and stays.
    zantLogCfg first;
    requireNumber(kNotRegistered, zantLogReadCfg(7, 3, &first), "a product that is not registered");
    zantLogFreeCfg(&first);
    const sim::Census before = sim::takeCensus();
    checkOriginator(file, ZANTLOG_DEFAULT_ORIGINATOR);
    checkOriginator(file, 3);
    checkLogSet(file, "Default");
    checkLogSet(file, "trade");
    checkAll(nullptr, kRegistration);
    checkAll(kProduct, file);
    checkProduct(nullptr, kRegistration, 12);
    checkProduct(kProduct, file, 12);
    requireText(file, sim::bytesOf(kProduct), "file that was only read");
    requireText("", sim::leftSince(before), "what was left behind");
    sim::removeAll(kFolder);
    return 0;
}
