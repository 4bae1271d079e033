// Catalog objects as plain text: a marker for the message id, then the arguments by fixed formats.
#include "zantlog/rendering.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "api/lis_text.h"
#include "base/bounded_text.h"
#include "base/decimal.h"
#include "logfile/os/os_clock.h"
#include "logfile/os/os_text.h"
#include "zantlog/results.h"

namespace zantlog {
namespace {

constexpr size_t kRenderingFailed = SIZE_MAX;

// Bytes that measuring reserves; they are part of the interface, since a text is cut at the measured size.
constexpr size_t kMarkerReserve = 51;
constexpr size_t kCharacterReserve = 2;
constexpr size_t kIntegerReserve = 20;
constexpr size_t kDoubleReserve = 15;
constexpr size_t kErrorReserve = 10;

constexpr size_t kLongestDouble = 352; // DBL_MAX has 309 digits before the point

// Objects within objects: deeper ones, or one that holds itself, would end the caller's stack.
constexpr int kDeepestNesting = 1000;

// One of the two passes over an object: without a buffer it adds up reserves, with one it appends and cuts.
class Pass {
public:
    Pass() = default;
    Pass(char *buffer, size_t capacity)
        : buffer_(buffer), capacity_(capacity), size_(strnlen(buffer, capacity)) {}

    [[nodiscard]] bool measuring() const { return buffer_ == nullptr; }
    [[nodiscard]] size_t size() const { return size_; }

    void reserve(size_t bytes) { size_ += bytes; }

    void append(const char *piece, size_t length) {
        if (size_ >= capacity_) {
            return;
        }
        const size_t taken = std::min(length, capacity_ - size_ - 1);
        std::memcpy(buffer_ + size_, piece, taken);
        size_ += taken;
        buffer_[size_] = '\0';
    }

private:
    char *buffer_ = nullptr;
    size_t capacity_ = 0;
    size_t size_ = 0;
};

enum class Outcome { Rendered, UnknownKind, Failed };

bool renderObject(Pass &pass, const zantLis *lis, int depth);

void addPiece(Pass &pass, size_t reserve, const char *piece, size_t length) {
    if (pass.measuring()) {
        pass.reserve(reserve);
    } else {
        pass.append(piece, length);
    }
}

void addText(Pass &pass, const char *text) {
    const size_t length = std::strlen(text);
    addPiece(pass, length + 1, text, length);
}

bool addCharacter(Pass &pass, const zantLisArgIter *iter) {
    wchar_t character = 0;
    if (zantLisGetArg_wchar(iter, &character) != ZANTLIS_OK) {
        return false;
    }
    char bytes[16] = {};
    const size_t length = os::wideCharToMultiByte(bytes, character);
    // A character that the code page lacks prints nothing, and a NUL ends what it prints.
    addPiece(pass, kCharacterReserve, bytes, length == os::kConversionFailed ? 0 : strnlen(bytes, length));
    return true;
}

bool addSigned(Pass &pass, const zantLisArgIter *iter) {
    int64_t value = 0;
    if (zantLisGetArg_longlong(iter, &value) != ZANTLIS_OK) {
        return false;
    }
    char area[kDecimalDigits];
    const char *digits = formatSigned(area, value);
    addPiece(pass, kIntegerReserve, digits, static_cast<size_t>(area + kDecimalDigits - digits));
    return true;
}

bool addUnsigned(Pass &pass, const zantLisArgIter *iter) {
    uint64_t value = 0;
    if (zantLisGetArg_ulonglong(iter, &value) != ZANTLIS_OK) {
        return false;
    }
    char area[kDecimalDigits];
    const char *digits = formatUnsigned(area, value);
    addPiece(pass, kIntegerReserve, digits, static_cast<size_t>(area + kDecimalDigits - digits));
    return true;
}

bool addDouble(Pass &pass, const zantLisArgIter *iter) {
    double value = 0;
    if (zantLisGetArg_double(iter, &value) != ZANTLIS_OK) {
        return false;
    }
    char digits[kLongestDouble];
    const int length = std::snprintf(digits, sizeof digits, "%f", value);
    addPiece(pass, kDoubleReserve, digits, length < 0 ? 0 : static_cast<size_t>(length));
    return true;
}

bool addPointer(Pass &pass, const zantLisArgIter *iter) {
    void *value = nullptr;
    if (zantLisGetArg_pointer(iter, &value) != ZANTLIS_OK) {
        return false;
    }
    char digits[24];
    BoundedText text(digits);
    text.text("0x").hexadecimal(reinterpret_cast<uintptr_t>(value));
    addPiece(pass, kIntegerReserve, digits, text.length());
    return true;
}

// A wide string in the code page.
struct NarrowedText {
    char small[256];
    OwnedText large;
    const char *bytes = ""; // empty when memory is short
    size_t length = 0;
};

// False when the code page lacks a character. The runtime's measure alone does not tell: in the "C" locale it
// counts characters without looking at them.
bool narrow(const wchar_t *wide, NarrowedText *out) {
    out->length = os::wideToMultiByte(nullptr, wide, 0);
    if (out->length == os::kConversionFailed) {
        return false;
    }
    char *target = out->small;
    if (out->length >= sizeof out->small) {
        out->large = allocateBlock<char>(out->length + 1);
        target = out->large.get();
    }
    if (target == nullptr) {
        return true;
    }
    out->bytes = target;
    return os::wideToMultiByte(target, wide, out->length + 1) != os::kConversionFailed;
}

bool addWideString(Pass &pass, const zantLisArgIter *iter) {
    const wchar_t *value = nullptr;
    if (zantLisGetArg_wstring(iter, &value) != ZANTLIS_OK || value == nullptr) {
        return false;
    }
    NarrowedText text;
    if (!narrow(value, &text)) {
        return false;
    }
    // Without memory for it the piece alone is left out.
    addPiece(pass, text.length + 1, text.bytes, text.bytes[0] == 0 ? 0 : text.length);
    return true;
}

bool addError(Pass &pass, const zantLisArgIter *iter) {
    int64_t value = 0;
    if (zantLisGetArg_os_error(iter, &value) != ZANTLIS_OK) {
        return false;
    }
    char area[kDecimalDigits];
    const char *digits = formatSigned(area, static_cast<int32_t>(value));
    addPiece(pass, kErrorReserve, digits, static_cast<size_t>(area + kDecimalDigits - digits));
    return true;
}

bool addDateTime(Pass &pass, const zantLisArgIter *iter) {
    int64_t value = 0;
    if (zantLisGetArg_datetime(iter, &value) != ZANTLIS_OK) {
        return false;
    }
    std::tm local;
    char text[32];
    if (!os::localTime(value, &local) || !os::formatAscTime(local, text)) {
        return true;
    }
    // The text ends with a line feed of its own, before the blank; kept: such texts are in the logs.
    const size_t length = std::strlen(text);
    addPiece(pass, length, text, length);
    if (!pass.measuring()) {
        pass.append(" ", 1);
    }
    return true;
}

// `depth` is that of the object around it.
bool addNested(Pass &pass, const zantLisArgIter *iter, int depth) {
    zantLis nested = {};
    if (depth == kDeepestNesting || zantLisGetArg_lis(iter, &nested) != ZANTLIS_OK) {
        return false;
    }
    return renderObject(pass, &nested, depth + 1);
}

bool addString(Pass &pass, const zantLisArgIter *iter,
               int32_t (*fetch)(const zantLisArgIter *iter, const char **value)) {
    const char *value = nullptr;
    if (fetch(iter, &value) != ZANTLIS_OK || value == nullptr) {
        return false;
    }
    addText(pass, value);
    return true;
}

Outcome addArgument(Pass &pass, const zantLisArgIter *iter, int depth) {
    int32_t kind = 0;
    if (zantLisGetArgTypeId(iter, &kind) != ZANTLIS_OK) {
        return Outcome::Failed;
    }
    const auto outcome = [](bool added) { return added ? Outcome::Rendered : Outcome::Failed; };
    switch (kind) {
    case ZANTLIS_WIDE_CHAR:
        return outcome(addCharacter(pass, iter));
    case ZANTLIS_SIGNED:
        return outcome(addSigned(pass, iter));
    case ZANTLIS_UNSIGNED:
        return outcome(addUnsigned(pass, iter));
    case ZANTLIS_DOUBLE:
        return outcome(addDouble(pass, iter));
    case ZANTLIS_POINTER:
        return outcome(addPointer(pass, iter));
    case ZANTLIS_WIDE_STRING:
        return outcome(addWideString(pass, iter));
    case ZANTLIS_OS_ERROR:
    case ZANTLIS_OS_ERROR_WIDE:
        return outcome(addError(pass, iter));
    case ZANTLIS_DATE_TIME:
        return outcome(addDateTime(pass, iter));
    case ZANTLIS_NESTED:
        return outcome(addNested(pass, iter, depth));
    case ZANTLIS_UTF8_STRING:
        return outcome(addString(pass, iter, zantLisGetArg_utf8string));
    case ZANTLIS_NATIVE_STRING:
        return outcome(addString(pass, iter, zantLisGetArg_nativeString));
    default:
        return Outcome::UnknownKind;
    }
}

void addMarker(Pass &pass, uint32_t textId) {
    char marker[64];
    BoundedText text(marker);
    text.text("[Cannot find catalog for message id=").signedNumber(static_cast<int32_t>(textId)).text("] ");
    addPiece(pass, kMarkerReserve, marker, text.length());
}

// False when an argument cannot be read or converted, or objects nest too deep. An argument of a kind that is
// not known ends the object there.
bool renderObject(Pass &pass, const zantLis *lis, int depth) {
    uint32_t textId = 0;
    if (zantLisGetTextId(lis, &textId) != ZANTLIS_OK) {
        return false;
    }
    if (textId != 0) {
        addMarker(pass, textId);
    }
    zantLisArgIter iter = {};
    if (zantLisGetArgsBegin(lis, &iter) != ZANTLIS_OK) {
        return true;
    }
    for (bool first = true;; first = false) {
        if (!first && textId != 0) {
            addPiece(pass, 1, ",", 1);
        }
        const Outcome outcome = addArgument(pass, &iter, depth);
        if (outcome != Outcome::Rendered) {
            return outcome == Outcome::UnknownKind;
        }
        if (zantLisGetNextArg(&iter) != ZANTLIS_OK) {
            return true;
        }
    }
}

} // namespace

OwnedText renderLis(zantLis *lis) {
    size_t size = 0;
    strncatlis(nullptr, &size, lis);
    if (size == kRenderingFailed || size == 0) {
        return nullptr;
    }
    OwnedText text(static_cast<char *>(zantLogMalloc(size)));
    if (!text) {
        return nullptr;
    }
    std::memset(text.get(), 0, size);
    strncatlis(text.get(), &size, lis);
    if (size == kRenderingFailed) {
        return nullptr;
    }
    return text;
}

} // namespace zantlog

using namespace zantlog;

void strncatlis(char *buffer, size_t *size, zantLis *lis) {
    if (size == nullptr) {
        return;
    }
    if (lis == nullptr) {
        *size = kRenderingFailed;
        return;
    }
    if (buffer == nullptr) {
        Pass measuring;
        *size = renderObject(measuring, lis, 0) ? measuring.size() : kRenderingFailed;
        return;
    }
    if (*size == kRenderingFailed) {
        return; // the measure of an object that cannot be rendered is no capacity
    }
    Pass appending(buffer, *size);
    if (!renderObject(appending, lis, 0)) {
        *size = kRenderingFailed;
    }
}

void fstrncat(char *buffer, size_t capacity, const char *fmt, ...) {
    if (buffer == nullptr || fmt == nullptr) {
        return;
    }
    const size_t length = strnlen(buffer, capacity);
    if (capacity - length < 2) {
        return;
    }
    const OwnedText piece(static_cast<char *>(zantLogMalloc(capacity)));
    if (!piece) {
        return;
    }
    va_list args;
    va_start(args, fmt);
    const int printed = std::vsnprintf(piece.get(), capacity, fmt, args);
    va_end(args);
    if (printed < 0) {
        return;
    }
    Pass(buffer, capacity).append(piece.get(), std::strlen(piece.get()));
}

uint32_t listxt_svnprintf(char **out, const char *fmt, va_list args) {
    if (out == nullptr) {
        return ZANTLOG_OK;
    }
    zantLis lis = {};
    if (zantLisTextV(&lis, fmt, args) != ZANTLIS_OK) {
        return ZANTLOG_OK;
    }
    *out = renderLis(&lis).release();
    zantLisFree(&lis);
    return ZANTLOG_OK;
}

uint32_t zantLogMapLisResToLoggingRes(int32_t lisResult) {
    switch (lisResult) {
    case ZANTLIS_OK:
        return ZANTLOG_OK;
    case ZANTLIS_INVALID_ARGUMENT:
        return ZANTLOG_INVALID_ARGUMENT;
    case ZANTLIS_OUT_OF_MEMORY:
        return ZANTLOG_OUT_OF_MEMORY;
    case ZANTLIS_CATALOG_FAILURE:
        return ZANTLOG_CATALOG_FAILURE;
    default:
        return ZANTLOG_CATALOG_OTHER;
    }
}
