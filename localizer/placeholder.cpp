#include "localizer/placeholder.h"

#include <cstring>

namespace zantlog::localizer {

namespace {

using Text = std::string_view;

bool startsWithDigit(Text text) {
    return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

// One or two digits.
bool takeNumber(Text *text, unsigned *value) {
    if (!startsWithDigit(*text)) {
        return false;
    }
    *value = 0;
    for (int digits = 0; digits < 2 && startsWithDigit(*text); ++digits) {
        *value = *value * 10 + static_cast<unsigned>(text->front() - '0');
        text->remove_prefix(1);
    }
    return true;
}

bool take(Text *text, char expected) {
    if (text->empty() || text->front() != expected) {
        return false;
    }
    text->remove_prefix(1);
    return true;
}

// What stands behind the colon; something has to.
bool readFormat(Text text, Placeholder *out) {
    if (text.empty()) {
        return false;
    }
    out->zeros = take(&text, '0');
    (void)takeNumber(&text, &out->width);
    if (take(&text, '.') && !takeNumber(&text, &out->precision)) {
        return false;
    }
    if (!text.empty() && text.front() != '\0' && std::strchr(kPlaceholderLetters, text.front()) != nullptr) {
        out->letter = text.front();
        text.remove_prefix(1);
    }
    return text.empty();
}

// What stands between the braces.
bool readPlaceholder(Text text, Placeholder *out) {
    *out = {.argument = 0, .letter = 0, .zeros = false, .width = 0, .precision = kNoPrecision};
    if (!takeNumber(&text, &out->argument) || out->argument == 0) {
        return false;
    }
    return text.empty() || (take(&text, ':') && readFormat(text, out));
}

Piece cut(Text *text, size_t length, PieceKind kind) {
    const Piece piece = {.kind = kind, .text = text->substr(0, length), .placeholder = {}};
    text->remove_prefix(length);
    return piece;
}

Piece bracePiece(Text *text) {
    if (text->size() > 1 && (*text)[1] == text->front()) {
        Piece piece = cut(text, 2, PieceKind::Literal);
        piece.text.remove_suffix(1);
        return piece;
    }
    const size_t end = text->front() == '{' ? text->find('}') : Text::npos;
    if (end == Text::npos) {
        return cut(text, 1, PieceKind::Malformed);
    }
    Piece piece = cut(text, end + 1, PieceKind::Argument);
    if (!readPlaceholder(piece.text.substr(1, end - 1), &piece.placeholder)) {
        piece.kind = PieceKind::Malformed;
    }
    return piece;
}

} // namespace

Piece nextPiece(std::string_view *text) {
    if (text->empty()) {
        return {.kind = PieceKind::End, .text = {}, .placeholder = {}};
    }
    if (text->front() == '{' || text->front() == '}') {
        return bracePiece(text);
    }
    const size_t brace = text->find_first_of("{}");
    return cut(text, brace == Text::npos ? text->size() : brace, PieceKind::Literal);
}

const char *placeholderDefect(std::string_view text) {
    for (;;) {
        const Piece piece = nextPiece(&text);
        if (piece.kind == PieceKind::End) {
            return nullptr;
        }
        if (piece.kind != PieceKind::Malformed) {
            continue;
        }
        if (piece.text == "}") {
            return "a \"}\" that closes nothing; a brace of the text is written twice";
        }
        return piece.text == "{" ? "a \"{\" without its \"}\"; a brace of the text is written twice"
                                 : "a place is written {1} to {99}, or {1:x} with a format behind the number";
    }
}

} // namespace zantlog::localizer
