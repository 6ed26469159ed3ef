// Clipping figures that are filled.

#include "bezier.h"
#include "clip_geometry.h"
#include "clip_lines.h"

namespace lacquer::vel {
namespace {

/// Presses a line's first coordinate into a range: gives `next` the ends of the lines that it becomes, but the first.
template <double Point::*across, double Point::*along, class Next>
void Press(Point from, Point to, double low, double high, Next next) {
    const bool isRising = from.*across < to.*across;
    for (const double border : {isRising ? low : high, isRising ? high : low}) {
        if ((from.*across < border) == (to.*across < border)) continue;
        next(PointAt<across, along>(border, Crossing<across, along>(from, to, border)));
    }
    next(PointAt<across, along>(std::clamp(to.*across, low, high), to.*along));
}

class FillClipper {
public:
    FillClipper(const View &view, Outline &out) : view_(view), out_(out) {}

    bool Clip(const Outline &outline) {
        outline.ForEachFigure([this](const Outline::Figure &figure) { Clip(figure); });
        return isDone_;
    }

private:
    void Clip(const Outline::Figure &figure) {
        const Point start = figure.start + view_.before;
        MoveTo(start);
        figure.ForEach([this](Point to) { LineTo(to + view_.before); },
                       [this](const Point *p) {
                           CurveTo({at_, p[0] + view_.before, p[1] + view_.before, p[2] + view_.before}, kMaxHalvings);
                       });
        LineTo(start);
    }

    void MoveTo(Point to) {
        const Point low = view_.range.low, high = view_.range.high;
        at_ = to;
        pressedAcross_ = {std::clamp(to.x, low.x, high.x), to.y};
        pressed_ = {pressedAcross_.x, std::clamp(to.y, low.y, high.y)};
        isDone_ = isDone_ && out_.MoveTo(pressed_ + view_.after);
    }

    void LineTo(Point to) {
        const Point low = view_.range.low, high = view_.range.high;
        Press<&Point::x, &Point::y>(at_, to, low.x, high.x, [&](Point across) {
            Press<&Point::y, &Point::x>(pressedAcross_, across, low.y, high.y, [this](Point p) { Put(p); });
            pressedAcross_ = across;
        });
        at_ = to;
    }

    void CurveTo(const Bezier &curve, int halvings) {
        const Bounds hull = curve.Hull();
        if (!hull.Touches(view_.seen) || halvings == 0) {
            LineTo(curve.end);  // encloses the same of what is seen
        } else if (view_.range.Contains(hull)) {
            const auto &[start, control1, control2, end] = curve;
            isDone_ = isDone_ && out_.CurveTo(control1 + view_.after, control2 + view_.after, end + view_.after);
            at_ = pressedAcross_ = pressed_ = end;
        } else {
            const auto [before, after] = curve.SplitAt(0.5);
            CurveTo(before, halvings - 1);
            CurveTo(after, halvings - 1);
        }
    }

    void Put(Point p) {
        if (p.x == pressed_.x && p.y == pressed_.y) return;
        pressed_ = p;
        isDone_ = isDone_ && out_.LineTo(p + view_.after);
    }

    const View &view_;
    Outline &out_;
    Point at_, pressedAcross_, pressed_;  ///< the present point as it is, with its x in range, with both in range
    bool isDone_ = true;
};

}  // namespace

bool ClipFill(const Outline &figure, const View &view, Outline &out) { return FillClipper(view, out).Clip(figure); }

}  // namespace lacquer::vel
