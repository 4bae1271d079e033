#include "tests/sweeps/product_scenario.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

#include "tests/sim/files.h"
#include "tests/support/log_folder.h"
#include "tests/support/machine.h"

namespace zantlog::test {

uint32_t oneOf(uint32_t result, std::initializer_list<uint32_t> documented, const char *what) {
    EXPECT_NE(std::find(documented.begin(), documented.end(), result), documented.end())
        << what << " answered " << result;
    return result;
}

void ProductScenario::prepare() {
    sim::removeAll(folder());
    sim::makeFolders(folder());
    std::string product = "Default.LogDirectory=" + logFolder() + "\r\n";
    for (const auto &[key, value] : settings_) {
        product += "Default." + key + "=" + value + "\r\n";
    }
    sim::putFile(folder() + "\\product.conf", product);
    sim::putFile(GetZantLogCfgLoc(), "12.Configuration=" + folder() + "\\product.conf\r\n12.Names=sweep\r\n");
}

void ProductScenario::open() {
    handle_ = {};
    const uint32_t result = oneOf(zantLogOpen(12, 3, &handle_), {0, 1, 4, 6, 22, 32, 51, 53}, "open");
    // After these the handle is attached to its file state.
    open_ = result == 0 || result == 1 || result == 22 || result == 32 || result == 51;
}

void ProductScenario::close() {
    if (open_) {
        oneOf(zantLogClose(&handle_), {0, 1}, "close");
        open_ = false;
    }
}

std::string ProductScenario::text(uint32_t sequence, size_t length) {
    const std::string words = "message " + std::to_string(sequence);
    return words + std::string(std::max(length, words.size()) - words.size(), '.');
}

void ProductScenario::end(uint32_t result) {
    if (oneOf(result, {0, 1, 2, 4, 5, 10, 54}, "a message") == 0) {
        acknowledged_.push_back(underWay_);
    }
    underWay_ = 0;
}

void ProductScenario::endOfPrinted(uint32_t result) {
    if (result != 0) {
        doubtful_.push_back(underWay_);
    }
    end(result);
}

void ProductScenario::log(size_t length) {
    const uint32_t sequence = begin();
    end(zantLogAppMsg2(&handle_, sequence, 0, 2, 0, "%s", text(sequence, length).c_str()));
}

void ProductScenario::check() {
    if (died) {
        doubtful_.push_back(underWay_);
        open_ = false; // the handle went with its process
    }
    close();
    open();
    EXPECT_TRUE(open_);
    if (open_) {
        const size_t before = acknowledged_.size();
        log();
        EXPECT_EQ(acknowledged_.size(), before + 1) << "the next message is logged";
    }
    close();
    for (const std::string &name : sim::namesIn(logFolder())) {
        expectWholeFile(name, sim::bytesOf(logFolder() + "\\" + name));
    }
    expectAcknowledged();
}

// One header and whole records. A file whose header could not be written is empty.
void ProductScenario::expectWholeFile(const std::string &name, const std::string &bytes) const {
    if (bytes.empty()) {
        EXPECT_TRUE(disturbed) << name << " is empty";
        return;
    }
    const std::vector<std::string> lines = linesOf(bytes);
    EXPECT_EQ(bytes.back(), '\n') << name;
    EXPECT_EQ(bytes.substr(0, 14), "$Header 65543,") << name;
    for (size_t i = 1; i < lines.size(); ++i) {
        EXPECT_TRUE(lines[i].size() > 2 && lines[i][0] >= '0' && lines[i][0] <= '5' && lines[i][1] == ',')
            << name << ": " << lines[i];
    }
}

bool ProductScenario::inDoubt(uint32_t sequence) const {
    return std::find(doubtful_.begin(), doubtful_.end(), sequence) != doubtful_.end();
}

// The fifth field of a record is its sequence number.
void ProductScenario::expectAcknowledged() const {
    std::vector<uint32_t> found;
    for (const std::string &name : sim::namesIn(logFolder())) {
        for (const std::string &line : linesOf(sim::bytesOf(logFolder() + "\\" + name))) {
            std::istringstream fields(line);
            std::string field;
            for (int i = 0; i < 5; ++i) {
                std::getline(fields, field, ',');
            }
            if (line[0] != '$' && line[0] != '3') {
                found.push_back(static_cast<uint32_t>(std::stoul(field)));
                // For want of memory a record is written with a text that says so, or without.
                EXPECT_TRUE(disturbed || line.find(text(found.back())) != std::string::npos) << line;
            }
        }
    }
    std::vector<uint32_t> expected = acknowledged_;
    const auto doubtful = [this](uint32_t sequence) { return inDoubt(sequence); };
    std::erase_if(found, doubtful);
    std::erase_if(expected, doubtful);
    EXPECT_EQ(found, expected);
}

} // namespace zantlog::test
