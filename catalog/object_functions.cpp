// The exported functions that build and free objects.
#include "catalog/arena.h"
#include "catalog/object_builder.h"

using namespace zantlog::catalog;

namespace {

int32_t build(zantLis *lis, ObjectForm form, uint32_t id, const char *format, va_list arguments) {
    if (lis == nullptr) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    *lis = zantLis{}; // so that freeing the object is harmless after a failure
    return format != nullptr ? buildObject(lis, form, id, format, arguments) : ZANTLIS_INVALID_ARGUMENT;
}

} // namespace

int32_t zantLisVEx(zantLis *lis, uint32_t /*selector*/, uint32_t msgid, const char *fmt, va_list args) {
    return build(lis, ObjectForm::catalogMessage, msgid, fmt, args);
}

int32_t zantLisTextV(zantLis *lis, const char *fmt, va_list args) {
    return build(lis, ObjectForm::plainText, 0, fmt, args);
}

int32_t zantLisFree(zantLis *lis) {
    if (lis == nullptr) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    releaseBlock(lis->first);
    *lis = zantLis{};
    return ZANTLIS_OK;
}
