// Scenarios around a registered product, whose log files are looked through in the end.
#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <vector>

#include "tests/sweeps/sweep.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

// The answer is one of these, and comes back as it is.
uint32_t oneOf(uint32_t result, std::initializer_list<uint32_t> documented, const char *what);

// Product 12 with a store of its own below C:\sweep. Each message has a sequence number of its own, from 1
// on, and the text "message N".
class ProductScenario : public Scenario {
public:
    void prepare() override;

    // The product logs as if nothing had been, and every message that was answered with 0 is in the files,
    // once, in order, and no other.
    void check() override;

protected:
    // Lines of the product's configuration, to be set before prepare().
    void setting(const std::string &key, const std::string &value) { settings_[key] = value; }

    void open();
    void close();
    [[nodiscard]] bool isOpen() const { return open_; }

    // The number of the next message, which is under way then.
    uint32_t begin() { return underWay_ = ++lastSequence_; }
    // "message N", padded to a length.
    static std::string text(uint32_t sequence, size_t length = 0);
    // What became of it.
    void end(uint32_t result);
    // The same, of one that has gone to the console too: what that answers may hide that it is in the file.
    void endOfPrinted(uint32_t result);
    // An application message, whole.
    void log(size_t length = 0);

    static std::string folder() { return "C:\\sweep"; }
    static std::string logFolder() { return "C:\\sweep\\logs"; }

    zantLogHandle handle_{};

private:
    [[nodiscard]] bool inDoubt(uint32_t sequence) const;
    void expectWholeFile(const std::string &name, const std::string &bytes) const;
    void expectAcknowledged() const;

    std::map<std::string, std::string> settings_;
    std::vector<uint32_t> acknowledged_;
    uint32_t lastSequence_ = 0;
    uint32_t underWay_ = 0;          // 0: none
    std::vector<uint32_t> doubtful_; // whether they are in the files, only the disk knows
    bool open_ = false;
};

} // namespace zantlog::test
