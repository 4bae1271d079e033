// Whether gaps and repeats in the numbers of messages are found, and nothing else.
#include "tools/qzlogview/sequence_check.h"

#include "tests/tools/qzlogview/record_lines.h"

using namespace zantlog;
using namespace zantlog::view;
using namespace zantlog::view::test;

namespace {

using Texts = std::vector<std::string>;

class Sequences : public testing::Test {
protected:
    // A record of type 2; of a context with a token.
    void add(uint32_t number, uint32_t process = 1, const std::string &token = "", int type = 2) {
        const std::string begin = std::to_string(type) + ",12,3,3," + std::to_string(number) +
                                  ",1763249000000," + std::to_string(process) + ",2," + field(token) +
                                  ",1:x,";
        const Entry entry = entryOf(source_, begin + (type == 3 ? "4:a81f,(0|)" : "0:,0,(0|)"));
        if (const auto problem = check_.add(entry.record)) {
            problems_.push_back(*problem);
        }
    }
    void addAll(const std::vector<uint32_t> &numbers) {
        for (const uint32_t number : numbers) {
            add(number);
        }
    }

    Source source_ = productSource();
    SequenceCheck check_;
    Texts problems_;
};

} // namespace

TEST_F(Sequences, NumbersInARowAreFine) {
    addAll({1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(problems_, Texts{});
}

TEST_F(Sequences, TheFirstFileMayBeGone) {
    addAll({500, 501, 502, 503});
    EXPECT_EQ(problems_, Texts{});
}

TEST_F(Sequences, AGapOfOneIsFound) {
    addAll({1, 2, 4, 5, 6, 7, 8});
    EXPECT_EQ(problems_, Texts{"before number 4 number 3 is not there (process 1, originator 3)"});
}

TEST_F(Sequences, AGapOfManyIsFoundOnce) {
    addAll({1, 2, 10, 11, 12, 13, 14, 15});
    EXPECT_EQ(problems_, Texts{"before number 10 numbers 3 to 9 are not there (process 1, originator 3)"});
}

TEST_F(Sequences, EveryGapIsFound) {
    addAll({1, 3, 4, 5, 6, 8, 9, 10, 11});
    EXPECT_EQ(problems_, (Texts{"before number 3 number 2 is not there (process 1, originator 3)",
                                "before number 8 number 7 is not there (process 1, originator 3)"}));
}

TEST_F(Sequences, RepeatedNumbersAreFound) {
    addAll({1, 2, 3, 4, 5, 3, 4, 5, 6});
    EXPECT_EQ(problems_, Texts{"numbers from 3 on have come before (process 1, originator 3)"});
}

TEST_F(Sequences, ANumberOfTheCallersTakesThePlaceOfTheHandles) {
    addAll({1, 2, 9999, 4, 5, 6});
    addAll({7, 500, 500, 10, 11, 12});
    EXPECT_EQ(problems_, Texts{});
}

TEST_F(Sequences, SeveralHandlesOfOneProcessMayInterleave) {
    addAll({1, 2, 1, 3, 2, 4, 3, 1, 2, 4, 5, 3});
    EXPECT_EQ(problems_, Texts{});
}

TEST_F(Sequences, ProcessesHaveTheirOwn) {
    for (uint32_t number = 1; number < 6; ++number) {
        add(number, 1);
        add(number + 100, 2);
    }
    EXPECT_EQ(problems_, Texts{});
    add(7, 1);
    add(106, 2);
    add(8, 1);
    add(107, 2);
    add(9, 1);
    EXPECT_EQ(problems_, Texts{"before number 7 number 6 is not there (process 1, originator 3)"});
}

TEST_F(Sequences, ContextsHaveTheirOwn) {
    add(1, 1);
    add(1, 1, "a81f");
    add(2, 1, "a81f");
    add(2, 1);
    add(3, 1, "a81f");
    EXPECT_EQ(problems_, Texts{});
}

TEST_F(Sequences, AContextIsWrittenAgainAfterARollover) {
    add(1, 1, "a81f", 3);
    add(2, 1, "a81f");
    add(3, 1, "a81f");
    add(1, 1, "a81f", 3);
    add(4, 1, "a81f");
    add(1, 1, "a81f", 3);
    add(5, 1, "a81f");
    add(7, 1, "a81f");
    add(8, 1, "a81f");
    add(9, 1, "a81f");
    EXPECT_EQ(problems_, Texts{"before number 7 number 6 is not there (process 1, originator 3)"});
}

TEST_F(Sequences, OldVersionsHaveNone) {
    source_.header.version = 65542;
    for (int i = 0; i < 5; ++i) {
        const Entry entry = entryOf(source_, "0:,5:hello,3:who,1,(0|)");
        EXPECT_EQ(check_.add(entry.record), std::nullopt);
    }
}

TEST_F(Sequences, HandlesThatComeAndGoCostNoMoreAndMoreTime) {
    for (int i = 0; i < 20000; ++i) {
        add(1);
        add(2);
    }
    addAll({4, 5, 6});
    EXPECT_EQ(problems_, Texts{"before number 4 number 3 is not there (process 1, originator 3)"});
}
