// Enumeration of the roots and log sets of the file. It goes on from where the stream stands; the index that
// the registry needs has no meaning here.
#include <cstring>
#include <string_view>

#include "logfile/os/os_stream.h"
#include "propstore/conf_line.h"
#include "propstore/file_store.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

// The name that a line offers; false when it offers none.
using NameOfLine = bool (*)(std::string_view line, std::string_view *name);

bool productOfLine(std::string_view line, std::string_view *name) {
    const size_t dot = line.find('.');
    if (dot == std::string_view::npos) {
        return false;
    }
    *name = line.substr(0, dot);
    return name->find('=') == std::string_view::npos;
}

bool logsetOfLine(std::string_view line, std::string_view *name) {
    if (!line.starts_with("LOGSET")) {
        return false;
    }
    static_cast<void>(takeToken(&line, "."));
    *name = takeToken(&line, ".");
    return !name->empty();
}

uint32_t storeName(std::string_view name, char *buffer, uint32_t *length) {
    if (name.size() >= *length) {
        return ZANTLOG_STORE_FAILED;
    }
    std::memcpy(buffer, name.data(), name.size());
    buffer[name.size()] = '\0';
    *length = static_cast<uint32_t>(name.size());
    return ZANTLOG_STORE_OK;
}

uint32_t nextName(PropertyFile *file, char *buffer, uint32_t *length, NameOfLine nameOfLine) {
    if (file == nullptr || file->stream == nullptr || buffer == nullptr || length == nullptr ||
        *length == 0) {
        return ZANTLOG_STORE_NULL_ARGUMENT;
    }
    if (os::atEndOfStream(file->stream)) {
        return ZANTLOG_STORE_NO_MORE;
    }
    char line[ZANTLOG_STORE_LINE];
    while (os::readLine(file->stream, line, sizeof line)) {
        std::string_view name;
        if (fileIsCommentLine(line) || !nameOfLine(line, &name)) {
            continue;
        }
        if (name != buffer) {
            return storeName(name, buffer, length);
        }
    }
    return ZANTLOG_STORE_NO_MORE;
}

} // namespace

uint32_t fileEnumProductId(PropertyFile *file, char *buffer, uint32_t *length) {
    return nextName(file, buffer, length, productOfLine);
}

uint32_t fileEnumLogset(PropertyFile *file, char *buffer, uint32_t *length) {
    return nextName(file, buffer, length, logsetOfLine);
}

} // namespace zantlog
