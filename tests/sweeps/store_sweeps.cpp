// Changing a store while one call after the other fails: it is the old one or the new one.
#include <gtest/gtest.h>

#include "tests/sim/sim.h"
#include "tests/sweeps/product_scenario.h"

namespace zantlog::test {

namespace {

constexpr const char *kPath = "C:\\sweep\\store.conf";
constexpr const char *kKey = "SOFTWARE\\sweep";
const std::string kOld = "# kept\r\n1.A=one\r\n2.A=two\r\n1.B=three\r\n";

// One change of a ".conf" file.
class FileChange : public Scenario {
public:
    void prepare() override {
        sim::removeAll("C:\\sweep");
        sim::makeFolders("C:\\sweep");
        sim::putFile(kPath, kOld);
    }
    void act() override {
        PropertyStore store;
        const uint32_t opened = oneOf(utiOpenPropertyStore(kPath, "1", &store, ZANTLOG_STORE_WRITE),
                                      {ZANTLOG_STORE_OK, ZANTLOG_STORE_CANNOT_OPEN}, "open");
        if (opened == ZANTLOG_STORE_OK) {
            result_ = oneOf(change(&store),
                            {ZANTLOG_STORE_OK, ZANTLOG_STORE_CANNOT_OPEN, ZANTLOG_STORE_NOT_FOUND,
                             ZANTLOG_STORE_CANNOT_CREATE, ZANTLOG_STORE_FAILED, ZANTLOG_STORE_DENIED},
                            "the change");
            utiClosePropertyStore(&store);
        }
    }
    void check() override {
        const std::string found = sim::bytesOf(kPath);
        EXPECT_TRUE(found == kOld || found == changed()) << found;
        if (result_ == ZANTLOG_STORE_OK) {
            EXPECT_EQ(found, changed());
        }
        result_ = ZANTLOG_STORE_CANNOT_OPEN;
        act();
        EXPECT_EQ(result_, ZANTLOG_STORE_OK) << "the next change is made";
        EXPECT_EQ(sim::bytesOf(kPath), changed());
    }

protected:
    virtual uint32_t change(PropertyStore *store) = 0;
    [[nodiscard]] virtual std::string changed() const = 0;

private:
    uint32_t result_ = ZANTLOG_STORE_CANNOT_OPEN;
};

class SetInFile : public FileChange {
    uint32_t change(PropertyStore *store) override { return utiSetPropertyAsStr(store, "C", "new"); }
    [[nodiscard]] std::string changed() const override {
        return "# kept\r\n1.A=one\r\n1.C=new\r\n2.A=two\r\n1.B=three\r\n";
    }
};

class RemoveFromFile : public FileChange {
    uint32_t change(PropertyStore *store) override { return utiRemoveProperty(store, "A"); }
    [[nodiscard]] std::string changed() const override { return "# kept\r\n2.A=two\r\n1.B=three\r\n"; }
};

class RemoveRootFromFile : public FileChange {
    uint32_t change(PropertyStore *store) override {
        const uint32_t result = utiRemovePropertyRoot(store, "1");
        return result == ZANTLOG_STORE_NO_ROOT ? 0 : result; // it is gone already
    }
    [[nodiscard]] std::string changed() const override { return "# kept\r\n2.A=two\r\n"; }
};

// A registry key with two values, one of which is changed and one removed.
class RegistryChange : public Scenario {
    static uint32_t open(PropertyStore *store) {
        return oneOf(CreatePropertyString("SOFTWARE", "sweep", store), {0, 6}, "create");
    }
    void prepare() override {
        PropertyStore store;
        EXPECT_EQ(open(&store), 0u);
        EXPECT_EQ(utiSetPropertyAsStr(&store, "A", "old"), ZANTLOG_STORE_OK);
        EXPECT_EQ(utiSetPropertyAsStr(&store, "B", "old"), ZANTLOG_STORE_OK);
        utiClosePropertyStore(&store);
    }
    void act() override {
        PropertyStore store;
        if (open(&store) == 0) {
            set_ = oneOf(utiSetPropertyAsStr(&store, "A", "new"), {ZANTLOG_STORE_OK, ZANTLOG_STORE_NOT_FOUND},
                         "set");
            removed_ =
                oneOf(utiRemoveProperty(&store, "B"), {ZANTLOG_STORE_OK, ZANTLOG_STORE_FAILED}, "remove");
            utiClosePropertyStore(&store);
        }
    }
    void check() override {
        bool hasB = false;
        for (const sim::RegistryValue &value : sim::valuesOf(kKey)) {
            hasB = hasB || value.name == "B";
            const std::string text = value.bytes.c_str();
            EXPECT_TRUE(text == "old" || (value.name == "A" && text == "new")) << value.name << text;
            EXPECT_FALSE(value.name == "A" && set_ == ZANTLOG_STORE_OK && text == "old");
        }
        EXPECT_FALSE(hasB && removed_ == ZANTLOG_STORE_OK);
        prepare();
        PropertyStore store;
        EXPECT_EQ(open(&store), 0u);
        oneOf(utiRemovePropertyRoot(&store, "\\SOFTWARE\\sweep"), {0, 8}, "remove the root");
        utiClosePropertyStore(&store);
    }

    uint32_t set_ = ZANTLOG_STORE_FAILED;
    uint32_t removed_ = ZANTLOG_STORE_FAILED;
};

TEST(StoreSweep, SetInAFile) {
    sweep<SetInFile>();
}

TEST(StoreSweep, RemoveFromAFile) {
    sweep<RemoveFromFile>();
}

TEST(StoreSweep, RemoveARootFromAFile) {
    sweep<RemoveRootFromFile>();
}

TEST(StoreSweep, ChangeARegistryKey) {
    sweep<RegistryChange>();
}

} // namespace

} // namespace zantlog::test
