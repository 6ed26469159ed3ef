// Canvas compositing by the pipeline's kernels where both canvases have pixels, else by GDI.

#include "draw/compositing.h"

#include <cstdlib>
#include <cstring>

#include "core/geometry.h"
#include "core/locked.h"
#include "core/surface_view.h"
#include "pipeline/table/blit_dispatch.h"
#include "pipeline/table/kernel_table.h"

namespace lacquer {
namespace {

bool HasPixelAlpha(const Canvas &canvas) { return DrawModeOf(canvas.Filter()) == LACQUER_DRAW_OVER; }

bool SameSize(const RECT &a, const RECT &b) { return WidthOf(a) == WidthOf(b) && HeightOf(a) == HeightOf(b); }

/// The arguments that GDI's transfers share.
struct Transfer {
    HDC to;
    const RECT &dest;
    HDC from;
    const RECT &source;
    SIZE destSize = SizeOf(dest), sourceSize = SizeOf(source);
};

int GdiStretch(const Transfer &t) {
    return StretchBlt(t.to, t.dest.left, t.dest.top, t.destSize.cx, t.destSize.cy, t.from, t.source.left, t.source.top,
                      t.sourceSize.cx, t.sourceSize.cy, SRCCOPY);
}

int GdiBlend(const Transfer &t, BYTE alpha, BYTE alphaFormat) {
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, alpha, alphaFormat};
    return AlphaBlend(t.to, t.dest.left, t.dest.top, t.destSize.cx, t.destSize.cy, t.from, t.source.left, t.source.top,
                      t.sourceSize.cx, t.sourceSize.cy, blend);
}

/// Views of one size: the destination's visible part and the source's part under it.
void BlendSameSize(const SurfaceView &to, const SurfaceView &from, bool over, bool opaque, BYTE alpha) {
    if (over || opaque) {
        CallRow(Kernels(), over ? Row::OverRow : Row::CopyRow, &to, &from, {});
    } else {
        Kernels().blendSame(&to, &from, alpha);
    }
}

}  // namespace

int BlendCanvases(Canvas &dest, const RECT &destRect, Canvas &source, const RECT &sourceRect, BYTE alpha) {
    const bool over = HasPixelAlpha(source), opaque = alpha == 255 && !HasPixelAlpha(dest);
    RECT visible{};
    if (!dest.FindVisible(destRect, &visible)) return 1;
    if (!dest.Surface() || !source.Surface()) {
        const Transfer transfer{dest.GetDeviceContext(), destRect, source.GetDeviceContext(), sourceRect};
        return over ? GdiBlend(transfer, alpha, AC_SRC_ALPHA) : GdiStretch(transfer);
    }
    if (!HasShortSides(destRect)) return 1;

    const LockedCanvas to(dest, &visible);
    if (!to.View()) return 1;
    const LockedCanvas from(source, &sourceRect);
    if (!from.View()) return 1;
    const POINT offset = OffsetIn(destRect, visible);
    if (SameSize(destRect, sourceRect)) {
        SurfaceView under = *from.View();
        const RECT part{offset.x, offset.y, offset.x + to.View()->width, offset.y + to.View()->height};
        NarrowView(under, &part);
        BlendSameSize(*to.View(), under, over, opaque, alpha);
    } else if (!EqualRect(&visible, &destRect)) {
        const RowArguments arguments{.fullSize = SizeOf(destRect), .visibleOffset = offset};
        CallRow(Kernels(), over ? Row::SubRectOverRow : Row::SubRectCopyRow, to.View(), from.View(), arguments);
    } else if (over || opaque) {
        CallRow(Kernels(), over ? Row::StretchOverRow : Row::StretchCopyRow, to.View(), from.View(), {});
    } else {
        Kernels().blendStretch(to.View(), from.View(), alpha);
    }
    return 1;
}

int DrawOnDeviceContext(HDC dc, const RECT &destRect, Canvas &source, const RECT &sourceRect, BYTE alpha) {
    const Transfer transfer{dc, destRect, source.GetDeviceContext(), sourceRect};
    if (HasPixelAlpha(source)) return GdiBlend(transfer, alpha, AC_SRC_ALPHA);
    return alpha == 255 ? GdiStretch(transfer) : GdiBlend(transfer, alpha, 0);
}

void MixCanvases(Canvas &dest, const RECT *destRect, Canvas &source, const RECT *sourceRect, BYTE weight) {
    const LockedCanvas to(dest, destRect);
    if (!to.View()) return;
    const LockedCanvas from(source, sourceRect);
    if (!from.View()) return;
    const bool sameSize = to.View()->width == from.View()->width && to.View()->height == from.View()->height;
    (sameSize ? Kernels().mixSame : Kernels().mixStretch)(to.View(), from.View(), weight);
}

void MixWithColor(Canvas &canvas, const RECT *rect, DWORD colour, BYTE weight) {
    const LockedCanvas target(canvas, rect);
    if (target.View()) Kernels().mixColor(target.View(), colour, weight);
}

bool ScrollRows(Canvas &canvas, int dy) {
    const LockedCanvas locked(canvas, nullptr);
    const SurfaceView *view = locked.View();
    if (!view || dy <= -view->height || dy >= view->height) return false;
    const size_t bytes = static_cast<size_t>(view->height - std::abs(dy)) * static_cast<size_t>(view->stride);
    std::memmove(RowOf(*view, dy > 0 ? dy : 0), RowOf(*view, dy > 0 ? 0 : -dy), bytes);
    return true;
}

}  // namespace lacquer
