// Values taken from the bytes of a fuzz input, one after the other. When they are used up, everything is 0
// and empty.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace zantlog::fuzz {

class FuzzInput {
public:
    FuzzInput(const uint8_t *data, size_t size) : at_(data), left_(size) {}

    [[nodiscard]] bool empty() const { return left_ == 0; }

    uint8_t byte() {
        if (left_ == 0) {
            return 0;
        }
        --left_;
        return *at_++;
    }

    // Below `limit`, which is at most 256.
    uint32_t below(uint32_t limit) { return byte() % limit; }

    template <typename Number> Number number() {
        uint64_t value = 0;
        for (size_t i = 0; i < sizeof(Number); ++i) {
            value = value << 8 | byte();
        }
        return static_cast<Number>(value);
    }

    double real() {
        const auto bits = number<uint64_t>();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    // As many bytes as the next one says, or fewer where they end; may hold zeros.
    std::string bytes() { return take(byte()); }

    std::string rest() { return take(left_); }

    // Up to its first zero, as a C text would be.
    std::string text() {
        const std::string all = bytes();
        return all.substr(0, all.find('\0'));
    }

    // Up to 39 units without a zero, surrogates alone among them.
    std::u16string wideText() {
        std::u16string text;
        for (uint32_t left = below(40); left > 0 && !empty(); --left) {
            const auto unit = static_cast<char16_t>(number<uint16_t>());
            text += unit != 0 ? unit : u'0';
        }
        return text;
    }

private:
    std::string take(size_t count) {
        if (count > left_) {
            count = left_;
        }
        std::string taken;
        if (count > 0) {
            taken.assign(reinterpret_cast<const char *>(at_), count);
        }
        at_ += count;
        left_ -= count;
        return taken;
    }

    const uint8_t *at_;
    size_t left_;
};

} // namespace zantlog::fuzz
