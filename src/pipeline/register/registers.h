// The registers of the faster tiers, and the operations that registers of all widths have. A file of the faster tiers
// is written once, in the namespace LACQUER_TIER: sse2, or avx2 where table/tier_avx2.cpp includes it. There are
// registers of 16 bytes in both and of 32 bytes in the second; a template's argument `V` is either.
//
// A register holds words of 32 bits, one for each pixel; a lane is half of a word: blue and green, or red and alpha.
// Operations that change places do so within each 16 bytes, so that what unpacks and packs again keeps the order.
#pragma once

#include <immintrin.h>

#include <bit>
#include <cstdint>
#include <type_traits>

#include "pipeline/pixel/pixel.h"

#ifndef LACQUER_TIER
#define LACQUER_TIER sse2
#else
#define LACQUER_WIDE_REGISTERS
#endif

#ifdef __GNUC__
// That a register may alias anything plays no part in which register it is.
#pragma GCC diagnostic ignored "-Wignored-attributes"
#endif

namespace lacquer::LACQUER_TIER {

#ifdef LACQUER_WIDE_REGISTERS
using Widest = __m256i;
#else
using Widest = __m128i;
#endif

template <class V>
concept Register = std::is_same_v<V, __m128i> || std::is_same_v<V, Widest>;

template <Register V>
inline constexpr ptrdiff_t kBytesOf = sizeof(V);
template <Register V>
inline constexpr ptrdiff_t kPixelsOf = kBytesOf<V> / kPixelBytes;

/// Two registers, the second behind the first.
template <Register V>
struct Pair {
    V first, second;
};

#define LACQUER_OPERATION(V, name, instruction) \
    inline V name(V a, V b) { return instruction(a, b); }
#define LACQUER_SHIFT(V, name, instruction) \
    template <int kBits>                    \
    inline V name(V a) {                    \
        return instruction(a, kBits);       \
    }
/// Name and instruction of each operation on two registers, and on a register and a number of bits; of AndNot the first
/// register is turned over.
#define LACQUER_OPERATIONS(V, prefix, bits)                      \
    LACQUER_OPERATION(V, AddBytes, prefix##add_epi8)             \
    LACQUER_OPERATION(V, AddBytesUpTo255, prefix##adds_epu8)     \
    LACQUER_OPERATION(V, SubtractBytes, prefix##sub_epi8)        \
    LACQUER_OPERATION(V, MeansOfBytes, prefix##avg_epu8)         \
    LACQUER_OPERATION(V, MaxOfBytes, prefix##max_epu8)           \
    LACQUER_OPERATION(V, AddLanes, prefix##add_epi16)            \
    LACQUER_OPERATION(V, SubtractLanes, prefix##sub_epi16)       \
    LACQUER_OPERATION(V, MultiplyLanes, prefix##mullo_epi16)     \
    LACQUER_OPERATION(V, MultiplyLanesHigh, prefix##mulhi_epu16) \
    LACQUER_OPERATION(V, SignedProductHigh, prefix##mulhi_epi16) \
    LACQUER_OPERATION(V, AddProducts, prefix##madd_epi16)        \
    LACQUER_OPERATION(V, AddWords, prefix##add_epi32)            \
    LACQUER_OPERATION(V, AreWordsEqual, prefix##cmpeq_epi32)     \
    LACQUER_OPERATION(V, BytesLow, prefix##unpacklo_epi8)        \
    LACQUER_OPERATION(V, BytesHigh, prefix##unpackhi_epi8)       \
    LACQUER_OPERATION(V, LanesLow, prefix##unpacklo_epi16)       \
    LACQUER_OPERATION(V, LanesHigh, prefix##unpackhi_epi16)      \
    LACQUER_OPERATION(V, PackLanes, prefix##packus_epi16)        \
    LACQUER_OPERATION(V, PackWords, prefix##packs_epi32)         \
    LACQUER_OPERATION(V, And, prefix##and_si##bits)              \
    LACQUER_OPERATION(V, AndNot, prefix##andnot_si##bits)        \
    LACQUER_OPERATION(V, Or, prefix##or_si##bits)                \
    LACQUER_OPERATION(V, Xor, prefix##xor_si##bits)              \
    LACQUER_SHIFT(V, ShiftLanesUp, prefix##slli_epi16)           \
    LACQUER_SHIFT(V, ShiftLanesDown, prefix##srli_epi16)         \
    LACQUER_SHIFT(V, ShiftWordsUp, prefix##slli_epi32)           \
    LACQUER_SHIFT(V, ShiftWordsDown, prefix##srli_epi32)         \
    LACQUER_SHIFT(V, ShiftSignedWordsDown, prefix##srai_epi32)   \
    LACQUER_SHIFT(V, ShiftPairsDown, prefix##srli_epi64)

LACQUER_OPERATIONS(__m128i, _mm_, 128)

/// A value in every word, or in every lane.
template <Register V = __m128i>
V EachWord(uint32_t word);
template <Register V = __m128i>
V EachLane(uint32_t value);
/// From any byte address.
template <Register V>
V Load(const void *from);

template <>
inline __m128i EachWord<__m128i>(uint32_t word) {
    return _mm_set1_epi32(static_cast<int>(word));
}
template <>
inline __m128i EachLane<__m128i>(uint32_t value) {
    return _mm_set1_epi16(static_cast<short>(value));
}
template <>
inline __m128i Load<__m128i>(const void *from) {
    return _mm_loadu_si128(static_cast<const __m128i *>(from));
}
/// Whether all bits of a comparison's result are set.
inline bool AreAll(__m128i results) { return _mm_movemask_epi8(results) == 0xFFFF; }
inline void Store(void *to, __m128i words) { _mm_storeu_si128(static_cast<__m128i *>(to), words); }
inline void StoreHalf(void *to, __m128i words) { _mm_storel_epi64(static_cast<__m128i *>(to), words); }

/// Changes between the order of memory and the one that unpacking and packing go by.
inline __m128i Reorder(__m128i words) { return words; }

/// The same for what was packed twice.
inline __m128i ReorderTwice(__m128i bytes) { return bytes; }

/// One byte for each of a register's words, in a word each.
template <Register V>
V WordsOfBytes(const BYTE *bytes);

template <>
inline __m128i WordsOfBytes<__m128i>(const BYTE *bytes) {
    const __m128i four = _mm_cvtsi32_si128(static_cast<int>(LoadPixel(bytes))), zero = _mm_setzero_si128();
    return _mm_unpacklo_epi16(_mm_unpacklo_epi8(four, zero), zero);
}

/// Words of single precision.
inline __m128i FloatsOf(__m128i words) { return _mm_castps_si128(_mm_cvtepi32_ps(words)); }
inline __m128i WordsOf(__m128i floats) { return _mm_cvttps_epi32(_mm_castsi128_ps(floats)); }
inline __m128i AddFloats(__m128i a, __m128i b) {
    return _mm_castps_si128(_mm_add_ps(_mm_castsi128_ps(a), _mm_castsi128_ps(b)));
}
inline __m128i MultiplyFloats(__m128i a, __m128i b) {
    return _mm_castps_si128(_mm_mul_ps(_mm_castsi128_ps(a), _mm_castsi128_ps(b)));
}

/// The 16 bytes before each 16 bytes of a register, and those behind them, where the register before it or behind it
/// is known.
inline __m128i Preceding(__m128i before, __m128i /*words*/) { return before; }
inline __m128i Following(__m128i /*words*/, __m128i behind) { return behind; }

/// Of each 16 bytes: the second half of the first register's and the first half of the second's.
inline __m128i Between(__m128i first, __m128i second) {
    return _mm_castpd_si128(_mm_shuffle_pd(_mm_castsi128_pd(first), _mm_castsi128_pd(second), 1));
}

/// The words `kFirst` and `kSecond` of each 16 bytes of `a`, then those of `b`.
template <unsigned kFirst, unsigned kSecond>
inline __m128i PickWords(__m128i a, __m128i b) {
    constexpr unsigned kOrder = kFirst | kSecond << 2 | kFirst << 4 | kSecond << 6;
    return _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(a), _mm_castsi128_ps(b), kOrder));
}

/// A register put together from sixteen(k), the k-th 16 bytes.
template <Register V, class Sixteen>
V BySixteens(const Sixteen &sixteen) {
#ifdef LACQUER_WIDE_REGISTERS
    if constexpr (std::is_same_v<V, __m256i>) {
        return _mm256_inserti128_si256(_mm256_castsi128_si256(sixteen(0)), sixteen(1), 1);
    } else
#endif
    {
        return sixteen(0);
    }
}

/// The same 16 bytes in all of a register.
template <Register V>
V EachSixteen(__m128i sixteen);

template <>
inline __m128i EachSixteen<__m128i>(__m128i sixteen) {
    return sixteen;
}

/// One byte for each of a register's words, each in both lanes of its word, with 0 above it.
template <Register V>
V LanesOfBytes(const BYTE *bytes);

template <>
inline __m128i LanesOfBytes<__m128i>(const BYTE *bytes) {
    const __m128i four = _mm_cvtsi32_si128(static_cast<int>(LoadPixel(bytes)));
    const __m128i lanes = _mm_unpacklo_epi8(four, _mm_setzero_si128());
    return _mm_unpacklo_epi16(lanes, lanes);
}

#ifdef LACQUER_WIDE_REGISTERS

LACQUER_OPERATIONS(__m256i, _mm256_, 256)

template <>
inline __m256i EachWord<__m256i>(uint32_t word) {
    return _mm256_set1_epi32(static_cast<int>(word));
}
template <>
inline __m256i EachLane<__m256i>(uint32_t value) {
    return _mm256_set1_epi16(static_cast<short>(value));
}
template <>
inline __m256i Load<__m256i>(const void *from) {
    return _mm256_loadu_si256(static_cast<const __m256i *>(from));
}
inline bool AreAll(__m256i results) { return _mm256_movemask_epi8(results) == -1; }
inline void Store(void *to, __m256i words) { _mm256_storeu_si256(static_cast<__m256i *>(to), words); }
inline void StoreHalf(void *to, __m256i words) { Store(to, _mm256_castsi256_si128(words)); }
inline __m256i Reorder(__m256i words) { return _mm256_permute4x64_epi64(words, _MM_SHUFFLE(3, 1, 2, 0)); }
inline __m256i ReorderTwice(__m256i bytes) {
    return _mm256_permutevar8x32_epi32(bytes, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
}

template <>
inline __m256i WordsOfBytes<__m256i>(const BYTE *bytes) {
    return _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i *>(bytes)));
}

inline __m256i FloatsOf(__m256i words) { return _mm256_castps_si256(_mm256_cvtepi32_ps(words)); }
inline __m256i WordsOf(__m256i floats) { return _mm256_cvttps_epi32(_mm256_castsi256_ps(floats)); }
inline __m256i AddFloats(__m256i a, __m256i b) {
    return _mm256_castps_si256(_mm256_add_ps(_mm256_castsi256_ps(a), _mm256_castsi256_ps(b)));
}
inline __m256i MultiplyFloats(__m256i a, __m256i b) {
    return _mm256_castps_si256(_mm256_mul_ps(_mm256_castsi256_ps(a), _mm256_castsi256_ps(b)));
}

inline __m256i Preceding(__m256i before, __m256i words) { return _mm256_permute2x128_si256(before, words, 0x21); }
inline __m256i Following(__m256i words, __m256i behind) { return _mm256_permute2x128_si256(words, behind, 0x21); }
inline __m256i Between(__m256i first, __m256i second) {
    return _mm256_castpd_si256(_mm256_shuffle_pd(_mm256_castsi256_pd(first), _mm256_castsi256_pd(second), 5));
}

template <unsigned kFirst, unsigned kSecond>
inline __m256i PickWords(__m256i a, __m256i b) {
    constexpr unsigned kOrder = kFirst | kSecond << 2 | kFirst << 4 | kSecond << 6;
    return _mm256_castps_si256(_mm256_shuffle_ps(_mm256_castsi256_ps(a), _mm256_castsi256_ps(b), kOrder));
}

template <>
inline __m256i EachSixteen<__m256i>(__m128i sixteen) {
    return _mm256_broadcastsi128_si256(sixteen);
}

template <>
inline __m256i LanesOfBytes<__m256i>(const BYTE *bytes) {
    const __m256i words = WordsOfBytes<__m256i>(bytes);
    return _mm256_or_si256(words, _mm256_slli_epi32(words, 16));
}

#endif

#undef LACQUER_OPERATIONS
#undef LACQUER_OPERATION
#undef LACQUER_SHIFT

template <Register V>
Pair<V> LoadPair(const BYTE *pixels) {
    return {Load<V>(pixels), Load<V>(pixels + kBytesOf<V>)};
}
template <Register V>
void StorePair(BYTE *pixels, const Pair<V> &words) {
    Store(pixels, words.first);
    Store(pixels + kBytesOf<V>, words.second);
}

template <Register V>
V EachFloat(float value) {
    return EachWord<V>(std::bit_cast<uint32_t>(value));
}

}  // namespace lacquer::LACQUER_TIER
