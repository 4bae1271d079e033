// Directory listings.
#include "logfile/os/os_directory.h"

#include <cstring>

#include "tests/sim/clock.h"
#include "tests/sim/faults.h"
#include "tests/sim/volume.h"

namespace zantlog::os {

namespace {

constexpr int64_t kUnitsFrom1601To1970 = 116444736000000000;

// What was there when the listing began, as Windows gives it in its first block.
struct FindHandle : sim::Object {
    [[nodiscard]] const char *kind() const override { return "find"; }
    std::vector<sim::Found> found;
    size_t next = 0;
};

zantLogFileTime fileTime(int64_t unitsSince1970) {
    const auto units = static_cast<uint64_t>(unitsSince1970 + kUnitsFrom1601To1970);
    return {static_cast<uint32_t>(units), static_cast<uint32_t>(units >> 32)};
}

SystemError storeNext(FindHandle &find, zantLogFindData *data) {
    if (find.next == find.found.size()) {
        return kErrorNoMoreFiles;
    }
    const sim::Found &found = find.found[find.next++];
    *data = {};
    data->attributes = found.attributes;
    data->creation = fileTime(found.created);
    data->lastAccess = fileTime(found.lastAccess);
    data->lastWrite = fileTime(found.lastWrite);
    data->sizeHigh = static_cast<uint32_t>(found.size >> 32);
    data->sizeLow = static_cast<uint32_t>(found.size);
    found.name.copy(data->name, sizeof(data->name) - 1);
    found.shortName.copy(data->shortName, sizeof(data->shortName) - 1);
    return kErrorNone;
}

} // namespace

SystemError findFirst(const char *pattern, void **find, zantLogFindData *data) {
    *find = nullptr;
    if (const sim::Verdict verdict = sim::enter(sim::Call::FindFirst); verdict.fails()) {
        return verdict.error;
    }
    auto handle = std::make_shared<FindHandle>();
    if (const SystemError error = sim::listingOf(pattern, &handle->found); error != kErrorNone) {
        return error;
    }
    const SystemError error = storeNext(*handle, data);
    *find = sim::newHandle(std::move(handle));
    return error;
}

SystemError findNext(void *find, zantLogFindData *data) {
    if (const sim::Verdict verdict = sim::enter(sim::Call::FindNext); verdict.fails()) {
        return verdict.error;
    }
    const auto handle = sim::objectOf<FindHandle>(find);
    return handle != nullptr ? storeNext(*handle, data) : sim::kErrorInvalidHandle;
}

void findClose(void *find) {
    sim::enter(sim::Call::FindClose);
    sim::closeHandle(find);
}

} // namespace zantlog::os
