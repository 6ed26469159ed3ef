// Fitting radii, and cover by exact areas.

#include "draw/geometry/rounded_rect.h"

#include <algorithm>
#include <memory>

#include "draw/geometry/integer_root.h"
#include "draw/geometry/units.h"

namespace lacquer {

void RoundedRect::FitRadii() {
    const std::array<int64_t, 4> sides{right - left, bottom - top, right - left, bottom - top};
    int64_t side = 1, sum = 1;
    for (size_t i = 0; i < 4; ++i) {
        // Only sides shorter than two radii take part, so the products are small.
        const int64_t needed = radii[i] + radii[(i + 1) % 4];
        if (sides[i] < needed && sides[i] * sum < side * needed) {
            side = sides[i];
            sum = needed;
        }
    }
    if (sum == 1) return;
    for (int64_t &radius : radii) radius = radius * side / sum;
}

RoundedRect RoundedRect::Grown(int64_t by) const {
    RoundedRect grown{left - by, top - by, right + by, bottom + by, radii};
    for (int64_t &radius : grown.radii) radius = std::max<int64_t>(0, radius + by);
    return grown;
}

CoverShape::CoverShape(const RoundedRect &rect)
    : rect_(rect), begin_(PixelAt(rect.top)), end_(rect.IsEmpty() ? INT64_MIN : PixelFrom(rect.bottom)) {
    const auto &radii = rect.radii;
    straightFrom_ = PixelFrom(rect.top + std::max(radii[RoundedRect::kTopLeft], radii[RoundedRect::kTopRight]));
    straightUntil_ = PixelAt(rect.bottom - std::max(radii[RoundedRect::kBottomLeft], radii[RoundedRect::kBottomRight]));
    mirrorSum_ = PixelAt(rect.left + rect.right) - 1;
    const int64_t leftEnd =
        PixelFrom(rect.left + std::max(radii[RoundedRect::kTopLeft], radii[RoundedRect::kBottomLeft]));
    isMirrored_ = rect.IsSymmetricAcross() && 2 * leftEnd <= mirrorSum_ + 1;
    uint8_t count = 0;
    for (uint8_t i = 0; i < 4; ++i) {
        uint8_t same = 0;
        while (same < i && radii[same] != radii[i]) ++same;
        circleOf_[i] = same < i ? circleOf_[same] : count++;
        if (same == i) std::construct_at(&circles_[circleOf_[i]], radii[i]);
    }
}

CoverRow::CoverRow(const CoverShape &shape, int64_t y)
    : shape_(shape),
      left_(shape.Rect().left),
      right_(shape.Rect().right),
      top_(std::max(shape.Rect().top, y * kUnits)),
      bottom_(std::min(shape.Rect().bottom, (y + 1) * kUnits)) {
    const RoundedRect &rect = shape.Rect();
    alikeUntil = shape.AlikeUntil(y);
    if (rect.IsEmpty() || top_ >= bottom_) return;
    begin = PixelAt(left_);
    end = PixelFrom(right_);
    flatBegin = PixelFrom(left_);
    flatEnd = PixelAt(right_);
    flat = static_cast<BYTE>(((bottom_ - top_) * kUnits * 255 + 32768) >> 16);
    const auto &radii = rect.radii;
    if (top_ < rect.top + std::max(radii[RoundedRect::kTopLeft], radii[RoundedRect::kTopRight])) {
        AddCorners(RoundedRect::kTopLeft, RoundedRect::kTopRight);
    }
    if (bottom_ > rect.bottom - std::max(radii[RoundedRect::kBottomLeft], radii[RoundedRect::kBottomRight])) {
        AddCorners(RoundedRect::kBottomLeft, RoundedRect::kBottomRight);
    }
    if (flatBegin >= flatEnd) flatBegin = flatEnd = end;
}

void CoverRow::AddCorners(RoundedRect::Corner left, RoundedRect::Corner right) {
    AddCorner(left);
    if (!shape_.IsMirrored()) return AddCorner(right);
    end = shape_.MirrorSum() + 1 - begin;
    flatEnd = shape_.MirrorSum() + 1 - flatBegin;
}

void CoverRow::AddCorner(RoundedRect::Corner corner) {
    const bool isLeft = corner == RoundedRect::kTopLeft || corner == RoundedRect::kBottomLeft;
    const bool isTop = corner == RoundedRect::kTopLeft || corner == RoundedRect::kTopRight;
    const int64_t radius = shape_.Rect().radii[corner];
    const int64_t centreX = isLeft ? left_ + radius : right_ - radius;
    const int64_t centreY = isTop ? shape_.Rect().top + radius : shape_.Rect().bottom - radius;
    const int64_t v0 = std::max<int64_t>(0, isTop ? centreY - bottom_ : top_ - centreY);
    const int64_t v1 = isTop ? centreY - top_ : bottom_ - centreY;
    if (v1 <= 0) return;
    // The corners beside each other are mostly equal.
    const CornerArc *previous = cornerCount_ > 0 ? &corners_[static_cast<size_t>(cornerCount_ - 1)] : nullptr;
    if (!previous || previous->isTop != isTop || previous->radius != radius) {
        // In its place: a copy would read what has just been written in other pieces.
        std::construct_at(&arcs_[static_cast<size_t>(arcCount_++)], shape_.CircleOf(corner), v0, v1);
    }
    corners_[static_cast<size_t>(cornerCount_++)] = {isLeft, isTop, centreX, centreY, radius, arcCount_ - 1};
    // The roots were rounded down.
    const ArcRow &arc = arcs_[static_cast<size_t>(arcCount_ - 1)];
    const int64_t most = arc.InnerReach() + 1, least = arc.OuterReach();
    if (isLeft) {
        begin = std::max(begin, PixelAt(centreX - most));
        flatBegin = std::max(flatBegin, PixelFrom(centreX - least));
    } else {
        end = std::min(end, PixelFrom(centreX + most));
        flatEnd = std::min(flatEnd, PixelAt(centreX + least));
    }
}

BYTE CoverRow::At(int64_t x) const {
    if (shape_.IsMirrored()) x = std::min(x, shape_.MirrorSum() - x);
    const int64_t from = std::max(left_, x * kUnits), to = std::min(right_, (x + 1) * kUnits);
    if (from >= to || top_ >= bottom_) return 0;
    int64_t area = (to - from) * (bottom_ - top_) << 16;
    int cutting = 0;
    for (int i = 0; i < cornerCount_; ++i) {
        const CornerArc &corner = corners_[static_cast<size_t>(i)];
        const int64_t u1 = corner.isLeft ? corner.centreX - from : to - corner.centreX;
        if (u1 <= 0) continue;
        const int64_t u0 = std::max<int64_t>(0, corner.isLeft ? corner.centreX - to : from - corner.centreX);
        const int64_t outside = ArcOf(corner).Outside(u0, u1);
        cutting += outside > 0;
        area -= outside;
    }
    // What two corners cut off may overlap.
    if (cutting > 1) area = AreaBySlices(from, to);
    return static_cast<BYTE>((std::max<int64_t>(0, area) * 255 + (int64_t{1} << 31)) >> 32);
}

int64_t CoverRow::AreaBySlices(int64_t from, int64_t to) const {
    // A slice is a unit high; what is left of it is one piece. Its middle is counted in half units.
    int64_t area = 0;
    for (int64_t y = top_; y < bottom_; ++y) {
        int64_t left = from << 8, right = to << 8;
        for (int i = 0; i < cornerCount_; ++i) {
            const CornerArc &corner = corners_[static_cast<size_t>(i)];
            const int64_t v = corner.isTop ? 2 * (corner.centreY - y) - 1 : 2 * (y - corner.centreY) + 1;
            if (v <= 0) continue;
            const auto reach =
                static_cast<int64_t>(FloorRoot(static_cast<uint64_t>(4 * corner.radius * corner.radius - v * v) << 14));
            if (corner.isLeft) {
                left = std::max(left, (corner.centreX << 8) - reach);
            } else {
                right = std::min(right, (corner.centreX << 8) + reach);
            }
        }
        area += std::max<int64_t>(0, right - left) << 8;
    }
    return area;
}

void CoverRow::Write(int64_t x, int count, BYTE *out) const {
    for (int i = 0; i < count; ++i) {
        const int64_t pixel = x + i;
        const bool isOutside = pixel < begin || pixel >= end, isFlat = pixel >= flatBegin && pixel < flatEnd;
        out[i] = isOutside ? BYTE{0} : isFlat ? flat : At(pixel);
    }
}

}  // namespace lacquer
