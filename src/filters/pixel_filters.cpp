// The rules of the filters of single pixels, on colour words, and the depths that they work on. Where compilers make
// too little of a rule, it has a second form for words in vectors.

#include "filters/pixel_filters.h"

#include <algorithm>

#include "core/surface_view.h"
#include "filters/map_pixels.h"
#include "pipeline/pixel/pixel.h"
#include "pipeline/pixel/pixel_sse2.h"

namespace lacquer {

namespace {

constexpr DWORD kAlphaToColour = 1, kColourToAlpha = 6;
constexpr uint32_t kColour = ~kOpaque;

/// The word with one value in its three colour channels.
constexpr uint32_t Grey(uint32_t value) { return value | value << 8 | value << 16; }

#ifdef LACQUER_SSE2

/// The colour channels of one operand with the alphas of the other.
__m128i WithAlphaOf(__m128i alpha, __m128i colour) {
    return _mm_or_si128(_mm_and_si128(colour, EachWord(kColour)), _mm_and_si128(alpha, EachWord(kOpaque)));
}

#endif

struct GreyRule {
    uint32_t operator()(uint32_t c) const {
        return (c & kOpaque) | Grey(((c & 0xFF) + 2 * (c >> 8 & 0xFF) + (c >> 16 & 0xFF)) >> 2);
    }
#ifdef LACQUER_SSE2
    __m128i operator()(__m128i c) const {
        const __m128i ones = _mm_set1_epi16(1);
        const __m128i blueRed = _mm_madd_epi16(_mm_and_si128(c, EachWord(kPair)), ones);
        const __m128i twiceGreen = _mm_and_si128(_mm_srli_epi32(c, 7), EachWord(0x1FE));
        const __m128i grey = _mm_srli_epi32(_mm_add_epi32(blueRed, twiceGreen), 2);
        const __m128i lower = _mm_or_si128(grey, _mm_slli_epi32(grey, 8));
        const __m128i alpha = _mm_and_si128(c, EachWord(kOpaque));
        return _mm_or_si128(_mm_or_si128(lower, _mm_slli_epi32(grey, 16)), alpha);
    }
#endif
};

struct PremultiplyRule {
    uint32_t operator()(uint32_t c) const { return Scale(c & kColour, Alpha(c) + 1) | (c & kOpaque); }
#ifdef LACQUER_SSE2
    /// With a channel of 255 in its place, alpha is one more channel to scale: 255 × (alpha + 1) >> 8 is alpha.
    EightWords operator()(EightWords c) const {
        const __m128i alphas = _mm_packs_epi32(_mm_srli_epi32(c.first, 24), _mm_srli_epi32(c.second, 24));
        const __m128i factors = _mm_add_epi16(alphas, EachLane(1)), opaque = EachWord(kOpaque);
        return {ScaleFour(_mm_or_si128(c.first, opaque), _mm_unpacklo_epi16(factors, factors)),
                ScaleFour(_mm_or_si128(c.second, opaque), _mm_unpackhi_epi16(factors, factors))};
    }
#endif
};

struct InvertRule {
    uint32_t operator()(uint32_t c) const {
        // A spare bit above each channel takes the borrow.
        const uint32_t alpha = Alpha(c), both = alpha | alpha << 16;
        return JoinLower((both | 0x01000100) - BlueRed(c), (alpha | 0x100) - (c >> 8 & 0xFF)) | (c & kOpaque);
    }
#ifdef LACQUER_SSE2
    __m128i operator()(__m128i c) const {
        const __m128i alpha = _mm_srli_epi32(c, 24);
        const __m128i pair = _mm_or_si128(alpha, _mm_slli_epi32(alpha, 8));
        return _mm_sub_epi8(_mm_or_si128(pair, _mm_slli_epi32(pair, 16)), _mm_and_si128(c, EachWord(kColour)));
    }
#endif
};

struct ColourToAlphaRule {
    uint32_t operator()(uint32_t c) const {
        return (c & kColour) | std::max({c & 0xFF, c >> 8 & 0xFF, c >> 16 & 0xFF}) << 24;
    }
#ifdef LACQUER_SSE2
    __m128i operator()(__m128i c) const {
        const __m128i redGreen = _mm_max_epu8(_mm_slli_epi32(c, 8), _mm_slli_epi32(c, 16));
        return WithAlphaOf(_mm_max_epu8(redGreen, _mm_slli_epi32(c, 24)), c);
    }
#endif
};

}  // namespace

void MakeGrey(const SurfaceView &view) { MapColours(view, GreyRule()); }

void Premultiply(const SurfaceView &view) {
    if (view.bitsPerPixel == 32) MapWords(view, view.width, PremultiplyRule());
    if (view.bitsPerPixel == 8) MapPalette(view, PremultiplyRule());
}

void ReplaceColour(const SurfaceView &view, DWORD find, DWORD put) {
    // The pixels of a 24-bit view come as words without an alpha.
    const uint32_t wanted = view.bitsPerPixel == 24 ? find & kColour : find;
    MapColours(view, [=](uint32_t c) -> uint32_t { return c == wanted ? put : c; });
}

void InvertAgainstAlpha(const SurfaceView &view) { MapWords(view, WordsPerRow(view), InvertRule()); }

void Shuffle(const SurfaceView &view, DWORD code) {
    if (view.bitsPerPixel != 32) return;
    if (code == kColourToAlpha) MapWords(view, view.width, ColourToAlphaRule());
    if (code == kAlphaToColour) {
        MapWords(view, view.width, [](uint32_t c) { return (c & kOpaque) | Grey(Alpha(c)); });
    }
}

}  // namespace lacquer
