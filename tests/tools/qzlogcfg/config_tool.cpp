#include "tests/tools/qzlogcfg/config_tool.h"

#include <sstream>

namespace zantlog::test {

namespace {

// Closes itself.
struct OpenSection : PropertyStore {
    OpenSection(const std::string &path, const std::string &section) : PropertyStore{} {
        result = utiOpenPropertyStore(path.c_str(), section.c_str(), this, ZANTLOG_STORE_READ);
    }
    ~OpenSection() { utiClosePropertyStore(this); }
    OpenSection(const OpenSection &) = delete;
    OpenSection &operator=(const OpenSection &) = delete;
    uint32_t result;
};

} // namespace

std::string ConfigTool::shown(const std::vector<std::string> &scope, const std::string &key) const {
    std::vector<std::string> arguments = {"show"};
    arguments.insert(arguments.end(), scope.begin(), scope.end());
    std::istringstream lines(output(arguments));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string first;
        words >> first;
        if (first == key) {
            std::string rest;
            std::string text;
            while (words >> rest) {
                text += (text.empty() ? "" : " ") + rest;
            }
            return text;
        }
    }
    return "";
}

std::string ConfigTool::stored(const std::string &section, const std::string &key) const {
    OpenSection open(store->path(), section);
    HandedOut value;
    if (open.result != 0 || utiGetPropertyAsStr(&open, key.c_str(), &value) != 0) {
        return "(none)";
    }
    return value.get();
}

uint32_t ConfigTool::storedNumber(const std::string &section, const std::string &key) const {
    OpenSection open(store->path(), section);
    uint32_t value = 0;
    EXPECT_EQ(utiGetPropertyAsULong(&open, key.c_str(), &value), 0U) << section << ' ' << key;
    return value;
}

} // namespace zantlog::test
