// What the tests of the store share: a `.conf` file in a folder of its own, and a store that is closed in the
// end.
#pragma once

#include "tests/support/files.h"
#include "tests/support/test_folder.h"
#include "zantlog/config_store.h"
#include "zantlog/message.h"
#include "zantlog/property_store.h"
#include "zantlog/results.h"

#include <gtest/gtest.h>
#include <string>

namespace zantlog::test {

inline std::string readBytes(const std::string &path) {
    return fileExists(path) ? fileBytes(path) : "";
}

inline void writeBytes(const std::string &path, const std::string &bytes) {
    writeFileBytes(path, bytes);
}

inline bool exists(const std::string &path) {
    return fileExists(path);
}

// Lines as they are on disk: "\n" becomes CR LF.
inline std::string onDisk(const std::string &lines) {
    std::string bytes;
    for (const char c : lines) {
        if (c == '\n') {
            bytes += '\r';
        }
        bytes += c;
    }
    return bytes;
}

// The other way round. A line end that is not CR LF is spelled out, so that no comparison misses it.
inline std::string linesOf(const std::string &bytes) {
    std::string lines;
    for (size_t at = 0; at < bytes.size(); ++at) {
        if (bytes.compare(at, 2, "\r\n") == 0) {
            lines += '\n';
            ++at;
        } else if (bytes[at] == '\n') {
            lines += "<LF alone>";
        } else {
            lines += bytes[at];
        }
    }
    return lines;
}

// An open store, closed at the end of the scope.
struct OpenStore {
    PropertyStore record = {};
    uint32_t result = 0;

    OpenStore() = default;
    OpenStore(const std::string &location, const std::string &section, uint32_t mode = ZANTLOG_STORE_WRITE) {
        open(location, section, mode);
    }
    ~OpenStore() { utiClosePropertyStore(&record); }
    OpenStore(const OpenStore &) = delete;
    OpenStore &operator=(const OpenStore &) = delete;

    uint32_t open(const std::string &location, const std::string &section,
                  uint32_t mode = ZANTLOG_STORE_WRITE) {
        utiClosePropertyStore(&record);
        result = utiOpenPropertyStore(location.c_str(), section.c_str(), &record, mode);
        return result;
    }
    operator PropertyStore *() { return &record; }
};

// The text of a property, or what came instead of it: "(3)" for a result of 3.
inline std::string textOf(PropertyStore *store, const std::string &name) {
    char *value = nullptr;
    const uint32_t result = utiGetPropertyAsStr(store, name.c_str(), &value);
    if (result != ZANTLOG_STORE_OK) {
        EXPECT_EQ(nullptr, value) << "a failed get has stored something";
        return "(" + std::to_string(result) + ")";
    }
    std::string text = value;
    zantLogFree(value);
    return text;
}

class FileStoreTest : public testing::Test {
protected:
    // Makes the file of these lines.
    void fileOf(const std::string &lines) { writeBytes(path, onDisk(lines)); }
    void open(const std::string &root) { ASSERT_EQ(0u, store.open(path, root)); }
    void expectFile(const std::string &lines) { EXPECT_EQ(onDisk(lines), readBytes(path)); }
    std::string text(const std::string &name) { return textOf(store, name); }
    uint32_t set(const std::string &name, const std::string &value) {
        return utiSetPropertyAsStr(store, name.c_str(), value.c_str());
    }

    ScopedFolder folder;
    const std::string path = folder.file("x.conf");
    const std::string temporary = path + ".tmp";
    OpenStore store; // closed before the folder is removed
};

} // namespace zantlog::test
