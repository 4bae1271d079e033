#include "tests/api/stubborn_catalog.h"

#include "zantlog/catalog.h"

namespace zantlog::test {

StubbornCatalog catalog;

namespace {

// An object without arguments.
int32_t build(zantLis *lis, uint32_t msgid) {
    static zantLisArg untouchable;
    *lis = catalog.buildResult == 0 ? zantLis{msgid, 0, nullptr} : zantLis{msgid, 1, &untouchable};
    return catalog.buildResult;
}

} // namespace

} // namespace zantlog::test

using namespace zantlog::test;

int32_t zantLisVEx(zantLis *lis, uint32_t /*selector*/, uint32_t msgid, const char * /*fmt*/,
                   va_list /*args*/) {
    return build(lis, msgid);
}

int32_t zantLisTextV(zantLis *lis, const char * /*fmt*/, va_list /*args*/) {
    return build(lis, 0);
}

int32_t zantLisFree(zantLis *lis) {
    catalog.frees += lis->textId != 0 || lis->argCount != 0 ? 1 : 0;
    *lis = zantLis{};
    return catalog.freeResult;
}

// The library's code calls what it imports through these pointers, which an import library would bring.
#ifdef _WIN32
extern "C" {
auto *__imp_zantLisVEx = &zantLisVEx;
auto *__imp_zantLisTextV = &zantLisTextV;
auto *__imp_zantLisFree = &zantLisFree;
}
#endif
