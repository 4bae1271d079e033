// Which log files are looked at.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tools/qzlogview/file_reader.h"
#include "zantlog/config.h"

namespace zantlog::view {

// The loaded configurations of this machine's products, as the library's functions take them.
class Configurations {
public:
    // All of them, and of originators that have log files but no section; with none, an empty set.
    Configurations();
    ~Configurations();
    Configurations(const Configurations &) = delete;
    Configurations &operator=(const Configurations &) = delete;

    [[nodiscard]] zantLogCfg **array() { return records_.data(); }
    [[nodiscard]] uint32_t count() const { return static_cast<uint32_t>(records_.size()); }
    // First short names, empty when there is none.
    [[nodiscard]] std::string productName(uint32_t product) const;
    [[nodiscard]] std::string originatorName(uint32_t product, uint32_t originator) const;

    // Finds originators that have no section and have log files meanwhile.
    void addOriginatorsWithoutSection();

private:
    void load();
    void addConfiguration(uint32_t product, uint32_t originator);

    std::vector<zantLogCfg *> records_;
};

// Paths in UTF-8 of the files that the library selects with the query (null: all) among those of the
// configurations; true in *unsupported when a file with an unsupported header was met.
std::vector<std::string> selectedFiles(Configurations *configurations, QueryNode *query, bool *unsupported);

// Paths of named files, and of the *.log files of named directories. An error names what is not there.
std::vector<std::string> namedFiles(const std::vector<std::string> &names);

// The same, without those that are not there (any more).
std::vector<std::string> filesThere(const std::vector<std::string> &names);

// Opens each file for its header. Those that cannot be read are reported and left out.
std::vector<Source> readSources(const std::vector<std::string> &paths, const DamageSink &damage);

} // namespace zantlog::view
