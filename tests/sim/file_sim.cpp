// Files and directories.
#include "logfile/os/os_file.h"

#include <algorithm>

#include "tests/sim/clock.h"
#include "tests/sim/faults.h"
#include "tests/sim/volume.h"

namespace zantlog::os {

namespace {

constexpr uint32_t kShared = sim::kReadAccess | sim::kWriteAccess;

struct FileHandle : sim::Object {
    explicit FileHandle(std::shared_ptr<sim::Opening> opened) : opening(std::move(opened)) {}
    [[nodiscard]] const char *kind() const override { return "file"; }
    std::shared_ptr<sim::Opening> opening;
};

std::shared_ptr<sim::Opening> openingOf(void *file) {
    const auto handle = sim::objectOf<FileHandle>(file);
    return handle != nullptr ? handle->opening : nullptr;
}

SystemError openAs(const char *path, FileMode mode, const char *sddl,
                   std::shared_ptr<sim::Opening> *opening) {
    switch (mode) {
    case FileMode::Append:
        return sim::openNode(path, sim::kWriteAccess, kShared, sim::Disposition::OpenAlways, sddl, opening);
    case FileMode::Truncate:
        return sim::openNode(path, sim::kWriteAccess, kShared, sim::Disposition::CreateAlways, sddl, opening);
    case FileMode::Read:
        break;
    }
    return sim::openNode(path, sim::kReadAccess, kShared, sim::Disposition::OpenExisting, nullptr, opening);
}

} // namespace

SystemError openFile(const char *path, FileMode mode, const char *sddl, void **file) {
    *file = nullptr;
    if (const sim::Verdict verdict = sim::enter(sim::Call::OpenFile); verdict.fails()) {
        return verdict.error;
    }
    std::shared_ptr<sim::Opening> opening;
    const SystemError error = openAs(path, mode, sddl, &opening);
    if (error == kErrorNone) {
        *file = sim::newHandle(std::make_shared<FileHandle>(opening));
    }
    return error;
}

void closeFile(void *file) {
    sim::enter(sim::Call::CloseFile);
    sim::closeHandle(file);
}

SystemError seekToEnd(void *file, uint64_t *position) {
    if (const sim::Verdict verdict = sim::enter(sim::Call::SeekToEnd); verdict.fails()) {
        return verdict.error;
    }
    const auto opening = openingOf(file);
    if (opening == nullptr) {
        return sim::kErrorInvalidHandle;
    }
    *position = sim::moveToEnd(*opening);
    return kErrorNone;
}

SystemError seekTo(void *file, uint64_t position) {
    if (const sim::Verdict verdict = sim::enter(sim::Call::SeekTo); verdict.fails()) {
        return verdict.error;
    }
    const auto opening = openingOf(file);
    if (opening == nullptr) {
        return sim::kErrorInvalidHandle;
    }
    if (position > INT64_MAX) {
        return sim::kErrorNegativeSeek;
    }
    sim::moveTo(*opening, position);
    return kErrorNone;
}

SystemError writeFile(void *file, const void *bytes, uint32_t count, uint32_t *written) {
    *written = 0;
    const sim::Verdict verdict = sim::enter(sim::Call::WriteFile);
    if (verdict.fails()) {
        return verdict.error;
    }
    const auto opening = openingOf(file);
    if (opening == nullptr) {
        return sim::kErrorInvalidHandle;
    }
    return sim::writeTo(*opening, bytes, std::min(count, verdict.bytes.value_or(count)), written);
}

SystemError readFile(void *file, void *buffer, uint32_t count, uint32_t *read) {
    *read = 0;
    const sim::Verdict verdict = sim::enter(sim::Call::ReadFile);
    if (verdict.fails()) {
        return verdict.error;
    }
    const auto opening = openingOf(file);
    if (opening == nullptr) {
        return sim::kErrorInvalidHandle;
    }
    return sim::readFrom(*opening, buffer, std::min(count, verdict.bytes.value_or(count)), read);
}

SystemError fileSize(void *file, uint64_t *size) {
    if (const sim::Verdict verdict = sim::enter(sim::Call::FileSize); verdict.fails()) {
        return verdict.error;
    }
    const auto opening = openingOf(file);
    if (opening == nullptr) {
        return sim::kErrorInvalidHandle;
    }
    *size = sim::sizeOf(*opening);
    return kErrorNone;
}

SystemError truncateFile(void *file, uint64_t size) {
    if (const sim::Verdict verdict = sim::enter(sim::Call::TruncateFile); verdict.fails()) {
        return verdict.error;
    }
    const auto opening = openingOf(file);
    return opening != nullptr ? sim::cutAt(*opening, size) : sim::kErrorInvalidHandle;
}

void stampLastWrite(void *file) {
    sim::enter(sim::Call::StampLastWrite);
    if (const auto opening = openingOf(file); opening != nullptr) {
        sim::stamp(*opening);
    }
}

SystemError deleteFile(const char *path) {
    const sim::Verdict verdict = sim::enter(sim::Call::DeleteFile);
    return verdict.fails() ? verdict.error : sim::removeFile(path);
}

SystemError copyFile(const char *source, const char *destination) {
    const sim::Verdict verdict = sim::enter(sim::Call::CopyFile);
    return verdict.fails() ? verdict.error : sim::copyNode(source, destination);
}

SystemError replaceFile(const char *source, const char *destination) {
    const sim::Verdict verdict = sim::enter(sim::Call::ReplaceFile);
    return verdict.fails() ? verdict.error : sim::moveNode(source, destination);
}

SystemError createDirectory(const char *path, const char *sddl) {
    const sim::Verdict verdict = sim::enter(sim::Call::CreateDirectory);
    return verdict.fails() ? verdict.error : sim::makeFolder(path, sddl);
}

SystemError fileStatus(const char *path, FileStatus *status) {
    if (const sim::Verdict verdict = sim::enter(sim::Call::FileStatus); verdict.fails()) {
        return verdict.error;
    }
    sim::Found found;
    const SystemError error = sim::statusOf(path, &found);
    if (error == kErrorNone) {
        status->regular = (found.attributes & sim::kFolderAttribute) == 0;
        status->lastWrite = found.lastWrite / sim::kUnitsPerSecond;
    }
    return error;
}

} // namespace zantlog::os
