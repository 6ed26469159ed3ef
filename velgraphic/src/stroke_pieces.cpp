// Flattening curves, and the bodies, corners and ends of strokes.

#include "stroke_pieces.h"

#include <algorithm>

#include "bezier.h"

namespace lacquer::vel {
namespace {

/// How far, in pixels, lines may be off the curves that they stand for: less than samples can tell.
constexpr double kTolerance = 0.125;

/// Calls `line` with the ends of the lines that stand for a curve.
template <class Line>
void Flatten(const Bezier &curve, Line line) {
    const int count = static_cast<int>(std::ceil(std::sqrt(std::max(1.0, 0.75 * curve.MostBend() / kTolerance))));
    for (int i = 1; i < count; ++i) line(curve.SplitAt(static_cast<double>(i) / count).before.end);
    line(curve.end);
}

double Cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }
double Dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
/// A quarter turn.
Point Across(Point p) { return {-p.y, p.x}; }

/// Follows one figure after the other.
class Stroker {
public:
    Stroker(const StrokeForm &form, Point offset, SampleMask &mask)
        : form_(form), half_(form.Half()), offset_(offset), mask_(mask) {
        // Lines between points this far apart on the circle around an end stay within the tolerance.
        double degrees = 90;
        while (degrees > 0.5 && half_ * (1 - UnitVector(degrees / 2).x) > kTolerance) degrees /= 2;
        fanStep_ = UnitVector(degrees);
    }

    void Stroke(const Outline::Figure &figure) {
        at_ = figure.start + offset_;
        hasDirection_ = false;
        figure.ForEach([this](Point to) { LineTo(to + offset_, form_.join); }, [this](const Point *p) { CurveTo(p); });
        if (figure.isClosed) LineTo(figure.start + offset_, form_.join);
        if (!hasDirection_) {
            // A point shows as a round end, but nothing at all is not even a point.
            if (form_.cap == VEL_CAP_ROUND && figure.verbs != figure.verbsEnd) Disc(at_);
        } else if (figure.isClosed) {
            Corner(figure.start + offset_, direction_, first_, form_.join);
        } else {
            End(figure.start + offset_, -1 * first_);
            End(at_, direction_);
        }
    }

private:
    void CurveTo(const Point *p) {
        const Bezier curve{at_, p[0] + offset_, p[1] + offset_, p[2] + offset_};
        DWORD join = form_.join;
        Flatten(curve, [&](Point to) {
            LineTo(to, join);
            join = VEL_JOIN_ROUND;  // within the curve
        });
    }

    void LineTo(Point to, DWORD join) {
        const Point step = to - at_;
        const double length = Length(step);
        if (!(length > 0)) return;
        const Point direction = 1 / length * step, aside = half_ * Across(direction);
        if (hasDirection_) {
            Corner(at_, direction_, direction, join);
        } else {
            first_ = direction;
            hasDirection_ = true;
        }
        const Point body[] = {at_ - aside, to - aside, to + aside, at_ + aside};
        mask_.AddPiece(body, 4);
        direction_ = direction;
        at_ = to;
    }

    void Corner(Point at, Point from, Point to, DWORD join) {
        const double turn = Cross(from, to), cosine = Dot(from, to);
        const double outwards = turn > 0 ? -half_ : half_;
        const Point begin = outwards * Across(from), end = outwards * Across(to);
        constexpr double kMiterLimit = 10;
        if (join == VEL_JOIN_ROUND) {
            turn > 0 ? Fan(at, begin, end) : Fan(at, end, begin);
        } else if (join == VEL_JOIN_MITER && 2 <= kMiterLimit * kMiterLimit * (1 + cosine)) {
            const Point corner[] = {at, at + begin, at + 1 / (1 + cosine) * (begin + end), at + end};
            mask_.AddPiece(corner, 4);
        } else {
            const Point corner[] = {at, at + begin, at + end};
            mask_.AddPiece(corner, 3);
        }
    }

    void End(Point at, Point outwards) {
        const Point aside = half_ * Across(outwards);
        if (form_.cap == VEL_CAP_ROUND) {
            Fan(at, -1 * aside, aside);
        } else if (form_.cap == VEL_CAP_SQUARE) {
            const Point out = at + half_ * outwards;
            const Point square[] = {at - aside, out - aside, out + aside, at + aside};
            mask_.AddPiece(square, 4);
        }
    }

    void Disc(Point at) {
        Fan(at, {half_, 0}, {-half_, 0});
        Fan(at, {-half_, 0}, {half_, 0});
    }

    /// The part of the circle around `at` that is passed when `from` is turned, clockwise on screen, to `to`: at most a
    /// half of it.
    void Fan(Point at, Point from, Point to) {
        Point corners[kMaxFan] = {at, at + from};
        int count = 2;
        for (Point p = from; count < kMaxFan - 1; corners[count++] = at + p) {
            p = {fanStep_.x * p.x - fanStep_.y * p.y, fanStep_.y * p.x + fanStep_.x * p.y};
            if (Cross(p, to) <= 0) break;
        }
        corners[count++] = at + to;
        mask_.AddPiece(corners, count);
    }

    static constexpr int kMaxFan = 520;  // half a circle in the smallest steps

    const StrokeForm &form_;
    const double half_;
    const Point offset_;
    SampleMask &mask_;
    Point fanStep_;  ///< the unit vector turned by one step around an end
    Point at_;
    Point first_, direction_;  ///< of the figure's first line, and of the last one
    bool hasDirection_ = false;
};

}  // namespace

void AddFill(const Outline &outline, Point offset, SampleMask &mask) {
    outline.ForEachFigure([&](const Outline::Figure &figure) {
        Point from = figure.start + offset;
        const auto line = [&](Point to) {
            mask.AddEdge(from, to);
            from = to;
        };
        figure.ForEach([&](Point to) { line(to + offset); },
                       [&](const Point *p) {
                           Flatten({from, p[0] + offset, p[1] + offset, p[2] + offset}, line);
                       });
        line(figure.start + offset);
    });
}

void AddStroke(const Outline &outline, Point offset, const StrokeForm &form, SampleMask &mask) {
    Stroker stroker(form, offset, mask);
    outline.ForEachFigure([&](const Outline::Figure &figure) { stroker.Stroke(figure); });
}

}  // namespace lacquer::vel
