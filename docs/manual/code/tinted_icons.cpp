// One set of white icons, in any colour. A fill that multiplies turns white into the colour of the fill and leaves
// transparent pixels transparent, without a step through straight colours.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

#include <utility>

namespace {

constexpr int kSide = 32, kCount = 3;
const RECT kSheet = {0, 0, kSide *kCount, kSide};

// Three white icons in a row: a tick, a cross and a bell. A white PNG file with alpha works, too: load it with
// lq::LoadTexture, and write copy.Draw(texture, kSheet) in place of copy.Blend.
lq::Canvas WhiteIcons() {
    lq::Canvas sheet = lq::Canvas::Create(kSide * kCount, kSide);
    sheet.SetDrawMode(LACQUER_DRAW_OVER);
    SetColor(sheet, 0xFFFFFFFF);
    SetDrawStyle(sheet, VEL_STYLE_STROKE);
    SetStrokeWidth(sheet, 4);
    SetStrokeCap(sheet, VEL_CAP_ROUND);
    SetStrokeJoin(sheet, VEL_JOIN_ROUND);

    lq::Path lines = lq::Path::Create();
    lines.MoveTo(7, 17);
    lines.LineTo(13, 23);
    lines.LineTo(25, 9);
    lines.MoveTo(40, 8);
    lines.LineTo(56, 24);
    lines.MoveTo(56, 8);
    lines.LineTo(40, 24);
    DrawPath(sheet, lines);

    SetDrawStyle(sheet, VEL_STYLE_FILL);
    lq::Path bell = lq::Path::Create();
    bell.MoveTo(68, 23);
    bell.BezierCurveTo(74, 19, 70, 6, 80, 6);
    bell.BezierCurveTo(90, 6, 86, 19, 92, 23);
    bell.Close();
    bell.AddCircle(80, 26, 3);
    DrawPath(sheet, bell);
    return sheet;
}

// The same icons in one straight colour.
lq::Texture InColour(const lq::Canvas &white, DWORD colour) {
    lq::Canvas copy = lq::Canvas::Create(kSide * kCount, kSide);
    copy.SetDrawMode(LACQUER_DRAW_OVER);
    copy.Blend(kSheet, white, kSheet);
    copy.Fill(kSheet, colour, LACQUER_DRAW_MODULATE);
    return lq::Texture::From(std::move(copy));
}

}  // namespace

int main() {
    const lq::Canvas white = WhiteIcons();
    lq::Canvas canvas = lq::Canvas::Create(240, 96);
    canvas.Fill({0, 0, 120, 96}, 0xFFF4EEDD);
    canvas.Fill({120, 0, 240, 96}, 0xFF39415A);

    struct Row {
        RECT place;
        DWORD colour;
    };
    const Row rows[] = {{{12, 8, 108, 40}, 0xFF963232},
                        {{12, 56, 108, 88}, 0x60333845},  // a translucent colour: disabled icons
                        {{132, 8, 228, 40}, 0xFFF5B84B},
                        {{132, 56, 228, 88}, 0x60FFFFFF}};
    for (const Row &row : rows) canvas.Draw(InColour(white, row.colour), row.place);
    return lq::SavePng(canvas, "tinted_icons.png") ? 0 : 1;
}
