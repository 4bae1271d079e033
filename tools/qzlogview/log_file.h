// One log file that is read: its header and its lines, with their places.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tools/qzlogview/record.h"
#include "zantlog/reader.h"

namespace zantlog::view {

enum class LineState { line, end, failed };

class LogFile {
public:
    LogFile() = default;
    ~LogFile() { close(); }
    LogFile(const LogFile &) = delete;
    LogFile &operator=(const LogFile &) = delete;

    // The path is in UTF-8. False when the file cannot be opened.
    [[nodiscard]] bool open(const std::string &path);
    void close();
    [[nodiscard]] bool isOpen() const { return file_ != nullptr; }

    // Reads the header, and goes to the first record. A result of ReadHeaderEx().
    [[nodiscard]] uint32_t readHeader(LogFileHeader *header);

    // Takes the next whole line. A last line without its end is none yet: a later call finds it when it has
    // been written.
    [[nodiscard]] LineState next();
    [[nodiscard]] std::string_view line() const { return {buffer_.data, length_}; }
    [[nodiscard]] uint64_t lineOffset() const { return lineOffset_; }
    // Of what comes behind the line.
    [[nodiscard]] uint64_t offset() const { return offset_; }

    // Goes to an offset, where a line begins; in the middle of one, the first line is what is left of it.
    [[nodiscard]] bool seek(uint64_t offset);

    [[nodiscard]] uint64_t size();

private:
    void clearLine();

    // In memory of its own: the record holds the block that is read.
    std::unique_ptr<zantLogOsFile> file_;
    text_msg buffer_{};
    size_t length_ = 0;
    uint64_t lineOffset_ = 0;
    uint64_t offset_ = 0;
};

// Opens the file of the source and fills the source in: header, what the name tells, size, first time. A
// result of ReadHeaderEx(), or ZANTLOG_FILE_NOT_OPENED.
uint32_t readSource(LogFile *file, Source *source);

// Parses the line; what its version does not carry is taken from the source. A result of
// zantLogParseRecord().
uint32_t parseLine(const Source &source, std::string_view line, uint64_t offset, Record *record);

} // namespace zantlog::view
