// From a format and its arguments to an object.
#pragma once

#include "zantlog/catalog.h"

namespace zantlog::catalog {

enum class ObjectForm {
    plainText,     // the literal pieces are arguments too, so that the arguments in their order are the text
    catalogMessage // the text is the catalog's; only what the conversions name is kept
};

// Result of the catalog library; the object is written on success only.
[[nodiscard]] int32_t buildObject(zantLis *object, ObjectForm form, uint32_t textId, const char *format,
                                  va_list arguments);

} // namespace zantlog::catalog
