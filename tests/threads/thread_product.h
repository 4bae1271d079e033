// A product that several threads log for, and what is in its files in the end.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/test_folder.h"
#include "zantlog/zantlog.h"

namespace zantlog::test {

constexpr uint32_t kThreads = 4;

class ThreadProduct : public testing::Test {
protected:
    ThreadProduct();
    ~ThreadProduct() override;

    // Lines of the configuration of product 12, "section.key=value".
    void configure(const std::vector<std::string> &lines) const;

    // Runs the job in each of the threads, which begin together; the argument is the thread's number from 0.
    static void inThreads(const std::function<void(uint32_t thread)> &job);

    // Logs an application message; its sequence number says which thread's it is, and the how manieth.
    static void log(zantLogHandle *handle, uint32_t thread, uint32_t index);

    // Every file is one header and whole records; each thread's messages are there once, and in order.
    void expectEach(uint32_t messagesOfEachThread) const;

    // Each message carries this context token, "5:token".
    void expectToken(const std::string &field) const;

    [[nodiscard]] const std::string &logFolder() const { return logs_.path(); }

private:
    ScopedFolder store_;
    ScopedFolder logs_;
};

} // namespace zantlog::test
