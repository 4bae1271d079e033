// What showing the messages of many log files costs: a merge of all, against taking their lines out alone;
// and the time until the last ten are there. The files are in memory. Natively only: the file functions below
// stand in the place of the system's.
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "logfile/os/os_file.h"
#include "tools/qzlogview/merge.h"
#include "tools/qzlogview/printer.h"
#include "tools/qzlogview/tail.h"
#include "zantlog/results.h"

namespace {

std::map<std::string, std::string> stored; // files by their paths

struct OpenedFile {
    const std::string *bytes;
    uint64_t position;
};

} // namespace

namespace zantlog::os {

SystemError openFile(const char *path, FileMode, const char *, void **file) {
    const auto found = stored.find(path);
    if (found == stored.end()) {
        return kErrorFileNotFound;
    }
    *file = new OpenedFile{&found->second, 0};
    return kErrorNone;
}

void closeFile(void *file) {
    delete static_cast<OpenedFile *>(file);
}

SystemError seekToEnd(void *file, uint64_t *position) {
    auto *opened = static_cast<OpenedFile *>(file);
    *position = opened->position = opened->bytes->size();
    return kErrorNone;
}

SystemError seekTo(void *file, uint64_t position) {
    static_cast<OpenedFile *>(file)->position = position;
    return kErrorNone;
}

SystemError readFile(void *file, void *buffer, uint32_t count, uint32_t *read) {
    auto *opened = static_cast<OpenedFile *>(file);
    const uint64_t left = opened->bytes->size() - std::min<uint64_t>(opened->position, opened->bytes->size());
    *read = static_cast<uint32_t>(std::min<uint64_t>(left, count));
    std::memcpy(buffer, opened->bytes->data() + opened->position, *read);
    opened->position += *read;
    return kErrorNone;
}

SystemError fileSize(void *file, uint64_t *size) {
    *size = static_cast<OpenedFile *>(file)->bytes->size();
    return kErrorNone;
}

// Nothing is written here.
SystemError writeFile(void *, const void *, uint32_t, uint32_t *) {
    return kErrorAccessDenied;
}
SystemError truncateFile(void *, uint64_t) {
    return kErrorAccessDenied;
}
void stampLastWrite(void *) {}
SystemError deleteFile(const char *) {
    return kErrorAccessDenied;
}
SystemError copyFile(const char *, const char *) {
    return kErrorAccessDenied;
}
SystemError replaceFile(const char *, const char *) {
    return kErrorAccessDenied;
}
SystemError createDirectory(const char *, const char *) {
    return kErrorAccessDenied;
}
SystemError fileStatus(const char *, FileStatus *) {
    return kErrorAccessDenied;
}

} // namespace zantlog::os

namespace {

using namespace zantlog::view;

constexpr size_t kFiles = 100;
constexpr size_t kFileSize = 1 << 20;

// Application messages of about 120 bytes, in files whose times overlap; some have arguments, some neighbours
// are out of order.
uint64_t makeFiles() {
    uint64_t total = 0;
    for (size_t file = 0; file < kFiles; ++file) {
        std::string bytes = "$Header 65543,12,3,1763249000,-3600,buildhost\n";
        uint64_t now = 1763249000000 + file;
        for (uint32_t number = 1; bytes.size() < kFileSize; ++number) {
            now += 3 + (number * 7919 + file * 31) % 100;
            const std::string text = "request " + std::to_string(number * 977 + file) +
                                     " was served, and its answer went back to the client in time";
            bytes += "2,12,3,3," + std::to_string(number) + "," + std::to_string(now - number % 5) + "," +
                     std::to_string(4000 + file % 8) + ",777,0:," + std::to_string(text.size()) + ":" + text +
                     ",6:server," + std::to_string(number % 3) +
                     (number % 4 == 0 ? ",(2|u32:5|S2:C:|)\n" : ",(0|)\n");
        }
        total += bytes.size();
        stored["C:\\logs\\" + std::to_string(1000 + file) + ".log"] = std::move(bytes);
    }
    return total;
}

std::vector<Source> openSources() {
    std::vector<Source> sources;
    for (const auto &[path, bytes] : stored) {
        Source source;
        source.path = path;
        LogFile file;
        if (readSource(&file, &source) == ZANTLOG_OK) {
            sources.push_back(std::move(source));
        }
    }
    return sources;
}

const RecordFilter kEvery;
const DamageSink kDamage = [](const Damage &damage) { std::printf("damage: %s\n", damage.what.c_str()); };

uint64_t readLines(const std::vector<Source> &sources, bool parsed) {
    uint64_t records = 0;
    Record record;
    for (const Source &source : sources) {
        LogFile file;
        LogFileHeader header;
        if (!file.open(source.path) || file.readHeader(&header) != ZANTLOG_OK) {
            continue;
        }
        while (file.next() == LineState::line) {
            records += !parsed || parseLine(source, file.line(), file.lineOffset(), &record) == ZANTLOG_OK;
        }
    }
    return records;
}

uint64_t mergeAll(const std::vector<Source> &sources, Printer *printer) {
    uint64_t records = 0;
    std::string out;
    Look look(kUtc, nullptr);
    mergeFiles(sources, kEvery, kDamage, {}, [&](const Entry &entry) {
        ++records;
        if (printer != nullptr) {
            printer->print(entry, &look, &out);
            if (out.size() > 1 << 16) {
                out.clear(); // where it would be written
            }
        }
        return true;
    });
    return records;
}

template <typename Work> double secondsOf(Work work) {
    double best = 1e9;
    for (int round = 0; round < 5; ++round) {
        const auto begun = std::chrono::steady_clock::now();
        work();
        best =
            std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count());
    }
    return best;
}

// In kilobytes: the most memory that the process has had.
long peakMemory() {
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

} // namespace

int main() {
    const uint64_t bytes = makeFiles();
    const std::vector<Source> sources = openSources();
    const uint64_t records = readLines(sources, false);
    std::printf("%zu files, %.0f MB, %llu messages\n", sources.size(), static_cast<double>(bytes) / 1e6,
                static_cast<unsigned long long>(records));
    const long before = peakMemory();
    double floor = 0;
    const auto measure = [&](const char *name, const std::function<uint64_t()> &work) {
        const double seconds = secondsOf([&] {
            if (work() != records) {
                std::printf("%s: messages are missing\n", name);
            }
        });
        floor = floor == 0 ? seconds : floor;
        std::printf("  %-28s %8.1f MB/s  %6.2f x\n", name, static_cast<double>(bytes) / 1e6 / seconds,
                    seconds / floor);
    };
    measure("lines taken out", [&] { return readLines(sources, false); });
    measure("and taken apart", [&] { return readLines(sources, true); });
    measure("merged", [&] { return mergeAll(sources, nullptr); });
    struct Format {
        const char *name;
        PrinterOptions options;
    };
    for (const Format &format :
         {Format{"merged, compact", {OutputFormat::compact, {}, false}},
          Format{"merged, raw", {OutputFormat::raw, {}, false}},
          Format{"merged, csv of four fields", {OutputFormat::csv, {"time", "pid", "who", "text"}, false}},
          Format{"merged, json", {OutputFormat::json, {}, false}}}) {
        const std::unique_ptr<Printer> printer = makePrinter(format.options);
        measure(format.name, [&] { return mergeAll(sources, printer.get()); });
    }
    std::printf("peak memory above the files: %ld KB\n", peakMemory() - before);
    const double last = secondsOf([&] {
        std::vector<uint64_t> ends;
        if (lastRecords(openSources(), 10, kEvery, kDamage, &ends).size() != 10) {
            std::printf("the last ten are missing\n");
        }
    });
    std::printf("the last ten, headers read: %.2f ms\n", last * 1e3);
    return 0;
}
