// Expanding runs of 8- and 24-bit pixels without a loop over single ones.
#pragma once

#include <type_traits>

#include "pipeline/pixel/pixel_simd.h"
#include "pipeline/pixel/source_pixels.h"

namespace lacquer::LACQUER_TIER {

/// 24-bit pixels become words eight at a time.
namespace packed_eight {

inline constexpr ptrdiff_t kPixels = 8;

#ifdef LACQUER_WIDE_REGISTERS

/// Reads the 24 bytes of the eight pixels only: the last four begin four bytes behind the eighth.
inline void ExpandExactly(BYTE *out, const BYTE *in) {
    const __m256i places = _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1,  //
                                            4, 5, 6, -1, 7, 8, 9, -1, 10, 11, 12, -1, 13, 14, 15, -1);
    const __m256i bytes = BySixteens<__m256i>([in](ptrdiff_t k) { return LoadFour(in + 8 * k); });
    Store(out, Or(_mm256_shuffle_epi8(bytes, places), EachWord<__m256i>(kOpaque)));
}

/// For pixels with another one behind them.
inline void ExpandInner(BYTE *out, const BYTE *in) { ExpandExactly(out, in); }

#else

/// Registers loaded three bytes apart have the pixels 0 and 4, 1 and 5, 2 and 6, 3 and 7 in their first and last words,
/// each below a byte of the next pixel; alpha takes its place.
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

#endif

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
        const auto four = [&](ptrdiff_t at) {
            return FourWords(read(pixels, at), read(pixels, at + 1), read(pixels, at + 2), read(pixels, at + 3));
        };
        for (; i + kPixelsOf<Widest> <= count; i += kPixelsOf<Widest>) {
            Store(out + i * kPixelBytes,
                  BySixteens<Widest>([&](ptrdiff_t k) { return four(i + k * kRegisterPixels); }));
        }
        for (; i + kRegisterPixels <= count; i += kRegisterPixels) StoreFour(out + i * kPixelBytes, four(i));
    }
    for (; i < count; ++i) StorePixel(out + i * kPixelBytes, read(pixels, i));
}

}  // namespace lacquer::LACQUER_TIER
