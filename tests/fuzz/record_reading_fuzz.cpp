// Any bytes are read record by record: the records are the file's lines. The first two bytes of an input put
// so many bytes before the rest, so that lines cross the ends of the blocks in which files are read.
#include <memory>

#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "tests/sim/files.h"
#include "zantlog/reader.h"

namespace {

using namespace zantlog;

// The lines that end in a line feed, with their ends; in a line a carriage return stands for a line feed.
std::string linesOf(const std::string &bytes) {
    std::string lines;
    std::string line;
    for (const char byte : bytes) {
        if (byte == '\n') {
            lines += line + '\0';
            line.clear();
        } else {
            line += byte == '\r' ? '\n' : byte;
        }
    }
    return lines;
}

std::string recordsOf(zantLogOsFile *file) {
    std::string records;
    int32_t result = 1;
    while (result == 1) {
        text_msg buffer;
        init_text_msg(&buffer);
        result = readrecord(file, &buffer);
        if (result == 1) {
            records.append(buffer.data, static_cast<size_t>(buffer.capacity - buffer.free));
        }
        free_text_msg(&buffer);
    }
    fuzz::expectEqual(result, 0, "reading ends at the end of the file");
    return records;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    const std::string before(input.number<uint16_t>(), 'x');
    const std::string bytes = before + input.rest();
    const std::string path = fuzz::path("any.log");
    sim::putFile(path, bytes);

    const auto file = std::make_unique<zantLogOsFile>();
    fuzz::expectEqual(zantLogOs_open(file.get(), path.c_str(), ZANTLOG_OPEN_READ, nullptr), 0,
                      "it is opened");
    fuzz::expectEqual(recordsOf(file.get()), linesOf(bytes), "the records are the lines");
    zantLogOs_close(file.get());
    return 0;
}
