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
};

/// The nearest whole coordinate that an int can hold; halves go up.
inline int Pixel(double coordinate) {
    return static_cast<int>(std::clamp(std::floor(coordinate + 0.5), double{INT_MIN}, double{INT_MAX}));
}

/// Edges at the nearest whole pixels.
inline Clip PixelRect(Point low, Point high) { return {Pixel(low.x), Pixel(low.y), Pixel(high.x), Pixel(high.y)}; }

}  // namespace lacquer::vel
