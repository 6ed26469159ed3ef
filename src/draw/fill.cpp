// Rectangles of one colour: clipping and locking around the pipeline's fill dispatch.

#include "draw/fill.h"

#include "core/locked.h"

namespace lacquer {

void FillRectangle(Canvas &canvas, const RECT &rect, DWORD colour, DWORD modeWord) {
    RECT visible{};
    if (IsVoidFill(colour, modeWord) || !canvas.FindVisible(rect, &visible)) return;
    const LockedCanvas target(canvas, &visible);
    if (target.View()) FillView(target.View(), colour, modeWord);
}

void FillPiece(LockedPieces &target, const RECT &rect, DWORD colour, DWORD modeWord) {
    RECT visible{};
    if (!target.FindVisible(rect, &visible)) return;
    if (const SurfaceView *view = target.Lock(visible)) FillView(view, colour, modeWord);
}

}  // namespace lacquer
