// Log files for the tests of the reader: made of bytes, opened for reading.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "tests/support/log_folder.h"
#include "tests/support/test_folder.h"
#include "zantlog/reader.h"

namespace zantlog::test {

// A file with these bytes, open for reading.
class ReadingFile {
public:
    explicit ReadingFile(const std::string &bytes) {
        writeFileBytes(path(), bytes);
        EXPECT_EQ(zantLogOs_open(file_.get(), path().c_str(), ZANTLOG_OPEN_READ, nullptr), 0);
    }
    ~ReadingFile() { zantLogOs_close(file_.get()); }
    ReadingFile(const ReadingFile &) = delete;
    ReadingFile &operator=(const ReadingFile &) = delete;

    [[nodiscard]] std::string path() const { return folder_.file("a.log"); }
    zantLogOsFile *file() { return file_.get(); }

private:
    ScopedFolder folder_;
    std::unique_ptr<zantLogOsFile> file_ = std::make_unique<zantLogOsFile>();
};

// One attempt to read a record into a fresh buffer.
struct ReadRecord {
    int32_t result;
    std::string bytes; // with the terminator

    bool operator==(const ReadRecord &) const = default;
};

inline ReadRecord readOne(zantLogOsFile *file) {
    text_msg buffer;
    init_text_msg(&buffer);
    ReadRecord record{readrecord(file, &buffer), {}};
    if (record.result == 1) {
        record.bytes.assign(buffer.data, static_cast<size_t>(buffer.capacity - buffer.free));
    }
    free_text_msg(&buffer);
    return record;
}

inline ReadRecord recordOf(const std::string &text) {
    return {1, text + '\0'};
}

inline void PrintTo(const ReadRecord &record, std::ostream *out) {
    *out << "result " << record.result << ", " << record.bytes.size() << " bytes "
         << record.bytes.substr(0, 200);
}

} // namespace zantlog::test
