// The store in the registry, against a tree of maps. Operations: r|section open to read, w|section open to
// change, c|section open or make, s|name|value set a text, u|name|number, b|name|flag, f|name read in all
// three ways, d|name remove, D|sub-key remove a tree, P|path the same by its path, e|index|capacity a
// sub-key's name.
#include "tests/fuzz/operations.h"
#include "tests/fuzz/registry_model.h"
#include "zantlog/config_store.h"
#include "zantlog/message.h"
#include "zantlog/property_store.h"

namespace {

using namespace zantlog::fuzz;
namespace sim = zantlog::sim;

const std::string kLocation = "SOFTWARE\\Fuzz";

constexpr uint32_t kNull = 1;
constexpr uint32_t kCannotOpen = 2;
constexpr uint32_t kNotFound = 3;
constexpr uint32_t kFailed = 6;
constexpr uint32_t kNoMore = 7;

struct Run {
    ModelKeyPointer top = std::make_shared<ModelKey>();
    ModelKeyPointer key; // that the store has open; null: none
    bool mayWrite = false;
    PropertyStore store = {};

    [[nodiscard]] bool readable() const { return !key->deleted; }
    [[nodiscard]] bool writable() const { return !key->deleted && mayWrite; }
};

void open(Run &run, const std::string &section, bool toWrite, bool make) {
    utiClosePropertyStore(&run.store);
    run.key = walk(run.top, section, false);
    run.mayWrite = toWrite;
    uint32_t expected = run.key != nullptr ? 0 : kCannotOpen;
    if (make && run.key == nullptr) {
        run.key = walk(run.top, section, true);
        expected = run.key != nullptr ? 0 : kFailed;
    }
    const uint32_t mode = toWrite ? ZANTLOG_STORE_WRITE : ZANTLOG_STORE_READ;
    const uint32_t result = make ? CreatePropertyString(kLocation.c_str(), section.c_str(), &run.store)
                                 : utiOpenPropertyStore(kLocation.c_str(), section.c_str(), &run.store, mode);
    requireNumber(expected, result, "open");
    require((run.store.key != nullptr) == (run.key != nullptr), "a store that is open has a key");
}

uint32_t put(Run &run, const std::string &name, const ModelValue &value) {
    if (!run.writable()) {
        return kNotFound;
    }
    run.key->values[upper(name)] = value;
    return 0;
}

void find(Run &run, const std::string &name) {
    const auto found = run.key->values.find(upper(name));
    const bool present = run.readable() && found != run.key->values.end();
    const bool isText = present && found->second.isText;
    const bool isNumber = present && !found->second.isText;

    // What the pointer held before is freed when a text takes its place.
    auto *text = static_cast<char *>(zantLogMalloc(1));
    *text = '\0';
    requireNumber(isText ? 0 : kNotFound, utiGetPropertyAsStr(&run.store, name.c_str(), &text), "get text");
    requireText(isText ? found->second.text : "", text, "text");
    zantLogFree(text);

    uint32_t number = 77;
    requireNumber(isNumber ? 0 : kNotFound, utiGetPropertyAsULong(&run.store, name.c_str(), &number),
                  "get number");
    requireNumber(isNumber ? found->second.number : 77, number, "number");

    uint32_t flag = 77;
    requireNumber(isText ? 0 : kNotFound, utiGetPropertyAsBool(&run.store, name.c_str(), &flag), "get flag");
    requireNumber(isText ? (upper(found->second.text) == "TRUE" ? 1 : 0) : 77, flag, "flag");
}

void removeTreeOf(Run &run, const std::string &root) {
    // These are a file's path, and a path from the top of the registry.
    if (root.find(".conf") != std::string::npos || root.find('\\') != std::string::npos) {
        return;
    }
    const uint32_t expected = run.mayWrite ? removeTree(run.key, root) : kFailed;
    requireNumber(expected, utiRemovePropertyRoot(&run.store, root.c_str()), "remove root");
}

// The path is split into a key that is opened and the last name, which goes.
void removePath(Run &run, const std::string &path) {
    const std::string whole = kLocation + "\\" + path;
    if (whole.find(".conf") != std::string::npos) {
        return;
    }
    const size_t last = path.rfind('\\');
    const std::string above = last == std::string::npos ? "" : path.substr(0, last);
    const ModelKeyPointer parent = walk(run.top, above, false);
    const std::string name = last == std::string::npos ? path : path.substr(last + 1);
    const uint32_t expected = parent != nullptr ? removeTree(parent, name) : kFailed;
    requireNumber(expected, utiRemovePropertyRoot(&run.store, whole.c_str()), "remove path");
}

void enumerate(Run &run, uint32_t index, uint32_t capacity) {
    capacity %= 300;
    std::vector<char> buffer(capacity + 1, '?');
    uint32_t length = capacity;
    const uint32_t result = utiEnumProductId(&run.store, index, buffer.data(), &length);
    if (!run.readable()) {
        return requireNumber(kFailed, result, "enumeration of a deleted key");
    }
    if (index >= run.key->keys.size()) {
        return requireNumber(kNoMore, result, "enumeration past the end");
    }
    const std::string name = std::next(run.key->keys.begin(), index)->second->name;
    if (name.size() >= capacity) {
        requireNumber(kFailed, result, "enumeration into a short buffer");
        return requireNumber(capacity, length, "length after that");
    }
    requireNumber(0, result, "enumeration");
    requireNumber(static_cast<int64_t>(name.size()), length, "length of the name");
    requireText(name, buffer.data(), "name");
}

void perform(Run &run, const Operation &operation) {
    const std::string name = operation.field(0);
    const uint32_t number = operation.number(1);
    switch (operation.letter) {
    case 's':
        return requireNumber(put(run, name, {true, operation.field(1), 0}),
                             utiSetPropertyAsStr(&run.store, name.c_str(), operation.field(1).c_str()),
                             "set text");
    case 'u':
        return requireNumber(put(run, name, {false, "", number}),
                             utiSetPropertyAsULong(&run.store, name.c_str(), &number), "set number");
    case 'b':
        return requireNumber(put(run, name, {true, number == 1 ? "true" : "false", 0}),
                             utiSetPropertyAsBool(&run.store, name.c_str(), &number), "set flag");
    case 'f':
        return find(run, name);
    case 'd': {
        const bool removed = run.writable() && run.key->values.erase(upper(name)) != 0;
        return requireNumber(removed ? 0 : kFailed, utiRemoveProperty(&run.store, name.c_str()), "remove");
    }
    case 'D':
        return removeTreeOf(run, name);
    case 'P':
        return removePath(run, name);
    case 'e':
        return enumerate(run, operation.number(0), number);
    default:
        return;
    }
}

// A closed store passes for one of a file that is closed.
void performClosed(Run &run, const Operation &operation) {
    uint32_t number = 77;
    if (operation.letter == 's' || operation.letter == 'u') {
        requireNumber(kNull, utiSetPropertyAsULong(&run.store, "A", &number), "set without a store");
    } else if (operation.letter == 'f') {
        requireNumber(kNotFound, utiGetPropertyAsULong(&run.store, "A", &number), "get without a store");
    }
}

void compare(const ModelKey &model, const std::string &path) {
    const std::vector<sim::RegistryValue> values = sim::valuesOf(path);
    requireNumber(static_cast<int64_t>(model.values.size()), static_cast<int64_t>(values.size()),
                  "number of values");
    for (const sim::RegistryValue &value : values) {
        const auto found = model.values.find(upper(value.name));
        require(found != model.values.end(), "value " + shown(value.name) + " is there");
        const ModelValue &expected = found->second;
        std::string bytes = expected.text + '\0';
        if (!expected.isText) {
            bytes.assign(reinterpret_cast<const char *>(&expected.number), sizeof expected.number);
        }
        requireNumber(expected.isText ? 1 : 4, value.type, "type");
        requireText(bytes, value.bytes, "value");
    }
    const std::vector<std::string> names = sim::subKeysOf(path);
    requireNumber(static_cast<int64_t>(model.keys.size()), static_cast<int64_t>(names.size()),
                  "number of keys");
    for (const auto &[name, key] : model.keys) {
        compare(*key, path + "\\" + key->name);
    }
}

void clear() {
    sim::KeyPointer software;
    if (sim::findKey("SOFTWARE", true, &software) == zantlog::os::kErrorNone) {
        sim::removeTree(*software, "Fuzz");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string input(reinterpret_cast<const char *>(data), size);
    clear();
    const sim::Census before = sim::takeCensus();
    sim::KeyPointer made;
    sim::makeKey(kLocation, &made);
    Run run;
    open(run, "", true, false);
    for (const Operation &operation : operationsOf(input)) {
        const char letter = operation.letter;
        const std::string section = operation.field(0);
        const bool opens = letter == 'r' || letter == 'w' || letter == 'c';
        if (opens && section.find(".conf") == std::string::npos) {
            open(run, section, letter != 'r', letter == 'c');
        } else if (run.key != nullptr) {
            perform(run, operation);
        } else {
            performClosed(run, operation);
        }
        compare(*run.top, kLocation);
    }
    utiClosePropertyStore(&run.store);
    requireText("", sim::leftSince(before), "what was left behind");
    clear();
    return 0;
}
