// Areas under the quarter of a circle around the origin, in one row of pixels. The axes u and v point outwards.
#pragma once

#include <cstdint>

namespace lacquer {

/// A point in 1/65536 pixel.
struct ArcPoint {
    int64_t u, v;
};

/// What lies between an arc of at most an eighth of a circle and its chord, in units whose square the lengths are in;
/// lengths up to 2^31.
int64_t SegmentArea(int64_t du, int64_t dv, int64_t radius);

/// Twice the area between the u axis raised to `v` and the arc from one point of it to another, of larger u.
int64_t TwiceAreaUnderArc(ArcPoint from, ArcPoint to, int64_t v, int64_t radius);

/// A row of boxes v0..v1, in units of 1/256 pixel, 0 <= v0 < v1 <= radius.
class ArcRow {
public:
    ArcRow() = default;
    ArcRow(int64_t radius, int64_t v0, int64_t v1);

    /// How far the disc reaches at v0 and v1, units, rounded down.
    int64_t InnerReach() const { return inner_ >> 8; }
    int64_t OuterReach() const { return outer_ >> 8; }

    /// The area outside the disc in the box u0..u1 of the row, 0 <= u0 < u1 <= radius, in 2^-32 square pixels. Boxes
    /// that follow each other share their sides' roots.
    int64_t Outside(int64_t u0, int64_t u1) const;

private:
    int64_t HeightAt(int64_t u) const;

    int64_t radius_ = 0, squared_ = 0, v0_ = 0, v1_ = 0;
    int64_t inner_ = 0, outer_ = 0;  ///< 1/65536 pixel
    mutable int64_t knownU_ = -1, knownHeight_ = 0;
};

}  // namespace lacquer
