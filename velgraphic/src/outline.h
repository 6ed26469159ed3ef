// Figures of lines and Bézier curves: the geometry of paths, shapes and glyphs.
#pragma once

#include <cstdint>

#include "buffer.h"
#include "geometry.h"

namespace lacquer::vel {

enum class Verb : uint8_t { kMove, kLine, kCurve, kClose };

/// How many points come with a verb.
inline int PointsOf(Verb verb) { return verb == Verb::kCurve ? 3 : verb == Verb::kClose ? 0 : 1; }

struct Bounds {
    Point low, high;
};

/// Every function that appends gives false when memory is short; a change of several steps may have been made in part
/// then, and `Mark` and `GoBackTo` undo it.
class Outline {
public:
    const Buffer<Verb> &Verbs() const { return verbs_; }
    const Buffer<Point> &Points() const { return points_; }
    bool HasPresentPoint() const { return verbs_.Size() > 0; }
    /// Where the next line begins; after a close, where the figure had begun. There has to be one.
    Point PresentPoint() const { return present_; }

    struct Position {
        size_t verbs, points;
        Point present, start;
    };
    Position Mark() const { return {verbs_.Size(), points_.Size(), present_, start_}; }
    void GoBackTo(const Position &position);
    void Clear() { GoBackTo({}); }

    bool MoveTo(Point p);
    bool LineTo(Point p);
    bool CurveTo(Point control1, Point control2, Point p);
    bool QuadraticTo(Point control, Point p);
    bool Close();

    /// Part of the ellipse around `centre`, degrees; a sweep beyond 360 either way counts as 360. Begins with a line
    /// from the present point, or as a new figure.
    bool Arc(Point centre, Point radii, double start, double sweep, bool newFigure);
    /// Elliptical arc of SVG path data from the present point, which there has to be.
    bool EndpointArc(Point radii, double rotation, bool largeArc, bool clockwise, Point end);
    bool Rectangle(Point corner, Point size);
    /// A whole ellipse, closed.
    bool Ellipse(Point centre, Point radii);
    bool RoundRectangle(Point corner, Point size, Point radii);

    /// The smallest rectangle around lines and curves; zeros when empty.
    Bounds Extents() const;
    /// Whether all points moved by `offset` can be drawn.
    bool IsInRange(Point offset) const;
    /// At least the length of all lines and curves.
    double LengthAtMost() const;

private:
    bool Add(Verb verb, const Point *points);

    Buffer<Verb> verbs_;
    Buffer<Point> points_;
    Point present_, start_;
};

}  // namespace lacquer::vel
