#include "tools/qzlogview/arguments.h"

#include <charconv>

#include "tools/qzlogview/characters.h"

namespace zantlog::view {

namespace {

std::string textOfReal(double value) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return std::string(digits, end);
}

std::string textOfPointer(uint64_t value) {
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, 16).ptr;
    return "0x" + std::string(digits, end);
}

void takeText(const zantLisArgIter &at, Argument *argument) {
    const char *narrow = nullptr;
    const wchar_t *wide = nullptr;
    if (argument->kind == ZANTLIS_WIDE_STRING) {
        if (zantLisGetArg_wstring(&at, &wide) == ZANTLIS_OK && wide != nullptr) {
            argument->text = utf8Of(wide);
        }
        return;
    }
    const int32_t result = argument->kind == ZANTLIS_UTF8_STRING ? zantLisGetArg_utf8string(&at, &narrow)
                                                                 : zantLisGetArg_nativeString(&at, &narrow);
    if (result == ZANTLIS_OK && narrow != nullptr) {
        argument->text = narrow;
    }
}

void takeNumber(const zantLisArgIter &at, Argument *argument) {
    switch (argument->kind) {
    case ZANTLIS_SIGNED:
        (void)zantLisGetArg_longlong(&at, &argument->number);
        break;
    case ZANTLIS_DATE_TIME:
        (void)zantLisGetArg_datetime(&at, &argument->number);
        break;
    default:
        (void)zantLisGetArg_os_error(&at, &argument->number);
        break;
    }
    argument->text = std::to_string(argument->number);
}

Argument take(const zantLisArgIter &at) {
    Argument argument;
    (void)zantLisGetArgTypeId(&at, &argument.kind);
    switch (argument.kind) {
    case ZANTLIS_WIDE_CHAR: {
        wchar_t character = 0;
        (void)zantLisGetArg_wchar(&at, &character);
        appendCharacter(static_cast<char16_t>(character), &argument.text);
        break;
    }
    case ZANTLIS_UNSIGNED:
        (void)zantLisGetArg_ulonglong(&at, &argument.word);
        argument.text = std::to_string(argument.word);
        break;
    case ZANTLIS_DOUBLE:
        (void)zantLisGetArg_double(&at, &argument.real);
        argument.text = textOfReal(argument.real);
        break;
    case ZANTLIS_POINTER: {
        void *address = nullptr;
        (void)zantLisGetArg_pointer(&at, &address);
        argument.word = reinterpret_cast<uintptr_t>(address);
        argument.text = textOfPointer(argument.word);
        break;
    }
    case ZANTLIS_NESTED: {
        zantLis nested = {};
        if (zantLisGetArg_lis(&at, &nested) == ZANTLIS_OK) {
            argument.nested = argumentsOf(nested);
        }
        break;
    }
    case ZANTLIS_WIDE_STRING:
    case ZANTLIS_UTF8_STRING:
    case ZANTLIS_NATIVE_STRING:
        takeText(at, &argument);
        break;
    default:
        takeNumber(at, &argument);
        break;
    }
    return argument;
}

} // namespace

std::vector<Argument> argumentsOf(const zantLis &object) {
    std::vector<Argument> arguments;
    zantLisArgIter at = {};
    if (object.first == nullptr || zantLisGetArgsBegin(&object, &at) != ZANTLIS_OK) {
        return arguments;
    }
    do {
        arguments.push_back(take(at));
    } while (zantLisGetNextArg(&at) == ZANTLIS_OK);
    return arguments;
}

std::string kindName(int32_t kind) {
    switch (kind) {
    case ZANTLIS_WIDE_CHAR:
        return "character";
    case ZANTLIS_SIGNED:
        return "signed";
    case ZANTLIS_UNSIGNED:
        return "unsigned";
    case ZANTLIS_DOUBLE:
        return "double";
    case ZANTLIS_POINTER:
        return "pointer";
    case ZANTLIS_WIDE_STRING:
        return "wide";
    case ZANTLIS_DATE_TIME:
        return "time";
    case ZANTLIS_NESTED:
        return "list";
    case ZANTLIS_UTF8_STRING:
        return "utf8";
    case ZANTLIS_NATIVE_STRING:
        return "native";
    default:
        return "error";
    }
}

} // namespace zantlog::view
