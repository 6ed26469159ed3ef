// Painting parts of four pixels at a time.

#include "draw/geometry/cover_sse2.h"

#ifdef LACQUER_SSE2

#include <cstring>

#include "pipeline/vector_pixels.h"

namespace lacquer {
namespace {

/// The weights of four covers, in both lanes of each pixel's word.
__m128i WeightsOf(const BYTE *cover) {
    int32_t bytes;
    std::memcpy(&bytes, cover, sizeof bytes);
    const __m128i zero = _mm_setzero_si128();
    const __m128i lanes = _mm_unpacklo_epi8(_mm_cvtsi32_si128(bytes), zero);
    const __m128i weights = _mm_add_epi16(lanes, _mm_srli_epi16(lanes, 7));
    return _mm_unpacklo_epi16(weights, weights);
}

/// A premultiplied colour drawn over four words.
class OverFour {
public:
    explicit OverFour(DWORD colour) : colour_(EachWord(colour)), keep_(EachLane(256 - Alpha(colour))) {}
    __m128i operator()(__m128i d) const { return _mm_adds_epu8(colour_, ScaleFour(d, keep_)); }

private:
    __m128i colour_, keep_;
};

/// Two lanes at a time: what of the pixel is kept, and what takes its place.
__m128i MixedFour(__m128i d, __m128i fill, __m128i wi, __m128i border, __m128i wb) {
    const __m128i keep = _mm_sub_epi16(EachLane(256), _mm_add_epi16(wi, wb));
    const auto sum = [&](__m128i ofD, __m128i ofFill, __m128i ofBorder) {
        return _mm_add_epi16(_mm_mullo_epi16(ofD, keep),
                             _mm_add_epi16(_mm_mullo_epi16(ofFill, wi), _mm_mullo_epi16(ofBorder, wb)));
    };
    return JoinUpperBytes(sum(LowerBytes(d), LowerBytes(fill), LowerBytes(border)),
                          sum(UpperBytes(d), UpperBytes(fill), UpperBytes(border)));
}

__m128i MixedFour(__m128i d, __m128i s, __m128i w) {
    const __m128i keep = _mm_sub_epi16(EachLane(256), w);
    const auto sum = [&](__m128i ofD, __m128i ofS) {
        return _mm_add_epi16(_mm_mullo_epi16(ofD, keep), _mm_mullo_epi16(ofS, w));
    };
    return JoinUpperBytes(sum(LowerBytes(d), LowerBytes(s)), sum(UpperBytes(d), UpperBytes(s)));
}

/// The pixels that are left over after the last four, padded with pixels that are not covered.
struct Rest {
    BYTE pixels[kVectorPixels * kPixelBytes] = {};
    BYTE inner[kVectorPixels] = {}, outer[kVectorPixels] = {};
    DWORD fill[kVectorPixels] = {}, border[kVectorPixels] = {};
};

/// Calls change(pixels, i) for every four pixels from i on, and `changeRest` for a copy of the rest.
template <class Change, class ChangeRest>
void ForEachFour(BYTE *pixels, ptrdiff_t count, const Change &change, const ChangeRest &changeRest) {
    ptrdiff_t i = 0;
    for (; i + kVectorPixels <= count; i += kVectorPixels) change(pixels + i * kPixelBytes, i);
    if (i == count) return;
    Rest rest;
    const auto left = static_cast<size_t>(count - i);
    std::memcpy(rest.pixels, pixels + i * kPixelBytes, left * kPixelBytes);
    changeRest(rest, i, left);
    std::memcpy(pixels + i * kPixelBytes, rest.pixels, left * kPixelBytes);
}

void Sse2Mix(BYTE *pixels, const DWORD *fill, const DWORD *border, const BYTE *inner, const BYTE *outer,
             ptrdiff_t count) {
    const auto wordsAt = [](const DWORD *words) { return LoadFour(reinterpret_cast<const BYTE *>(words)); };
    ForEachFour(
        pixels, count,
        [&](BYTE *four, ptrdiff_t i) {
            StoreFour(four, MixedFour(LoadFour(four), wordsAt(fill + i), WeightsOf(inner + i), wordsAt(border + i),
                                      WeightsOf(outer + i)));
        },
        [&](Rest &rest, ptrdiff_t i, size_t left) {
            std::memcpy(rest.fill, fill + i, left * kPixelBytes);
            std::memcpy(rest.border, border + i, left * kPixelBytes);
            std::memcpy(rest.inner, inner + i, left);
            std::memcpy(rest.outer, outer + i, left);
            Sse2Mix(rest.pixels, rest.fill, rest.border, rest.inner, rest.outer, kVectorPixels);
        });
}

void Sse2Over(BYTE *pixels, DWORD fill, DWORD border, const BYTE *inner, const BYTE *outer, ptrdiff_t count) {
    const OverFour fillOver(fill), borderOver(border);
    ForEachFour(
        pixels, count,
        [&](BYTE *four, ptrdiff_t i) {
            const __m128i d = LoadFour(four);
            StoreFour(four, MixedFour(d, fillOver(d), WeightsOf(inner + i), borderOver(d), WeightsOf(outer + i)));
        },
        [&](Rest &rest, ptrdiff_t i, size_t left) {
            std::memcpy(rest.inner, inner + i, left);
            std::memcpy(rest.outer, outer + i, left);
            Sse2Over(rest.pixels, fill, border, rest.inner, rest.outer, kVectorPixels);
        });
}

void Sse2OverOne(BYTE *pixels, DWORD colour, const BYTE *cover, ptrdiff_t count) {
    const OverFour over(colour);
    ForEachFour(
        pixels, count,
        [&](BYTE *four, ptrdiff_t i) {
            const __m128i d = LoadFour(four);
            StoreFour(four, MixedFour(d, over(d), WeightsOf(cover + i)));
        },
        [&](Rest &rest, ptrdiff_t i, size_t left) {
            std::memcpy(rest.inner, cover + i, left);
            Sse2OverOne(rest.pixels, colour, rest.inner, kVectorPixels);
        });
}

void Sse2OverEvenly(BYTE *pixels, DWORD colour, BYTE cover, ptrdiff_t count) {
    const OverFour over(colour);
    const __m128i weight = EachLane(WeightOf(cover));
    ForEachFour(
        pixels, count,
        [&](BYTE *four, ptrdiff_t) {
            const __m128i d = LoadFour(four);
            StoreFour(four, MixedFour(d, over(d), weight));
        },
        [&](Rest &rest, ptrdiff_t, size_t) { Sse2OverEvenly(rest.pixels, colour, cover, kVectorPixels); });
}

}  // namespace

void ApplySse2Cover(CoverKernels &kernels) { kernels = {Sse2Mix, Sse2Over, Sse2OverOne, Sse2OverEvenly}; }

}  // namespace lacquer

#endif
