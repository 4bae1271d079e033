// Any file is a catalog whose good lines hold, and any text of one formats a message with arguments of every
// kind.
#include <algorithm>
#include <cstring>

#include "localizer/heading.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "tests/support/catalog_objects.h"

namespace {

using namespace zantlog;
using namespace zantlog::localizer;

void countDefect(void *context, uint32_t line, const char *what) {
    fuzz::expect(line > 0 && *what != '\0', "a defect has a line and words");
    ++*static_cast<uint32_t *>(context);
}

uint32_t parse(const std::string &file, Catalog *catalog) {
    OwnedText bytes = allocateBlock<char>(file.size() + 1);
    std::memcpy(bytes.get(), file.data(), file.size());
    uint32_t defects = 0;
    fuzz::expectEqual(
        parseCatalog(std::move(bytes), file.size(), {.visit = countDefect, .context = &defects}, catalog), 0,
        "parsing answers 0");
    return defects;
}

std::string format(const Catalogs &catalogs, zantLogMsgRec *rec) {
    NativeText out;
    appendHeading(catalogs, *rec, &out);
    appendMessageText(catalogs, *rec, &out);
    const OwnedText text = out.take();
    fuzz::expect(text != nullptr, "there is a text");
    const std::string formatted = text.get();
    fuzz::expect(formatted.size() <= NativeText::kLongest, "texts are cut");
    return formatted;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    const LocaleName locale = parseLocaleName(input.text().c_str());
    const int64_t number = input.number<int64_t>();
    const double real = input.real();
    const std::string text = input.text();
    const std::string file = input.rest();

    Catalog catalog;
    const uint32_t defects = parse(file, &catalog);
    const auto lines = static_cast<size_t>(std::count(file.begin(), file.end(), '\n')) + 1;
    fuzz::expect(catalog.count + defects <= lines, "a line is one text or one defect");

    test::CatalogObject inner(2);
    test::CatalogObject object(1);
    inner.signedNumber(number).nested(object);
    object.wideCharacter(static_cast<uint16_t>(number))
        .signedNumber(number)
        .unsignedNumber(static_cast<uint64_t>(number))
        .real(real)
        .pointer(static_cast<uintptr_t>(number))
        .wideString(reinterpret_cast<const wchar_t *>(u"w\xD800"))
        .error(number)
        .error(number, ZANTLIS_OS_ERROR_WIDE)
        .dateTime(number)
        .nested(inner)
        .utf8(text.c_str())
        .native(text.c_str());
    zantLogMsgRec rec = {};
    rec.type = static_cast<uint32_t>(number) % 7;
    rec.slot.level = static_cast<int32_t>(number);
    rec.timestamp = static_cast<uint64_t>(number);
    rec.who = const_cast<char *>(text.c_str());
    const Catalogs catalogs = {.locale = locale, .files = {&catalog}, .count = 1};
    for (size_t i = 0; i < catalog.count && i < 8; ++i) {
        object.lis()->textId = catalog.entries.get()[i].id;
        rec.lis = *object.lis();
        const std::string formatted = format(catalogs, &rec);
        fuzz::expectEqual(format(catalogs, &rec), formatted, "the same message has the same text");
    }
    return 0;
}
