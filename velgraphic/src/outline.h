// Figures of lines and Bézier curves: the geometry of paths, shapes and glyphs.
#pragma once

#include <cstdint>

#include "buffer.h"
#include "geometry.h"

namespace lacquer::vel {

enum class Verb : uint8_t { Move, Line, Curve, Close };

/// How many points come with a verb.
inline int PointsOf(Verb verb) { return verb == Verb::Curve ? 3 : verb == Verb::Close ? 0 : 1; }

/// Every function that appends gives false when memory is short; a change of several steps may have been made in part
/// then, and `Mark` and `GoBackTo` undo it.
class Outline {
public:
    /// Lines and curves that follow each other.
    struct Figure {
        Point start;
        const Verb *verbs;  ///< of the lines and curves
        const Verb *verbsEnd;
        const Point *points;  ///< of the lines and curves
        bool isClosed;

        /// Calls `line` with the end of each line, and `curve` with the three points of each curve.
        template <class Line, class Curve>
        void ForEach(Line line, Curve curve) const {
            const Point *next = points;
            for (const Verb *verb = verbs; verb != verbsEnd; next += PointsOf(*verb++)) {
                *verb == Verb::Line ? line(*next) : curve(next);
            }
        }
    };

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
    /// The rectangle around all points; zeros when empty.
    Bounds Hull() const;
    /// Whether the renderer can draw the figures moved by `offset` as they are.
    bool SuitsRenderer(Point offset) const;
    /// Whether there are more lines and curves than are ever drawn.
    bool IsTooLong() const { return verbs_.Size() > kMaxVerbs; }
    /// At least the length of all lines and curves.
    double LengthAtMost() const;

    /// Calls `handle` with each figure.
    template <class Handle>
    void ForEachFigure(Handle handle) const {
        Point start;
        const Point *next = points_.begin();
        for (const Verb *verb = verbs_.begin(); verb != verbs_.end();) {
            if (*verb == Verb::Move) {
                start = *next++;
                ++verb;
            }
            Figure figure{start, verb, verb, next, false};
            while (verb != verbs_.end() && (*verb == Verb::Line || *verb == Verb::Curve)) next += PointsOf(*verb++);
            figure.verbsEnd = verb;
            figure.isClosed = verb != verbs_.end() && *verb == Verb::Close;
            if (figure.isClosed) ++verb;
            handle(figure);
        }
    }

private:
    static constexpr size_t kMaxVerbs = 1'000'000;

    bool Add(Verb verb, const Point *points);

    Buffer<Verb> verbs_;
    Buffer<Point> points_;
    Point present_, start_;
};

}  // namespace lacquer::vel
