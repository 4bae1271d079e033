// What selecting log files costs as their number grows. The directory is in memory and gives its names at
// once, so that what is measured is the selection alone. Runs natively and under Wine.
#include <cstdlib>
#include <cstring>

#include "base/bounded_text.h"
#include "bench/timing.h"
#include "logfile/os/os_directory.h"
#include "zantlog/zantlog.h"

namespace {

// The directory: names of one product and originator, in the order of their numbers, and their times.
struct Directory {
    uint32_t files = 0;
    uint32_t next = 0;
    bool oneTime = false; // all files are of one second
};

Directory directory;

zantlog::os::SystemError giveNext(zantLogFindData *data) {
    if (directory.next == directory.files) {
        return zantlog::os::kErrorNoMoreFiles;
    }
    const uint32_t number = directory.next++;
    zantlog::BoundedText(data->name).text("12-3-16777343-251116-").number(number, 10).text(".log");
    constexpr uint64_t kSomeDay = 134067226000000000; // units of 100 ns since 1601
    // Some order that is not that of the listing.
    const uint64_t second = directory.oneTime ? 0 : (uint64_t{number} * 7919) % directory.files;
    const uint64_t units = kSomeDay + second * 10000000;
    data->creation = {static_cast<uint32_t>(units), static_cast<uint32_t>(units >> 32)};
    data->lastWrite = data->creation;
    return zantlog::os::kErrorNone;
}

} // namespace

namespace zantlog::os {

SystemError findFirst(const char * /*pattern*/, void **find, zantLogFindData *data) {
    directory.next = 0;
    *find = &directory;
    return giveNext(data);
}

SystemError findNext(void * /*find*/, zantLogFindData *data) {
    return giveNext(data);
}

void findClose(void * /*find*/) {}

} // namespace zantlog::os

namespace {

uint32_t selectOnce(QueryNode *query) {
    static zantLogCfg cfg{};
    cfg.productId = 12;
    cfg.originatorId = 3;
    std::strcpy(cfg.logDirectory, "C:\\logs\\");
    zantLogCfg *array[] = {&cfg};
    LogFindContext context{0, nullptr, nullptr, query};
    (void)GetLogFiles(array, 1, &context);
    uint32_t count = 0;
    while (context.head != nullptr) {
        LogFileEntry *next = context.head->next;
        zantLogFree(context.head);
        context.head = next;
        ++count;
    }
    return count;
}

double medianOf(uint32_t files, uint32_t expected, QueryNode *query) {
    directory.files = files;
    const uint32_t rounds = files > 20000 ? 5 : 15;
    std::vector<bench::Contender> contenders;
    contenders.emplace_back("selection", [=](uint32_t) {
        if (selectOnce(query) != expected) {
            std::fprintf(stderr, "the selection is not whole\n");
            std::exit(1);
        }
    });
    bench::race(contenders, rounds, 1);
    return contenders.front().medianNanoseconds();
}

void grow(const char *title, bool oneTime, QueryNode *query, bool keepsAll) {
    directory.oneTime = oneTime;
    std::printf("%s\n", title);
    double before = 0;
    for (const uint32_t files : {1000u, 2000u, 4000u, 8000u, 16000u, 32000u, 64000u, 100000u}) {
        const double spent = medianOf(files, keepsAll ? files : 0, query);
        std::printf("  %6u files %10.2f ms %8.0f ns a file", files, spent / 1e6, spent / files);
        if (before != 0 && files != 100000u) {
            std::printf("  %5.2f x for twice as many", spent / before);
        }
        std::printf("\n");
        before = spent;
    }
}

} // namespace

int main() {
    grow("all files, each of a second of its own", false, nullptr, true);
    grow("all files, all of one second", true, nullptr, true);
    // Time after 2001 and product 12 and originator 4: the last makes it false of every file.
    QueryNode terms[] = {
        {259, 0, 269, nullptr, nullptr, nullptr}, {258, 0, 1000000000, nullptr, nullptr, nullptr},
        {259, 0, 263, nullptr, nullptr, nullptr}, {258, 0, 12, nullptr, nullptr, nullptr},
        {259, 0, 265, nullptr, nullptr, nullptr}, {258, 0, 4, nullptr, nullptr, nullptr}};
    QueryNode later{284, 0, 0, nullptr, &terms[0], &terms[1]};
    QueryNode product{287, 0, 0, nullptr, &terms[2], &terms[3]};
    QueryNode originator{287, 0, 0, nullptr, &terms[4], &terms[5]};
    QueryNode both{281, 0, 0, nullptr, &later, &product};
    QueryNode root{281, 0, 0, nullptr, &both, &originator};
    grow("no file, after a query of five operators for each", false, &root, false);
    return 0;
}
