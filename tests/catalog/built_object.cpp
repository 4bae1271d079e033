#include "tests/catalog/built_object.h"

namespace zantlog::test {

const zantLisArg &BuiltObject::argument(size_t index) const {
    static const zantLisArg none = {-1, {}, {}, nullptr};
    const zantLisArg *at = lis.first;
    for (; at != nullptr && index > 0; --index) {
        at = at->next;
    }
    return at != nullptr ? *at : none;
}

size_t BuiltObject::chainLength() const {
    size_t count = 0;
    for (const zantLisArg *at = lis.first; at != nullptr; at = at->next) {
        ++count;
    }
    return count;
}

std::string BuiltObject::texts() const {
    std::string all;
    for (const zantLisArg *at = lis.first; at != nullptr; at = at->next) {
        const bool isText = at->kind == ZANTLIS_NATIVE_STRING || at->kind == ZANTLIS_UTF8_STRING;
        all += isText ? at->first.narrow : "?";
    }
    return all;
}

BuiltObject message(const char *format, ...) {
    BuiltObject object;
    va_list args;
    va_start(args, format);
    object.result = zantLisVEx(&object.lis, 0, 4711, format, args);
    va_end(args);
    return object;
}

BuiltObject plainText(const char *format, ...) {
    BuiltObject object;
    va_list args;
    va_start(args, format);
    object.result = zantLisTextV(&object.lis, format, args);
    va_end(args);
    return object;
}

std::vector<uint16_t> units(const wchar_t *text) {
    std::vector<uint16_t> all;
    for (; *text != 0; ++text) {
        all.push_back(static_cast<uint16_t>(*text));
    }
    return all;
}

} // namespace zantlog::test
