// Any catalog object is rendered, into buffers of its own size and of any other.
#include <cstring>
#include <deque>
#include <memory>
#include <vector>

#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/fuzz_machine.h"
#include "zantlog/message.h"
#include "zantlog/rendering.h"

namespace {

using namespace zantlog;

constexpr int kDeepest = 3;

struct Object {
    std::deque<zantLisArg> nodes;
    std::deque<std::string> texts;
    std::deque<std::u16string> wideTexts;
    std::deque<Object> nested;
    zantLis lis{};
    std::string text;     // as it is rendered
    bool foretold = true; // whether `text` can be said by rules as plain as these
};

void addText(fuzz::FuzzInput &input, Object *object, zantLisArg *node) {
    const std::string &text = object->texts.emplace_back(input.text());
    node->first.narrow = text.c_str();
    object->text += text;
}

void addWideText(fuzz::FuzzInput &input, Object *object, zantLisArg *node) {
    const std::u16string &text = object->wideTexts.emplace_back(input.wideText());
    node->first.wide = reinterpret_cast<const wchar_t *>(text.c_str());
    object->foretold = false;
}

void build(fuzz::FuzzInput &input, int depth, Object *object);

void addArgument(fuzz::FuzzInput &input, int depth, Object *object) {
    zantLisArg &node = object->nodes.emplace_back();
    node = {};
    node.kind = static_cast<int32_t>(input.below(13));
    if (node.kind == ZANTLIS_NESTED && depth == kDeepest) {
        node.kind = ZANTLIS_NATIVE_STRING;
    }
    switch (node.kind) {
    case ZANTLIS_SIGNED:
        node.first.width = 64;
        node.second.number = input.number<int64_t>();
        object->text += std::to_string(node.second.number);
        return;
    case ZANTLIS_UNSIGNED:
        node.first.width = 64;
        node.second.word = input.number<uint64_t>();
        object->text += std::to_string(node.second.word);
        return;
    case ZANTLIS_WIDE_STRING:
        return addWideText(input, object, &node);
    case ZANTLIS_NESTED: {
        Object &inner = object->nested.emplace_back();
        build(input, depth + 1, &inner);
        node.first.pointer = &inner.lis;
        object->text += inner.text;
        object->foretold = object->foretold && inner.foretold;
        return;
    }
    case ZANTLIS_UTF8_STRING:
    case ZANTLIS_NATIVE_STRING:
        return addText(input, object, &node);
    default:
        node.first.word = input.number<uint64_t>();
        node.second.word = input.number<uint64_t>();
        object->foretold = false;
    }
}

void build(fuzz::FuzzInput &input, int depth, Object *object) {
    object->lis.textId = input.below(2) * 4711;
    if (object->lis.textId != 0) {
        object->text = "[Cannot find catalog for message id=4711] ";
    }
    const uint32_t count = input.below(7);
    for (uint32_t i = 0; i < count; ++i) {
        if (i > 0 && object->lis.textId != 0) {
            object->text += ",";
        }
        addArgument(input, depth, object);
    }
    for (size_t i = 0; i < object->nodes.size(); ++i) {
        object->nodes[i].next = i + 1 < object->nodes.size() ? &object->nodes[i + 1] : nullptr;
    }
    object->lis.argCount = count;
    object->lis.first = count > 0 ? &object->nodes.front() : nullptr;
}

// A measured size is that of fixed reserves: it too can cut, as after a number of 20 digits that has none
// behind it.
void expectRendered(Object *object, size_t capacity) {
    const auto buffer = std::make_unique<char[]>(capacity);
    size_t size = capacity;
    strncatlis(buffer.get(), &size, &object->lis);
    if (size == SIZE_MAX) {
        return;
    }
    const size_t length = strnlen(buffer.get(), capacity);
    fuzz::expect(capacity == 0 || length < capacity, "the text is terminated");
    if (object->foretold && capacity > 0) {
        fuzz::expectEqual(std::string(buffer.get(), length), object->text.substr(0, capacity - 1),
                          "the text, or its beginning");
    }
}

void renderWide(zantLis *lis) {
    zantLisArgIter iter;
    if (zantLisGetArgsBegin(lis, &iter) != ZANTLIS_OK) {
        return;
    }
    for (uint32_t i = 0; i < lis->argCount; ++i) {
        wchar_t *text = nullptr;
        const uint32_t result = zantLogGetArg_asStringW(&iter, &text);
        fuzz::expect(result == 0 || result == 1, "converted, or not to be converted");
        fuzz::expect((text != nullptr) == (result == 0), "a text on success only");
        zantLogFree(text);
        if (zantLisGetNextArg(&iter) != ZANTLIS_OK) {
            return;
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const fuzz::NothingLeft nothingLeft;
    fuzz::FuzzInput input(data, size);
    const size_t anySize = input.number<uint16_t>() % 600;
    Object object;
    build(input, 0, &object);

    size_t needed = 0;
    strncatlis(nullptr, &needed, &object.lis);
    fuzz::expect(!object.foretold || needed != SIZE_MAX, "numbers and texts can be measured");
    if (needed != SIZE_MAX) {
        expectRendered(&object, needed);
    }
    expectRendered(&object, anySize);
    renderWide(&object.lis);
    return 0;
}
