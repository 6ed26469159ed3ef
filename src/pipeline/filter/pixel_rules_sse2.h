// The filters of single pixels in the SSE2 tier, on four words at once or on eight.
#pragma once

#include "pipeline/combine/run_sse2.h"

namespace lacquer::sse2 {

struct GreyRule {
    __m128i operator()(__m128i c) const {
        const __m128i blueRed = _mm_madd_epi16(LowerBytes(c), EachLane(1));
        const __m128i twiceGreen = _mm_and_si128(_mm_srli_epi32(c, 7), EachWord(0x1FE));
        const __m128i grey = _mm_srli_epi32(_mm_add_epi32(blueRed, twiceGreen), 2);
        const __m128i lower = _mm_or_si128(grey, _mm_slli_epi32(grey, 8));
        const __m128i alpha = _mm_and_si128(c, EachWord(kOpaque));
        return _mm_or_si128(_mm_or_si128(lower, _mm_slli_epi32(grey, 16)), alpha);
    }
};

struct PremultiplyRule {
    /// With a channel of 255 in its place, alpha is one more channel to scale: 255 × (alpha + 1) >> 8 is alpha.
    EightWords operator()(const EightWords &c) const {
        const __m128i opaque = EachWord(kOpaque);
        return ScaleEight({_mm_or_si128(c.first, opaque), _mm_or_si128(c.second, opaque)},
                          _mm_add_epi16(AlphasOf(c), EachLane(1)));
    }
    __m128i operator()(__m128i c) const { return (*this)(EightWords{c, c}).first; }
};

struct InvertRule {
    __m128i operator()(__m128i c) const {
        const __m128i alpha = _mm_srli_epi32(c, 24);
        const __m128i pair = _mm_or_si128(alpha, _mm_slli_epi32(alpha, 8));
        return _mm_sub_epi8(_mm_or_si128(pair, _mm_slli_epi32(pair, 16)), _mm_and_si128(c, EachWord(kColours)));
    }
};

struct ColourToAlphaRule {
    __m128i operator()(__m128i c) const {
        const __m128i redGreen = _mm_max_epu8(_mm_slli_epi32(c, 8), _mm_slli_epi32(c, 16));
        return WithAlphaOf(_mm_max_epu8(redGreen, _mm_slli_epi32(c, 24)), c);
    }
};

/// Applies a rule to `count` words.
template <class Rule>
void FilterRun(BYTE *words, ptrdiff_t count) {
    MapRun(words, count, Rule());
}

}  // namespace lacquer::sse2
