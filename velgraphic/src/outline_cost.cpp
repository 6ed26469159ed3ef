// Estimates of the polygon that a figure becomes.

#include "outline_cost.h"

#include <algorithm>
#include <numbers>

#include "bezier.h"
#include "target.h"

namespace lacquer::vel {

/// Walks over figures and adds up their edges.
class DrawingCost::Meter {
public:
    Meter(DrawingCost &cost, Point offset, const Clip &visible)
        : cost_(cost),
          low_(Point{static_cast<double>(visible.left), static_cast<double>(visible.top)} - offset),
          high_(Point{static_cast<double>(visible.right), static_cast<double>(visible.bottom)} - offset) {}

    void Fill(const Outline::Figure &figure) {
        Point from = figure.start;
        const auto line = [&](Point to) {
            AddEdges(1, from, to);
            from = to;
        };
        figure.ForEach(line, [&](const Point *p) {
            const double lines = LinesOf({from, p[0], p[1], p[2]}) - 1;
            cost_.edges_ += lines;
            // No curve goes farther up and down, or to and fro, than its control points.
            for (int i = 0; i < 3; ++i) line(p[i]);
        });
        line(figure.start);
    }

    void Stroke(const Outline::Figure &figure, const StrokeForm &form, double dashesPerLength) {
        half_ = form.Half();
        // Of half the circle that a round end is.
        const double pen = 4 + std::numbers::pi * std::sqrt(half_ / (2 * Target::kTolerance));
        const double joinPen = form.join == VEL_JOIN_ROUND ? pen : 4, capPen = form.cap == VEL_CAP_ROUND ? pen : 4;
        Point from = figure.start, direction;
        const auto follow = [&](Point to, double penAtStart) {
            const Point step = to - from;
            const double length = Length(step);
            if (!(length > 0)) return;
            const Point next = 1 / length * step;
            // The sine of half the angle, which is at least the angle's part of a half circle.
            const Point turn = next - direction;
            AddCorner(penAtStart * std::min(1.0, Length(turn) / 2), from);
            direction = next;
            AddEdges(2, from, to);
            const double dashes = length * dashesPerLength;
            AddCorners(dashes * capPen, dashes, from, to);
            from = to;
        };
        figure.ForEach([&](Point to) { follow(to, joinPen); },
                       [&](const Point *p) {
                           cost_.edges_ += 2 * LinesOf({from, p[0], p[1], p[2]});
                           follow(p[0], joinPen);
                           // The curve turns no more than this, and is drawn with a round pen.
                           follow(p[1], pen);
                           follow(p[2], pen);
                       });
        if (figure.isClosed) follow(figure.start, joinPen);
        for (const Point end : {figure.start, from}) AddCorner(capPen, end);
    }

private:
    /// How many lines stand for a curve, which is halved until they are close enough.
    static double LinesOf(const Bezier &curve) {
        double lines = 1;
        for (double bend = curve.MostBend(); bend > Target::kTolerance && lines < 0x1p20; bend /= 4) lines *= 2;
        return lines;
    }

    void AddEdges(double count, Point from, Point to) {
        const auto [left, right] = std::minmax(from.x, to.x);
        const auto [top, bottom] = std::minmax(from.y, to.y);
        cost_.edges_ += count;
        const double width = right - left, height = bottom - top;
        const double rows = std::min({height, cost_.size_.y, bottom + half_ - low_.y, high_.y - (top - half_)});
        if (!(rows > 0)) return;
        cost_.rows_ += count * rows;
        const double columns = std::min({width, cost_.size_.x, right + half_ - low_.x, high_.x - (left - half_)});
        if (columns > 0) cost_.columns_ += count * std::min(columns, width * (rows / height));
    }

    /// The edges around an end or a corner.
    void AddCorner(double edges, Point at) { AddCorners(edges, 1, at, at); }
    void AddCorners(double edges, double count, Point from, Point to) {
        cost_.edges_ += edges + 4 * count;
        const Point low{std::min(from.x, to.x) - half_, std::min(from.y, to.y) - half_};
        const Point high{std::max(from.x, to.x) + half_, std::max(from.y, to.y) + half_};
        const double rows = std::min({2 * half_, cost_.size_.y, high.y - low_.y, high_.y - low.y});
        const double columns = std::min({2 * half_, cost_.size_.x, high.x - low_.x, high_.x - low.x});
        if (rows > 0 && columns > 0) {
            cost_.rows_ += 2 * count * rows;
            cost_.columns_ += 2 * count * columns;
        }
    }

    DrawingCost &cost_;
    const Point low_, high_;
    double half_ = 0;
};

DrawingCost DrawingCost::OfFill(const Outline &outline, Point offset, const Clip &visible) {
    DrawingCost cost(outline, visible);
    Meter meter(cost, offset, visible);
    outline.ForEachFigure([&](const Outline::Figure &figure) { meter.Fill(figure); });
    return cost;
}

DrawingCost DrawingCost::OfStroke(const Outline &outline, Point offset, const Clip &visible, const StrokeForm &form,
                                  const Dashes &dashes) {
    DrawingCost cost(outline, visible);
    Meter meter(cost, offset, visible);
    const double perLength = dashes ? 1 / dashes.MeanLength() : 0;
    outline.ForEachFigure([&](const Outline::Figure &figure) { meter.Stroke(figure, form, perLength); });
    return cost;
}

size_t DrawingCost::Bytes() const {
    // Its list of edges grows fourfold while the shorter one is kept, and each becomes a record of the scan converter.
    constexpr double kEdge = 28 * 5 + 96, kOutlinePoint = 3 * (8 + 2), kStrokePoint = 2 * 8;
    constexpr double kFixed = 32 << 10;
    // A row of cells and spans, and a list for each row.
    const double pixels = 64 * size_.x + 16 * size_.y;
    return static_cast<size_t>(edges_ * (kEdge + kStrokePoint) + points_ * kOutlinePoint + pixels + kFixed);
}

bool DrawingCost::IsHigh(bool smooth) const {
    // In steps of about ten nanoseconds.
    constexpr double kSmoothRow = 15, kSharpRow = 2, kEdge = 15, kMost = 1e8;
    const double crossings = rows_ * columns_ / (size_.x * size_.y);
    return (smooth ? kSmoothRow : kSharpRow) * (rows_ + crossings / 5) + kEdge * edges_ > kMost;
}

}  // namespace lacquer::vel
