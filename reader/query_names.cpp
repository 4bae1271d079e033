// The ids that numbers and short names stand for.
#include "base/scan.h"
#include "zantlog/query.h"

namespace {

using namespace zantlog;

// Whether the whole text is a number.
bool parseId(const char *text, uint32_t *id) {
    Scanner scan{text};
    return scan.unsigned32(id) && *scan.at == '\0';
}

// Whether the name that stands at `*at`, without its blanks, is the text. Moves behind the name's comma, or
// to the end of the list.
bool takeName(const char **at, const char *text) {
    bool same = true;
    const char *expected = text;
    for (; **at != '\0' && **at != ','; ++*at) {
        if (**at == ' ') {
            continue;
        }
        same = same && **at == *expected;
        expected += same ? 1 : 0;
    }
    *at += **at == ',' ? 1 : 0;
    return same && *expected == '\0';
}

bool hasName(const char *names, const char *text) {
    while (*names != '\0') {
        if (takeName(&names, text)) {
            return true;
        }
    }
    return false;
}

} // namespace

uint32_t GetIdFromName(zantLogCfg **array, uint32_t count, uint32_t fieldCode, const char *text) {
    // A name that is all blanks would be the empty text.
    if (array == nullptr || text == nullptr || *text == '\0') {
        return 0;
    }
    uint32_t wanted = 0;
    const bool isNumber = parseId(text, &wanted);
    const bool ofProducts = fieldCode == ZANTLOG_QUERY_PRODUCT;
    for (uint32_t place = 0; place < count; ++place) {
        const zantLogCfg *cfg = array[place];
        if (cfg == nullptr) {
            continue;
        }
        const char *names = ofProducts ? cfg->productNames : cfg->originatorNames;
        const uint32_t id = ofProducts ? cfg->productId : cfg->originatorId;
        if (*names != '\0' && (isNumber ? id == wanted : hasName(names, text))) {
            return id;
        }
    }
    return 0;
}
