#include "base/shown_text.h"

#include "logfile/os/os_text.h"
#include "zantlog/results.h"

#include <memory>
#include <unicode/ucnv.h>
#include <unicode/ustring.h>

namespace zantlog {

namespace {

constexpr size_t kLongestText = INT32_MAX / 4; // ICU counts in int32_t, and a unit may become four bytes
constexpr UChar32 kReplacement = 0xFFFD;

struct CloseConverter {
    void operator()(UConverter *converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

uint32_t resultOf(UErrorCode status) {
    if (status == U_MEMORY_ALLOCATION_ERROR) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    return U_FAILURE(status) ? ZANTLOG_FAILURE : ZANTLOG_OK;
}

// A converter substitutes what it does not have, unless it is told otherwise; by a control character in many
// code pages.
uint32_t openConverter(Converter *out) {
    UErrorCode status = U_ZERO_ERROR;
    out->reset(ucnv_open(os::codePageName(), &status));
    if (U_FAILURE(status)) {
        return resultOf(status);
    }
    ucnv_setSubstChars(out->get(), "?", 1, &status);
    return resultOf(status);
}

} // namespace

uint32_t shownInCodePage(const wchar_t *wide, size_t units, OwnedText *out, size_t *length) {
    if (units > kLongestText) {
        return ZANTLOG_FAILURE;
    }
    Converter converter;
    if (const uint32_t result = openConverter(&converter); result != ZANTLOG_OK) {
        return result;
    }
    const int32_t room =
        UCNV_GET_MAX_BYTES_FOR_STRING(static_cast<int32_t>(units), ucnv_getMaxCharSize(converter.get()));
    OwnedText text = allocateBlock<char>(static_cast<size_t>(room) + 1);
    if (!text) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    UErrorCode status = U_ZERO_ERROR;
    const int32_t written =
        ucnv_fromUChars(converter.get(), text.get(), room + 1, reinterpret_cast<const UChar *>(wide),
                        static_cast<int32_t>(units), &status);
    if (U_FAILURE(status)) {
        return resultOf(status);
    }
    *length = static_cast<size_t>(written);
    *out = std::move(text);
    return ZANTLOG_OK;
}

uint32_t shownInCodePage(const char *utf8, size_t bytes, OwnedText *out, size_t *length) {
    if (bytes > kLongestText) {
        return ZANTLOG_FAILURE;
    }
    const OwnedWideText wide = allocateBlock<wchar_t>(bytes + 1);
    if (!wide) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    int32_t units = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8WithSub(reinterpret_cast<UChar *>(wide.get()), static_cast<int32_t>(bytes + 1), &units, utf8,
                         static_cast<int32_t>(bytes), kReplacement, nullptr, &status);
    if (U_FAILURE(status)) {
        return resultOf(status);
    }
    return shownInCodePage(wide.get(), static_cast<size_t>(units), out, length);
}

} // namespace zantlog
