#include "tools/qzlogview/sequence_check.h"

#include "zantlog/serialization.h"

namespace zantlog::view {

namespace {

// Numbers in a row behind a gap that show that it is one.
constexpr uint32_t kConvincing = 3;

// Handles of one writer that are followed at a time: those that came first have long been closed.
constexpr size_t kMostChains = 64;

std::string numbersText(uint32_t first, uint32_t last) {
    return first == last ? "number " + std::to_string(first) + " is"
                         : "numbers " + std::to_string(first) + " to " + std::to_string(last) + " are";
}

std::string writerText(const Record &record) {
    return " (process " + std::to_string(record.fields.processId) + ", originator " +
           std::to_string(record.fields.originatorId) + ")";
}

} // namespace

std::optional<std::string> SequenceCheck::add(const Record &record) {
    if (record.fields.formatVersion < ZANTLOG_FORMAT_PRODUCT) {
        return std::nullopt; // they have no numbers
    }
    const Writer writer = {record.fields.productId, record.fields.originatorId,
                           record.fields.fid,       record.fields.processId,
                           record.source->logSet,   std::string(record.contextToken())};
    std::vector<Chain> &chains = writers_[writer];
    const uint32_t number = record.fields.sequence;
    for (Chain &chain : chains) {
        if (number == chain.expected || (chain.inBetween > 0 && number == chain.expected + chain.inBetween)) {
            chain = {number + 1};
            return std::nullopt;
        }
    }
    // A context is written again after a rollover, with the number that it had.
    if (record.type() == ZANTLOG_MSG_CONTEXT && !chains.empty()) {
        return std::nullopt;
    }
    if (chains.empty() || number == 1) {
        if (chains.size() == kMostChains) {
            chains.erase(chains.begin());
        }
        chains.push_back({number + 1});
        return std::nullopt;
    }
    return follow(&chains, number, record);
}

std::optional<std::string> SequenceCheck::follow(std::vector<Chain> *chains, uint32_t number,
                                                 const Record &record) {
    Chain &chain = chains->back();
    ++chain.inBetween;
    const bool goesOn = chain.otherCount > 0 && number == chain.otherBegin + chain.otherCount;
    chain.otherBegin = goesOn ? chain.otherBegin : number;
    chain.otherCount = goesOn ? chain.otherCount + 1 : 1;
    if (chain.otherCount < kConvincing) {
        return std::nullopt;
    }
    const uint32_t expected = chain.expected;
    const uint32_t begin = chain.otherBegin;
    chain = {number + 1};
    if (begin > expected) {
        return "before number " + std::to_string(begin) + " " + numbersText(expected, begin - 1) +
               " not there" + writerText(record);
    }
    return "numbers from " + std::to_string(begin) + " on have come before" + writerText(record);
}

} // namespace zantlog::view
