// Areas under the quarter of a circle around the origin, in one row of pixels. The axes u and v point outwards.
#pragma once

#include <cstdint>

namespace lacquer {

/// A point in 1/65536 pixel.
struct ArcPoint {
    int64_t u, v;
};

/// A circle's radius in 1/65536 pixel, and what dividing by it takes.
struct ArcRadius {
    int64_t length, inverse;  ///< 2^61 / length
};

constexpr ArcRadius ArcRadiusOf(int64_t length) { return {length, length > 0 ? (int64_t{1} << 61) / length : 0}; }

/// What lies between an arc of at most an eighth of a circle and its chord, in 2^-32 square pixels; off by less than
/// 1/200 of it.
int64_t SegmentArea(int64_t du, int64_t dv, const ArcRadius &radius);

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
    int64_t TwiceAreaUnderArc(ArcPoint from, ArcPoint to) const;
    int64_t TwiceAreaUnderShortArc(ArcPoint from, ArcPoint to) const;

    ArcRadius radius_;
    int64_t squared_, v0_, v1_;
    int64_t inner_, outer_;  ///< 1/65536 pixel
    mutable int64_t knownU_, knownHeight_;
};

}  // namespace lacquer
