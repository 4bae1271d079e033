// Enumerating the roots and log sets of a `.conf` file.
#include "tests/propstore/store_test.h"

#include <cstring>

namespace zantlog::test {
namespace {

using Operation = uint32_t (*)(PropertyStore *, uint32_t, char *, uint32_t *);

class FileEnumeration : public FileStoreTest {
protected:
    void openLines(const std::string &lines) {
        utiClosePropertyStore(store);
        fileOf(lines);
        open("");
        memset(name, 0, sizeof name);
    }
    uint32_t next(Operation operation = utiEnumProductId) {
        length = sizeof name;
        return operation(store, 0, name, &length);
    }
    // All names, each followed by ";", and the result that ended the enumeration when it is not 7.
    std::string all(Operation operation, const std::string &lines) {
        openLines(lines);
        std::string names;
        uint32_t result;
        while ((result = next(operation)) == 0) {
            EXPECT_EQ(strlen(name), length);
            names += std::string(name) + ";";
        }
        return result == 7 ? names : names + std::to_string(result);
    }
    std::string roots(const std::string &lines) { return all(utiEnumProductId, lines); }
    std::string logsets(const std::string &lines) { return all(utiEnumLogsetForProductId, lines); }

    char name[80] = "";
    uint32_t length = 0;
};

TEST_F(FileEnumeration, RootsInTheOrderOfTheFile) {
    EXPECT_EQ("12;3;Default;", roots("12.A=a\n3.B=b\nDefault.C=c\n"));
}

TEST_F(FileEnumeration, LinesOfOneRunAreReportedOnce) {
    EXPECT_EQ("12;3;", roots("12.A=a\n12.B=b\n12.C=c\n3.A=d\n3.B=e\n"));
}

TEST_F(FileEnumeration, RootInTwoRunsIsReportedTwice) {
    EXPECT_EQ("1;2;1;", roots("1.A=a\n2.A=b\n1.B=c\n"));
}

TEST_F(FileEnumeration, LogSetsReportTheRootLogset) {
    EXPECT_EQ("1;LOGSET;2;", roots("1.A=a\nLOGSET.x.A=b\nLOGSET.y.A=c\n2.A=d\n"));
}

TEST_F(FileEnumeration, OtherLinesAreSkipped) {
    EXPECT_EQ("1;2;", roots("# 7.A=a\n   #8.A=b\n\nnothing\n1.A=a\nx=y.z\nA=b\n# c.d\n1.B=b\n2.A=c"));
}

TEST_F(FileEnumeration, TabDoesNotMakeAComment) {
    EXPECT_EQ("\t# c;", roots("\t# c.d\n"));
}

TEST_F(FileEnumeration, RootIsCutAtTheFirstDot) {
    EXPECT_EQ("a;b; c;", roots("a.b.c=d\nb..x=1\n c.d=2\n"));
    EXPECT_EQ("a;", roots("a.b"));
}

// The first call's buffer is empty, which is the name of the line's root.
TEST_F(FileEnumeration, EmptyRootIsReportedWhenItDiffersFromTheFormer) {
    EXPECT_EQ("", roots(".A=a\n"));
    EXPECT_EQ("1;;2;", roots("1.A=a\n.A=b\n.B=c\n2.A=d\n"));
}

TEST_F(FileEnumeration, FileWithoutPropertiesGives7) {
    EXPECT_EQ("", roots(""));
    EXPECT_EQ("", roots("# a.b\n# c\n"));
    EXPECT_EQ("", logsets("# a.b\n1.A=a\n"));
}

TEST_F(FileEnumeration, LogSetsInTheOrderOfTheFile) {
    EXPECT_EQ("x;y;Default;x;",
              logsets("1.A=a\nLOGSET.x.A=b\nLOGSET.x.B=c\n2.A=d\nLOGSET.x.C=e\nLOGSET.y.A=f\n"
                      "LOGSET.Default.A=g\nLOGSET.x.D=h\n"));
}

TEST_F(FileEnumeration, LogSetLineBeginsWithLogset) {
    EXPECT_EQ("a;d;", logsets("LOGSET.a.A=1\n LOGSET.b.A=2\nlogset.c.A=3\n#LOGSET.e.A=5\nLOGSETS.d.A=4\n"));
}

TEST_F(FileEnumeration, LogSetNameIsTheSecondTokenOfTheLine) {
    EXPECT_EQ("a;b=c;", logsets("LOGSET..a.A=1\nLOGSET.b=c.A=2\nLOGSET\n"));
    EXPECT_EQ("", logsets("LOGSET."));
}

TEST_F(FileEnumeration, IndexIsNotLookedAt) {
    openLines("1.A=a\n2.A=b\n");
    for (const char *expected : {"1", "2"}) {
        length = sizeof name;
        EXPECT_EQ(0u, utiEnumProductId(store, 4711, name, &length));
        EXPECT_STREQ(expected, name);
    }
}

TEST_F(FileEnumeration, GoesOnFromWhereTheStoreStands) {
    openLines("1.A=a\n2.A=b\nLOGSET.x.A=c\n3.A=d\nLOGSET.y.A=e\n");
    EXPECT_EQ(0u, next());
    EXPECT_STREQ("1", name);
    EXPECT_EQ(0u, next(utiEnumLogsetForProductId));
    EXPECT_STREQ("x", name);
    EXPECT_EQ(0u, next());
    EXPECT_STREQ("3", name);
}

TEST_F(FileEnumeration, StaysAtTheEnd) {
    openLines("1.A=a\n");
    EXPECT_EQ(0u, next());
    EXPECT_EQ(7u, next());
    EXPECT_EQ(7u, next());
    EXPECT_STREQ("1", name);
    EXPECT_EQ(sizeof name, length);
}

TEST_F(FileEnumeration, StaysAtTheEndOfAFileThatGrows) {
    openLines("1.A=a\n");
    EXPECT_EQ(0u, next());
    EXPECT_EQ(7u, next());
    appendFileBytes(path, "2.A=b\r\n");
    EXPECT_EQ(7u, next());
}

TEST_F(FileEnumeration, ReadsRewindIt) {
    fileOf("1.A=a\n2.A=b\n3.A=c\n");
    open("1");
    EXPECT_EQ(0u, next());
    EXPECT_EQ(0u, next());
    EXPECT_STREQ("2", name);
    EXPECT_EQ("a", text("A")); // leaves the store behind the first line
    EXPECT_EQ(0u, next());
    EXPECT_STREQ("3", name); // the second line's root is the one in the buffer
}

TEST_F(FileEnumeration, ChangeOfTheFileStartsItAnew) {
    fileOf("1.A=a\n2.A=b\n");
    open("1");
    EXPECT_EQ(0u, next());
    EXPECT_EQ(0u, next());
    EXPECT_EQ(0u, set("B", "c"));
    EXPECT_EQ(0u, next());
    EXPECT_STREQ("1", name);
}

TEST_F(FileEnumeration, NameThatDoesNotFitGives6AndIsPassed) {
    openLines("1234.A=a\n5678.A=b\n");
    strcpy(name, "old");
    length = 4;
    EXPECT_EQ(6u, utiEnumProductId(store, 0, name, &length));
    EXPECT_EQ(4u, length);
    EXPECT_STREQ("old", name);
    length = 5;
    EXPECT_EQ(0u, utiEnumProductId(store, 0, name, &length));
    EXPECT_EQ(4u, length);
    EXPECT_STREQ("5678", name);
}

TEST_F(FileEnumeration, LogSetNameThatDoesNotFitGives6) {
    openLines("LOGSET.abcd.A=a\n");
    length = 4;
    EXPECT_EQ(6u, utiEnumLogsetForProductId(store, 0, name, &length));
    EXPECT_EQ(4u, length);
    EXPECT_STREQ("", name);
}

TEST_F(FileEnumeration, CapacityIsOnlyTheLastNamesLengthWhenItIsNotRenewed) {
    openLines("12.A=a\n12.B=b\n34.A=c\n");
    EXPECT_EQ(0u, next());
    EXPECT_EQ(6u, utiEnumProductId(store, 0, name, &length));
    EXPECT_EQ(2u, length);
    EXPECT_EQ(7u, next());
}

TEST_F(FileEnumeration, NullArgumentsAndCapacity0) {
    openLines("1.A=a\nLOGSET.x.A=b\n");
    for (const Operation operation : {utiEnumProductId, utiEnumLogsetForProductId}) {
        length = sizeof name;
        EXPECT_EQ(1u, operation(nullptr, 0, name, &length));
        EXPECT_EQ(1u, operation(store, 0, nullptr, &length));
        EXPECT_EQ(1u, operation(store, 0, name, nullptr));
        length = 0;
        EXPECT_EQ(1u, operation(store, 0, name, &length));
    }
    EXPECT_EQ(0u, next());
    EXPECT_STREQ("1", name);
}

} // namespace
} // namespace zantlog::test
