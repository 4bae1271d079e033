// Texts as JSON that may stand inside a <script> element.
#pragma once

#include <string>
#include <string_view>

namespace zantlog::view {

// Quoted. What is not UTF-8 becomes U+FFFD. No byte sequence of the result ends a script element, begins a
// comment or an entity, or ends a line.
std::string jsonText(std::string_view text);

} // namespace zantlog::view
