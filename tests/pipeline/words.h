// Pixel words in tests: their channels, and random ones.
#pragma once

#include <initializer_list>
#include <utility>

#include "support/pixels.h"

namespace lacquer {

/// Channel 0 blue, 1 green, 2 red, 3 alpha.
constexpr uint32_t ChannelOf(uint32_t word, int channel) { return word >> 8 * channel & 255; }

/// The word of whose channel i `value(i)` is, modulo 256.
template <class Value>
uint32_t WordOf(const Value &value) {
    uint32_t word = 0;
    for (int i = 0; i < 4; ++i) word |= (static_cast<uint32_t>(value(i)) & 255) << 8 * i;
    return word;
}

/// Numbers that differ from seed to seed and are the same on every run.
class Random {
public:
    explicit Random(uint32_t seed) : seed_(seed) {}

    uint32_t Word() { return Noise(seed_, next_++); }
    uint32_t PremultipliedWord() { return PremultipliedNoise(seed_, next_++); }
    int Between(int low, int high) { return low + static_cast<int>(Word() % static_cast<uint32_t>(high - low + 1)); }
    bool Coin() { return Word() % 2 != 0; }

    template <class Value>
    Value Of(std::initializer_list<Value> values) {
        return values.begin()[Word() % values.size()];
    }

    /// A rectangle that is not empty, with its edges inside `bounds`.
    RECT Inside(const RECT &bounds) {
        const int left = Between(bounds.left, bounds.right - 1), top = Between(bounds.top, bounds.bottom - 1);
        return {left, top, Between(left + 1, bounds.right), Between(top + 1, bounds.bottom)};
    }

    /// The rectangle, sometimes with edges exchanged.
    RECT AnyOrder(RECT rect) {
        if (Between(0, 9) == 0) std::swap(rect.left, rect.right);
        if (Between(0, 9) == 0) std::swap(rect.top, rect.bottom);
        return rect;
    }

private:
    uint32_t seed_, next_ = 0;
};

}  // namespace lacquer
