// Any bytes are a ".conf" file; properties are found, set and removed in it, roots removed and enumerated.
// Results and bytes are those of the model after every step.
#include <functional>

#include "propstore/file_store.h"
#include "tests/fuzz/conf_model.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "tests/sim/files.h"
#include "zantlog/message.h"
#include "zantlog/results.h"

namespace {

using namespace zantlog;
using fuzz::ConfModel;

constexpr const char *kRoots[] = {"1", "12", "Default", "LOGSET.a", "LOGSET.Default", "", "a", "LOGSET"};
constexpr const char *kNames[] = {"A", "DebugLevel", "LogDirectory", "A.B", "x y", "#", "1.A"};
constexpr const char *kRootsToRemove[] = {"1", "12", "Default", "LOGSET.a", "LOGSET.Default", "", "a", "#"};

template <typename T, size_t N> T oneOf(fuzz::FuzzInput &input, T (&all)[N]) {
    return all[input.below(N)];
}

// Without line ends, which a value must not hold, and short enough for its line.
std::string valueOf(fuzz::FuzzInput &input) {
    std::string value = input.text().substr(0, 300);
    for (char &byte : value) {
        byte = byte == '\n' || byte == '\r' || byte == '\x1A' ? '_' : byte;
    }
    return value;
}

void find(fuzz::FuzzInput &input, PropertyFile *file, const ConfModel &model) {
    const std::string name = oneOf(input, kNames);
    const size_t capacity = input.below(4) == 0 ? 1 + input.byte() : 400;
    std::string buffer(capacity, '?');
    const auto expected = model.find(name, capacity);
    fuzz::expectEqual(fileFindProperty(file, name.c_str(), buffer.data(), capacity), expected.has_value(),
                      "found");
    if (expected) {
        fuzz::expectEqual(std::string(buffer.c_str()), *expected, "its value");
    }
    uint32_t flag = 77;
    const auto whole = model.find(name, 400);
    fuzz::expectEqual(fileGetPropertyAsBool(file, name.c_str(), &flag), whole ? 0 : 3, "as a boolean");
    fuzz::expectEqual(flag, whole ? *whole == "true" : 77, "its truth");
    char *text = nullptr;
    const uint32_t result = fileGetPropertyAsStr(file, name.c_str(), &text);
    fuzz::expect(result == 3 || (whole && result == 0), "as a text, if it is one");
    zantLogFree(text);
}

void change(fuzz::FuzzInput &input, PropertyFile *file, ConfModel *model) {
    const std::string name = oneOf(input, kNames);
    switch (input.below(3)) {
    case 0: {
        const std::string value = valueOf(input);
        fuzz::expectEqual(fileSetProperty(file, name.c_str(), value.c_str()), 0, "set");
        return model->set(name, value);
    }
    case 1:
        fuzz::expectEqual(fileRemoveProperty(file, name.c_str()), 0, "remove");
        model->remove(name);
        return;
    default: {
        const std::string root = oneOf(input, kRootsToRemove);
        const uint32_t result = fileRemovePropertyRoot(file, root.c_str());
        fuzz::expectEqual(result, model->removeRoot(root) ? 0 : 8, "remove a root");
    }
    }
}

using Enumerate = uint32_t (*)(PropertyFile *file, char *buffer, uint32_t *length);

// Goes through a store that is opened afresh.
void enumerate(const std::string &path, uint32_t capacity, Enumerate next,
               const std::vector<std::string> &expected) {
    PropertyFile file{};
    fuzz::expectEqual(fileOpenPropertyStore(path.c_str(), "", &file), 0, "opened");
    std::string buffer(capacity, '\0');
    for (const std::string &name : expected) {
        if (name == buffer.c_str()) {
            continue;
        }
        uint32_t length = capacity;
        const std::string before = buffer;
        const bool fits = name.size() < capacity;
        fuzz::expectEqual(next(&file, buffer.data(), &length), fits ? 0 : 6, "the next name");
        fuzz::expectEqual(length, fits ? static_cast<int64_t>(name.size()) : capacity, "its length");
        fuzz::expectEqual(std::string(buffer.c_str()), fits ? name : before.c_str(), "the name");
    }
    uint32_t length = capacity;
    fuzz::expectEqual(next(&file, buffer.data(), &length), 7, "no more");
    fileClosePropertyStore(&file);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    const std::string root = oneOf(input, kRoots);
    std::string steps = input.bytes();
    std::string bytes = input.rest();
    for (char &byte : bytes) {
        byte = byte == '\0' ? '0' : byte; // where lines end then is the runtime's secret
    }
    const std::string path = fuzz::path("any.conf");
    sim::putFile(path, bytes);
    ConfModel model(bytes, root);
    PropertyFile file{};
    fuzz::expectEqual(fileOpenPropertyStore(path.c_str(), root.c_str(), &file), 0, "opened");
    fuzz::FuzzInput script(reinterpret_cast<const uint8_t *>(steps.data()), steps.size());
    while (!script.empty()) {
        if (script.below(2) == 0) {
            find(script, &file, model);
        } else {
            change(script, &file, &model);
        }
        fuzz::expectEqual(sim::bytesOf(path), model.bytes(), "the file's bytes");
    }
    fileClosePropertyStore(&file);
    enumerate(path, 400, fileEnumProductId, model.roots());
    enumerate(path, 4, fileEnumLogset, model.logSets());
    return 0;
}
