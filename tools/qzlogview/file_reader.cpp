#include "tools/qzlogview/file_reader.h"

#include <charconv>

#include "zantlog/results.h"

namespace zantlog::view {

SortKey keyOf(const Record &record) {
    return {record.fields.timestamp, record.fields.processId, record.fields.sequence};
}

std::optional<SortKey> keyOfLine(const Source &source, std::string_view line) {
    // Fields before the sequence number, which time and process follow.
    size_t before = 0;
    if (source.header.version == ZANTLOG_FORMAT_PRODUCT) {
        before = 4;
    } else if (source.header.version == ZANTLOG_FORMAT_LOGSET) {
        before = 2;
    } else {
        return std::nullopt;
    }
    size_t at = 0;
    for (; before > 0; --before) {
        at = line.find(',', at);
        if (at == std::string_view::npos) {
            return std::nullopt;
        }
        ++at;
    }
    SortKey key{};
    const char *const end = line.data() + line.size();
    const char *from = line.data() + at;
    const auto take = [&](auto *number) {
        const auto [stop, error] = std::from_chars(from, end, *number);
        from = stop + 1;
        return error == std::errc{} && stop != end && *stop == ',';
    };
    const bool whole = take(&key.sequence) && take(&key.time) && take(&key.process);
    return whole ? std::optional(key) : std::nullopt;
}

bool FileReader::open() {
    if (file_.isOpen()) {
        return true;
    }
    if (!file_.open(source_->path)) {
        (*damage_)({source_->path, offset_, "the file cannot be opened", true});
        atEnd_ = true;
        return false;
    }
    if (!begun_) {
        LogFileHeader header;
        (void)file_.readHeader(&header); // to the first record; the source has it already
        offset_ = file_.offset();
        begun_ = true;
        return true;
    }
    if (!file_.seek(offset_)) {
        (*damage_)({source_->path, offset_, "the file cannot be read any further", true});
        atEnd_ = true;
    }
    return !atEnd_;
}

void FileReader::park() {
    file_.close();
}

// Insertion from behind: records are nearly in order.
void FileReader::insert(const SortKey &key) {
    WaitingPointer waiting = spare_ != nullptr ? std::move(spare_) : std::make_unique<Waiting>();
    waiting->key = key;
    waiting->offset = file_.lineOffset();
    waiting->line.assign(file_.line());
    auto place = window_.end();
    while (place != window_.begin() && key < (*std::prev(place))->key) {
        --place;
    }
    window_.insert(place, std::move(waiting));
}

// Of the line that has been read; nothing when it is damaged or not wanted.
std::optional<SortKey> FileReader::wantedKey() {
    if (!*filter_) {
        if (const auto key = keyOfLine(*source_, file_.line())) {
            return key;
        }
    }
    if (parseLine(*source_, file_.line(), file_.lineOffset(), &scratch_->record) != ZANTLOG_OK) {
        (*damage_)({source_->path, file_.lineOffset(), "the line is no record"});
        return std::nullopt;
    }
    return wants(*filter_, scratch_->record) ? std::optional(keyOf(scratch_->record)) : std::nullopt;
}

// False at the end of the file.
bool FileReader::readOne() {
    const LineState state = file_.next();
    offset_ = file_.offset();
    if (state == LineState::line) {
        if (const auto key = wantedKey()) {
            insert(*key);
        }
        return true;
    }
    if (state == LineState::failed) {
        (*damage_)({source_->path, offset_, "the file cannot be read any further", true});
    }
    return false;
}

void FileReader::fill() {
    while (!atEnd_ && window_.size() < windowSize_ && open()) {
        if (!readOne()) {
            atEnd_ = true;
            file_.close();
        }
    }
}

const SortKey *FileReader::front() {
    fill();
    return window_.empty() ? nullptr : &window_.front()->key;
}

bool FileReader::take() {
    spare_ = std::move(window_.front());
    window_.pop_front();
    scratch_->key = spare_->key;
    scratch_->line.swap(spare_->line);
    if (parseLine(*source_, scratch_->line, spare_->offset, &scratch_->record) != ZANTLOG_OK) {
        (*damage_)({source_->path, spare_->offset, "the line is no record"});
        return false;
    }
    return true;
}

} // namespace zantlog::view
