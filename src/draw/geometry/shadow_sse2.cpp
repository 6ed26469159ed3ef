// Sums of products of eight pixels at a time, two lines in a step.

#include "draw/geometry/shadow_sse2.h"

#include <emmintrin.h>

namespace lacquer {
namespace {

__m128i LoadLanes(const int16_t *lanes) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(lanes)); }
__m128i LoadSums(const int32_t *sums) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(sums)); }

void AddTo(int32_t *sums, __m128i added) {
    _mm_storeu_si128(reinterpret_cast<__m128i *>(sums), _mm_add_epi32(LoadSums(sums), added));
}

/// Sums beside `from`..`to`, in the same eight, are changed too: nobody asks for them.
void Sse2AddLines(int32_t *sums, const int16_t *lines, const int16_t *weights, int count, int from, int to) {
    for (int x = from & ~7; x < to; x += 8) {
        __m128i low = _mm_setzero_si128(), high = low;
        for (ptrdiff_t i = 0; i < count; i += 2) {
            const bool isPair = i + 1 < count;
            const __m128i first = LoadLanes(lines + i * kLinePixels + x);
            const __m128i second = isPair ? LoadLanes(lines + (i + 1) * kLinePixels + x) : _mm_setzero_si128();
            const int second16 = isPair ? weights[i + 1] : 0;
            const __m128i both = _mm_set1_epi32(
                static_cast<int>(static_cast<uint32_t>(second16) << 16 | static_cast<uint16_t>(weights[i])));
            low = _mm_add_epi32(low, _mm_madd_epi16(_mm_unpacklo_epi16(first, second), both));
            high = _mm_add_epi32(high, _mm_madd_epi16(_mm_unpackhi_epi16(first, second), both));
        }
        AddTo(sums + x, low);
        AddTo(sums + x + 4, high);
    }
}

/// 0 where a lane is negative, `most` where it is above.
__m128i Bounded(__m128i lanes, __m128i most) {
    const __m128i isAbove = _mm_cmpgt_epi32(lanes, most);
    const __m128i upTo = _mm_or_si128(_mm_and_si128(isAbove, most), _mm_andnot_si128(isAbove, lanes));
    return _mm_andnot_si128(_mm_srai_epi32(lanes, 31), upTo);
}

void Sse2Cover(const int32_t *sums, int count, BYTE *out) {
    const __m128i half = _mm_set1_epi32(1 << 11), whole = _mm_set1_epi32(65536), round = _mm_set1_epi32(32768);
    const auto coversOf = [&](const int32_t *four) {
        const __m128i share = Bounded(_mm_srai_epi32(_mm_add_epi32(LoadSums(four), half), 12), whole);
        return _mm_srli_epi32(_mm_add_epi32(_mm_sub_epi32(_mm_slli_epi32(share, 8), share), round), 16);
    };
    int i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m128i covers = _mm_packs_epi32(coversOf(sums + i), coversOf(sums + i + 4));
        _mm_storel_epi64(reinterpret_cast<__m128i *>(out + i), _mm_packus_epi16(covers, covers));
    }
    for (; i < count; ++i) out[i] = CoverOfShare(sums[i], 255);
}

}  // namespace

void ApplySse2Shadow(ShadowKernels &kernels) { kernels = {Sse2AddLines, Sse2Cover}; }

}  // namespace lacquer
