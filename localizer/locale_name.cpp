#include "localizer/locale_name.h"

#include <cstdint>
#include <cstring>
#include <string_view>

namespace zantlog::localizer {

namespace {

using Text = std::string_view;

struct NamedCode {
    Text name; // lower case
    Text code;
};

// As the runtime names them.
constexpr NamedCode kLanguages[] = {
    {"arabic", "ar"},
    {"bulgarian", "bg"},
    {"chinese", "zh"},
    {"chinese (simplified)", "zh"},
    {"chinese (traditional)", "zh"},
    {"chinese-simplified", "zh"},
    {"chinese-traditional", "zh"},
    {"croatian", "hr"},
    {"czech", "cs"},
    {"danish", "da"},
    {"dutch", "nl"},
    {"english", "en"},
    {"estonian", "et"},
    {"finnish", "fi"},
    {"french", "fr"},
    {"german", "de"},
    {"greek", "el"},
    {"hebrew", "he"},
    {"hungarian", "hu"},
    {"italian", "it"},
    {"japanese", "ja"},
    {"korean", "ko"},
    {"latvian", "lv"},
    {"lithuanian", "lt"},
    {"norwegian", "nb"},
    {"norwegian bokm\xE5l", "nb"},
    {"norwegian (bokm\xE5l)", "nb"},
    {"norwegian bokm\xC3\xA5l", "nb"},
    {"norwegian nynorsk", "nn"},
    {"norwegian-nynorsk", "nn"},
    {"polish", "pl"},
    {"portuguese", "pt"},
    {"romanian", "ro"},
    {"russian", "ru"},
    {"slovak", "sk"},
    {"slovenian", "sl"},
    {"spanish", "es"},
    {"swedish", "sv"},
    {"thai", "th"},
    {"turkish", "tr"},
    {"ukrainian", "uk"},
    {"vietnamese", "vi"},
};

constexpr NamedCode kTerritories[] = {
    {"argentina", "AR"},
    {"australia", "AU"},
    {"austria", "AT"},
    {"belgium", "BE"},
    {"brazil", "BR"},
    {"bulgaria", "BG"},
    {"canada", "CA"},
    {"chile", "CL"},
    {"china", "CN"},
    {"colombia", "CO"},
    {"croatia", "HR"},
    {"czech republic", "CZ"},
    {"czechia", "CZ"},
    {"denmark", "DK"},
    {"estonia", "EE"},
    {"finland", "FI"},
    {"france", "FR"},
    {"germany", "DE"},
    {"greece", "GR"},
    {"hong kong", "HK"},
    {"hong kong s.a.r.", "HK"},
    {"hong kong sar", "HK"},
    {"hungary", "HU"},
    {"india", "IN"},
    {"ireland", "IE"},
    {"israel", "IL"},
    {"italy", "IT"},
    {"japan", "JP"},
    {"korea", "KR"},
    {"latvia", "LV"},
    {"liechtenstein", "LI"},
    {"lithuania", "LT"},
    {"luxembourg", "LU"},
    {"mexico", "MX"},
    {"netherlands", "NL"},
    {"new zealand", "NZ"},
    {"norway", "NO"},
    {"people's republic of china", "CN"},
    {"poland", "PL"},
    {"portugal", "PT"},
    {"romania", "RO"},
    {"russia", "RU"},
    {"singapore", "SG"},
    {"slovakia", "SK"},
    {"slovenia", "SI"},
    {"south africa", "ZA"},
    {"spain", "ES"},
    {"sweden", "SE"},
    {"switzerland", "CH"},
    {"taiwan", "TW"},
    {"thailand", "TH"},
    {"turkey", "TR"},
    {"ukraine", "UA"},
    {"united kingdom", "GB"},
    {"united states", "US"},
    {"vietnam", "VN"},
};

constexpr char lower(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}
constexpr char upper(char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}
constexpr bool isLetter(char byte) {
    return lower(byte) >= 'a' && lower(byte) <= 'z';
}
constexpr bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool equalIgnoringCase(Text text, Text lowerCase) {
    if (text.size() != lowerCase.size()) {
        return false;
    }
    for (size_t i = 0; i < text.size(); ++i) {
        if (lower(text[i]) != lowerCase[i]) {
            return false;
        }
    }
    return true;
}

template <size_t N> Text codeOf(const NamedCode (&table)[N], Text name) {
    for (const NamedCode &entry : table) {
        if (equalIgnoringCase(name, entry.name)) {
            return entry.code;
        }
    }
    return {};
}

bool allOf(Text text, bool (*is)(char)) {
    for (const char byte : text) {
        if (!is(byte)) {
            return false;
        }
    }
    return true;
}

Text upTo(Text text, const char *separators) {
    return text.substr(0, text.find_first_of(separators));
}

// What stands behind "CATEGORY=" in a list of categories; empty when it is not there.
Text categoryOf(Text list, Text category) {
    while (!list.empty()) {
        const Text entry = upTo(list, ";");
        list.remove_prefix(entry.size() < list.size() ? entry.size() + 1 : entry.size());
        const size_t equals = entry.find('=');
        if (equals != Text::npos && entry.substr(0, equals) == category) {
            return entry.substr(equals + 1);
        }
    }
    return {};
}

// Messages are texts first, so the category of texts speaks for a process whose categories differ.
Text singleName(Text name) {
    if (name.find('=') == Text::npos) {
        return name;
    }
    for (const Text category : {Text("LC_MESSAGES"), Text("LC_CTYPE"), Text("LC_TIME")}) {
        const Text found = categoryOf(name, category);
        if (!found.empty() && found != "C" && found != "POSIX") {
            return found;
        }
    }
    return {};
}

void setLanguage(Text language, LocaleName *out) {
    if (!allOf(language, isLetter) || language.size() < 2 || language.size() > 3) {
        language = codeOf(kLanguages, language);
    }
    for (size_t i = 0; i < language.size(); ++i) {
        out->language[i] = lower(language[i]);
    }
}

void setTerritory(Text territory, LocaleName *out) {
    const bool code = (territory.size() == 2 && allOf(territory, isLetter)) ||
                      (territory.size() == 3 && allOf(territory, isDigit));
    if (!code) {
        territory = codeOf(kTerritories, territory);
    }
    for (size_t i = 0; i < territory.size(); ++i) {
        out->territory[i] = upper(territory[i]);
    }
}

} // namespace

LocaleName parseLocaleName(const char *name) {
    LocaleName out = {};
    if (name == nullptr) {
        return out;
    }
    Text text = upTo(singleName(name), "@");
    // A code page or codeset. Names of countries have dots of their own ("Hong Kong S.A.R.").
    if (const size_t dot = text.rfind('.'); dot != Text::npos && dot + 1 < text.size()) {
        text = text.substr(0, dot);
    }
    // The runtime's names of languages have blanks and hyphens; POSIX's and others' parts are short.
    const size_t underscore = text.find('_');
    const size_t hyphen = text.find('-');
    const bool hyphens = underscore == Text::npos && hyphen != Text::npos && hyphen <= 3;
    const size_t end = hyphens ? hyphen : underscore;
    setLanguage(text.substr(0, end), &out);
    if (out.language[0] == '\0' || end == Text::npos) {
        return out;
    }
    text.remove_prefix(end + 1);
    const Text next = upTo(text, hyphens ? "-" : "_");
    const bool script = next.size() == 4 && next.size() < text.size() && allOf(next, isLetter);
    if (script) {
        text.remove_prefix(next.size() + 1);
    }
    setTerritory(hyphens ? upTo(text, "-") : text, &out);
    return out;
}

} // namespace zantlog::localizer
