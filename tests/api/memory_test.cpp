// Every operation with a heap that fails at its first allocation, then its second, and so on: nothing leaks,
// nothing crashes, and the answer is the documented one.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "tests/api/product_fixture.h"
#include "tests/api/recording_system.h"
#include "tests/config/failing_memory.h"
#include "tests/support/catalog_objects.h"
#include "tests/support/wide_text.h"
#include "zantlog/zantlog.h"

using namespace zantlog::test;

namespace {

class MemoryTest : public ProductTest {
protected:
    MemoryTest() {
        recording = {};
        GetZantLogCfgLoc(); // what is kept for the life of the process is no leak
    }
    ~MemoryTest() override { failAllocation(0); }
};

uint32_t renderFormat(char **out, const char *fmt, ...) {
    va_list args;
    va_start(args, fmt);
    const uint32_t result = listxt_svnprintf(out, fmt, args);
    va_end(args);
    return result;
}

} // namespace

TEST_F(MemoryTest, TextOfAMessageThatCannotBeCopiedStaysNull) {
    zantLogHandle handle = {};
    handle.noContext = 1;
    failAllocation(1);
    const Message message(&handle, 1, "text");
    EXPECT_EQ(message.initialised, 0u);
    EXPECT_EQ(message.text, nullptr);
    EXPECT_TRUE(allocationHasFailed());
}

TEST_F(MemoryTest, TokenThatCannotBeCopiedIs4AndStoresNothing) {
    zantLogMsgRec rec = {};
    rec.type = 3;
    failAllocation(1);
    EXPECT_EQ(zantLogSetContextAttr(&rec, "token"), 4u);
    EXPECT_EQ(rec.slot.contextString, nullptr);
}

TEST_F(MemoryTest, FormatIsRenderedWholeOrGivesNull) {
    EXPECT_GT(sweepAllocations([] {
                  char *out = nullptr;
                  EXPECT_EQ(renderFormat(&out, "%s-%ls", "a", WideText(1000, L'w').c_str()), 0u);
                  if (out != nullptr && !allocationHasFailed()) {
                      EXPECT_EQ(out, "a-" + std::string(1000, 'w'));
                  }
                  zantLogFree(out);
              }),
              0);
}

TEST_F(MemoryTest, BufferIsUnchangedWithoutATemporary) {
    char buffer[16] = "ab";
    failAllocation(1);
    fstrncat(buffer, sizeof buffer, "%d", 1);
    EXPECT_STREQ(buffer, "ab");
}

TEST_F(MemoryTest, WideFormsAre4WithoutMemory) {
    CatalogObject object;
    object.wideCharacter('x').signedNumber(1).unsignedNumber(1).real(1).pointer(1).wideString(L"w").error(1);
    object.dateTime(1).utf8("u").native("n");
    zantLisArgIter iter = {};
    ASSERT_EQ(zantLisGetArgsBegin(object.lis(), &iter), 0);
    int arguments = 0;
    do {
        EXPECT_GT(sweepAllocations([&iter] {
                      wchar_t *out = nullptr;
                      const uint32_t result = zantLogGetArg_asStringW(&iter, &out);
                      EXPECT_EQ(result, allocationHasFailed() ? 4u : 0u);
                      EXPECT_EQ(out == nullptr, allocationHasFailed());
                      zantLogFree(out);
                  }),
                  0);
        ++arguments;
    } while (zantLisGetNextArg(&iter) == 0);
    EXPECT_EQ(arguments, 10);
}

TEST_F(MemoryTest, LibraryNameThatCannotBeBuiltIsRefused) {
    void *module = nullptr;
    char *name = nullptr;
    failAllocation(1);
    EXPECT_EQ(SharedLibLoad(&module, "qzlis", &name), -2);
    EXPECT_EQ(module, nullptr);
    EXPECT_EQ(name, nullptr);
    EXPECT_TRUE(recording.loads.empty());
}

TEST_F(MemoryTest, OpeningWritingAndClosingLeakNothing) {
    setting("3", "LogToOslog", "true");
    setting("3", "LogFileSDDL", "D:(A;;GA;;;WD)");
    EXPECT_GT(sweepAllocations([] {
                  zantLogHandle handle = {};
                  const uint32_t opened = zantLogOpen2(12, 3, 4, &handle);
                  const bool refused = opened != 0;
                  if (refused) {
                      EXPECT_TRUE(allocationHasFailed());
                  }
                  EXPECT_EQ(handle.secureConfig, nullptr);
                  if (handle.file != nullptr) {
                      logText(&handle, "text");
                  }
                  const bool attached = handle.file != nullptr;
                  EXPECT_EQ(zantLogClose(&handle), attached ? 0u : 3u);
              }),
              5);
}

TEST_F(MemoryTest, OpeningALogSetLeaksNothing) {
    setting("LOGSET.nightly", "LogDirectory", logFolder());
    EXPECT_GT(sweepAllocations([] {
                  zantLogHandle handle = {};
                  if (zantLogOpenLogSet(12, 3, "nightly", &handle) != 0) {
                      EXPECT_TRUE(allocationHasFailed());
                  }
                  zantLogClose(&handle);
              }),
              5);
}

TEST_F(MemoryTest, SecureOpenWithoutACopyOfItsConfigurationIsOpen) {
    Configuration cfg;
    ASSERT_EQ(zantLogReadCfg(12, 3, &cfg), 0u);
    ASSERT_EQ(zantLogCfgSetL10nResource(&cfg, "resource"), 0u);
    EXPECT_EQ(sweepAllocations([&cfg] {
                  zantLogHandle handle = {};
                  EXPECT_EQ(zantLogSecureOpen(12, 3, 0, &cfg, &handle), 0u);
                  EXPECT_EQ(handle.secureConfig == nullptr, allocationHasFailed());
                  EXPECT_EQ(zantLogClose(&handle), 3u);
              }),
              2);
}

TEST_F(MemoryTest, ContextsLeakNothing) {
    OpenLog log;
    ASSERT_EQ(log.result, 0u);
    EXPECT_GT(sweepAllocations([&log] {
                  zantLogHandle context = {};
                  const uint32_t result = zantLogCreateContext(&log, &context, "token", 0, "title %d", 1);
                  EXPECT_TRUE(result == 0 || (result == 4 && allocationHasFailed())) << result;
                  if (result == 0) {
                      logText(&context, "text");
                      EXPECT_EQ(zantLogDestroyContext(&context), 0u);
                  }
              }),
              2);
}

TEST_F(MemoryTest, EventsAreReportedOrRefusedWithoutLeak) {
    zantLogHandle handle = {};
    handle.noContext = 1;
    handle.outputFlags = 68;
    for (const uint32_t msgid : {0u, 4711u}) {
        EXPECT_GT(sweepAllocations([&handle, msgid] {
                      recording.events.clear();
                      Message message(&handle, 5, nullptr);
                      message.object(msgid, "%d %s", 5, "disk0");
                      const uint32_t result = zantLogMsg(&handle, 0, &message);
                      if (result != 0) {
                          EXPECT_TRUE(allocationHasFailed());
                      }
                      if (recording.events.empty()) {
                          EXPECT_EQ(result, 0xFFFFFFFFu);
                      }
                  }),
                  2);
    }
}

TEST_F(MemoryTest, ReloadsLeakNothing) {
    setting("3", "DynaReloadInSec", "60");
    OpenLog log;
    EXPECT_GT(sweepAllocations([&log] {
                  log.reloadInterval = 60;
                  log.lastReloadTime = 0;
                  EXPECT_EQ(zantDynaLoadConfig(&log), 0u);
              }),
              2);
}
