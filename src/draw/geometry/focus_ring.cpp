// Which pixels a focus ring may touch, and painting them.

#include "draw/geometry/focus_ring.h"

#include <algorithm>

#include "core/locked.h"
#include "draw/fill.h"
#include "draw/geometry/ring_cover.h"
#include "draw/geometry/round_rectangle.h"
#include "draw/geometry/visible_part.h"

namespace lacquer {
namespace {

void PaintDashed(const PartPainter &painter, const RingCover &ring, int64_t x, int64_t xEnd, int64_t y) {
    BYTE cover[PartPainter::kMostCovered];
    constexpr BYTE kNoBorder[PartPainter::kMostCovered] = {};
    for (; x < xEnd; x += PartPainter::kMostCovered) {
        const int count = static_cast<int>(std::min<int64_t>(PartPainter::kMostCovered, xEnd - x));
        for (int i = 0; i < count; ++i) cover[i] = ring.At(x + i, y);
        painter.Covered(x, count, y, y + 1, cover, kNoBorder);
    }
}

}  // namespace

void DrawFocusRing(Canvas &canvas, const RoundedRect &shape, RingStyle style) {
    if (shape.IsEmpty()) return;
    style.width = std::min({style.width, (shape.right - shape.left) / 2, (shape.bottom - shape.top) / 2});
    if (style.width == 0 || style.colour >> 24 == 0) return;
    if (style.dash == 0 || style.gap == 0 || RingCover::LineLength(shape, style.width) > Dashes::kLongestLine) {
        return DrawRoundedRect(canvas, shape, style.width, {0, style.colour, kFillOver});
    }
    RECT visible{};
    if (!FindVisiblePart(canvas, PixelAt(shape.left), PixelAt(shape.top), PixelFrom(shape.right),
                         PixelFrom(shape.bottom), &visible)) {
        return;
    }
    const LockedCanvas target(canvas, &visible);
    if (!target.View() || target.View()->bitsPerPixel != 32) return;
    const PartPainter painter(*target.View(), visible.left, visible.top, {style.colour, 0, kFillOver});
    const RingCover ring(shape, style.width, style.dash, style.gap);
    // Rows within the width of the upper and the lower edge are painted from end to end, the others at both ends.
    const int64_t reach = std::max(shape.radii[0], style.width);
    for (int64_t y = visible.top; y < visible.bottom; ++y) {
        const int64_t depth = std::min((y + 1) * kUnits - shape.top, shape.bottom - y * kUnits);
        const int64_t side = depth < reach + kUnits ? reach : style.width;
        const bool isWhole = depth < style.width + kUnits;
        const int64_t leftEnd =
            isWhole ? visible.right : std::min<int64_t>(visible.right, PixelFrom(shape.left + side));
        PaintDashed(painter, ring, visible.left, leftEnd, y);
        PaintDashed(painter, ring, std::max({leftEnd, int64_t{visible.left}, PixelAt(shape.right - side)}),
                    visible.right, y);
    }
}

}  // namespace lacquer
