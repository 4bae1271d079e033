// Changes of the file: it is copied line by line, in one pass, into a temporary file that then takes its
// place.
#include <string_view>

#include "base/bounded_text.h"
#include "base/decimal.h"
#include "base/utf8.h"
#include "logfile/os/os_file.h"
#include "logfile/os/os_stream.h"
#include "propstore/conf_line.h"
#include "propstore/file_store.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

using Key = char[ZANTLOG_STORE_LINE];
using Line = char[ZANTLOG_STORE_LINE];

struct TemporaryStore {
    PropertyFile file = {};

    TemporaryStore() = default;
    ~TemporaryStore() { fileClosePropertyStore(&file); }
    TemporaryStore(const TemporaryStore &) = delete;
    TemporaryStore &operator=(const TemporaryStore &) = delete;
};

// False when the key alone is longer than any line.
bool formKey(const PropertyFile &store, const char *name, Key &key) {
    BoundedText text(key);
    if (store.root[0] != '\0') {
        text.text(store.root).character('.');
    }
    return !text.text(name).cut();
}

// False when not even the key fits; a value that is too long for the line is cut.
bool formPropertyLine(const char *key, const char *value, Line &line) {
    constexpr size_t kBeforeLineEnd = ZANTLOG_STORE_LINE - 1; // terminator included
    BoundedText text(line, kBeforeLineEnd);
    if (text.text(key).character('=').cut()) {
        return false;
    }
    const size_t length = text.text(value).length();
    line[length] = '\n';
    line[length + 1] = '\0';
    return true;
}

// Begins a change: the temporary file is there, the store stands at its first line.
uint32_t beginCopy(PropertyFile *store, TemporaryStore *temporary) {
    if (store == nullptr || store->stream == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    const uint32_t result = fileOpenTempStore(store->path, store->root, &temporary->file);
    if (result == ZANTLOG_STORE_OK) {
        os::rewindStream(store->stream);
    }
    return result;
}

// Closes the copy. False when it is not the whole file: lines that could not be read, or written.
bool endCopy(const PropertyFile &store, TemporaryStore *temporary) {
    const bool readWhole = os::atEndOfStream(store.stream);
    const bool written = os::closeStream(temporary->file.stream);
    temporary->file.stream = nullptr;
    return readWhole && written;
}

// Puts the closed copy in the place of the store file and opens it.
uint32_t replaceStore(PropertyFile *store, const TemporaryStore &temporary) {
    fileClosePropertyStore(store);
    const uint32_t result = fileReplaceStore(temporary.file.path, store->path);
    return result == ZANTLOG_STORE_OK ? fileReopenPropertyStore(store) : result;
}

// Where a set has got to. The line is written once: in place of the property's own line, else before the line
// that ends the first run of its root, else at the end of the file.
struct Insertion {
    std::string_view root;
    std::string_view key;
    const char *propertyLine;
    bool inRun = false;
    bool written = false;
    Line runName = {}; // root token of the lines of the run
};

// Whether the property is due at this line, and whether it takes the line's place.
struct Decision {
    bool writeProperty;
    bool keepLine;
};

Decision decide(Insertion *set, std::string_view line) {
    constexpr Decision kCopy = {false, true};
    constexpr Decision kReplace = {true, false};
    constexpr Decision kInsertBefore = {true, true};

    if (set->written) {
        return kCopy;
    }
    const LineRoot found = rootOfLine(line, ".=");
    if (found.name.empty()) {
        return set->inRun ? kInsertBefore : kCopy;
    }
    if (set->root.empty()) {
        return found.name == set->key ? kReplace : kCopy;
    }
    if (!set->inRun) {
        // The bare name of a log set begins a run of the product root of that name too. Kept.
        set->inRun = found.name == set->root || isLogsetRoot(found, set->root);
        if (!set->inRun) {
            return kCopy;
        }
        BoundedText(set->runName).bytes(found.name.data(), found.name.size());
    }
    if (found.name != set->runName) {
        return kInsertBefore;
    }
    return keyOfLine(line) == set->key ? kReplace : kCopy;
}

bool copyWithProperty(PropertyFile *store, PropertyFile *temporary, Insertion *set) {
    Line line;
    while (os::readLine(store->stream, line, sizeof line)) {
        const Decision decision = decide(set, line);
        if (decision.writeProperty && !os::writeText(temporary->stream, set->propertyLine)) {
            return false;
        }
        if (decision.keepLine && !os::writeText(temporary->stream, line)) {
            return false;
        }
        set->written = set->written || decision.writeProperty;
    }
    return set->written || os::writeText(temporary->stream, set->propertyLine);
}

// Copies all lines but those that `drop` picks; *dropped says whether there was one.
template <typename Predicate>
bool copyWithout(PropertyFile *store, PropertyFile *temporary, Predicate drop, bool *dropped) {
    *dropped = false;
    Line line;
    while (os::readLine(store->stream, line, sizeof line)) {
        if (drop(std::string_view(line))) {
            *dropped = true;
        } else if (!os::writeText(temporary->stream, line)) {
            return false;
        }
    }
    return true;
}

bool isLineOfRoot(std::string_view line, std::string_view root) {
    const LineRoot found = rootOfLine(line, ".");
    return found.logset ? isLogsetRoot(found, root) : !found.name.empty() && found.name == root;
}

} // namespace

uint32_t fileSetProperty(PropertyFile *file, const char *name, const char *value) {
    if (file == nullptr || name == nullptr || value == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    Key key;
    Line propertyLine;
    if (!formKey(*file, name, key) || !formPropertyLine(key, value, propertyLine)) {
        return ZANTLOG_STORE_FAILED;
    }

    TemporaryStore temporary;
    const uint32_t begun = beginCopy(file, &temporary);
    if (begun != ZANTLOG_STORE_OK) {
        return begun;
    }
    Insertion set = {file->root, key, propertyLine};
    if (!copyWithProperty(file, &temporary.file, &set) || !endCopy(*file, &temporary)) {
        return ZANTLOG_STORE_FAILED;
    }
    return replaceStore(file, temporary);
}

uint32_t fileSetPropertyAsULong(PropertyFile *file, const char *name, const uint32_t *value) {
    if (value == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    // Signed: values from 2147483648 on are written as negative numbers, as readers of older files expect.
    char text[kDecimalDigits];
    BoundedText(text).signedNumber(static_cast<int32_t>(*value));
    return fileSetProperty(file, name, text);
}

uint32_t fileSetPropertyAsBool(PropertyFile *file, const char *name, const uint32_t *value) {
    if (value == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    return fileSetProperty(file, name, *value == 1 ? "true" : "false");
}

uint32_t fileSetPropertyAsStr(PropertyFile *file, const char *name, const char *value) {
    if (file == nullptr || name == nullptr || value == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    OwnedText converted;
    if (utf8FromCodePage(value, &converted) != ZANTLOG_OK) {
        return ZANTLOG_STORE_NOT_FOUND;
    }
    return fileSetProperty(file, name, converted.get());
}

uint32_t fileRemoveProperty(PropertyFile *file, const char *name) {
    if (file == nullptr || name == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    Key key;
    const bool findable = formKey(*file, name, key) && key[0] != '\0';

    TemporaryStore temporary;
    const uint32_t begun = beginCopy(file, &temporary);
    if (begun != ZANTLOG_STORE_OK) {
        return begun;
    }
    bool dropped;
    const auto isProperty = [&](std::string_view line) { return findable && keyOfLine(line) == key; };
    if (!copyWithout(file, &temporary.file, isProperty, &dropped) || !endCopy(*file, &temporary)) {
        return ZANTLOG_STORE_FAILED;
    }
    // The copy stays on disk; the next change deletes it before use. Kept.
    if (!dropped) {
        return ZANTLOG_STORE_OK;
    }
    return replaceStore(file, temporary);
}

uint32_t fileRemovePropertyRoot(PropertyFile *file, const char *root) {
    if (file == nullptr || root == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (namesConfFile(root)) {
        return os::deleteFile(root) == os::kErrorNone ? ZANTLOG_STORE_OK : ZANTLOG_STORE_FAILED;
    }

    TemporaryStore temporary;
    const uint32_t begun = beginCopy(file, &temporary);
    if (begun != ZANTLOG_STORE_OK) {
        return begun;
    }
    bool dropped;
    const auto isOfRoot = [&](std::string_view line) { return isLineOfRoot(line, root); };
    if (!copyWithout(file, &temporary.file, isOfRoot, &dropped) || !endCopy(*file, &temporary)) {
        return ZANTLOG_STORE_FAILED;
    }
    const uint32_t result = replaceStore(file, temporary);
    if (result != ZANTLOG_STORE_OK) {
        return result;
    }
    return dropped ? ZANTLOG_STORE_OK : ZANTLOG_STORE_NO_ROOT;
}

} // namespace zantlog
