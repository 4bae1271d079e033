#include "tools/qzlogcfg/rehearsal.h"

#include <chrono>
#include <filesystem>
#include <map>

#include "tools/common/ascii.h"
#include "tools/common/command_line.h"
#include "tools/common/result_text.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/conf_lines.h"

namespace zantlog::tools {

namespace {

namespace fs = std::filesystem;

fs::path pathFromUtf8(const std::string &text) {
    return fs::path(std::u8string(text.begin(), text.end()));
}

std::string utf8FromPath(const fs::path &path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

// A file of its own that is removed at the end, with what the library leaves beside it.
class Copy {
public:
    explicit Copy(const std::string &original) {
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        path_ = fs::temp_directory_path() / ("qzlogcfg-" + std::to_string(now) + ".conf");
        std::error_code error;
        if (fs::exists(pathFromUtf8(original), error)) {
            fs::copy_file(pathFromUtf8(original), path_, fs::copy_options::overwrite_existing);
        }
    }
    ~Copy() {
        std::error_code ignored;
        fs::remove(path_, ignored);
        fs::remove(fs::path(path_) += ".tmp", ignored);
    }
    Copy(const Copy &) = delete;
    Copy &operator=(const Copy &) = delete;

    [[nodiscard]] std::string path() const { return utf8FromPath(path_); }
    [[nodiscard]] std::map<std::string, std::string> values() const {
        ConfFile file;
        return readConfFile(path(), &file) ? valuesOf(file) : std::map<std::string, std::string>();
    }

private:
    fs::path path_;
};

// Numbers from 2147483648 on are written as negative ones.
std::string writtenText(const Setting &setting, const std::string &value) {
    if (!setting.isNumber()) {
        return value;
    }
    return std::to_string(static_cast<int32_t>(wholeNumber(value).value_or(0)));
}

void makeInCopy(const std::string &copy, const Change &change) {
    StoreSection section(addressOf(copy, change.section), StoreSection::Mode::write);
    const uint32_t result =
        change.after ? section.set(*change.setting, *change.after) : section.remove(*change.setting);
    if (result != 0) {
        throw ToolError(kExitNotAccessible,
                        "a copy of the configuration could not be changed: " + resultText(result));
    }
}

} // namespace

void rehearse(const std::string &configuration, const std::vector<Change> &changes) {
    const Copy copy(configuration);
    std::map<std::string, std::string> expected = copy.values();
    for (const Change &change : changes) {
        makeInCopy(copy.path(), change);
        const std::string key = change.section.text() + "." + change.setting->key;
        expected.erase(key);
        if (change.after) {
            expected[key] = writtenText(*change.setting, *change.after);
        }
    }
    const std::map<std::string, std::string> actual = copy.values();
    for (const auto &[key, value] : expected) {
        const auto found = actual.find(key);
        if (found == actual.end() || found->second != value) {
            throw ToolError(kExitProblemsFound, "nothing was changed, since the change would damage \"" +
                                                    key + "\" in file " + configuration +
                                                    "; qzlogcfg check names what is wrong with the file");
        }
    }
    if (actual.size() != expected.size()) {
        throw ToolError(kExitProblemsFound,
                        "nothing was changed, since lines of file " + configuration +
                            " would come to count that do not now; qzlogcfg check names them");
    }
}

} // namespace zantlog::tools
