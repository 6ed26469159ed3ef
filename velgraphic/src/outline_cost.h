// What it takes the renderer to draw a figure: estimated before it is asked to, for it can neither stop nor be refused
// memory on the way.
#pragma once

#include "clip.h"
#include "dash.h"
#include "outline.h"

namespace lacquer::vel {

/// How lines become a stroke.
struct StrokeForm {
    double width;
    DWORD cap, join;

    double Half() const { return width / 2; }
};

/// The edges of the polygon that a figure becomes, as far as it is seen. Sums of an estimate, which may be too high.
class DrawingCost {
public:
    /// Of figures that are moved by `offset` onto the pixels `visible`.
    static DrawingCost OfFill(const Outline &outline, Point offset, const Clip &visible);
    static DrawingCost OfStroke(const Outline &outline, Point offset, const Clip &visible, const StrokeForm &form,
                                const Dashes &dashes);

    /// The memory that the renderer takes.
    size_t Bytes() const;
    /// Whether the renderer would take so long, about a second, that it is not asked to.
    bool IsHigh(bool smooth) const;

private:
    class Meter;
    DrawingCost(const Outline &outline, const Clip &visible)
        : size_{static_cast<double>(visible.right - visible.left), static_cast<double>(visible.bottom - visible.top)},
          points_(static_cast<double>(outline.Points().Size())) {}

    Point size_;     ///< of the visible part
    double points_;  ///< of the outline
    double edges_ = 0, rows_ = 0,
           columns_ = 0;  ///< how many edges there are, and rows and columns that all of them cross
};

}  // namespace lacquer::vel
