#include "tests/support/log_folder.h"

#include <algorithm>
#include <ctime>

namespace zantlog::test {

std::vector<std::string> linesOf(const std::string &text) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        const size_t end = std::min(text.find('\n', start), text.size());
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

std::string dateInNames(int daysFromToday) {
    const std::tm day = localDate(daysFromToday);
    char text[16];
    std::strftime(text, sizeof text, "%y%m%d", &day);
    return text;
}

} // namespace zantlog::test
