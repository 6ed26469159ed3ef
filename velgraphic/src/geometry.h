// Points, the limits of coordinates, and angles that come out the same with every C library.
#pragma once

#include <cmath>

namespace lacquer::vel {

struct Point {
    double x = 0, y = 0;
};

inline Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
inline Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
inline Point operator*(double factor, Point p) { return {factor * p.x, factor * p.y}; }

/// How far from the origin a point may be drawn, pixels. The renderer counts in 1/256 pixels of 32 bits, and
/// differences and stroke outlines have to fit as well.
inline constexpr double kMaxCoordinate = 1'000'000;

/// The largest stroke width, dash length, text size and animation side, pixels; also the largest side of a bitmap that
/// the renderer can address.
inline constexpr double kMaxSize = 32767;

inline bool InRange(Point p) { return std::fabs(p.x) <= kMaxCoordinate && std::fabs(p.y) <= kMaxCoordinate; }

template <typename... Numbers>
bool AreFinite(Numbers... numbers) {
    return (std::isfinite(numbers) && ...);
}

/// The point of the unit circle at `degrees`, clockwise on screen. Exact at multiples of 90; elsewhere rounded to
/// 2^-30, so that the last bits of sine and cosine, in which C libraries differ, show nowhere.
Point UnitVector(double degrees);

/// How long the handles of a Bézier curve are that follows the unit circle for `degrees`.
double ArcHandle(double degrees);

}  // namespace lacquer::vel
