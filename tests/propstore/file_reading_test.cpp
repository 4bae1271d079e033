// Finding properties in a `.conf` file and reading their values.
#include "tests/propstore/store_test.h"

namespace zantlog::test {
namespace {

class FileReading : public FileStoreTest {
protected:
    void fileOfRoot1(const std::string &lines) {
        utiClosePropertyStore(store);
        fileOf(lines);
        open("1");
    }
    std::string number(const std::string &value) {
        fileOfRoot1("1.N=" + value + "\n");
        uint32_t out = 0;
        const uint32_t result = utiGetPropertyAsULong(store, "N", &out);
        return result == 0 ? std::to_string(out) : "(" + std::to_string(result) + ")";
    }
    std::string boolean(const std::string &value) {
        fileOfRoot1("1.N=" + value + "\n");
        uint32_t out = 77;
        const uint32_t result = utiGetPropertyAsBool(store, "N", &out);
        return result == 0 ? std::to_string(out) : "(" + std::to_string(result) + ")";
    }
};

TEST_F(FileReading, PropertyOfTheRoot) {
    fileOfRoot1("2.A=two\n1.A=one\nLOGSET.1.A=three\n");
    EXPECT_EQ("one", text("A"));
    open("2");
    EXPECT_EQ("two", text("A"));
    open("LOGSET.1");
    EXPECT_EQ("three", text("A"));
}

TEST_F(FileReading, EveryReadStartsAtTheBeginning) {
    fileOfRoot1("1.A=one\n1.B=two\n1.C=three\n");
    EXPECT_EQ("three", text("C"));
    EXPECT_EQ("(3)", text("D"));
    EXPECT_EQ("one", text("A"));
    EXPECT_EQ("two", text("B"));
}

TEST_F(FileReading, FirstOfSeveralEqualKeysCounts) {
    fileOfRoot1("1.A=one\n1.A=two\n");
    EXPECT_EQ("one", text("A"));
}

TEST_F(FileReading, ValueEndsAtTheNextEqualsSign) {
    fileOfRoot1("1.A=a=b\n1.B==x\n==1.C===y==z\n1.D= =\n");
    EXPECT_EQ("a", text("A"));
    EXPECT_EQ("x", text("B"));
    EXPECT_EQ("y", text("C"));
    EXPECT_EQ("", text("D")); // a blank, which goes
}

TEST_F(FileReading, EmptyValueIsFoundAndEmpty) {
    fileOfRoot1("1.A=\n1.A=later\n");
    EXPECT_EQ("", text("A"));
}

// At the end of the file not even a line end stands behind the "=".
TEST_F(FileReading, KeyWithoutAnyValueIsNotFound) {
    fileOfRoot1("1.B=x\n1.A=");
    EXPECT_EQ("(3)", text("A"));
    fileOfRoot1("1.A===");
    EXPECT_EQ("(3)", text("A"));
}

TEST_F(FileReading, KeyWithoutAnyValueDoesNotEndTheSearch) {
    // The line buffer ends behind the key's "=", so that the next line begins there.
    fileOfRoot1(std::string(495, '=') + "1.A=" + "1.A=later\n");
    EXPECT_EQ("later", text("A"));
}

TEST_F(FileReading, LineWithoutEqualsSignDoesNotEndTheSearch) {
    fileOfRoot1("1.A\n1.A=later\n");
    EXPECT_EQ("later", text("A"));
}

TEST_F(FileReading, LastLineNeedsNoLineEnd) {
    fileOfRoot1("1.A=one\n1.B=two");
    EXPECT_EQ("two", text("B"));
}

TEST_F(FileReading, KeysAreComparedExactly) {
    fileOfRoot1(" 1.A=x\n1 .A=x\n1.A =x\n1.a=x\n11.A=x\n#1.A=x\n\t1.A=x\n");
    EXPECT_EQ("(3)", text("A"));
    EXPECT_EQ("x", text("A "));
    EXPECT_EQ("x", text("a"));
}

TEST_F(FileReading, NameMayContainDotsAndBlanks) {
    fileOfRoot1("1.A.B C=x\n");
    EXPECT_EQ("x", text("A.B C"));
}

TEST_F(FileReading, NameWithEqualsSignIsNeverFound) {
    fileOfRoot1("1.A=B=x\n");
    EXPECT_EQ("(3)", text("A=B"));
}

TEST_F(FileReading, EmptyRootLooksForADotBeforeTheName) {
    fileOf("A=bare\n.B=dotted\n");
    open("");
    EXPECT_EQ("(3)", text("A"));
    EXPECT_EQ("dotted", text("B"));
    EXPECT_EQ(0u, set("C", "new"));
    EXPECT_EQ("(3)", text("C"));
}

TEST_F(FileReading, TrailingBlanksGoAndOtherBlanksStay) {
    fileOfRoot1("1.A=  x y   \n1.B=x\t  \n1.C=    \n");
    EXPECT_EQ("  x y", text("A"));
    EXPECT_EQ("x\t", text("B"));
    EXPECT_EQ("", text("C"));
}

TEST_F(FileReading, ValueOf400BytesIsCutTo399) {
    for (const size_t length : {398u, 399u, 400u, 450u}) {
        fileOfRoot1("1.A=" + std::string(length, 'v') + "\n");
        EXPECT_EQ(std::string(length < 400 ? length : 399, 'v'), text("A"));
    }
}

TEST_F(FileReading, LineOf499BytesIsOneLineAndALongerOneIsSeveral) {
    const std::string first = "1.A=" + std::string(494, 'v');
    fileOfRoot1(first + "\n1.B=two\n"); // 499 with its line end
    EXPECT_EQ("two", text("B"));
    fileOfRoot1(first + "v1.B=two\n"); // 499 without: what follows is a line of its own
    EXPECT_EQ("two", text("B"));
    fileOfRoot1(first + "1.B=two\n"); // one byte less: no key begins at the second line
    EXPECT_EQ("(3)", text("B"));
}

TEST_F(FileReading, OverlongNameIsNotFound) {
    fileOfRoot1("1." + std::string(497, 'n') + "=x\n");
    EXPECT_EQ("(3)", text(std::string(497, 'n')));
    EXPECT_EQ("(3)", text(std::string(498, 'n')));
    EXPECT_EQ("(3)", text(std::string(100000, 'n')));
}

TEST_F(FileReading, CtrlZEndsTheFile) {
    writeBytes(path, "1.A=one\r\n\x1a"
                     "1.B=two\r\n");
    open("1");
    EXPECT_EQ("one", text("A"));
    EXPECT_EQ("(3)", text("B"));
}

TEST_F(FileReading, FileWithUnixLineEndsIsReadAsWell) {
    writeBytes(path, "1.A=one\n1.B=two\n");
    open("1");
    EXPECT_EQ("one", text("A"));
    EXPECT_EQ("two", text("B"));
}

TEST_F(FileReading, TextIsConvertedFromUtf8) {
    fileOfRoot1("1.A=caf\xc3\xa9\n1.B=\xe2\x82\xac\n");
    EXPECT_EQ("caf\xe9", text("A"));
    EXPECT_EQ("\x80", text("B"));
}

TEST_F(FileReading, TextThatTheCodePageCannotHoldGives3) {
    fileOfRoot1("1.A=\xe4\xb8\xad\n");
    EXPECT_EQ("(3)", text("A"));
}

TEST_F(FileReading, TextThatIsNotUtf8Gives3) {
    fileOfRoot1("1.A=caf\xe9\n1.B=\xc3\n1.C=\xff\xfe\n");
    EXPECT_EQ("(3)", text("A"));
    EXPECT_EQ("(3)", text("B"));
    EXPECT_EQ("(3)", text("C"));
}

TEST_F(FileReading, FormerTextIsLeftToTheCaller) {
    fileOfRoot1("1.A=one\n");
    char *const former = zantLogSafeStrdup("former");
    char *value = former;
    ASSERT_EQ(0u, utiGetPropertyAsStr(store, "A", &value));
    EXPECT_NE(former, value);
    EXPECT_STREQ("former", former);
    EXPECT_STREQ("one", value);
    zantLogFree(former);
    EXPECT_EQ(3u, utiGetPropertyAsStr(store, "missing", &value));
    EXPECT_STREQ("one", value);
    zantLogFree(value);
}

TEST_F(FileReading, NumberIsReadInDecimalUpToTheFirstOtherCharacter) {
    EXPECT_EQ("0", number("0"));
    EXPECT_EQ("3", number("3"));
    EXPECT_EQ("4294967295", number("4294967295"));
    EXPECT_EQ("12", number("12kg"));
    EXPECT_EQ("12", number("  12 13"));
    EXPECT_EQ("5", number("+5"));
    EXPECT_EQ("0", number("0x10"));
    EXPECT_EQ("7", number("007"));
}

TEST_F(FileReading, NumberWithoutDigitsIs0) {
    EXPECT_EQ("0", number("abc"));
    EXPECT_EQ("0", number(""));
    EXPECT_EQ("0", number("-"));
}

TEST_F(FileReading, NegativeNumberIsReadModulo2To32) {
    EXPECT_EQ("4294967295", number("-1"));
    EXPECT_EQ("2147483648", number("-2147483648"));
}

TEST_F(FileReading, NumberThatIsTooLargeIsTheLargest) {
    EXPECT_EQ("4294967295", number("4294967296"));
    EXPECT_EQ("4294967295", number("99999999999999999999999999"));
}

TEST_F(FileReading, BooleanIs1ForExactlyTrue) {
    EXPECT_EQ("1", boolean("true"));
    EXPECT_EQ("0", boolean("TRUE"));
    EXPECT_EQ("0", boolean("True"));
    EXPECT_EQ("0", boolean("true "));
    EXPECT_EQ("0", boolean(" true"));
    EXPECT_EQ("0", boolean("1"));
    EXPECT_EQ("0", boolean("false"));
    EXPECT_EQ("0", boolean(""));
    EXPECT_EQ("1", boolean("true=x"));
}

TEST_F(FileReading, MissingPropertyGives3AndStoresNothing) {
    fileOfRoot1("1.A=1\n");
    uint32_t out = 77;
    EXPECT_EQ(3u, utiGetPropertyAsULong(store, "B", &out));
    EXPECT_EQ(3u, utiGetPropertyAsBool(store, "B", &out));
    EXPECT_EQ(77u, out);
    EXPECT_EQ("(3)", text("B"));
}

TEST_F(FileReading, NullArguments) {
    fileOfRoot1("1.A=1\n");
    char *value = nullptr;
    uint32_t out = 77;
    EXPECT_EQ(1u, utiGetPropertyAsStr(nullptr, "A", &value));
    EXPECT_EQ(1u, utiGetPropertyAsStr(store, nullptr, &value));
    EXPECT_EQ(1u, utiGetPropertyAsStr(store, "A", nullptr));
    EXPECT_EQ(1u, utiGetPropertyAsULong(nullptr, "A", &out));
    EXPECT_EQ(1u, utiGetPropertyAsULong(store, nullptr, &out));
    EXPECT_EQ(1u, utiGetPropertyAsULong(store, "A", nullptr));
    EXPECT_EQ(1u, utiGetPropertyAsBool(nullptr, "A", &out));
    EXPECT_EQ(1u, utiGetPropertyAsBool(store, nullptr, &out));
    EXPECT_EQ(1u, utiGetPropertyAsBool(store, "A", nullptr));
    EXPECT_EQ(77u, out);
    EXPECT_EQ(nullptr, value);
}

} // namespace
} // namespace zantlog::test
