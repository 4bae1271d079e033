#include "catalog/object_builder.h"

#include "catalog/arena.h"
#include "catalog/argument_conversion.h"
#include "catalog/argument_reader.h"
#include "catalog/format_parser.h"

namespace zantlog::catalog {

namespace {

// One walk over format and arguments, either measuring or laying down.
int32_t layDown(Arena *arena, const char *format, ArgumentReader *reader, ObjectForm form, size_t count) {
    auto *nodes = static_cast<zantLisArg *>(arena->take(count * sizeof(zantLisArg), alignof(zantLisArg)));
    size_t index = 0;
    for (FormatPiece piece; nextPiece(&format, &piece) == PieceResult::piece;) {
        if (piece.literal && form == ObjectForm::catalogMessage) {
            continue;
        }
        zantLisArg measured;
        zantLisArg *node = nodes != nullptr ? &nodes[index] : &measured;
        *node = zantLisArg{};
        ++index;
        node->next = nodes != nullptr && index < count ? &nodes[index] : nullptr;
        if (piece.literal) {
            convertLiteral(arena, piece, node);
            continue;
        }
        const int32_t result =
            convertArgument(arena, piece.conversion, reader, form == ObjectForm::plainText, node);
        if (result != ZANTLIS_OK) {
            return result;
        }
    }
    return arena->failed() ? ZANTLIS_OTHER : ZANTLIS_OK;
}

// The arguments are walked once for each pass, so that no list of them has to be kept anywhere.
int32_t walkArguments(Arena *arena, const char *format, const FormatSummary &summary, va_list arguments,
                      ObjectForm form, size_t count) {
    ArgumentReader reader(arguments, summary);
    return layDown(arena, format, &reader, form, count);
}

} // namespace

int32_t buildObject(zantLis *object, ObjectForm form, uint32_t textId, const char *format,
                    va_list arguments) {
    FormatSummary summary;
    if (!readFormat(format, &summary)) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    const size_t literals = form == ObjectForm::plainText ? summary.literals : 0;
    const size_t count = summary.conversions + literals;
    if (count > UINT32_MAX) {
        return ZANTLIS_INVALID_ARGUMENT;
    }
    if (count == 0) {
        *object = zantLis{textId, 0, nullptr};
        return ZANTLIS_OK;
    }
    Arena arena;
    int32_t result = walkArguments(&arena, format, summary, arguments, form, count);
    if (result != ZANTLIS_OK) {
        // Sizes that do not even fit a number are memory that nobody has.
        return arena.failed() ? ZANTLIS_OUT_OF_MEMORY : result;
    }
    if (!arena.allocate()) {
        return ZANTLIS_OUT_OF_MEMORY;
    }
    result = walkArguments(&arena, format, summary, arguments, form, count);
    if (result == ZANTLIS_OK) {
        // The nodes were taken first, so they stand where the block begins: the object frees it by its first
        // node.
        *object = zantLis{textId, static_cast<uint32_t>(count), static_cast<zantLisArg *>(arena.release())};
    }
    return result;
}

} // namespace zantlog::catalog
