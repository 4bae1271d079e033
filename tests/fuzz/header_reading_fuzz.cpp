// Any bytes are read as a log file's header, and the records behind it.
#include <cstring>
#include <memory>

#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "tests/sim/files.h"
#include "zantlog/reader.h"
#include "zantlog/results.h"

namespace {

using namespace zantlog;

void expectCleared(const LogFileHeader &header) {
    LogFileHeader cleared{};
    cleared.tzOffset = -1;
    fuzz::expectEqual(header.version, 0, "no version");
    fuzz::expectEqual(header.tzOffset, -1, "no offset");
    fuzz::expect(std::memcmp(header.text, cleared.text, sizeof cleared.text) == 0, "no text");
}

void expectParsed(const LogFileHeader &header, const std::string &line) {
    fuzz::expect(line.find("$Header") != std::string::npos, "a header begins with its tag");
    fuzz::expect(header.version >= ZANTLOG_FORMAT_OLDEST && header.version <= ZANTLOG_FORMAT_LOGSET,
                 "the version is one of the known ones");
    const size_t length = strnlen(header.text, sizeof header.text);
    fuzz::expect(length < sizeof header.text, "the text is terminated");
    for (size_t i = 0; i < length; ++i) {
        fuzz::expect(std::strchr(" \t\n\v\f\r", header.text[i]) == nullptr, "the text has no blanks");
    }
    if (header.version == ZANTLOG_FORMAT_LOGSET) {
        fuzz::expectEqual(header.productId, 0, "a log set's header has no product");
        fuzz::expectEqual(header.startTime, 0, "a log set's header has no time");
    }
    if (header.version < ZANTLOG_FORMAT_PRODUCT) {
        fuzz::expectEqual(header.tzOffset, -1, "an old header has no offset");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    const std::string bytes = input.rest();
    const std::string path = fuzz::path("any.log");
    sim::putFile(path, bytes);

    const auto entry = std::make_unique<LogFileEntry>();
    fuzz::expectEqual(zantLogOs_open(&entry->file, path.c_str(), ZANTLOG_OPEN_READ, nullptr), 0,
                      "it is opened");
    LogFileHeader header;
    std::memset(&header, 0xA5, sizeof header);
    const uint32_t result = ReadHeaderEx(&entry->file, &header);
    const size_t lineEnd = bytes.find('\n');
    if (result == ZANTLOG_OK) {
        expectParsed(header, bytes.substr(0, lineEnd));
    } else {
        fuzz::expect(result == 1 || result == 48, "no header, or not one of ours");
    }
    if (lineEnd == std::string::npos) {
        fuzz::expectEqual(result, 1, "without a whole line there is no header");
        expectCleared(header);
    } else {
        // The record behind it is the next line.
        text_msg buffer;
        init_text_msg(&buffer);
        const bool another = bytes.find('\n', lineEnd + 1) != std::string::npos;
        fuzz::expectEqual(readrecord(&entry->file, &buffer), another ? 1 : 0, "the next line is a record");
        free_text_msg(&buffer);
    }
    zantLogOs_close(&entry->file);

    fuzz::expectEqual(zantLogOs_open(&entry->file, path.c_str(), ZANTLOG_OPEN_READ, nullptr), 0, "and again");
    LogFileHeader again;
    std::memset(&again, 0x5A, sizeof again);
    fuzz::expectEqual(ReadHeader(entry.get(), &again), result, "both ways of reading agree");
    fuzz::expectEqual(again.version, header.version, "on the version");
    fuzz::expectEqual(again.productId, header.productId, "on the product");
    fuzz::expectEqual(again.startTime, header.startTime, "on the time");
    fuzz::expectEqual(again.tzOffset, header.tzOffset, "on the offset");
    if (result == ZANTLOG_OK) {
        fuzz::expectEqual(entry->version, header.version, "the entry has the version");
        fuzz::expectEqual(entry->tzOffset, header.tzOffset, "the entry has the offset");
    }
    zantLogOs_close(&entry->file);
    return 0;
}
