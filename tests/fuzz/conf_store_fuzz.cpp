// The store in a `.conf` file of any bytes, against a model of the file. Operations:
// r|root open anew, s|name|value set a text, u|name|number, b|name|flag, f|name read in all three ways,
// d|name remove, D|root remove a root, p|capacity the next root, l|capacity the next log set.
#include "tests/fuzz/conf_model.h"
#include "tests/fuzz/operations.h"
#include "zantlog/message.h"
#include "zantlog/property_store.h"

namespace {

using namespace zantlog::fuzz;
namespace sim = zantlog::sim;

constexpr char kFolder[] = "C:\\Fuzz";
constexpr char kPath[] = "C:\\Fuzz\\x.conf";
constexpr char kTemporary[] = "C:\\Fuzz\\x.conf.tmp";
constexpr uint32_t kNotFound = 3;

struct Run {
    ConfModel model;
    PropertyStore store = {};
    std::string enumerated; // name that the last enumeration has given
};

void open(Run &run, const std::string &root) {
    utiClosePropertyStore(&run.store);
    requireNumber(0, utiOpenPropertyStore(kPath, root.c_str(), &run.store, ZANTLOG_STORE_WRITE), "open");
    run.model.open(root);
    run.enumerated.clear();
}

void checkText(Run &run, const std::string &name, const std::optional<std::string> &value) {
    char *text = nullptr;
    const uint32_t result = utiGetPropertyAsStr(&run.store, name.c_str(), &text);
    const std::string got = text != nullptr ? text : "";
    zantLogFree(text);
    std::string expected;
    const Conversion conversion = value ? codePageOf(*value, &expected) : Conversion::Refused;
    if (conversion == Conversion::Unsure) {
        require(result == 0 || result == kNotFound, "text that is not of the code page");
        return;
    }
    requireNumber(conversion == Conversion::Done ? 0 : kNotFound, result, "result of a text");
    while (!expected.empty() && expected.back() == ' ') {
        expected.pop_back();
    }
    requireText(conversion == Conversion::Done ? expected : "", got, "text");
}

void find(Run &run, const std::string &name) {
    const std::optional<std::string> value = run.model.find(name);
    checkText(run, name, value);
    uint32_t number = 77;
    requireNumber(value ? 0 : kNotFound, utiGetPropertyAsULong(&run.store, name.c_str(), &number),
                  "get number");
    requireNumber(value ? numberOf(*value) : 77, number, "number");
    uint32_t flag = 77;
    requireNumber(value ? 0 : kNotFound, utiGetPropertyAsBool(&run.store, name.c_str(), &flag), "get flag");
    requireNumber(value ? (*value == "true" ? 1 : 0) : 77, flag, "flag");
}

void enumerate(Run &run, bool logSets, uint32_t capacity) {
    capacity = capacity == 0 ? 80 : capacity % 600;
    // The name that a call finds in its buffer is one that fitted.
    std::vector<char> buffer(std::max<size_t>(capacity, run.enumerated.size() + 1));
    run.enumerated.copy(buffer.data(), run.enumerated.size());
    uint32_t expectedLength = capacity;
    uint32_t length = capacity;
    std::string expected = run.enumerated;
    const uint32_t result = run.model.enumerate(logSets, &expected, &expectedLength);
    const auto call = logSets ? utiEnumLogsetForProductId : utiEnumProductId;
    requireNumber(result, call(&run.store, 5, buffer.data(), &length), "enumeration");
    requireNumber(expectedLength, length, "length of the enumerated name");
    requireText(expected, buffer.data(), "enumerated name");
    run.enumerated = expected;
}

void removeRoot(Run &run, const std::string &root) {
    if (root.find(".conf") != std::string::npos) {
        requireNumber(6, utiRemovePropertyRoot(&run.store, "C:\\Fuzz\\absent.conf"), "remove an absent file");
        return;
    }
    const uint32_t expected = run.model.removeRoot(root);
    requireNumber(expected, utiRemovePropertyRoot(&run.store, root.c_str()), "remove root");
}

void perform(Run &run, const Operation &operation) {
    const std::string name = operation.field(0);
    const uint32_t number = operation.number(1);
    switch (operation.letter) {
    case 'r':
        return open(run, name);
    case 's': {
        const std::string value = operation.field(1);
        const uint32_t expected = run.model.set(name, utf8Of(value));
        return requireNumber(expected, utiSetPropertyAsStr(&run.store, name.c_str(), value.c_str()),
                             "set text");
    }
    case 'u': {
        const uint32_t expected = run.model.set(name, std::to_string(static_cast<int32_t>(number)));
        return requireNumber(expected, utiSetPropertyAsULong(&run.store, name.c_str(), &number),
                             "set number");
    }
    case 'b': {
        const uint32_t expected = run.model.set(name, number == 1 ? "true" : "false");
        return requireNumber(expected, utiSetPropertyAsBool(&run.store, name.c_str(), &number), "set flag");
    }
    case 'f':
        return find(run, name);
    case 'd': {
        const uint32_t expected = run.model.remove(name);
        return requireNumber(expected, utiRemoveProperty(&run.store, name.c_str()), "remove");
    }
    case 'D':
        return removeRoot(run, name);
    case 'p':
        return enumerate(run, false, operation.number(0));
    case 'l':
        return enumerate(run, true, operation.number(0));
    default:
        return;
    }
}

void checkFiles(const Run &run) {
    requireText(run.model.bytes, sim::bytesOf(kPath), "file");
    require(sim::exists(kTemporary) == run.model.temporaryStays, "the copy is there when a change left it");
    if (run.model.temporaryStays) {
        requireText(run.model.temporary, sim::bytesOf(kTemporary), "copy");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const FileAndOperations input = splitInput(data, size);
    sim::makeFolders(kFolder);
    sim::putFile(kPath, input.file);
    const sim::Census before = sim::takeCensus();
    Run run;
    run.model.bytes = input.file;
    open(run, "12");
    for (const Operation &operation : input.operations) {
        perform(run, operation);
        checkFiles(run);
        require(run.store.file.stream != nullptr, "the store stays open");
    }
    utiClosePropertyStore(&run.store);
    requireText("", sim::leftSince(before), "what was left behind");
    sim::removeAll(kFolder);
    return 0;
}
