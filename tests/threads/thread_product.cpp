#include "tests/threads/thread_product.h"

#include <atomic>
#include <sstream>
#include <thread>

#include "tests/support/log_folder.h"

namespace zantlog::test {

namespace {

constexpr uint32_t kOfOneThread = 1000000;

// The Nth field of a product file's record, from 1.
std::string fieldOf(const std::string &line, int number) {
    std::istringstream fields(line);
    std::string field;
    for (int i = 0; i < number; ++i) {
        std::getline(fields, field, ',');
    }
    return field;
}

uint32_t sequenceOf(const std::string &line) {
    return static_cast<uint32_t>(std::stoul(fieldOf(line, 5)));
}

} // namespace

ThreadProduct::ThreadProduct() {
    configure({"Default.LogDirectory=" + logs_.path()});
}

ThreadProduct::~ThreadProduct() {
    writeFileBytes(GetZantLogCfgLoc(), "");
}

void ThreadProduct::configure(const std::vector<std::string> &lines) const {
    std::string product;
    for (const std::string &line : lines) {
        product += line + "\r\n";
    }
    writeFileBytes(store_.file("product.conf"), product);
    writeFileBytes(GetZantLogCfgLoc(),
                   "12.Configuration=" + store_.file("product.conf") + "\r\n12.Names=threads\r\n");
}

void ThreadProduct::inThreads(const std::function<void(uint32_t thread)> &job) {
    std::atomic<uint32_t> ready{0};
    std::vector<std::thread> threads;
    for (uint32_t thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            ++ready;
            while (ready != kThreads) {
                std::this_thread::yield();
            }
            job(thread);
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
}

void ThreadProduct::log(zantLogHandle *handle, uint32_t thread, uint32_t index) {
    EXPECT_EQ(zantLogAppMsg2(handle, thread * kOfOneThread + index, 0, 1, 0, "%s %d", "thread", 7), 0u);
}

void ThreadProduct::expectEach(uint32_t messagesOfEachThread) const {
    std::map<uint32_t, uint32_t> next;
    for (const std::string &name : fileNames(logs_.path())) {
        const std::string bytes = fileBytes(logs_.file(name));
        ASSERT_FALSE(bytes.empty()) << name;
        EXPECT_EQ(bytes.back(), '\n') << name;
        const std::vector<std::string> lines = linesOf(bytes);
        EXPECT_EQ(lines.front().substr(0, 14), "$Header 65543,") << name;
        for (size_t i = 1; i < lines.size(); ++i) {
            if (lines[i][0] != '2') {
                continue; // of a context
            }
            const uint32_t sequence = sequenceOf(lines[i]);
            EXPECT_EQ(sequence % kOfOneThread, next[sequence / kOfOneThread]++) << name << ": " << lines[i];
            EXPECT_NE(lines[i].find(",8:thread 7,0:,1,(0|)"), std::string::npos) << lines[i];
        }
    }
    for (uint32_t thread = 0; thread < kThreads; ++thread) {
        EXPECT_EQ(next[thread], messagesOfEachThread) << "of thread " << thread;
    }
}

void ThreadProduct::expectToken(const std::string &field) const {
    for (const std::string &name : fileNames(logs_.path())) {
        for (const std::string &line : linesOf(fileBytes(logs_.file(name)))) {
            EXPECT_TRUE(line[0] != '2' || fieldOf(line, 9) == field) << name << ": " << line;
        }
    }
}

} // namespace zantlog::test
