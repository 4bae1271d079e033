#include "tools/qzlogview/file_reader.h"

#include "zantlog/results.h"

namespace zantlog::view {

SortKey keyOf(const Record &record) {
    return {record.fields.timestamp, record.fields.processId, record.fields.sequence};
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

EntryPointer FileReader::spare() {
    return spare_ != nullptr ? std::move(spare_) : std::make_unique<Entry>();
}

// Insertion from behind: records are nearly in order.
void FileReader::insert(EntryPointer entry) {
    auto place = window_.end();
    while (place != window_.begin() && entry->key < (*std::prev(place))->key) {
        --place;
    }
    window_.insert(place, std::move(entry));
}

// False at the end of the file.
bool FileReader::readOne() {
    const LineState state = file_.next();
    offset_ = file_.offset();
    if (state != LineState::line) {
        if (state == LineState::failed) {
            (*damage_)({source_->path, offset_, "the file cannot be read any further", true});
        }
        return false;
    }
    EntryPointer entry = spare();
    if (parseLine(*source_, file_.line(), file_.lineOffset(), &entry->record) != ZANTLOG_OK) {
        (*damage_)({source_->path, file_.lineOffset(), "the line is no record"});
        spare_ = std::move(entry);
        return true;
    }
    if (!(*filter_)(entry->record)) {
        spare_ = std::move(entry);
        return true;
    }
    entry->key = keyOf(entry->record);
    entry->line.assign(file_.line());
    insert(std::move(entry));
    return true;
}

void FileReader::fill() {
    while (!atEnd_ && window_.size() < windowSize_ && open()) {
        if (!readOne()) {
            atEnd_ = true;
            file_.close();
        }
    }
}

const Entry *FileReader::front() {
    if (window_.size() < windowSize_ && !atEnd_) {
        fill();
    }
    return window_.empty() ? nullptr : window_.front().get();
}

EntryPointer FileReader::take() {
    if (front() == nullptr) {
        return nullptr;
    }
    EntryPointer entry = std::move(window_.front());
    window_.pop_front();
    return entry;
}

} // namespace zantlog::view
