// Finding a property in the file and reading its value.
#include <cstring>
#include <string_view>

#include "base/bounded_text.h"
#include "base/scan.h"
#include "base/utf8.h"
#include "logfile/os/os_stream.h"
#include "logfile/os/os_text.h"
#include "propstore/conf_line.h"
#include "propstore/file_store.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

using Value = char[ZANTLOG_STORE_TEXT];

// What every typed get begins with.
uint32_t findValue(PropertyFile *file, const char *name, const void *out, Value &value) {
    if (name == nullptr || out == nullptr) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    return fileFindProperty(file, name, value, sizeof value) ? ZANTLOG_STORE_OK : ZANTLOG_STORE_NOT_FOUND;
}

void trimTrailingBlanks(char *text) {
    size_t length = std::strlen(text);
    while (length > 0 && text[length - 1] == ' ') {
        --length;
    }
    text[length] = '\0';
}

void copyValue(std::string_view token, char *value, size_t length) {
    BoundedText(value, length).bytes(token.data(), token.size());
    if (char *lineEnd = std::strrchr(value, '\n')) {
        *lineEnd = '\0';
    }
}

} // namespace

bool fileFindProperty(PropertyFile *file, const char *name, char *value, size_t length) {
    if (file == nullptr || file->stream == nullptr || name == nullptr || value == nullptr || length == 0) {
        return false;
    }
    char key[ZANTLOG_STORE_LINE];
    // The dot is there on the empty root too, unlike in a set: what was written there is not found. Kept.
    if (BoundedText(key).text(file->root).character('.').text(name).cut()) {
        return false;
    }

    os::rewindStream(file->stream);
    char line[ZANTLOG_STORE_LINE];
    while (os::readLine(file->stream, line, sizeof line)) {
        std::string_view rest = line;
        if (takeToken(&rest, "=") != key) {
            continue;
        }
        // The value ends at the next "=", although a set writes it whole. Kept.
        const std::string_view token = takeToken(&rest, "=");
        if (token.empty()) {
            continue;
        }
        copyValue(token, value, length);
        return true;
    }
    return false;
}

uint32_t fileGetPropertyAsULong(PropertyFile *file, const char *name, uint32_t *value) {
    Value text;
    const uint32_t result = findValue(file, name, value, text);
    if (result == ZANTLOG_STORE_OK) {
        *value = leadingUnsigned32(text);
    }
    return result;
}

uint32_t fileGetPropertyAsBool(PropertyFile *file, const char *name, uint32_t *value) {
    Value text;
    const uint32_t result = findValue(file, name, value, text);
    // Case counts here, unlike in the registry. Kept.
    if (result == ZANTLOG_STORE_OK) {
        *value = os::collate(text, "true") == 0 ? 1 : 0;
    }
    return result;
}

uint32_t fileGetPropertyAsStr(PropertyFile *file, const char *name, char **value) {
    Value text;
    const uint32_t result = findValue(file, name, value, text);
    if (result != ZANTLOG_STORE_OK) {
        return result;
    }
    OwnedText converted;
    if (codePageFromUtf8(text, &converted) != ZANTLOG_OK) {
        return ZANTLOG_STORE_NOT_FOUND;
    }
    trimTrailingBlanks(converted.get());
    // The caller's from here on. What the pointer held before stays the caller's, unlike in the registry.
    // Kept.
    *value = converted.release();
    return ZANTLOG_STORE_OK;
}

} // namespace zantlog
