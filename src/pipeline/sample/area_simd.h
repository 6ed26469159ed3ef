// The area sampler of the SSE2 tier, for footprints up to 16 × 16 pixels. Pixels of other depths are expanded first, so
// that the sums are written once, for words.
#pragma once

#include "pipeline/pixel/source_pixels_simd.h"
#include "pipeline/sample/area.h"
#include "pipeline/sample/area_means_simd.h"

namespace lacquer::LACQUER_TIER {

/// The footprints of a row, and the words under them.
template <class Source>
class AreaRow {
public:
    AreaRow(const SurfaceView &source, SIZE fullSize)
        : source_(source),
          pixels_(source),
          across_(CornerSteps(source.width, fullSize.cx)),
          down_(CornerSteps(source.height, fullSize.cy)) {}

    void SetRow(int64_t row) { rows_ = FootprintOf(down_, row); }

    const Footprint &Rows() const { return rows_; }
    Footprint Columns(int64_t index) const { return FootprintOf(across_, index); }

    /// Calls part(i, count, words) for `count` of the destination's columns from first + i on, as many at a time as
    /// there is room to expand what they cover.
    template <class Part>
    void ForEachPart(int64_t first, ptrdiff_t count, const Part &part) {
        const ptrdiff_t step = kIsWords ? count : ((kExpandedColumns - 2) << 16) / across_.step;
        for (ptrdiff_t i = 0; i < count; i += step) {
            const ptrdiff_t columns = std::min(step, count - i);
            part(i, columns, Words(Columns(first + i).first, Columns(first + i + columns - 1).last + 1));
        }
    }

private:
    static constexpr ptrdiff_t kSourceBytes = Source::kBitsPerPixel / 8;
    static constexpr bool kIsWords = kSourceBytes == kPixelBytes;
    static constexpr ptrdiff_t kExpandedColumns = kIsWords ? 0 : 256;

    /// The present rows from column `first` up to `end`.
    WordRows Words(ptrdiff_t first, ptrdiff_t end) {
        if constexpr (kIsWords) {
            return {RowOf(source_, rows_.first) + first * kPixelBytes, source_.stride, first};
        } else {
            constexpr ptrdiff_t kStride = kExpandedColumns * kPixelBytes;
            BYTE *out = expanded_;
            for (int row = rows_.first; row <= rows_.last; ++row, out += kStride) {
                const BYTE *const pixels = RowOf(source_, row) + first * kSourceBytes;
                LACQUER_TIER::ExpandPixels(out, pixels_.GetReader(), pixels, end - first);
            }
            return {expanded_, kStride, first};
        }
    }

    const SurfaceView &source_;
    Source pixels_;
    Steps across_, down_;
    Footprint rows_ = {};
    BYTE expanded_[kExpandedColumns * kPixelBytes * (kLongestFootprint + 1) + 1];
};

/// The way of draws that divide the source into blocks of whole pixels.
template <class Source>
class BlockFetch : public StretchFetch<> {
public:
    using Pixels = Source;

    static bool Suits(const SurfaceView &source, SIZE fullSize) {
        return AreaFetch<Source>::Suits(source, fullSize) && WholeRatio(source, fullSize).columns > 0;
    }

    BlockFetch(const SurfaceView &source, SIZE fullSize) : row_(source, fullSize), ratio_(source, fullSize) {}

    void SetColumns(int64_t first, ptrdiff_t /*count*/) { first_ = first; }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) {
        row_.SetRow(row);
        row_.ForEachPart(first_, count, [&](ptrdiff_t i, ptrdiff_t part, const WordRows &words) {
            MeansOfBlocks(buffer + i * kPixelBytes, part, words, ratio_);
        });
        return buffer;
    }

private:
    AreaRow<Source> row_;
    WholeRatio ratio_;
    int64_t first_ = 0;
};

/// The way of other draws.
template <class Source>
class FootprintFetch : public StretchFetch<> {
public:
    using Pixels = Source;

    static bool Suits(const SurfaceView &source, SIZE fullSize) {
        const auto isNarrow = [](int64_t size, int64_t full) {
            return CornerSteps(size, full).step <= kLongestFootprint << 16;
        };
        return AreaFetch<Source>::Suits(source, fullSize) && isNarrow(source.width, fullSize.cx) &&
               isNarrow(source.height, fullSize.cy);
    }

    FootprintFetch(const SurfaceView &source, SIZE fullSize) : row_(source, fullSize) {}

    void SetColumns(int64_t first, ptrdiff_t count) {
        first_ = first;
        for (ptrdiff_t i = 0; i < count; ++i) columns_[i] = row_.Columns(first + i);
    }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) {
        row_.SetRow(row);
        row_.ForEachPart(first_, count, [&](ptrdiff_t i, ptrdiff_t part, const WordRows &words) {
            MeansOfFootprints(buffer + i * kPixelBytes, part, words, columns_ + i, row_.Rows());
        });
        return buffer;
    }

private:
    AreaRow<Source> row_;
    int64_t first_ = 0;
    Footprint columns_[kBlockColumns];
};

}  // namespace lacquer::LACQUER_TIER
