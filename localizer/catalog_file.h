// One catalog file: texts by id, and words by name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/owned_text.h"
#include "localizer/conventions.h"

namespace zantlog::localizer {

struct CatalogEntry {
    uint32_t id;
    uint32_t line;
    uint32_t offset; // of the text in the bytes
    uint32_t length;
};

struct Catalog {
    OwnedText bytes;
    OwnedBlock<CatalogEntry> entries; // ascending by id, each once
    size_t count = 0;
    std::string_view words[kWordCount]; // their data is null for words that the file does not have
};

// Is told of each malformed line; `visit` may be null.
struct DefectSink {
    void (*visit)(void *context, uint32_t line, const char *what);
    void *context;
};

inline constexpr size_t kLargestCatalog = size_t{8} * 1024 * 1024;

// Takes the bytes over, which are cut up in place; the block has room for one more than `size`. Malformed
// lines are left out. Result codes: 0; 4 out of memory.
[[nodiscard]] uint32_t parseCatalog(OwnedText bytes, size_t size, const DefectSink &defects, Catalog *out);

// Reads and parses a file. Result codes: 0; 1 it cannot be read or is too large; 4 out of memory.
[[nodiscard]] uint32_t readCatalog(const char *path, const DefectSink &defects, Catalog *out);

// Data null when the catalog does not have the id.
std::string_view catalogText(const Catalog &catalog, uint32_t id);

} // namespace zantlog::localizer
