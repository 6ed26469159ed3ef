// The rectangle of whole pixels that drawing is confined to.
#pragma once

#include <algorithm>
#include <climits>
#include <cmath>

#include "geometry.h"

namespace lacquer::vel {

/// Right and bottom are exclusive. At first the whole plane.
struct Clip {
    int left = INT_MIN, top = INT_MIN, right = INT_MAX, bottom = INT_MAX;

    bool operator==(const Clip &) const = default;
    bool IsEmpty() const { return left >= right || top >= bottom; }
    double Area() const { return (static_cast<double>(right) - left) * (static_cast<double>(bottom) - top); }
    Clip Intersected(const Clip &other) const {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
    /// The smallest one around both; of an empty one nothing counts.
    Clip United(const Clip &other) const {
        if (IsEmpty()) return other;
        if (other.IsEmpty()) return *this;
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }
    Clip MovedBy(int x, int y) const { return {left + x, top + y, right + x, bottom + y}; }
};

/// The nearest whole coordinate that an int can hold; halves go up.
inline int Pixel(double coordinate) {
    return static_cast<int>(std::clamp(std::floor(coordinate + 0.5), double{INT_MIN}, double{INT_MAX}));
}

/// Edges at the nearest whole pixels.
inline Clip PixelRect(Point low, Point high) { return {Pixel(low.x), Pixel(low.y), Pixel(high.x), Pixel(high.y)}; }

/// All pixels that a rectangle covers in part.
inline Clip PixelsTouched(const Bounds &bounds) {
    return {Pixel(std::floor(bounds.low.x)), Pixel(std::floor(bounds.low.y)), Pixel(std::ceil(bounds.high.x)),
            Pixel(std::ceil(bounds.high.y))};
}

}  // namespace lacquer::vel
