// Where a caster's shadow varies, and where it does not.

#include "draw/geometry/caster.h"

#include <algorithm>

#include "draw/geometry/integer_root.h"
#include "pipeline/shape/shadow.h"

namespace lacquer {
namespace {

constexpr int64_t kPixel = GaussianEdge::kPixel;

RoundedRect InSixteenths(RoundedRect shape) {
    for (int64_t *position : {&shape.left, &shape.top, &shape.right, &shape.bottom}) *position *= kPixel / 256;
    for (int64_t &radius : shape.radii) radius *= kPixel / 256;
    return shape;
}

/// The length of arc that one slab may stand for: 4/5 of the deviation that blur and pixel have together.
int64_t SlabLength(const GaussianEdge &edge) {
    const int64_t square = edge.Deviation() * edge.Deviation() + kPixel * kPixel / 12;
    return static_cast<int64_t>(FloorRoot(static_cast<uint64_t>(square))) * 4 / 5;
}

int64_t FirstPixel(int64_t position) { return position >> 16; }
int64_t PixelAfter(int64_t position) { return (position + kPixel - 1) >> 16; }

ShadowSpan MakeSpan(int64_t low, int64_t straightLow, int64_t straightHigh, int64_t high, int64_t reach) {
    ShadowSpan span{FirstPixel(low - reach), PixelAfter(straightLow + reach), FirstPixel(straightHigh - reach),
                    PixelAfter(high + reach)};
    if (span.middleBegin >= span.middleEnd) span.middleBegin = span.middleEnd = span.end;
    return span;
}

}  // namespace

Caster::Caster(const RoundedRect &shape, int64_t blur)
    : shape_(InSixteenths(shape)),
      edge_(blur),
      top_(shape_.top),
      bottom_(shape_.bottom),
      left_(MakeSide(true)),
      right_(MakeSide(false)) {
    const auto &radii = shape_.radii;
    const int64_t width = shape_.right - shape_.left, height = shape_.bottom - shape_.top;
    const auto overlap = [&](RoundedRect::Corner a, RoundedRect::Corner b) {
        return radii[a] + radii[b] > width && radii[a] + radii[b] > height;
    };
    if (overlap(RoundedRect::kTopLeft, RoundedRect::kBottomRight) ||
        overlap(RoundedRect::kTopRight, RoundedRect::kBottomLeft) ||
        *std::max_element(radii.begin(), radii.end()) > std::min(width, height)) {
        CutOverlap();
    }
}

CasterSide Caster::MakeSide(bool isLeft) const {
    const int64_t upper = shape_.radii[isLeft ? RoundedRect::kTopLeft : RoundedRect::kTopRight];
    const int64_t lower = shape_.radii[isLeft ? RoundedRect::kBottomLeft : RoundedRect::kBottomRight];
    return CasterSide(isLeft ? shape_.left : -shape_.right, top_, bottom_, shape_.top + upper, upper,
                      shape_.bottom - lower, lower, SlabLength(edge_));
}

/// Arcs of opposite corners may leave nothing of the first and the last rows. The width is a concave function of y.
void Caster::CutOverlap() {
    int64_t low = top_, high = bottom_;
    while (high - low > 2) {
        const int64_t third = (high - low) / 3;
        if (WidthAt(low + third) < WidthAt(high - third)) {
            low += third;
        } else {
            high -= third;
        }
    }
    const int64_t widest = low + (high - low) / 2;
    if (WidthAt(widest) <= 0) {
        bottom_ = top_;
        return;
    }
    const auto firstRow = [this](int64_t empty, int64_t filled) {
        if (WidthAt(empty) > 0) return empty;
        while (empty + 1 != filled && empty - 1 != filled) {
            const int64_t middle = empty + (filled - empty) / 2;
            (WidthAt(middle) > 0 ? filled : empty) = middle;
        }
        return filled;
    };
    const int64_t newTop = firstRow(top_, widest), newBottom = firstRow(bottom_, widest);
    top_ = newTop;
    bottom_ = newBottom;
    left_ = MakeSide(true);
    right_ = MakeSide(false);
}

ShadowSpan Caster::Columns() const {
    const auto &radii = shape_.radii;
    const int64_t atLeft = std::max(radii[RoundedRect::kTopLeft], radii[RoundedRect::kBottomLeft]);
    const int64_t atRight = std::max(radii[RoundedRect::kTopRight], radii[RoundedRect::kBottomRight]);
    return MakeSpan(shape_.left, shape_.left + atLeft, shape_.right - atRight, shape_.right, edge_.Reach());
}

ShadowSpan Caster::Rows() const {
    const auto &radii = shape_.radii;
    const int64_t above = std::max(radii[RoundedRect::kTopLeft], radii[RoundedRect::kTopRight]);
    const int64_t below = std::max(radii[RoundedRect::kBottomLeft], radii[RoundedRect::kBottomRight]);
    return MakeSpan(shape_.top, shape_.top + above, shape_.bottom - below, shape_.bottom, edge_.Reach());
}

int32_t Caster::RowShare(int64_t y) const {
    return (edge_.At(y * kPixel - top_) - edge_.At(y * kPixel - bottom_)) * 2 * GaussianEdge::kHalf;
}

std::optional<int64_t> Caster::MirrorDown() const {
    const auto &radii = shape_.radii;
    const bool isSymmetric = (shape_.top + shape_.bottom) % kPixel == 0 &&
                             top_ + bottom_ == shape_.top + shape_.bottom &&
                             radii[RoundedRect::kTopLeft] == radii[RoundedRect::kBottomLeft] &&
                             radii[RoundedRect::kTopRight] == radii[RoundedRect::kBottomRight];
    if (!isSymmetric) return std::nullopt;
    return (shape_.top + shape_.bottom) / kPixel - 1;
}

void Caster::SetWhole(int64_t x, int64_t y, const PixelRange &columns, int32_t *shares) const {
    const int64_t above = y * kPixel - edge_.Reach(), below = (y + 1) * kPixel + edge_.Reach();
    if (above < top_ || below > bottom_) return;
    int64_t begin = x + columns.from, end = x + columns.to;
    if (end * kPixel <= shape_.left + edge_.Reach() || begin * kPixel >= shape_.right - edge_.Reach()) return;
    begin = std::max(begin, PixelAfter(std::max(left_.At(above), left_.At(below)) + edge_.Reach()));
    end = std::min(end, FirstPixel(-std::max(right_.At(above), right_.At(below)) - edge_.Reach()));
    for (; begin < end; ++begin) shares[begin - x] = kFullShadow;
}

}  // namespace lacquer
