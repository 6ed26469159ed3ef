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

    /// How a walk over 32-bit pixels knows its rule.
    template <class Combine>
    static RunRef Known(const Combine &combine) {
        return RunRef(combine);
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
            if constexpr (requires { typename Combine::Plain; }) {
                if (!IsWorthLooking(runs)) return Walk<typename Combine::Plain>(dest, source, area, runs, combine);
            }
            Walk<Combine>(dest, source, area, runs, combine);
        }
    }

private:
    /// Whether a rule that looks at its source gains by it. Short runs leave no time for it, and all that follows would
    /// wait for a source from further away than the second-level cache.
    static bool IsWorthLooking(const Runs &runs) {
        return runs.length >= 64 && 2 * runs.length * runs.count * kPixelBytes <= memoryLimits.secondLevelBytes;
    }

    template <class Rule>
    static void Walk(const SurfaceView &dest, const SurfaceView &source, const DrawArea &area, const Runs &runs,
                     const Rule &rule) {
        const auto &known = SourceRuns::Known(rule);
        if (Lookahead::Pays(runs)) return DrawTiles<Fetch>(dest, source, area, known);
        for (ptrdiff_t y = 0; y < runs.count; ++y) known.Run(RowOf(dest, y), RowOf(source, y), runs.length);
    }

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
