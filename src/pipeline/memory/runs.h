// How the pixels of a view lie behind each other, and in which portions a kernel takes them.
#pragma once

#include "pipeline/memory/view_rows.h"

namespace lacquer {

/// Pixels behind each other, each run beginning a row of the view.
struct Runs {
    ptrdiff_t length, count;
};

/// Portions of runs, so many columns of so many runs each. A kernel takes one after the other from left to right and
/// from the top down, and in each of them run after run.
struct Tiles {
    ptrdiff_t columns, runs;
};

/// Whether the rows of a view follow each other without a gap.
inline bool IsContiguous(const SurfaceView &view) {
    return int64_t{view.stride} * 8 == int64_t{view.width} * view.bitsPerPixel;
}

/// The rows of a view, or all of them as one where nothing lies between them.
inline Runs RunsOf(const SurfaceView &view, bool joined) {
    return joined ? Runs{ptrdiff_t{view.width} * view.height, 1} : Runs{view.width, view.height};
}

}  // namespace lacquer
