// Bilinear draws that leave one side's size as it is, such as the edges of nine-grids: there the mean is one of two
// pixels.
#pragma once

#include "pipeline/combine/run_simd.h"
#include "pipeline/pixel/source_pixels_simd.h"
#include "pipeline/sample/bilinear.h"

namespace lacquer::LACQUER_TIER {

/// What MixFour gives where one of the two fractions is 0: (256 P + f (Q − P)) / 256 in each channel.
/// `fraction`: in each lane.
template <Register V>
inline V MixTwo(V nearWords, V farWords, V fraction) {
    const auto mix = [fraction](V p, V q) {
        return AddLanes(ShiftLanesUp<8>(p), MultiplyLanes(SubtractLanes(q, p), fraction));
    };
    return JoinUpperBytes(mix(LowerBytes(nearWords), LowerBytes(farWords)),
                          mix(UpperBytes(nearWords), UpperBytes(farWords)));
}

/// The way of draws whose columns keep their width: each mean is one of two pixels in a column.
template <class Source>
class ColumnBilinearFetch : public StretchFetch<> {
public:
    using Pixels = Source;

    /// The step from pixel to pixel is a little more than 1: from the column 256 on there are fractions.
    static bool Suits(const SurfaceView &source, SIZE fullSize) {
        return source.width == fullSize.cx && source.width <= 256;
    }

    ColumnBilinearFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source), pixels_(source), down_(CentredSteps(source.height, fullSize.cy)) {}

    void SetColumns(int64_t first, ptrdiff_t count) {
        first_ = static_cast<ptrdiff_t>(first);
        count_ = count;
        lines_[0].row = lines_[1].row = -1;
    }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) {
        const LinearTaps taps = LinearTapsAt(down_.At(row), source_.height);
        const BYTE *const top = WordsOf(taps.nearIndex);
        if (taps.fraction == 0) return top;
        const auto fraction = static_cast<uint32_t>(taps.fraction);
        const auto mix = [fraction]<Register V>(V p, V q, V) { return MixTwo(p, q, EachLane<V>(fraction)); };
        LACQUER_TIER::MapRun(buffer, count, mix, top, WordsOf(taps.farIndex));
        return buffer;
    }

private:
    static constexpr bool kIsWords = Source::kBitsPerPixel == 32;

    /// A source row's columns as words.
    struct Line {
        int row;
        BYTE words[kIsWords ? 1 : 256 * kPixelBytes];
    };

    const BYTE *WordsOf(int row) {
        const BYTE *const pixels = RowOf(source_, row) + first_ * (Source::kBitsPerPixel / 8);
        if constexpr (kIsWords) return pixels;
        // The two rows that a destination row needs are neighbours, so they have a line each.
        Line &line = lines_[row & 1];
        if (line.row != row) {
            line.row = row;
            LACQUER_TIER::ExpandPixels(line.words, pixels_.GetReader(), pixels, count_);
        }
        return line.words;
    }

    const SurfaceView &source_;
    Source pixels_;
    Steps down_;
    ptrdiff_t first_ = 0, count_ = 0;
    Line lines_[2];
};

}  // namespace lacquer::LACQUER_TIER
