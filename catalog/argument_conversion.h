// From one piece of a format to one typed argument.
#pragma once

#include "catalog/arena.h"
#include "catalog/argument_reader.h"
#include "catalog/format_parser.h"
#include "zantlog/catalog.h"

namespace zantlog::catalog {

// Both write the kind and slots of `argument`, whose texts go into the arena.

void convertLiteral(Arena *arena, const FormatPiece &piece, zantLisArg *argument);

// Takes what the conversion needs from the reader. In a plain text every argument must look as printf would
// show it; where the fixed rendering of its kind differs from that, it becomes a text. Result of the catalog
// library.
[[nodiscard]] int32_t convertArgument(Arena *arena, const Conversion &conversion, ArgumentReader *reader,
                                      bool plainText, zantLisArg *argument);

} // namespace zantlog::catalog
