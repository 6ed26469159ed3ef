// The exported rectangles, rings and shadows that are measured in fractions of a pixel.

#include <lacquer/lacquer.h>

#include <cmath>

#include "api/objects.h"
#include "draw/fill.h"
#include "draw/geometry/focus_ring.h"
#include "draw/geometry/round_rectangle.h"
#include "draw/geometry/shadows.h"
#include "draw/geometry/units.h"
#include "filters/lightness.h"

using namespace lacquer;

namespace {

template <class... Numbers>
bool AreNumbers(Numbers... numbers) {
    return (!std::isnan(numbers) && ...);
}

RoundedRect ShapeOf(const RECT &rect) {
    return {rect.left * kUnits, rect.top * kUnits, rect.right * kUnits, rect.bottom * kUnits, {}};
}

RoundedRect ShapeOf(const GeoRect &rect) {
    return {CoordinateUnits(rect.left),
            CoordinateUnits(rect.top),
            CoordinateUnits(rect.right),
            CoordinateUnits(rect.bottom),
            {}};
}

void SetRadii(RoundedRect &shape, const std::array<int64_t, 4> &radii) {
    shape.radii = radii;
    if (!shape.IsEmpty()) shape.FitRadii();
}

std::array<int64_t, 4> Equal(int64_t radius) { return {radius, radius, radius, radius}; }

std::array<int64_t, 4> RadiiOf(const float (&radii)[4]) {
    return {LengthUnits(radii[0]), LengthUnits(radii[1]), LengthUnits(radii[2]), LengthUnits(radii[3])};
}

bool AreNumbers(const GeoRect &rect) { return AreNumbers(rect.left, rect.top, rect.right, rect.bottom); }
bool AreNumbers(const float (&radii)[4]) { return AreNumbers(radii[0], radii[1], radii[2], radii[3]); }

constexpr int64_t kMostBlur = 1024;  ///< pixels

Shadow ShadowOf(const ShadowStyle &style) {
    const ShadowPlace place = style.flags & LACQUER_SHADOW_INNER    ? ShadowPlace::Inside
                              : style.flags & LACQUER_SHADOW_FILLED ? ShadowPlace::AroundAndUnder
                                                                    : ShadowPlace::Around;
    return {WithLightness(style.colour, style.lightness),
            style.offsetX * kUnits,
            style.offsetY * kUnits,
            LengthUnits(style.blur, 0, kMostBlur),
            LengthUnits(style.spread, -kLongestLength, kLongestLength),
            place};
}

}  // namespace

int GeoRectangle(HGCANVAS canvas, const RECT *rect, DWORD border, DWORD fill, int borderWidth) {
    return GeoRoundRect(canvas, rect, border, fill, borderWidth, 0);
}

int GeoRoundRect(HGCANVAS canvas, const RECT *rect, DWORD border, DWORD fill, int borderWidth, int radius) {
    Canvas *found = Find(canvas);
    if (!found || !rect) return 0;
    RoundedRect shape = ShapeOf(*rect);
    SetRadii(shape, Equal(LengthUnits(radius)));
    DrawRoundedRect(*found, shape, LengthUnits(borderWidth), {fill, border, kFillOver});
    return 1;
}

int GeoRectangleEx(HGCANVAS canvas, const GeoRect *rect, const GeoStyle *style, DWORD modeWord) {
    if (!style) return GeoRoundRectEx(canvas, rect, style, modeWord);
    const GeoStyle sharp{style->border, style->fill, style->borderWidth, {}};
    return GeoRoundRectEx(canvas, rect, &sharp, modeWord);
}

int GeoRoundRectEx(HGCANVAS canvas, const GeoRect *rect, const GeoStyle *style, DWORD modeWord) {
    Canvas *found = Find(canvas);
    if (!found || !rect || !style) return 0;
    if (!AreNumbers(*rect) || !AreNumbers(style->borderWidth) || !AreNumbers(style->radii)) return 1;
    RoundedRect shape = ShapeOf(*rect);
    SetRadii(shape, RadiiOf(style->radii));
    DrawRoundedRect(*found, shape, LengthUnits(style->borderWidth), {style->fill, style->border, modeWord});
    return 1;
}

int GeoRectFocusEx(HGCANVAS canvas, const GeoRect *rect, DWORD colour, float width, float radius, float dash,
                   float gap) {
    Canvas *found = Find(canvas);
    if (!found || !rect) return 0;
    if (!AreNumbers(*rect) || !AreNumbers(width, radius, dash, gap)) return 1;
    RoundedRect shape = ShapeOf(*rect);
    SetRadii(shape, Equal(LengthUnits(radius)));
    DrawFocusRing(*found, shape, {colour, LengthUnits(width), LengthUnits(dash), LengthUnits(gap)});
    return 1;
}

int DrawShadows(HGCANVAS canvas, const RECT *rect, const ShadowStyle *shadows, int count) {
    Canvas *found = Find(canvas);
    if (!found || !rect || count < 0 || (count > 0 && !shadows)) return 0;
    for (int i = count - 1; i >= 0; --i) {
        const ShadowStyle &style = shadows[i];
        if (!AreNumbers(style.blur, style.spread, style.lightness) || !AreNumbers(style.radii)) continue;
        RoundedRect shape = ShapeOf(*rect);
        SetRadii(shape, RadiiOf(style.radii));
        DrawShadow(*found, shape, ShadowOf(style));
    }
    return 1;
}
