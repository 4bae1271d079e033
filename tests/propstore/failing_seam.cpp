#include "tests/propstore/failing_seam.h"

#include "logfile/os/directory_tree.h"
#include "logfile/os/os_clock.h"
#include "logfile/os/os_file.h"
#include "logfile/os/os_registry.h"
#include "logfile/os/os_stream.h"

#include <algorithm>
#include <cstring>

namespace zantlog::test {

SeamWorld &seam() {
    static SeamWorld world;
    return world;
}

namespace {

struct Stream {
    std::string path;
    bool writing;
    std::string text; // as it was when the file was opened for reading; as written so far
    size_t at = 0;
    bool ended = false;
};

Stream *asStream(void *stream) {
    return static_cast<Stream *>(stream);
}

bool failsNow(int *countdown) {
    return *countdown > 0 && --*countdown == 0;
}

} // namespace
} // namespace zantlog::test

using namespace zantlog::test;

namespace zantlog {

uint32_t createDirectoryTree(const char *, const char *) {
    return failsNow(&seam().fail.createDirectory) ? 1 : 0;
}

namespace os {

void *openTextStream(const char *path, StreamMode mode) {
    const bool writing = mode == StreamMode::Write;
    if (failsNow(&seam().fail.open) || (!writing && !seam().files.contains(path))) {
        return nullptr;
    }
    ++seam().openStreams;
    if (writing) {
        seam().files[path] = "";
    }
    return new Stream{path, writing, writing ? "" : seam().files[path]};
}

bool readLine(void *stream, char *buffer, int32_t capacity) {
    ++seam().linesRead;
    Stream *from = asStream(stream);
    if (failsNow(&seam().fail.read)) {
        return false;
    }
    if (from->at == from->text.size()) {
        from->ended = true;
        return false;
    }
    size_t end = from->text.find('\n', from->at);
    end = end == std::string::npos ? from->text.size() : end + 1;
    const size_t count = std::min(end - from->at, static_cast<size_t>(capacity) - 1);
    memcpy(buffer, from->text.data() + from->at, count);
    buffer[count] = '\0';
    from->at += count;
    return true;
}

bool writeText(void *stream, const char *text) {
    if (failsNow(&seam().fail.write)) {
        return false;
    }
    asStream(stream)->text += text;
    return true;
}

bool atEndOfStream(void *stream) {
    return asStream(stream)->ended;
}

void rewindStream(void *stream) {
    asStream(stream)->at = 0;
    asStream(stream)->ended = false;
}

bool closeStream(void *stream) {
    Stream *closed = asStream(stream);
    --seam().openStreams;
    // What a stream holds back is lost with a close that fails.
    const bool failed = closed->writing && failsNow(&seam().fail.close);
    if (closed->writing && !failed) {
        seam().files[closed->path] = closed->text;
    }
    delete closed;
    return !failed;
}

SystemError deleteFile(const char *path) {
    if (seam().files.erase(path) == 0) {
        return kErrorFileNotFound;
    }
    seam().calls.push_back(std::string("delete ") + path);
    return kErrorNone;
}

SystemError fileStatus(const char *path, FileStatus *) {
    return seam().files.contains(path) ? kErrorNone : kErrorFileNotFound;
}

SystemError replaceFile(const char *source, const char *destination) {
    seam().calls.push_back(std::string("rename ") + source + " " + destination);
    if (!seam().replaceErrors.empty()) {
        const uint32_t error = seam().replaceErrors.front();
        seam().replaceErrors.erase(seam().replaceErrors.begin());
        return error;
    }
    seam().files[destination] = seam().files[source];
    seam().files.erase(source);
    return kErrorNone;
}

void sleepMilliseconds(uint32_t milliseconds) {
    seam().calls.push_back("sleep " + std::to_string(milliseconds));
}

SystemError openRegistryKey(const char *, RegistryAccess, void **key) {
    ++seam().openKeys;
    *key = &seam();
    return kErrorNone;
}

SystemError createRegistryKey(const char *path, void **key) {
    return openRegistryKey(path, RegistryAccess::All, key);
}

void closeRegistryKey(void *) {
    --seam().openKeys;
}

SystemError queryRegistryValue(void *, const char *name, uint32_t *type, void *buffer, uint32_t *size) {
    if (failsNow(&seam().fail.queryValue)) {
        return kErrorAccessDenied;
    }
    const auto found = seam().texts.find(name);
    if (found == seam().texts.end()) {
        return kErrorFileNotFound;
    }
    const std::string &text = found->second;
    const uint32_t capacity = *size;
    *type = static_cast<uint32_t>(RegistryType::Text);
    *size = static_cast<uint32_t>(text.size());
    if (buffer == nullptr) {
        return kErrorNone;
    }
    if (capacity < text.size()) {
        return kErrorMoreData;
    }
    memcpy(buffer, text.data(), text.size());
    return kErrorNone;
}

SystemError setRegistryValue(void *, const char *name, RegistryType, const void *bytes, uint32_t size) {
    seam().texts[name] = std::string(static_cast<const char *>(bytes), size);
    return kErrorNone;
}

SystemError deleteRegistryValue(void *, const char *) {
    return kErrorFileNotFound;
}

SystemError enumRegistryKey(void *, uint32_t, char *, uint32_t *) {
    return kErrorAccessDenied;
}

SystemError deleteRegistryTree(void *, const char *subKey) {
    seam().calls.push_back(std::string("delete tree ") + subKey);
    return seam().deleteTreeError;
}

} // namespace os
} // namespace zantlog
