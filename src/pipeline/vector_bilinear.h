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
        inside_ = 0;
        for (int i = 0; i < columns_; ++i) {
            // The columns that fill up the last vector repeat the last one.
            const LinearTaps taps = LinearTapsAt(across_.At(first + std::min(i, count - 1)), source_.width);
            near_[i] = taps.nearIndex;
            // One pixel that is both taps needs no weight for the second.
            fractions_[i] = (taps.farIndex == taps.nearIndex ? 0 : static_cast<uint64_t>(taps.fraction)) * kEachLane;
            if (IsInside(taps.nearIndex)) inside_ = i + 1;
        }
        lines_[0].row = lines_[1].row = -1;
    }

    void SetRow(int64_t row) {
        const LinearTaps taps = LinearTapsAt(down_.At(row), source_.height);
        fraction_ = static_cast<uint32_t>(taps.fraction);
        if (prepares_) {
            top_ = &Prepared(taps.nearIndex);
            bottom_ = &Prepared(taps.farIndex);
        } else {
            const LinearTaps next = LinearTapsAt(down_.At(row + 1), source_.height);
            topPixels_ = RowOf(source_, taps.nearIndex);
            bottomPixels_ = RowOf(source_, taps.farIndex);
            nextTop_ = RowOf(source_, next.nearIndex);
            nextBottom_ = RowOf(source_, next.farIndex);
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
    static constexpr uint64_t kEachLane = 0x0001000100010001;
    static constexpr ptrdiff_t kSourceBytes = Source::kBitsPerPixel / 8;
    /// What TapsInside reads.
    static constexpr ptrdiff_t kTapBytes = Source::kBitsPerPixel == 8 ? 2 : 8;

    /// One source row at two columns of the block: P, E and 256 P + fx E.
    struct Pair {
        __m128i nearPixels, steps, blends;
    };

    struct Line {
        int row;
        Pair pairs[kBlockColumns / 2];
    };

    bool IsInside(ptrdiff_t column) const { return column * kSourceBytes + kTapBytes <= source_.width * kSourceBytes; }

    /// The pixel of column i and the one that follows it; at the row's end the last one twice.
    __m128i Taps(const BYTE *pixels, ptrdiff_t i) const {
        const auto read = pixels_.GetReader();
        const int column = near_[i];
        return _mm_unpacklo_epi32(OneWord(read(pixels, column)),
                                  OneWord(read(pixels, std::min<int>(column + 1, source_.width - 1))));
    }

    /// The same for columns that are inside.
    __m128i TapsInside(const BYTE *pixels, ptrdiff_t i) const {
        const ptrdiff_t column = near_[i];
        if constexpr (Source::kBitsPerPixel == 8) {
            const auto read = pixels_.GetReader();
            return _mm_unpacklo_epi32(OneWord(read(pixels, column)), OneWord(read(pixels, column + 1)));
        } else {
            const __m128i taps = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(pixels + column * kSourceBytes));
            if constexpr (Source::kBitsPerPixel == 32) return taps;
            return _mm_or_si128(_mm_unpacklo_epi32(taps, _mm_srli_epi64(taps, 24)), EachWord(kOpaque));
        }
    }

    /// fx in each lane of two columns.
    __m128i FractionsAt(ptrdiff_t i) const { return _mm_load_si128(reinterpret_cast<const __m128i *>(fractions_ + i)); }

    void PrefetchAt(const BYTE *pixels, ptrdiff_t i) const {
        _mm_prefetch(reinterpret_cast<const char *>(pixels + near_[i] * kSourceBytes), _MM_HINT_T0);
    }

    /// The two rows that a destination row needs are neighbours, so they have a line each.
    const Line &Prepared(int row) {
        Line &line = lines_[row & 1];
        if (line.row == row) return line;
        line.row = row;
        const BYTE *const pixels = RowOf(source_, row);
        const BYTE *const next = RowOf(source_, std::min<int64_t>(row + 1, source_.height - 1));
        Pair *pair = line.pairs;
        const auto prepare = [&](const auto &taps, ptrdiff_t i) {
            const __m128i zero = _mm_setzero_si128(), words = _mm_unpacklo_epi32(taps(pixels, i), taps(pixels, i + 1));
            const __m128i nearPixels = _mm_unpacklo_epi8(words, zero);
            const __m128i steps = _mm_sub_epi16(_mm_unpackhi_epi8(words, zero), nearPixels);
            const __m128i across = _mm_mullo_epi16(steps, FractionsAt(i));
            *pair++ = {nearPixels, steps, _mm_add_epi16(_mm_slli_epi16(nearPixels, 8), across)};
        };
        ForEachFour(
            columns_, [&](ptrdiff_t i) { PrefetchAt(next, i); },
            [&](const auto &taps, ptrdiff_t i) {
                prepare(taps, i);
                prepare(taps, i + 2);
            });
        return line;
    }

    void ReadPrepared(BYTE *out, int count) const {
        const __m128i fy = EachLane(fraction_), upperFy = EachLane(fraction_ << 8);
        const Pair *top = top_->pairs, *bottom = bottom_->pairs;
        const auto mean = [&](const Pair &above, const Pair &below, __m128i fx) {
            const __m128i down = _mm_mullo_epi16(_mm_sub_epi16(below.nearPixels, above.nearPixels), fy);
            const __m128i both = _mm_mullo_epi16(_mm_sub_epi16(below.steps, above.steps), _mm_mulhi_epu16(fx, upperFy));
            return _mm_srli_epi16(_mm_add_epi16(_mm_add_epi16(above.blends, down), both), 8);
        };
        for (int i = 0; i < count; i += kVectorPixels, top += 2, bottom += 2) {
            const __m128i words =
                _mm_packus_epi16(mean(top[0], bottom[0], FractionsAt(i)), mean(top[1], bottom[1], FractionsAt(i + 2)));
            StoreSome(out + i * kPixelBytes, words, count - i);
        }
    }

    void ReadDirectly(BYTE *out, int count) const {
        const __m128i fy = EachLane(fraction_), upperFy = EachLane(fraction_ << 8), upper = EachLane(256 - fraction_);
        const BYTE *const top = topPixels_, *const bottom = bottomPixels_;
        const BYTE *const nextTop = nextTop_, *const nextBottom = nextBottom_;
        const auto mean = [&](const auto &taps, ptrdiff_t i) {
            const __m128i zero = _mm_setzero_si128();
            const __m128i above = _mm_unpacklo_epi32(taps(top, i), taps(top, i + 1));
            const __m128i below = _mm_unpacklo_epi32(taps(bottom, i), taps(bottom, i + 1));
            const __m128i fx = FractionsAt(i), w11 = _mm_mulhi_epu16(fx, upperFy), w10 = _mm_sub_epi16(fy, w11);
            const __m128i w01 = _mm_sub_epi16(fx, w11), w00 = _mm_sub_epi16(upper, w01);
            const __m128i first = _mm_add_epi16(_mm_mullo_epi16(_mm_unpacklo_epi8(above, zero), w00),
                                                _mm_mullo_epi16(_mm_unpackhi_epi8(above, zero), w01));
            const __m128i second = _mm_add_epi16(_mm_mullo_epi16(_mm_unpacklo_epi8(below, zero), w10),
                                                 _mm_mullo_epi16(_mm_unpackhi_epi8(below, zero), w11));
            return _mm_srli_epi16(_mm_add_epi16(first, second), 8);
        };
        ForEachFour(
            count,
            [&](ptrdiff_t i) {
                PrefetchAt(nextTop, i);
                PrefetchAt(nextBottom, i);
            },
            [&](const auto &taps, ptrdiff_t i) {
                const __m128i first = mean(taps, i);
                StoreSome(out + i * kPixelBytes, _mm_packus_epi16(first, mean(taps, i + 2)),
                          static_cast<int>(count - i));
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
            work(inside, i);
        }
        for (; i < count; i += kVectorPixels) work(anywhere, i);
    }

    const SurfaceView &source_;
    Source pixels_;
    Steps across_, down_;
    bool prepares_;
    ptrdiff_t columns_ = 0, inside_ = 0;  ///< inside: the leading columns where TapsInside may be used
    int near_[kBlockColumns];
    alignas(16) uint64_t fractions_[kBlockColumns];  ///< fx in each lane
    Line lines_[2];
    const Line *top_ = nullptr, *bottom_ = nullptr;
    const BYTE *topPixels_ = nullptr, *bottomPixels_ = nullptr;
    const BYTE *nextTop_ = nullptr, *nextBottom_ = nullptr;  ///< what the next destination row needs
    uint32_t fraction_ = 0;
};

}  // namespace lacquer

#endif
