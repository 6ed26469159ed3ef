// Arithmetic on four pixel words at a time. A register holds four words; a lane is 16 bits of it: blue and green, or
// red and alpha, of one word.
#pragma once

#include <emmintrin.h>

#include "pipeline/pixel/pixel.h"

namespace lacquer::sse2 {

inline constexpr ptrdiff_t kRegisterPixels = 4;
inline constexpr ptrdiff_t kRegisterBytes = kRegisterPixels * kPixelBytes;

struct EightWords {
    __m128i first, second;
};

/// Four words from and to any byte address.
inline __m128i LoadFour(const BYTE *pixels) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(pixels)); }
inline void StoreFour(BYTE *pixels, __m128i words) { _mm_storeu_si128(reinterpret_cast<__m128i *>(pixels), words); }

inline EightWords LoadEight(const BYTE *pixels) { return {LoadFour(pixels), LoadFour(pixels + kRegisterBytes)}; }
inline void StoreEight(BYTE *pixels, const EightWords &words) {
    StoreFour(pixels, words.first);
    StoreFour(pixels + kRegisterBytes, words.second);
}

/// Stores the first `count` words, 1 to 4.
inline void StoreSome(BYTE *pixels, __m128i words, ptrdiff_t count) {
    if (count >= kRegisterPixels) return StoreFour(pixels, words);
    BYTE buffer[kRegisterBytes];
    StoreFour(buffer, words);
    std::memcpy(pixels, buffer, static_cast<size_t>(count) * kPixelBytes);
}

inline __m128i OneWord(uint32_t word) { return _mm_cvtsi32_si128(static_cast<int>(word)); }

/// Two words, and one, in the lower part of a register.
inline __m128i LoadTwo(const BYTE *pixels) { return _mm_loadl_epi64(reinterpret_cast<const __m128i *>(pixels)); }
inline void StoreTwo(BYTE *pixels, __m128i words) { _mm_storel_epi64(reinterpret_cast<__m128i *>(pixels), words); }
inline __m128i LoadOne(const BYTE *pixel) { return OneWord(LoadPixel(pixel)); }
inline void StoreOne(BYTE *pixel, __m128i words) { StorePixel(pixel, static_cast<uint32_t>(_mm_cvtsi128_si32(words))); }

inline __m128i EachWord(uint32_t word) { return _mm_set1_epi32(static_cast<int>(word)); }
inline __m128i EachLane(uint32_t value) { return _mm_set1_epi16(static_cast<short>(value)); }

inline __m128i FourWords(uint32_t a, uint32_t b, uint32_t c, uint32_t d) {
    return _mm_unpacklo_epi64(_mm_unpacklo_epi32(OneWord(a), OneWord(b)), _mm_unpacklo_epi32(OneWord(c), OneWord(d)));
}

/// The words `kFirst` and `kSecond` of `a`, then those of `b`.
template <unsigned kFirst, unsigned kSecond>
inline __m128i PickWords(__m128i a, __m128i b) {
    constexpr unsigned kOrder = kFirst | kSecond << 2 | kFirst << 4 | kSecond << 6;
    return _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(a), _mm_castsi128_ps(b), kOrder));
}

/// Blue and red: a lane's lower byte. Green and alpha: its upper byte, moved down.
inline __m128i LowerBytes(__m128i words) { return _mm_and_si128(words, EachLane(0xFF)); }
inline __m128i UpperBytes(__m128i words) { return _mm_srli_epi16(words, 8); }

/// The upper bytes of lanes that hold products of blue and red, and of green and alpha.
inline __m128i JoinUpperBytes(__m128i blueRed, __m128i greenAlpha) {
    return _mm_or_si128(UpperBytes(blueRed), _mm_and_si128(greenAlpha, EachLane(0xFF00)));
}

/// Each channel × factor >> 8, truncated. Factors: 0..256, one for each pair of channels. The upper half of a product
/// with the channel in the upper byte needs no shift.
inline __m128i ScaleFour(__m128i words, __m128i factors) {
    const __m128i blueRed = _mm_mulhi_epu16(_mm_slli_epi16(words, 8), factors);
    const __m128i greenAlpha = _mm_mullo_epi16(UpperBytes(words), factors);
    return _mm_or_si128(blueRed, _mm_and_si128(greenAlpha, EachLane(0xFF00)));
}

/// Each channel × (that of `factors` + 1) >> 8, truncated. Of two channels in a lane each has a factor of its own:
/// spreading both operands, one channel to a lane, takes fewer steps than masks.
inline __m128i MultiplyFour(__m128i words, __m128i factors) {
    const __m128i zero = _mm_setzero_si128(), one = EachLane(1);
    const __m128i first =
        _mm_mulhi_epu16(_mm_unpacklo_epi8(zero, words), _mm_add_epi16(_mm_unpacklo_epi8(factors, zero), one));
    const __m128i second =
        _mm_mulhi_epu16(_mm_unpackhi_epi8(zero, words), _mm_add_epi16(_mm_unpackhi_epi8(factors, zero), one));
    return _mm_packus_epi16(first, second);
}

/// 256 − alpha in both lanes of each word.
inline __m128i InverseAlpha(__m128i words) {
    const __m128i alpha = _mm_srli_epi32(words, 24);
    return _mm_sub_epi16(EachLane(256), _mm_or_si128(alpha, _mm_slli_epi32(alpha, 16)));
}

/// The colours of each word of one register with the alphas of the other.
inline __m128i WithAlphaOf(__m128i alpha, __m128i colours) {
    return _mm_or_si128(_mm_and_si128(alpha, EachWord(kOpaque)), _mm_and_si128(colours, EachWord(kColours)));
}

/// The alphas of eight words, in a lane each.
inline __m128i AlphasOf(const EightWords &words) {
    return _mm_packs_epi32(_mm_srli_epi32(words.first, 24), _mm_srli_epi32(words.second, 24));
}

/// ScaleFour of eight words, of which each has its factor in a lane.
inline EightWords ScaleEight(const EightWords &words, __m128i factors) {
    return {ScaleFour(words.first, _mm_unpacklo_epi16(factors, factors)),
            ScaleFour(words.second, _mm_unpackhi_epi16(factors, factors))};
}

}  // namespace lacquer::sse2
