// Any nodes, linked in any way: trees, shared nodes, circles, operators without operands. Evaluating them
// ends, answers the same each time, and writes nothing but the nodes' indices.
#include <cstring>
#include <vector>

#include "reader/query.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "zantlog/log_file.h"
#include "zantlog/query.h"

namespace {

using namespace zantlog;

constexpr const char *kTexts[] = {"", "hostA", "trade", "hosta"};

// Mostly kinds, operators and fields that there are.
int32_t kindOf(fuzz::FuzzInput &input) {
    const uint32_t choice = input.below(20);
    if (choice < 5) {
        return 257 + static_cast<int32_t>(choice);
    }
    return choice < 19 ? 281 + static_cast<int32_t>(choice - 5) % 8 : input.number<int32_t>();
}

std::vector<QueryNode> nodesOf(fuzz::FuzzInput &input) {
    std::vector<QueryNode> nodes(1 + input.below(256));
    const auto link = [&]() -> QueryNode * {
        const uint32_t number = input.byte();
        return number < nodes.size() ? &nodes[number] : nullptr;
    };
    for (QueryNode &node : nodes) {
        node.type = kindOf(input);
        node.index = static_cast<int8_t>(input.byte());
        node.value = input.below(4) == 0 ? input.number<uint32_t>() : 260 + input.below(24);
        node.text = kTexts[input.below(4)];
        if (node.type < 257 || node.type > 261) {
            node.left = link();
            node.right = link();
        }
    }
    return nodes;
}

std::string shapeOf(const std::vector<QueryNode> &nodes) {
    std::string shape;
    for (const QueryNode &node : nodes) {
        shape += std::to_string(node.type) + "," + std::to_string(node.value) + "," + node.text + "," +
                 std::to_string(node.left == nullptr ? -1 : node.left - nodes.data()) + "," +
                 std::to_string(node.right == nullptr ? -1 : node.right - nodes.data()) + ";";
    }
    return shape;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    const int64_t time = input.number<uint32_t>();
    std::vector<QueryNode> nodes = nodesOf(input);
    const std::string before = shapeOf(nodes);
    const FileLevelFields file{7, 3, "hostA", "trade", time, time + 60};
    const HeaderLevelFields header{7, 3, time, "trade", time + 60};

    const bool fileAnswer = fileMatches(nodes.data(), file);
    const bool headerAnswer = headerMatches(nodes.data(), header);
    fuzz::expectEqual(fileMatches(nodes.data(), file), fileAnswer, "the same answer again");
    fuzz::expectEqual(headerMatches(nodes.data(), header), headerAnswer,
                      "the same answer again, of the header");
    fuzz::expect(!readsHeaderText(nodes.data()) || before.find("278") != std::string::npos,
                 "a header is read for its field only");
    fuzz::expectEqual(shapeOf(nodes), before, "nodes stay as they are");

    const uint32_t unchanged = updateQueryForTZ(nodes.data(), getLocalTZOffsetFromGMT());
    fuzz::expect(unchanged == 0 || unchanged == 1 || unchanged == 4, "adjusted, or not a whole tree");
    fuzz::expectEqual(shapeOf(nodes), before, "the local offset changes nothing");
    const uint32_t result = updateQueryForTZ(nodes.data(), input.number<int32_t>());
    fuzz::expectEqual(result, unchanged, "the offset does not matter for the result");
    fuzz::expect(result == 0 || shapeOf(nodes) == before, "a failure changes nothing");
    return 0;
}
