// Cover of a ring's pixels. The straight sides are products of two lengths; a corner is cut into thin arcs around its
// centre, of which the dashed length is known exactly.

#include "draw/geometry/ring_cover.h"

#include <algorithm>

#include "draw/geometry/angle.h"
#include "draw/geometry/integer_root.h"
#include "draw/geometry/units.h"

namespace lacquer {
namespace {

constexpr int64_t kPixel = 65536;

constexpr int kSlices = 16;    ///< of the mitres in which two sides meet
constexpr int kStretches = 8;  ///< of a pixel far from its corner's centre
constexpr int kArcs = 6;       ///< of each part of a pixel's way through a corner

int64_t CornerSide(int64_t radius, int64_t width) { return std::max(radius, width / 2); }

int64_t ArcLength(int64_t radius) { return (radius * kQuarterTurn + (int64_t{1} << 29)) >> kAngleBits; }

int64_t Distance(int64_t x, int64_t y) { return FloorRoot(static_cast<uint64_t>(x * x + y * y)); }

/// The other leg of a right-angled triangle.
int64_t Leg(int64_t longest, int64_t leg) {
    const int64_t square = longest * longest - leg * leg;
    return square > 0 ? FloorRoot(static_cast<uint64_t>(square)) : 0;
}

}  // namespace

RingCover::Box RingCover::Box::CutTo(int64_t aLow, int64_t aHigh, int64_t bLow, int64_t bHigh) const {
    return {std::max(a0, aLow), std::min(a1, aHigh), std::max(b0, bLow), std::min(b1, bHigh)};
}

int64_t RingCover::LineLength(const RoundedRect &shape, int64_t width) {
    const int64_t corner = CornerSide(shape.radii[0] << 8, width << 8);
    return 2 * ((shape.right - shape.left + shape.bottom - shape.top) << 8) - 8 * corner +
           4 * ArcLength(corner - (width << 7));
}

RingCover::RingCover(const RoundedRect &shape, int64_t width, int64_t dash, int64_t gap)
    : left_(shape.left << 8),
      top_(shape.top << 8),
      right_(shape.right << 8),
      bottom_(shape.bottom << 8),
      width_(width << 8),
      outerRadius_(shape.radii[0] << 8),
      innerRadius_(std::max<int64_t>(0, outerRadius_ - width_)),
      corner_(CornerSide(outerRadius_, width_)),
      lineRadius_(corner_ - width_ / 2),
      across_(right_ - left_ - 2 * corner_),
      down_(bottom_ - top_ - 2 * corner_),
      arc_(ArcLength(lineRadius_)),
      starts_{arc_ / 2, arc_ / 2 + across_ + arc_, arc_ / 2 + across_ + down_ + 2 * arc_,
              arc_ / 2 + 2 * across_ + down_ + 3 * arc_},
      dashes_(LineLength(shape, width), dash << 8, gap << 8),
      outer_(outerRadius_ >> 8),
      inner_(innerRadius_ >> 8) {}

std::array<RingCover::Box, 4> RingCover::InSides(const Box &box) const {
    const int64_t leftEnd = left_ + corner_, topEnd = top_ + corner_;
    const int64_t rightEnd = right_ - corner_, bottomEnd = bottom_ - corner_;
    return {{{box.a0 - leftEnd, box.a1 - leftEnd, box.b0 - top_, box.b1 - top_},
             {box.b0 - topEnd, box.b1 - topEnd, right_ - box.a1, right_ - box.a0},
             {rightEnd - box.a1, rightEnd - box.a0, bottom_ - box.b1, bottom_ - box.b0},
             {bottomEnd - box.b1, bottomEnd - box.b0, box.a0 - left_, box.a1 - left_}}};
}

BYTE RingCover::At(int64_t x, int64_t y) const {
    const int64_t reach = std::max(corner_, width_);
    int64_t area = 0;
    size_t side = 0;
    for (const Box &box : InSides({x << 16, (x + 1) << 16, y << 16, (y + 1) << 16})) {
        if (box.b0 < reach) {
            area += SideArea(box, LengthOf(side), starts_[side]);
            if (box.a0 < 0) area += CornerArea(InCorner(box), CornerStart(side));
        }
        ++side;
    }
    return CoverOf(area);
}

void RingCover::Write(int64_t x, int count, int64_t y, BYTE *out) const {
    // From one pixel to the next, along each side and inwards.
    constexpr int64_t kAlong[] = {kPixel, 0, -kPixel, 0}, kInwards[] = {0, -kPixel, 0, kPixel};
    size_t side = 0;
    for (Box box : InSides({x << 16, (x + count) << 16, y << 16, (y + 1) << 16})) {
        const bool isInSide = IsInSide(box, LengthOf(side));
        if (!isInSide && !IsInCorner(InCorner(box))) {
            ++side;
            continue;
        }
        const int64_t along = kAlong[side], inwards = kInwards[side];
        // The first pixel of the run.
        box = {along < 0 ? box.a1 - kPixel : box.a0, along > 0 ? box.a0 + kPixel : box.a1,
               inwards < 0 ? box.b1 - kPixel : box.b0, inwards > 0 ? box.b0 + kPixel : box.b1};
        for (int i = 0; i < count; ++i) {
            out[i] = CoverOf(isInSide ? SideArea(box, LengthOf(side), starts_[side])
                                      : CornerArea(InCorner(box), CornerStart(side)));
            box = {box.a0 + along, box.a1 + along, box.b0 + inwards, box.b1 + inwards};
        }
        return;
    }
    for (int i = 0; i < count; ++i) out[i] = At(x + i, y);
}

RingBlock RingCover::BlockOf(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd) const {
    bool isInside = true;
    size_t side = 0;
    for (const Box &box : InSides({x << 16, xEnd << 16, y << 16, yEnd << 16})) {
        const Box corner = InCorner(box);
        if (IsInSide(box, LengthOf(side))) {
            return side % 2 == 0 ? RingBlock::kAlikeDown : RingBlock::kAlikeAcross;
        }
        if (IsInCorner(corner)) return CornerBlockOf(corner, CornerStart(side));
        isInside &= box.b0 >= width_ && (corner.a1 <= 0 || corner.b1 <= 0);
        ++side;
    }
    return isInside ? RingBlock::kNothing : RingBlock::kVarying;
}

/// `box`: inside the corner's square.
RingBlock RingCover::CornerBlockOf(const Box &box, int64_t start) const {
    if (lineRadius_ == 0) {
        if (!dashes_.Contains(start)) return RingBlock::kNothing;
        const int64_t inset = corner_ - outerRadius_, a = box.a1 - inset, b = box.b1 - inset;
        return a <= 0 || b <= 0 || Distance(a, b) < outerRadius_ ? RingBlock::kWhole : RingBlock::kVarying;
    }
    const int64_t nearest = Distance(box.a0, box.b0), farthest = Distance(box.a1, box.b1);
    if (farthest <= innerRadius_ || nearest >= outerRadius_) return RingBlock::kNothing;
    // The pixels' own areas may take a little more of the line into account than they see.
    const Box wider{std::max<int64_t>(0, box.a0 - kPixel), box.a1 + kPixel, std::max<int64_t>(0, box.b0 - kPixel),
                    box.b1 + kPixel};
    const int64_t first = PlaceOf(wider.a1, wider.b0, start), last = PlaceOf(wider.a0, wider.b1, start);
    const int64_t dashed = dashes_.Between(first, last);
    if (dashed == 0) return RingBlock::kNothing;
    const bool isBetween = nearest >= innerRadius_ && farthest < outerRadius_;
    return isBetween && dashed >= last - first ? RingBlock::kWhole : RingBlock::kVarying;
}

/// A wide ring's sides meet in mitres.
int64_t RingCover::SideArea(const Box &box, int64_t length, int64_t start) const {
    int64_t area = 0;
    const Box straight = box.CutTo(0, length, 0, std::min(corner_, width_));
    if (!straight.IsEmpty()) {
        area = dashes_.Between(start + straight.a0, start + straight.a1) * (straight.b1 - straight.b0);
    }
    const Box mitred = box.CutTo(0, length, corner_, width_);
    if (mitred.IsEmpty()) return area;
    const int64_t least = mitred.b0 - corner_, most = mitred.b1 - corner_;
    if (mitred.a1 <= least || mitred.a0 >= length - least) return area;
    if (mitred.a0 >= most && mitred.a1 <= length - most) {
        return area + dashes_.Between(start + mitred.a0, start + mitred.a1) * (mitred.b1 - mitred.b0);
    }
    for (int i = 0; i < kSlices; ++i) {
        const int64_t depth = mitred.b1 - mitred.b0;
        const int64_t b0 = mitred.b0 + depth * i / kSlices, b1 = mitred.b0 + depth * (i + 1) / kSlices;
        const int64_t inset = (b0 + b1) / 2 - corner_;
        const Box slice = mitred.CutTo(inset, length - inset, b0, b1);
        if (!slice.IsEmpty()) area += dashes_.Between(start + slice.a0, start + slice.a1) * (b1 - b0);
    }
    return area;
}

int64_t RingCover::CornerArea(const Box &whole, int64_t start) const {
    const Box box = whole.CutTo(0, corner_, 0, corner_);
    if (box.IsEmpty()) return 0;
    if (lineRadius_ == 0) return SharpCornerArea(box, start);
    if (IsFar(box)) return FarArea(box, start);
    const int64_t nearest = Distance(box.a0, box.b0), farthest = Distance(box.a1, box.b1);
    const int64_t from = std::max(innerRadius_, nearest), to = std::min(outerRadius_, farthest);
    if (from >= to) return 0;
    // Most pixels lie in one dash, or in one gap.
    const int64_t first = PlaceOf(box.a1, box.b0, start), last = PlaceOf(box.a0, box.b1, start);
    const int64_t dashed = dashes_.Between(first, last);
    if (dashed == 0) return 0;
    if (dashed >= last - first) {
        const bool isInside = nearest >= innerRadius_ && farthest < outerRadius_;
        return isInside ? box.Area() : DiscArea(box, outer_) - DiscArea(box, inner_);
    }
    return SectorArea(box, from, to, start);
}

/// A whole pixel of the ring's corner so far from the centre that the radii through it are as good as parallel.
bool RingCover::IsFar(const Box &box) const {
    constexpr int64_t kFar = 64 << 16;
    const int64_t least = std::max(innerRadius_, kFar);
    return box.Area() == int64_t{1} << 32 && box.a0 * box.a0 + box.b0 * box.b0 >= least * least &&
           box.a1 * box.a1 + box.b1 * box.b1 <= outerRadius_ * outerRadius_ && lineRadius_ >= kFar;
}

/// Where the centre line is nearest to a point of a corner whose arc begins at `start`.
int64_t RingCover::PlaceOf(int64_t a, int64_t b, int64_t start) const {
    return start + (AngleOf(a, b) * lineRadius_ >> kAngleBits);
}

/// In stretches along the side that turns more of the angle: what each crosses of the centre line is known exactly.
int64_t RingCover::FarArea(const Box &box, int64_t start) const {
    const int64_t a = (box.a0 + box.a1) / 2, b = (box.b0 + box.b1) / 2, squared = (a * a + b * b) >> 16;
    const int64_t place = PlaceOf(a, b, start);
    const int64_t length = lineRadius_ * std::max(a, b) / squared, spread = lineRadius_ * std::min(a, b) / squared;
    const int64_t first = place - length / 2 - spread * (kStretches - 1) / (int64_t{2} * kStretches);
    return (dashes_.MeanBetween(first, spread, kStretches, length) << 32) / length;
}

/// The part of a box inside the disc; here all positions are whole units.
int64_t RingCover::DiscArea(const Box &box, const Circle &disc) {
    const int64_t radius = disc.Radius().length;
    const Box inside = box.CutTo(0, radius, 0, radius);
    if (inside.IsEmpty()) return 0;
    const ArcRow row(disc, inside.b0 >> 8, inside.b1 >> 8);
    return inside.Area() - row.Outside(inside.a0 >> 8, inside.a1 >> 8);
}

/// All points of a sharp corner belong to the point in which the centre line turns.
int64_t RingCover::SharpCornerArea(const Box &box, int64_t start) const {
    if (!dashes_.Contains(start)) return 0;
    const int64_t inset = corner_ - outerRadius_;
    const Box rounded =
        Box{box.a0 - inset, box.a1 - inset, box.b0 - inset, box.b1 - inset}.CutTo(0, outerRadius_, 0, outerRadius_);
    return rounded.IsEmpty() ? box.Area() : box.Area() - rounded.Area() + DiscArea(rounded, outer_);
}

/// The dashed area of a box between two radii. Between the distances of the box's corners the arcs' lengths change
/// smoothly.
int64_t RingCover::SectorArea(const Box &box, int64_t from, int64_t to, int64_t start) const {
    int64_t turns[] = {Distance(box.a0, box.b1), Distance(box.a1, box.b0), to};
    if (turns[0] > turns[1]) std::swap(turns[0], turns[1]);
    int64_t area = 0;
    for (const int64_t turn : turns) {
        const int64_t end = std::clamp(turn, from, to);
        for (int i = 0; i < kArcs && end > from; ++i) {
            const int64_t inner = from + (end - from) * i / kArcs, outer = from + (end - from) * (i + 1) / kArcs;
            const int64_t radius = (inner + outer) / 2;
            area += AlongArc(box, radius, start) * radius / lineRadius_ * (outer - inner);
        }
        from = end;
    }
    return area;
}

/// The dashes that an arc of so large a radius crosses inside a box, measured on the centre line.
int64_t RingCover::AlongArc(const Box &box, int64_t radius, int64_t start) const {
    const int64_t squared = radius * radius;
    const int64_t low = squared <= box.a1 * box.a1 + box.b0 * box.b0 ? AngleOf(Leg(radius, box.b0), box.b0)
                                                                     : AngleOf(box.a1, Leg(radius, box.a1));
    const int64_t high = squared <= box.a0 * box.a0 + box.b1 * box.b1 ? AngleOf(box.a0, Leg(radius, box.a0))
                                                                      : AngleOf(Leg(radius, box.b1), box.b1);
    if (low >= high) return 0;
    return dashes_.Between(start + (low * lineRadius_ >> kAngleBits), start + (high * lineRadius_ >> kAngleBits));
}

}  // namespace lacquer
