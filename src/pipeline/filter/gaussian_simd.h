// The sums of the Gaussian blur in the faster tiers. Products and sums are those of the base tier, in its order, each
// rounded on its own.
#pragma once

#include "pipeline/filter/gaussian.h"
#include "pipeline/pixel/pixel_simd.h"

namespace lacquer::LACQUER_TIER {

/// As the base tier's.
inline void WidenBytes(float *floats, const BYTE *bytes, ptrdiff_t count) {
    ptrdiff_t i = 0;
    const auto widen = [&]<Register V>(V) {
        constexpr ptrdiff_t kFloats = kPixelsOf<V>;
        for (; i + kFloats <= count; i += kFloats) Store(floats + i, FloatsOf(WordsOfBytes<V>(bytes + i)));
    };
    widen(Widest());
    if constexpr (!std::is_same_v<Widest, __m128i>) widen(__m128i());
}

/// As the base tier's.
inline void SumTaps(BYTE *out, const float *const taps[kGaussianTaps], ptrdiff_t count) {
    const auto sumAt = [taps]<Register V>(V, ptrdiff_t i) {
        const auto product = [&](int k) {
            return MultiplyFloats(EachFloat<V>(kGaussianWeights[k]), Load<V>(taps[k] + i));
        };
        V sum = product(0);
        for (int k = 1; k < kGaussianTaps; ++k) sum = AddFloats(sum, product(k));
        return WordsOf(sum);
    };
    ptrdiff_t i = 0;
    const auto sumAll = [&]<Register V>(V) {
        constexpr ptrdiff_t kFloats = kPixelsOf<V>;
        for (; i + kBytesOf<V> <= count; i += kBytesOf<V>) {
            const V first = PackWords(sumAt(V(), i), sumAt(V(), i + kFloats));
            const V second = PackWords(sumAt(V(), i + 2 * kFloats), sumAt(V(), i + 3 * kFloats));
            Store(out + i, ReorderTwice(PackLanes(first, second)));
        }
    };
    sumAll(Widest());
    if constexpr (!std::is_same_v<Widest, __m128i>) sumAll(__m128i());
    for (; i < count; i += kPixelBytes) {
        const __m128i lanes = PackWords(sumAt(__m128i(), i), sumAt(__m128i(), i));
        StoreOne(out + i, PackLanes(lanes, lanes));
    }
}

}  // namespace lacquer::LACQUER_TIER
