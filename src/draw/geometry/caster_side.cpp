// Slabs of an arc, spaced about evenly by angle: the tangent of half the angle grows in equal steps over an eighth of
// the circle, and the other eighth mirrors it.

#include "draw/geometry/caster_side.h"

#include <algorithm>

#include "draw/geometry/integer_root.h"

namespace lacquer {
namespace {

constexpr int64_t kOne = int64_t{1} << 30;
constexpr int64_t kEighthTangent = 444758461;  ///< tan(pi / 8) × 2^30

}  // namespace

CasterSide::Arc CasterSide::MakeArc(int64_t centre, int64_t radius, int64_t slab) {
    // An eighth of a circle is 0.785 radii long.
    const int64_t slabs = radius == 0 ? 0 : (radius * 201 / 256 + slab - 1) / slab;
    return {centre, ArcRadiusOf(radius), 2 * slabs};
}

CasterSide::CasterSide(int64_t edge, int64_t top, int64_t bottom, int64_t upperCentre, int64_t upperRadius,
                       int64_t lowerCentre, int64_t lowerRadius, int64_t slab)
    : edge_(edge),
      top_(top),
      bottom_(bottom),
      upper_(MakeArc(upperCentre, upperRadius, slab)),
      lower_(MakeArc(lowerCentre, lowerRadius, slab)) {}

int64_t CasterSide::Arc::CutHeight(int64_t i) const {
    const bool isFarHalf = i <= count / 2;
    const int64_t tangent = kEighthTangent * (isFarHalf ? i : count - i) / (count / 2);
    const int64_t square = tangent * tangent >> 30;
    return radius.length * (isFarHalf ? kOne - square : 2 * tangent) / (kOne + square);
}

int64_t CasterSide::Arc::ReachAt(int64_t height) const {
    const int64_t square = radius.length * radius.length - height * height;
    return square > 0 ? FloorRoot(static_cast<uint64_t>(square)) : 0;
}

int64_t CasterSide::Arc::MeanReach(int64_t low, int64_t high) const {
    const int64_t wide = ReachAt(low), narrow = ReachAt(high);
    return (wide + narrow) / 2 + SegmentArea(wide - narrow, high - low, radius) / (high - low);
}

int64_t CasterSide::Cut(int64_t i) const {
    int64_t y = top_;
    if (i >= SlabCount()) {
        y = bottom_;
    } else if (i > upper_.count) {
        y = lower_.count > 0 ? lower_.centre + lower_.CutHeight(lower_.count - (i - upper_.count - 1)) : bottom_;
    } else if (i == upper_.count) {
        y = upper_.centre;
    } else if (i > 0) {
        y = upper_.centre - upper_.CutHeight(i);
    }
    return std::clamp(y, top_, bottom_);
}

int64_t CasterSide::EdgeOf(int64_t i) const {
    const int64_t from = Cut(i), to = Cut(i + 1);
    if (from >= to) return At(from);
    if (i < upper_.count) {
        return edge_ + upper_.radius.length -
               upper_.MeanReach(std::max<int64_t>(0, upper_.centre - to), upper_.centre - from);
    }
    if (i > upper_.count) {
        return edge_ + lower_.radius.length -
               lower_.MeanReach(std::max<int64_t>(0, from - lower_.centre), to - lower_.centre);
    }
    return edge_;
}

int64_t CasterSide::At(int64_t y) const {
    int64_t x = edge_;
    if (y < upper_.centre) x = std::max(x, edge_ + upper_.radius.length - upper_.ReachAt(upper_.centre - y));
    if (y > lower_.centre) x = std::max(x, edge_ + lower_.radius.length - lower_.ReachAt(y - lower_.centre));
    return x;
}

}  // namespace lacquer
