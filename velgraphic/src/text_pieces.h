// What a text consists of on the pixels, masks and bars, and painting all of it as one shape.
#pragma once

#include <cairo.h>

#include <span>

#include "coverage.h"

namespace lacquer::vel {

/// A mask whose glyph has its origin in the pixel (x, y).
struct PlacedMask {
    const GlyphMask *mask;
    int x, y;
};

inline Clip BoxOf(const PlacedMask &placed) { return placed.mask->box.MovedBy(placed.x, placed.y); }
inline Clip BoxOf(const Bounds &bar) { return PixelsTouched(bar); }

/// Their order does not matter, and changes.
struct TextPieces {
    std::span<PlacedMask> masks;
    std::span<Bounds> bars;

    /// The pixels of a region that they may cover.
    Clip BoxIn(const Clip &region) const;
    /// Those that lie in a region, in part at least.
    TextPieces In(const Clip &region) const;
};

/// Paints the context's source where the pieces cover `box`, the pixels that they may cover: each pixel once, however
/// many pieces cover it, and in several steps where the coverage has no room for all of the box.
void Paint(cairo_t *context, const TextPieces &pieces, const Clip &box, Coverage &coverage);

}  // namespace lacquer::vel
