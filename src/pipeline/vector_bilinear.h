// The bilinear sampler of the faster tiers. MixFour's mean is, with the top pixels P and Q (near and far), E = Q − P,
// and dP, dE the differences from the row above to the row below,
//
//   256 P + fx E + fy dP + (fx fy >> 8) dE,
//
// where everything but fy belongs to one source row. So a draw that uses each source row several times prepares the row
// once for a block's columns, and two prepared rows give a destination row. Lanes may wrap on the way: the mean itself
// is below 2^16. Other draws weight the four pixels directly.
#pragma once

#include "pipeline/bilinear.h"
#include "pipeline/vector_pixels.h"

#ifdef LACQUER_SSE2

namespace lacquer {

template <class Source>
class VectorBilinearFetch {
public:
    using Pixels = Source;

    VectorBilinearFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source),
          pixels_(source),
          across_(CentredSteps(source.width, fullSize.cx)),
          down_(CentredSteps(source.height, fullSize.cy)),
          prepares_(down_.step < kDirectStep) {}

    void SetColumns(int64_t first, int count) {
        columns_ = (count + kVectorPixels - 1) & ~(kVectorPixels - 1);
        beginInside_ = endInside_ = 0;
        for (int i = 0; i < columns_; ++i) {
            // The columns that fill up the last vector repeat the last one.
            const LinearTaps taps = LinearTapsAt(across_.At(first + std::min(i, count - 1)), source_.width);
            near_[i] = taps.nearIndex;
            far_[i] = taps.farIndex;
            const __m128i fraction = EachLane(static_cast<uint32_t>(taps.fraction));
            Fractions &pair = fractions_[i / 2];
            pair.fx = i % 2 == 0 ? fraction : _mm_unpacklo_epi64(pair.fx, fraction);
            pair.upperFx = _mm_slli_epi16(pair.fx, 8);
            pair.inverse = _mm_sub_epi16(EachLane(256), pair.fx);
            if (taps.farIndex != taps.nearIndex + 1) continue;
            if (endInside_ == 0) beginInside_ = i;
            endInside_ = i + 1;
        }
        beginInside_ = std::min((beginInside_ + 1) & ~ptrdiff_t{1}, endInside_);
        lines_[0].row = lines_[1].row = -1;
    }

    void SetRow(int64_t row) {
        const LinearTaps taps = LinearTapsAt(down_.At(row), source_.height);
        fraction_ = static_cast<uint32_t>(taps.fraction);
        if (prepares_) {
            top_ = &Prepared(taps.nearIndex);
            bottom_ = &Prepared(taps.farIndex);
        } else {
            topPixels_ = RowOf(source_, taps.nearIndex);
            bottomPixels_ = RowOf(source_, taps.farIndex);
        }
    }

    void Read(BYTE *out, int count) const {
        if (prepares_) {
            ReadPrepared(out, count);
        } else {
            ReadDirectly(out, count);
        }
    }

private:
    /// From this vertical step on, preparing rows costs more than it saves.
    static constexpr int64_t kDirectStep = 0xC000;

    /// fx, fx × 256 and 256 − fx in each lane of two columns.
    struct Fractions {
        __m128i fx, upperFx, inverse;
    };

    /// One source row at two columns of the block: P, E and 256 P + fx E.
    struct Pair {
        __m128i nearPixels, steps, blends;
    };

    struct Line {
        int row;
        Pair pairs[kBlockColumns / 2];
    };

    /// Near and far pixel of column i, wherever they lie.
    __m128i Taps(const BYTE *pixels, ptrdiff_t i) const {
        const auto read = pixels_.GetReader();
        return _mm_unpacklo_epi32(OneWord(read(pixels, near_[i])), OneWord(read(pixels, far_[i])));
    }

    /// The same for a column whose far pixel follows the near one.
    __m128i TapsInside(const BYTE *pixels, ptrdiff_t i) const {
        if constexpr (Source::kBitsPerPixel == 32) {
            return _mm_loadl_epi64(reinterpret_cast<const __m128i *>(pixels + ptrdiff_t{near_[i]} * kPixelBytes));
        } else {
            return Taps(pixels, i);
        }
    }

    /// The two rows that a destination row needs are neighbours, so they have a line each.
    const Line &Prepared(int row) {
        Line &line = lines_[row & 1];
        if (line.row == row) return line;
        line.row = row;
        const BYTE *const pixels = RowOf(source_, row);
        Pair *pair = line.pairs;
        const Fractions *fractions = fractions_;
        const auto prepare = [&](__m128i first, __m128i second) {
            const __m128i zero = _mm_setzero_si128(), words = _mm_unpacklo_epi32(first, second);
            pair->nearPixels = _mm_unpacklo_epi8(words, zero);
            pair->steps = _mm_sub_epi16(_mm_unpackhi_epi8(words, zero), pair->nearPixels);
            pair->blends =
                _mm_add_epi16(_mm_slli_epi16(pair->nearPixels, 8), _mm_mullo_epi16(pair->steps, fractions->fx));
            ++pair;
            ++fractions;
        };
        ptrdiff_t i = 0;
        for (; i < beginInside_; i += 2) prepare(Taps(pixels, i), Taps(pixels, i + 1));
        for (; i + 2 <= endInside_; i += 2) prepare(TapsInside(pixels, i), TapsInside(pixels, i + 1));
        for (; i < columns_; i += 2) prepare(Taps(pixels, i), Taps(pixels, i + 1));
        return line;
    }

    void ReadPrepared(BYTE *out, int count) const {
        const __m128i fy = EachLane(fraction_);
        const Pair *top = top_->pairs, *bottom = bottom_->pairs;
        const Fractions *fractions = fractions_;
        const auto mean = [fy](const Pair &above, const Pair &below, __m128i upperFx) {
            const __m128i down = _mm_mullo_epi16(_mm_sub_epi16(below.nearPixels, above.nearPixels), fy);
            const __m128i both = _mm_mullo_epi16(_mm_sub_epi16(below.steps, above.steps), _mm_mulhi_epu16(upperFx, fy));
            return _mm_srli_epi16(_mm_add_epi16(_mm_add_epi16(above.blends, down), both), 8);
        };
        const auto four = [&] {
            const __m128i words = _mm_packus_epi16(mean(top[0], bottom[0], fractions[0].upperFx),
                                                   mean(top[1], bottom[1], fractions[1].upperFx));
            top += 2;
            bottom += 2;
            fractions += 2;
            return words;
        };
        for (; count >= kVectorPixels; count -= kVectorPixels, out += kVectorPixels * kPixelBytes) {
            StoreFour(out, four());
        }
        if (count > 0) StoreSome(out, four(), count);
    }

    void ReadDirectly(BYTE *out, int count) const {
        const __m128i fy = EachLane(fraction_);
        const BYTE *const top = topPixels_, *const bottom = bottomPixels_;
        const Fractions *fractions = fractions_;
        const auto mean = [&](const auto &taps, ptrdiff_t i) {
            const __m128i zero = _mm_setzero_si128();
            const __m128i above = _mm_unpacklo_epi32(taps(top, i), taps(top, i + 1));
            const __m128i below = _mm_unpacklo_epi32(taps(bottom, i), taps(bottom, i + 1));
            const __m128i w11 = _mm_mulhi_epu16(fractions->upperFx, fy), w10 = _mm_sub_epi16(fy, w11);
            const __m128i w01 = _mm_sub_epi16(fractions->fx, w11), w00 = _mm_sub_epi16(fractions->inverse, w10);
            ++fractions;
            const __m128i upper = _mm_add_epi16(_mm_mullo_epi16(_mm_unpacklo_epi8(above, zero), w00),
                                                _mm_mullo_epi16(_mm_unpackhi_epi8(above, zero), w01));
            const __m128i lower = _mm_add_epi16(_mm_mullo_epi16(_mm_unpacklo_epi8(below, zero), w10),
                                                _mm_mullo_epi16(_mm_unpackhi_epi8(below, zero), w11));
            return _mm_srli_epi16(_mm_add_epi16(upper, lower), 8);
        };
        const auto pair = [&](const auto &taps, ptrdiff_t i) {
            const __m128i words = mean(taps, i);
            StoreSome(out + i * kPixelBytes, _mm_packus_epi16(words, words),
                      static_cast<int>(std::min<ptrdiff_t>(2, count - i)));
        };
        const auto anywhere = [this](const BYTE *pixels, ptrdiff_t i) { return Taps(pixels, i); };
        const auto inside = [this](const BYTE *pixels, ptrdiff_t i) { return TapsInside(pixels, i); };
        const ptrdiff_t begin = std::min<ptrdiff_t>(beginInside_, count), end = std::min<ptrdiff_t>(endInside_, count);
        ptrdiff_t i = 0;
        for (; i < begin; i += 2) pair(anywhere, i);
        for (; i + kVectorPixels <= end; i += kVectorPixels) {
            const __m128i first = mean(inside, i);
            StoreFour(out + i * kPixelBytes, _mm_packus_epi16(first, mean(inside, i + 2)));
        }
        for (; i < count; i += 2) pair(anywhere, i);
    }

    const SurfaceView &source_;
    Source pixels_;
    Steps across_, down_;
    bool prepares_;
    ptrdiff_t columns_ = 0, beginInside_ = 0, endInside_ = 0;  ///< inside: near and far pixel are neighbours
    int near_[kBlockColumns], far_[kBlockColumns];
    Fractions fractions_[kBlockColumns / 2];
    Line lines_[2];
    const Line *top_ = nullptr, *bottom_ = nullptr;
    const BYTE *topPixels_ = nullptr, *bottomPixels_ = nullptr;
    uint32_t fraction_ = 0;
};

}  // namespace lacquer

#endif
