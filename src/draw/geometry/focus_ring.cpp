// Which pixels a focus ring may touch, and painting them.

#include "draw/geometry/focus_ring.h"

#include <algorithm>
#include <utility>

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
        top_ = std::clamp<int64_t>(PixelFrom(shape.top + reach), visible.top, visible.bottom);
        bottom_ = std::clamp<int64_t>(PixelAt(shape.bottom - reach), top_, visible.bottom);
    }

    void Paint() const {
        // Where the corners meet there are no sides.
        const bool hasSides = left_ < right_ && top_ < bottom_;
        const int64_t top = hasSides ? top_ : visible_.bottom, bottom = hasSides ? bottom_ : visible_.bottom;
        for (const auto &[x, xEnd] : {std::pair<int64_t, int64_t>{visible_.left, left_}, {right_, visible_.right}}) {
            PaintBlock(x, xEnd, visible_.top, top);
            PaintBlock(x, xEnd, bottom, visible_.bottom);
        }
        for (int64_t y = top; y < bottom; ++y) {
            PaintSide(shape_.left, shape_.left + width_, y);
            PaintSide(shape_.right - width_, shape_.right, y);
        }
        for (int64_t y = visible_.top; y < visible_.bottom;) {
            const int64_t yEnd = std::min<int64_t>(AlikeUntil(y), visible_.bottom);
            if (ring_.BlockOf(left_, right_, y, yEnd) != RingBlock::kNothing) PaintPixels(left_, right_, y, yEnd);
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

    /// Part of a corner: what differs from pixel to pixel is cut down to small blocks.
    void PaintBlock(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd) const {
        if (x >= xEnd || y >= yEnd) return;
        const int64_t width = xEnd - x, height = yEnd - y;
        const bool isSmall = width <= kSmallBlock && height <= kSmallBlock;
        switch (isSmall ? RingBlock::kVarying : ring_.BlockOf(x, xEnd, y, yEnd)) {
            case RingBlock::kNothing: return;
            case RingBlock::kWhole: return painter_.FillWhole(x, xEnd, y, yEnd);
            case RingBlock::kAlikeDown: return PaintPixels(x, xEnd, y, yEnd);
            case RingBlock::kAlikeAcross:
                for (; y < yEnd; ++y) painter_.Evenly(x, xEnd, y, y + 1, CoverAt(x, y), 0);
                return;
            case RingBlock::kVarying: break;
        }
        if (isSmall) {
            for (; y < yEnd; ++y) PaintPixels(x, xEnd, y, y + 1);
        } else if (width > height) {
            PaintBlock(x, x + width / 2, y, yEnd);
            PaintBlock(x + width / 2, xEnd, y, yEnd);
        } else {
            PaintBlock(x, xEnd, y, y + height / 2);
            PaintBlock(x, xEnd, y + height / 2, yEnd);
        }
    }

    /// A row of an upright side: its first and its last pixel may be cut.
    void PaintSide(int64_t from, int64_t to, int64_t y) const {
        const auto inView = [this](int64_t x) { return std::clamp<int64_t>(x, visible_.left, visible_.right); };
        const int64_t x = inView(PixelAt(from)), xEnd = inView(PixelFrom(to));
        const int64_t even = inView(PixelFrom(from)), evenEnd = std::max(even, inView(PixelAt(to)));
        PaintPixels(x, even, y, y + 1);
        if (even < evenEnd) painter_.Evenly(even, evenEnd, y, y + 1, CoverAt(even, y), 0);
        PaintPixels(evenEnd, xEnd, y, y + 1);
    }

    BYTE CoverAt(int64_t x, int64_t y) const {
        BYTE cover = 0;
        ring_.Write(x, 1, y, &cover);
        return cover;
    }

    void PaintPixels(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd) const {
        BYTE cover[kMaxRun];
        for (; x < xEnd; x += kMaxRun) {
            const int count = static_cast<int>(std::min<int64_t>(kMaxRun, xEnd - x));
            ring_.Write(x, count, y, cover);
            if (std::any_of(cover, cover + count, [](BYTE c) { return c != 0; }))
                painter_.FillCovered(x, count, y, yEnd, cover);
        }
    }

    static constexpr int kMaxRun = 512;
    static constexpr int64_t kSmallBlock = 8;

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
