#include "tests/support/log_folder.h"

#include "tests/support/test_folder.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace zantlog::test {

std::vector<std::string> fileNames(const std::string &folder) {
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string fileBytes(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeFileBytes(const std::string &path, const std::string &bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    EXPECT_TRUE(file.good()) << path;
}

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
    const std::time_t now = std::time(nullptr);
    std::tm day = *std::localtime(&now);
    day.tm_mday += daysFromToday;
    day.tm_hour = 12;
    day.tm_isdst = -1;
    std::mktime(&day);
    char text[16];
    std::strftime(text, sizeof text, "%y%m%d", &day);
    return text;
}

bool useTimeZone(const char *zone) {
    setEnvironment("TZ", zone);
#if defined(_WIN32)
    _tzset();
#else
    tzset();
#endif
    return true;
}

} // namespace zantlog::test
