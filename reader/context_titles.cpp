// The table of context titles.
#include <cstring>

#include "base/owned_text.h"
#include "zantlog/query.h"

namespace {

using namespace zantlog;

bool isOf(const ContextTitle &entry, const zantLogMsgRec &context, const char *key) {
    return entry.productId == context.productId && entry.originatorId == context.originatorId &&
           entry.key != nullptr && std::strcmp(entry.key, key) == 0;
}

ContextTitle *find(ContextTitle *chain, const zantLogMsgRec &context, const char *key) {
    while (chain != nullptr && !isOf(*chain, context, key)) {
        chain = chain->next;
    }
    return chain;
}

void replaceTitle(ContextTitle *entry, const char *title) {
    OwnedText copy = copyText(title);
    if (copy == nullptr && title != nullptr) {
        return;
    }
    zantLogFree(entry->title);
    entry->title = copy.release();
}

} // namespace

ContextTitle *SearchContextTitleInList(const zantLogMsgRec *context, const char *title, const char *key,
                                       ContextTitle **table) {
    if (context == nullptr || key == nullptr || table == nullptr) {
        return nullptr;
    }
    ContextTitle *entry = find(table[HashString(key, ZANTLOG_CONTEXT_TITLE_CHAINS)], *context, key);
    if (entry != nullptr && context->type == ZANTLOG_MSG_CONTEXT) {
        replaceTitle(entry, title);
    }
    return entry;
}
