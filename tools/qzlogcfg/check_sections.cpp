#include "tools/qzlogcfg/check_sections.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>

#include "tools/common/ascii.h"
#include "tools/common/suggestions.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/changes.h"
#include "tools/qzlogcfg/conf_lines.h"
#include "tools/qzlogcfg/setting_value.h"
#include "tools/qzlogcfg/store_section.h"
#include "tools/qzlogcfg/system_store.h"

namespace zantlog::tools {

namespace {

constexpr char kTools[] = "LoggingTools";
constexpr char kToolsDirectory[] = "L10nResourceDir";

// Names of registry values have no case.
const Setting *settingOfRegistryValue(const std::string &name) {
    const auto found = std::find_if(settings().begin(), settings().end(), [&](const Setting &setting) {
        return lowered(setting.key) == lowered(name);
    });
    return found == settings().end() ? nullptr : &*found;
}

std::string unknownSetting(const std::string &name) {
    std::vector<std::string> keys;
    for (const Setting &known : settings()) {
        keys.emplace_back(known.key);
    }
    return "the setting \"" + name + "\" is unknown" + didYouMean(nearest(name, keys));
}

// A value of a setting, wherever it stands.
std::optional<std::string> problemOfSetting(const SectionName &section, const Setting &setting,
                                            const std::string &value) {
    const std::string key = setting.key;
    if (!setting.belongsTo(section.kind)) {
        return key + " does not count in a section of " +
               (section.kind == SectionKind::logSet ? "a log set" : "an originator");
    }
    if (const std::optional<std::string> problem = problemOfStoredValue(setting, value)) {
        return key + " is " + *problem;
    }
    if (setting.kind == SettingKind::securityDescriptor && !isSecurityDescriptor(value)) {
        return key + " is no security descriptor that the system reads; no log file can be made with it";
    }
    return std::nullopt;
}

std::optional<std::string> problemOfLogSetName(const SectionName &section) {
    if (section.kind != SectionKind::logSet) {
        return std::nullopt;
    }
    try {
        checkLogSetName(section.logSet);
        return std::nullopt;
    } catch (const ToolError &error) {
        return error.what();
    }
}

// A file may hold the entries of a location beside sections. The switch has a namesake among the settings,
// with other values.
bool isOfRegistration(const std::string &root, const std::string &name, const std::string &value) {
    if (!wholeNumber(root)) {
        return false;
    }
    return name == "Configuration" || name == "Names" ||
           (name == "AppMsgLogging" && (value == "true" || value == "false"));
}

// What a line says, apart from its form.
std::optional<std::string> problemOfKey(const ConfLine &line) {
    const std::string root = rootOfKey(line.key);
    const std::string name = nameOfKey(line.key);
    if (root.empty()) {
        return "\"" + line.key + "\" belongs to no section and is never read";
    }
    if (root == kTools) {
        return name == kToolsDirectory ? std::nullopt : std::optional(unknownSetting(name));
    }
    if (isOfRegistration(root, name, line.value)) {
        return std::nullopt;
    }
    const std::optional<SectionName> section = sectionFromText(root);
    if (!section) {
        return "\"" + root + "\" is neither an originator nor a log set, so \"" + line.key +
               "\" is never read";
    }
    if (const std::optional<std::string> problem = problemOfLogSetName(*section)) {
        return problem;
    }
    const Setting *setting = settingWithKey(name);
    return setting == nullptr ? std::optional(unknownSetting(name))
                              : problemOfSetting(*section, *setting, line.value);
}

std::optional<std::string> problemOfForm(const ConfLine &line) {
    if (line.tooLong) {
        return std::string("the line is longer than 499 bytes and is read as several lines");
    }
    if (line.comment) {
        return std::nullopt;
    }
    if (line.key.empty()) {
        return std::string("the line is no setting: it has no \"=\", or nothing before it");
    }
    if (!line.hasValue) {
        return "\"" + line.key + "\" has no value";
    }
    if (line.cut) {
        return "the value of \"" + line.key + "\" is read only up to its second \"=\" or its 399th byte";
    }
    if (line.key.front() == ' ' || line.key.back() == ' ' || line.key.front() == '\t') {
        return "\"" + line.key + "\" is never read: a blank stands before or behind the name";
    }
    return std::nullopt;
}

std::optional<std::string> problemOfRegistryValue(const SectionName &section, const RegistryValue &value) {
    const Setting *setting = settingOfRegistryValue(value.name);
    if (setting == nullptr) {
        return unknownSetting(value.name);
    }
    const std::string type = setting->isNumber() ? "REG_DWORD" : "REG_SZ";
    if (value.type != type) {
        return value.name + " is of type " + value.type + " and does not count; " + type + " would";
    }
    // Case does not count in booleans of the registry.
    const bool boolean = setting->kind == SettingKind::boolean;
    return problemOfSetting(section, *setting, boolean ? lowered(value.text) : value.text);
}

void addProblemsOfRegistrySection(const std::string &path, const SectionName &section,
                                  std::vector<Problem> *problems) {
    const std::string place = "HKEY_LOCAL_MACHINE\\" + path;
    if (const std::optional<std::string> problem = problemOfLogSetName(section)) {
        problems->push_back({place, *problem});
    }
    for (const RegistryValue &value : registryValues(path)) {
        if (const std::optional<std::string> problem = problemOfRegistryValue(section, value)) {
            problems->push_back({place, *problem});
        }
    }
}

} // namespace

std::vector<Problem> problemsOfConfFile(const std::string &path) {
    std::vector<Problem> problems;
    ConfFile file;
    if (!readConfFile(path, &file)) {
        return {{path, "the file cannot be read"}};
    }
    std::map<std::string, size_t> seen; // first line of each key that has a value
    for (const ConfLine &line : file.lines) {
        const std::string place = path + ":" + std::to_string(line.number);
        if (const std::optional<std::string> problem = problemOfForm(line)) {
            problems.push_back({place, *problem});
            continue;
        }
        if (line.comment) {
            continue;
        }
        if (const auto [first, isNew] = seen.emplace(line.key, line.number); !isNew) {
            problems.push_back({place, "\"" + line.key + "\" stands in line " +
                                           std::to_string(first->second) + " already, and that one counts"});
            continue;
        }
        if (const std::optional<std::string> problem = problemOfKey(line)) {
            problems.push_back({place, *problem});
        }
    }
    if (file.endsInControlZ) {
        problems.push_back({path, "the file is read only up to its byte 1A (Ctrl-Z)"});
    }
    if (!file.endsInLineEnd) {
        problems.push_back({path + ":" + std::to_string(file.lines.size()),
                            "the last line has no line end: the next line that is added would join it"});
    }
    std::error_code error;
    if (const std::string copy = path + ".tmp";
        std::filesystem::exists(std::filesystem::path(std::u8string(copy.begin(), copy.end())), error)) {
        problems.push_back(
            {copy, "a temporary file was left behind; it can be deleted while no program changes the "
                   "configuration"});
    }
    return problems;
}

std::vector<Problem> problemsOfRegistryConfiguration(const std::string &path) {
    std::vector<Problem> problems;
    std::vector<SectionName> sections;
    std::vector<std::string> others;
    if (!listSections(path, &sections, &others)) {
        return {{"HKEY_LOCAL_MACHINE\\" + path, "the key cannot be read"}};
    }
    for (const SectionName &section : sections) {
        const SectionAddress address = addressOf(path, section);
        addProblemsOfRegistrySection(address.location + "\\" + address.section, section, &problems);
    }
    for (const std::string &other : others) {
        problems.push_back({"HKEY_LOCAL_MACHINE\\" + path + "\\" + other,
                            "the key is neither an originator nor a log set and is never read"});
    }
    return problems;
}

std::vector<Problem> problemsOfRegistryLocation(const std::string &path) {
    std::vector<Problem> problems;
    StoreSection store({path, ""}, StoreSection::Mode::read);
    for (const std::string &root : store.roots()) {
        const bool entry = root == kTools || (sectionFromText(root) && root != "Default");
        const bool section = sectionFromText(root).has_value() || root == "LOGSET";
        if (!entry && !section) {
            problems.push_back(
                {"HKEY_LOCAL_MACHINE\\" + path + "\\" + root, "the key is no product id and is never read"});
        }
    }
    return problems;
}

} // namespace zantlog::tools
