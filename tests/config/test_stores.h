// Stores that tests fill: .conf files and registry keys behind one face, and records that free themselves.
#pragma once

#include "zantlog/config.h"
#include "zantlog/config_store.h"
#include "zantlog/message.h"

#include <memory>
#include <string>
#include <vector>

namespace zantlog::test {

enum class BackEnd { Conf, Registry };

// A store that is empty at the beginning and goes with the object.
class TestStore {
public:
    virtual ~TestStore() = default;

    [[nodiscard]] const std::string &path() const { return path_; }
    [[nodiscard]] bool isFile() const { return path_.find(".conf") != std::string::npos; }

    virtual void text(const std::string &section, const std::string &name, const std::string &value) = 0;
    virtual void number(const std::string &section, const std::string &name, uint32_t value) = 0;
    virtual void boolean(const std::string &section, const std::string &name, bool value) = 0;

    // Makes the section without a value; in a file there is nothing to make.
    virtual void section(const std::string &section) = 0;

    // Name of the section of a log set.
    [[nodiscard]] std::string logSet(const std::string &name) const {
        return (isFile() ? "LOGSET." : "LOGSET\\") + name;
    }

protected:
    explicit TestStore(std::string path) : path_(std::move(path)) {}
    std::string path_;
};

// A store of its own for a test, at a path that nothing else uses.
std::unique_ptr<TestStore> makeStore(BackEnd backEnd);

// The store at the configuration location of this process, emptied.
std::unique_ptr<TestStore> makeLocation();

// Registers a product at a location.
void registerProduct(TestStore &location, uint32_t productId, const std::string &path,
                     const std::string &names);

// Writes a file with these lines, each ended by CR LF.
void writeConf(const std::string &path, const std::vector<std::string> &lines);

// A record that is freed at the end of the scope.
struct Config : zantLogCfg {
    Config() : zantLogCfg{} {}
    ~Config() { zantLogFreeCfg(this); }
    Config(const Config &) = delete;
    Config &operator=(const Config &) = delete;
};

// A text that the library handed out; null is nullptr, and freed all the same.
class HandedOut {
public:
    ~HandedOut() { zantLogFree(text_); }
    HandedOut() = default;
    HandedOut(const HandedOut &) = delete;
    HandedOut &operator=(const HandedOut &) = delete;
    char **operator&() { return &text_; }
    [[nodiscard]] const char *get() const { return text_; }

private:
    char *text_ = nullptr;
};

} // namespace zantlog::test
