// The exported conversions to UTF-8.
#include "base/utf8.h"
#include "logfile/os/os_text.h"
#include "zantlog/results.h"
#include "zantlog/serialization.h"

#include <cstring>

using namespace zantlog;

uint32_t wcs2utf8(char **out, const wchar_t *text) {
    if (out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *out = nullptr;
    if (text == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    OwnedText converted;
    const uint32_t result = utf8FromWide(text, os::wideLength(text), &converted);
    *out = converted.release();
    return result;
}

uint32_t mbs2utf8(char **out, const char *text) {
    if (out == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    *out = nullptr;
    if (text == nullptr) {
        return ZANTLOG_INVALID_ARGUMENT;
    }
    // No character has fewer bytes than it has units in UTF-16.
    const size_t units = std::strlen(text) + 1;
    OwnedWideText wide = allocateBlock<wchar_t>(units);
    if (wide == nullptr) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    if (os::multiByteToWide(wide.get(), text, units) == os::kConversionFailed) {
        return ZANTLOG_FAILURE;
    }
    return wcs2utf8(out, wide.get());
}
