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
    /// How far the stroke reaches from its lines.
    double Reach() const;
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
    DrawingCost(const Outline &outline, Point offset, const Clip &visible, double reach);

    Point size_;     ///< of the part that is seen
    double points_;  ///< of the outline
    double edges_ = 0;
    double rows_ = 0, columns_ = 0;  ///< that all edges cross, taken together
};

}  // namespace lacquer::vel
