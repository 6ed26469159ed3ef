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

/// The dashes of one stroke.
struct Dashes {
    const double *lengths = nullptr;
    int count = 0;
    double offset = 0, scale = 1;

    /// Of a style, with the pattern for VEL_DASH_PATTERN; none for a solid stroke.
    static Dashes Of(DWORD style, double strokeWidth, const DashPattern *pattern);

    void ApplyTo(cairo_t *context) const;
    /// Whether a stroke of this length has more of them than are drawn.
    bool AreTooMany(double length) const;
};

}  // namespace lacquer::vel
