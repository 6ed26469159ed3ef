// Points and rectangles, the limits of coordinates, and angles that come out the same with every C library.
#pragma once

#include <cmath>

namespace lacquer::vel {

struct Point {
    double x = 0, y = 0;

    bool operator==(const Point &) const = default;
};

inline Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
inline Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
inline Point operator*(double factor, Point p) { return {factor * p.x, factor * p.y}; }

/// Deterministic, unlike `std::hypot`; for less than 1e150.
inline double Length(Point p) { return std::sqrt(p.x * p.x + p.y * p.y); }

/// A rectangle with its edges.
struct Bounds {
    Point low, high;

    bool Touches(const Bounds &other) const {
        return low.x <= other.high.x && other.low.x <= high.x && low.y <= other.high.y && other.low.y <= high.y;
    }
    bool Contains(const Bounds &other) const {
        return low.x <= other.low.x && other.high.x <= high.x && low.y <= other.low.y && other.high.y <= high.y;
    }
};

/// How far from the origin a point may lie that the renderer is given, pixels. It counts in 1/256 pixels of 32 bits,
/// and differences and stroke outlines have to fit as well.
inline constexpr double kMaxCoordinate = 1'000'000;

/// The renderer multiplies the width of an edge by how far it begins above the first row. The product of a width and a
/// height may be this large, square pixels, before that leaves 64 bits; and with all coordinates this far from the
/// origin it never does.
inline constexpr double kMaxEdgeArea = 0x1p33, kSafeCoordinate = 0x1p16;

/// The largest stroke width, dash length, text size and animation side, pixels; also the largest side of a bitmap that
/// the renderer can address.
inline constexpr double kMaxSize = 32767;

inline bool InRange(Point p, double limit = kMaxCoordinate) {
    return std::fabs(p.x) <= limit && std::fabs(p.y) <= limit;
}

template <class... Numbers>
bool AreFinite(Numbers... numbers) {
    return (std::isfinite(numbers) && ...);
}

/// How finely the points of circles are computed: in steps of 2^-30 radii, so that 1/2 comes out as 1/2, or, for
/// circles so large that such steps can be seen, to the last bit.
enum class Precision { Steps, Full };

/// The point of the unit circle at `degrees`, clockwise on screen. Exact at multiples of 90.
Point UnitVector(double degrees, Precision precision = Precision::Steps);

/// How long the handles of a Bézier curve are that follows the unit circle for `degrees`, at most 90.
double ArcHandle(double degrees, Precision precision);

}  // namespace lacquer::vel
