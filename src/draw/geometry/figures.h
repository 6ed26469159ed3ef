// Figures as callers describe them, in pixels and with numbers from anywhere. Coordinates and lengths are clamped to
// their ranges and radii fitted; a number that is none (NaN) in a field that counts draws nothing.
#pragma once

#include "core/canvas.h"

namespace lacquer {

/// The two colours of a rectangle, straight.
struct RectColours {
    DWORD border, fill;
};

void DrawRoundedRect(Canvas &canvas, const RECT &rect, const RectColours &colours, int borderWidth, int radius);
void DrawRoundedRect(Canvas &canvas, const GeoRect &rect, const GeoStyle &style, DWORD modeWord);

/// Lengths in pixels.
struct FocusStyle {
    DWORD colour;  ///< straight
    float width, radius, dash, gap;
};

void DrawFocusRing(Canvas &canvas, const GeoRect &rect, const FocusStyle &style);

/// Whether a shadow's numbers are some.
bool IsDrawable(const ShadowStyle &style);

/// Draws a shadow whose numbers are some. `colour`: the style's in its lightness.
void DrawShadow(Canvas &canvas, const RECT &rect, const ShadowStyle &style, DWORD colour);

}  // namespace lacquer
