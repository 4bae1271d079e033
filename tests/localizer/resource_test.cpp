#include <string>

#include <gtest/gtest.h>

#include "tests/localizer/localizer_fixture.h"

using namespace zantlog::test;

namespace {

class ResourceTest : public LocalizerTest {
protected:
    ResourceTest() {
        catalog("default", "1 = default\n");
        object_.lis()->textId = 1;
        rec_.lis = *object_.lis();
    }

    CatalogObject object_;
    const std::string none_ = "[Cannot find catalog for message id=1] ";
};

} // namespace

TEST_F(ResourceTest, ConfigurationOfTheOriginatorNamesTheFiles) {
    catalog("default", "1 = own\n", "own");
    setting("4", "L10nResource", "own");
    EXPECT_EQ(format(), "default");
    rec_.originatorId = 4;
    EXPECT_EQ(format(), "own");
}

TEST_F(ResourceTest, FolderMayEndWithASeparator) {
    setting("Default", "L10nResourceDir", folder_.path() + "\\");
    EXPECT_EQ(format(), "default");
}

TEST_F(ResourceTest, WithoutConfigurationThereAreNoFiles) {
    rec_.productId = 77;
    EXPECT_EQ(format(), none_);
    rec_.productId = 0;
    EXPECT_EQ(format(), none_);
}

TEST_F(ResourceTest, BothSettingsAreNeeded) {
    removeSetting("Default", "L10nResource");
    EXPECT_EQ(format(), none_);
    forget();
    setting("Default", "L10nResource", "disk");
    removeSetting("Default", "L10nResourceDir");
    EXPECT_EQ(format(), none_);
}

TEST_F(ResourceTest, ResourceIsANameAndNoPath) {
    catalog("other", "1 = elsewhere\n");
    for (const char *name : {"..\\other\\disk", "../other/disk", "x:disk"}) {
        forget();
        setting("Default", "L10nResource", name);
        EXPECT_EQ(format(), none_) << name;
    }
}

TEST_F(ResourceTest, PathsThatAreTooLongAreNoFiles) {
    setting("Default", "L10nResource", std::string(300, 'x'));
    EXPECT_EQ(format(), none_);
    const std::string longFolder = "C:\\" + std::string(2000, 'x');
    list_.words[0] = const_cast<char *>(longFolder.c_str());
    EXPECT_EQ(format(), none_);
}

TEST_F(ResourceTest, ProgramsMayPointTheListElsewhere) {
    catalog("default", "1 = of the program\n", "program");
    list_.words[1] = const_cast<char *>("program");
    EXPECT_EQ(format(), "of the program");
    rec_.productId = 0;
    EXPECT_EQ(format(), none_);
    list_.words[0] = const_cast<char *>(folder_.path().c_str());
    EXPECT_EQ(format(), "of the program");
    list_.words[1] = nullptr;
    EXPECT_EQ(format(), none_);
}

TEST_F(ResourceTest, SecureHandleHasItsOwnConfiguration) {
    Configuration cfg;
    zantLogCfgSetL10nResourceDir(&cfg, folder_.path().c_str());
    zantLogCfgSetL10nResource(&cfg, "disk");
    zantLogHandle handle = {};
    handle.secureConfig = &cfg;
    rec_.productId = 0;
    rec_.originatorId = 0;
    EXPECT_EQ(format("C", kShort, &handle), "default");
    EXPECT_EQ(format("C", kShort, nullptr), none_);
}

TEST_F(ResourceTest, ManyProductsAndFilesPushEachOtherOut) {
    for (int i = 0; i < 100; ++i) {
        catalog("default", "1 = text " + std::to_string(i) + "\n", "r" + std::to_string(i));
        setting(std::to_string(i + 1), "L10nResource", "r" + std::to_string(i));
    }
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 100; ++i) {
            rec_.originatorId = static_cast<uint32_t>(i + 1);
            EXPECT_EQ(format("de_DE"), "text " + std::to_string(i));
        }
    }
}
