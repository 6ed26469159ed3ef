// Loading a skin, and the parts of a window.
#include "common/skin.h"

#include <algorithm>
#include <vector>

namespace lacquer::examples {

namespace {

/// Slices of equal size, row by row.
std::vector<RECT> Grid(int columns, int rows, SIZE cell) {
    std::vector<RECT> cells;
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < columns; ++x) cells.push_back(Box(x * cell.cx, y * cell.cy, cell.cx, cell.cy));
    return cells;
}

}  // namespace

Skin::Skin(const Reader &read)
    : lettering(MakeBitmap(read("lettering", Alpha::kAsStored))), font(read("font", Alpha::kPremultiplied)) {
    struct Piece {
        Texture &texture;
        const char *name;
        DWORD mode, layout;
        RECT margins;
    };
    const Piece pieces[] = {
        {photo, "photo", LACQUER_DRAW_COPY, LACQUER_LAYOUT_STRETCH, {}},
        {vignette, "vignette", LACQUER_DRAW_COPY, LACQUER_LAYOUT_STRETCH, {}},
        {wood, "wood", LACQUER_DRAW_COPY, LACQUER_LAYOUT_TILE, {}},
        {icon, "icon", LACQUER_DRAW_OVER, LACQUER_LAYOUT_STRETCH, {}},
        {knob, "knob", LACQUER_DRAW_OVER, LACQUER_LAYOUT_STRETCH, {}},
        {splash, "splash", LACQUER_DRAW_OVER, LACQUER_LAYOUT_STRETCH, {}},
        {check, "check", LACQUER_DRAW_OVER, LACQUER_LAYOUT_STRETCH, {}},
        {caption, "caption", LACQUER_DRAW_OVER, LACQUER_LAYOUT_STRETCH, {}},
        {stripes, "stripes", LACQUER_DRAW_OVER, LACQUER_LAYOUT_TILE, {}},
        {waves, "waves", LACQUER_DRAW_OVER, LACQUER_LAYOUT_TOP_TILE, {0, 24, 0, 16}},
        {card, "card", LACQUER_DRAW_OVER, LACQUER_LAYOUT_NINE_GRID, {24, 24, 24, 24}},
        {frame, "frame", LACQUER_DRAW_OVER, LACQUER_LAYOUT_NINE_GRID, {10, 36, 10, 10}},
        {popup, "popup", LACQUER_DRAW_OVER, LACQUER_LAYOUT_NINE_GRID, {7, 7, 7, 7}},
        {shadow, "shadow", LACQUER_DRAW_OVER, LACQUER_LAYOUT_NINE_GRID, {30, 32, 30, 28}},
        {field, "field", LACQUER_DRAW_OVER, LACQUER_LAYOUT_HOLLOW_NINE_GRID, {6, 8, 6, 6}},
        {button, "button", LACQUER_DRAW_OVER, LACQUER_LAYOUT_NINE_GRID, {18, 18, 18, 18}},
        {progress, "progress", LACQUER_DRAW_OVER, LACQUER_LAYOUT_NINE_GRID, {8, 8, 8, 8}},
        {scroll, "scroll", LACQUER_DRAW_OVER, LACQUER_LAYOUT_NINE_GRID, {6, 8, 6, 8}},
    };
    for (const Piece &piece : pieces) {
        piece.texture = MakeTexture(read(piece.name, Alpha::kPremultiplied));
        SetDrawMode(piece.texture, piece.mode);
        SetLayout(piece.texture, piece.layout, piece.margins);
    }
    // The sprite's own pixels are opaque and the others clear: premultiplied, these would lose the key colour.
    const Image ladybird = read("ladybird", Alpha::kAsStored);
    ladybird32 = MakeTexture(ladybird);
    ladybird24 = MakeTexture(WithoutAlpha(ladybird));
    ladybird8 = MakeTexture(WithPalette(ladybird));
    for (const Texture *texture : {&ladybird32, &ladybird24, &ladybird8})
        SetDrawMode(*texture, LACQUER_DRAW_COLOR_KEY, kKeyColour);

    SetSlices(button, Grid(1, 4, kButtonSize));
    SetSlices(caption, Grid(3, 2, kCaptionButtonSize));
    SetSlices(check, Grid(3, 1, {kCheckSize, kCheckSize}));
    SetSlices(progress, Grid(2, 1, {24, 18}));
    SetSlices(scroll, Grid(4, 1, {14, 24}));
}

RECT ShadowOf(const RECT &caster) { return {caster.left - 20, caster.top - 20, caster.right + 20, caster.bottom + 20}; }

void DrawShadow(const Canvas &canvas, const RECT &caster, float radius) {
    // One all around, and one of a light from above; both end within 20 pixels.
    const ShadowStyle shadows[] = {{0x60000000, 0, 4, 10, -1, {radius, radius, radius, radius}, 1, 0},
                                   {0x50000000, 0, 1, 12, 0, {radius, radius, radius, radius}, 1, 0}};
    Check(DrawShadows(canvas, &caster, shadows, 2), "DrawShadows");
}

void DrawCard(const Canvas &canvas, const RECT &rect, int radius, std::uint32_t edge, std::uint32_t colour) {
    Check(GeoRoundRect(canvas, &rect, edge, colour, 1, radius), "GeoRoundRect");
}

void DrawWell(const Canvas &canvas, const RECT &rect, float radius) {
    const ShadowStyle shadow{0x50000000, 0, 2, 5, 0, {radius, radius, radius, radius}, 1, LACQUER_SHADOW_INNER};
    Check(DrawShadows(canvas, &rect, &shadow, 1), "DrawShadows");
}

void DrawFocus(const Canvas &canvas, const RECT &rect, std::uint32_t colour) {
    const GeoRect ring{static_cast<float>(rect.left), static_cast<float>(rect.top), static_cast<float>(rect.right),
                       static_cast<float>(rect.bottom)};
    Check(GeoRectFocusEx(canvas, &ring, colour, 1, 0, 1, 1), "GeoRectFocusEx");
}

void DrawButton(const Canvas &canvas, const Skin &skin, const RECT &rect, ButtonState state) {
    DrawSlice(canvas, rect, skin.button, static_cast<int>(state));
}

RECT FilledPart(const RECT &bar, int done, int all) {
    return {bar.left, bar.top, bar.left + (bar.right - bar.left) * done / all, bar.bottom};
}

void DrawProgress(const Canvas &canvas, const Skin &skin, const RECT &rect, int done, int all) {
    DrawSlice(canvas, rect, skin.progress, 0);
    if (done == 0) return;
    const RECT filled = FilledPart(rect, done, all);
    DrawSlice(canvas, filled, skin.progress, 1);
    DrawInto(canvas, {filled.left + 2, filled.top + 2, filled.right - 2, filled.bottom - 2}, skin.stripes);
}

void DrawScrollBar(const Canvas &canvas, const Skin &skin, const RECT &track, const RECT &thumb, ButtonState state) {
    DrawSlice(canvas, track, skin.scroll, 0);
    DrawSlice(canvas, thumb, skin.scroll, 1 + static_cast<int>(state));
}

}  // namespace lacquer::examples
