// Names of locales, POSIX's and the runtime's.
#pragma once

namespace zantlog::localizer {

// Both empty for no locale. Letters (and digits of a territory) only, so that a name can be part of a path.
struct LocaleName {
    char language[4];  // "de"
    char territory[4]; // "DE", or empty
};

// "de_DE.UTF-8@euro", "de-DE", "zh-Hans-CN", "German_Germany.1252", and lists of categories
// ("LC_COLLATE=C;LC_CTYPE=German_Germany.1252;...").
LocaleName parseLocaleName(const char *name);

} // namespace zantlog::localizer
