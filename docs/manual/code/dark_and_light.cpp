// One window in two skins: the colours are a record, and the pictures are tinted once, when the skin is chosen.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

namespace {

struct Colours {
    DWORD ground, card, edge, text;
    float lightness;  // by which the pictures are made darker or lighter
};

constexpr Colours kLight = {0xFFF4EEDD, 0xFFFFFFFF, 0xFFD8D0BC, 0xFF333845, 0};
constexpr Colours kDark = {0xFF1E222C, 0xFF2B303D, 0xFF434A5C, 0xFFE9ECF2, -0.35f};

// A skin that is ready to draw: made when the user chooses it, not at each paint.
struct Skin {
    explicit Skin(const Colours &chosen) : colours(chosen), sheet(lq::LoadTexture("button.png")) {
        lq::Tint(sheet, 0, 0, colours.lightness);
        button.sheet = sheet;
        button.frame = {0, 0, 104, 44};
        button.margins = {18, 18, 18, 18};
        button.states = 4;
    }

    Colours colours;
    lq::Texture sheet;
    lq::SkinPiece button;
};

void PaintWindow(lq::Canvas &canvas, const RECT &area, const Skin &skin) {
    canvas.Fill(area, skin.colours.ground);
    const RECT card = {area.left + 16, area.top + 16, area.right - 16, area.bottom - 16};
    const ShadowStyle shadow = {0x50000000, 0, 3, 12, 0, {10, 10, 10, 10}, 1, 0};
    DrawShadows(canvas, &card, &shadow, 1);
    GeoRoundRect(canvas, &card, skin.colours.edge, skin.colours.card, 1, 10);

    SetColor(canvas, skin.colours.text);
    canvas.SetFont(LACQUER_TEXT("sans-serif"), 14);
    lq::Text(LACQUER_TEXT("Save the changes?"))
        .Draw(canvas, {card.left + 16, card.top + 14, card.right - 8, card.bottom});

    const RECT button = {card.right - 104, card.bottom - 48, card.right - 8, card.bottom - 4};
    skin.button.Draw(canvas, button);
    SetColor(canvas, 0xFFFFFFFF);
    lq::TextStyle middle;
    middle.align = lq::TextStyle::Align::Centre;
    middle.vertical = lq::TextStyle::VerticalAlign::Middle;
    lq::Text(LACQUER_TEXT("Save"), middle).Draw(canvas, button);
}

}  // namespace

int main() {
    const Skin light(kLight), dark(kDark);
    lq::Canvas canvas = lq::Canvas::Create(448, 144);
    PaintWindow(canvas, {0, 0, 224, 144}, light);
    PaintWindow(canvas, {224, 0, 448, 144}, dark);
    return lq::SavePng(canvas, "dark_and_light.png") ? 0 : 1;
}
