#include "config/config_directory.h"

#include "base/owned_text.h"
#include "zantlog/results.h"

#include <cstring>

namespace zantlog {

namespace {

constexpr char kSeparator = '\\';

bool isDriveLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

// Collapses each pair of backslashes, from left to right, and ends the text with one. Returns the length, or
// 0 when the text and its terminator do not fit.
size_t collapse(const char *directory, char *buffer, size_t capacity) {
    size_t length = 0;
    for (; *directory != '\0'; ++directory) {
        if (directory[0] == kSeparator && directory[1] == kSeparator) {
            ++directory;
        }
        if (length + 1 >= capacity) {
            return 0;
        }
        buffer[length++] = *directory;
    }
    if (buffer[length - 1] != kSeparator) {
        if (length + 1 >= capacity) {
            return 0;
        }
        buffer[length++] = kSeparator;
    }
    buffer[length] = '\0';
    return length;
}

// Where in the field the text goes; the field's size when the position is outside it.
size_t offsetIn(const zantLogCfg *cfg, const char *position) {
    if (position == nullptr) {
        return 0;
    }
    const auto start = reinterpret_cast<uintptr_t>(cfg->logDirectory);
    const auto at = reinterpret_cast<uintptr_t>(position);
    return at >= start && at - start < sizeof cfg->logDirectory ? at - start : sizeof cfg->logDirectory;
}

} // namespace

bool isAbsolutePath(const char *path) {
    if (path[0] == kSeparator && path[1] == kSeparator) {
        return true;
    }
    return isDriveLetter(path[0]) && path[1] == ':' && path[2] == kSeparator;
}

void storeDirectory(zantLogCfg *cfg, const char *directory, bool replace) {
    char *position = nullptr;
    if (!replace && !isAbsolutePath(directory)) {
        position = cfg->logDirectory + std::strlen(cfg->logDirectory);
    }
    (void)zantLogCfgSetDirectory(cfg, directory, position);
}

} // namespace zantlog

extern "C" uint32_t zantLogCfgSetDirectory(zantLogCfg *cfg, const char *directory, char *position) {
    if (cfg == nullptr || directory == nullptr || *directory == '\0') {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    const size_t offset = zantlog::offsetIn(cfg, position);
    // Collapsed aside: the text may be the field's own, and one that does not fit must leave the field alone.
    char collapsed[sizeof cfg->logDirectory];
    const size_t length = zantlog::collapse(directory, collapsed, sizeof collapsed - offset);
    if (length == 0) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    std::memcpy(cfg->logDirectory + offset, collapsed, length + 1);
    cfg->changedMask |= ZANTLOG_SETTING_LOG_DIRECTORY;
    return ZANTLOG_OK;
}

extern "C" uint32_t zantLogCfgGetDirectory(zantLogCfg *cfg, char **out) {
    if (cfg == nullptr || out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    // Kept: a copy that could not be made is a null text and no failure.
    *out = zantlog::copyText(cfg->logDirectory).release();
    return ZANTLOG_OK;
}
