#include <string>

#include <gtest/gtest.h>

#include "zantlog/zantlog.h"

// The reference catalog library stands beside the test program and is named by the same rule: qzlis_3.dll.
TEST(SharedLibrary, LoadsByBaseNameAndResolvesExports) {
    void *module = nullptr;
    char *name = nullptr;
    ASSERT_EQ(SharedLibLoad(&module, "qzlis", &name), 0);
    ASSERT_NE(module, nullptr);
    EXPECT_STREQ(name, "qzlis_3.dll");
    zantLogFree(name);
    void *function = nullptr;
    EXPECT_EQ(SharedLibResolveFunc(module, "zantLisFree", &function), 0);
    EXPECT_NE(function, nullptr);
    EXPECT_EQ(SharedLibUnload(module), 0);
}

TEST(SharedLibrary, SuffixOfTheBaseNameIsReplaced) {
    for (const char *base : {"qzlis_9", "qzlis.dll", "qzlis_9.8.old", "qzlis_"}) {
        void *module = nullptr;
        char *name = nullptr;
        ASSERT_EQ(SharedLibLoad(&module, base, &name), 0) << base;
        EXPECT_STREQ(name, "qzlis_3.dll") << base;
        zantLogFree(name);
        EXPECT_EQ(SharedLibUnload(module), 0);
    }
}

TEST(SharedLibrary, FileNameIsOptional) {
    void *module = nullptr;
    ASSERT_EQ(SharedLibLoad(&module, "qzlis", nullptr), 0);
    EXPECT_EQ(SharedLibUnload(module), 0);
}

TEST(SharedLibrary, MissingLibraryIsRefused) {
    int place = 0;
    void *module = &place;
    char *name = nullptr;
    EXPECT_EQ(SharedLibLoad(&module, "zantlogNoSuchLibrary", &name), -2);
    EXPECT_EQ(module, nullptr);
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(SharedLibLoad(&module, "", nullptr), -2);
    EXPECT_EQ(SharedLibLoad(&module, "C:\\no such folder\\qzlis", nullptr), -2);
}

TEST(SharedLibrary, LoadRefusesNullArguments) {
    void *module = nullptr;
    EXPECT_EQ(SharedLibLoad(nullptr, "qzlis", nullptr), -2);
    EXPECT_EQ(SharedLibLoad(&module, nullptr, nullptr), -2);
}

TEST(SharedLibrary, MissingExportIsNullWithSuccess) {
    void *module = nullptr;
    ASSERT_EQ(SharedLibLoad(&module, "qzlis", nullptr), 0);
    void *function = module;
    EXPECT_EQ(SharedLibResolveFunc(module, "noSuchExport", &function), 0);
    EXPECT_EQ(function, nullptr);
    EXPECT_EQ(SharedLibUnload(module), 0);
}

TEST(SharedLibrary, ResolveRefusesNullAndEmptyArguments) {
    void *module = nullptr;
    ASSERT_EQ(SharedLibLoad(&module, "qzlis", nullptr), 0);
    void *function = module;
    EXPECT_EQ(SharedLibResolveFunc(module, "", &function), -2);
    EXPECT_EQ(SharedLibResolveFunc(module, nullptr, &function), -2);
    EXPECT_EQ(SharedLibResolveFunc(nullptr, "zantLisFree", &function), -2);
    EXPECT_EQ(SharedLibResolveFunc(module, "zantLisFree", nullptr), -2);
    EXPECT_EQ(function, module);
    EXPECT_EQ(SharedLibUnload(module), 0);
}

TEST(SharedLibrary, UnloadRefusesNull) {
    EXPECT_EQ(SharedLibUnload(nullptr), -2);
}
