// Drawing glyphs that have their places, of one font or of several, in a canvas's colour or gradient.
#pragma once

#include <span>

#include "font_face.h"
#include "state.h"

namespace lacquer::vel {

/// A glyph with its origin on the baseline, in logical coordinates. The face has to stay until the call is over; other
/// threads may draw with it at the same time.
struct GlyphPlacement {
    FontFace *face = nullptr;
    WORD glyph = 0;
    Point origin;
};

/// A bar that goes with glyphs, from `origin` on their baseline to `right`. The bar's lengths are pixels.
struct BarPlacement {
    Point origin;
    double right = 0;
    Bar bar;
};

/// Fills glyphs at the canvas's text size, together with bars, as one shape: nothing is darker where they overlap.
/// Glyphs that their face lacks draw nothing. False, and nothing is drawn, when an origin is no number or lies too far
/// away after the translation, when the canvas has no bitmap or no gradient that its style asks for, and when memory
/// is short.
bool DrawGlyphs(velCanvas &canvas, std::span<const GlyphPlacement> glyphs, std::span<const BarPlacement> bars);

/// Where a state's text stands that has its origin at a position on the pixels: where it is, or, drawn through masks,
/// on the nearest row and quarter of a column.
Point PlaceOnPixels(const State &state, Point origin);

}  // namespace lacquer::vel
