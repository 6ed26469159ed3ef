// Building and measuring figures of lines and curves.

#include "outline.h"

#include <algorithm>
#include <numbers>

#include "bezier.h"

namespace lacquer::vel {

void Outline::GoBackTo(const Position &position) {
    verbs_.Truncate(position.verbs);
    points_.Truncate(position.points);
    present_ = position.present;
    start_ = position.start;
}

bool Outline::Add(Verb verb, const Point *points) {
    const int count = PointsOf(verb);
    if (!verbs_.Reserve(1) || !points_.Reserve(static_cast<size_t>(count))) return false;
    verbs_.Append(verb);
    for (int i = 0; i < count; ++i) points_.Append(points[i]);
    if (verb == Verb::Move) start_ = points[0];
    present_ = verb == Verb::Close ? start_ : points[count - 1];
    return true;
}

bool Outline::MoveTo(Point p) { return Add(Verb::Move, &p); }

bool Outline::LineTo(Point p) { return Add(HasPresentPoint() ? Verb::Line : Verb::Move, &p); }

bool Outline::CurveTo(Point control1, Point control2, Point p) {
    if (!HasPresentPoint() && !MoveTo(control1)) return false;
    const Point points[] = {control1, control2, p};
    return Add(Verb::Curve, points);
}

bool Outline::QuadraticTo(Point control, Point p) {
    const Point from = HasPresentPoint() ? present_ : control;
    if (!HasPresentPoint() && !MoveTo(control)) return false;
    return CurveTo(from + 2.0 / 3 * (control - from), p + 2.0 / 3 * (control - p), p);
}

bool Outline::Close() { return Add(Verb::Close, nullptr); }

namespace {

Precision PrecisionFor(double radius) { return radius > kMaxCoordinate ? Precision::Full : Precision::Steps; }

/// A circle or ellipse as the image of the unit circle: point = centre + x * xAxis + y * yAxis.
struct CircleImage {
    Point centre, xAxis, yAxis;

    Point At(Point p) const { return centre + p.x * xAxis + p.y * yAxis; }
    double Radius() const { return std::max(Length(xAxis), Length(yAxis)); }
    Precision PrecisionOfPoints() const { return PrecisionFor(Radius()); }

    /// For how many degrees at most one curve may follow the circle.
    double LargestStep() const {
        double step = 45;  // keeps the curve within 0.000005 radii of the circle
        if (Radius() <= kMaxCoordinate) return step;
        // Within 0.005 pixels, as far as a double can tell. Half of the step divides the error by 2^6.
        step /= 4;
        constexpr double kLargest = 1e15;
        for (double radius = 2 * kMaxCoordinate; radius < std::min(Radius(), kLargest); radius *= 64) step /= 2;
        return step;
    }
};

/// Appends curves along the image from `start` for `sweep` degrees; the present point is taken to lie at the start.
bool FollowCircle(Outline &outline, const CircleImage &image, double start, double sweep) {
    const int steps = std::max(1, static_cast<int>(std::ceil(std::fabs(sweep) / image.LargestStep() - 1e-6)));
    const Precision precision = image.PrecisionOfPoints();
    const double handle = ArcHandle(sweep / steps, precision);
    Point from = UnitVector(start, precision);
    for (int i = 1; i <= steps; ++i) {
        const Point to = UnitVector(start + sweep * i / steps, precision);
        if (!outline.CurveTo(image.At({from.x - handle * from.y, from.y + handle * from.x}),
                             image.At({to.x + handle * to.y, to.y - handle * to.x}), image.At(to))) {
            return false;
        }
        from = to;
    }
    return true;
}

}  // namespace

bool Outline::Arc(Point centre, Point radii, double start, double sweep, bool newFigure) {
    const CircleImage image{centre, {radii.x, 0}, {0, radii.y}};
    const Point first = image.At(UnitVector(start, image.PrecisionOfPoints()));
    if (!(newFigure ? MoveTo(first) : LineTo(first))) return false;
    return FollowCircle(*this, image, start, std::clamp(sweep, -360.0, 360.0));
}

bool Outline::EndpointArc(Point radii, double rotation, bool largeArc, bool clockwise, Point end) {
    const Point half = 0.5 * (PresentPoint() - end);
    if (radii.x == 0 || radii.y == 0 || (half.x == 0 && half.y == 0)) return LineTo(end);

    // In a system where the ellipse is the unit circle: +-`q` are the two ends seen from the middle between them.
    const Point axis = UnitVector(rotation, PrecisionFor(std::max(radii.x, radii.y)));
    Point q{(axis.x * half.x + axis.y * half.y) / radii.x, (axis.x * half.y - axis.y * half.x) / radii.y};
    const double distance = std::hypot(q.x, q.y);
    // The arc would hardly leave the line, and its centre, far away, would be too coarse to find it again.
    constexpr double kFlat = 1e-9;
    if (distance < kFlat && !largeArc) return LineTo(end);
    if (distance > 1) {
        radii = distance * radii;
        q = 1 / distance * q;
    }
    const double squared = q.x * q.x + q.y * q.y;
    const double aside = squared > 0 ? std::sqrt(std::max(0.0, 1 / squared - 1)) : 0;
    const double side = largeArc == clockwise ? -aside : aside;
    const Point centre{side * q.y, -side * q.x};

    const auto degreesOf = [](Point p) { return std::atan2(p.y, p.x) * (180 / std::numbers::pi); };
    const double from = degreesOf(q - centre);
    double sweep = degreesOf(-1.0 * q - centre) - from;
    if (clockwise && sweep <= 0) sweep += 360;
    if (!clockwise && sweep >= 0) sweep -= 360;

    CircleImage image{{}, {radii.x * axis.x, radii.x * axis.y}, {-radii.y * axis.y, radii.y * axis.x}};
    image.centre = end + half + centre.x * image.xAxis + centre.y * image.yAxis;
    if (!AreFinite(image.centre.x, image.centre.y, sweep)) return LineTo(end);
    const Position before = Mark();
    if (!FollowCircle(*this, image, from, sweep)) {
        GoBackTo(before);
        return false;
    }
    // The end is met exactly, whatever the rounding on the way.
    points_.Data()[points_.Size() - 1] = present_ = end;
    return true;
}

bool Outline::Rectangle(Point corner, Point size) {
    const Point opposite = corner + size;
    return MoveTo(corner) && LineTo({opposite.x, corner.y}) && LineTo(opposite) && LineTo({corner.x, opposite.y}) &&
           Close();
}

bool Outline::Ellipse(Point centre, Point radii) { return Arc(centre, radii, 0, 360, true) && Close(); }

bool Outline::RoundRectangle(Point corner, Point size, Point radii) {
    radii = {std::min(radii.x, size.x / 2), std::min(radii.y, size.y / 2)};
    if (radii.x == 0 || radii.y == 0) return Rectangle(corner, size);
    const Point low = corner + radii, high = corner + size - radii;
    return Arc({high.x, low.y}, radii, -90, 90, true) && Arc(high, radii, 0, 90, false) &&
           Arc({low.x, high.y}, radii, 90, 90, false) && Arc(low, radii, 180, 90, false) && Close();
}

namespace {

/// Widens [low, high] by the inner extremes of a cubic Bézier curve in one dimension.
void IncludeExtremes(double a, double b, double c, double d, double &low, double &high) {
    if (std::min(b, c) >= low && std::max(b, c) <= high) return;
    // The derivative is 3 (u t^2 + 2 v t + w).
    const double u = d - a + 3 * (b - c), v = a - 2 * b + c, w = b - a;
    const double root = std::sqrt(std::max(0.0, v * v - u * w));
    // Either form of a root loses its digits where the other keeps them, so the larger sum serves for both.
    const double sum = v < 0 ? v - root : v + root;
    for (const double t : {u != 0 ? -sum / u : -1, sum != 0 ? -w / sum : -1}) {
        if (!(t > 0 && t < 1)) continue;
        const double s = 1 - t;
        const double value = s * s * s * a + 3 * s * s * t * b + 3 * s * t * t * c + t * t * t * d;
        low = std::min(low, value);
        high = std::max(high, value);
    }
}

}  // namespace

Bounds Outline::Hull() const {
    if (points_.Size() == 0) return {};
    Bounds all{points_[0], points_[0]};
    for (const Point p : points_) {
        all.low = {std::min(all.low.x, p.x), std::min(all.low.y, p.y)};
        all.high = {std::max(all.high.x, p.x), std::max(all.high.y, p.y)};
    }
    return all;
}

Bounds Outline::Extents() const {
    if (points_.Size() == 0) return {};
    Bounds all{points_[0], points_[0]};
    const auto include = [&all](Point p) {
        all.low = {std::min(all.low.x, p.x), std::min(all.low.y, p.y)};
        all.high = {std::max(all.high.x, p.x), std::max(all.high.y, p.y)};
    };
    const Point *next = points_.begin();
    Point from, start;
    for (const Verb verb : verbs_) {
        if (verb == Verb::Close) {
            from = start;
            continue;
        }
        const Point *end = next + PointsOf(verb) - 1;
        include(*end);
        if (verb == Verb::Curve) {
            IncludeExtremes(from.x, next[0].x, next[1].x, end->x, all.low.x, all.high.x);
            IncludeExtremes(from.y, next[0].y, next[1].y, end->y, all.low.y, all.high.y);
        } else if (verb == Verb::Move) {
            start = *end;
        }
        from = *end;
        next = end + 1;
    }
    return all;
}

bool Outline::SuitsRenderer(Point offset) const {
    const auto areWithin = [&](double limit) {
        return std::all_of(points_.begin(), points_.end(), [=](Point p) { return InRange(p + offset, limit); });
    };
    if (areWithin(kSafeCoordinate)) return true;
    if (!areWithin(kMaxCoordinate)) return false;
    bool isSafe = true;
    ForEachFigure([&](const Figure &figure) {
        Point from = figure.start;
        const auto line = [&](Point to) {
            isSafe = isSafe && std::fabs((to.x - from.x) * (to.y - from.y)) <= kMaxEdgeArea;
            from = to;
        };
        figure.ForEach(line, [&](const Point *p) {
            const Bezier curve{from, p[0], p[1], p[2]};
            const Point size = curve.Hull().high - curve.Hull().low;
            // The more it is bent, the shorter are the lines that stand for it.
            isSafe = isSafe && size.x * size.y <= kMaxEdgeArea * std::max(1.0, curve.LeastBend());
            from = p[2];
        });
        line(figure.start);
    });
    return isSafe;
}

double Outline::LengthAtMost() const {
    double length = 0;
    const Point *next = points_.begin();
    Point from, start;
    for (const Verb verb : verbs_) {
        if (verb == Verb::Close) {
            length += std::hypot(start.x - from.x, start.y - from.y);
            from = start;
            continue;
        }
        for (int i = PointsOf(verb); i > 0; --i, ++next) {
            if (verb == Verb::Move) {
                start = *next;
            } else {
                length += std::hypot(next->x - from.x, next->y - from.y);
            }
            from = *next;
        }
    }
    return length;
}

}  // namespace lacquer::vel
