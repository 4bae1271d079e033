#include "tools/common/code_page.h"

namespace zantlog::tools {

// The simulated system's code page is UTF-8.

std::string utf8FromCodePage(const std::string &text) {
    return text;
}

std::string codePageFromUtf8(const std::string &text) {
    return text;
}

} // namespace zantlog::tools
