// How lines and curves are cut where they leave the visible part.
#pragma once

#include <algorithm>

#include "geometry.h"

namespace lacquer::vel {

/// How often a curve is halved at most, to find the part of it that is seen. A double has no more digits than that.
inline constexpr int kMaxHalvings = 50;

/// Where the line from `a` to `b`, which lie on different sides, crosses a border across it: the other coordinate. The
/// ends' own coordinates are multiplied first, not their distances from the border: a float times a float is exact.
template <double Point::*across, double Point::*along>
double Crossing(Point a, Point b, double border) {
    const double at =
        (a.*along * b.*across - a.*across * b.*along + border * (b.*along - a.*along)) / (b.*across - a.*across);
    return std::clamp(at, std::min(a.*along, b.*along), std::max(a.*along, b.*along));
}

/// A point by its coordinates in either order.
template <double Point::*across, double Point::*along>
Point PointAt(double first, double second) {
    Point p;
    p.*across = first;
    p.*along = second;
    return p;
}

}  // namespace lacquer::vel
