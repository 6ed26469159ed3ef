// Quarter turns, mirrors and transpositions of whole views: every pixel moves, none changes. The kernels differ by the
// size of a pixel.
#pragma once

#include "pipeline/memory/view_rows.h"
#include "pipeline/table/image_table.h"

namespace lacquer {

/// Where the destination's pixel (0, 0) comes from, and how far, in bytes, the source moves per destination column and
/// row.
struct PixelWalk {
    const BYTE *start;
    ptrdiff_t perColumn, perRow;
};

/// Whether a code LACQUER_ROTATE_90 ... LACQUER_TRANSVERSE exchanges width and height.
bool SwapsSides(DWORD code);

/// Moves the source's pixels into `dest` by a code, by a table's kernels. The views have one depth, and the destination
/// the size that the code gives; nothing happens at other depths than 8, 24 and 32 bits.
void TurnView(const ImageTable &kernels, const SurfaceView &dest, const SurfaceView &source, DWORD code);

/// Fills `dest` with 8- and with 32-bit pixels of which each goes a step of the walk.
void TurnBytes(const SurfaceView &dest, const PixelWalk &walk);
void TurnWords(const SurfaceView &dest, const PixelWalk &walk);

}  // namespace lacquer
