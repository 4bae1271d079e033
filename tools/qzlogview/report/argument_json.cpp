#include "tools/qzlogview/report/argument_json.h"

#include <charconv>
#include <cstdint>
#include <iterator>

#include "tools/qzlogview/report/json_text.h"

namespace zantlog::view {

namespace {

// Deeper than the library reads, so that no object of its making is cut short.
constexpr int kMaxDepth = 64;

std::string arrayOf(const zantLis &object, int depth);

const char *kindName(int32_t kind) {
    static constexpr const char *kNames[] = {
        "character",     "signed",           "unsigned",   "double",
        "pointer",       "wide text",        "error code", "error code (wide)",
        "date and time", "nested arguments", "UTF-8 text", "text",
    };
    return kind >= 0 && static_cast<size_t>(kind) < std::size(kNames) ? kNames[kind] : "unknown kind";
}

std::string shortest(double value) {
    char digits[32];
    return {digits, std::to_chars(digits, std::end(digits), value).ptr};
}

std::string hexadecimal(const void *pointer) {
    char digits[32];
    const auto value = reinterpret_cast<uintptr_t>(pointer);
    return "0x" + std::string(digits, std::to_chars(digits, std::end(digits), value, 16).ptr);
}

// Stores what `fetch` gives; a value that cannot be had is a default one, as the page shows it.
template <typename Value>
Value fetched(int32_t (*fetch)(const zantLisArgIter *, Value *), const zantLisArgIter &at) {
    Value value{};
    return fetch(&at, &value) == ZANTLIS_OK ? value : Value{};
}

std::string narrow(const char *text) {
    return text == nullptr ? std::string() : text;
}

std::string wide(const wchar_t *text) {
    return text == nullptr ? std::string() : utf8Of(text);
}

std::string character(wchar_t value) {
    const wchar_t text[] = {value, 0};
    return utf8Of(text);
}

std::string textValue(const zantLisArgIter &at, int32_t kind) {
    switch (kind) {
    case ZANTLIS_WIDE_CHAR:
        return character(fetched(zantLisGetArg_wchar, at));
    case ZANTLIS_SIGNED:
        return std::to_string(fetched(zantLisGetArg_longlong, at));
    case ZANTLIS_UNSIGNED:
        return std::to_string(fetched(zantLisGetArg_ulonglong, at));
    case ZANTLIS_DOUBLE:
        return shortest(fetched(zantLisGetArg_double, at));
    case ZANTLIS_POINTER:
        return hexadecimal(fetched(zantLisGetArg_pointer, at));
    case ZANTLIS_WIDE_STRING:
        return wide(fetched(zantLisGetArg_wstring, at));
    case ZANTLIS_OS_ERROR:
    case ZANTLIS_OS_ERROR_WIDE:
        return std::to_string(fetched(zantLisGetArg_os_error, at));
    case ZANTLIS_DATE_TIME:
        return std::to_string(fetched(zantLisGetArg_datetime, at));
    case ZANTLIS_UTF8_STRING:
        return narrow(fetched(zantLisGetArg_utf8string, at));
    case ZANTLIS_NATIVE_STRING:
        return narrow(fetched(zantLisGetArg_nativeString, at));
    default:
        return {};
    }
}

std::string valueJson(const zantLisArgIter &at, int32_t kind, int depth) {
    if (kind == ZANTLIS_NESTED) {
        return arrayOf(fetched(zantLisGetArg_lis, at), depth + 1);
    }
    return jsonText(textValue(at, kind));
}

std::string arrayOf(const zantLis &object, int depth) {
    std::string list = "[";
    zantLisArgIter at = {};
    int32_t result = depth > kMaxDepth ? ZANTLIS_OTHER : zantLisGetArgsBegin(&object, &at);
    for (; result == ZANTLIS_OK; result = zantLisGetNextArg(&at)) {
        int32_t kind = -1;
        if (zantLisGetArgTypeId(&at, &kind) != ZANTLIS_OK) {
            break;
        }
        list += list.size() > 1 ? "," : "";
        list += "[\"" + std::string(kindName(kind)) + "\"," + valueJson(at, kind, depth) + "]";
    }
    return list + "]";
}

} // namespace

std::string argumentJson(const zantLis &object) {
    const std::string list = arrayOf(object, 0);
    return list == "[]" ? std::string() : list;
}

} // namespace zantlog::view
