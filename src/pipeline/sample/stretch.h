// What the stretching samplers share: positions in the source, and the walk over the destination in blocks of columns,
// so that a sampler finds the taps of a block's columns once for all rows.
#pragma once

#include <algorithm>

#include "pipeline/combine/combine_ref.h"
#include "pipeline/memory/draw_area.h"
#include "pipeline/memory/lookahead.h"
#include "pipeline/pixel/source_pixels.h"

namespace lacquer {

/// Columns of a block; a fetched run of them stays in the first-level cache.
inline constexpr int kBlockColumns = 512;

/// Source positions along one axis, 16.16 fixed point, in 64 bits: index i of the full rectangle is at first + i ×
/// step.
struct Steps {
    int64_t first, step;

    int64_t At(int64_t index) const { return first + index * step; }
};

/// From the first pixel's corner, without a half-pixel offset: positions stay below the source's size.
inline Steps CornerSteps(int64_t sourceSize, int64_t fullSize) { return {0, (sourceSize << 16) / fullSize}; }

/// From pixel centre to pixel centre. The 1 that is added to the step can carry a position past the source.
inline Steps CentredSteps(int64_t sourceSize, int64_t fullSize) {
    const int64_t step = (sourceSize << 16) / fullSize + 1;
    return {(step >> 1) - 32768, step};
}

/// The whole pixels of a position, rounded down, and the 256ths beyond them.
struct Place {
    int64_t pixel;
    int fraction;

    explicit Place(int64_t position) : pixel(position >> 16), fraction(static_cast<int>(position >> 8 & 255)) {}
};

/// An index cut to the pixels 0..size − 1.
inline int ClampIndex(int64_t index, int size) {
    return static_cast<int>(std::clamp<int64_t>(index, 0, int64_t{size} - 1));
}

/// Draws with a fetch that works on the columns of one block and one row at a time:
///   Fetch(source, fullSize), SetColumns(first, count), SetRow(row), Read(out, count)
/// where columns and rows count from the full rectangle's top-left pixel. What Read wrote stays as it is until the next
/// Read, so that a fetch may use it again.
template <class Fetch>
struct Stretched {
    using Pixels = typename Fetch::Pixels;

    template <class Combine>
    static void Draw(const SurfaceView &dest, const SurfaceView &source, const DrawArea &area, const Combine &combine) {
        if constexpr (Combine::kCopies) {
            DrawRuns(dest, source, area, {});
        } else {
            DrawRuns(dest, source, area, CombineRef(combine));
        }
    }

private:
    /// Without a combine rule the fetch writes into the destination itself.
    static void DrawRuns(const SurfaceView &dest, const SurfaceView &source, const DrawArea &area, CombineRef combine) {
        Fetch fetch(source, area.fullSize);
        const bool looksAhead = combine && Lookahead::Pays(dest);
        BYTE run[kBlockColumns * kPixelBytes];
        for (int64_t x = 0; x < dest.width; x += kBlockColumns) {
            const int count = static_cast<int>(std::min<int64_t>(kBlockColumns, dest.width - x));
            fetch.SetColumns(area.visibleOffset.x + x, count);
            for (int64_t y = 0; y < dest.height; ++y) {
                fetch.SetRow(area.visibleOffset.y + y);
                if (looksAhead && y + 1 < dest.height)
                    PrefetchBytes(RowOf(dest, y + 1) + x * kPixelBytes, count * kPixelBytes);
                BYTE *const out = RowOf(dest, y) + x * kPixelBytes;
                fetch.Read(combine ? run : out, count);
                if (combine) combine.Run(out, run, count);
            }
        }
    }
};

}  // namespace lacquer
