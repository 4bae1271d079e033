#include "tools/qzlogview/report/record_block.h"

#include <iterator>

#include "tools/qzlogview/report/argument_json.h"
#include "tools/qzlogview/report/json_text.h"

namespace zantlog::view {

namespace {

constexpr size_t kMaxRecords = 4096;
constexpr size_t kMaxTextBytes = 1 << 20;
constexpr int32_t kNoZone = -1; // of LogFileHeader::tzOffset

// In the order in which add() puts their values.
constexpr const char *kColumnNames[] = {"time",    "type",    "level",     "originator", "fid",   "sequence",
                                        "process", "thread",  "token",     "text",       "who",   "context",
                                        "outcome", "message", "arguments", "file",       "offset"};

void append(std::string *list, const std::string &item) {
    if (!list->empty()) {
        *list += ',';
    }
    *list += item;
}

std::string fileJson(const Source *source) {
    if (source == nullptr) {
        return R"(["","","",null])";
    }
    // The host's name fills its field when it is long.
    const LogFileHeader &header = source->header;
    const std::string_view host(header.text, std::size(header.text));
    // The header counts west of Greenwich.
    const std::string zone = header.tzOffset == kNoZone ? "null" : std::to_string(-int64_t{header.tzOffset});
    return "[" + jsonText(source->path) + "," + jsonText(host.substr(0, host.find('\0'))) + "," +
           jsonText(source->logSet) + "," + zone + "]";
}

bool isAudit(uint32_t type) {
    return type == ZANTLOG_MSG_AUDIT || type == ZANTLOG_MSG_SECURE_AUDIT;
}

} // namespace

void RecordBlock::add(const Record &record) {
    const zantLogMsgRec &fields = record.fields;
    uint32_t message = 0;
    (void)zantLisGetTextId(&fields.lis, &message);
    const uint32_t outcome = isAudit(fields.type) ? fields.outcome : 0;

    const std::string values[] = {
        std::to_string(fields.timestamp),
        std::to_string(fields.type),
        std::to_string(record.level()),
        std::to_string(originator(fields.productId, fields.originatorId)),
        std::to_string(fields.fid),
        std::to_string(fields.sequence),
        std::to_string(fields.processId),
        std::to_string(fields.threadId),
        std::to_string(text(std::string(record.contextToken()))),
        std::to_string(text(std::string(record.text()))),
        std::to_string(text(std::string(record.who()))),
        std::to_string(text(std::string(record.contextString()))),
        std::to_string(outcome),
        std::to_string(message),
        std::to_string(text(argumentJson(fields.lis))),
        std::to_string(file(record.source)),
        std::to_string(record.offset),
    };
    static_assert(std::size(values) == kColumns && std::size(kColumnNames) == kColumns);
    for (size_t i = 0; i < kColumns; ++i) {
        put(i, values[i], records_ == 0);
    }
    ++records_;
}

void RecordBlock::put(size_t column, const std::string &value, bool isFirst) {
    Column &to = columns_[column];
    to.uniform = isFirst || (to.uniform && to.last == value);
    to.last = value;
    append(&to.values, value);
}

bool RecordBlock::isFull() const {
    return records_ >= kMaxRecords || texts_.size() >= kMaxTextBytes;
}

size_t RecordBlock::text(std::string text) {
    const auto [at, isNew] = textPlaces_.emplace(std::move(text), textPlaces_.size());
    if (isNew) {
        append(&texts_, jsonText(at->first));
    }
    return at->second;
}

size_t RecordBlock::file(const Source *source) {
    const auto [at, isNew] = filePlaces_.emplace(source, filePlaces_.size());
    if (isNew) {
        append(&files_, fileJson(source));
    }
    return at->second;
}

size_t RecordBlock::originator(uint32_t product, uint32_t originator) {
    const auto [at, isNew] =
        originatorPlaces_.emplace(std::pair(product, originator), originatorPlaces_.size());
    if (isNew) {
        append(&originators_, originatorJson(product, originator));
    }
    return at->second;
}

std::string RecordBlock::originatorJson(uint32_t product, uint32_t originator) const {
    const std::string productName = names_->product ? names_->product(product) : "";
    const std::string originatorName = names_->originator ? names_->originator(product, originator) : "";
    return "[" + std::to_string(product) + "," + std::to_string(originator) + "," + jsonText(productName) +
           "," + jsonText(originatorName) + "]";
}

std::string RecordBlock::take() {
    std::string json = "{\"records\":" + std::to_string(records_) + ",\"texts\":[" + texts_ +
                       "],\"files\":[" + files_ + "],\"originators\":[" + originators_ + "]";
    for (size_t i = 0; i < kColumns; ++i) {
        const Column &column = columns_[i];
        json += ",\"" + std::string(kColumnNames[i]) +
                "\":" + (column.uniform ? column.last : "[" + column.values + "]");
    }
    const ReportNames *names = names_;
    *this = RecordBlock(names);
    return json + "}";
}

} // namespace zantlog::view
