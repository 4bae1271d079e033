// The exported functions that read objects.
#include "zantlog/catalog.h"

namespace {

// An iterator holds the current argument; null before the first and behind the last one.
const zantLisArg *currentArgument(const zantLisArgIter *iter) {
    return iter != nullptr ? reinterpret_cast<const zantLisArg *>(static_cast<uintptr_t>(iter->words[0]))
                           : nullptr;
}

void setCurrent(zantLisArgIter *iter, const zantLisArg *argument) {
    iter->words[0] = reinterpret_cast<uintptr_t>(argument);
    iter->words[1] = 0;
}

// The current argument if it is of this kind, and if there is a place for its value.
const zantLisArg *argumentOfKind(const zantLisArgIter *iter, int32_t kind, const void *place) {
    const zantLisArg *argument = currentArgument(iter);
    return argument != nullptr && argument->kind == kind && place != nullptr ? argument : nullptr;
}

template <typename T> int32_t store(T *place, T value) {
    *place = value;
    return ZANTLIS_OK;
}

} // namespace

int32_t zantLisGetTextId(const zantLis *lis, uint32_t *id) {
    if (lis == nullptr || id == nullptr) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    return store(id, lis->textId);
}

int32_t zantLisGetArgCount(const zantLis *lis, uint32_t *count) {
    if (lis == nullptr || count == nullptr) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    return store(count, lis->argCount);
}

int32_t zantLisGetArgsBegin(const zantLis *lis, zantLisArgIter *iter) {
    if (lis == nullptr || iter == nullptr) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    setCurrent(iter, lis->first);
    return lis->first != nullptr ? ZANTLIS_OK : ZANTLIS_OTHER;
}

int32_t zantLisGetNextArg(zantLisArgIter *iter) {
    if (iter == nullptr) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    const zantLisArg *argument = currentArgument(iter);
    if (argument == nullptr) {
        return ZANTLIS_OTHER;
    }
    setCurrent(iter, argument->next);
    return argument->next != nullptr ? ZANTLIS_OK : ZANTLIS_OTHER;
}

int32_t zantLisGetArgTypeId(const zantLisArgIter *iter, int32_t *typeId) {
    const zantLisArg *argument = currentArgument(iter);
    if (argument == nullptr || typeId == nullptr) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    return store(typeId, argument->kind);
}

int32_t zantLisGetArg_wchar(const zantLisArgIter *iter, wchar_t *value) {
    const zantLisArg *argument = argumentOfKind(iter, ZANTLIS_WIDE_CHAR, value);
    return argument != nullptr ? store(value, static_cast<wchar_t>(argument->first.character))
                               : ZANTLIS_INVALID_ARGUMENT;
}

int32_t zantLisGetArg_longlong(const zantLisArgIter *iter, int64_t *value) {
    const zantLisArg *argument = argumentOfKind(iter, ZANTLIS_SIGNED, value);
    return argument != nullptr ? store(value, argument->second.number) : ZANTLIS_INVALID_ARGUMENT;
}

int32_t zantLisGetArg_ulonglong(const zantLisArgIter *iter, uint64_t *value) {
    const zantLisArg *argument = argumentOfKind(iter, ZANTLIS_UNSIGNED, value);
    return argument != nullptr ? store(value, argument->second.word) : ZANTLIS_INVALID_ARGUMENT;
}

int32_t zantLisGetArg_double(const zantLisArgIter *iter, double *value) {
    const zantLisArg *argument = argumentOfKind(iter, ZANTLIS_DOUBLE, value);
    return argument != nullptr ? store(value, argument->first.real) : ZANTLIS_INVALID_ARGUMENT;
}

int32_t zantLisGetArg_pointer(const zantLisArgIter *iter, void **value) {
    const zantLisArg *argument = argumentOfKind(iter, ZANTLIS_POINTER, value);
    return argument != nullptr ? store(value, argument->first.pointer) : ZANTLIS_INVALID_ARGUMENT;
}

int32_t zantLisGetArg_nativeString(const zantLisArgIter *iter, const char **value) {
    const zantLisArg *argument = argumentOfKind(iter, ZANTLIS_NATIVE_STRING, value);
    return argument != nullptr ? store(value, argument->first.narrow) : ZANTLIS_INVALID_ARGUMENT;
}

int32_t zantLisGetArg_utf8string(const zantLisArgIter *iter, const char **value) {
    const zantLisArg *argument = argumentOfKind(iter, ZANTLIS_UTF8_STRING, value);
    return argument != nullptr ? store(value, argument->first.narrow) : ZANTLIS_INVALID_ARGUMENT;
}

int32_t zantLisGetArg_wstring(const zantLisArgIter *iter, const wchar_t **value) {
    const zantLisArg *argument = argumentOfKind(iter, ZANTLIS_WIDE_STRING, value);
    return argument != nullptr ? store(value, argument->first.wide) : ZANTLIS_INVALID_ARGUMENT;
}

int32_t zantLisGetArg_os_error(const zantLisArgIter *iter, int64_t *value) {
    const zantLisArg *argument = argumentOfKind(iter, ZANTLIS_OS_ERROR, value);
    if (argument == nullptr) {
        argument = argumentOfKind(iter, ZANTLIS_OS_ERROR_WIDE, value);
    }
    return argument != nullptr ? store(value, argument->second.number) : ZANTLIS_INVALID_ARGUMENT;
}

int32_t zantLisGetArg_datetime(const zantLisArgIter *iter, int64_t *value) {
    const zantLisArg *argument = argumentOfKind(iter, ZANTLIS_DATE_TIME, value);
    return argument != nullptr ? store(value, argument->first.seconds) : ZANTLIS_INVALID_ARGUMENT;
}

int32_t zantLisGetArg_lis(const zantLisArgIter *iter, zantLis *value) {
    const zantLisArg *argument = argumentOfKind(iter, ZANTLIS_NESTED, value);
    if (argument == nullptr || argument->first.pointer == nullptr) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    return store(value, *static_cast<const zantLis *>(argument->first.pointer));
}
