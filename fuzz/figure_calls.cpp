// The rows of geometric rectangles and shadows.

#include "kinds.h"

namespace fuzz {
namespace {

constexpr Group kGroup = kSurfaces;

void ChooseRadii(Call &call, float (&radii)[4]) {
    for (float &radius : radii) radius = ChooseLength(call) / 4;
}

GeoRect ChooseGeoRect(Call &call) {
    const float left = ChooseLength(call), top = ChooseLength(call);
    return {left, top, left + ChooseLength(call), top + ChooseLength(call)};
}

GeoStyle ChooseStyle(Call &call) {
    GeoStyle style{ChooseColour(call), ChooseColour(call), ChooseLength(call) / 8, {}};
    ChooseRadii(call, style.radii);
    return style;
}

ShadowStyle ChooseShadow(Call &call) {
    ShadowStyle style{ChooseColour(call),
                      ChooseSmallInteger(call),
                      ChooseSmallInteger(call),
                      ChooseLength(call) / 2,
                      ChooseLength(call) / 8,
                      {},
                      call.choices.Seldom(128) ? 1 : ChooseScale(call),
                      ChooseCode<4>(call)};
    ChooseRadii(call, style.radii);
    return style;
}

using Rectangle = In<GeoRect, ChooseGeoRect>;
using Style = In<GeoStyle, ChooseStyle>;
using Shadows = List<ShadowStyle, ChooseShadow, 5>;

}  // namespace

std::vector<Row> FigureCalls() {
    return {
        CALL(GeoRectangle, Canvas, Rect, Colour, Colour, Integer),
        CALL(GeoRoundRect, Canvas, Rect, Colour, Colour, Integer, Integer),
        CALL(GeoRectangleEx, Canvas, Rectangle, Style, ModeWord),
        CALL(GeoRoundRectEx, Canvas, Rectangle, Style, ModeWord),
        CALL(GeoRectFocusEx, Canvas, Rectangle, Colour, Length, Length, Length, Length),
        CALL(DrawShadows, Canvas, Rect, Shadows),
    };
}

}  // namespace fuzz
