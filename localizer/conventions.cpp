#include "localizer/conventions.h"

#include <cstring>

namespace zantlog::localizer {

namespace {

using Text = std::string_view;

struct WordEntry {
    Text name;
    Text english;
};

constexpr WordEntry kWords[kWordCount] = {
    {"decimal", "."},
    {"group", ","},
    {"date", "%Y-%m-%d"},
    {"time", "%H:%M:%S"},
    {"debug", "debug"},
    {"diagnostic", "diagnostic"},
    {"application", "application"},
    {"context", "context"},
    {"audit", "audit"},
    {"secure-audit", "secure audit"},
    {"information", "information"},
    {"warning", "warning"},
    {"error", "error"},
    {"level", "level"},
    {"originator", "originator"},
    {"success", "success"},
    {"failure", "failure"},
};

struct Conventions {
    Text language;
    Text territory; // empty: every one that has no row of its own
    Text decimal;
    Text group;
    Text date;
    Text time;
};

constexpr Text kSpace = "\xC2\xA0"; // a blank that ends no line
constexpr Text kDots = "%d.%m.%Y";
constexpr Text kSlashes = "%d/%m/%Y";
constexpr Text kHyphens = "%Y-%m-%d";
constexpr Text kClock = "%H:%M:%S";

// A language's territories stand before the row for all others.
constexpr Conventions kConventions[] = {
    {"bg", "", ",", kSpace, kDots, kClock},
    {"cs", "", ",", kSpace, kDots, kClock},
    {"da", "", ",", ".", "%d-%m-%Y", "%H.%M.%S"},
    {"de", "AT", ",", kSpace, kDots, kClock},
    {"de", "CH", ".", "'", kDots, kClock},
    {"de", "LI", ".", "'", kDots, kClock},
    {"de", "", ",", ".", kDots, kClock},
    {"el", "", ",", ".", kSlashes, kClock},
    {"en", "US", ".", ",", "%m/%d/%Y", "%I:%M:%S %p"},
    {"en", "CA", ".", ",", kHyphens, kClock},
    {"en", "ZA", ",", kSpace, "%Y/%m/%d", kClock},
    {"en", "GB", ".", ",", kSlashes, kClock},
    {"en", "IE", ".", ",", kSlashes, kClock},
    {"en", "AU", ".", ",", kSlashes, kClock},
    {"en", "NZ", ".", ",", kSlashes, kClock},
    {"es", "MX", ".", ",", kSlashes, kClock},
    {"es", "", ",", ".", kSlashes, kClock},
    {"et", "", ",", kSpace, kDots, kClock},
    {"fi", "", ",", kSpace, kDots, "%H.%M.%S"},
    {"fr", "CA", ",", kSpace, kHyphens, kClock},
    {"fr", "CH", ".", "'", kDots, kClock},
    {"fr", "", ",", kSpace, kSlashes, kClock},
    {"hr", "", ",", ".", kDots, kClock},
    {"hu", "", ",", kSpace, "%Y.%m.%d.", kClock},
    {"it", "CH", ".", "'", kDots, kClock},
    {"it", "", ",", ".", kSlashes, kClock},
    {"ja", "", ".", ",", "%Y/%m/%d", kClock},
    {"ko", "", ".", ",", kHyphens, kClock},
    {"lt", "", ",", kSpace, kHyphens, kClock},
    {"lv", "", ",", kSpace, kDots, kClock},
    {"nb", "", ",", kSpace, kDots, kClock},
    {"nl", "", ",", ".", "%d-%m-%Y", kClock},
    {"nn", "", ",", kSpace, kDots, kClock},
    {"no", "", ",", kSpace, kDots, kClock},
    {"pl", "", ",", kSpace, kDots, kClock},
    {"pt", "BR", ",", ".", kSlashes, kClock},
    {"pt", "", ",", kSpace, kSlashes, kClock},
    {"ro", "", ",", ".", kDots, kClock},
    {"ru", "", ",", kSpace, kDots, kClock},
    {"sk", "", ",", kSpace, kDots, kClock},
    {"sl", "", ",", ".", kDots, kClock},
    {"sv", "", ",", kSpace, kHyphens, kClock},
    {"tr", "", ",", ".", kDots, kClock},
    {"uk", "", ",", kSpace, kDots, kClock},
    {"vi", "", ",", ".", kSlashes, kClock},
    {"zh", "", ".", ",", "%Y/%m/%d", kClock},
};

const Conventions *conventionsOf(const LocaleName &locale) {
    for (const Conventions &row : kConventions) {
        if (row.language == locale.language &&
            (row.territory.empty() || row.territory == Text(locale.territory))) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace

std::string_view wordName(Word word) {
    return kWords[static_cast<size_t>(word)].name;
}

std::string_view builtInWord(Word word, const LocaleName &locale) {
    if (word <= Word::Time) {
        if (const Conventions *row = conventionsOf(locale); row != nullptr) {
            const Text texts[] = {row->decimal, row->group, row->date, row->time};
            return texts[static_cast<size_t>(word)];
        }
    }
    return kWords[static_cast<size_t>(word)].english;
}

bool isTimePattern(std::string_view pattern) {
    for (size_t at = 0; at < pattern.size(); ++at) {
        if (pattern[at] != '%') {
            continue;
        }
        ++at;
        if (at == pattern.size() || std::strchr("YymdHMSIp%", pattern[at]) == nullptr) {
            return false;
        }
    }
    return true;
}

} // namespace zantlog::localizer
