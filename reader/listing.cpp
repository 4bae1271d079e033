// Listing the log files of one directory.
#include <algorithm>
#include <iterator>

#include "base/bounded_text.h"
#include "logfile/os/os_directory.h"
#include "zantlog/discovery.h"
#include "zantlog/results.h"

namespace {

using namespace zantlog;

constexpr uint32_t kListed = 0;
constexpr uint32_t kNoFurtherFile = 1;
constexpr uint32_t kListingFailed = UINT32_MAX;
constexpr uint32_t kListingWithoutArgument = UINT32_MAX - 2;

// The longest directory of a configuration, and the pattern behind it.
constexpr size_t kPatternBytes = 1040;

} // namespace

uint32_t zantLogOsListLogFilesBegin(zantLogListing *listing, const char *directory) {
    if (listing == nullptr) {
        return kListingWithoutArgument;
    }
    listing->find = nullptr;
    if (directory == nullptr) {
        return kListingWithoutArgument;
    }
    char pattern[kPatternBytes];
    if (BoundedText(pattern).text(directory).text("*.log").cut()) {
        return kListingFailed;
    }
    switch (os::findFirst(pattern, &listing->find, &listing->data)) {
    case os::kErrorNone:
        return kListed;
    case os::kErrorFileNotFound:
    case os::kErrorNoMoreFiles:
        return kNoFurtherFile;
    default:
        return kListingFailed;
    }
}

uint32_t zantLogOsListLogFilesNext(zantLogListing *listing) {
    if (listing == nullptr) {
        return kListingWithoutArgument;
    }
    if (listing->find == nullptr) {
        return kListingFailed;
    }
    switch (os::findNext(listing->find, &listing->data)) {
    case os::kErrorNone:
        return kListed;
    case os::kErrorNoMoreFiles:
        return kNoFurtherFile;
    default:
        return kListingFailed;
    }
}

uint32_t zantLogOsListLogFilesEnd(zantLogListing *listing) {
    if (listing == nullptr) {
        return kListingWithoutArgument;
    }
    if (listing->find != nullptr) {
        os::findClose(listing->find);
        listing->find = nullptr;
    }
    return kListed;
}

const char *zantLogOsListLogFilesName(zantLogListing *listing) {
    return listing != nullptr ? listing->data.name : nullptr;
}

void CopyLogOsListLogFiles(const zantLogListing *listing, zantLogListCopy *copy) {
    if (listing == nullptr || copy == nullptr) {
        return;
    }
    const zantLogFindData &data = listing->data;
    std::copy(std::begin(data.name), std::end(data.name), copy->name);
    copy->attributes = data.attributes;
    copy->creation = data.creation;
    copy->lastWrite = data.lastWrite;
    copy->size = uint64_t{data.sizeHigh} << 32 | data.sizeLow;
}
