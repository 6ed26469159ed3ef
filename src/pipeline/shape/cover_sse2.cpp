// Painting parts of four pixels at a time.

#include "pipeline/shape/cover_sse2.h"

#include <cstring>

#include "pipeline/pixel/pixel_sse2.h"
#include "pipeline/shape/cover.h"

namespace lacquer::sse2 {
namespace {

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

/// A premultiplied colour drawn over parts of four words. d × (256 − w) + s × w is 256 d + (s − d) × w in 16 bits, and
/// s never carries.
class PartlyOverFour {
public:
    explicit PartlyOverFour(DWORD colour)
        : blueRed_(LowerBytes(EachWord(colour))),
          greenAlpha_(UpperBytes(EachWord(colour))),
          keep_(EachLane(256 - Alpha(colour))) {}

    __m128i operator()(__m128i d, __m128i weights) const {
        const auto sum = [&](__m128i colour, __m128i low, __m128i high) {
            const __m128i drawn = _mm_add_epi16(colour, _mm_mulhi_epu16(high, keep_));
            return _mm_add_epi16(high, _mm_mullo_epi16(_mm_sub_epi16(drawn, low), weights));
        };
        return JoinUpperBytes(sum(blueRed_, LowerBytes(d), _mm_slli_epi16(d, 8)),
                              sum(greenAlpha_, UpperBytes(d), _mm_and_si128(d, EachLane(0xFF00))));
    }

private:
    __m128i blueRed_, greenAlpha_, keep_;
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

}  // namespace

void MixParts(BYTE *pixels, const DWORD *fill, const DWORD *border, const BYTE *inner, const BYTE *outer,
              ptrdiff_t count) {
    ChangeRun(pixels, count, [&]<class Step>(__m128i d, ptrdiff_t i, Step) {
        constexpr size_t kCount = Step::kPixels;
        return MixedFour(d, LoadWords<kCount>(fill + i), WeightsOf<kCount>(inner + i), LoadWords<kCount>(border + i),
                         WeightsOf<kCount>(outer + i));
    });
}

void DrawParts(BYTE *pixels, DWORD fill, DWORD border, const BYTE *inner, const BYTE *outer, ptrdiff_t count) {
    const OverFour fillOver(fill), borderOver(border);
    ChangeRun(pixels, count, [&]<class Step>(__m128i d, ptrdiff_t i, Step) {
        constexpr size_t kCount = Step::kPixels;
        return MixedFour(d, fillOver(d), WeightsOf<kCount>(inner + i), borderOver(d), WeightsOf<kCount>(outer + i));
    });
}

void DrawCovered(BYTE *pixels, DWORD colour, const BYTE *cover, ptrdiff_t count) {
    const PartlyOverFour over(colour);
    ChangeRun(pixels, count,
              [&]<class Step>(__m128i d, ptrdiff_t i, Step) { return over(d, WeightsOf<Step::kPixels>(cover + i)); });
}

void DrawEvenly(BYTE *pixels, DWORD colour, BYTE cover, ptrdiff_t count) {
    const PartlyOverFour over(colour);
    const __m128i weights = EachLane(WeightOf(cover));
    ChangeRun(pixels, count, [&](__m128i d, ptrdiff_t, auto) { return over(d, weights); });
}

}  // namespace lacquer::sse2
