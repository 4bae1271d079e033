#include "tools/qzlogview/file_set.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <set>
#include <string_view>

#include "tools/common/ascii.h"
#include "tools/common/code_page.h"
#include "tools/common/tool_error.h"
#include "zantlog/config_store.h"
#include "zantlog/discovery.h"
#include "zantlog/results.h"

namespace zantlog::view {

namespace {

namespace fs = std::filesystem;

std::string shortName(zantLogCfg *cfg, uint32_t which) {
    char *name = nullptr;
    if (LogCfgGetShortNames(cfg, which, &name) != ZANTLOG_OK || name == nullptr) {
        return "";
    }
    const std::string text = tools::utf8FromCodePage(name);
    zantLogFree(name);
    return text;
}

// A selection whose entries are freed at the end of the scope.
struct Selected : LogFindContext {
    explicit Selected(QueryNode *wanted) : LogFindContext{} { query = wanted; }
    ~Selected() {
        for (LogFileEntry *entry = head; entry != nullptr;) {
            LogFileEntry *const next = entry->next;
            zantLogFree(entry);
            entry = next;
        }
    }
    Selected(const Selected &) = delete;
    Selected &operator=(const Selected &) = delete;
};

fs::path pathOf(const std::string &name) {
    return fs::path(std::u8string(name.begin(), name.end()));
}

// None where the directory has gone.
std::vector<std::string> logsIn(const fs::path &directory) {
    std::vector<std::string> paths;
    std::error_code error;
    for (fs::directory_iterator at(directory, error), end; !error && at != end; at.increment(error)) {
        const fs::directory_entry &entry = *at;
        const std::u8string path = entry.path().u8string();
        if (entry.path().extension() == ".log") {
            paths.emplace_back(path.begin(), path.end());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

// The file originators of a product that have files in a directory.
std::set<uint32_t> originatorsIn(const char *directory, uint32_t product) {
    std::set<uint32_t> originators;
    const std::string prefix = std::to_string(product) + "-";
    zantLogListing listing = {};
    if (*directory == '\0') {
        return originators;
    }
    uint32_t result = zantLogOsListLogFilesBegin(&listing, directory);
    for (; result == ZANTLOG_OK; result = zantLogOsListLogFilesNext(&listing)) {
        const std::string_view name = zantLogOsListLogFilesName(&listing);
        if (!name.starts_with(prefix)) {
            continue;
        }
        const std::string_view rest = name.substr(prefix.size());
        // A log set's file has two parts behind the product, an originator's four.
        const bool four = std::count(rest.begin(), rest.end(), '-') == 3;
        const auto id = tools::wholeNumber(rest.substr(0, std::min(rest.find('-'), rest.size())));
        if (four && id && *id > 0 && *id <= UINT32_MAX) {
            originators.insert(static_cast<uint32_t>(*id));
        }
    }
    zantLogOsListLogFilesEnd(&listing);
    return originators;
}

} // namespace

Configurations::Configurations() {
    load();
    addOriginatorsWithoutSection();
}

void Configurations::load() {
    constexpr uint32_t kFirstCapacity = 256;
    for (uint32_t capacity = kFirstCapacity;; capacity *= 2) {
        records_.assign(capacity, nullptr);
        uint32_t count = 0;
        const uint32_t result = zantLogReadAllCfg(nullptr, capacity, records_.data(), &count);
        if (result == ZANTLOG_OK && count == capacity) {
            FreeConfigArray(records_.data(), count); // there may be more
            continue;
        }
        records_.resize(result == ZANTLOG_OK ? count : 0);
        return;
    }
}

// An originator without a section of its own logs with the product's defaults, and only its files tell of it.
void Configurations::addOriginatorsWithoutSection() {
    std::set<std::pair<uint32_t, uint32_t>> known;
    std::vector<zantLogCfg *> defaults;
    for (zantLogCfg *cfg : records_) {
        if (cfg->isLogSet == 0) {
            known.emplace(cfg->productId, cfg->originatorId);
            if (cfg->originatorId == ZANTLOG_DEFAULT_ORIGINATOR) {
                defaults.push_back(cfg);
            }
        }
    }
    for (const zantLogCfg *cfg : defaults) {
        for (const uint32_t originator : originatorsIn(cfg->logDirectory, cfg->productId)) {
            if (known.emplace(cfg->productId, originator).second) {
                addConfiguration(cfg->productId, originator);
            }
        }
    }
}

void Configurations::addConfiguration(uint32_t product, uint32_t originator) {
    auto *cfg = static_cast<zantLogCfg *>(zantLogMalloc(sizeof(zantLogCfg)));
    if (cfg == nullptr) {
        throw std::bad_alloc();
    }
    if (zantLogReadCfg(product, originator, cfg) == ZANTLOG_OK) {
        records_.push_back(cfg);
    } else {
        zantLogFreeCfg(cfg);
        zantLogFree(cfg);
    }
}

Configurations::~Configurations() {
    FreeConfigArray(records_.data(), count());
}

std::string Configurations::productName(uint32_t product) const {
    for (zantLogCfg *cfg : records_) {
        if (cfg->productId == product) {
            return shortName(cfg, ZANTLOG_PRODUCT_NAMES);
        }
    }
    return "";
}

std::string Configurations::originatorName(uint32_t product, uint32_t originator) const {
    for (zantLogCfg *cfg : records_) {
        if (cfg->productId == product && cfg->originatorId == originator && cfg->isLogSet == 0) {
            return shortName(cfg, 0);
        }
    }
    return "";
}

std::vector<std::string> selectedFiles(Configurations *configurations, QueryNode *query, bool *unsupported) {
    Selected selected(query);
    std::vector<std::string> paths;
    if (GetLogFiles(configurations->array(), configurations->count(), &selected) == ZANTLOG_OK) {
        LogFileEntry *entry = nullptr;
        while (zantLogFetchNextFileEx(&selected, &entry) == ZANTLOG_OK) {
            paths.push_back(tools::utf8FromCodePage(std::string(entry->directory) + entry->name));
        }
    }
    *unsupported = selected.badHeaderSeen != 0;
    return paths;
}

std::vector<std::string> filesThere(const std::vector<std::string> &names) {
    std::vector<std::string> paths;
    std::set<fs::path> known; // a file may be named, and be in a directory that is named too
    const auto add = [&](const std::string &path) {
        std::error_code error;
        const fs::path whole = fs::absolute(pathOf(path), error).lexically_normal();
        if (known.insert(error ? pathOf(path) : whole).second) {
            paths.push_back(path);
        }
    };
    for (const std::string &name : names) {
        std::error_code error;
        if (fs::is_directory(pathOf(name), error)) {
            const std::vector<std::string> logs = logsIn(pathOf(name));
            std::for_each(logs.begin(), logs.end(), add);
        } else if (fs::exists(pathOf(name), error)) {
            add(name);
        }
    }
    return paths;
}

std::vector<std::string> namedFiles(const std::vector<std::string> &names) {
    for (const std::string &name : names) {
        std::error_code error;
        if (!fs::exists(pathOf(name), error)) {
            throw tools::ToolError(tools::kExitNotAccessible, "there is no file or directory " + name);
        }
    }
    return filesThere(names);
}

std::vector<Source> readSources(const std::vector<std::string> &paths, const DamageSink &damage) {
    std::vector<Source> sources;
    for (const std::string &path : paths) {
        Source source;
        source.path = path;
        LogFile file;
        const uint32_t result = readSource(&file, &source);
        if (result == ZANTLOG_OK) {
            sources.push_back(std::move(source));
        } else if (result == ZANTLOG_FILE_NOT_OPENED) {
            damage({path, 0, "the file cannot be opened", true});
        } else if (result == ZANTLOG_UNSUPPORTED_HEADER) {
            damage({path, 0, "the header is of a version that is not supported", true});
        } else if (source.size > 0) {
            damage({path, 0, "the file has no header", true});
        }
    }
    return sources;
}

} // namespace zantlog::view
