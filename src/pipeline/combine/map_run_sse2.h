// Pixels changed in place by one formula.
#pragma once

#include "pipeline/pixel/pixel.h"
#include "pipeline/pixel/pixel_sse2.h"

namespace lacquer {

/// Each of `count` words becomes formula(word). A formula that also takes four words in a vector, or eight in two, must
/// do the same to each of them.
template <class Formula>
void ChangeRun(BYTE *words, ptrdiff_t count, const Formula &formula) {
    const ptrdiff_t bytes = count * kPixelBytes;
    ptrdiff_t i = 0;
#ifdef LACQUER_SSE2
    constexpr ptrdiff_t kStep = kVectorPixels * kPixelBytes;
    constexpr bool kTakesEight = requires(EightWords eight) { formula(eight); };
    constexpr bool kTakesFour = requires(__m128i four) { formula(four); };
    if constexpr (kTakesEight) {
        for (; i + 2 * kStep <= bytes; i += 2 * kStep) {
            const EightWords eight = formula(EightWords{LoadFour(words + i), LoadFour(words + i + kStep)});
            StoreFour(words + i, eight.first);
            StoreFour(words + i + kStep, eight.second);
        }
    }
    if constexpr (kTakesEight || kTakesFour) {
        const auto changed = [&formula](__m128i four) {
            if constexpr (kTakesFour) {
                return formula(four);
            } else {
                return formula(EightWords{four, four}).first;
            }
        };
        for (; i + kStep <= bytes; i += kStep) StoreFour(words + i, changed(LoadFour(words + i)));
        if (bytes & kStep / 2) {
            StoreTwo(words + i, changed(LoadTwo(words + i)));
            i += kStep / 2;
        }
        if (bytes & kPixelBytes) StoreOne(words + i, changed(LoadOne(words + i)));
        return;
    }
#endif
    for (; i < bytes; i += kPixelBytes) StorePixel(words + i, formula(LoadPixel(words + i)));
}

}  // namespace lacquer
