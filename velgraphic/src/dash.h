// How strokes are dashed.
#pragma once

#include <cairo.h>
#include <velgraphic/velgraphic.h>

#include "buffer.h"
#include "shared.h"

namespace lacquer::vel {

/// Lengths on and off in turn, and where in them a stroke begins.
struct DashPattern final : Shared<DashPattern> {
    Buffer<double> lengths;
    double offset = 0;

    /// A pattern of pixels; null when it is refused or memory is short.
    static Reference<DashPattern> Create(const float *lengths, int count, float offset);
};

/// The dashes of one stroke; true when there are any.
struct Dashes {
    /// How many of one stroke are drawn at most.
    static constexpr int kMost = 10'000;

    const double *lengths = nullptr;
    int count = 0;
    double offset = 0, scale = 1;

    /// Of a style, with the pattern for VEL_DASH_PATTERN; none for a solid stroke.
    static Dashes Of(DWORD style, double strokeWidth, const DashPattern *pattern);

    /// For lines that are dashes already: leaves them as they are, but the renderer joins and ends them as its own.
    static Dashes Whole();

    explicit operator bool() const { return count > 0; }
    void ApplyTo(cairo_t *context) const;
    /// Of dash and gap together.
    double MeanLength() const;
    /// Whether a stroke of this length has more of them than are drawn.
    bool AreTooMany(double length) const;
};

/// Goes along a stroke from dash to gap to dash.
class DashCursor {
public:
    /// False when memory is short.
    bool Use(const Dashes &dashes);
    /// Goes to where a stroke begins.
    void Restart() { GoTo(dashes_.scale * dashes_.offset); }

    bool IsOn() const { return index_ % 2 == 0; }
    /// How far it is to the end of this dash or gap.
    double Left() const { return left_; }
    /// Goes on, at most to the end of this dash or gap. True when that was reached; the cursor is then at the next one.
    bool GoOn(double length);
    /// Goes on over dashes and gaps.
    void Skip(double length);

private:
    void GoTo(double position);

    Dashes dashes_;
    Buffer<double> ends_;  ///< of dashes and gaps in turn, until they repeat
    size_t index_ = 0;
    double left_ = 0;
};

}  // namespace lacquer::vel
