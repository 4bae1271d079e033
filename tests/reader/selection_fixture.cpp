#include "tests/reader/selection_fixture.h"

#include <cstdio>
#include <cstring>

namespace zantlog::test {

std::string productHeader(uint32_t product, uint32_t originator, const std::string &host, int64_t startTime) {
    return "$Header 65543," + std::to_string(product) + "," + std::to_string(originator) + "," +
           std::to_string(startTime) + ",-3600," + host + "\n";
}

std::string logSetHeader(const std::string &host) {
    return "$Header 65544,-3600," + host + "\n";
}

std::string productFile(uint32_t product, uint32_t originator, uint32_t number) {
    char name[80];
    std::snprintf(name, sizeof name, "%u-%u-1-251116-%010u.log", product, originator, number);
    return name;
}

void Selection::clear() {
    while (head != nullptr) {
        LogFileEntry *next = head->next;
        zantLogFree(head);
        head = next;
    }
    current = nullptr;
}

std::vector<std::string> Selection::names() const {
    std::vector<std::string> all;
    for (const LogFileEntry *entry = head; entry != nullptr; entry = entry->next) {
        all.emplace_back(&entry->name[0]);
    }
    return all;
}

std::vector<std::string> Selection::fetchNames() {
    std::vector<std::string> all;
    LogFileEntry *entry = nullptr;
    uint32_t result = 0;
    while ((result = zantLogFetchNextFileEx(this, &entry)) == 0) {
        all.emplace_back(&entry->name[0]);
    }
    EXPECT_EQ(result, kNoMoreFiles);
    return all;
}

std::vector<std::string> Selection::fetchPaths() {
    std::vector<std::string> all;
    char *path = nullptr;
    uint32_t result = 0;
    while ((result = zantLogFetchNextFile(this, &path)) == 0) {
        all.emplace_back(path);
        EXPECT_EQ(zantLogFreeBuffer(&path), 0u);
        EXPECT_EQ(path, nullptr);
    }
    EXPECT_EQ(result, kNoMoreFiles);
    return all;
}

QueryNode *Query::op(int32_t code, QueryNode *left, QueryNode *right) {
    nodes_.push_back({code, 0, 0, nullptr, left, right});
    return &nodes_.back();
}

QueryNode *Query::term(int32_t kind, uint32_t value, const char *text) {
    nodes_.push_back({kind, 0, value, text, nullptr, nullptr});
    return &nodes_.back();
}

std::string SelectionTest::directory(const std::string &subfolder) const {
    return folder_.file(subfolder.empty() ? "" : subfolder + "\\");
}

zantLogCfg *SelectionTest::newConfiguration(const std::string &subfolder) {
    configurations_.emplace_back();
    zantLogCfg *cfg = &configurations_.back();
    std::snprintf(cfg->logDirectory, sizeof cfg->logDirectory, "%s", directory(subfolder).c_str());
    return cfg;
}

zantLogCfg *SelectionTest::product(uint32_t productId, uint32_t originatorId, const std::string &subfolder) {
    zantLogCfg *cfg = newConfiguration(subfolder);
    cfg->productId = productId;
    cfg->originatorId = originatorId;
    return cfg;
}

zantLogCfg *SelectionTest::logSet(uint32_t productId, const std::string &name, const std::string &subfolder) {
    zantLogCfg *cfg = newConfiguration(subfolder);
    cfg->productId = productId;
    cfg->isLogSet = 1;
    texts_.push_back(name);
    cfg->logSetName = texts_.back().data();
    return cfg;
}

std::string SelectionTest::make(const std::string &name, const std::string &bytes, int64_t time,
                                const std::string &subfolder) {
    if (!subfolder.empty()) {
        makeFolder(folder_.file(subfolder));
    }
    writeFileBytes(directory(subfolder) + name, bytes);
    if (time != 0) {
        setFileTimes(directory(subfolder) + name, time);
    }
    return name;
}

std::string SelectionTest::makeProductFile(uint32_t productId, uint32_t originatorId, uint32_t number,
                                           int64_t time, const std::string &subfolder) {
    return make(productFile(productId, originatorId, number), productHeader(productId, originatorId), time,
                subfolder);
}

uint32_t SelectionTest::select(const std::vector<zantLogCfg *> &configurations, Selection *selection) {
    std::vector<zantLogCfg *> array = configurations;
    array.push_back(nullptr); // also when it is empty there is an array
    return GetLogFiles(array.data(), static_cast<uint32_t>(array.size() - 1), selection);
}

} // namespace zantlog::test
