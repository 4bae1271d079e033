#include "reader/surplus_files.h"

#include <algorithm>
#include <tuple>

#include "base/owned_text.h"
#include "config/config_record.h"
#include "reader/file_list.h"
#include "zantlog/results.h"

namespace zantlog {

namespace {

struct GroupedFile {
    LogFileEntry *entry;
    FileGroup group;
    size_t position;      // in the selection
    size_t groupPosition; // of the group's first file
};

const zantLogCfg *findConfiguration(std::span<zantLogCfg *const> configurations, const FileGroup &group) {
    const auto found = std::ranges::find_if(configurations, [&group](const zantLogCfg *cfg) {
        return group == FileGroup{cfg->productId, cfg->originatorId};
    });
    return found != configurations.end() ? *found : nullptr;
}

// Kept: a group without a configuration of its own has that of the default originator.
const zantLogCfg *configurationOf(std::span<zantLogCfg *const> configurations, const FileGroup &group) {
    const zantLogCfg *own = findConfiguration(configurations, group);
    return own != nullptr ? own
                          : findConfiguration(configurations, {group.productId, ZANTLOG_DEFAULT_ORIGINATOR});
}

size_t countEntries(const LogFindContext &context) {
    size_t count = 0;
    for (const LogFileEntry *entry = context.head; entry != nullptr; entry = entry->next) {
        ++count;
    }
    return count;
}

// Takes the entries out of the context; those that do not count are freed. Returns how many are left.
size_t takeCountedFiles(LogFindContext *context, GroupOf groupOf, const void *wanted, GroupedFile *files) {
    size_t count = 0;
    LogFileEntry *entry = context->head;
    context->head = nullptr;
    context->current = nullptr;
    while (entry != nullptr) {
        LogFileEntry *next = entry->next;
        FileGroup group{};
        if (groupOf(wanted, nameOf(*entry), &group)) {
            files[count] = {entry, group, count, 0};
            ++count;
        } else {
            zantLogFree(entry);
        }
        entry = next;
    }
    return count;
}

// The files from `begin` on that are of one group.
std::span<GroupedFile> groupAt(std::span<GroupedFile> files, size_t begin) {
    size_t end = begin + 1;
    while (end < files.size() && files[end].group == files[begin].group) {
        ++end;
    }
    return files.subspan(begin, end - begin);
}

// Brings the files of each group together, oldest first, the groups in the order of their first files.
void orderByGroup(std::span<GroupedFile> files) {
    std::ranges::sort(files, {}, [](const GroupedFile &file) {
        return std::tuple(file.group.productId, file.group.originatorId, file.position);
    });
    for (size_t begin = 0; begin < files.size();) {
        const std::span<GroupedFile> group = groupAt(files, begin);
        for (GroupedFile &file : group) {
            file.groupPosition = group.front().position;
        }
        begin += group.size();
    }
    std::ranges::sort(files, {},
                      [](const GroupedFile &file) { return std::tuple(file.groupPosition, file.position); });
}

void putInFront(LogFindContext *context, LogFileEntry *entry) {
    entry->next = context->head;
    context->head = entry;
}

void keepSurplusOf(std::span<const GroupedFile> group, const zantLogCfg *cfg, LogFindContext *context) {
    const size_t limit = cfg != nullptr ? cfg->numberOfLogFiles : group.size();
    const size_t surplus = group.size() > limit ? group.size() - limit : 0;
    for (const GroupedFile &file : group.first(surplus)) {
        putInFront(context, file.entry);
    }
    for (const GroupedFile &file : group.subspan(surplus)) {
        zantLogFree(file.entry);
    }
}

} // namespace

uint32_t reduceToSurplus(LogFindContext *context, std::span<zantLogCfg *const> configurations,
                         GroupOf groupOf, const void *wanted) {
    const OwnedBlock<GroupedFile> block = allocateBlock<GroupedFile>(countEntries(*context));
    if (block == nullptr) {
        freeSelection(context);
        return ZANTLOG_OUT_OF_MEMORY;
    }
    const std::span<GroupedFile> files(block.get(), takeCountedFiles(context, groupOf, wanted, block.get()));
    orderByGroup(files);
    for (size_t begin = 0; begin < files.size();) {
        const std::span<GroupedFile> group = groupAt(files, begin);
        keepSurplusOf(group, configurationOf(configurations, group.front().group), context);
        begin += group.size();
    }
    context->current = context->head;
    return ZANTLOG_OK;
}

} // namespace zantlog
