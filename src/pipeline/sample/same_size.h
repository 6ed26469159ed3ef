// Sampling 1:1: each destination pixel has the source pixel of the same place.
#pragma once

#include "pipeline/memory/copy_rows.h"
#include "pipeline/pixel/source_pixels.h"
#include "pipeline/sample/draw.h"

namespace lacquer {

/// What the base tier does with whole runs of source pixels.
struct BaseRuns {
    template <class Reader>
    static void Expand(BYTE *out, Reader read, const BYTE *pixels, ptrdiff_t count) {
        ExpandPixels(out, read, pixels, count);
    }
    static constexpr auto Copy = CopyRows;

    /// Calls walk(rule) with the form in which a walk over 32-bit pixels knows its rule.
    template <class Combine, class Walk>
    static void WithRule(const Combine &combine, const Runs & /*source*/, const Walk &walk) {
        walk(RunRef(combine));
    }
};

/// The runs of the top-left part that two views have in common.
inline Runs CommonRuns(const SurfaceView &dest, const SurfaceView &source) {
    const Runs rows = {std::min(dest.width, source.width), std::min(dest.height, source.height)};
    const bool joined = dest.width == source.width && IsContiguous(dest) && IsContiguous(source);
    return joined ? Runs{rows.length * rows.count, 1} : rows;
}

/// 32-bit pixels are not fetched: their rows are the words already.
template <class Source, class SourceRuns>
class SameSizeFetch {
public:
    static constexpr bool kIsWords = Source::kBitsPerPixel == 32, kInOrder = true;

    static DrawPlan PlanOf(const SurfaceView &dest, const SurfaceView &source, bool /*copies*/) {
        return {CommonRuns(dest, source), {Lookahead::kPiecePixels, 1}};
    }

    SameSizeFetch(const SurfaceView &source, SIZE /*fullSize*/)
        : pixels_(source), first_(RowOf(source, 0)), stride_(source.stride) {}

    void SetColumns(int64_t first, ptrdiff_t /*count*/) {
        offset_ = static_cast<ptrdiff_t>(first) * (Source::kBitsPerPixel / 8);
    }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) const {
        const BYTE *const in = first_ + static_cast<ptrdiff_t>(row) * stride_ + offset_;
        if constexpr (kIsWords) {
            return in;
        } else {
            SourceRuns::Expand(buffer, pixels_.GetReader(), in, count);
            return buffer;
        }
    }

private:
    Source pixels_;
    const BYTE *first_;
    ptrdiff_t stride_, offset_ = 0;
};

/// Draws the common top-left part of both views. `SourceRuns`: BaseRuns, or those of a faster tier.
template <class Source, class SourceRuns = BaseRuns>
struct SameSize {
    using Pixels = Source;
    using Fetch = SameSizeFetch<Source, SourceRuns>;

    template <class Combine>
    static void Draw(const SurfaceView &dest, const SurfaceView &source, const DrawArea &area, const Combine &combine) {
        const Runs runs = CommonRuns(dest, source);
        if constexpr (Combine::kCopies) {
            Copy(dest, source, runs);
        } else if constexpr (!Fetch::kIsWords) {
            DrawTiles<Fetch>(dest, source, area, RunRef(combine));
        } else {
            SourceRuns::WithRule(combine, runs, [&](const auto &rule) {
                if (Lookahead::Pays(runs)) return DrawTiles<Fetch>(dest, source, area, rule);
                for (ptrdiff_t y = 0; y < runs.count; ++y) rule.Run(RowOf(dest, y), RowOf(source, y), runs.length);
            });
        }
    }

private:
    static void Copy(const SurfaceView &dest, const SurfaceView &source, const Runs &runs) {
        if constexpr (Fetch::kIsWords) {
            SourceRuns::Copy(dest, source, runs.length * kPixelBytes, runs.count);
        } else {
            const Source pixels(source);
            for (ptrdiff_t y = 0; y < runs.count; ++y) {
                SourceRuns::Expand(RowOf(dest, y), pixels.GetReader(), RowOf(source, y), runs.length);
            }
        }
    }
};

}  // namespace lacquer
