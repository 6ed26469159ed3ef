// Clipping and locking around the pipeline's dispatch.

#include "draw/blit.h"

#include "core/geometry.h"
#include "core/locked.h"
#include "core/surface_view.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {
namespace {

void BlitVisible(const SurfaceView &to, const RECT &visible, const SurfaceView &from, const RECT &dest,
                 const BlitStyle &style) {
    if (EqualRect(&visible, &dest)) {
        BlitSameRect(&to, &from, style.modeWord, style.kernelMode, style.alpha);
        return;
    }
    BlitSubRect(&to, &from, SizeOf(dest), OffsetIn(dest, visible), style.modeWord, style.kernelMode, style.alpha);
}

}  // namespace

void Blit(Canvas &canvas, const RECT &dest, PixelSurface &source, const RECT *sourceRect, const BlitStyle &style) {
    RECT visible{};
    if (!HasShortSides(dest) || !canvas.FindVisible(dest, &visible)) return;
    const LockedCanvas to(canvas, &visible);
    if (!to.View()) return;
    const LockedSurface from(source, sourceRect);
    if (from.View()) BlitVisible(*to.View(), visible, *from.View(), dest, style);
}

void BlitPiece(LockedPieces &target, const RECT &dest, const SurfaceView *source, const RECT &sourceRect,
               const BlitStyle &style) {
    RECT visible{};
    if (!HasShortSides(dest) || !target.FindVisible(dest, &visible)) return;
    const SurfaceView *to = target.Lock(visible);
    if (!to || !source) return;
    SurfaceView from = *source;
    if (NarrowView(from, &sourceRect)) BlitVisible(*to, visible, from, dest, style);
}

}  // namespace lacquer
