// Versioned file names of libraries that are loaded by name.
#include "base/library_name.h"

#include <gtest/gtest.h>
#include <string>

namespace zantlog {

namespace {

std::string versioned(const char *baseName) {
    const OwnedText name = versionedLibraryName(baseName);
    return name != nullptr ? name.get() : "<null>";
}

TEST(LibraryName, MajorVersionAndExtensionAreAppended) {
    EXPECT_EQ(versioned("zantLogFormatMsg"), "zantLogFormatMsg_3.dll");
    EXPECT_EQ(versioned("x"), "x_3.dll");
}

TEST(LibraryName, FilePartIsCutAtItsFirstUnderscoreOrDot) {
    EXPECT_EQ(versioned("lib.dll"), "lib_3.dll");
    EXPECT_EQ(versioned("lib_2.dll"), "lib_3.dll");
    EXPECT_EQ(versioned("lib.a_b"), "lib_3.dll");
    EXPECT_EQ(versioned("lib_a.b"), "lib_3.dll");
    EXPECT_EQ(versioned("_x"), "_3.dll");
    EXPECT_EQ(versioned(".x"), "_3.dll");
}

TEST(LibraryName, DirectoryPartIsKept) {
    EXPECT_EQ(versioned("C:\\a.b\\c_d\\lib"), "C:\\a.b\\c_d\\lib_3.dll");
    EXPECT_EQ(versioned("C:\\a.b\\lib.old"), "C:\\a.b\\lib_3.dll");
    EXPECT_EQ(versioned("C:\\a.b\\"), "C:\\a.b\\_3.dll");
    EXPECT_EQ(versioned("a.b/lib"), "a_3.dll"); // only "\" ends a directory
}

TEST(LibraryName, EmptyNameIsItsSuffix) {
    EXPECT_EQ(versioned(""), "_3.dll");
}

TEST(LibraryName, NullNameHasNone) {
    EXPECT_EQ(versionedLibraryName(nullptr), nullptr);
}

} // namespace

} // namespace zantlog
