// Sampling 1:1: each destination pixel has the source pixel of the same place.
#pragma once

#include "pipeline/memory/copy_rows.h"
#include "pipeline/pixel/source_pixels.h"
#include "pipeline/sample/draw.h"

namespace lacquer {

/// What the base tier does with whole runs of source pixels.
struct BaseRuns {
    template <class... Arguments>
    static void Expand(Arguments... arguments) {
        ExpandPixels(arguments...);
    }
    static constexpr auto Copy = CopyRows;
};

/// 32-bit pixels are not fetched: their rows are the words already.
template <class Source, class SourceRuns>
class SameSizeFetch {
public:
    SameSizeFetch(const SurfaceView &source, const Runs &runs, const Tiles &tiles, bool looksAhead)
        : source_(source), pixels_(source), length_(runs.length), ahead_(source, runs, tiles, looksAhead) {}

    void SetColumns(int64_t first, ptrdiff_t /*count*/) { first_ = static_cast<ptrdiff_t>(first); }

    void SetRow(int64_t row) {
        in_ = RowOf(source_, row) + first_ * (Source::kBitsPerPixel / 8);
        ahead_.Advance();
    }

    const BYTE *Read(BYTE *buffer, ptrdiff_t count) const {
        if constexpr (Source::kBitsPerPixel == 32) {
            return in_;
        } else {
            SourceRuns::Expand(buffer, pixels_.GetReader(), in_, count, length_ - first_);
            return buffer;
        }
    }

private:
    const SurfaceView &source_;
    Source pixels_;
    ptrdiff_t length_, first_ = 0;
    const BYTE *in_ = nullptr;
    Lookahead ahead_;
};

/// Draws the common top-left part of both views. `SourceRuns`: BaseRuns, or those of a faster tier.
template <class Source, class SourceRuns = BaseRuns>
struct SameSize {
    using Pixels = Source;

    template <class Combine>
    static void Draw(const SurfaceView &dest, const SurfaceView &source, const DrawArea & /*area*/,
                     const Combine &combine) {
        SurfaceView common = dest;
        common.width = std::min(dest.width, source.width);
        common.height = std::min(dest.height, source.height);
        const bool joined = dest.width == source.width && IsContiguous(dest) && IsContiguous(source);
        const Runs runs = RunsOf(common, joined);
        if constexpr (!kIsWords) {
            DrawRuns(common, source, runs, RunRef(combine));
        } else if constexpr (Combine::kCopies) {
            SourceRuns::Copy(common, source, runs.length * kPixelBytes, runs.count);
        } else {
            // A rule that the compiler knows: for the many short rows of a small draw it is not even a call.
            DrawRuns(common, source, runs, combine);
        }
    }

private:
    static constexpr bool kIsWords = Source::kBitsPerPixel == 32;

    /// In pieces where there is something to fetch or to look ahead for.
    template <class Combine>
    static void DrawRuns(const SurfaceView &common, const SurfaceView &source, const Runs &runs,
                         const Combine &combine) {
        const bool looksAhead = !combine.Copies() && Lookahead::Pays(common);
        const bool whole = combine.Copies() || (kIsWords && !looksAhead);
        const Tiles tiles = whole ? Tiles{runs.length, runs.count} : Tiles{Lookahead::kPiecePixels, 1};
        DrawTiles<SameSizeFetch<Source, SourceRuns>>(common, {0, 0}, runs, tiles, combine, source, runs, tiles,
                                                     looksAhead);
    }
};

}  // namespace lacquer
