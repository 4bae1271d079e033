#include "tools/qzlogcfg/changes.h"

#include <chrono>
#include <ostream>
#include <thread>

#include "tools/common/code_page.h"
#include "tools/common/result_text.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogcfg/rehearsal.h"
#include "tools/qzlogcfg/system_store.h"
#include "zantlog/results.h"

namespace zantlog::tools {

namespace {

// What stands there that the library does not read: a value of another type.
std::optional<std::string> unreadValue(const SectionAddress &address, const Setting &setting) {
    if (isConfFile(address.location)) {
        return std::nullopt;
    }
    for (const RegistryValue &value : registryValues(address.location + "\\" + address.section)) {
        if (value.name == setting.key) {
            return value.text + " (" + value.type + ")";
        }
    }
    return std::nullopt;
}

// Fills in what was before and drops what is so already.
void compare(const std::string &configuration, std::vector<Change> *changes) {
    for (Change &change : *changes) {
        const SectionAddress address = addressOf(configuration, change.section);
        StoreSection section(address, StoreSection::Mode::read);
        change.before = section.value(*change.setting);
        if (!change.before) {
            change.before = unreadValue(address, *change.setting);
        }
    }
    std::erase_if(*changes, [](const Change &change) { return change.before == change.after; });
}

uint32_t tryChange(const std::string &configuration, const Change &change) {
    StoreSection section(addressOf(configuration, change.section), StoreSection::Mode::write);
    if (!section.isOpen()) {
        return ZANTLOG_NOT_REGISTERED;
    }
    return change.after ? section.set(*change.setting, *change.after) : section.remove(*change.setting);
}

// A file that a product reads at this moment cannot be replaced; the next try begins with the file as it is
// then.
uint32_t tryChangePatiently(const std::string &configuration, const Change &change) {
    constexpr auto kPause = std::chrono::milliseconds(50);
    constexpr int kTries = 40;
    uint32_t result = tryChange(configuration, change);
    for (int tries = 1; result != ZANTLOG_OK && isConfFile(configuration) && tries < kTries; ++tries) {
        std::this_thread::sleep_for(kPause);
        result = tryChange(configuration, change);
    }
    return result;
}

[[noreturn]] void fail(const std::string &configuration, const std::vector<Change> &changes, size_t made,
                       const std::string &why) {
    const Change &change = changes[made];
    std::string text = std::string(change.setting->key) + " of " + change.section.words() + " could not be " +
                       (change.after ? "set" : "removed") + " in the " + locationWords(configuration) + ": " +
                       why;
    if (changes.size() > 1) {
        text += "; " + std::to_string(made) + " of " + std::to_string(changes.size()) +
                " changes were made, and nothing after them was tried";
    }
    throw ToolError(kExitNotAccessible, text);
}

void make(const std::string &configuration, const std::vector<Change> &changes) {
    for (size_t made = 0; made < changes.size(); ++made) {
        const Change &change = changes[made];
        const uint32_t result = tryChangePatiently(configuration, change);
        if (result != ZANTLOG_OK) {
            fail(configuration, changes, made, resultText(result));
        }
        StoreSection section(addressOf(configuration, change.section), StoreSection::Mode::read);
        if (section.value(*change.setting) != change.after) {
            fail(configuration, changes, made, "it does not read as it was written");
        }
    }
}

} // namespace

void printChanges(uint32_t product, const std::vector<Change> &changes, std::ostream &output) {
    const SectionName *last = nullptr;
    for (const Change &change : changes) {
        if (last == nullptr || *last != change.section) {
            output << "product " << product << ", " << change.section.words() << '\n';
        }
        last = &change.section;
        if (change.before) {
            output << "- " << change.setting->key << " = " << *change.before << '\n';
        }
        if (change.after) {
            output << "+ " << change.setting->key << " = " << *change.after << '\n';
        }
    }
}

void checkFits(const std::string &configuration, const Change &change) {
    if (!change.after) {
        return;
    }
    const std::string &value = *change.after;
    const std::string what = std::string(change.setting->key) + " \"" + value + "\"";
    if (utf8FromCodePage(codePageFromUtf8(value)) != value) {
        usageError(what + " has characters that the code page of the system does not have");
    }
    if (!isConfFile(configuration)) {
        return;
    }
    if (value.find('=') != std::string::npos) {
        usageError(what + " contains \"=\", which a .conf file cannot hold; the registry can");
    }
    if (!value.empty() && value.back() == ' ') {
        usageError(what + " ends in a blank, which a .conf file cannot hold; the registry can");
    }
    const std::string key = change.section.text() + "." + change.setting->key + "=";
    if (value.size() >= ZANTLOG_STORE_TEXT || key.size() + value.size() + 1 >= ZANTLOG_STORE_LINE) {
        usageError(what +
                   " is too long for a .conf file: a value has at most 399 bytes and a line at most 499; the "
                   "registry can hold it");
    }
}

void checkLogSetName(const std::string &name) {
    constexpr size_t kMost = 79; // longer ones end the library's listing
    constexpr char kForbidden[] = "-.=<>:\"/\\|?*";
    const std::string what = "\"" + name + "\" is no name for a log set: ";
    if (name.empty() || name.size() > kMost) {
        usageError(what + "it has 1 to " + std::to_string(kMost) + " bytes");
    }
    const size_t found = name.find_first_of(kForbidden);
    if (found != std::string::npos) {
        usageError(what + "it contains \"" + name[found] +
                   (name[found] == '-' ? "\", and its log files would not be found again"
                                       : "\", which file names or the store cannot hold"));
    }
    for (const char character : name) {
        if (static_cast<unsigned char>(character) < ' ') {
            usageError(what + "it contains a control character");
        }
    }
    if (name.front() == ' ' || name.back() == ' ') {
        usageError(what + "it begins or ends with a blank");
    }
    if (utf8FromCodePage(codePageFromUtf8(name)) != name) {
        usageError(what + "it has characters that the code page of the system does not have");
    }
}

size_t makeChanges(const Registration &product, std::vector<Change> changes, DryRun dryRun,
                   std::ostream &output) {
    const std::string &configuration = product.configuration;
    for (const Change &change : changes) {
        if (change.section.kind == SectionKind::logSet) {
            checkLogSetName(change.section.logSet);
        }
        checkFits(configuration, change);
    }
    const StoreLock lock(configuration);
    compare(configuration, &changes);
    if (isConfFile(configuration)) {
        rehearse(configuration, changes);
    }
    if (dryRun == DryRun::no) {
        make(configuration, changes);
    }
    printChanges(product.product, changes, output);
    return changes.size();
}

} // namespace zantlog::tools
