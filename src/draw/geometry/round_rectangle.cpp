// A row is cut where one of the two edges, outer or inner, begins or ends to vary; alike rows are painted together.

#include "draw/geometry/round_rectangle.h"

#include <algorithm>

#include "core/locked.h"
#include "draw/geometry/visible_part.h"

namespace lacquer {
namespace {

/// The cover of a row that is the same from one pixel to the next, or not.
struct Cover {
    bool varies;
    BYTE value;
};

Cover CoverAt(const CoverRow &row, int64_t x) {
    if (x < row.begin || x >= row.end) return {false, 0};
    const bool isFlat = x >= row.flatBegin && x < row.flatEnd;
    return {!isFlat, row.flat};
}

BYTE BorderOf(BYTE outer, BYTE inner) { return outer > inner ? static_cast<BYTE>(outer - inner) : BYTE{0}; }

void PaintVarying(const PartPainter &painter, const CoverRow &outer, const CoverRow &inner, int64_t x, int64_t xEnd,
                  int64_t y, int64_t yEnd) {
    BYTE inners[PartPainter::kMostCovered], borders[PartPainter::kMostCovered];
    for (; x < xEnd; x += PartPainter::kMostCovered) {
        const int count = static_cast<int>(std::min<int64_t>(PartPainter::kMostCovered, xEnd - x));
        inner.Write(x, count, inners);
        outer.Write(x, count, borders);
        for (int i = 0; i < count; ++i) borders[i] = BorderOf(borders[i], inners[i]);
        painter.Covered(x, count, y, yEnd, inners, borders);
    }
}

void PaintRows(const PartPainter &painter, const CoverRow &outer, const CoverRow &inner, const RECT &visible, int64_t y,
               int64_t yEnd) {
    int64_t cuts[] = {outer.begin,     outer.flatBegin, outer.flatEnd, outer.end,    inner.begin,
                      inner.flatBegin, inner.flatEnd,   inner.end,     visible.right};
    std::sort(std::begin(cuts), std::end(cuts));
    int64_t x = std::max<int64_t>(visible.left, outer.begin);
    for (const int64_t cut : cuts) {
        const int64_t xEnd = std::min<int64_t>(cut, visible.right);
        if (xEnd <= x) continue;
        const Cover outside = CoverAt(outer, x), inside = CoverAt(inner, x);
        if (outside.varies || inside.varies) {
            PaintVarying(painter, outer, inner, x, xEnd, y, yEnd);
        } else {
            painter.Evenly(x, xEnd, y, yEnd, inside.value, BorderOf(outside.value, inside.value));
        }
        x = xEnd;
    }
}

}  // namespace

void DrawRoundedRect(Canvas &canvas, const RoundedRect &shape, int64_t borderWidth, const Paint &paint) {
    RECT visible{};
    if (shape.IsEmpty() || (paint.fill | paint.border) >> 24 == 0) return;
    if (!FindVisiblePart(canvas, PixelAt(shape.left), PixelAt(shape.top), PixelFrom(shape.right),
                         PixelFrom(shape.bottom), &visible)) {
        return;
    }
    const LockedCanvas target(canvas, &visible);
    if (!target.View() || target.View()->bitsPerPixel != 32) return;
    const PartPainter painter(*target.View(), visible.left, visible.top, paint);
    const RoundedRect inside = shape.Grown(-borderWidth);
    for (int64_t y = visible.top; y < visible.bottom;) {
        const CoverRow outer(shape, y), inner(inside, y);
        const int64_t yEnd = std::min({outer.AlikeUntil(), inner.AlikeUntil(), int64_t{visible.bottom}});
        PaintRows(painter, outer, inner, visible, y, yEnd);
        y = yEnd;
    }
}

}  // namespace lacquer
