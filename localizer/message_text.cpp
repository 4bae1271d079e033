#include "localizer/message_text.h"

#include <cstring>

#include "base/bounded_text.h"
#include "localizer/catalog_cache.h"
#include "zantlog/rendering.h"

namespace zantlog::localizer {

namespace {

using Text = std::string_view;

constexpr size_t kLongestPath = 1100;
constexpr char kDefaultFolder[] = "default";
constexpr unsigned kDeepestNesting = 32;
// Objects inside one another can ask for far more arguments than anybody could read.
constexpr uint32_t kMostArguments = 10000;

class MessageWriter {
public:
    MessageWriter(const Catalogs &catalogs, NativeText *out)
        : catalogs_(catalogs), manner_(mannerOf(catalogs)), out_(out) {}

    // False when no catalog has the id of the object.
    [[nodiscard]] bool appendCatalogText(const zantLis &lis, uint32_t id, unsigned depth);
    // All arguments, one after the other.
    void appendArguments(const zantLis &lis, Text separator, unsigned depth);
    // The marker of a text that is missing, and the arguments.
    void appendMarked(const zantLis &lis, uint32_t id, unsigned depth);

private:
    [[nodiscard]] bool appendNumbered(const zantLis &lis, const Placeholder &place, unsigned depth);
    [[nodiscard]] bool appendOne(const zantLisArgIter &iter, const Placeholder &place, unsigned depth);
    void appendNested(const zantLis &lis, unsigned depth);

    const Catalogs &catalogs_;
    Manner manner_;
    NativeText *out_;
    uint32_t arguments_ = 0;
};

Text textOf(const Catalogs &catalogs, uint32_t id) {
    for (size_t i = 0; i < catalogs.count; ++i) {
        if (const Text text = catalogText(*catalogs.files[i], id); text.data() != nullptr) {
            return text;
        }
    }
    return {};
}

uint32_t idOf(const zantLis &lis) {
    uint32_t id = 0;
    return zantLisGetTextId(&lis, &id) == ZANTLIS_OK ? id : 0;
}

void MessageWriter::appendNested(const zantLis &lis, unsigned depth) {
    if (depth == kDeepestNesting) {
        return;
    }
    const uint32_t id = idOf(lis);
    if (id == 0) {
        appendArguments(lis, "", depth + 1);
    } else if (!appendCatalogText(lis, id, depth + 1)) {
        appendMarked(lis, id, depth + 1);
    }
}

bool MessageWriter::appendOne(const zantLisArgIter &iter, const Placeholder &place, unsigned depth) {
    int32_t kind = 0;
    if (++arguments_ > kMostArguments || zantLisGetArgTypeId(&iter, &kind) != ZANTLIS_OK) {
        return false;
    }
    if (kind != ZANTLIS_NESTED) {
        return appendArgument(iter, kind, place, manner_, out_);
    }
    zantLis nested = {};
    if (zantLisGetArg_lis(&iter, &nested) != ZANTLIS_OK) {
        return false;
    }
    appendNested(nested, depth);
    return true;
}

bool MessageWriter::appendNumbered(const zantLis &lis, const Placeholder &place, unsigned depth) {
    zantLisArgIter iter = {};
    if (zantLisGetArgsBegin(&lis, &iter) != ZANTLIS_OK) {
        return false;
    }
    for (unsigned i = 1; i < place.argument; ++i) {
        if (zantLisGetNextArg(&iter) != ZANTLIS_OK) {
            return false;
        }
    }
    return appendOne(iter, place, depth);
}

bool MessageWriter::appendCatalogText(const zantLis &lis, uint32_t id, unsigned depth) {
    Text text = textOf(catalogs_, id);
    if (text.data() == nullptr) {
        return false;
    }
    for (;;) {
        const Piece piece = nextPiece(&text);
        if (piece.kind == PieceKind::End || out_->full()) {
            return true;
        }
        // The place of an argument that the message does not have stays visible.
        if (piece.kind != PieceKind::Argument || !appendNumbered(lis, piece.placeholder, depth)) {
            out_->utf8(piece.text);
        }
    }
}

void MessageWriter::appendArguments(const zantLis &lis, Text separator, unsigned depth) {
    zantLisArgIter iter = {};
    if (zantLisGetArgsBegin(&lis, &iter) != ZANTLIS_OK) {
        return;
    }
    for (bool first = true;; first = false) {
        if (!first) {
            out_->native(separator);
        }
        if (!appendOne(iter, kPlain, depth) || out_->full() || zantLisGetNextArg(&iter) != ZANTLIS_OK) {
            return;
        }
    }
}

void MessageWriter::appendMarked(const zantLis &lis, uint32_t id, unsigned depth) {
    char marker[64];
    BoundedText(marker)
        .text("[Cannot find catalog for message id=")
        .signedNumber(static_cast<int32_t>(id))
        .text("] ");
    out_->native(marker);
    appendArguments(lis, ",", depth);
}

// What the library itself makes of the object; it has nothing for wide text that the runtime's locale lacks.
bool appendLibraryRendering(const zantLis &lis, NativeText *out) {
    zantLis view = lis;
    size_t size = 0;
    strncatlis(nullptr, &size, &view);
    if (size == 0 || size == SIZE_MAX) {
        return size == 0;
    }
    const OwnedText text = allocateBlock<char>(size);
    if (!text) {
        return false;
    }
    std::memset(text.get(), 0, size);
    strncatlis(text.get(), &size, &view);
    if (size == SIZE_MAX) {
        return false;
    }
    out->native(text.get());
    return true;
}

// A name that is part of a path, and no path itself.
bool isPlainName(Text name) {
    return !name.empty() && name.find_first_of("\\/:") == Text::npos;
}

void addCatalog(const char *directory, Text folder, const char *name, Catalogs *out) {
    char path[kLongestPath];
    BoundedText text(path);
    text.text(directory);
    if (text.length() == 0 || (path[text.length() - 1] != '\\' && path[text.length() - 1] != '/')) {
        text.character('\\');
    }
    text.bytes(folder.data(), folder.size()).character('\\').text(name).text(".msg");
    if (text.cut()) {
        return;
    }
    if (const Catalog *catalog = catalogAt(path); catalog != nullptr) {
        out->files[out->count++] = catalog;
    }
}

} // namespace

Catalogs catalogsOf(const LocaleName &locale, const char *directory, const char *name) {
    Catalogs out = {.locale = locale, .files = {}, .count = 0};
    if (directory == nullptr || *directory == '\0' || name == nullptr || !isPlainName(name)) {
        return out;
    }
    if (locale.territory[0] != '\0') {
        char folder[sizeof locale.language + sizeof locale.territory];
        BoundedText text(folder);
        text.text(locale.language).character('_').text(locale.territory);
        addCatalog(directory, folder, name, &out);
    }
    if (locale.language[0] != '\0') {
        addCatalog(directory, locale.language, name, &out);
    }
    addCatalog(directory, kDefaultFolder, name, &out);
    return out;
}

std::string_view wordOf(const Catalogs &catalogs, Word word) {
    for (size_t i = 0; i < catalogs.count; ++i) {
        const Text text = catalogs.files[i]->words[static_cast<size_t>(word)];
        if (text.data() != nullptr) {
            return text;
        }
    }
    return builtInWord(word, catalogs.locale);
}

Manner mannerOf(const Catalogs &catalogs) {
    return {.decimal = wordOf(catalogs, Word::Decimal),
            .group = wordOf(catalogs, Word::Group),
            .date = wordOf(catalogs, Word::Date),
            .time = wordOf(catalogs, Word::Time)};
}

bool hasUtf8Texts(const zantLogMsgRec &rec) {
    return rec.catalogSelector != 0 || rec.origin == ZANTLOG_ORIGIN_READER;
}

void appendRecordText(const zantLogMsgRec &rec, const char *text, NativeText *out) {
    if (text == nullptr) {
        return;
    }
    if (hasUtf8Texts(rec)) {
        out->utf8(text);
    } else {
        out->native(text);
    }
}

void appendMessageText(const Catalogs &catalogs, const zantLogMsgRec &rec, NativeText *out) {
    MessageWriter writer(catalogs, out);
    const uint32_t id = idOf(rec.lis);
    if (id != 0 && writer.appendCatalogText(rec.lis, id, 0)) {
        return;
    }
    if (rec.text != nullptr) {
        appendRecordText(rec, rec.text, out);
    } else if (id == 0) {
        writer.appendArguments(rec.lis, "", 0);
    } else if (!appendLibraryRendering(rec.lis, out)) {
        writer.appendMarked(rec.lis, id, 0);
    }
}

} // namespace zantlog::localizer
