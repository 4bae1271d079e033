// The rollover mode as text.
#include "base/bounded_text.h"
#include "zantlog/config.h"

#include <cstring>

namespace {

constexpr char kNone[] = "None";
constexpr char kFileSize[] = "FileSize";
constexpr char kLocalTime[] = "LocalTime";
constexpr char kPeriodic[] = "Periodic";
constexpr char kSeparator[] = " | ";

} // namespace

extern "C" uint32_t SettingStringToRolloverModeEnum(const char *text) {
    if (text == nullptr) {
        return ZANTLOG_ROLLOVER_NONE;
    }
    uint32_t mode = ZANTLOG_ROLLOVER_NONE;
    if (std::strstr(text, kFileSize) != nullptr) {
        mode |= ZANTLOG_ROLLOVER_FILE_SIZE;
    }
    if (std::strstr(text, kLocalTime) != nullptr) {
        mode |= ZANTLOG_ROLLOVER_LOCAL_TIME;
    } else if (std::strstr(text, kPeriodic) != nullptr) {
        mode |= ZANTLOG_ROLLOVER_PERIODIC;
    }
    return mode;
}

extern "C" char *RolloverModeEnumToSettingString(uint32_t mode, char *buffer) {
    if (buffer == nullptr) {
        return nullptr;
    }
    const size_t used = strnlen(buffer, ZANTLOG_ROLLOVER_MODE_TEXT);
    if (used == ZANTLOG_ROLLOVER_MODE_TEXT) {
        return buffer;
    }
    zantlog::BoundedText text(buffer + used, ZANTLOG_ROLLOVER_MODE_TEXT - used);
    if (mode == ZANTLOG_ROLLOVER_NONE) {
        text.text(kNone);
    }
    if ((mode & ZANTLOG_ROLLOVER_FILE_SIZE) != 0) {
        text.text(kFileSize);
    }
    if ((mode & ZANTLOG_ROLLOVER_LOCAL_TIME) != 0) {
        text.text(*buffer != '\0' ? kSeparator : "").text(kLocalTime);
    }
    if ((mode & ZANTLOG_ROLLOVER_PERIODIC) != 0) {
        text.text(*buffer != '\0' ? kSeparator : "").text(kPeriodic);
    }
    return buffer;
}
