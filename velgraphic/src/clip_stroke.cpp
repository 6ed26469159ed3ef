// Clipping figures that are stroked, and dividing them into dashes.

#include "bezier.h"
#include "clip_geometry.h"
#include "clip_lines.h"

namespace lacquer::vel {
namespace {

struct Segment {
    Point start, end;

    double Length() const { return lacquer::vel::Length(end - start); }
    Segment Part(double from, double to) const {
        return {(1 - from) * start + from * end, (1 - to) * start + to * end};
    }
};

/// Moves the ends `enter` and `leave` of a part of a line to where it crosses the borders of a range. False when all of
/// it lies outside.
template <double Point::*across, double Point::*along>
bool Cut(const Segment &line, double low, double high, Segment &part) {
    const auto &[start, end] = line;
    if (std::max(part.start.*across, part.end.*across) < low || std::min(part.start.*across, part.end.*across) > high) {
        return false;
    }
    for (Point *p : {&part.start, &part.end}) {
        const double border = std::clamp(p->*across, low, high);
        if (border == p->*across) continue;
        *p = PointAt<across, along>(border, Crossing<across, along>(start, end, border));
    }
    return true;
}

class StrokeClipper {
public:
    StrokeClipper(const View &view, const Dashes &dashes, Outline &out) : view_(view), dashes_(dashes), out_(out) {}

    bool Clip(const Outline &outline) {
        if (!cursor_.Use(dashes_)) return false;
        outline.ForEachFigure([this](const Outline::Figure &figure) { Clip(figure); });
        return isDone_;
    }

private:
    /// What becomes of the parts that are drawn.
    enum class Phase {
        Silent,  ///< left out, up to the first gap
        Writing,
        LastPart,  ///< written up to the next gap
        Over
    };

    void Clip(const Outline::Figure &figure) {
        hasPen_ = false;
        if (!figure.isClosed) {
            phase_ = Phase::Writing;
            GoRound(figure);
            return;
        }
        // A closed figure has no end. What is drawn of it begins behind its first gap and goes on up to there.
        phase_ = Phase::Silent;
        GoRound(figure);
        if (phase_ == Phase::Silent) {  // no gap
            phase_ = Phase::Writing;
            GoRound(figure);
            isDone_ = isDone_ && out_.Close();
        } else {
            phase_ = Phase::LastPart;
            GoRound(figure);
        }
    }

    void GoRound(const Outline::Figure &figure) {
        const Point start = figure.start + view_.before;
        at_ = start;
        cursor_.Restart();
        figure.ForEach([this](Point to) { LineTo(to + view_.before); },
                       [this](const Point *p) {
                           CurveTo({at_, p[0] + view_.before, p[1] + view_.before, p[2] + view_.before}, kMaxHalvings);
                       });
        if (figure.isClosed) LineTo(start);
    }

    void LineTo(Point to) {
        const Segment line{at_, to};
        Segment part = line;
        at_ = to;
        if (!Cut<&Point::x, &Point::y>(line, view_.seen.low.x, view_.seen.high.x, part) ||
            !Cut<&Point::y, &Point::x>(line, view_.seen.low.y, view_.seen.high.y, part)) {
            return Skip(line);
        }
        if (part.start != line.start) Skip(Segment{line.start, part.start});
        Draw(part);
        if (part.end != line.end) Skip(Segment{part.end, line.end});
    }

    void CurveTo(const Bezier &curve, int halvings) {
        const Bounds hull = curve.Hull();
        if (!hull.Touches(view_.seen)) {
            Skip(curve);
            at_ = curve.end;
        } else if (halvings == 0) {
            LineTo(curve.end);
        } else if (view_.range.Contains(hull)) {
            Draw(curve);
            at_ = curve.end;
        } else {
            const auto [before, after] = curve.SplitAt(0.5);
            CurveTo(before, halvings - 1);
            CurveTo(after, halvings - 1);
        }
    }

    /// Goes on along what is not seen.
    template <class Piece>
    void Skip(const Piece &piece) {
        Gap();
        if (dashes_ && phase_ != Phase::Over) cursor_.Skip(piece.Length());
    }

    template <class Piece>
    void Draw(const Piece &piece) {
        if (!dashes_) return Put(piece);
        dash_ = {};
        Divide(piece, piece, {0, 1});
        EndDash(piece);
    }

    /// Some of a curve or line, by its parameters.
    struct Range {
        double from = 0, to = 0;
    };

    void Divide(const Segment &line, const Segment &, const Range &range) { Divide(line, line.Length(), range); }

    /// Divides the part `range` of a curve, which is `part`, into dashes.
    void Divide(const Bezier &curve, const Bezier &part, const Range &range) {
        constexpr double kEven = 0.04;  // the length is then in proportion to the parameter, to 0.03 pixels
        if (!part.Hull().Touches(view_.seen)) {
            EndDash(curve);
            Skip(part);
        } else if (part.MostBend() <= kEven) {
            Divide(curve, part.Length(), range);
        } else {
            const auto [before, after] = part.SplitAt(0.5);
            const double middle = 0.5 * (range.from + range.to);
            Divide(curve, before, {range.from, middle});
            Divide(curve, after, {middle, range.to});
        }
    }

    template <class Piece>
    void Divide(const Piece &piece, double length, const Range &range) {
        const auto parameterAt = [&](double rest) { return range.to - (range.to - range.from) * rest / length; };
        for (double rest = length; rest > 0 && phase_ != Phase::Over && isDone_;) {
            const double step = std::min(cursor_.Left(), rest);
            if (!cursor_.IsOn()) {
                Gap();
            } else if (step > 0) {  // the renderer draws no caps of a dash without length
                if (dash_.from == dash_.to) dash_.from = parameterAt(rest);
                dash_.to = parameterAt(rest - step);
            }
            rest -= step;
            if (!cursor_.GoOn(step)) continue;
            EndDash(piece);
            Gap();
            if (++dashEnds_ > 2 * Dashes::kMost) isDone_ = false;
        }
    }

    /// Puts as much of a dash as lies on one piece: at once, so that it bends as smoothly as the whole.
    template <class Piece>
    void EndDash(const Piece &piece) {
        if (dash_.from < dash_.to) Put(piece.Part(dash_.from, dash_.to));
        dash_ = {};
    }

    void Gap() {
        hasPen_ = false;
        if (phase_ == Phase::Silent) phase_ = Phase::Writing;
        if (phase_ == Phase::LastPart) phase_ = Phase::Over;
    }

    template <class Piece>
    void Put(const Piece &piece) {
        if (phase_ == Phase::Silent || phase_ == Phase::Over) return;
        if (!hasPen_) {
            isDone_ = isDone_ && out_.MoveTo(piece.start + view_.after);
            hasPen_ = true;
        }
        isDone_ = isDone_ && PutOn(piece);
    }
    bool PutOn(const Segment &line) { return out_.LineTo(line.end + view_.after); }
    bool PutOn(const Bezier &curve) {
        return out_.CurveTo(curve.control1 + view_.after, curve.control2 + view_.after, curve.end + view_.after);
    }

    const View &view_;
    const Dashes &dashes_;
    Outline &out_;
    DashCursor cursor_;
    Range dash_;  ///< what is drawn of the present piece since the last gap
    Point at_;
    Phase phase_ = Phase::Writing;
    bool hasPen_ = false;  ///< whether what comes next continues a line
    int dashEnds_ = 0;     ///< of dashes and gaps, as far as they are seen
    bool isDone_ = true;
};

}  // namespace

bool ClipStroke(const Outline &figure, const View &view, const Dashes &dashes, Outline &out) {
    return StrokeClipper(view, dashes, out).Clip(figure);
}

}  // namespace lacquer::vel
