// The catalog library alone can make what it frees, and what it makes is described by a format: so a format
// is written that asks for the arguments of the line.
#include "reader/argument_object.h"

#include <bit>
#include <cstring>

#include "base/argument_slots.h"
#include "base/owned_text.h"
#include "base/utf8.h"
#include "reader/argument_scan.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

constexpr size_t kLongestConversion = 5; // "%hhd", and a terminator

// What the arguments of one list need beside the line.
struct Needs {
    size_t arguments = 0;
    size_t lists = 0;
    size_t wideUnits = 0;
    size_t bytes = 0;
};

// Walks over a list. False when it is none.
bool measure(std::string_view *rest, int depth, Needs *needs) {
    if (!openArgumentList(rest)) {
        return false;
    }
    ScannedArgument argument;
    for (;;) {
        const Scan scan = scanArgument(rest, depth, &argument);
        if (scan != Scan::argument) {
            return scan == Scan::end;
        }
        ++needs->arguments;
        needs->lists += argument.kind == ZANTLIS_NESTED ? 1 : 0;
        if (argument.kind == ZANTLIS_WIDE_STRING) {
            needs->wideUnits += argument.text.size() + 1; // no character has fewer bytes than units
        } else if (argument.kind != ZANTLIS_NESTED) {
            needs->bytes += argument.text.size() + 1;
        }
    }
}

// The arguments as the catalog library takes them: a format, and a slot for each. All in one block.
class Arguments {
public:
    Arguments() = default;
    ~Arguments();
    Arguments(const Arguments &) = delete;
    Arguments &operator=(const Arguments &) = delete;

    [[nodiscard]] bool allocate(const Needs &needs);
    // Of a list at that depth, which has been measured.
    [[nodiscard]] uint32_t fill(std::string_view list, int depth);
    [[nodiscard]] uint32_t makeObject(zantLis *object) const;

private:
    [[nodiscard]] uint32_t add(const ScannedArgument &argument, int depth);
    [[nodiscard]] uint32_t addInteger(const ScannedArgument &argument, char letter);
    [[nodiscard]] uint32_t addWideText(std::string_view text);
    [[nodiscard]] uint32_t addNested(std::string_view list, int depth);
    void addText(const char *conversion, std::string_view text);
    void put(const char *conversion, uint64_t slot);

    OwnedText block_;
    uint64_t *slots_ = nullptr;
    zantLis *lists_ = nullptr;
    wchar_t *wide_ = nullptr;
    char *bytes_ = nullptr;
    char *format_ = nullptr;
    uint64_t *nextSlot_ = nullptr;
    zantLis *nextList_ = nullptr;
    char *nextFormat_ = nullptr;
};

[[nodiscard]] uint32_t makeList(std::string_view list, int depth, const Needs &needs, zantLis *object) {
    *object = {};
    if (needs.arguments == 0) {
        return ZANTLOG_OK;
    }
    Arguments arguments;
    if (!arguments.allocate(needs)) {
        return ZANTLOG_OUT_OF_MEMORY;
    }
    const uint32_t result = arguments.fill(list, depth);
    return result == ZANTLOG_OK ? arguments.makeObject(object) : result;
}

Arguments::~Arguments() {
    for (zantLis *list = lists_; list != nextList_; ++list) {
        zantLisFree(list);
    }
}

bool Arguments::allocate(const Needs &needs) {
    const size_t slotBytes = needs.arguments * sizeof(uint64_t);
    const size_t listBytes = needs.lists * sizeof(zantLis);
    const size_t wideBytes = needs.wideUnits * sizeof(wchar_t);
    const size_t formatBytes = needs.arguments * kLongestConversion + 1;
    // In the order of their alignment. The line is in memory itself, so the sum fits.
    block_ = allocateBlock<char>(slotBytes + listBytes + wideBytes + needs.bytes + formatBytes);
    if (block_ == nullptr) {
        return false;
    }
    char *at = block_.get();
    nextSlot_ = slots_ = reinterpret_cast<uint64_t *>(at);
    nextList_ = lists_ = reinterpret_cast<zantLis *>(at + slotBytes);
    wide_ = reinterpret_cast<wchar_t *>(at + slotBytes + listBytes);
    bytes_ = at + slotBytes + listBytes + wideBytes;
    nextFormat_ = format_ = bytes_ + needs.bytes;
    return true;
}

void Arguments::put(const char *conversion, uint64_t slot) {
    *nextSlot_++ = slot;
    const size_t length = std::strlen(conversion);
    std::memcpy(nextFormat_, conversion, length + 1);
    nextFormat_ += length;
}

// In the width of the line where the number fits it and C has an integer of that width, else in 64 bits.
uint32_t Arguments::addInteger(const ScannedArgument &argument, char letter) {
    const bool isSigned = letter == 'd';
    const auto fits = [&](int bits) {
        const auto number = static_cast<int64_t>(argument.word);
        const int64_t half = int64_t{1} << (bits - 1);
        return isSigned ? number >= -half && number < half : argument.word >> bits == 0;
    };
    char conversion[kLongestConversion] = "%";
    const char *size = "ll";
    if (argument.width == 8 && fits(8)) {
        size = "hh";
    } else if (argument.width == 16 && fits(16)) {
        size = "h";
    } else if (argument.width == 32 && fits(32)) {
        size = "";
    }
    const size_t length = std::strlen(size);
    std::memcpy(conversion + 1, size, length);
    conversion[1 + length] = letter;
    conversion[2 + length] = '\0';
    put(conversion, argument.word);
    return ZANTLOG_OK;
}

void Arguments::addText(const char *conversion, std::string_view text) {
    put(conversion, reinterpret_cast<uintptr_t>(bytes_));
    std::memcpy(bytes_, text.data(), text.size());
    bytes_[text.size()] = '\0';
    bytes_ += text.size() + 1;
}

uint32_t Arguments::addWideText(std::string_view text) {
    size_t length = 0;
    if (!decodeUtf8(text.data(), text.size(), wide_, text.size() + 1, &length)) {
        return ZANTLOG_FAILURE;
    }
    put("%ls", reinterpret_cast<uintptr_t>(wide_));
    wide_ += length + 1;
    return ZANTLOG_OK;
}

uint32_t Arguments::addNested(std::string_view list, int depth) {
    Needs needs;
    std::string_view walked = list;
    if (!measure(&walked, depth, &needs)) {
        return ZANTLOG_FAILURE;
    }
    const uint32_t result = makeList(list, depth, needs, nextList_);
    if (result == ZANTLOG_OK) {
        put("%N", reinterpret_cast<uintptr_t>(nextList_));
        ++nextList_;
    }
    return result;
}

uint32_t Arguments::add(const ScannedArgument &argument, int depth) {
    switch (argument.kind) {
    case ZANTLIS_SIGNED:
        return addInteger(argument, 'd');
    case ZANTLIS_UNSIGNED:
        return addInteger(argument, 'u');
    case ZANTLIS_WIDE_STRING:
        return addWideText(argument.text);
    case ZANTLIS_NESTED:
        return addNested(argument.text, depth + 1);
    case ZANTLIS_UTF8_STRING:
        addText("%U", argument.text);
        break;
    case ZANTLIS_NATIVE_STRING:
        addText("%s", argument.text);
        break;
    case ZANTLIS_WIDE_CHAR:
        put("%lc", argument.word);
        break;
    case ZANTLIS_DOUBLE:
        put("%f", std::bit_cast<uint64_t>(argument.real));
        break;
    case ZANTLIS_POINTER:
        put("%p", argument.word);
        break;
    case ZANTLIS_OS_ERROR: {
        const bool narrow = argument.width == 32 &&
                            static_cast<int64_t>(argument.word) == static_cast<int32_t>(argument.word);
        put(narrow ? "%r" : "%R", argument.word);
        break;
    }
    case ZANTLIS_DATE_TIME:
        put("%T", argument.word);
        break;
    default:
        return ZANTLOG_FAILURE;
    }
    return ZANTLOG_OK;
}

uint32_t Arguments::fill(std::string_view list, int depth) {
    if (!openArgumentList(&list)) {
        return ZANTLOG_FAILURE;
    }
    ScannedArgument argument;
    while (scanArgument(&list, depth, &argument) == Scan::argument) {
        const uint32_t result = add(argument, depth);
        if (result != ZANTLOG_OK) {
            return result;
        }
    }
    return ZANTLOG_OK;
}

uint32_t Arguments::makeObject(zantLis *object) const {
    va_list list;
    listOfSlots(slots_, &list);
    const int32_t result = zantLisVEx(object, 0, 0, format_, list);
    if (result == ZANTLIS_OK) {
        return ZANTLOG_OK;
    }
    *object = {};
    return result == ZANTLIS_OUT_OF_MEMORY ? ZANTLOG_OUT_OF_MEMORY : ZANTLOG_FAILURE;
}

} // namespace

uint32_t takeArgumentList(std::string_view *rest, zantLis *object) {
    *object = {};
    const std::string_view list = *rest;
    Needs needs;
    if (!measure(rest, 0, &needs)) {
        return ZANTLOG_FAILURE;
    }
    return makeList(list, 0, needs, object);
}

} // namespace zantlog
