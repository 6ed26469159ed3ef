// Sums of products of eight pixels at a time, two lines in a step.

#include "pipeline/shape/shadow_sse2.h"

#include <emmintrin.h>

#include "pipeline/shape/shadow.h"

namespace lacquer::sse2 {
namespace {

__m128i LoadLanes(const int16_t *lanes) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(lanes)); }
__m128i LoadSums(const int32_t *sums) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(sums)); }
void StoreSums(int32_t *sums, __m128i four) { _mm_storeu_si128(reinterpret_cast<__m128i *>(sums), four); }

}  // namespace

/// Sums beside `from`..`to`, in the same eight, are changed too: nobody asks for them.
void AddLines(int32_t *sums, const int16_t *lines, const int16_t *weights, int count, int from, int to) {
    for (int x = from & ~7; x < to; x += 8) {
        __m128i low = LoadSums(sums + x), high = LoadSums(sums + x + 4);
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
        StoreSums(sums + x, low);
        StoreSums(sums + x + 4, high);
    }
}

void CoverShares(const int32_t *shares, int count, bool ofRest, BYTE *out) {
    // What a share leaves of the whole is the whole and the share with its bits turned over and one. A share in 2^-16
    // is moved down by half, so that the pack bounds it to 16 bits; 1 and the number before it have one cover.
    const __m128i turn = _mm_set1_epi32(ofRest ? -1 : 0);
    const __m128i start = _mm_set1_epi32((1 << 11) - (1 << 27) + (ofRest ? kFullShadow + 1 : 0));
    const __m128i half = _mm_set1_epi16(INT16_MIN), most = _mm_set1_epi16(255);
    const auto bounded = [&](const int32_t *four) {
        return _mm_srai_epi32(_mm_add_epi32(_mm_xor_si128(LoadSums(four), turn), start), 12);
    };
    int i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m128i share = _mm_xor_si128(_mm_packs_epi32(bounded(shares + i), bounded(shares + i + 4)), half);
        const __m128i carry = _mm_srli_epi16(_mm_mullo_epi16(share, most), 15);
        const __m128i covers = _mm_add_epi16(_mm_mulhi_epu16(share, most), carry);
        _mm_storel_epi64(reinterpret_cast<__m128i *>(out + i), _mm_packus_epi16(covers, covers));
    }
    lacquer::CoverShares(shares + i, count - i, ofRest, out + i);
}

}  // namespace lacquer::sse2
