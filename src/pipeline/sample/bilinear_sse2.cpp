// The taps of a block, which are found alike for all depths.

#include "pipeline/sample/bilinear_sse2.h"

namespace lacquer::sse2 {

void BilinearBlock::Set(const Steps &steps, int64_t first, ptrdiff_t count, int width, ptrdiff_t pixelBytes,
                        ptrdiff_t tapBytes) {
    constexpr uint32_t kBothLanes = 0x00010001;
    for (ptrdiff_t i = 0; i < count; ++i) {
        const LinearTaps taps = LinearTapsAt(steps.At(first + i), width);
        nearBytes[i] = static_cast<int>(taps.nearIndex * pixelBytes);
        // One pixel that is both taps needs no weight for the second.
        fractions[i] = taps.farIndex == taps.nearIndex ? 0 : static_cast<uint32_t>(taps.fraction) * kBothLanes;
    }
    // The columns that fill up the last register repeat the last one.
    for (ptrdiff_t i = count; i % kRegisterPixels != 0; ++i) {
        nearBytes[i] = nearBytes[count - 1];
        fractions[i] = fractions[count - 1];
    }
    inside = std::upper_bound(nearBytes, nearBytes + count, width * pixelBytes - tapBytes) - nearBytes;
}

}  // namespace lacquer::sse2
