// Where the pixels of a draw lie: the full destination rectangle, and which part of it the destination view shows.
#pragma once

#include "pipeline/memory/view_rows.h"

namespace lacquer {

struct DrawArea {
    SIZE fullSize;        ///< of the whole destination rectangle, pixels
    POINT visibleOffset;  ///< of the view's top-left pixel inside it
};

/// A draw of which everything is visible.
inline DrawArea WholeArea(const SurfaceView &dest) { return {{dest.width, dest.height}, {0, 0}}; }

/// Whether a kernel may write into a view.
inline bool CanFill(const SurfaceView &dest) { return dest.bitsPerPixel == 32 && dest.width > 0 && dest.height > 0; }

/// Whether a kernel that reads `sourceBits` per pixel may run: 32-bit destination, a source of its own depth, nothing
/// empty, and the view inside the full rectangle.
bool CanDraw(const SurfaceView &dest, const SurfaceView &source, int sourceBits, const DrawArea &area);

}  // namespace lacquer
