// Rows with corners in them have two short ends and an even middle; other rows are alike, are cut where one of the two
// edges begins or ends to vary, and are painted together. What a mirror gives is not computed twice.

#include "draw/geometry/round_rectangle.h"

#include <algorithm>
#include <span>

#include "draw/geometry/visible_part.h"
#include "pipeline/pixel/pixel.h"

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

constexpr int kMaxCovered = PartPainter::kMaxCovered;

/// The covers of fill and border.
struct Covers {
    BYTE inner[kMaxCovered], border[kMaxCovered];

    void Compute(const CoverRow &outside, const CoverRow &inside, int64_t x, int count) {
        inside.Write(x, count, inner);
        if (&outside == &inside) {
            std::fill_n(border, count, BYTE{0});
            return;
        }
        outside.Write(x, count, border);
        for (int i = 0; i < count; ++i) border[i] = BorderOf(border[i], inner[i]);
    }

    void Mirror(const Covers &other, int count) {
        std::reverse_copy(other.inner, other.inner + count, inner);
        std::reverse_copy(other.border, other.border + count, border);
    }
};

/// Paints one shape into the visible part of a canvas.
class ShapePainter {
public:
    ShapePainter(const PartPainter &painter, const RoundedRect &shape, int64_t borderWidth, const RECT &visible)
        : painter_(painter),
          outside_(shape),
          inside_(shape.Grown(-borderWidth)),
          hasBorder_(borderWidth > 0),
          visible_(visible) {}

    void Paint() const;

private:
    void PaintRows(const CoverRow &outer, const CoverRow &inner, int64_t y, int64_t yEnd, int64_t mirrored) const;
    bool PaintEnds(const CoverRow &outer, const CoverRow &inner, int64_t y, int64_t mirrored) const;
    void PaintAlike(const CoverRow &outer, const CoverRow &inner, int64_t y, int64_t yEnd) const;
    bool IsVisibleRow(int64_t y) const { return y >= visible_.top && y < visible_.bottom; }

    const PartPainter &painter_;
    const CoverShape outside_, inside_;
    const bool hasBorder_;
    const RECT &visible_;
};

void ShapePainter::Paint() const {
    const RoundedRect &shape = outside_.Rect();
    const bool isSymmetric = shape.IsSymmetricDown();
    const int64_t lastMirrored = PixelAt(shape.top + shape.bottom) - 1;
    for (int64_t y = visible_.top; y < visible_.bottom;) {
        const int64_t yEnd = std::min({outside_.AlikeUntil(y), inside_.AlikeUntil(y), int64_t{visible_.bottom}});
        const int64_t mirrored = isSymmetric ? lastMirrored - y : y;
        const bool isSingle = yEnd == y + 1;
        // Below the axis a row has been painted with its mirror image.
        if (!isSingle || mirrored >= y || !IsVisibleRow(mirrored)) {
            const CoverRow inner(inside_, y);
            if (hasBorder_) {
                PaintRows(CoverRow(outside_, y), inner, y, yEnd, mirrored);
            } else {
                PaintRows(inner, inner, y, yEnd, mirrored);
            }
        }
        y = yEnd;
    }
}

/// Rows y..yEnd, which are alike; a single one together with its mirror image.
void ShapePainter::PaintRows(const CoverRow &outer, const CoverRow &inner, int64_t y, int64_t yEnd,
                             int64_t mirrored) const {
    const bool isSingle = yEnd == y + 1;
    if (isSingle && PaintEnds(outer, inner, y, mirrored)) return;
    PaintAlike(outer, inner, y, yEnd);
    if (isSingle && mirrored > y && IsVisibleRow(mirrored)) PaintAlike(outer, inner, mirrored, mirrored + 1);
}

/// A row of short ends and an even middle, and the row that mirrors it. Result: false when it is not of that kind, or
/// not visible from end to end.
bool ShapePainter::PaintEnds(const CoverRow &outer, const CoverRow &inner, int64_t y, int64_t mirrored) const {
    const bool hasInside = inner.begin < inner.end;
    int64_t leftEnd = hasInside ? std::max(outer.flatBegin, inner.flatBegin) : outer.flatBegin;
    int64_t rightBegin = hasInside ? std::min(outer.flatEnd, inner.flatEnd) : outer.flatEnd;
    // Four pixels take no longer than one: both ends take some of the middle.
    constexpr int64_t kFour = 4;
    if (rightBegin - leftEnd >= 2 * kFour) {
        leftEnd += (outer.begin - leftEnd) & (kFour - 1);
        rightBegin -= (rightBegin - outer.end) & (kFour - 1);
    }
    const int64_t left = leftEnd - outer.begin, right = outer.end - rightBegin;
    // A thin sliver may have its even middle outside what it covers.
    if (left < 0 || right < 0 || leftEnd > rightBegin) return false;
    if (left > kMaxCovered || right > kMaxCovered) return false;
    if (outer.begin < visible_.left || outer.end > visible_.right) return false;
    const bool isMirror = left == right && outside_.Rect().IsSymmetricAcross();
    const BYTE inside = hasInside ? inner.flat : BYTE{0}, border = BorderOf(outer.flat, inside);
    const int64_t images[] = {y, mirrored};
    const std::span rows(images, mirrored == y ? 1 : 2);
    const int leftCount = static_cast<int>(left), rightCount = static_cast<int>(right);
    Covers atLeft, atRight;
    atLeft.Compute(outer, inner, outer.begin, leftCount);
    if (isMirror) {
        atRight.Mirror(atLeft, leftCount);
    } else {
        atRight.Compute(outer, inner, rightBegin, rightCount);
    }
    for (const int64_t row : rows) {
        if (!IsVisibleRow(row)) continue;
        painter_.Evenly(leftEnd, rightBegin, row, row + 1, inside, border);
        painter_.Covered(outer.begin, leftCount, row, row + 1, atLeft.inner, atLeft.border);
        painter_.Covered(rightBegin, rightCount, row, row + 1, atRight.inner, atRight.border);
    }
    return true;
}

void ShapePainter::PaintAlike(const CoverRow &outer, const CoverRow &inner, int64_t y, int64_t yEnd) const {
    int64_t cuts[] = {outer.begin,     outer.flatBegin, outer.flatEnd, outer.end,     inner.begin,
                      inner.flatBegin, inner.flatEnd,   inner.end,     visible_.right};
    std::sort(std::begin(cuts), std::end(cuts));
    int64_t x = std::max<int64_t>(visible_.left, outer.begin);
    for (const int64_t cut : cuts) {
        const int64_t xEnd = std::min<int64_t>(cut, visible_.right);
        if (xEnd <= x) continue;
        const Cover outside = CoverAt(outer, x), inside = CoverAt(inner, x);
        if (!outside.varies && !inside.varies) {
            painter_.Evenly(x, xEnd, y, yEnd, inside.value, BorderOf(outside.value, inside.value));
            x = xEnd;
            continue;
        }
        for (; x < xEnd; x += kMaxCovered) {
            Covers covers;
            const int count = static_cast<int>(std::min<int64_t>(kMaxCovered, xEnd - x));
            covers.Compute(outer, inner, x, count);
            painter_.Covered(x, count, y, yEnd, covers.inner, covers.border);
        }
        x = xEnd;
    }
}

}  // namespace

void DrawRoundedRect(Canvas &canvas, RoundedRect shape, int64_t borderWidth, const Paint &paint) {
    if (Alpha(paint.fill | paint.border) == 0) return;
    if (Alpha(paint.border) == 0) {
        shape = shape.Grown(-borderWidth);
        borderWidth = 0;
    }
    if (shape.IsEmpty()) return;
    const VisiblePart part(canvas, PixelAt(shape.left), PixelAt(shape.top), PixelFrom(shape.right),
                           PixelFrom(shape.bottom));
    if (!part.View()) return;
    const PartPainter painter(*part.View(), part.Rect().left, part.Rect().top, paint);
    ShapePainter(painter, shape, borderWidth, part.Rect()).Paint();
}

}  // namespace lacquer
