// Versioned file names of libraries that are loaded by name.
#include "base/library_name.h"

#include "base/bounded_text.h"

#include <cstring>

namespace zantlog {

namespace {

constexpr char kMajorVersion[] = "3";
constexpr char kExtension[] = "dll";
constexpr size_t kSuffixRoom = sizeof("_") + sizeof(kMajorVersion) + sizeof(".") + sizeof(kExtension);

} // namespace

OwnedText versionedLibraryName(const char *baseName) {
    if (baseName == nullptr) {
        return nullptr;
    }
    const char *separator = std::strrchr(baseName, '\\');
    const char *filePart = separator != nullptr ? separator + 1 : baseName;
    const size_t stem = static_cast<size_t>(filePart - baseName) + std::strcspn(filePart, "_.");
    const size_t capacity = stem + kSuffixRoom;
    OwnedText name = allocateBlock<char>(capacity);
    if (name != nullptr) {
        BoundedText(name.get(), capacity)
            .bytes(baseName, stem)
            .character('_')
            .text(kMajorVersion)
            .character('.')
            .text(kExtension);
    }
    return name;
}

} // namespace zantlog
