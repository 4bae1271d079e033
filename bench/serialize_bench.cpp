// What a record line costs to build, against the same line put together by other means. Runs natively and
// under Wine.
#include <cinttypes>
#include <cstdlib>
#include <cstring>

#include <fmt/compile.h>
#include <fmt/format.h>

#include "base/decimal.h"
#include "bench/timing.h"
#include "zantlog/serialization.h"

namespace {

constexpr const char *kExpected =
    "1,12,3,3,57,1763249000123,4242,777,0:,12:disk failure,7:scanner,2,(2|u32:5|S2:C:|)\n";
constexpr size_t kExpectedLength = 83;

struct ExampleRecord {
    char text[16] = "disk failure";
    char who[16] = "scanner";
    char drive[4] = "C:";
    zantLisArg second{};
    zantLisArg first{};
    zantLogMsgRec record{};

    ExampleRecord() {
        second.kind = ZANTLIS_NATIVE_STRING;
        second.first.narrow = drive;
        first.kind = ZANTLIS_UNSIGNED;
        first.first.width = 32;
        first.second.word = 5;
        first.next = &second;
        record.formatVersion = ZANTLOG_FORMAT_PRODUCT;
        record.type = ZANTLOG_MSG_DIAGNOSTIC;
        record.productId = 12;
        record.originatorId = 3;
        record.fid = 3;
        record.sequence = 57;
        record.timestamp = 1763249000123;
        record.processId = 4242;
        record.threadId = 777;
        record.text = text;
        record.who = who;
        record.slot.level = 2;
        record.lis.argCount = 2;
        record.lis.first = &first;
    }
};

ExampleRecord example;
char line[4096];
text_msg buffer;

[[noreturn]] void fail(const char *who) {
    std::fprintf(stderr, "%s: not the expected line\n", who);
    std::exit(1);
}

void byLibrary() {
    if (zantLogMsgSerialize(&example.record, &buffer) != 0)
        fail("library");
    free_text_msg(&buffer);
}

// Digits written by hand with bounds checks: the floor.
class HandWriter {
public:
    void character(char c) {
        if (at_ < sizeof line)
            line[at_++] = c;
    }
    void bytes(const char *text, size_t length) {
        if (length > sizeof line - at_)
            return;
        std::memcpy(line + at_, text, length);
        at_ += length;
    }
    void number(uint64_t value) {
        char digits[zantlog::kDecimalDigits];
        const char *first = zantlog::formatUnsigned(digits, value);
        bytes(first, static_cast<size_t>(digits + zantlog::kDecimalDigits - first));
    }
    void field(const char *text) {
        const size_t length = text != nullptr ? std::strlen(text) : 0;
        number(length);
        character(':');
        bytes(text != nullptr ? text : "", length);
        character(',');
    }
    [[nodiscard]] size_t length() const { return at_; }

private:
    size_t at_ = 0;
};

size_t byHand() {
    const zantLogMsgRec &record = example.record;
    HandWriter out;
    for (const uint64_t value :
         {uint64_t{record.type}, uint64_t{record.productId}, uint64_t{record.originatorId},
          uint64_t{record.fid}, uint64_t{record.sequence}, record.timestamp, uint64_t{record.processId},
          uint64_t{record.threadId}}) {
        out.number(value);
        out.character(',');
    }
    out.field(record.contextToken);
    out.field(record.text);
    out.field(record.who);
    out.number(static_cast<uint64_t>(record.slot.level));
    out.bytes(",(", 2);
    out.number(record.lis.argCount);
    out.bytes("|u", 2);
    out.number(example.first.first.width);
    out.character(':');
    out.number(example.first.second.word);
    out.bytes("|S", 2);
    const size_t length = std::strlen(example.drive);
    out.number(length);
    out.character(':');
    out.bytes(example.drive, length);
    out.bytes("|)\n", 3);
    return out.length();
}

#define EXAMPLE_FORMAT "{},{},{},{},{},{},{},{},0:,{}:{},{}:{},{},({}|u{}:{}|S{}:{}|)\n"
#define EXAMPLE_ARGUMENTS                                                                                    \
    record.type, record.productId, record.originatorId, record.fid, record.sequence, record.timestamp,       \
        record.processId, record.threadId, std::strlen(record.text), record.text, std::strlen(record.who),   \
        record.who, record.slot.level, record.lis.argCount, example.first.first.width,                       \
        example.first.second.word, std::strlen(example.drive), static_cast<const char *>(example.drive)

size_t byCompiledFormat() {
    const zantLogMsgRec &record = example.record;
    return static_cast<size_t>(fmt::format_to(line, FMT_COMPILE(EXAMPLE_FORMAT), EXAMPLE_ARGUMENTS) - line);
}

size_t byRunTimeFormat() {
    const zantLogMsgRec &record = example.record;
    return static_cast<size_t>(fmt::format_to(line, fmt::runtime(EXAMPLE_FORMAT), EXAMPLE_ARGUMENTS) - line);
}

size_t byPrintf() {
    const zantLogMsgRec &record = example.record;
    const int length = std::snprintf(
        line, sizeof line,
        "%" PRIu32 ",%" PRIu32 ",%" PRIu32 ",%" PRIu32 ",%" PRIu32 ",%" PRIu64 ",%" PRIu32 ",%" PRIu32
        ",0:,%u:%s,%u:%s,%d,(%" PRIu32 "|u%u:%" PRIu64 "|S%u:%s|)\n",
        record.type, record.productId, record.originatorId, record.fid, record.sequence, record.timestamp,
        record.processId, record.threadId, static_cast<unsigned>(std::strlen(record.text)), record.text,
        static_cast<unsigned>(std::strlen(record.who)), record.who, record.slot.level, record.lis.argCount,
        unsigned{example.first.first.width}, example.first.second.word,
        static_cast<unsigned>(std::strlen(example.drive)), example.drive);
    return static_cast<size_t>(length);
}

void check(const char *who, size_t length) {
    if (length != kExpectedLength || std::memcmp(line, kExpected, kExpectedLength) != 0)
        fail(who);
}

void checkAll() {
    check("by hand", byHand());
    check("compiled format", byCompiledFormat());
    check("run-time format", byRunTimeFormat());
    check("snprintf", byPrintf());
    if (zantLogMsgSerialize(&example.record, &buffer) != 0)
        fail("library");
    std::memcpy(line, buffer.data, kExpectedLength);
    check("library", static_cast<size_t>(buffer.capacity - buffer.free));
    free_text_msg(&buffer);
}

template <typename Work> bench::Contender repeat(const char *name, Work work) {
    return bench::Contender(name, [work](uint32_t calls) {
        for (uint32_t call = 0; call < calls; ++call) {
            work();
            asm volatile("" ::: "memory");
        }
    });
}

} // namespace

int main() {
    checkAll();
    std::vector<bench::Contender> contenders;
    contenders.push_back(repeat("digits by hand, with bounds checks", byHand));
    contenders.push_back(repeat("zantLogMsgSerialize", byLibrary));
    contenders.push_back(repeat("fmt::format_to, compiled format", byCompiledFormat));
    contenders.push_back(repeat("fmt::format_to, run-time format", byRunTimeFormat));
    contenders.push_back(repeat("snprintf", byPrintf));
    bench::race(contenders, 201, 2000);
    bench::print("one record line of 83 bytes", contenders);
    return 0;
}
