// Clipping and locking around the pipeline's dispatch.

#include "draw/blit.h"

#include "core/geometry.h"
#include "core/locked.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {

void Blit(Canvas &canvas, const RECT &dest, PixelSurface &source, const RECT *sourceRect, const BlitStyle &style) {
    const RECT clipBox = canvas.ClipBox();
    RECT visible{};
    if (!IntersectRect(&visible, &dest, &clipBox)) return;
    if (WidthOf(dest) > INT32_MAX || HeightOf(dest) > INT32_MAX) return;
    const LockedCanvas to(canvas, &visible);
    if (!to.View()) return;
    const LockedSurface from(source, sourceRect);
    if (!from.View()) return;
    if (EqualRect(&visible, &dest)) {
        BlitSameRect(to.View(), from.View(), style.modeWord, style.kernelMode, style.alpha);
        return;
    }
    const SIZE fullSize{static_cast<LONG>(WidthOf(dest)), static_cast<LONG>(HeightOf(dest))};
    const POINT offset{static_cast<LONG>(static_cast<int64_t>(visible.left) - dest.left),
                       static_cast<LONG>(static_cast<int64_t>(visible.top) - dest.top)};
    BlitSubRect(to.View(), from.View(), fullSize, offset, style.modeWord, style.kernelMode, style.alpha);
}

}  // namespace lacquer
