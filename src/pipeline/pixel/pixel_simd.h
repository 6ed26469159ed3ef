// Arithmetic on as many pixel words as a register holds. A lane is half of a word: blue and green, or red and alpha.
#pragma once

#include "pipeline/pixel/pixel.h"
#include "pipeline/register/registers.h"

namespace lacquer::LACQUER_TIER {

inline constexpr ptrdiff_t kRegisterPixels = 4;
inline constexpr ptrdiff_t kRegisterBytes = kRegisterPixels * kPixelBytes;

/// Four words from and to any byte address.
inline __m128i LoadFour(const BYTE *pixels) { return Load<__m128i>(pixels); }
inline void StoreFour(BYTE *pixels, __m128i words) { Store(pixels, words); }

inline __m128i OneWord(uint32_t word) { return _mm_cvtsi32_si128(static_cast<int>(word)); }

/// Two words, and one, in the lower part of a register.
inline __m128i LoadTwo(const BYTE *pixels) { return _mm_loadl_epi64(reinterpret_cast<const __m128i *>(pixels)); }
inline void StoreTwo(BYTE *pixels, __m128i words) { _mm_storel_epi64(reinterpret_cast<__m128i *>(pixels), words); }
inline __m128i LoadOne(const BYTE *pixel) { return OneWord(LoadPixel(pixel)); }
inline void StoreOne(BYTE *pixel, __m128i words) { StorePixel(pixel, static_cast<uint32_t>(_mm_cvtsi128_si32(words))); }

/// Stores the first `count` words, or as many as a register has.
inline void StoreSome(BYTE *pixels, __m128i words, ptrdiff_t count) {
    if (count >= kRegisterPixels) return StoreFour(pixels, words);
    if (count & 2) {
        StoreTwo(pixels, words);
        words = _mm_unpackhi_epi64(words, words);
        pixels += ptrdiff_t{2} * kPixelBytes;
    }
    if (count & 1) StoreOne(pixels, words);
}
#ifdef LACQUER_WIDE_REGISTERS
inline void StoreSome(BYTE *pixels, __m256i words, ptrdiff_t count) {
    if (count >= kPixelsOf<__m256i>) return Store(pixels, words);
    if (count >= kRegisterPixels) StoreFour(pixels, _mm256_castsi256_si128(words));
    const ptrdiff_t done = count & kRegisterPixels;
    const __m128i rest = done ? _mm256_extracti128_si256(words, 1) : _mm256_castsi256_si128(words);
    StoreSome(pixels + done * kPixelBytes, rest, count - done);
}
#endif

inline __m128i FourWords(uint32_t a, uint32_t b, uint32_t c, uint32_t d) {
    return _mm_unpacklo_epi64(_mm_unpacklo_epi32(OneWord(a), OneWord(b)), _mm_unpacklo_epi32(OneWord(c), OneWord(d)));
}

/// Blue and red: a lane's lower byte. Green and alpha: its upper byte, moved down.
template <Register V>
inline V LowerBytes(V words) {
    return And(words, EachLane<V>(0xFF));
}
template <Register V>
inline V UpperBytes(V words) {
    return ShiftLanesDown<8>(words);
}

/// The upper bytes of lanes that hold products of blue and red, and of green and alpha.
template <Register V>
inline V JoinUpperBytes(V blueRed, V greenAlpha) {
    return Or(UpperBytes(blueRed), And(greenAlpha, EachLane<V>(0xFF00)));
}

/// Each channel × factor >> 8, truncated. Factors: 0..256, one for each pair of channels. The upper half of a product
/// with the channel in the upper byte needs no shift.
template <Register V>
inline V Scale(V words, V factors) {
    const V blueRed = MultiplyLanesHigh(ShiftLanesUp<8>(words), factors);
    const V greenAlpha = MultiplyLanes(UpperBytes(words), factors);
    return Or(blueRed, And(greenAlpha, EachLane<V>(0xFF00)));
}

/// Each channel × (that of `factors` + 1) >> 8, truncated. Of two channels in a lane each has a factor of its own:
/// spreading both operands, one channel to a lane, takes fewer steps than masks.
template <Register V>
inline V Multiply(V words, V factors) {
    const V zero = EachWord<V>(0), one = EachLane<V>(1);
    const V first = MultiplyLanesHigh(BytesLow(zero, words), AddLanes(BytesLow(factors, zero), one));
    const V second = MultiplyLanesHigh(BytesHigh(zero, words), AddLanes(BytesHigh(factors, zero), one));
    return PackLanes(first, second);
}

/// Alpha in both lanes of each word. Where bytes can be shuffled that is one step; elsewhere pairs of registers share
/// work.
#ifdef LACQUER_WIDE_REGISTERS
inline constexpr bool kPairsShareAlphas = false;
inline __m128i AlphaLanes(__m128i words) {
    return _mm_shuffle_epi8(words, _mm_setr_epi8(3, -1, 3, -1, 7, -1, 7, -1, 11, -1, 11, -1, 15, -1, 15, -1));
}
inline __m256i AlphaLanes(__m256i words) {
    const __m128i places = _mm_setr_epi8(3, -1, 3, -1, 7, -1, 7, -1, 11, -1, 11, -1, 15, -1, 15, -1);
    return _mm256_shuffle_epi8(words, EachSixteen<__m256i>(places));
}
#else
inline constexpr bool kPairsShareAlphas = true;
inline __m128i AlphaLanes(__m128i words) {
    const __m128i alpha = ShiftWordsDown<24>(words);
    return Or(alpha, ShiftWordsUp<16>(alpha));
}
#endif

/// 256 − alpha in both lanes of each word.
template <Register V>
inline V InverseAlpha(V words) {
    return SubtractLanes(EachLane<V>(256), AlphaLanes(words));
}

/// The colours of each word of one register with the alphas of the other.
template <Register V>
inline V WithAlphaOf(V alpha, V colours) {
    return Or(And(alpha, EachWord<V>(kOpaque)), And(colours, EachWord<V>(kColours)));
}

/// The alphas of a pair's words, in a lane each, in the order that Scale takes.
template <Register V>
inline V AlphasOf(const Pair<V> &words) {
    return PackWords(ShiftWordsDown<24>(words.first), ShiftWordsDown<24>(words.second));
}

/// Scale of a pair, of which each word has its factor in a lane.
template <Register V>
inline Pair<V> Scale(const Pair<V> &words, V factors) {
    return {Scale(words.first, LanesLow(factors, factors)), Scale(words.second, LanesHigh(factors, factors))};
}

}  // namespace lacquer::LACQUER_TIER
