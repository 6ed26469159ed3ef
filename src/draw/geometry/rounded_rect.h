// Rectangles with round corners, and how much of each pixel they cover.
#pragma once

#include <array>
#include <cstdint>

#include "draw/geometry/arc.h"
#include "platform/platform.h"

namespace lacquer {

/// A rectangle in units, less, in each corner's radius × radius square, what lies outside the circle around the
/// square's inner corner.
struct RoundedRect {
    enum Corner { kTopLeft, kTopRight, kBottomRight, kBottomLeft };

    int64_t left = 0, top = 0, right = 0, bottom = 0;
    std::array<int64_t, 4> radii{};

    bool IsEmpty() const { return left >= right || top >= bottom; }

    /// Scales radii that do not fit down together: each × (side / sum of its two) for the worst side, rounded down.
    void FitRadii();

    /// The rectangle with every edge moved outwards and the radii grown alike; inwards for a negative `by`. Radii do
    /// not become negative.
    RoundedRect Grown(int64_t by) const;

    /// Whether a mirror maps the shape and the pixels onto themselves.
    bool IsSymmetricAcross() const {
        return ((left + right) & 255) == 0 && radii[kTopLeft] == radii[kTopRight] &&
               radii[kBottomLeft] == radii[kBottomRight];
    }
    bool IsSymmetricDown() const {
        return ((top + bottom) & 255) == 0 && radii[kTopLeft] == radii[kBottomLeft] &&
               radii[kTopRight] == radii[kBottomRight];
    }
};

/// A rectangle and the circles of its corners, for the rows that are asked for one after the other.
class CoverShape {
public:
    explicit CoverShape(const RoundedRect &rect);

    const RoundedRect &Rect() const { return rect_; }
    const Circle &CircleOf(RoundedRect::Corner corner) const { return circles_[circleOf_[corner]]; }

    /// The sum of two columns of which one mirrors the other, where that holds and left and right corners share no
    /// pixel.
    bool IsMirrored() const { return isMirrored_; }
    int64_t MirrorSum() const { return mirrorSum_; }

    /// The rows from y on are alike up to that one.
    int64_t AlikeUntil(int64_t y) const {
        if (y >= end_) return INT64_MAX;
        if (y < begin_) return begin_;
        return y >= straightFrom_ && y < straightUntil_ ? straightUntil_ : y + 1;
    }

private:
    RoundedRect rect_;
    int64_t begin_, end_, straightFrom_, straightUntil_;  ///< rows
    int64_t mirrorSum_;
    bool isMirrored_;
    std::array<Circle, 4> circles_;
    std::array<uint8_t, 4> circleOf_;  ///< by corner; equal ones share theirs
};

/// Where the pixels of a row are covered at all, and where evenly.
struct CoverSpan {
    /// Pixels from `begin` to `end` may be covered, those from `flatBegin` to `flatEnd` equally: `flat`.
    int64_t begin = 0, flatBegin = 0, flatEnd = 0, end = 0;
    int64_t alikeUntil = 0;  ///< the rows from this one up to that one are alike
    BYTE flat = 0;
};

/// How much of the pixels of one row a shape covers, 0..255. Depends on nothing but shape and row.
class CoverRow : public CoverSpan {
public:
    /// `shape` has to live as long.
    CoverRow(const CoverShape &shape, int64_t y);

    /// Writes the cover of `count` pixels from x on.
    void Write(int64_t x, int count, BYTE *out) const;

    BYTE At(int64_t x) const;

private:
    struct CornerArc {
        bool isLeft, isTop;
        int64_t centreX, centreY, radius;
        int arc;  ///< its place in `arcs_`
    };

    void AddCorners(RoundedRect::Corner left, RoundedRect::Corner right);
    void AddCorner(RoundedRect::Corner corner);
    const ArcRow &ArcOf(const CornerArc &corner) const { return arcs_[static_cast<size_t>(corner.arc)]; }
    int64_t AreaBySlices(int64_t from, int64_t to) const;

    const CoverShape &shape_;
    int64_t left_, right_;              ///< of the shape, units
    int64_t top_, bottom_;              ///< of the shape in this row
    std::array<CornerArc, 4> corners_;  ///< the first `cornerCount_` of them
    std::array<ArcRow, 4> arcs_;
    int cornerCount_ = 0, arcCount_ = 0;
};

}  // namespace lacquer
