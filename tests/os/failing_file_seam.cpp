#include "tests/os/failing_file_seam.h"

#include "logfile/os/os_file.h"
#include "logfile/os/os_mutex.h"

#include <algorithm>
#include <cstring>

namespace zantlog::test {

FileSeam &fileSeam() {
    static FileSeam seam;
    return seam;
}

namespace {

int theFile;
int theMutex;

void note(const std::string &call) {
    fileSeam().calls.push_back(call);
}

} // namespace
} // namespace zantlog::test

using namespace zantlog::test;

namespace zantlog::os {

SystemError createNamedMutex(const char *name, void **mutex) {
    note(std::string("create mutex ") + name);
    *mutex = fileSeam().createMutexError == kErrorNone ? &theMutex : nullptr;
    return fileSeam().createMutexError;
}

SystemError acquireMutex(void *) {
    note("wait");
    return fileSeam().waitError;
}

void releaseMutex(void *) {
    note("release");
}

void closeMutex(void *) {
    note("close mutex");
}

SystemError openFile(const char *path, FileMode, const char *, void **file) {
    note(std::string("open ") + path);
    *file = fileSeam().openError == kErrorNone ? &theFile : nullptr;
    return fileSeam().openError;
}

void closeFile(void *) {
    note("close file");
}

SystemError seekToEnd(void *, uint64_t *position) {
    note("seek");
    *position = fileSeam().content.size();
    return fileSeam().seekError;
}

SystemError seekTo(void *, uint64_t) {
    note("seek to");
    return fileSeam().seekError;
}

SystemError writeFile(void *, const void *bytes, uint32_t count, uint32_t *written) {
    note("write " + std::to_string(count));
    FileSeam::Write write = {count, kErrorNone};
    if (!fileSeam().writes.empty()) {
        write = fileSeam().writes.front();
        fileSeam().writes.erase(fileSeam().writes.begin());
    }
    *written = std::min(count, write.most);
    fileSeam().content.append(static_cast<const char *>(bytes), *written);
    return write.error;
}

SystemError readFile(void *, void *buffer, uint32_t count, uint32_t *read) {
    note("read");
    *read = 0;
    if (fileSeam().readError == kErrorNone) {
        *read = static_cast<uint32_t>(fileSeam().content.copy(static_cast<char *>(buffer), count));
    }
    return fileSeam().readError;
}

SystemError fileSize(void *, uint64_t *size) {
    note("size");
    *size = fileSeam().content.size();
    return fileSeam().sizeError;
}

SystemError truncateFile(void *, uint64_t size) {
    note("truncate " + std::to_string(size));
    if (fileSeam().truncateError == kErrorNone) {
        fileSeam().content.resize(size);
    }
    return fileSeam().truncateError;
}

void stampLastWrite(void *) {
    note("stamp");
}

SystemError deleteFile(const char *) {
    return kErrorAccessDenied;
}

} // namespace zantlog::os
