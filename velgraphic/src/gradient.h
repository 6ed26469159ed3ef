// Gradients: their geometry and their colour stops.
#pragma once

#include <cairo.h>
#include <velgraphic/velgraphic.h>

#include "buffer.h"
#include "clip.h"
#include "shared.h"

struct velGradient final : lacquer::vel::Shared<velGradient> {
public:
    using Clip = lacquer::vel::Clip;
    using Point = lacquer::vel::Point;

    /// From `first` to `second`, or with a positive radius around `first`.
    velGradient(Point first, Point second, double radius) : first_(first), second_(second), radius_(radius) {}

    /// How many stops a gradient has at most.
    static constexpr size_t kMaxStops = 100'000;

    /// 0 <= offset <= 1. False when there are too many stops or memory is short.
    bool AddStop(float offset, DWORD colour);

    // What to draw with: moved by `offset`, alpha scaled by `opacity`. The caller destroys it; it may be in error.

    /// Whether the renderer's own gradient, moved by `offset`, has the right colours on the pixels `visible`. It has
    /// not when the gradient is far larger, or far away, and yet changes its colour quickly; and with many stops, among
    /// which it searches for each pixel one by one, it would take too long.
    bool SuitsRenderer(Point offset, const Clip &visible) const;
    cairo_pattern_t *Pattern(Point offset, double opacity) const;
    /// The colours of the pixels `part` alone, computed one by one.
    cairo_pattern_t *Painted(const Clip &part, Point offset, double opacity) const;

    /// The memory that either of them takes for the pixels `visible`.
    size_t Bytes(Point offset, const Clip &visible) const;

    size_t StopCount() const { return stops_.Size(); }

    struct Stop {
        float offset;
        DWORD colour;
    };

private:
    /// From 0 to 1: the distance of the two points, or the radius.
    double Length() const { return radius_ > 0 ? radius_ : lacquer::vel::Length(second_ - first_); }

    Point first_, second_;
    double radius_;
    lacquer::vel::Buffer<Stop> stops_;  ///< by their offsets
};

namespace lacquer::vel {

/// The pattern of one draw, kept for the next: to make it takes longer than a small draw.
class KeptPattern {
public:
    KeptPattern() = default;
    ~KeptPattern() { Drop(); }
    KeptPattern(const KeptPattern &) = delete;
    KeptPattern &operator=(const KeptPattern &) = delete;

    /// As velGradient::Pattern; the caller destroys its reference.
    cairo_pattern_t *Of(const Reference<velGradient> &gradient, Point offset, double opacity);

private:
    void Drop();

    Reference<velGradient> gradient_;
    size_t stopCount_ = 0;  ///< stops are only ever added
    Point offset_;
    double opacity_ = 0;
    cairo_pattern_t *pattern_ = nullptr;
};

}  // namespace lacquer::vel
