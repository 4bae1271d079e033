// Any bytes are taken apart as a record, or refused: what was taken apart becomes a line that is taken apart
// to the same. The first byte of an input is the version's.
#include <cstring>
#include <string>

#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "zantlog/reader.h"

namespace {

using namespace zantlog;

struct Parsed {
    Parsed(uint32_t version, const std::string &line) {
        LogFileHeader header = {};
        header.version = version;
        result = zantLogParseRecord(&header, line.data(), line.size(), &record);
    }
    ~Parsed() { zantLogFreeMsg(&record); }
    Parsed(const Parsed &) = delete;
    Parsed &operator=(const Parsed &) = delete;

    zantLogMsgRec record;
    uint32_t result;
};

// The record's line as a reader hands it out.
std::string lineOf(zantLogMsgRec *record) {
    text_msg buffer;
    fuzz::expectEqual(zantLogMsgSerialize(record, &buffer), 0u, "what was taken apart can be put together");
    std::string line(buffer.data, static_cast<size_t>(buffer.capacity - buffer.free) - 1);
    free_text_msg(&buffer);
    for (char &byte : line) {
        byte = byte == '\r' ? '\n' : byte;
    }
    return line;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    const uint32_t version = 65539 + input.byte() % 7u;
    Parsed first(version, input.rest());
    if (first.result != 0) {
        static const zantLogMsgRec kZero = {};
        fuzz::expectEqual(std::memcmp(&first.record, &kZero, sizeof kZero), 0,
                          "a refused line leaves nothing");
        return 0;
    }
    const std::string line = lineOf(&first.record);
    Parsed second(version, line);
    fuzz::expectEqual(second.result, 0u, "it is taken apart again");
    fuzz::expectEqual(lineOf(&second.record), line, "to the same");
    return 0;
}
