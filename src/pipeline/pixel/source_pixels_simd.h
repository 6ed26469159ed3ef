// Expanding runs of 8- and 24-bit pixels without a loop over single ones.
#pragma once

#include <type_traits>

#include "pipeline/pixel/pixel_simd.h"
#include "pipeline/pixel/source_pixels.h"

namespace lacquer::LACQUER_TIER {

/// 24-bit pixels become words eight at a time. Registers loaded three bytes apart have the pixels 0 and 4, 1 and 5, 2
/// and 6, 3 and 7 in their first and last words, each below a byte of the next pixel; alpha takes its place.
namespace packed_eight {

inline constexpr ptrdiff_t kPixels = 8;

/// `threeAndSeven`: what lies nine bytes behind `in`.
inline void Expand(BYTE *out, const BYTE *in, __m128i threeAndSeven) {
    const __m128i opaque = EachWord(kOpaque);
    const __m128i zeroAndOne = PickWords<0, 3>(LoadFour(in), LoadFour(in + 3));
    const __m128i twoAndThree = PickWords<0, 3>(LoadFour(in + 6), threeAndSeven);
    StoreFour(out, _mm_or_si128(PickWords<0, 2>(zeroAndOne, twoAndThree), opaque));
    StoreFour(out + kRegisterBytes, _mm_or_si128(PickWords<1, 3>(zeroAndOne, twoAndThree), opaque));
}

/// For pixels with another one behind them, of which a byte is read.
inline void ExpandInner(BYTE *out, const BYTE *in) { Expand(out, in, LoadFour(in + 9)); }

/// Reads the 24 bytes of the eight pixels only.
inline void ExpandExactly(BYTE *out, const BYTE *in) { Expand(out, in, _mm_srli_si128(LoadFour(in + 8), 1)); }

}  // namespace packed_eight

/// As the base tier's.
template <class Reader>
inline void ExpandPixels(BYTE *out, Reader read, const BYTE *pixels, ptrdiff_t count) {
    ptrdiff_t i = 0;
    if constexpr (std::is_same_v<Reader, PackedPixels::Reader>) {
        using packed_eight::kPixels;
        const auto outAt = [=](ptrdiff_t pixel) { return out + pixel * kPixelBytes; };
        const auto inAt = [=](ptrdiff_t pixel) { return pixels + pixel * 3; };
        // The last pixel has none behind it.
        for (; i + 2 * kPixels < count; i += 2 * kPixels) {
            packed_eight::ExpandInner(outAt(i), inAt(i));
            packed_eight::ExpandInner(outAt(i + kPixels), inAt(i + kPixels));
        }
        for (; i + kPixels <= count; i += kPixels) packed_eight::ExpandExactly(outAt(i), inAt(i));
    } else {
        for (; i + kRegisterPixels <= count; i += kRegisterPixels) {
            StoreFour(out + i * kPixelBytes,
                      FourWords(read(pixels, i), read(pixels, i + 1), read(pixels, i + 2), read(pixels, i + 3)));
        }
    }
    for (; i < count; ++i) StorePixel(out + i * kPixelBytes, read(pixels, i));
}

}  // namespace lacquer::LACQUER_TIER
