#include "tests/config/test_stores.h"

#include "tests/support/files.h"
#include "tests/support/test_folder.h"
#include "zantlog/os_layer.h"
#include "zantlog/property_store.h"

#include <atomic>
#include <gtest/gtest.h>

namespace zantlog::test {

namespace {

// As the tests write it; the product's own writing is not what these tests are about.
class ConfStore : public TestStore {
public:
    explicit ConfStore(const std::string &path) : TestStore(path) { writeConf(path_, {}); }
    ~ConfStore() override { removeFile(path_); }

    void text(const std::string &section, const std::string &name, const std::string &value) override {
        appendFileBytes(path_, section + '.' + name + '=' + value + "\r\n");
    }
    void number(const std::string &section, const std::string &name, uint32_t value) override {
        text(section, name, std::to_string(value));
    }
    void boolean(const std::string &section, const std::string &name, bool value) override {
        text(section, name, value ? "true" : "false");
    }
    void section(const std::string &) override {}
};

class RegistryStore : public TestStore {
public:
    explicit RegistryStore(const std::string &path) : TestStore(path) {
        remove();
        section("");
    }
    ~RegistryStore() override { remove(); }

    void text(const std::string &section, const std::string &name, const std::string &value) override {
        PropertyStore store = open(section);
        EXPECT_EQ(utiSetPropertyAsStr(&store, name.c_str(), value.c_str()), 0U);
        EXPECT_EQ(utiClosePropertyStore(&store), 0U);
    }
    void number(const std::string &section, const std::string &name, uint32_t value) override {
        PropertyStore store = open(section);
        EXPECT_EQ(utiSetPropertyAsULong(&store, name.c_str(), &value), 0U);
        EXPECT_EQ(utiClosePropertyStore(&store), 0U);
    }
    void boolean(const std::string &section, const std::string &name, bool value) override {
        const uint32_t flag = value ? 1 : 0;
        PropertyStore store = open(section);
        EXPECT_EQ(utiSetPropertyAsBool(&store, name.c_str(), &flag), 0U);
        EXPECT_EQ(utiClosePropertyStore(&store), 0U);
    }
    void section(const std::string &section) override {
        PropertyStore store = open(section);
        EXPECT_EQ(utiClosePropertyStore(&store), 0U);
    }

private:
    [[nodiscard]] PropertyStore open(const std::string &section) const {
        PropertyStore store{};
        EXPECT_EQ(CreatePropertyString(path_.c_str(), section.c_str(), &store), 0U)
            << path_ << '\\' << section;
        return store;
    }
    void remove() const {
        const size_t split = path_.rfind('\\');
        PropertyStore parent{};
        if (utiOpenPropertyStore(path_.substr(0, split).c_str(), "", &parent, ZANTLOG_STORE_WRITE) == 0) {
            utiRemovePropertyRoot(&parent, path_.substr(split + 1).c_str());
            utiClosePropertyStore(&parent);
        }
    }
};

std::string uniqueName() {
    static std::atomic<int> count{0};
    return std::to_string(getPID()) + "-" + std::to_string(++count);
}

} // namespace

std::unique_ptr<TestStore> makeStore(BackEnd backEnd) {
    if (backEnd == BackEnd::Conf) {
        return std::make_unique<ConfStore>(inProcessFolder("store-" + uniqueName() + ".conf"));
    }
    return std::make_unique<RegistryStore>("SOFTWARE\\zantlog-test-" + uniqueName());
}

std::unique_ptr<TestStore> makeLocation() {
    const std::string location = GetZantLogCfgLoc();
    if (location.find(".conf") != std::string::npos) {
        return std::make_unique<ConfStore>(location);
    }
    return std::make_unique<RegistryStore>(location);
}

void registerProduct(TestStore &location, uint32_t productId, const std::string &path,
                     const std::string &names) {
    location.text(std::to_string(productId), "Configuration", path);
    location.text(std::to_string(productId), "Names", names);
}

void writeConf(const std::string &path, const std::vector<std::string> &lines) {
    std::string bytes;
    for (const std::string &line : lines) {
        bytes += line + "\r\n";
    }
    writeFileBytes(path, bytes);
}

} // namespace zantlog::test
