// The area sampler of the SSE2 tier, for footprints up to 16 × 16 pixels. Pixels of other depths are expanded first, so
// that the sums are written once, for words.
#pragma once

#include "pipeline/pixel/pixel_sse2.h"
#include "pipeline/pixel/source_pixels_sse2.h"
#include "pipeline/sample/area.h"

#ifdef LACQUER_SSE2

namespace lacquer {

/// What has a faster form: footprints of up to this many pixels across and down.
inline constexpr int64_t kLongestFootprint = 16;

/// The words of the source that one row of means is made of.
struct WordRows {
    const BYTE *pixels;  ///< first row, column `firstColumn`
    ptrdiff_t stride, firstColumn;
};

/// The blocks of whole pixels that a draw divides its source into.
struct WholeRatio {
    int columns = 0, rows = 0;  ///< 0 where it doesn't, or where the means have no such formula
    uint32_t inverse = 0;       ///< sum × inverse >> 16 is a block's mean

    WholeRatio(const Steps &across, const Steps &down);
};

/// The means of `count` blocks side by side, from the first column on.
void MeansOfBlocks(BYTE *out, ptrdiff_t count, const WordRows &source, const WholeRatio &ratio);

/// The means of `count` footprints in a row.
void MeansOfFootprints(BYTE *out, ptrdiff_t count, const WordRows &source, const Footprint *columns,
                       const Footprint &rows);

template <class Source>
class VectorAreaFetch {
public:
    using Pixels = Source;

    VectorAreaFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source),
          pixels_(source),
          general_(source, fullSize),
          across_(CornerSteps(source.width, fullSize.cx)),
          down_(CornerSteps(source.height, fullSize.cy)),
          ratio_(across_, down_),
          isNarrow_(across_.step <= kLongestFootprint << 16 && down_.step <= kLongestFootprint << 16) {}

    void SetColumns(int64_t first, int count) {
        if (!isNarrow_) return general_.SetColumns(first, count);
        firstColumn_ = first;
        if (ratio_.columns > 0) return;
        for (int i = 0; i < count; ++i) columns_[i] = FootprintOf(across_, first + i);
    }

    void SetRow(int64_t row) {
        if (!isNarrow_) return general_.SetRow(row);
        rows_ = FootprintOf(down_, row);
    }

    void Read(BYTE *out, int count) {
        if (!isNarrow_) return general_.Read(out, count);
        const ptrdiff_t step = Source::kBitsPerPixel == 32 ? count : ((kExpandedColumns - 2) << 16) / across_.step;
        for (ptrdiff_t i = 0; i < count; i += step) {
            const ptrdiff_t part = std::min(step, count - i);
            BYTE *const means = out + i * kPixelBytes;
            const ptrdiff_t first = FootprintOf(across_, firstColumn_ + i).first;
            const WordRows words = Words(first, FootprintOf(across_, firstColumn_ + i + part - 1).last + 1);
            if (ratio_.columns > 0) {
                MeansOfBlocks(means, part, words, ratio_);
            } else {
                MeansOfFootprints(means, part, words, columns_ + i, rows_);
            }
        }
    }

private:
    static constexpr ptrdiff_t kExpandedColumns = Source::kBitsPerPixel == 32 ? 0 : 256;

    /// The present rows from column `first` up to `end`.
    WordRows Words(ptrdiff_t first, ptrdiff_t end) {
        if constexpr (Source::kBitsPerPixel == 32) {
            return {RowOf(source_, rows_.first) + first * kPixelBytes, source_.stride, first};
        } else {
            constexpr ptrdiff_t kStride = kExpandedColumns * kPixelBytes;
            BYTE *out = expanded_;
            for (int row = rows_.first; row <= rows_.last; ++row, out += kStride) {
                FetchFour::Fetch(out, pixels_.GetReader(), RowOf(source_, row), first, end - first, source_.width);
            }
            return {expanded_, kStride, first};
        }
    }

    const SurfaceView &source_;
    Source pixels_;
    AreaFetch<Source> general_;
    Steps across_, down_;
    WholeRatio ratio_;
    bool isNarrow_;
    int64_t firstColumn_ = 0;
    Footprint rows_ = {};
    Footprint columns_[kBlockColumns];
    BYTE expanded_[kExpandedColumns * kPixelBytes * (kLongestFootprint + 1) + 1];
};

}  // namespace lacquer

#endif
