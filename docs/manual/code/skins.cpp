// Pieces of a skin: states, scales, and nine-grids smaller than their margins.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

int main() {
    // [piece]
    const lq::Texture sheet = lq::LoadTexture("button.png");
    lq::SkinPiece button;
    button.sheet = sheet;
    button.frame = {0, 0, 104, 44};     // the first state on the sheet
    button.margins = {18, 18, 18, 18};  // what keeps its size: left, top, right, bottom
    button.states = 4;                  // normal, hover, pressed, disabled, one below the other
    // [/piece]

    lq::Canvas states = lq::Canvas::Create(456, 64);
    states.Fill({0, 0, 456, 64}, 0xFFF4EEDD);
    // [states]
    for (int state = 0; state < button.states; ++state) {
        const int x = 8 + state * 112;
        button.Draw(states, {x, 10, x + 104, 54}, state);
    }
    // [/states]

    lq::Canvas scaled = lq::Canvas::Create(456, 104);
    scaled.Fill({0, 0, 456, 104}, 0xFFF4EEDD);
    // [scale]
    int x = 8;
    for (const unsigned dpi : {96u, 144u, 192u}) {
        const float scale = lq::ScaleForDpi(dpi);
        const SIZE size = button.NaturalSize(scale);
        button.Draw(scaled, {x, 8, x + size.cx - 48, 8 + size.cy}, 0, scale);
        x += size.cx - 40;
    }
    // [/scale]

    lq::Canvas small = lq::Canvas::Create(280, 72);
    small.Fill({0, 0, 280, 72}, 0xFFF4EEDD);
    for (int i = 0; i < 3; ++i) {
        const int top = 8, side = 36 - i * 8;
        button.Draw(small, {8 + i * 44, top, 8 + i * 44 + side, top + side});
        // [fit]
        const RECT place = {148 + i * 44, top, 148 + i * 44 + side, top + side};
        button.Draw(small, place, 0, button.FittingScale(place));
        // [/fit]
    }
    return lq::SavePng(states, "states.png") && lq::SavePng(scaled, "scaled.png") &&
                   lq::SavePng(small, "small_nine_grids.png")
               ? 0
               : 1;
}
