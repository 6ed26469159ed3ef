// Gradients: their geometry and their colour stops.
#pragma once

#include <cairo.h>
#include <velgraphic/velgraphic.h>

#include "buffer.h"
#include "geometry.h"
#include "shared.h"

struct velGradient final : lacquer::vel::Shared<velGradient> {
public:
    using Point = lacquer::vel::Point;

    /// From `first` to `second`, or with a positive radius around `first`.
    velGradient(Point first, Point second, double radius) : first_(first), second_(second), radius_(radius) {}

    /// 0 <= offset <= 1. False when memory is short.
    bool AddStop(float offset, DWORD colour) { return stops_.Append({offset, colour}); }

    /// Whether the gradient's geometry, moved by `offset`, is in the range that can be drawn.
    bool IsInRange(Point offset) const;

    /// What to draw with: moved by `offset`, alpha scaled by `opacity`. The caller destroys it; it may be in error.
    cairo_pattern_t *Pattern(Point offset, double opacity) const;

private:
    struct Stop {
        float offset;
        DWORD colour;
    };
    Point first_, second_;
    double radius_;
    lacquer::vel::Buffer<Stop> stops_;
};
