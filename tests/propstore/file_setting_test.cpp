// Setting properties in a `.conf` file: the bytes that are written, and where.
#include "tests/propstore/store_test.h"
#include "tests/support/files.h"

namespace zantlog::test {
namespace {

class FileSetting : public FileStoreTest {
protected:
    // What setting root.name to "new" makes of these lines.
    std::string after(const std::string &lines, const std::string &root, const std::string &name) {
        utiClosePropertyStore(store);
        fileOf(lines);
        EXPECT_EQ(0u, store.open(path, root));
        EXPECT_EQ(0u, set(name, "new"));
        EXPECT_NE(nullptr, store.record.file.stream);
        EXPECT_FALSE(exists(temporary));
        return linesOf(readBytes(path));
    }
};

TEST_F(FileSetting, EmptyFileGetsTheLine) {
    EXPECT_EQ("1.A=new\n", after("", "1", "A"));
}

TEST_F(FileSetting, FileOfCommentsGetsTheLineAtItsEnd) {
    EXPECT_EQ("# one\n# two.\n1.A=new\n", after("# one\n# two.\n", "1", "A"));
}

TEST_F(FileSetting, NewPropertyGoesToTheEndOfItsRun) {
    EXPECT_EQ("1.A=a\n1.B=b\n1.C=new\n2.A=c\n", after("1.A=a\n1.B=b\n2.A=c\n", "1", "C"));
}

TEST_F(FileSetting, NewPropertyOfTheLastRunGoesToTheEndOfTheFile) {
    EXPECT_EQ("1.A=a\n2.A=b\n2.B=new\n", after("1.A=a\n2.A=b\n", "2", "B"));
}

TEST_F(FileSetting, NewRootGoesToTheEndOfTheFile) {
    EXPECT_EQ("1.A=a\n2.A=b\n3.A=new\n", after("1.A=a\n2.A=b\n", "3", "A"));
}

TEST_F(FileSetting, ExistingPropertyKeepsItsPlace) {
    EXPECT_EQ("1.A=a\n1.B=new\n1.C=c\n2.B=d\n", after("1.A=a\n1.B=b\n1.C=c\n2.B=d\n", "1", "B"));
    EXPECT_EQ("1.A=new\n1.B=b\n", after("1.A=a\n1.B=b\n", "1", "A"));
    EXPECT_EQ("1.A=a\n1.B=new\n", after("1.A=a\n1.B=b\n", "1", "B"));
}

TEST_F(FileSetting, OnlyTheFirstRunIsLookedAt) {
    EXPECT_EQ("1.A=a\n1.B=new\n2.A=b\n1.B=old\n", after("1.A=a\n2.A=b\n1.B=old\n", "1", "B"));
}

TEST_F(FileSetting, OnlyTheFirstOfSeveralEqualKeysIsReplaced) {
    EXPECT_EQ("1.A=new\n1.A=b\n2.A=c\n1.A=d\n", after("1.A=a\n1.A=b\n2.A=c\n1.A=d\n", "1", "A"));
}

TEST_F(FileSetting, CommentOrEmptyLineEndsARun) {
    EXPECT_EQ("1.A=a\n1.B=new\n# c\n1.B=b\n", after("1.A=a\n# c\n1.B=b\n", "1", "B"));
    EXPECT_EQ("1.A=a\n1.B=new\n\n1.B=b\n", after("1.A=a\n\n1.B=b\n", "1", "B"));
    EXPECT_EQ("1.A=a\n1.B=new\n 1.C=b\n", after("1.A=a\n 1.C=b\n", "1", "B"));
}

TEST_F(FileSetting, LogSetHasRunsOfItsOwn) {
    const std::string lines = "LOGSET.a.X=1\nLOGSET.b.X=2\nLOGSET.b.Y=3\nLOGSET.c.X=4\n";
    EXPECT_EQ("LOGSET.a.X=1\nLOGSET.b.X=2\nLOGSET.b.Y=new\nLOGSET.c.X=4\n", after(lines, "LOGSET.b", "Y"));
    EXPECT_EQ("LOGSET.a.X=1\nLOGSET.b.X=2\nLOGSET.b.Y=3\nLOGSET.b.Z=new\nLOGSET.c.X=4\n",
              after(lines, "LOGSET.b", "Z"));
    EXPECT_EQ(lines + "LOGSET.d.X=new\n", after(lines, "LOGSET.d", "X"));
}

TEST_F(FileSetting, LogSetLinesBeginTheRunOfTheRootOfTheirName) {
    EXPECT_EQ("LOGSET.x.A=1\nx.A=new\ny.A=2\nx.B=3\n", after("LOGSET.x.A=1\ny.A=2\nx.B=3\n", "x", "A"));
    EXPECT_EQ("LOGSET.x.A=1\nx.B=new\ny.A=2\n", after("LOGSET.x.A=1\nx.B=3\ny.A=2\n", "x", "B"));
}

TEST_F(FileSetting, LogSetRunGoesOnOverTheRootOfItsName) {
    EXPECT_EQ("LOGSET.x.A=1\nx.B=2\nLOGSET.x.C=new\n",
              after("LOGSET.x.A=1\nx.B=2\nLOGSET.x.C=3\n", "LOGSET.x", "C"));
    // but it does not begin there
    EXPECT_EQ("x.B=2\ny.A=1\nLOGSET.x.A=new\n", after("x.B=2\ny.A=1\n", "LOGSET.x", "A"));
}

TEST_F(FileSetting, LeadingDelimitersOfALineAreNotPartOfItsNames) {
    EXPECT_EQ("1.A=new\n", after("=1.A=a\n", "1", "A"));         // key "1.A" behind the "="
    EXPECT_EQ(".1.A=a\n1.A=new\n", after(".1.A=a\n", "1", "A")); // root "1", but key ".1.A"
    EXPECT_EQ("1=5\n1.A=new\n2.A=b\n", after("1=5\n2.A=b\n", "1", "A"));
    EXPECT_EQ("LOGSET=x.A=1\nLOGSET.x.A=new\n2.A=b\n", after("LOGSET=x.A=1\n2.A=b\n", "LOGSET.x", "A"));
}

TEST_F(FileSetting, LineOfNothingButDelimitersIsCopied) {
    EXPECT_EQ("1.A=a\n1.B=new\n=.=\n2.A=b\n", after("1.A=a\n=.=\n2.A=b\n", "1", "B"));
    EXPECT_EQ("2.A=b\n=.=1.B=new\n", after("2.A=b\n=.=", "1", "B"));
    EXPECT_EQ("1.A=a\n1.B=new\n=.=", after("1.A=a\n=.=", "1", "B"));
    EXPECT_EQ("LOGSETLOGSET..A=new\n", after("LOGSET", "LOGSET.", "A"));
}

TEST_F(FileSetting, LineWithoutEqualsSignBelongsToItsRun) {
    EXPECT_EQ("1.A\n1.A=new\n2.A=b\n", after("1.A\n2.A=b\n", "1", "A"));
    EXPECT_EQ("1.A=new\n", after("1.A", "1", "A")); // without its line end it is the key itself
}

TEST_F(FileSetting, AppendedLineJoinsALastLineWithoutLineEnd) {
    EXPECT_EQ("1.A=a2.A=new\n", after("1.A=a", "2", "A"));
    EXPECT_EQ("1.A=a1.B=new\n", after("1.A=a", "1", "B"));
    EXPECT_EQ("1.A=new\n", after("1.A=a", "1", "A"));
    EXPECT_EQ("1.A=a\n1.B=new\n2.A=b", after("1.A=a\n2.A=b", "1", "B"));
}

TEST_F(FileSetting, EmptyRootWritesTheNameAlone) {
    EXPECT_EQ("1.A=a\nB=new\n", after("1.A=a\n", "", "B"));
    EXPECT_EQ("B=new\n1.A=a\n", after("B=old\n1.A=a\n", "", "B"));
}

TEST_F(FileSetting, EmptyRootReplacesOnlyTheFirstOfSeveralEqualKeys) {
    EXPECT_EQ("A=new\nA=2\nA=3\n", after("A=1\nA=2\nA=3\n", "", "A"));
}

TEST_F(FileSetting, EmptyRootTakesTheRootOfALineForItsKey) {
    EXPECT_EQ("12=new\n12.B=2\n", after("12.A=1\n12.B=2\n", "", "12"));
    EXPECT_EQ("x=new\n", after("LOGSET.x.A=1\n", "", "x"));
    // A name with a dot is never met again.
    EXPECT_EQ("A.B=1\nA.B=new\n", after("A.B=1\n", "", "A.B"));
}

TEST_F(FileSetting, EmptyNameOnTheEmptyRootIsAppended) {
    EXPECT_EQ("=\n==new\n", after("=\n=", "", ""));
}

TEST_F(FileSetting, RootWithADotIsAppendedAgainAndAgain) {
    EXPECT_EQ("1.2.A=old\n1.2.A=new\n", after("1.2.A=old\n", "1.2", "A"));
}

TEST_F(FileSetting, OtherLinesStayByteForByte) {
    const std::string odd = "   # c\n\t\n 3.x = y \n==\n" + std::string(499, 'o') + std::string(30, 'p') +
                            "\n" + std::string(498, 'q') + "\n" + "caf\xe9\xff\n";
    EXPECT_EQ(odd + "1.A=new\n" + odd, after(odd + "1.A=old\n" + odd, "1", "A"));
}

TEST_F(FileSetting, StoreIsUsableAfterwards) {
    fileOf("1.A=a\n");
    open("1");
    EXPECT_EQ(0u, set("B", "b"));
    EXPECT_EQ("b", text("B"));
    EXPECT_EQ(0u, set("A", "c"));
    EXPECT_EQ("c", text("A"));
    EXPECT_STREQ("1", store.record.file.root);
    EXPECT_EQ(path, store.record.file.path);
    expectFile("1.A=c\n1.B=b\n");
}

TEST_F(FileSetting, TextIsWrittenWhole) {
    fileOf("");
    open("1");
    EXPECT_EQ(0u, set("A", "a=b"));
    EXPECT_EQ(0u, set("B", "  x  "));
    EXPECT_EQ(0u, set("C", ""));
    expectFile("1.A=a=b\n1.B=  x  \n1.C=\n");
    EXPECT_EQ("a", text("A"));
    EXPECT_EQ("  x", text("B"));
    EXPECT_EQ("", text("C"));
}

TEST_F(FileSetting, TextIsWrittenAsUtf8) {
    fileOf("");
    open("1");
    EXPECT_EQ(0u, set("A", "caf\xe9"));
    EXPECT_EQ(0u, set("B", "\x80"));
    expectFile("1.A=caf\xc3\xa9\n1.B=\xe2\x82\xac\n");
    EXPECT_EQ("caf\xe9", text("A"));
}

TEST_F(FileSetting, EveryByteFrom80To9fReadsBackAsWritten) {
    fileOf("");
    open("1");
    for (int byte = 0x80; byte <= 0x9f; ++byte) {
        const std::string value(3, static_cast<char>(byte));
        ASSERT_EQ(0u, set("A", value)) << byte;
        EXPECT_EQ(value, text("A")) << byte;
    }
}

TEST_F(FileSetting, NumberIsWrittenAsASignedOne) {
    fileOf("");
    open("1");
    for (const uint32_t value : {0u, 7u, 2147483647u, 2147483648u, 4294967295u}) {
        const std::string name = "N" + std::to_string(value);
        EXPECT_EQ(0u, utiSetPropertyAsULong(store, name.c_str(), &value));
        uint32_t back = 1;
        EXPECT_EQ(0u, utiGetPropertyAsULong(store, name.c_str(), &back));
        EXPECT_EQ(value, back);
    }
    expectFile("1.N0=0\n1.N7=7\n1.N2147483647=2147483647\n1.N2147483648=-2147483648\n1.N4294967295=-1\n");
}

TEST_F(FileSetting, BooleanIsTrueFor1Only) {
    fileOf("");
    open("1");
    for (const uint32_t value : {0u, 1u, 2u, 4294967295u}) {
        EXPECT_EQ(0u, utiSetPropertyAsBool(store, std::to_string(value).c_str(), &value));
    }
    expectFile("1.0=false\n1.1=true\n1.2=false\n1.4294967295=false\n");
}

TEST_F(FileSetting, OverlongValueIsCutAtTheEndOfTheLine) {
    fileOf("1.B=b\n2.A=a\n");
    open("1");
    EXPECT_EQ(0u, set("A", std::string(10000, 'v')));
    expectFile("1.B=b\n1.A=" + std::string(494, 'v') + "\n2.A=a\n");
    EXPECT_EQ(std::string(399, 'v'), text("A"));
    EXPECT_EQ(0u, set("A", "short"));
    expectFile("1.B=b\n1.A=short\n2.A=a\n");
}

TEST_F(FileSetting, NameThatDoesNotFitALineGives6AndChangesNothing) {
    fileOf("1.B=b\n");
    open("1");
    EXPECT_EQ(6u, set(std::string(496, 'n'), "v"));
    EXPECT_EQ(6u, set(std::string(100000, 'n'), "v"));
    expectFile("1.B=b\n");
    EXPECT_FALSE(exists(temporary));
    EXPECT_EQ("b", text("B"));
    EXPECT_EQ(0u, set(std::string(495, 'n'), "v")); // no byte is left for the value
    expectFile("1.B=b\n1." + std::string(495, 'n') + "=\n");
}

TEST_F(FileSetting, CtrlZAndWhatFollowsItGo) {
    writeBytes(path, "1.A=one\r\n\x1a"
                     "1.B=two\r\n");
    open("1");
    EXPECT_EQ(0u, set("C", "new"));
    expectFile("1.A=one\n1.C=new\n");
}

TEST_F(FileSetting, LeftOverTemporaryFileIsReplaced) {
    fileOf("1.A=a\n");
    writeBytes(temporary, "rubbish that is much longer than the file itself\r\n");
    open("1");
    EXPECT_EQ(0u, set("A", "b"));
    expectFile("1.A=b\n");
    EXPECT_FALSE(exists(temporary));
}

TEST_F(FileSetting, TemporaryFileThatCannotBeMadeGives5) {
    fileOf("1.A=a\n");
    makeFolder(temporary);
    open("1");
    const uint32_t one = 1;
    EXPECT_EQ(5u, set("A", "b"));
    EXPECT_EQ(5u, utiSetPropertyAsULong(store, "A", &one));
    EXPECT_EQ(5u, utiSetPropertyAsBool(store, "A", &one));
    EXPECT_EQ(5u, utiRemoveProperty(store, "A"));
    EXPECT_EQ(5u, utiRemovePropertyRoot(store, "1"));
    expectFile("1.A=a\n");
    EXPECT_EQ("a", text("A"));
}

// A file that somebody has open cannot be renamed over.
TEST_F(FileSetting, RenameDeniedFiveTimesGives10AndClosesTheStore) {
    fileOf("1.A=a\n");
    open("1");
    OpenStore holder(path, "1");
    ASSERT_EQ(0u, holder.result);
    const int64_t begin = millisecondsNow();
    EXPECT_EQ(10u, set("A", "b"));
    EXPECT_LE(45, millisecondsNow() - begin);
    expectFile("1.A=a\n");
    EXPECT_FALSE(exists(temporary));
    EXPECT_EQ(nullptr, store.record.file.stream);
    EXPECT_EQ("(3)", text("A"));
    EXPECT_EQ("a", textOf(holder, "A"));
}

TEST_F(FileSetting, RenameThatFailsOtherwiseGives6AndClosesTheStore) {
    fileOf("1.A=a\n");
    open("1");
    writeBytes(temporary, "");
    {
        OpenStore holder(temporary, "1"); // the temporary file can be written now, but not renamed
        ASSERT_EQ(0u, holder.result);
        EXPECT_EQ(6u, set("A", "b"));
    }
    expectFile("1.A=a\n");
    EXPECT_EQ(nullptr, store.record.file.stream);
    open("1");
    EXPECT_EQ(0u, set("A", "c"));
    expectFile("1.A=c\n");
}

TEST_F(FileSetting, TenThousandPropertiesTakeOneMore) {
    std::string lines;
    for (int id = 1; id <= 100; ++id) {
        for (int property = 1; property <= 100; ++property) {
            lines += std::to_string(id) + ".Property" + std::to_string(property) + "=value\n";
        }
    }
    fileOf(lines);
    open("50");
    EXPECT_EQ(0u, set("Property101", "new"));
    EXPECT_EQ("new", text("Property101"));
    lines.insert(lines.find("51.Property1="), "50.Property101=new\n");
    expectFile(lines);
}

TEST_F(FileSetting, NullArguments) {
    fileOf("1.A=a\n");
    open("1");
    const uint32_t one = 1;
    EXPECT_EQ(1u, utiSetPropertyAsStr(nullptr, "A", "x"));
    EXPECT_EQ(1u, utiSetPropertyAsStr(store, nullptr, "x"));
    EXPECT_EQ(1u, utiSetPropertyAsStr(store, "A", nullptr));
    EXPECT_EQ(1u, utiSetPropertyAsULong(nullptr, "A", &one));
    EXPECT_EQ(1u, utiSetPropertyAsULong(store, nullptr, &one));
    EXPECT_EQ(1u, utiSetPropertyAsULong(store, "A", nullptr));
    EXPECT_EQ(1u, utiSetPropertyAsBool(nullptr, "A", &one));
    EXPECT_EQ(1u, utiSetPropertyAsBool(store, nullptr, &one));
    EXPECT_EQ(1u, utiSetPropertyAsBool(store, "A", nullptr));
    expectFile("1.A=a\n");
    EXPECT_FALSE(exists(temporary));
    EXPECT_EQ("a", text("A"));
}

} // namespace
} // namespace zantlog::test
