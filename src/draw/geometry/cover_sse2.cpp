// Painting parts of four pixels at a time.

#include "draw/geometry/cover_sse2.h"

#include <cstring>

#include "pipeline/pixel/pixel_sse2.h"

namespace lacquer {
namespace {

using namespace sse2;

/// The weights of some covers, in both lanes of each pixel's word.
template <size_t kCount>
__m128i WeightsOf(const BYTE *cover) {
    int32_t bytes = 0;
    std::memcpy(&bytes, cover, kCount);
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

/// How many pixels a step changes, as a type.
template <size_t kCount>
struct Step {
    static constexpr size_t kPixels = kCount;
};

/// d := change(d, i, step), for four pixels at a time and then for each that is left over.
template <class Change>
void ChangeRun(BYTE *pixels, ptrdiff_t count, const Change &change) {
    ptrdiff_t i = 0;
    for (; i + kRegisterPixels <= count; i += kRegisterPixels) {
        BYTE *four = pixels + i * kPixelBytes;
        StoreFour(four, change(LoadFour(four), i, Step<kRegisterPixels>()));
    }
    for (; i < count; ++i) {
        BYTE *one = pixels + i * kPixelBytes;
        StoreOne(one, change(LoadOne(one), i, Step<1>()));
    }
}

template <size_t kCount>
__m128i LoadWords(const DWORD *words) {
    const auto *bytes = reinterpret_cast<const BYTE *>(words);
    return kCount == 1 ? LoadOne(bytes) : LoadFour(bytes);
}

void Sse2Mix(BYTE *pixels, const DWORD *fill, const DWORD *border, const BYTE *inner, const BYTE *outer,
             ptrdiff_t count) {
    ChangeRun(pixels, count, [&]<class Step>(__m128i d, ptrdiff_t i, Step) {
        constexpr size_t kCount = Step::kPixels;
        return MixedFour(d, LoadWords<kCount>(fill + i), WeightsOf<kCount>(inner + i), LoadWords<kCount>(border + i),
                         WeightsOf<kCount>(outer + i));
    });
}

void Sse2Over(BYTE *pixels, DWORD fill, DWORD border, const BYTE *inner, const BYTE *outer, ptrdiff_t count) {
    const OverFour fillOver(fill), borderOver(border);
    ChangeRun(pixels, count, [&]<class Step>(__m128i d, ptrdiff_t i, Step) {
        constexpr size_t kCount = Step::kPixels;
        return MixedFour(d, fillOver(d), WeightsOf<kCount>(inner + i), borderOver(d), WeightsOf<kCount>(outer + i));
    });
}

void Sse2OverOne(BYTE *pixels, DWORD colour, const BYTE *cover, ptrdiff_t count) {
    const OverFour over(colour);
    ChangeRun(pixels, count, [&]<class Step>(__m128i d, ptrdiff_t i, Step) {
        return MixedFour(d, over(d), WeightsOf<Step::kPixels>(cover + i));
    });
}

void Sse2OverEvenly(BYTE *pixels, DWORD colour, BYTE cover, ptrdiff_t count) {
    const __m128i zero = _mm_setzero_si128(), most = EachLane(255), colours = _mm_unpacklo_epi8(EachWord(colour), zero);
    const __m128i under = EachLane(256 - Alpha(colour)), weight = EachLane(WeightOf(cover));
    const __m128i keep = EachLane(256 - WeightOf(cover));
    // One channel to a lane.
    const auto mixed = [&](__m128i d) {
        const __m128i drawn = _mm_add_epi16(colours, UpperBytes(_mm_mullo_epi16(d, under)));
        const __m128i sum =
            _mm_add_epi16(_mm_mullo_epi16(d, keep), _mm_mullo_epi16(_mm_min_epi16(drawn, most), weight));
        return UpperBytes(sum);
    };
    ChangeRun(pixels, count, [&](__m128i d, ptrdiff_t, auto) {
        return _mm_packus_epi16(mixed(_mm_unpacklo_epi8(d, zero)), mixed(_mm_unpackhi_epi8(d, zero)));
    });
}

}  // namespace

void ApplySse2Cover(CoverKernels &kernels) { kernels = {Sse2Mix, Sse2Over, Sse2OverOne, Sse2OverEvenly}; }

}  // namespace lacquer
