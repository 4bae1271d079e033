// Catalog objects put together by hand.
#pragma once

#include <deque>

#include "zantlog/catalog.h"

namespace zantlog::test {

// An object whose arguments live in it; texts and nested objects are borrowed. Never to be given to
// zantLisFree().
class CatalogObject {
public:
    explicit CatalogObject(uint32_t textId = 0) { lis_.textId = textId; }
    CatalogObject(const CatalogObject &) = delete;
    CatalogObject &operator=(const CatalogObject &) = delete;

    zantLis *lis() { return &lis_; }

    CatalogObject &wideCharacter(uint16_t value) {
        add(ZANTLIS_WIDE_CHAR).first.character = value;
        return *this;
    }
    CatalogObject &signedNumber(int64_t value, uint16_t width = 64) {
        return sized(ZANTLIS_SIGNED, static_cast<uint64_t>(value), width);
    }
    CatalogObject &unsignedNumber(uint64_t value, uint16_t width = 64) {
        return sized(ZANTLIS_UNSIGNED, value, width);
    }
    CatalogObject &real(double value) {
        add(ZANTLIS_DOUBLE).first.real = value;
        return *this;
    }
    CatalogObject &pointer(uintptr_t value) {
        add(ZANTLIS_POINTER).first.word = value;
        return *this;
    }
    CatalogObject &wideString(const wchar_t *value) {
        add(ZANTLIS_WIDE_STRING).first.wide = value;
        return *this;
    }
    CatalogObject &error(int64_t value, int32_t kind = ZANTLIS_OS_ERROR) {
        return sized(kind, static_cast<uint64_t>(value), 32);
    }
    CatalogObject &dateTime(int64_t seconds) {
        add(ZANTLIS_DATE_TIME).first.seconds = seconds;
        return *this;
    }
    CatalogObject &nested(CatalogObject &object) {
        add(ZANTLIS_NESTED).first.pointer = object.lis();
        return *this;
    }
    CatalogObject &utf8(const char *value) {
        add(ZANTLIS_UTF8_STRING).first.narrow = value;
        return *this;
    }
    CatalogObject &native(const char *value) {
        add(ZANTLIS_NATIVE_STRING).first.narrow = value;
        return *this;
    }
    CatalogObject &ofKind(int32_t kind) {
        add(kind);
        return *this;
    }

private:
    zantLisArg &add(int32_t kind) {
        zantLisArg argument = {};
        argument.kind = kind;
        arguments_.push_back(argument);
        zantLisArg &added = arguments_.back();
        if (arguments_.size() == 1) {
            lis_.first = &added;
        } else {
            arguments_[arguments_.size() - 2].next = &added;
        }
        ++lis_.argCount;
        return added;
    }
    CatalogObject &sized(int32_t kind, uint64_t value, uint16_t width) {
        zantLisArg &argument = add(kind);
        argument.first.width = width;
        argument.second.word = value;
        return *this;
    }

    std::deque<zantLisArg> arguments_;
    zantLis lis_ = {};
};

} // namespace zantlog::test
