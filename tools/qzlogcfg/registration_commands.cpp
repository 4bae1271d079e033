// register, unregister.
#include <algorithm>
#include <filesystem>
#include <ostream>

#include "tools/common/code_page.h"
#include "tools/common/result_text.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/commands.h"
#include "tools/qzlogcfg/system_store.h"
#include "zantlog/config_store.h"
#include "zantlog/results.h"

namespace zantlog::tools {

namespace {

void checkText(const std::string &what, const std::string &text, const std::string &location) {
    constexpr size_t kMost = ZANTLOG_STORE_TEXT - 1;
    const bool control = std::any_of(text.begin(), text.end(),
                                     [](char byte) { return static_cast<unsigned char>(byte) < ' '; });
    if (text.empty() || control || utf8FromCodePage(codePageFromUtf8(text)) != text) {
        usageError(what + " is empty, or has characters that the store cannot hold");
    }
    if (isConfFile(location) &&
        (text.find('=') != std::string::npos || text.back() == ' ' || text.size() > kMost)) {
        usageError(what + " \"" + text +
                   "\" contains \"=\", ends in a blank or is longer than 399 bytes, which a "
                   ".conf file cannot hold");
    }
}

// A file is found from every directory when its path is absolute.
std::string absoluteConfiguration(const std::string &configuration) {
    if (!isConfFile(configuration)) {
        return configuration;
    }
    const std::filesystem::path path(std::u8string(configuration.begin(), configuration.end()));
    const std::u8string absolute = std::filesystem::absolute(path).make_preferred().u8string();
    return std::string(absolute.begin(), absolute.end());
}

} // namespace

int registerProduct(uint32_t product, const std::string &names, const std::string &configuration,
                    std::ostream &output) {
    const std::string location = currentLocation();
    const std::string path = absoluteConfiguration(configuration);
    checkText("--config", path, location);
    checkText("--names", names, location);
    if (isConfFile(path) && path.find('\\') == std::string::npos) {
        usageError("--config \"" + path + "\" names no directory");
    }
    const StoreLock lock(location);
    const uint32_t result =
        zantLogAddProductCfg(product, codePageFromUtf8(names).c_str(), codePageFromUtf8(path).c_str());
    if (result == ZANTLOG_ALREADY_REGISTERED) {
        throw ToolError(kExitProblemsFound,
                        "product " + std::to_string(product) +
                            " is registered already, and nothing was changed; qzlogcfg "
                            "unregister removes the registration and leaves the configuration");
    }
    if (result != ZANTLOG_OK) {
        throw ToolError(kExitNotAccessible, "product " + std::to_string(product) +
                                                " could not be registered in the " + locationWords(location) +
                                                ": " + resultText(result));
    }
    output << "product " << product << " (" << names << ") is registered; it is configured in the "
           << locationWords(path) << '\n';
    return kExitSuccess;
}

int unregisterProduct(const std::string &product, std::ostream &output) {
    const std::string location = currentLocation();
    const Registration registration = requireProduct(location, product);
    const StoreLock lock(location);
    const uint32_t result = zantLogRemoveProductCfg(registration.product);
    // The library looks for the key in the registry, wherever the entry was: what counts is that it has gone.
    const std::vector<Registration> left =
        accessTo(location) == Access::there ? registrations(location) : std::vector<Registration>();
    const bool gone = std::none_of(left.begin(), left.end(), [&](const Registration &other) {
        return other.product == registration.product;
    });
    if (!gone) {
        throw ToolError(kExitNotAccessible, "the registration of product " + product +
                                                " could not be removed: " + resultText(result));
    }
    output << "product " << registration.product << " is not registered any more; its configuration in the "
           << locationWords(registration.configuration) << " is left as it is\n";
    return kExitSuccess;
}

} // namespace zantlog::tools
