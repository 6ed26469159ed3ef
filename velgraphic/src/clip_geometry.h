// Cutting figures to what can be seen of them, for coordinates that the renderer can not count with.
#pragma once

#include "clip.h"
#include "dash.h"
#include "outline.h"

namespace lacquer::vel {

/// What is seen of the plane in which a figure lies.
struct View {
    /// Of a figure that is moved by `translation` onto the pixels `visible`, and reaches `reach` pixels farther than
    /// its lines do.
    View(const Clip &visible, Point translation, double reach);

    /// The figure is moved before it is clipped, or afterwards: so that huge coordinates keep their last digits.
    Point before, after;
    /// What lies outside shows nowhere.
    Bounds seen;
    /// What the renderer can count with; more than `seen` on every side.
    Bounds range;
};

// Both append the figure, as it lies on the pixels, to `out`, in steps that grow with the number of points alone. False
// when memory is short.

/// Lines to fill, which enclose the same points of the visible part in the same directions: what lies out of range is
/// pressed onto its border.
bool ClipFill(const Outline &figure, const View &view, Outline &out);

/// Lines to stroke without dashes, which look the same in the visible part. The dashes have become lines of their own;
/// false when too many of them are visible.
bool ClipStroke(const Outline &figure, const View &view, const Dashes &dashes, Outline &out);

}  // namespace lacquer::vel
