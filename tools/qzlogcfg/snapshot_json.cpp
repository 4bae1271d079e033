// Exported configurations.
#include <nlohmann/json.hpp>

#include "tools/common/ascii.h"
#include "tools/common/suggestions.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/setting_value.h"
#include "tools/qzlogcfg/snapshot.h"

namespace zantlog::tools {

namespace {

using Json = nlohmann::ordered_json;

constexpr char kFormat[] = "zantlog-configuration";
constexpr int kVersion = 1;

Json jsonOfValue(const Setting &setting, const std::string &value) {
    if (setting.isNumber()) {
        return wholeNumber(value).value_or(0);
    }
    if (setting.kind == SettingKind::boolean && (value == "true" || value == "false")) {
        return value == "true";
    }
    return value;
}

std::string valueOfJson(const Setting &setting, const Json &json, const std::string &where) {
    std::string value;
    if (json.is_string()) {
        value = json.get<std::string>();
    } else if (json.is_number_unsigned() || json.is_boolean()) {
        value = json.dump();
    } else {
        usageError(where + " is neither a text, a number nor true or false");
    }
    // Control characters and the like are refused here, and what the library would not take below.
    if (setting.kind != SettingKind::directory) {
        return storedValue(setting, value);
    }
    if (const std::optional<std::string> problem = problemOfStoredValue(setting, value)) {
        usageError(where + " is " + *problem);
    }
    return value;
}

SectionValues sectionOfJson(const std::string &name, const Json &json, const std::string &product) {
    const std::optional<SectionName> section = sectionFromText(name);
    const std::string where = product + ", section \"" + name + "\"";
    if (!section || !json.is_object()) {
        usageError(where +
                   " is none: sections are Default, an originator's number, LOGSET.Default and LOGSET.NAME, "
                   "and hold settings");
    }
    SectionValues values{*section, {}};
    for (const auto &[key, value] : json.items()) {
        const Setting &setting = requireSetting(key, section->kind);
        values.values[&setting] = valueOfJson(setting, value, where + ", " + key);
    }
    return values;
}

uint32_t productIdOf(const Json &json, const std::string &name) {
    const auto id = json.find("id");
    if (id == json.end() || !id->is_number_unsigned() || id->get<uint64_t>() == 0 ||
        id->get<uint64_t>() > UINT32_MAX) {
        usageError(name + " has a product without an \"id\" from 1 to 4294967295");
    }
    return id->get<uint32_t>();
}

std::string textOf(const Json &json, const char *key, const std::string &where) {
    const auto found = json.find(key);
    if (found == json.end() || !found->is_string()) {
        usageError(where + " has no text \"" + key + "\"");
    }
    return found->get<std::string>();
}

ProductSnapshot productOfJson(const Json &json, const std::string &name) {
    if (!json.is_object()) {
        usageError(name + " has a product that is no object");
    }
    ProductSnapshot product;
    product.registration.product = productIdOf(json, name);
    const std::string where = name + ", product " + std::to_string(product.registration.product);
    product.registration.names = textOf(json, "names", where);
    product.registration.configuration = textOf(json, "configuration", where);
    const auto sections = json.find("sections");
    if (sections != json.end()) {
        for (const auto &[section, values] : sections->items()) {
            product.sections.push_back(sectionOfJson(section, values, where));
        }
    }
    return product;
}

} // namespace

std::string jsonFromSnapshot(const Snapshot &snapshot) {
    Json products = Json::array();
    for (const ProductSnapshot &product : snapshot.products) {
        Json sections = Json::object();
        for (const SectionValues &section : product.sections) {
            Json values = Json::object();
            for (const auto &[setting, value] : section.values) {
                values[setting->key] = jsonOfValue(*setting, value);
            }
            sections[section.name.text()] = values;
        }
        products.push_back({{"id", product.registration.product},
                            {"names", product.registration.names},
                            {"configuration", product.registration.configuration},
                            {"sections", sections}});
    }
    const Json json = {
        {"format", kFormat}, {"version", kVersion}, {"location", snapshot.location}, {"products", products}};
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

Snapshot snapshotFromJson(const std::string &text, const std::string &name) {
    try {
        const Json json = Json::parse(text);
        const bool ours = json.is_object() && json.value("format", "") == kFormat;
        if (!ours || json.value("version", 0) != kVersion || !json.contains("products") ||
            !json["products"].is_array()) {
            usageError(name + " is no configuration that qzlogcfg export has written");
        }
        Snapshot snapshot{name, {}};
        for (const Json &product : json["products"]) {
            snapshot.products.push_back(productOfJson(product, name));
        }
        return snapshot;
    } catch (const Json::exception &error) {
        usageError(name + " cannot be read as JSON: " + error.what());
    }
}

} // namespace zantlog::tools
