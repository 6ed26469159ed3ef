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
        columns_ = count;
        inside_ = 0;
        for (int i = 0; i < ((count + kVectorPixels - 1) & ~(kVectorPixels - 1)); ++i) {
            // The columns that fill up the last vector repeat the last one.
            const LinearTaps taps = LinearTapsAt(across_.At(first + std::min(i, count - 1)), source_.width);
            near_[i] = static_cast<int>(taps.nearIndex * kSourceBytes);
            // One pixel that is both taps needs no weight for the second.
            fractions_[i] = (taps.farIndex == taps.nearIndex ? 0 : static_cast<uint32_t>(taps.fraction)) * kBothLanes;
            if (near_[i] + kTapBytes <= source_.width * kSourceBytes) inside_ = i + 1;
        }
        lines_[0].row = lines_[1].row = -1;
    }

    void SetRow(int64_t row) {
        const LinearTaps taps = LinearTapsAt(down_.At(row), source_.height);
        fraction_ = static_cast<uint32_t>(taps.fraction);
        if (prepares_) {
            top_ = &LineOf(taps.nearIndex);
            bottom_ = &LineOf(taps.farIndex);
            bottomRow_ = taps.farIndex;
            if (top_->row != taps.nearIndex) Prepare(*top_, taps.nearIndex, [](ptrdiff_t, const Four &, int) {});
        } else {
            const LinearTaps next = LinearTapsAt(down_.At(row + 1), source_.height);
            topPixels_ = RowOf(source_, taps.nearIndex);
            bottomPixels_ = RowOf(source_, taps.farIndex);
            nextTop_ = RowOf(source_, next.nearIndex);
            nextBottom_ = RowOf(source_, next.farIndex);
        }
    }

    void Read(BYTE *out, int count) {
        if (!prepares_) {
            ReadDirectly(out, count);
        } else if (bottom_->row == bottomRow_) {
            ReadPrepared(out, count);
        } else {
            ReadPreparing(out);
        }
    }

private:
    /// From this vertical step on, preparing rows costs more than it saves.
    static constexpr int64_t kDirectStep = 1 << 16;
    static constexpr uint32_t kBothLanes = 0x00010001;
    static constexpr ptrdiff_t kSourceBytes = Source::kBitsPerPixel / 8;
    /// What TapsInside reads.
    static constexpr ptrdiff_t kTapBytes = Source::kBitsPerPixel == 8 ? 2 : 8;

    /// Two channels of one source row at four columns: P, E and 256 P + fx E.
    struct Channels {
        __m128i nearPixels, steps, blends;
    };

    struct Four {
        Channels lower, upper;
    };

    struct Line {
        int row;
        Four fours[kBlockColumns / kVectorPixels];
    };

    /// The near and the far words of four columns.
    struct FourTaps {
        __m128i nearWords, farWords;
    };

    /// The pixels of the four columns from i on, and those that follow them; at the row's end the last one twice.
    FourTaps Taps(const BYTE *pixels, ptrdiff_t i) const {
        const ptrdiff_t last = (source_.width - 1) * kSourceBytes;
        return TapsOf(pixels, i, [last](ptrdiff_t pixel) { return std::min(pixel + kSourceBytes, last); });
    }

    /// The same for columns that are inside.
    FourTaps TapsInside(const BYTE *pixels, ptrdiff_t i) const {
        if constexpr (Source::kBitsPerPixel == 8) {
            return TapsOf(pixels, i, [](ptrdiff_t pixel) { return pixel + kSourceBytes; });
        } else {
            const int *const bytes = near_ + i;
            const __m128i first = LoadTwoAndTwo(pixels + bytes[0], pixels + bytes[1]);
            const __m128i second = LoadTwoAndTwo(pixels + bytes[2], pixels + bytes[3]);
            if constexpr (Source::kBitsPerPixel == 32) {
                return {PickWords<0, 2>(first, second), PickWords<1, 3>(first, second)};
            } else {
                const __m128i next = PickWords<0, 2>(_mm_srli_epi64(first, 24), _mm_srli_epi64(second, 24));
                const __m128i opaque = EachWord(kOpaque);
                return {_mm_or_si128(PickWords<0, 2>(first, second), opaque), _mm_or_si128(next, opaque)};
            }
        }
    }

    template <class Next>
    FourTaps TapsOf(const BYTE *pixels, ptrdiff_t i, const Next &next) const {
        const auto read = pixels_.GetReader();
        const int *const bytes = near_ + i;
        const auto nearWord = [&](int k) { return read(pixels + bytes[k], 0); };
        const auto farWord = [&](int k) { return read(pixels + next(bytes[k]), 0); };
        return {FourWords(nearWord(0), nearWord(1), nearWord(2), nearWord(3)),
                FourWords(farWord(0), farWord(1), farWord(2), farWord(3))};
    }

    /// Two words from each of two places.
    static __m128i LoadTwoAndTwo(const BYTE *a, const BYTE *b) {
        const __m128 first = _mm_castsi128_ps(LoadTwo(a));
        return _mm_castps_si128(_mm_loadh_pi(first, reinterpret_cast<const __m64 *>(b)));
    }

    /// fx in both lanes of four columns.
    __m128i FractionsAt(ptrdiff_t i) const { return _mm_load_si128(reinterpret_cast<const __m128i *>(fractions_ + i)); }

    void PrefetchAt(const BYTE *pixels, ptrdiff_t i) const {
        _mm_prefetch(reinterpret_cast<const char *>(pixels + near_[i]), _MM_HINT_T0);
    }

    /// The two rows that a destination row needs are neighbours, so they have a line each.
    Line &LineOf(int row) { return lines_[row & 1]; }

    /// Calls use(i, four, left) for each four columns that are ready, `left` columns before the block's end.
    template <class Use>
    void Prepare(Line &line, int row, const Use &use) {
        line.row = row;
        const BYTE *const pixels = RowOf(source_, row);
        const BYTE *const next = RowOf(source_, std::min<int64_t>(row + 1, source_.height - 1));
        Four *prepared = line.fours;
        ForEachFour(
            columns_, [&](ptrdiff_t i) { PrefetchAt(next, i); },
            [&](const auto &taps, ptrdiff_t i, int left) {
                const __m128i fx = FractionsAt(i);
                const auto prepare = [&](__m128i nearPixels, __m128i farPixels) -> Channels {
                    const __m128i steps = _mm_sub_epi16(farPixels, nearPixels);
                    return {nearPixels, steps, _mm_add_epi16(_mm_slli_epi16(nearPixels, 8), _mm_mullo_epi16(steps, fx))};
                };
                const auto [nearWords, farWords] = taps(pixels, i);
                const Four four = {prepare(LowerBytes(nearWords), LowerBytes(farWords)),
                                   prepare(UpperBytes(nearWords), UpperBytes(farWords))};
                *prepared++ = four;
                use(i, four, left);
            });
    }

    /// The mean of two prepared rows.
    class Mean {
    public:
        explicit Mean(uint32_t fraction) : fy_(EachLane(fraction)), upperFy_(EachLane(fraction << 8)) {}

        __m128i operator()(const Four &above, const Four &below, __m128i fx) const {
            const __m128i w11 = _mm_mulhi_epu16(fx, upperFy_);
            return JoinUpperBytes(Of(above.lower, below.lower, w11), Of(above.upper, below.upper, w11));
        }

    private:
        __m128i Of(const Channels &above, const Channels &below, __m128i w11) const {
            const __m128i down = _mm_mullo_epi16(_mm_sub_epi16(below.nearPixels, above.nearPixels), fy_);
            const __m128i both = _mm_mullo_epi16(_mm_sub_epi16(below.steps, above.steps), w11);
            return _mm_add_epi16(_mm_add_epi16(above.blends, down), both);
        }

        __m128i fy_, upperFy_;
    };

    void ReadPreparing(BYTE *out) {
        const Mean mean(fraction_);
        const Four *top = top_->fours;
        Prepare(*bottom_, bottomRow_, [&](ptrdiff_t i, const Four &below, int left) {
            StoreSome(out + i * kPixelBytes, mean(*top++, below, FractionsAt(i)), left);
        });
    }

    void ReadPrepared(BYTE *out, int count) const {
        const Mean mean(fraction_);
        const Four *top = top_->fours, *bottom = bottom_->fours;
        ptrdiff_t i = 0;
        for (; i + kVectorPixels <= count; i += kVectorPixels)
            StoreFour(out + i * kPixelBytes, mean(*top++, *bottom++, FractionsAt(i)));
        if (i < count)
            StoreSome(out + i * kPixelBytes, mean(*top, *bottom, FractionsAt(i)), static_cast<int>(count - i));
    }

    void ReadDirectly(BYTE *out, int count) const {
        const __m128i fy = EachLane(fraction_), upperFy = EachLane(fraction_ << 8), upper = EachLane(256 - fraction_);
        const BYTE *const top = topPixels_, *const bottom = bottomPixels_;
        const BYTE *const nextTop = nextTop_, *const nextBottom = nextBottom_;
        ForEachFour(
            count,
            [&](ptrdiff_t i) {
                PrefetchAt(nextTop, i);
                PrefetchAt(nextBottom, i);
            },
            [&](const auto &taps, ptrdiff_t i, int left) {
                const __m128i fx = FractionsAt(i), w11 = _mm_mulhi_epu16(fx, upperFy), minus10 = _mm_sub_epi16(w11, fy);
                const __m128i minus01 = _mm_sub_epi16(w11, fx), w00 = _mm_add_epi16(upper, minus01);
                const auto [p00, p01] = taps(top, i);
                const auto [p10, p11] = taps(bottom, i);
                const auto weighted = [&](__m128i a, __m128i b, __m128i c, __m128i d) {
                    const __m128i first = _mm_sub_epi16(_mm_mullo_epi16(a, w00), _mm_mullo_epi16(b, minus01));
                    return _mm_add_epi16(first, _mm_sub_epi16(_mm_mullo_epi16(d, w11), _mm_mullo_epi16(c, minus10)));
                };
                const __m128i greenAlpha =
                    weighted(UpperBytes(p00), UpperBytes(p01), UpperBytes(p10), UpperBytes(p11));
                const __m128i blueRed = _mm_sub_epi16(weighted(p00, p01, p10, p11), _mm_slli_epi16(greenAlpha, 8));
                StoreSome(out + i * kPixelBytes, JoinUpperBytes(blueRed, greenAlpha), left);
            });
    }

    /// Calls work(taps, i) for the block's first `count` columns, four at a time; `taps` gives the taps of a column.
    template <class Prefetch, class Work>
    void ForEachFour(ptrdiff_t count, const Prefetch &prefetch, const Work &work) const {
        const auto inside = [this](const BYTE *pixels, ptrdiff_t i) { return TapsInside(pixels, i); };
        const auto anywhere = [this](const BYTE *pixels, ptrdiff_t i) { return Taps(pixels, i); };
        const ptrdiff_t end = std::min(inside_, count);
        ptrdiff_t i = 0;
        for (; i + kVectorPixels <= end; i += kVectorPixels) {
            prefetch(i);
            work(inside, i, kVectorPixels);
        }
        for (; i < count; i += kVectorPixels) work(anywhere, i, static_cast<int>(count - i));
    }

    const SurfaceView &source_;
    Source pixels_;
    Steps across_, down_;
    bool prepares_;
    ptrdiff_t columns_ = 0, inside_ = 0;  ///< inside: the leading columns where TapsInside may be used
    int near_[kBlockColumns];                        ///< the byte of the near pixel in its row
    alignas(16) uint32_t fractions_[kBlockColumns];  ///< fx in both lanes
    Line lines_[2];
    Line *top_ = nullptr, *bottom_ = nullptr;
    int bottomRow_ = 0;
    const BYTE *topPixels_ = nullptr, *bottomPixels_ = nullptr;
    const BYTE *nextTop_ = nullptr, *nextBottom_ = nullptr;  ///< what the next destination row needs
    uint32_t fraction_ = 0;
};

}  // namespace lacquer

#endif
