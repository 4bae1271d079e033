#include "tools/common/result_text.h"

#include "zantlog/results.h"

namespace zantlog::tools {

namespace {

struct Explanation {
    uint32_t result;
    const char *meaning;
    const char *advice; // may be empty
};

// Of a secure-audit message, whose result is the event log's.
constexpr auto kNotReported = static_cast<uint32_t>(ZANTLOG_OS_FAILED);

constexpr Explanation kExplanations[] = {
    {ZANTLOG_OK, "success", ""},
    {ZANTLOG_FAILURE, "the library refused it or could not do it",
     "check levels and severities, and whether the log directory can be made"},
    {ZANTLOG_CATALOG_FAILURE, "the message catalog could not be used",
     "check the installation of qzlis_3.dll"},
    {ZANTLOG_INVALID_ARGUMENT, "an argument is missing or out of range",
     "check the ids and names that were given"},
    {ZANTLOG_OUT_OF_MEMORY, "memory is short", "close other programs and try again"},
    {ZANTLOG_WRITE_FAILED, "the log file could not be written", "check its disk and its rights"},
    {ZANTLOG_NOT_REGISTERED, "the product or log set is not registered, or its configuration cannot be read",
     "register it, or point the environment variable ZANTLOG_CFG_LOC to the right configuration"},
    {ZANTLOG_RECORD_NOT_LOADED, "a configuration record could not be loaded",
     "check the product's configuration"},
    {ZANTLOG_NO_MORE, "there are no more entries", ""},
    {ZANTLOG_CATALOG_OTHER, "the message-catalog library failed", "check the installation of qzlis_3.dll"},
    {ZANTLOG_EVENT_LOG_UNAVAILABLE, "the event log could not be opened",
     "check that the event source of the configuration is registered"},
    {ZANTLOG_ALREADY_REGISTERED, "the product is registered already", "remove its registration first"},
    {ZANTLOG_SCAN_FAILED, "a directory could not be listed", "check the log directory and its rights"},
    {ZANTLOG_COPY_SIZE_UNREADABLE, "the size of the file to copy could not be read",
     "check the file's rights"},
    {ZANTLOG_FILE_NOT_OPENED, "a log file could not be opened",
     "check its name and rights, and whether another program holds it"},
    {ZANTLOG_COPY_READ_FAILED, "the file to copy ended early", "try again"},
    {ZANTLOG_COPY_FAILED, "the copy could not be written", "check the disk of the destination"},
    {ZANTLOG_NO_CONFIGURATION, "no configuration was found", "check the configuration location"},
    {ZANTLOG_NO_LOG_FILE, "no log file matches", ""},
    {ZANTLOG_COPY_DESTINATION_DENIED, "the destination is missing, or access to it is denied",
     "make the directory or check its rights"},
    {ZANTLOG_UNSUPPORTED_HEADER, "the log file was written in a format that is not supported",
     "read it with the version that wrote it"},
    {ZANTLOG_STORE_ROOT_NOT_FOUND, "the configuration has no such section", "check the name of the section"},
    {ZANTLOG_PATH_DENIED, "the log directory is missing, or access to it is denied",
     "check \"LogDirectory\" in the product's configuration and the directory's rights"},
    {ZANTLOG_EMPTY_DIRECTORY, "the configuration names no log directory",
     "set \"LogDirectory\" in the product's configuration"},
    {ZANTLOG_DISK_FULL, "the disk is full", "make room and try again"},
    {ZANTLOG_STORE_NOT_CREATED, "the configuration could not be created", "check the rights of its location"},
    {ZANTLOG_NO_WRITER, "there is no log file to write to", "secure-audit messages alone do without one"},
    {ZANTLOG_SECURE_AUDIT_TO_FILE, "secure-audit messages do not go through a log file",
     "open the log for them alone"},
    {ZANTLOG_NOTHING_TO_SAVE, "there is nothing to save", ""},
    {ZANTLOG_STORE_BUSY, "the configuration file is held by another program", "try again"},
    {kNotReported, "the event log did not take the message",
     "check that it is running and not full, and that the event source of the configuration is registered"},
};

const Explanation *find(uint32_t result) {
    for (const Explanation &explanation : kExplanations) {
        if (explanation.result == result) {
            return &explanation;
        }
    }
    return nullptr;
}

} // namespace

std::string resultText(uint32_t result) {
    const Explanation *explanation = find(result);
    std::string text = explanation != nullptr ? explanation->meaning : "the library failed in an unknown way";
    text += " (result " + std::to_string(result) + ")";
    if (explanation != nullptr && explanation->advice[0] != '\0') {
        text += std::string("; ") + explanation->advice;
    }
    return text;
}

} // namespace zantlog::tools
