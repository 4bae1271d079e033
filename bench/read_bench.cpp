// What taking the records out of a log file costs, against a bare split of the same blocks into lines. The
// file is in memory, so that the reading of blocks, which both need, weighs little. Runs natively and under
// Wine.
#include <bit>
#include <cstdlib>
#include <cstring>
#include <string>

#include "base/byte_scan.h"
#include "bench/timing.h"
#include "zantlog/reader.h"

namespace {

std::string stored; // the log file
size_t offset = 0;  // of its next block
zantLogOsFile file;

} // namespace

// The file layer's read, from memory.
int32_t zantLogOs_read(zantLogOsFile *reading, void *buffer, uint32_t count) {
    const size_t taken = std::min<size_t>(count, stored.size() - offset);
    std::memcpy(buffer, stored.data() + offset, taken);
    offset += taken;
    reading->position = taken != 0 ? 0 : -1;
    reading->length = static_cast<int32_t>(taken);
    return static_cast<int32_t>(taken);
}

namespace {

struct Totals {
    uint64_t records = 0;
    uint64_t bytes = 0; // of the records, without their ends

    bool operator==(const Totals &) const = default;
};

void makeFile(size_t recordLength) {
    stored.clear();
    while (stored.size() < 32u << 20) {
        // Lengths vary about the wanted one, and some records have line breaks inside.
        std::string record(recordLength * 3 / 4 + (stored.size() / 7) % (recordLength / 2), 'r');
        if (stored.size() % 5 == 0)
            record[record.size() / 2] = '\r';
        stored += record + "\n";
    }
}

Totals byLibrary() {
    Totals totals;
    offset = 0;
    file.position = -1;
    text_msg buffer;
    init_text_msg(&buffer);
    while (readrecord(&file, &buffer) == 1) {
        ++totals.records;
        totals.bytes += buffer.capacity - buffer.free - 1;
        free_text_msg(&buffer);
    }
    free_text_msg(&buffer);
    return totals;
}

// The floor: carriage returns are translated where they stand, lines are found sixteen bytes at a time and
// handed out where they lie; nothing is copied.
Totals bySplit() {
    Totals totals;
    offset = 0;
    uint64_t begun = 0; // bytes of a line that an earlier block began
    const __m128i lineFeeds = _mm_set1_epi8('\n');
    while (zantLogOs_read(&file, file.buffer, sizeof file.buffer) > 0) {
        const auto length = static_cast<size_t>(file.length);
        zantlog::replaceByte(file.buffer, length, '\v', '\f'); // costs what the translation costs
        size_t lineStart = 0;
        for (size_t at = 0; at < length; at += 16) {
            const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(file.buffer + at));
            auto ends = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, lineFeeds)));
            if (length - at < 16)
                ends &= (1u << (length - at)) - 1;
            for (; ends != 0; ends &= ends - 1) {
                const size_t end = at + static_cast<size_t>(std::countr_zero(ends));
                ++totals.records;
                totals.bytes += begun + end - lineStart;
                begun = 0;
                lineStart = end + 1;
            }
        }
        begun += length - lineStart;
    }
    return totals;
}

template <typename Work> bench::Contender repeat(const char *name, Work work) {
    return bench::Contender(name, [work](uint32_t calls) {
        for (uint32_t call = 0; call < calls; ++call) {
            volatile uint64_t kept = work().bytes;
            static_cast<void>(kept);
        }
    });
}

void raceOver(size_t recordLength) {
    makeFile(recordLength);
    const Totals expected = bySplit();
    if (!(byLibrary() == expected)) {
        std::fprintf(stderr, "the reader and the split disagree\n");
        std::exit(1);
    }
    std::vector<bench::Contender> contenders;
    contenders.push_back(repeat("lines split where they lie", bySplit));
    contenders.push_back(repeat("readrecord", byLibrary));
    bench::race(contenders, 41, 1);
    const std::string title = "reading 32 MiB of records of about " + std::to_string(recordLength) + " bytes";
    bench::print(title.c_str(), contenders);
    for (const bench::Contender &contender : contenders) {
        std::printf("  %-44s %10.0f MB/s\n", contender.name().c_str(),
                    static_cast<double>(stored.size()) * 1000 / contender.medianNanoseconds());
    }
}

} // namespace

int main() {
    for (const size_t recordLength : {83u, 200u, 1000u}) {
        raceOver(recordLength);
    }
    return 0;
}
