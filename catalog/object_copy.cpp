#include "catalog/object_copy.h"

#include <cstring>

namespace zantlog::catalog {

namespace {

int32_t copyNested(Arena *arena, const zantLis *source, zantLisArg *copy, int depth) {
    auto *place = static_cast<zantLis *>(arena->take(sizeof(zantLis), alignof(zantLis)));
    zantLis measured{};
    copy->first.pointer = place;
    return copyObject(arena, source, place != nullptr ? place : &measured, depth + 1);
}

int32_t copyArgument(Arena *arena, const zantLisArg &source, zantLisArg *copy, int depth) {
    *copy = source;
    copy->next = nullptr;
    if (source.kind < ZANTLIS_WIDE_CHAR || source.kind > ZANTLIS_NATIVE_STRING) {
        return ZANTLIS_INVALID_ARGUMENT; // what its slots refer to is not known
    }
    switch (source.kind) {
    case ZANTLIS_WIDE_STRING:
        if (source.first.wide != nullptr) {
            copy->first.wide = storeText(arena, source.first.wide, textLength(source.first.wide));
        }
        break;
    case ZANTLIS_UTF8_STRING:
    case ZANTLIS_NATIVE_STRING:
        if (source.first.narrow != nullptr) {
            copy->first.narrow = storeText(arena, source.first.narrow, textLength(source.first.narrow));
        }
        break;
    case ZANTLIS_NESTED:
        if (source.first.pointer != nullptr) {
            return copyNested(arena, static_cast<const zantLis *>(source.first.pointer), copy, depth);
        }
        break;
    default:
        break;
    }
    return ZANTLIS_OK;
}

// The chain as far as the count says, so that a damaged chain is not followed for ever.
uint32_t chainLength(const zantLis &object) {
    uint32_t count = 0;
    for (const zantLisArg *at = object.first; at != nullptr && count < object.argCount; at = at->next) {
        ++count;
    }
    return count;
}

} // namespace

size_t textLength(const char *text) {
    return std::strlen(text);
}

size_t textLength(const wchar_t *text) {
    size_t length = 0;
    while (text[length] != 0) {
        ++length;
    }
    return length;
}

int32_t copyObject(Arena *arena, const zantLis *source, zantLis *copy, int depth) {
    if (depth > kMaximumNesting) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    const uint32_t count = chainLength(*source);
    *copy = zantLis{source->textId, count, nullptr};
    if (count == 0) {
        return ZANTLIS_OK;
    }
    auto *nodes = static_cast<zantLisArg *>(arena->take(count * sizeof(zantLisArg), alignof(zantLisArg)));
    copy->first = nodes;
    const zantLisArg *at = source->first;
    for (uint32_t index = 0; index < count; ++index, at = at->next) {
        zantLisArg measured;
        zantLisArg *node = nodes != nullptr ? &nodes[index] : &measured;
        const int32_t result = copyArgument(arena, *at, node, depth);
        if (result != ZANTLIS_OK) {
            return result;
        }
        if (arena->failed()) {
            return ZANTLIS_OTHER;
        }
        node->next = nodes != nullptr && index + 1 < count ? &nodes[index + 1] : nullptr;
    }
    return ZANTLIS_OK;
}

} // namespace zantlog::catalog
