// A panel of frosted glass: what lies under it shows through, blurred.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

namespace {

// Lays a panel with round corners over what the canvas shows in `place`.
bool DrawGlass(lq::Canvas &canvas, const RECT &place, float radius) {
    const LONG width = place.right - place.left, height = place.bottom - place.top;
    const RECT all = {0, 0, width, height};
    lq::Canvas panel = lq::Canvas::Create(static_cast<DWORD>(width), static_cast<DWORD>(height));

    panel.Blend(all, canvas, place);  // a copy of what lies under the panel
    if (!lq::Blur(panel, 6)) return false;
    panel.Fill(all, 0x70FFFFFF);  // the glass itself: white, a little less than half covering

    // Everything outside the round corners becomes transparent.
    SetBlendMode(panel, VEL_BLEND_DESTINATION_IN);
    DrawRoundRect(panel, 0, 0, static_cast<float>(width), static_cast<float>(height), radius, radius);

    panel.SetDrawMode(LACQUER_DRAW_OVER);
    return canvas.Blend(place, panel, all);
}

}  // namespace

int main() {
    lq::Canvas canvas = lq::Canvas::Create(384, 240);
    canvas.Draw(lq::LoadTexture("photo.png"), {0, 0, 384, 240}, LACQUER_BICUBIC);

    const RECT place = {72, 48, 312, 192};
    if (!DrawGlass(canvas, place, 16)) return 1;
    GeoRoundRect(canvas, &place, 0x80FFFFFF, 0, 1, 16);  // a thin bright edge

    SetColor(canvas, 0xFF1E2230);
    canvas.SetFont(LACQUER_TEXT("sans-serif"), 20);
    lq::TextStyle middle;
    middle.align = lq::TextStyle::Align::Centre;
    middle.vertical = lq::TextStyle::VerticalAlign::Middle;
    lq::Text(LACQUER_TEXT("Behind glass"), middle).Draw(canvas, place);
    return lq::SavePng(canvas, "blurred_backdrop.png") ? 0 : 1;
}
