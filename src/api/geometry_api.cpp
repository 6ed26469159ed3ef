// The exported rectangles, rings and shadows that are measured in fractions of a pixel.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "draw/geometry/figures.h"
#include "filters/lightness.h"

using namespace lacquer;

int GeoRectangle(HGCANVAS canvas, const RECT *rect, DWORD border, DWORD fill, int borderWidth) {
    return GeoRoundRect(canvas, rect, border, fill, borderWidth, 0);
}

int GeoRoundRect(HGCANVAS canvas, const RECT *rect, DWORD border, DWORD fill, int borderWidth, int radius) {
    Canvas *found = Find(canvas);
    if (!found || !rect) return 0;
    DrawRoundedRect(*found, *rect, {border, fill}, borderWidth, radius);
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
    DrawRoundedRect(*found, *rect, *style, modeWord);
    return 1;
}

int GeoRectFocusEx(HGCANVAS canvas, const GeoRect *rect, DWORD colour, float width, float radius, float dash,
                   float gap) {
    Canvas *found = Find(canvas);
    if (!found || !rect) return 0;
    DrawFocusRing(*found, *rect, {colour, width, radius, dash, gap});
    return 1;
}

int DrawShadows(HGCANVAS canvas, const RECT *rect, const ShadowStyle *shadows, int count) {
    Canvas *found = Find(canvas);
    if (!found || !rect || count < 0 || (count > 0 && !shadows)) return 0;
    for (int i = count - 1; i >= 0; --i) {
        const ShadowStyle &style = shadows[i];
        if (IsDrawable(style)) DrawShadow(*found, *rect, style, WithLightness(style.colour, style.lightness));
    }
    return 1;
}
