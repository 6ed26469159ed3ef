// Cubic Bézier curves: cutting and measuring them.
#pragma once

#include <algorithm>

#include "geometry.h"

namespace lacquer::vel {

struct Bezier {
    Point start, control1, control2, end;

    /// The rectangle around the control points, which the curve does not leave.
    Bounds Hull() const;
    /// The parts before and after the parameter `t`.
    struct Parts;
    Parts SplitAt(double t) const;
    /// The part between two parameters.
    Bezier Part(double from, double to) const;
    double Length() const;
    /// The least and the largest second difference of the four points. At any parameter the curve lies at most 3/4 of
    /// the largest away from where the straight line between its ends is then.
    double LeastBend() const { return std::min(BendAt(start, control1, control2), BendAt(control1, control2, end)); }
    double MostBend() const { return std::max(BendAt(start, control1, control2), BendAt(control1, control2, end)); }

private:
    static double BendAt(Point a, Point b, Point c) { return lacquer::vel::Length(a - 2 * b + c); }
};

struct Bezier::Parts {
    Bezier before, after;
};

}  // namespace lacquer::vel
