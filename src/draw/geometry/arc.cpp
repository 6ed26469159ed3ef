// Areas by chords: a box is crossed by a short arc, of which the chord's trapezium and the segment above it are known.

#include "draw/geometry/arc.h"

#include <algorithm>
#include <bit>

#include "draw/geometry/integer_root.h"

namespace lacquer {
namespace {

/// sqrt(squared - at²) in 1/65536 pixel; the arguments are in units of 1/256.
int64_t LegOf(int64_t squared, int64_t at) {
    const int64_t rest = squared - at * at;
    return rest <= 0 ? 0 : FloorRoot(static_cast<uint64_t>(rest) << 16);
}

}  // namespace

int64_t SegmentArea(int64_t du, int64_t dv, const ArcRadius &radius) {
    const auto squared = static_cast<uint64_t>(du * du + dv * dv);
    if (squared == 0) return 0;
    // With x = half the chord / radius the area is chord² x / 6 (1 + 3/10 x² + 9/56 x⁴ + ...).
    const int64_t x = static_cast<int64_t>(RoughRoot(squared)) * (radius.inverse >> 15) >> 16;  // in 2^-31
    const int64_t x2 = x * x >> 31;
    const int64_t series = (int64_t{1} << 31) + x2 * 3 / 10 + (x2 * x2 >> 31) * 9 / 56;
    const int shift = std::max(0, static_cast<int>(std::bit_width(squared)) - 33);
    const int64_t first = (static_cast<int64_t>(squared >> shift) * x >> 31) / 6;
    return (first * series >> 31) << shift;
}

ArcRow::ArcRow(int64_t radius, int64_t v0, int64_t v1)
    : radius_(ArcRadiusOf(radius << 8)),
      squared_(radius * radius),
      v0_(v0),
      v1_(v1),
      inner_(LegOf(squared_, v0)),
      outer_(LegOf(squared_, v1)),
      knownU_(-1),
      knownHeight_(0) {}

int64_t ArcRow::HeightAt(int64_t u) const {
    if (u != knownU_) {
        knownU_ = u;
        knownHeight_ = LegOf(squared_, u);
    }
    return knownHeight_;
}

/// Twice the area between v0 and the arc from one point of it to another, of larger u.
int64_t ArcRow::TwiceAreaUnderArc(ArcPoint from, ArcPoint to) const {
    if (from.v > from.u && to.u > to.v) {
        // The diagonal cuts it into parts of an eighth or less.
        const int64_t side = FloorRoot(static_cast<uint64_t>(squared_) << 15);
        const ArcPoint middle{std::clamp(side, from.u, to.u), std::clamp(side, to.v, from.v)};
        return TwiceAreaUnderShortArc(from, middle) + TwiceAreaUnderShortArc(middle, to);
    }
    return TwiceAreaUnderShortArc(from, to);
}

int64_t ArcRow::TwiceAreaUnderShortArc(ArcPoint from, ArcPoint to) const {
    return (to.u - from.u) * (from.v + to.v - 2 * (v0_ << 8)) + 2 * SegmentArea(to.u - from.u, from.v - to.v, radius_);
}

int64_t ArcRow::Outside(int64_t u0, int64_t u1) const {
    if (u1 * u1 + v1_ * v1_ <= squared_) return 0;
    const int64_t box = (u1 - u0) * (v1_ - v0_) << 16;
    if (u0 * u0 + v0_ * v0_ >= squared_) return box;
    const ArcPoint enters =
        u0 * u0 + v1_ * v1_ >= squared_ ? ArcPoint{u0 << 8, HeightAt(u0)} : ArcPoint{outer_, v1_ << 8};
    const ArcPoint leaves =
        u1 * u1 + v0_ * v0_ >= squared_ ? ArcPoint{inner_, v0_ << 8} : ArcPoint{u1 << 8, HeightAt(u1)};
    const int64_t before = 2 * (enters.u - (u0 << 8)) * ((v1_ - v0_) << 8);
    const int64_t under = TwiceAreaUnderArc(enters, leaves);
    return std::clamp<int64_t>(box - ((before + under) >> 1), 0, box);
}

}  // namespace lacquer
