// Localised text on the console and events, with one call after the other failing. A process looks for the
// localisation library once and remembers what it read, so each run logs in a process of its own.
#include <cstring>
#include <gtest/gtest.h>
#include <optional>

#include "tests/sim/sim.h"
#include "tests/support/log_folder.h"
#include "tests/sweeps/product_scenario.h"
#include "zantlog/localizer.h"

namespace zantlog::test {

namespace {

constexpr uint32_t kMinusOne = 0xFFFFFFFF;

// What is printed goes through the test's own standard output too: it is shown only when something failed.
class QuietOutput {
public:
    QuietOutput() { testing::internal::CaptureStdout(); }
    ~QuietOutput() {
        const std::string output = testing::internal::GetCapturedStdout();
        if (testing::Test::HasFailure()) {
            std::fwrite(output.data(), 1, output.size(), stdout);
        }
    }
    QuietOutput(const QuietOutput &) = delete;
    QuietOutput &operator=(const QuietOutput &) = delete;
};

void offerLibrary() {
    sim::addModule("zantLogFormatMsg_3.dll", {{"LogFormatMessage", sim::asFunction(LogFormatMessage)}});
}

void putCatalog(const std::string &folder) {
    sim::makeFolders(folder + "\\default");
    sim::putFile(folder + "\\default\\disk.msg", "4711 = disk {1} is full\n");
}

bool endsWith(const std::string &text, const std::string &end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

class LocalisedConsole : public ProductScenario {
public:
    LocalisedConsole() {
        setting("L10nResourceDir", folder() + "\\texts");
        setting("L10nResource", "disk");
    }

private:
    void prepare() override {
        ProductScenario::prepare();
        putCatalog(folder() + "\\texts");
        offerLibrary();
        sim::clearConsole();
    }

    void act() override {
        process_.emplace();
        process_->run([this] {
            open();
            for (int i = 0; isOpen() && i < 2; ++i) {
                ++sent_;
                acknowledged_ += print() == 0 ? 1 : 0;
            }
            close();
        });
    }

    uint32_t print() {
        const uint32_t number = begin();
        const uint32_t result = zantLogAppMsg2Ex(&handle_, number, ZANTLOG_TO_STDOUT, 2, "backup", 4711, "%s",
                                                 text(number).c_str());
        endOfPrinted(result);
        return result;
    }

    void check() override {
        const std::vector<std::string> lines = linesOf(sim::printedToStdout());
        // What the console does not show is no failure while the library is missing.
        EXPECT_GE(lines.size(), disturbed ? 0 : acknowledged_);
        EXPECT_LE(lines.size(), sent_);
        for (const std::string &line : lines) {
            expectWhole(line);
        }
        ProductScenario::check();
        expectNextIsLocalised();
        process_.reset();
    }

    // The process that missed something finds it when it looks again.
    void expectNextIsLocalised() {
        sim::clearConsole();
        sim::clock().advanceSeconds(11);
        if (process_->state() == sim::ProcessState::Ended) {
            process_.emplace();
        }
        process_->run([this] {
            open();
            EXPECT_EQ(print(), 0u);
            close();
        });
        const std::vector<std::string> lines = linesOf(sim::printedToStdout());
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_TRUE(isLocalised(lines[0])) << lines[0];
    }

    static bool isLocalised(const std::string &line) {
        return line.find("[application, error 2] originator 3, backup: disk message ") != std::string::npos &&
               endsWith(line, " is full");
    }

    // The text of the catalog, or of the library when the catalog could not be read.
    void expectWhole(const std::string &line) const {
        const bool own =
            line.find("backup: [Cannot find catalog for message id=4711] message ") != std::string::npos;
        EXPECT_TRUE(isLocalised(line) || (disturbed && own)) << line;
    }

    std::optional<sim::Process> process_;
    size_t sent_ = 0;
    size_t acknowledged_ = 0;
};

// Secure-audit messages of both kinds, with the prefix: what is answered with 0 is in the event log, whole.
class SecureEvents : public Scenario {
    void prepare() override {
        sim::removeAll("C:\\sweep");
        putCatalog("C:\\sweep");
        offerLibrary();
        sim::clearEvents();
        sim::clearConsole();
    }

    void act() override { report(); }

    void report() {
        sim::Process process;
        process.run([this] {
            zantLogCfg cfg{};
            std::strcpy(cfg.eventSource.name, "Scanner");
            cfg.outputFlags = ZANTLOG_SECURE_EVENT;
            cfg.secureAuditLevel = 1;
            zantLogHandle handle{};
            oneOf(zantLogSecureOpen(12, 3, 0, &cfg, &handle), {0, 22}, "open");
            catalogResult_ =
                zantLogSecureAuditMsg(&handle, 1, "mary", 5, 4711, "%d%ls%s", 5, u"w\u4F60", "n");
            textResult_ = reportText(&handle);
            oneOf(zantLogClose(&handle), {3}, "close");
            zantLogFreeCfg(&cfg);
        });
    }

    uint32_t reportText(zantLogHandle *handle) {
        zantLogMsgRec rec{};
        uint32_t result = zantLogInitMsg(&rec, handle, ZANTLOG_MSG_SECURE_AUDIT, "disk C: is full");
        isTextSent_ = result == 0;
        if (isTextSent_) {
            result = zantLogMsg(handle, 0, &rec);
        }
        zantLogFreeMsg(&rec);
        return result;
    }

    void check() override {
        mayBeIncomplete_ = disturbed;
        expectEvents();
        if (!died) {
            expectResults();
        }
        EXPECT_EQ(sim::printedToStdout() + sim::printedToStderr(), "");
        EXPECT_TRUE(sim::namesIn("C:\\sweep\\logs").empty());

        sim::clearEvents();
        report();
        mayBeIncomplete_ = false;
        EXPECT_EQ(catalogResult_, 0u);
        EXPECT_EQ(textResult_, 0u);
        expectEvents();
        expectResults();
    }

    void expectEvents() const {
        for (const sim::ReportedEvent &event : sim::reportedEvents()) {
            EXPECT_EQ(event.source, "Scanner");
            if (event.id == 4711) {
                expectCatalogEvent(event);
            } else {
                expectTextEvent(event);
            }
        }
    }

    void expectResults() const {
        size_t ofCatalog = 0;
        for (const sim::ReportedEvent &event : sim::reportedEvents()) {
            ofCatalog += event.id == 4711 ? 1 : 0;
        }
        const size_t ofText = sim::reportedEvents().size() - ofCatalog;
        oneOf(catalogResult_, {0, 2, 4, 10, kMinusOne}, "a catalog message");
        oneOf(textResult_, {0, 1, 4, kMinusOne}, "a text message");
        EXPECT_EQ(ofCatalog, catalogResult_ == 0 ? 1u : 0u);
        // A text that could not be formatted or widened is said by the result; its event is there all the
        // same.
        EXPECT_EQ(ofText, isTextSent_ && textResult_ != kMinusOne ? 1u : 0u);
    }

    void expectCatalogEvent(const sim::ReportedEvent &event) const {
        EXPECT_EQ(event.type, 16u);
        ASSERT_EQ(event.strings.size(), 4u);
        const std::u16string expected[] = {u"5", u"w\u4F60", u"n"};
        for (size_t i = 0; i < 3; ++i) {
            EXPECT_TRUE(event.strings[i] == expected[i] || isLost(event.strings[i])) << "string " << i;
        }
        EXPECT_TRUE(isPrefix(event.strings[3], u",(null),mary,5 ") || isLost(event.strings[3]));
    }

    void expectTextEvent(const sim::ReportedEvent &event) const {
        EXPECT_EQ(event.id, 0u);
        EXPECT_EQ(event.type, 8u);
        ASSERT_EQ(event.strings.size(), 1u);
        const std::u16string &string = event.strings[0];
        EXPECT_TRUE(isPrefix(string, u",(null),(null),0 disk C: is full") ||
                    (mayBeIncomplete_ && (string.empty() || isPrefix(string, u",(null),(null),0 "))));
    }

    [[nodiscard]] bool isLost(const std::u16string &string) const {
        return mayBeIncomplete_ && string == u"(null)";
    }

    // Without a copy of the configuration the ids are 0.
    [[nodiscard]] bool isPrefix(const std::u16string &string, const std::u16string &end) const {
        return (string.rfind(u"12,3,", 0) == 0 || (mayBeIncomplete_ && string.rfind(u"0,0,", 0) == 0)) &&
               string.size() > end.size() && string.compare(string.size() - end.size(), end.size(), end) == 0;
    }

    uint32_t catalogResult_ = 0;
    uint32_t textResult_ = 0;
    bool isTextSent_ = false;
    bool mayBeIncomplete_ = false;
};

TEST(SinkSweep, LocalisedConsole) {
    const QuietOutput quiet;
    sweep<LocalisedConsole>();
}

TEST(SinkSweep, SecureEvents) {
    sweep<SecureEvents>();
}

} // namespace

} // namespace zantlog::test
