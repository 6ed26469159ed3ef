// The bilinear sampler of the faster tiers. MixFour's mean is, with the top pixels P and Q (near and far), E = Q − P,
// and dP, dE the differences from the row above to the row below,
//
//   256 P + fx E + fy dP + (fx fy >> 8) dE,
//
// where everything but fy belongs to one source row. So a draw that uses source rows several times prepares each row
// once for a block's columns, and two prepared rows give a destination row. Other draws weight the four pixels
// directly. Both work on four words at a time, blue and red apart from green and alpha, so that one register holds a
// weight of all four. Lanes may wrap on the way: the mean itself is below 2^16.
#pragma once

#include "pipeline/pixel/pixel_simd.h"
#include "pipeline/sample/bilinear.h"

namespace lacquer::LACQUER_TIER {

/// Where the columns of a block find their taps.
struct BilinearBlock {
    ptrdiff_t inside;                               ///< the leading columns whose taps may be read at once
    int nearBytes[kBlockColumns];                   ///< the byte of the near pixel in its row
    alignas(16) uint32_t fractions[kBlockColumns];  ///< fx in both lanes

    /// For columns at `first` and after it in steps. `pixelBytes`: of a source pixel; `tapBytes`: what is read at once.
    void Set(const Steps &steps, int64_t first, ptrdiff_t count, int width, ptrdiff_t pixelBytes, ptrdiff_t tapBytes) {
        constexpr uint32_t kBothLanes = 0x00010001;
        for (ptrdiff_t i = 0; i < count; ++i) {
            const LinearTaps taps = LinearTapsAt(steps.At(first + i), width);
            nearBytes[i] = static_cast<int>(taps.nearIndex * pixelBytes);
            // One pixel that is both taps needs no weight for the second.
            fractions[i] = taps.farIndex == taps.nearIndex ? 0 : static_cast<uint32_t>(taps.fraction) * kBothLanes;
        }
        // The columns that fill up the last register repeat the last one.
        for (ptrdiff_t i = count; i % kRegisterPixels != 0; ++i) {
            nearBytes[i] = nearBytes[count - 1];
            fractions[i] = fractions[count - 1];
        }
        inside = std::upper_bound(nearBytes, nearBytes + count, width * pixelBytes - tapBytes) - nearBytes;
    }
};

/// The taps of a block's columns.
template <class Source>
class BilinearColumns {
public:
    /// The near and the far words of four columns.
    struct FourTaps {
        __m128i nearWords, farWords;
    };

    BilinearColumns(const SurfaceView &source, SIZE fullSize)
        : width_(source.width), pixels_(source), across_(CentredSteps(source.width, fullSize.cx)) {}

    void Set(int64_t first, ptrdiff_t count) { block_.Set(across_, first, count, width_, kSourceBytes, kTapBytes); }

    /// fx in both lanes of four columns.
    __m128i FractionsAt(ptrdiff_t i) const {
        return _mm_load_si128(reinterpret_cast<const __m128i *>(block_.fractions + i));
    }

    void PrefetchAt(const BYTE *pixels, ptrdiff_t i) const { PrefetchLine(pixels + block_.nearBytes[i]); }

    /// Calls work(taps, i, left) for the block's first `count` columns, four at a time; taps(row, i) gives their taps,
    /// `left` says how many columns are left where fewer than four are.
    template <class Prefetch, class Work>
    void ForEachFour(ptrdiff_t count, const Prefetch &prefetch, const Work &work) const {
        const auto inside = [this](const BYTE *pixels, ptrdiff_t i) { return TapsInside(pixels, i); };
        const auto anywhere = [this](const BYTE *pixels, ptrdiff_t i) { return Taps(pixels, i); };
        const ptrdiff_t end = std::min(block_.inside, count);
        ptrdiff_t i = 0;
        for (; i + kRegisterPixels <= end; i += kRegisterPixels) {
            prefetch(i);
            work(inside, i, kRegisterPixels);
        }
        for (; i < count; i += kRegisterPixels) work(anywhere, i, count - i);
    }

private:
    static constexpr ptrdiff_t kSourceBytes = Source::kBitsPerPixel / 8;
    /// What TapsInside reads.
    static constexpr ptrdiff_t kTapBytes = Source::kBitsPerPixel == 8 ? 2 : 8;

    /// The pixels of the four columns from i on, and those that follow them; at the row's end the last one twice.
    FourTaps Taps(const BYTE *pixels, ptrdiff_t i) const {
        const ptrdiff_t last = (width_ - 1) * kSourceBytes;
        return TapsOf(pixels, i, [last](ptrdiff_t pixel) { return std::min(pixel + kSourceBytes, last); });
    }

    /// The same for columns whose taps may be read at once.
    FourTaps TapsInside(const BYTE *pixels, ptrdiff_t i) const {
        if constexpr (Source::kBitsPerPixel == 8) {
            return TapsOf(pixels, i, [](ptrdiff_t pixel) { return pixel + kSourceBytes; });
        } else {
            const int *const bytes = block_.nearBytes + i;
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
        const int *const bytes = block_.nearBytes + i;
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

    int width_;
    Source pixels_;
    Steps across_;
    BilinearBlock block_;
};

/// The way with prepared rows.
template <class Source>
class PreparedBilinearFetch : public StretchFetch {
public:
    using Pixels = Source;

    /// For larger vertical steps, preparing rows costs more than it saves.
    static bool Suits(const SurfaceView &source, SIZE fullSize) {
        return CentredSteps(source.height, fullSize.cy).step < 1 << 16;
    }

    PreparedBilinearFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source), columns_(source, fullSize), down_(CentredSteps(source.height, fullSize.cy)) {}

    void SetColumns(int64_t first, ptrdiff_t count) {
        columns_.Set(first, count);
        count_ = count;
        lines_[0].row = lines_[1].row = -1;
    }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) {
        const LinearTaps taps = LinearTapsAt(down_.At(row), source_.height);
        const Mean mean(static_cast<uint32_t>(taps.fraction));
        Line &top = LineOf(taps.nearIndex), &bottom = LineOf(taps.farIndex);
        if (top.row != taps.nearIndex) Prepare(top, taps.nearIndex, mean, nullptr, nullptr);
        if (bottom.row != taps.farIndex) {
            Prepare(bottom, taps.farIndex, mean, top.columns, buffer);
        } else {
            ReadPrepared(buffer, count, mean, top.columns, bottom.columns);
        }
        return buffer;
    }

private:
    /// One source row at four columns, two channels of each: P, E and 256 P + fx E.
    struct Channels {
        __m128i nearPixels, steps, blends;
    };

    struct FourColumns {
        Channels blueRed, greenAlpha;
    };

    struct Line {
        int row;
        FourColumns columns[kBlockColumns / kRegisterPixels];
    };

    /// The two rows that a destination row needs are neighbours, so they have a line each.
    Line &LineOf(int row) { return lines_[row & 1]; }

    /// The destination row between two prepared rows.
    class Mean {
    public:
        explicit Mean(uint32_t fraction) : fy_(EachLane(fraction)), upperFy_(EachLane(fraction << 8)) {}

        __m128i operator()(const FourColumns &above, const FourColumns &below, __m128i fx) const {
            const __m128i w11 = _mm_mulhi_epu16(fx, upperFy_);
            return JoinUpperBytes(Of(above.blueRed, below.blueRed, w11), Of(above.greenAlpha, below.greenAlpha, w11));
        }

    private:
        __m128i Of(const Channels &above, const Channels &below, __m128i w11) const {
            const __m128i down = _mm_mullo_epi16(_mm_sub_epi16(below.nearPixels, above.nearPixels), fy_);
            const __m128i both = _mm_mullo_epi16(_mm_sub_epi16(below.steps, above.steps), w11);
            return _mm_add_epi16(_mm_add_epi16(above.blends, down), both);
        }

        __m128i fy_, upperFy_;
    };

    /// Prepares a source row; given the prepared row above it, makes the destination row between them on the way, as
    /// the columns needn't be loaded again.
    void Prepare(Line &line, int row, const Mean &mean, const FourColumns *above, BYTE *out) {
        line.row = row;
        const BYTE *const pixels = RowOf(source_, row);
        const BYTE *const next = RowOf(source_, std::min<int64_t>(row + 1, source_.height - 1));
        FourColumns *prepared = line.columns;
        columns_.ForEachFour(
            count_, [&](ptrdiff_t i) { columns_.PrefetchAt(next, i); },
            [&](const auto &taps, ptrdiff_t i, ptrdiff_t left) {
                const __m128i fx = columns_.FractionsAt(i);
                const auto prepare = [&](__m128i nearPixels, __m128i farPixels) -> Channels {
                    const __m128i steps = _mm_sub_epi16(farPixels, nearPixels);
                    return {nearPixels, steps,
                            _mm_add_epi16(_mm_slli_epi16(nearPixels, 8), _mm_mullo_epi16(steps, fx))};
                };
                const auto [nearWords, farWords] = taps(pixels, i);
                const FourColumns four = {prepare(LowerBytes(nearWords), LowerBytes(farWords)),
                                          prepare(UpperBytes(nearWords), UpperBytes(farWords))};
                *prepared++ = four;
                if (above) StoreSome(out + i * kPixelBytes, mean(*above++, four, fx), left);
            });
    }

    void ReadPrepared(BYTE *out, ptrdiff_t count, const Mean &mean, const FourColumns *top,
                      const FourColumns *bottom) const {
        ptrdiff_t i = 0;
        for (; i + kRegisterPixels <= count; i += kRegisterPixels)
            StoreFour(out + i * kPixelBytes, mean(*top++, *bottom++, columns_.FractionsAt(i)));
        if (i < count) StoreSome(out + i * kPixelBytes, mean(*top, *bottom, columns_.FractionsAt(i)), count - i);
    }

    const SurfaceView &source_;
    BilinearColumns<Source> columns_;
    Steps down_;
    ptrdiff_t count_ = 0;
    Line lines_[2];
};

/// The direct way.
template <class Source>
class DirectBilinearFetch : public StretchFetch {
public:
    using Pixels = Source;

    DirectBilinearFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source), columns_(source, fullSize), down_(CentredSteps(source.height, fullSize.cy)) {}

    void SetColumns(int64_t first, ptrdiff_t count) { columns_.Set(first, count); }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) {
        const Rows rows = row == nextRow_ ? next_ : RowsAt(row), next = RowsAt(row + 1);
        next_ = next;
        nextRow_ = row + 1;
        const uint32_t fraction = rows.fraction;
        const __m128i fy = EachLane(fraction), upperFy = EachLane(fraction << 8), upper = EachLane(256 - fraction);
        columns_.ForEachFour(
            count,
            [&](ptrdiff_t i) {
                columns_.PrefetchAt(next.top, i);
                columns_.PrefetchAt(next.bottom, i);
            },
            [&](const auto &taps, ptrdiff_t i, ptrdiff_t left) {
                // The middle weights negated: the fewest steps from w11 to all four.
                const __m128i fx = columns_.FractionsAt(i), w11 = _mm_mulhi_epu16(fx, upperFy);
                const __m128i minus01 = _mm_sub_epi16(w11, fx), minus10 = _mm_sub_epi16(w11, fy);
                const __m128i w00 = _mm_add_epi16(minus01, upper);
                const auto sum = [&](__m128i p00, __m128i p01, __m128i p10, __m128i p11) {
                    return _mm_add_epi16(_mm_sub_epi16(_mm_mullo_epi16(p00, w00), _mm_mullo_epi16(p01, minus01)),
                                         _mm_sub_epi16(_mm_mullo_epi16(p11, w11), _mm_mullo_epi16(p10, minus10)));
                };
                const auto [p00, p01] = taps(rows.top, i);
                const auto [p10, p11] = taps(rows.bottom, i);
                const __m128i greenAlpha = sum(UpperBytes(p00), UpperBytes(p01), UpperBytes(p10), UpperBytes(p11));
                // A whole lane is 256 × its upper byte + its lower byte; so is the sum, modulo 2^16, and no byte needs
                // a mask.
                const __m128i blueRed = _mm_sub_epi16(sum(p00, p01, p10, p11), _mm_slli_epi16(greenAlpha, 8));
                StoreSome(buffer + i * kPixelBytes, JoinUpperBytes(blueRed, greenAlpha), left);
            });
        return buffer;
    }

private:
    /// The source rows of a destination row, and fy.
    struct Rows {
        const BYTE *top, *bottom;
        uint32_t fraction;
    };

    Rows RowsAt(int64_t row) const {
        const LinearTaps taps = LinearTapsAt(down_.At(row), source_.height);
        return {RowOf(source_, taps.nearIndex), RowOf(source_, taps.farIndex), static_cast<uint32_t>(taps.fraction)};
    }

    const SurfaceView &source_;
    BilinearColumns<Source> columns_;
    Steps down_;
    Rows next_{};  ///< of destination row `nextRow_`
    int64_t nextRow_ = -1;
};

}  // namespace lacquer::LACQUER_TIER
