// The rows of geometric rectangles and shadows.

#include "kinds.h"

namespace fuzz {

void WriteRecord(std::ostream &out, const GeoRect &rect) {
    out << "(GeoRect){";
    for (const float edge : {rect.left, rect.top, rect.right, rect.bottom}) WriteNumber(out, edge), out << ", ";
    out << '}';
}

static void WriteRadii(std::ostream &out, const float (&radii)[4]) {
    out << '{';
    for (const float radius : radii) WriteNumber(out, radius), out << ", ";
    out << '}';
}

void WriteRecord(std::ostream &out, const GeoStyle &style) {
    out << "(GeoStyle){0x" << std::hex << style.border << ", 0x" << style.fill << std::dec << ", ";
    WriteNumber(out, style.borderWidth);
    WriteRadii(out << ", ", style.radii);
    out << '}';
}

void WriteRecord(std::ostream &out, const ShadowStyle &style) {
    out << "(ShadowStyle){0x" << std::hex << style.colour << std::dec << ", " << style.offsetX << ", " << style.offsetY;
    for (const float number : {style.blur, style.spread}) WriteNumber(out << ", ", number);
    WriteRadii(out << ", ", style.radii);
    WriteNumber(out << ", ", style.lightness);
    out << ", " << style.flags << '}';
}

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
