#include "tools/qzlogger/message_lines.h"

#include "tools/common/code_page.h"

namespace zantlog::tools {

namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
constexpr char kReplacement[] = "\xEF\xBF\xBD"; // U+FFFD

// Length of the sequence that begins here; 0 when it is none.
size_t sequenceLength(const std::string &text, size_t at) {
    const auto byte = [&](size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    const unsigned lead = byte(at);
    if (lead < 0x80) {
        return 1;
    }
    const size_t length = lead >= 0xF0 && lead < 0xF5 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
    if (length == 0 || lead >= 0xF5) {
        return 0;
    }
    for (size_t index = 1; index < length; ++index) {
        if ((byte(at + index) & 0xC0U) != 0x80U) {
            return 0;
        }
    }
    const unsigned second = byte(at + 1);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool surrogate = lead == 0xED && second >= 0xA0;
    const bool beyond = lead == 0xF4 && second >= 0x90;
    return overlong || surrogate || beyond ? 0 : length;
}

void replaceNuls(std::string *text) {
    for (size_t at = text->find('\0'); at != std::string::npos; at = text->find('\0', at)) {
        text->replace(at, 1, kReplacement);
    }
}

} // namespace

bool isUtf8(const std::string &text) {
    for (size_t at = 0; at < text.size();) {
        const size_t length = sequenceLength(text, at);
        if (length == 0) {
            return false;
        }
        at += length;
    }
    return true;
}

bool MessageLines::next(std::string *line) {
    if (!std::getline(stream_, *line)) {
        return false;
    }
    if (++number_ == 1 && line->starts_with(kByteOrderMark)) {
        line->erase(0, sizeof kByteOrderMark - 1);
    }
    if (line->ends_with('\r')) {
        line->pop_back();
    }
    if (!isUtf8(*line)) {
        *line = utf8FromCodePage(*line);
    }
    replaceNuls(line);
    return true;
}

} // namespace zantlog::tools
