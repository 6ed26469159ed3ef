// The bilinear sampler of the faster tiers. MixFour's mean is, with the top pixels P and Q (near and far), E = Q − P,
// and dP, dE the differences from the row above to the row below,
//
//   256 P + fx E + fy dP + (fx fy >> 8) dE,
//
// where everything but fy belongs to one source row. So a draw that uses source rows several times prepares each row
// once for a block's columns, and two prepared rows give a destination row. Other draws weight the four pixels
// directly. Both work on a register of words at a time, blue and red apart from green and alpha, so that one register
// holds a weight of all of them. Lanes may wrap on the way: the mean itself is below 2^16.
#pragma once

#include "pipeline/pixel/pixel_simd.h"
#include "pipeline/sample/bilinear.h"
#include "pipeline/sample/linear_simd.h"

namespace lacquer::LACQUER_TIER {

/// Where the columns of a block find their taps.
struct BilinearBlock {
    ptrdiff_t inside;              ///< the leading columns whose taps may be read at once
    int nearBytes[kBlockColumns];  ///< the byte of the near pixel in its row
    alignas(kBytesOf<Widest>) uint32_t fractions[kBlockColumns];  ///< fx in both lanes

    /// For columns at `first` and after it in steps. `pixelBytes`: of a source pixel; `tapBytes`: what is read at once.
    void Set(const Steps &steps, int64_t first, ptrdiff_t count, int width, ptrdiff_t pixelBytes, ptrdiff_t tapBytes) {
        constexpr uint32_t kBothLanes = 0x00010001;
        for (ptrdiff_t i = 0; i < count; ++i) {
            const LinearTaps taps = LinearTapsAt(steps.At(first + i), width);
            // Where one pixel is both taps it stands for one of two neighbours, so that these can be read at once: the
            // first pixel for the near one, the last pixel for the far one.
            const bool isOne = taps.farIndex == taps.nearIndex, isLast = isOne && taps.nearIndex > 0;
            const int fraction = isLast ? 256 : isOne ? 0 : taps.fraction;
            nearBytes[i] = static_cast<int>((taps.nearIndex - isLast) * pixelBytes);
            fractions[i] = static_cast<uint32_t>(fraction) * kBothLanes;
        }
        // The columns that fill up the last register repeat the last one.
        for (ptrdiff_t i = count; i % kPixelsOf<Widest> != 0; ++i) {
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
    /// The near and the far words of a register's columns.
    struct TapWords {
        Widest nearWords, farWords;
    };

    BilinearColumns(const SurfaceView &source, SIZE fullSize)
        : width_(source.width), pixels_(source), across_(CentredSteps(source.width, fullSize.cx)) {}

    void Set(int64_t first, ptrdiff_t count) { block_.Set(across_, first, count, width_, kSourceBytes, kTapBytes); }

    /// fx in both lanes of a register's columns.
    Widest FractionsAt(ptrdiff_t i) const { return Load<Widest>(block_.fractions + i); }

    void PrefetchAt(const BYTE *pixels, ptrdiff_t i) const { PrefetchLine(pixels + block_.nearBytes[i]); }

    /// Calls work(taps, i, left) for the block's first `count` columns, a register's at a time; taps(row, i) gives
    /// their taps, `left` is the number of columns that are left.
    template <class Prefetch, class Work>
    void ForEachRegister(ptrdiff_t count, const Prefetch &prefetch, const Work &work) const {
        const auto inside = [this](const BYTE *pixels, ptrdiff_t i) { return TapsInside(pixels, i); };
        const auto anywhere = [this](const BYTE *pixels, ptrdiff_t i) { return Taps(pixels, i); };
        const ptrdiff_t end = block_.inside < count ? block_.inside - kPixelsOf<Widest> + 1 : count;
        ptrdiff_t i = 0;
        for (; i < end; i += kPixelsOf<Widest>) {
            prefetch(i);
            work(inside, i, count - i);
        }
        for (; i < count; i += kPixelsOf<Widest>) work(anywhere, i, count - i);
    }

private:
    static constexpr ptrdiff_t kSourceBytes = Source::kBitsPerPixel / 8;
    /// What TapsInside reads.
    static constexpr ptrdiff_t kTapBytes = Source::kBitsPerPixel == 8 ? 2 : 8;

    /// The pixels of the columns from i on, and those that follow them; at the row's end the last one twice.
    TapWords Taps(const BYTE *pixels, ptrdiff_t i) const {
        const ptrdiff_t last = (width_ - 1) * kSourceBytes;
        return TapsOf(pixels, i, [last](ptrdiff_t pixel) { return std::min(pixel + kSourceBytes, last); });
    }

    /// The same for columns whose taps may be read at once.
    TapWords TapsInside(const BYTE *pixels, ptrdiff_t i) const {
        if constexpr (Source::kBitsPerPixel == 8) {
            return TapsOf(pixels, i, [](ptrdiff_t pixel) { return pixel + kSourceBytes; });
        } else {
            const int *const bytes = block_.nearBytes + i;
            const auto pairs = [&](ptrdiff_t k) { return LoadTwoAndTwo(pixels + bytes[k], pixels + bytes[k + 1]); };
            const auto first = BySixteens<Widest>([&](ptrdiff_t k) { return pairs(4 * k); });
            const auto second = BySixteens<Widest>([&](ptrdiff_t k) { return pairs(4 * k + 2); });
            if constexpr (Source::kBitsPerPixel == 32) {
                return {PickWords<0, 2>(first, second), PickWords<1, 3>(first, second)};
            } else {
                const Widest next = PickWords<0, 2>(ShiftPairsDown<24>(first), ShiftPairsDown<24>(second));
                const Widest opaque = EachWord<Widest>(kOpaque);
                return {Or(PickWords<0, 2>(first, second), opaque), Or(next, opaque)};
            }
        }
    }

    template <class Next>
    TapWords TapsOf(const BYTE *pixels, ptrdiff_t i, const Next &next) const {
        const auto read = pixels_.GetReader();
        const int *const bytes = block_.nearBytes + i;
        const auto words = [](const auto &word) {
            return BySixteens<Widest>(
                [&](ptrdiff_t k) { return FourWords(word(4 * k), word(4 * k + 1), word(4 * k + 2), word(4 * k + 3)); });
        };
        return {words([&](ptrdiff_t k) { return read(pixels + bytes[k], 0); }),
                words([&](ptrdiff_t k) { return read(pixels + next(bytes[k]), 0); })};
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
class PreparedBilinearFetch : public StretchFetch<> {
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
    /// One source row at a register's columns, two channels of each: P, E and 256 P + fx E.
    struct Channels {
        Widest nearPixels, steps, blends;
    };

    struct Columns {
        Channels blueRed, greenAlpha;
    };

    struct Line {
        int row;
        Columns columns[kBlockColumns / kPixelsOf<Widest>];
    };

    /// The two rows that a destination row needs are neighbours, so they have a line each.
    Line &LineOf(int row) { return lines_[row & 1]; }

    /// The destination row between two prepared rows.
    class Mean {
    public:
        explicit Mean(uint32_t fraction) : fy_(EachLane<Widest>(fraction)), upperFy_(EachLane<Widest>(fraction << 8)) {}

        Widest operator()(const Columns &above, const Columns &below, Widest fx) const {
            const Widest w11 = MultiplyLanesHigh(fx, upperFy_);
            return JoinUpperBytes(Of(above.blueRed, below.blueRed, w11), Of(above.greenAlpha, below.greenAlpha, w11));
        }

    private:
        Widest Of(const Channels &above, const Channels &below, Widest w11) const {
            const Widest down = MultiplyLanes(SubtractLanes(below.nearPixels, above.nearPixels), fy_);
            const Widest both = MultiplyLanes(SubtractLanes(below.steps, above.steps), w11);
            return AddLanes(AddLanes(above.blends, down), both);
        }

        Widest fy_, upperFy_;
    };

    /// Prepares a source row; given the prepared row above it, makes the destination row between them on the way, as
    /// the columns needn't be loaded again.
    void Prepare(Line &line, int row, const Mean &mean, const Columns *above, BYTE *out) {
        line.row = row;
        const BYTE *const pixels = RowOf(source_, row);
        const BYTE *const next = RowOf(source_, std::min<int64_t>(row + 1, source_.height - 1));
        Columns *prepared = line.columns;
        columns_.ForEachRegister(
            count_, [&](ptrdiff_t i) { columns_.PrefetchAt(next, i); },
            [&](const auto &taps, ptrdiff_t i, ptrdiff_t left) {
                const Widest fx = columns_.FractionsAt(i);
                const auto prepare = [&](Widest nearPixels, Widest farPixels) -> Channels {
                    const Widest steps = SubtractLanes(farPixels, nearPixels);
                    return {nearPixels, steps, AddLanes(ShiftLanesUp<8>(nearPixels), MultiplyLanes(steps, fx))};
                };
                const auto [nearWords, farWords] = taps(pixels, i);
                const Columns four = {prepare(LowerBytes(nearWords), LowerBytes(farWords)),
                                      prepare(UpperBytes(nearWords), UpperBytes(farWords))};
                *prepared++ = four;
                if (above) StoreSome(out + i * kPixelBytes, mean(*above++, four, fx), left);
            });
    }

    void ReadPrepared(BYTE *out, ptrdiff_t count, const Mean &mean, const Columns *top, const Columns *bottom) const {
        ptrdiff_t i = 0;
        for (; i + kPixelsOf<Widest> <= count; i += kPixelsOf<Widest>)
            Store(out + i * kPixelBytes, mean(*top++, *bottom++, columns_.FractionsAt(i)));
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
class DirectBilinearFetch : public StretchFetch<> {
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
        if (fraction == 0) {
            ReadRow(rows.top, next.top, buffer, count);
            return buffer;
        }
        const Widest fy = EachLane<Widest>(fraction), upperFy = EachLane<Widest>(fraction << 8),
                     upper = EachLane<Widest>(256 - fraction);
        columns_.ForEachRegister(
            count,
            [&](ptrdiff_t i) {
                columns_.PrefetchAt(next.top, i);
                columns_.PrefetchAt(next.bottom, i);
            },
            [&](const auto &taps, ptrdiff_t i, ptrdiff_t left) {
                // The middle weights negated: the fewest steps from w11 to all four.
                const Widest fx = columns_.FractionsAt(i), w11 = MultiplyLanesHigh(fx, upperFy);
                const Widest minus01 = SubtractLanes(w11, fx), minus10 = SubtractLanes(w11, fy);
                const Widest w00 = AddLanes(minus01, upper);
                const auto sum = [&](Widest p00, Widest p01, Widest p10, Widest p11) {
                    return AddLanes(SubtractLanes(MultiplyLanes(p00, w00), MultiplyLanes(p01, minus01)),
                                    SubtractLanes(MultiplyLanes(p11, w11), MultiplyLanes(p10, minus10)));
                };
                const auto [p00, p01] = taps(rows.top, i);
                const auto [p10, p11] = taps(rows.bottom, i);
                const Widest greenAlpha = sum(UpperBytes(p00), UpperBytes(p01), UpperBytes(p10), UpperBytes(p11));
                // A whole lane is 256 × its upper byte + its lower byte; so is the sum, modulo 2^16, and no byte needs
                // a mask.
                const Widest blueRed = SubtractLanes(sum(p00, p01, p10, p11), ShiftLanesUp<8>(greenAlpha));
                StoreSome(buffer + i * kPixelBytes, JoinUpperBytes(blueRed, greenAlpha), left);
            });
        return buffer;
    }

private:
    /// A destination row of one source row; `next` will be needed soon.
    void ReadRow(const BYTE *pixels, const BYTE *next, BYTE *buffer, ptrdiff_t count) const {
        columns_.ForEachRegister(
            count, [&](ptrdiff_t i) { columns_.PrefetchAt(next, i); },
            [&](const auto &taps, ptrdiff_t i, ptrdiff_t left) {
                const auto [nearWords, farWords] = taps(pixels, i);
                StoreSome(buffer + i * kPixelBytes, MixTwo(nearWords, farWords, columns_.FractionsAt(i)), left);
            });
    }

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
