#include "tools/qzlogview/log_file.h"

#include <utility>

#include "tools/common/ascii.h"
#include "tools/common/code_page.h"
#include "zantlog/results.h"

namespace zantlog::view {

namespace {

// "12-night-251115101010.log" of a log set's file.
void takeFromName(Source *source) {
    const size_t slash = source->path.find_last_of("\\/");
    const std::string name = source->path.substr(slash == std::string::npos ? 0 : slash + 1);
    const size_t first = name.find('-');
    const size_t second = first == std::string::npos ? first : name.find('-', first + 1);
    if (second == std::string::npos) {
        return;
    }
    const auto product = tools::wholeNumber(std::string_view(name).substr(0, first));
    if (product && *product <= UINT32_MAX) {
        source->header.productId = static_cast<uint32_t>(*product);
        source->logSet = name.substr(first + 1, second - first - 1);
    }
}

} // namespace

bool LogFile::open(const std::string &path) {
    close();
    file_ = std::make_unique<zantLogOsFile>();
    init_text_msg(&buffer_);
    offset_ = lineOffset_ = 0;
    if (zantLogOs_open(file_.get(), tools::codePageFromUtf8(path).c_str(), ZANTLOG_OPEN_READ, nullptr) !=
        ZANTLOG_OS_OK) {
        file_.reset();
        return false;
    }
    return true;
}

void LogFile::close() {
    if (file_ == nullptr) {
        return;
    }
    zantLogOs_close(file_.get());
    file_.reset();
    free_text_msg(&buffer_);
    init_text_msg(&buffer_);
    length_ = 0;
}

uint32_t LogFile::readHeader(LogFileHeader *header) {
    if (!seek(0)) {
        return ZANTLOG_FAILURE;
    }
    const uint32_t result = ReadHeaderEx(file_.get(), header);
    // The header's line once more, for its length.
    if (seek(0) && next() == LineState::line && result != ZANTLOG_OK && !line().starts_with("$Header")) {
        // A file without a header begins with a record, or what was one.
        (void)seek(0);
    }
    return result;
}

void LogFile::clearLine() {
    // A long line's heap block goes; a short one needs none.
    if (buffer_.capacity > ZANTLOG_TEXT_INLINE) {
        free_text_msg(&buffer_);
        init_text_msg(&buffer_);
    } else {
        buffer_.free = buffer_.capacity;
    }
    length_ = 0;
}

LineState LogFile::next() {
    clearLine();
    const int32_t result = readrecord(file_.get(), &buffer_);
    if (result == 1) {
        const uint64_t bytes = buffer_.capacity - buffer_.free; // with the line feed
        lineOffset_ = offset_;
        offset_ += bytes;
        length_ = static_cast<size_t>(bytes - 1);
        return LineState::line;
    }
    const bool partial = buffer_.free != buffer_.capacity;
    clearLine();
    // What has been read of an unfinished line is read again when there is more.
    if (result == 0 && partial && !seek(offset_)) {
        return LineState::failed;
    }
    return result == 0 ? LineState::end : LineState::failed;
}

bool LogFile::seek(uint64_t offset) {
    offset_ = lineOffset_ = offset;
    return zantLogOs_seek(file_.get(), offset) == ZANTLOG_OS_OK;
}

uint64_t LogFile::size() {
    uint32_t size = 0;
    return zantLogOs_fsize(file_.get(), &size) == ZANTLOG_OS_OK ? size : 0;
}

uint32_t readSource(LogFile *file, Source *source) {
    if (!file->open(source->path)) {
        return ZANTLOG_FILE_NOT_OPENED;
    }
    const uint32_t result = file->readHeader(&source->header);
    source->size = file->size();
    if (result != ZANTLOG_OK) {
        return result;
    }
    if (source->header.version == ZANTLOG_FORMAT_LOGSET) {
        takeFromName(source);
    }
    Record first;
    while (file->next() == LineState::line) {
        if (parseLine(*source, file->line(), file->lineOffset(), &first) == ZANTLOG_OK) {
            source->firstTime = first.fields.timestamp;
            break;
        }
    }
    return result;
}

uint32_t parseLine(const Source &source, std::string_view line, uint64_t offset, Record *record) {
    constexpr uint64_t kMilliseconds = 1000;
    zantLogFreeMsg(&record->fields);
    record->source = &source;
    record->offset = offset;
    const uint32_t result = zantLogParseRecord(&source.header, line.data(), line.size(), &record->fields);
    if (result != ZANTLOG_OK) {
        return result;
    }
    if (source.header.version == ZANTLOG_FORMAT_LOGSET) {
        record->fields.productId = source.header.productId;
    } else if (source.header.version < ZANTLOG_FORMAT_PRODUCT) {
        // These records have no time of their own; the file's is the nearest.
        record->fields.timestamp = static_cast<uint64_t>(source.header.startTime) * kMilliseconds;
    }
    return ZANTLOG_OK;
}

} // namespace zantlog::view
