// What a query costs for each file of a directory, against the same condition written out in C++. Runs
// natively and under Wine.
#include <cstdlib>
#include <deque>
#include <string_view>
#include <vector>

#include "bench/timing.h"
#include "reader/query.h"
#include "zantlog/query.h"

namespace {

using zantlog::FileLevelFields;

constexpr uint32_t kSince = 1763253000;
constexpr uint32_t kFiles = 1024;

std::vector<FileLevelFields> files;
std::deque<QueryNode> nodes;

void makeFiles() {
    for (uint32_t number = 0; number < kFiles; ++number) {
        const int64_t created = int64_t{kSince} + (number * 37 % kFiles) - kFiles / 2;
        files.push_back({.productId = 1 + number % 9,
                         .originatorId = 1 + number % 5,
                         .headerText = number % 2 != 0 ? "hostA" : "hostB",
                         .logSetFileName = nullptr,
                         .creationTime = created,
                         .lastWriteTime = created + 60});
    }
}

QueryNode *node(const QueryNode &content) {
    return &nodes.emplace_back(content);
}

QueryNode *join(int32_t operatorCode, QueryNode *left, QueryNode *right) {
    return node({operatorCode, 0, 0, nullptr, left, right});
}

QueryNode *compare(uint32_t field, int32_t operatorCode, const QueryNode &literal) {
    return join(operatorCode, node({ZANTLOG_QUERY_FIELD, 0, field, nullptr, nullptr, nullptr}),
                node(literal));
}

QueryNode *compare(uint32_t field, int32_t operatorCode, uint32_t value) {
    return compare(field, operatorCode, {ZANTLOG_QUERY_NUMBER, 0, value, nullptr, nullptr, nullptr});
}

QueryNode *compare(uint32_t field, int32_t operatorCode, const char *text) {
    return compare(field, operatorCode, {ZANTLOG_QUERY_STRING, 0, 0, text, nullptr, nullptr});
}

// Calls the condition for each file, as the selection does: nothing is known of the next file.
template <typename Condition> uint32_t countMatches(Condition condition) {
    uint32_t count = 0;
    for (const FileLevelFields &file : files) {
        const FileLevelFields *opaque = &file;
        asm volatile("" : "+r"(opaque)::"memory");
        count += condition(*opaque) ? 1 : 0;
    }
    return count;
}

template <typename Condition> bench::Contender passes(const char *name, Condition condition) {
    return bench::Contender(name, [condition](uint32_t calls) {
        for (uint32_t done = 0; done < calls; done += kFiles) {
            volatile uint32_t kept = countMatches(condition);
            static_cast<void>(kept);
        }
    });
}

template <typename Condition> void raceAgainst(const char *title, QueryNode *query, Condition byHand) {
    const auto byTree = [query](const FileLevelFields &file) { return zantlog::fileMatches(query, file); };
    const uint32_t expected = countMatches(byHand);
    if (countMatches(byTree) != expected || expected == 0 || expected == kFiles) {
        std::fprintf(stderr, "%s: the tree and the condition disagree, or decide nothing\n", title);
        std::exit(1);
    }
    std::vector<bench::Contender> contenders;
    contenders.push_back(passes("condition written out", byHand));
    contenders.push_back(passes("query tree", byTree));
    bench::race(contenders, 41, 16 * kFiles);
    bench::print(title, contenders);
}

QueryNode *ofProduct() {
    return compare(ZANTLOG_QUERY_PRODUCT, ZANTLOG_QUERY_EQUAL, 7u);
}

QueryNode *sinceThen() {
    return compare(ZANTLOG_QUERY_TIME, ZANTLOG_QUERY_GREATER_OR_EQUAL, kSince);
}

bool isSince(const FileLevelFields &file) {
    return static_cast<uint32_t>(file.creationTime) >= kSince ||
           static_cast<uint32_t>(file.lastWriteTime) >= kSince;
}

// A product of a list of a hundred, all but one of which no file has: 199 operators, the most there can be.
QueryNode *oneOfAHundred() {
    QueryNode *query = ofProduct();
    for (uint32_t other = 1000; other < 1099; ++other) {
        query = join(ZANTLOG_QUERY_OR, query, compare(ZANTLOG_QUERY_PRODUCT, ZANTLOG_QUERY_EQUAL, other));
    }
    return query;
}

bool isOneOfAHundred(const FileLevelFields &file) {
    bool any = file.productId == 7;
    for (uint32_t other = 1000; other < 1099; ++other) {
        any |= file.productId == other;
        asm volatile("" : "+r"(any)); // one comparison after the other, as they stand in the tree
    }
    return any;
}

} // namespace

int main() {
    makeFiles();
    raceAgainst("1 operator: product == 7, per file", ofProduct(),
                [](const FileLevelFields &file) { return file.productId == 7; });
    raceAgainst("3 operators: product == 7 and time >= T, per file",
                join(ZANTLOG_QUERY_AND, ofProduct(), sinceThen()),
                [](const FileLevelFields &file) { return file.productId == 7 && isSince(file); });
    raceAgainst("7 operators: product, originator, time and host, per file",
                join(ZANTLOG_QUERY_AND,
                     join(ZANTLOG_QUERY_AND, ofProduct(),
                          compare(ZANTLOG_QUERY_FILE_ORIGINATOR, ZANTLOG_QUERY_LESS, 4u)),
                     join(ZANTLOG_QUERY_AND, sinceThen(),
                          compare(ZANTLOG_QUERY_HEADER_TEXT, ZANTLOG_QUERY_EQUAL, "hostA"))),
                [](const FileLevelFields &file) {
                    return file.productId == 7 && file.originatorId < 4 && isSince(file) &&
                           std::string_view(file.headerText) == "hostA";
                });
    raceAgainst("199 operators: a product of a list, per file", oneOfAHundred(), isOneOfAHundred);
    return 0;
}
