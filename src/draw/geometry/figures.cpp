// From the records of callers to shapes in units.

#include "draw/geometry/figures.h"

#include <array>
#include <cmath>

#include "draw/fill.h"
#include "draw/geometry/focus_ring.h"
#include "draw/geometry/round_rectangle.h"
#include "draw/geometry/shadows.h"
#include "draw/geometry/units.h"

namespace lacquer {
namespace {

constexpr int64_t kMaxBlur = 1024;  ///< pixels

template <class... Numbers>
bool AreNumbers(Numbers... numbers) {
    return (!std::isnan(numbers) && ...);
}
bool AreNumbers(const GeoRect &rect) { return AreNumbers(rect.left, rect.top, rect.right, rect.bottom); }
bool AreNumbers(const float (&radii)[4]) { return AreNumbers(radii[0], radii[1], radii[2], radii[3]); }

using Radii = std::array<int64_t, 4>;

Radii Equal(int64_t radius) { return {radius, radius, radius, radius}; }

Radii RadiiOf(const float (&radii)[4]) {
    return {LengthUnits(radii[0]), LengthUnits(radii[1]), LengthUnits(radii[2]), LengthUnits(radii[3])};
}

void SetRadii(RoundedRect &shape, const Radii &radii) {
    shape.radii = radii;
    if (!shape.IsEmpty()) shape.FitRadii();
}

RoundedRect ShapeOf(const RECT &rect, const Radii &radii) {
    RoundedRect shape{rect.left * kUnits, rect.top * kUnits, rect.right * kUnits, rect.bottom * kUnits, {}};
    SetRadii(shape, radii);
    return shape;
}

RoundedRect ShapeOf(const GeoRect &rect, const Radii &radii) {
    RoundedRect shape{CoordinateUnits(rect.left),
                      CoordinateUnits(rect.top),
                      CoordinateUnits(rect.right),
                      CoordinateUnits(rect.bottom),
                      {}};
    SetRadii(shape, radii);
    return shape;
}

ShadowPlace PlaceOf(DWORD flags) {
    if (flags & LACQUER_SHADOW_INNER) return ShadowPlace::Inside;
    return flags & LACQUER_SHADOW_FILLED ? ShadowPlace::AroundAndUnder : ShadowPlace::Around;
}

}  // namespace

void DrawRoundedRect(Canvas &canvas, const RECT &rect, const RectColours &colours, int borderWidth, int radius) {
    DrawRoundedRect(canvas, ShapeOf(rect, Equal(LengthUnits(radius))), LengthUnits(borderWidth),
                    {colours.fill, colours.border, kFillOver});
}

void DrawRoundedRect(Canvas &canvas, const GeoRect &rect, const GeoStyle &style, DWORD modeWord) {
    if (!AreNumbers(rect) || !AreNumbers(style.borderWidth) || !AreNumbers(style.radii)) return;
    DrawRoundedRect(canvas, ShapeOf(rect, RadiiOf(style.radii)), LengthUnits(style.borderWidth),
                    {style.fill, style.border, modeWord});
}

void DrawFocusRing(Canvas &canvas, const GeoRect &rect, const FocusStyle &style) {
    if (!AreNumbers(rect) || !AreNumbers(style.width, style.radius, style.dash, style.gap)) return;
    DrawFocusRing(canvas, ShapeOf(rect, Equal(LengthUnits(style.radius))),
                  {style.colour, LengthUnits(style.width), LengthUnits(style.dash), LengthUnits(style.gap)});
}

bool IsDrawable(const ShadowStyle &style) {
    return AreNumbers(style.blur, style.spread, style.lightness) && AreNumbers(style.radii);
}

void DrawShadow(Canvas &canvas, const RECT &rect, const ShadowStyle &style, DWORD colour) {
    DrawShadow(canvas, ShapeOf(rect, RadiiOf(style.radii)),
               {colour, style.offsetX * kUnits, style.offsetY * kUnits, LengthUnits(style.blur, 0, kMaxBlur),
                LengthUnits(style.spread, -kLongestLength, kLongestLength), PlaceOf(style.flags)});
}

}  // namespace lacquer
