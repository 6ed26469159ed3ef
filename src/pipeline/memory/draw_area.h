// Where the pixels of a draw lie: the full destination rectangle, and which part of it the destination view shows.
#pragma once

#include "pipeline/memory/view_rows.h"
#include "pipeline/pixel/pixel.h"

namespace lacquer {

struct DrawArea {
    SIZE fullSize;        ///< of the whole destination rectangle, pixels
    POINT visibleOffset;  ///< of the view's top-left pixel inside it
};

/// A draw of which everything is visible.
inline DrawArea WholeArea(const SurfaceView &dest) { return {{dest.width, dest.height}, {0, 0}}; }

/// Whether the rows of a view follow each other without a gap.
inline bool IsContiguous(const SurfaceView &view) {
    return int64_t{view.stride} * 8 == int64_t{view.width} * view.bitsPerPixel;
}

/// How a draw walks over its pixels.
struct Runs {
    ptrdiff_t length, count;  ///< pixels of a run, runs
};

/// The rows of a view, or all of them as one where nothing lies between them.
inline Runs RunsOf(const SurfaceView &view, bool joined) {
    return joined ? Runs{ptrdiff_t{view.width} * view.height, 1} : Runs{view.width, view.height};
}

/// Whether a kernel that reads `sourceBits` per pixel may run: 32-bit destination, a source of its own depth, nothing
/// empty, and the view inside the full rectangle.
inline bool CanDraw(const SurfaceView &dest, const SurfaceView &source, int sourceBits, const DrawArea &area) {
    const auto inside = [](int64_t offset, int64_t size, int64_t fullSize) {
        return offset >= 0 && size > 0 && offset + size <= fullSize;
    };
    return dest.bitsPerPixel == 32 && source.bitsPerPixel == sourceBits && source.width > 0 && source.height > 0 &&
           inside(area.visibleOffset.x, dest.width, area.fullSize.cx) &&
           inside(area.visibleOffset.y, dest.height, area.fullSize.cy);
}

}  // namespace lacquer
