// What the long form puts before the text.
#pragma once

#include "localizer/message_text.h"

namespace zantlog::localizer {

// "2026-03-29 12:00:00.123 [application, error 2] originator 3, backup: "
void appendHeading(const Catalogs &catalogs, const zantLogMsgRec &rec, NativeText *out);

} // namespace zantlog::localizer
