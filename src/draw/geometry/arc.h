// Areas under the quarter of a circle around the origin, in one row of pixels. The axes u and v point outwards.
#pragma once

#include <algorithm>
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

/// A circle around the origin. It keeps what was asked for last: pixels beside and below each other share their sides.
class Circle {
public:
    Circle() = default;

    /// `radius`: units.
    explicit Circle(int64_t radius);

    const ArcRadius &Radius() const { return radius_; }

    /// Of the radius in units.
    int64_t Squared() const { return squared_; }

    /// How far the disc reaches, in 1/65536 pixel, at so many units from the centre across.
    int64_t ReachAt(int64_t across) const {
        Known &known = known_[across >> 8 & (kKnown - 1)];
        if (known.across != across) known = {across, ComputeReach(across)};
        return known.reach;
    }

    /// The area outside the disc in the pixel that begins at (u0, v0), units; `compute()` finds it out. It is that of
    /// the pixel at (v0, u0).
    template <class Compute>
    int64_t OutsideInPixel(int64_t u0, int64_t v0, const Compute &compute) const {
        const auto low = static_cast<uint64_t>(std::min(u0, v0)), high = static_cast<uint64_t>(std::max(u0, v0));
        const uint64_t pixel = low << 32 | high;
        KnownPixel &known = knownPixels_[(low >> 5 ^ high >> 8) & (kKnownPixels - 1)];
        if (known.pixel != pixel) known = {pixel, compute()};
        return known.outside;
    }

private:
    int64_t ComputeReach(int64_t across) const;

    struct Known {
        int64_t across, reach;
    };
    struct KnownPixel {
        uint64_t pixel;
        int64_t outside;
    };
    static constexpr int64_t kKnown = 16, kKnownPixels = 64;

    ArcRadius radius_;
    int64_t squared_;
    mutable Known known_[kKnown];
    mutable KnownPixel knownPixels_[kKnownPixels];
};

/// A row of boxes v0..v1, in units of 1/256 pixel, 0 <= v0 < v1 <= radius.
class ArcRow {
public:
    ArcRow() = default;

    /// `circle` has to live as long.
    ArcRow(const Circle &circle, int64_t v0, int64_t v1);

    /// How far the disc reaches at v0 and v1, units, rounded down.
    int64_t InnerReach() const { return inner_ >> 8; }
    int64_t OuterReach() const { return outer_ >> 8; }

    /// The area outside the disc in the box u0..u1 of the row, 0 <= u0 < u1 <= radius, in 2^-32 square pixels.
    int64_t Outside(int64_t u0, int64_t u1) const;

private:
    int64_t ComputeOutside(int64_t u0, int64_t u1) const;
    int64_t TwiceAreaUnderArc(ArcPoint from, ArcPoint to) const;
    int64_t TwiceAreaUnderShortArc(ArcPoint from, ArcPoint to) const;

    const Circle *circle_;
    int64_t v0_, v1_;
    int64_t inner_, outer_;  ///< 1/65536 pixel
};

}  // namespace lacquer
