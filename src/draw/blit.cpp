// Clipping and locking around the pipeline's dispatch.

#include "draw/blit.h"

#include "core/geometry.h"
#include "core/locked.h"
#include "core/surface_view.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {

namespace {

/// What shows of a destination. Result: false when nothing does, and when the destination is too large to be drawn.
bool FindVisible(const RECT &dest, const RECT &clipBox, RECT *visible) {
    return IntersectRect(visible, &dest, &clipBox) && WidthOf(dest) <= INT32_MAX && HeightOf(dest) <= INT32_MAX;
}

void BlitVisible(const SurfaceView &to, const RECT &visible, const SurfaceView &from, const RECT &dest,
                 const BlitStyle &style) {
    if (EqualRect(&visible, &dest)) {
        BlitSameRect(&to, &from, style.modeWord, style.kernelMode, style.alpha);
        return;
    }
    const SIZE fullSize{static_cast<LONG>(WidthOf(dest)), static_cast<LONG>(HeightOf(dest))};
    const POINT offset{static_cast<LONG>(static_cast<int64_t>(visible.left) - dest.left),
                       static_cast<LONG>(static_cast<int64_t>(visible.top) - dest.top)};
    BlitSubRect(&to, &from, fullSize, offset, style.modeWord, style.kernelMode, style.alpha);
}

}  // namespace

void Blit(Canvas &canvas, const RECT &dest, PixelSurface &source, const RECT *sourceRect, const BlitStyle &style) {
    RECT visible{};
    if (!FindVisible(dest, canvas.ClipBox(), &visible)) return;
    const LockedCanvas to(canvas, &visible);
    if (!to.View()) return;
    const LockedSurface from(source, sourceRect);
    if (from.View()) BlitVisible(*to.View(), visible, *from.View(), dest, style);
}

void BlitPiece(LockedPieces &target, const RECT &dest, const SurfaceView *source, const RECT &sourceRect,
               const BlitStyle &style) {
    RECT visible{};
    if (!FindVisible(dest, target.ClipBox(), &visible)) return;
    const SurfaceView *to = target.Lock(visible);
    if (!to || !source) return;
    SurfaceView from = *source;
    if (NarrowView(from, &sourceRect)) BlitVisible(*to, visible, from, dest, style);
}

}  // namespace lacquer
