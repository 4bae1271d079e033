// The text of a message, out of the catalogs of a locale.
#pragma once

#include "localizer/argument_text.h"
#include "localizer/catalog_file.h"
#include "zantlog/message.h"

namespace zantlog::localizer {

// The catalogs of a locale, the nearest one first, without those that are missing.
struct Catalogs {
    LocaleName locale;
    const Catalog *files[3];
    size_t count;
};

// Of the files `<directory>\<locale>\<name>.msg`; both may be null. Under the common lock.
Catalogs catalogsOf(const LocaleName &locale, const char *directory, const char *name);

std::string_view wordOf(const Catalogs &catalogs, Word word);
Manner mannerOf(const Catalogs &catalogs);

// True when the texts of a record are UTF-8: it says so, or they come out of a log file.
[[nodiscard]] bool hasUtf8Texts(const zantLogMsgRec &rec);

// A text of the record's; null is empty.
void appendRecordText(const zantLogMsgRec &rec, const char *text, NativeText *out);

void appendMessageText(const Catalogs &catalogs, const zantLogMsgRec &rec, NativeText *out);

} // namespace zantlog::localizer
