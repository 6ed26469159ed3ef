// Rectangles of one colour: clipping, and the pipeline's fill dispatch.

#include "draw/fill.h"

#include "core/locked.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {

bool IsVoidFill(DWORD colour, DWORD modeWord) {
    switch (DrawModeOf(modeWord)) {
        case LACQUER_DRAW_OVER:
        case LACQUER_DRAW_COLOR_KEY: return colour >> 24 == 0;
        case LACQUER_DRAW_MODULATE:
        case LACQUER_DRAW_OR: return colour == 0xFFFFFFFF;
        default: return false;
    }
}

void FillRectangle(Canvas &canvas, const RECT &rect, DWORD colour, DWORD modeWord) {
    const RECT clipBox = canvas.ClipBox();
    RECT visible{};
    if (IsVoidFill(colour, modeWord) || !IntersectRect(&visible, &rect, &clipBox)) return;
    const LockedCanvas target(canvas, &visible);
    if (target.View()) FillView(target.View(), colour, modeWord);
}

void FillPiece(LockedPieces &target, const RECT &rect, DWORD colour, DWORD modeWord) {
    RECT visible{};
    if (IsVoidFill(colour, modeWord) || !IntersectRect(&visible, &rect, &target.ClipBox())) return;
    if (const SurfaceView *view = target.Lock(visible)) FillView(view, colour, modeWord);
}

}  // namespace lacquer
