// Areas by chords: a box is crossed by a short arc, of which the chord's trapezium and the segment above it are known.

#include "draw/geometry/arc.h"

#include <algorithm>
#include <bit>

#include "draw/geometry/integer_root.h"
#include "draw/geometry/units.h"

namespace lacquer {
int64_t SegmentArea(int64_t du, int64_t dv, const ArcRadius &radius) {
    const auto squared = static_cast<uint64_t>(du * du + dv * dv);
    if (squared == 0) return 0;
    // With x = half the chord / radius the area is chord² x / 6 (1 + 3/10 x² + 9/56 x⁴ + ...). Nothing is negative.
    const uint64_t x = RoughRoot(squared) * (static_cast<uint64_t>(radius.inverse) >> 15) >> 16;  // in 2^-31
    const uint64_t x2 = x * x >> 31;
    const uint64_t series = (uint64_t{1} << 31) + x2 * 3 / 10 + (x2 * x2 >> 31) * 9 / 56;
    const int shift = std::max(0, static_cast<int>(std::bit_width(squared)) - 33);
    const uint64_t first = ((squared >> shift) * x >> 31) / 6;
    return static_cast<int64_t>((first * series >> 31) << shift);
}

Circle::Circle(int64_t radius) : radius_(ArcRadiusOf(radius << 8)), squared_(radius * radius) {
    for (Known &known : known_) known.across = -1;
    for (KnownPixel &known : knownPixels_) known.pixel = UINT64_MAX;
}

int64_t Circle::ComputeReach(int64_t across) const {
    const int64_t rest = squared_ - across * across;
    return rest <= 0 ? 0 : FloorRoot(static_cast<uint64_t>(rest) << 16);
}

ArcRow::ArcRow(const Circle &circle, int64_t v0, int64_t v1)
    : circle_(&circle), v0_(v0), v1_(v1), inner_(circle.ReachAt(v0)), outer_(circle.ReachAt(v1)) {}

/// Twice the area between v0 and the arc from one point of it to another, of larger u.
int64_t ArcRow::TwiceAreaUnderArc(ArcPoint from, ArcPoint to) const {
    if (from.v > from.u && to.u > to.v) {
        // The diagonal cuts it into parts of an eighth or less.
        const int64_t side = FloorRoot(static_cast<uint64_t>(circle_->Squared()) << 15);
        const ArcPoint middle{std::clamp(side, from.u, to.u), std::clamp(side, to.v, from.v)};
        return TwiceAreaUnderShortArc(from, middle) + TwiceAreaUnderShortArc(middle, to);
    }
    return TwiceAreaUnderShortArc(from, to);
}

int64_t ArcRow::TwiceAreaUnderShortArc(ArcPoint from, ArcPoint to) const {
    return (to.u - from.u) * (from.v + to.v - 2 * (v0_ << 8)) +
           2 * SegmentArea(to.u - from.u, from.v - to.v, circle_->Radius());
}

int64_t ArcRow::Outside(int64_t u0, int64_t u1) const {
    const int64_t squared = circle_->Squared();
    if (u1 * u1 + v1_ * v1_ <= squared) return 0;
    const int64_t box = (u1 - u0) * (v1_ - v0_) << 16;
    if (u0 * u0 + v0_ * v0_ >= squared) return box;
    if (u1 - u0 < kUnits || v1_ - v0_ < kUnits) return ComputeOutside(u0, u1);
    return circle_->OutsideInPixel(u0, v0_, [=, this] { return ComputeOutside(u0, u1); });
}

int64_t ArcRow::ComputeOutside(int64_t u0, int64_t u1) const {
    const int64_t squared = circle_->Squared(), box = (u1 - u0) * (v1_ - v0_) << 16;
    const ArcPoint enters =
        u0 * u0 + v1_ * v1_ >= squared ? ArcPoint{u0 << 8, circle_->ReachAt(u0)} : ArcPoint{outer_, v1_ << 8};
    const ArcPoint leaves =
        u1 * u1 + v0_ * v0_ >= squared ? ArcPoint{inner_, v0_ << 8} : ArcPoint{u1 << 8, circle_->ReachAt(u1)};
    const int64_t before = 2 * (enters.u - (u0 << 8)) * ((v1_ - v0_) << 8);
    const int64_t under = TwiceAreaUnderArc(enters, leaves);
    return std::clamp<int64_t>(box - ((before + under) >> 1), 0, box);
}

}  // namespace lacquer
