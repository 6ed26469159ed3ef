// Which pixels a focus ring may touch, and painting them.

#include "draw/geometry/focus_ring.h"

#include <algorithm>

#include "draw/fill.h"
#include "draw/geometry/ring_cover.h"
#include "draw/geometry/round_rectangle.h"
#include "draw/geometry/visible_part.h"
#include "pipeline/pixel/pixel.h"

namespace lacquer {
namespace {

/// Paints a dashed ring into the visible part of a canvas. Away from the corners its pixels are alike: below each other
/// in the upper and the lower side, beside each other in the left and the right one.
class RingPainter {
public:
    RingPainter(const PartPainter &painter, const RoundedRect &shape, const RingStyle &style, const RECT &visible)
        : painter_(painter),
          ring_(shape, style.width, style.dash, style.gap),
          shape_(shape),
          width_(style.width),
          visible_(visible) {
        const int64_t reach = std::max(shape.radii[0], style.width);
        left_ = std::clamp<int64_t>(PixelFrom(shape.left + reach), visible.left, visible.right);
        right_ = std::clamp<int64_t>(PixelAt(shape.right - reach), left_, visible.right);
        top_ = PixelFrom(shape.top + reach);
        bottom_ = PixelAt(shape.bottom - reach);
    }

    void Paint() const {
        for (int64_t y = visible_.top; y < visible_.bottom; ++y) PaintEnds(y);
        for (int64_t y = visible_.top; y < visible_.bottom;) {
            const int64_t yEnd = std::min<int64_t>(AlikeUntil(y), visible_.bottom);
            PaintPixels(left_, right_, y, yEnd);
            y = yEnd;
        }
    }

private:
    /// The rows from y on that are alike between the corners: those inside a side, and those inside the ring.
    int64_t AlikeUntil(int64_t y) const {
        const int64_t ends[] = {PixelAt(shape_.top + width_), PixelAt(shape_.bottom - width_), PixelAt(shape_.bottom)};
        const int64_t begins[] = {PixelFrom(shape_.top), PixelFrom(shape_.top + width_),
                                  PixelFrom(shape_.bottom - width_)};
        for (int i = 0; i < 3; ++i) {
            if (y >= begins[i] && y < ends[i]) return ends[i];
        }
        return y + 1;
    }

    /// The row's pixels left and right of the part between the corners.
    void PaintEnds(int64_t y) const {
        if (y < top_ || y >= bottom_ || left_ == right_) {
            PaintPixels(visible_.left, left_, y, y + 1);
            PaintPixels(right_, visible_.right, y, y + 1);
        } else {
            PaintSide(shape_.left, shape_.left + width_, y);
            PaintSide(shape_.right - width_, shape_.right, y);
        }
    }

    /// A row of an upright side: its first and its last pixel may be cut.
    void PaintSide(int64_t from, int64_t to, int64_t y) const {
        const auto inView = [this](int64_t x) { return std::clamp<int64_t>(x, visible_.left, visible_.right); };
        const int64_t x = inView(PixelAt(from)), xEnd = inView(PixelFrom(to));
        const int64_t even = inView(PixelFrom(from)), evenEnd = std::max(even, inView(PixelAt(to)));
        PaintPixels(x, even, y, y + 1);
        if (even < evenEnd) painter_.Evenly(even, evenEnd, y, y + 1, ring_.At(even, y), 0);
        PaintPixels(evenEnd, xEnd, y, y + 1);
    }

    void PaintPixels(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd) const {
        BYTE cover[PartPainter::kMaxCovered];
        for (; x < xEnd; x += PartPainter::kMaxCovered) {
            const int count = static_cast<int>(std::min<int64_t>(PartPainter::kMaxCovered, xEnd - x));
            BYTE any = 0;
            for (int i = 0; i < count; ++i) any |= cover[i] = ring_.At(x + i, y);
            if (any != 0) painter_.FillCovered(x, count, y, yEnd, cover);
        }
    }

    const PartPainter &painter_;
    const RingCover ring_;
    const RoundedRect &shape_;
    const int64_t width_;
    const RECT &visible_;
    int64_t left_, right_, top_, bottom_;  ///< between the corners, pixels
};

}  // namespace

void DrawFocusRing(Canvas &canvas, const RoundedRect &shape, RingStyle style) {
    if (shape.IsEmpty()) return;
    style.width = std::min({style.width, (shape.right - shape.left) / 2, (shape.bottom - shape.top) / 2});
    if (style.width == 0 || Alpha(style.colour) == 0) return;
    if (style.dash == 0 || style.gap == 0 || RingCover::LineLength(shape, style.width) > Dashes::kLongestLine) {
        return DrawRoundedRect(canvas, shape, style.width, {0, style.colour, kFillOver});
    }
    const VisiblePart part(canvas, PixelAt(shape.left), PixelAt(shape.top), PixelFrom(shape.right),
                           PixelFrom(shape.bottom));
    if (!part.View()) return;
    const PartPainter painter(*part.View(), part.Rect().left, part.Rect().top, {style.colour, 0, kFillOver});
    RingPainter(painter, shape, style, part.Rect()).Paint();
}

}  // namespace lacquer
