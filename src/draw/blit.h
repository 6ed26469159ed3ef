// From a surface to a canvas: clipping and locking around the pipeline's dispatch.
#pragma once

#include "core/canvas.h"
#include "core/locked_pieces.h"
#include "core/pixel_surface.h"

namespace lacquer {

/// How a draw reads and combines its source.
struct BlitStyle {
    DWORD modeWord;    ///< draw mode in the top byte, key colour below; usually the source's filter word
    DWORD kernelMode;  ///< sampler when sizes differ, LACQUER_NEAREST ... LACQUER_AREA
    BYTE alpha;        ///< constant alpha, 255 full strength
};

/// Draws a rectangle of a surface (null: everything) into a logical rectangle of a canvas, inside its clip. Nothing is
/// drawn when nothing is visible, a lock fails, or the destination is wider or higher than 2^31 - 1.
void Blit(Canvas &canvas, const RECT &dest, PixelSurface &source, const RECT *sourceRect, const BlitStyle &style);

/// As Blit, for one piece of a draw of several. `source`: the view of the whole surface, null when it can't be locked.
void BlitPiece(LockedPieces &target, const RECT &dest, const SurfaceView *source, const RECT &sourceRect,
               const BlitStyle &style);

}  // namespace lacquer
