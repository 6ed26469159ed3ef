// Cutting and measuring cubic Bézier curves.

#include "bezier.h"

#include <algorithm>

namespace lacquer::vel {
namespace {

/// The length of a curve without sharp turns, by Gauss and Legendre's rule with five points.
double SmoothLength(const Bezier &curve) {
    constexpr double kNodes[] = {0.046910077030668004, 0.23076534494715845, 0.5, 0.76923465505284155,
                                 0.95308992296933200};
    constexpr double kWeights[] = {0.11846344252809454, 0.23931433524968324, 0.28444444444444444, 0.23931433524968324,
                                   0.11846344252809454};
    const Point first = curve.control1 - curve.start, second = curve.control2 - curve.control1,
                third = curve.end - curve.control2;
    double length = 0;
    for (int i = 0; i < 5; ++i) {
        const double t = kNodes[i], s = 1 - t;
        length += kWeights[i] * 3 * Length(s * s * first + 2 * s * t * second + t * t * third);
    }
    return length;
}

double LengthInHalves(const Bezier &curve, int halvings) {
    const double chord = Length(curve.end - curve.start);
    const double hull = Length(curve.control1 - curve.start) + Length(curve.control2 - curve.control1) +
                        Length(curve.end - curve.control2);
    // A curve this straight is measured to about nine digits.
    constexpr double kSmooth = 1.0 / 64;
    if (hull - chord <= kSmooth * hull || halvings == 0) return SmoothLength(curve);
    const auto [before, after] = curve.SplitAt(0.5);
    return LengthInHalves(before, halvings - 1) + LengthInHalves(after, halvings - 1);
}

}  // namespace

Bounds Bezier::Hull() const {
    const auto [left, right] = std::minmax({start.x, control1.x, control2.x, end.x});
    const auto [top, bottom] = std::minmax({start.y, control1.y, control2.y, end.y});
    return {{left, top}, {right, bottom}};
}

Bezier::Parts Bezier::SplitAt(double t) const {
    const auto between = [t](Point a, Point b) { return (1 - t) * a + t * b; };
    const Point a = between(start, control1), b = between(control1, control2), c = between(control2, end);
    const Point ab = between(a, b), bc = between(b, c), middle = between(ab, bc);
    return {{start, a, ab, middle}, {middle, bc, c, end}};
}

Bezier Bezier::Part(double from, double to) const {
    const double rest = 1 - from;
    return SplitAt(from).after.SplitAt(rest > 0 ? (to - from) / rest : 0).before;
}

double Bezier::Length() const {
    constexpr int kMaxHalvings = 24;  // sharp turns are short then
    return LengthInHalves(*this, kMaxHalvings);
}

}  // namespace lacquer::vel
