// Rectangles of one colour: premultiplying, clipping, and the pipeline's fill dispatch.

#include "draw/fill.h"

#include "core/locked.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {

DWORD Premultiplied(DWORD colour) {
    const DWORD alpha = colour >> 24, factor = alpha + 1;
    const auto scaled = [&](int shift) { return ((colour >> shift & 0xFF) * factor >> 8) << shift; };
    return alpha << 24 | scaled(16) | scaled(8) | scaled(0);
}

bool IsVoidFill(DWORD colour, DWORD modeWord) {
    switch (DrawModeOf(modeWord)) {
        case DrawMode::Over:
        case DrawMode::ColorKey: return colour >> 24 == 0;
        case DrawMode::Modulate:
        case DrawMode::FillOr: return colour == 0xFFFFFFFF;
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

}  // namespace lacquer
