// Any bytes are a product's configuration: what is loaded from it is within its limits.
#include <cstring>
#include <memory>

#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "tests/sim/environment.h"
#include "tests/sim/files.h"
#include "zantlog/config.h"
#include "zantlog/config_store.h"

namespace {

using namespace zantlog;

template <size_t N> void expectTerminated(const char (&text)[N], const char *what) {
    fuzz::expect(strnlen(text, N) < N, what);
}

void expectWithinLimits(const zantLogCfg &cfg) {
    fuzz::expect(cfg.debugLevel <= 6 && cfg.diagLevel <= 6, "levels");
    fuzz::expect((cfg.outputFlags & ~(1u | 2u | 4u | 64u)) == 0, "output flags");
    fuzz::expect(cfg.logRecycle <= 1 && cfg.appMsgLogging <= 1 && cfg.isLogSet <= 1, "switches");
    fuzz::expect(cfg.rolloverMode <= 5 && (cfg.rolloverMode & 6) != 6, "rollover mode");
    fuzz::expect(cfg.rolloverTime >= 0 && cfg.rolloverTime < 86400, "rollover time");
    fuzz::expect(cfg.rolloverPeriod >= 0 && cfg.rolloverPeriod <= UINT32_MAX, "rollover period");
    fuzz::expectEqual(cfg.changedMask, 0, "nothing is changed");
    expectTerminated(cfg.logDirectory, "directory");
    expectTerminated(cfg.productNames, "product names");
    expectTerminated(cfg.originatorNames, "originator names");
    expectTerminated(cfg.eventSource.name, "event source");
    const size_t length = std::strlen(cfg.logDirectory);
    fuzz::expect(length == 0 || cfg.logDirectory[length - 1] == '\\', "a directory ends in a backslash");
}

void expectLoaded(uint32_t result, zantLogCfg *cfg) {
    fuzz::expect(result == 0 || result == 6, "loaded, or not there");
    expectWithinLimits(*cfg);
    zantLogFreeCfg(cfg);
}

// The location is taken, and the common lock is made, at their first use; both stay.
std::string locationOfThisProcess() {
    const std::string location = fuzz::path("location.conf");
    sim::setEnvironmentValue("ZANTLOG_CFG_LOC", location);
    const auto cfg = std::make_unique<zantLogCfg>();
    fuzz::expectEqual(zantLogReadCfg(1, 1, cfg.get()), 6, "nothing is there yet");
    zantLogFreeCfg(cfg.get());
    return location;
}

void loadAll(uint32_t (*load)(zantLogCfg **array, uint32_t *count)) {
    zantLogCfg *records[8] = {};
    uint32_t count = 99;
    const uint32_t result = load(records, &count);
    fuzz::expect(result == 0 || result == 39, "records, or none");
    if (result == 0) {
        fuzz::expect(count <= 8, "as many as there is room for");
        for (uint32_t i = 0; i < count; ++i) {
            expectWithinLimits(*records[i]);
        }
        FreeConfigArray(records, count);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    static const std::string location = locationOfThisProcess();
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    const std::string path = fuzz::path("product.conf");
    sim::putFile(location, "12.Configuration=" + path + "\r\n12.Names=any, name\r\n");
    sim::putFile(path, input.rest());

    const auto cfg = std::make_unique<zantLogCfg>();
    expectLoaded(zantLogReadCfg(12, 3, cfg.get()), cfg.get());
    expectLoaded(zantLogReadCfg(12, ZANTLOG_DEFAULT_ORIGINATOR, cfg.get()), cfg.get());
    expectLoaded(zantLogReadlogsetCfg(12, "a", cfg.get()), cfg.get());
    loadAll([](zantLogCfg **array, uint32_t *count) { return zantLogReadAllCfg(nullptr, 8, array, count); });
    loadAll([](zantLogCfg **array, uint32_t *count) {
        return zantLogReadProdIDCfg(nullptr, 12, 8, array, count);
    });
    return 0;
}
