// Loading a skin, and the parts of a window.
#include "common/skin.h"

#include <algorithm>
#include <vector>

namespace lacquer::examples {

namespace {

constexpr SIZE kProgressSize{24, 18};
constexpr SIZE kScrollSize{14, 24};

/// A piece in the layout of its texture.
lq::SkinPiece PieceOf(const Texture &texture, SIZE state, int states = 1,
                      lq::SkinPiece::Order order = lq::SkinPiece::Order::Downwards) {
    TextureMode mode{};
    Check(GetTextureMode(texture, &mode), "GetTextureMode");
    return {texture, {0, 0, state.cx, state.cy}, mode.margins, mode.mode, states, order};
}

GeoRect GeoRectOf(const RECT &rect) {
    return {static_cast<float>(rect.left), static_cast<float>(rect.top), static_cast<float>(rect.right),
            static_cast<float>(rect.bottom)};
}

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

    using Order = lq::SkinPiece::Order;
    buttons = PieceOf(button, kButtonSize, 4, Order::Downwards);
    bars = PieceOf(progress, kProgressSize, 2, Order::ToTheRight);
    scrolls = PieceOf(scroll, kScrollSize, 4, Order::ToTheRight);
    stripe = PieceOf(stripes, SizeOf(stripes));
    board = PieceOf(wood, SizeOf(wood));
    window = PieceOf(frame, SizeOf(frame));

    SetSlices(button, Grid(1, 4, kButtonSize));
    SetSlices(caption, Grid(3, 2, kCaptionButtonSize));
    SetSlices(check, Grid(3, 1, {kCheckSize, kCheckSize}));
    SetSlices(progress, Grid(2, 1, kProgressSize));
    SetSlices(scroll, Grid(4, 1, kScrollSize));
}

RECT ShadowOf(const RECT &caster, Scale px) { return Inset(caster, -px(20)); }

void DrawShadow(const Canvas &canvas, const RECT &caster, int radius, Scale px) {
    const float f = px.factor();
    const float r = static_cast<float>(radius) * f;
    // One all around, and one of a light from above; both end within 20 pixels.
    const ShadowStyle shadows[] = {{0x60000000, 0, px(4), 10 * f, -f, {r, r, r, r}, 1, 0},
                                   {0x50000000, 0, px(1), 12 * f, 0, {r, r, r, r}, 1, 0}};
    Check(DrawShadows(canvas, &caster, shadows, 2), "DrawShadows");
}

void DrawCard(const Canvas &canvas, const RECT &rect, int radius, std::uint32_t edge, std::uint32_t colour, Scale px) {
    Check(GeoRoundRect(canvas, &rect, edge, colour, px(1), px(radius)), "GeoRoundRect");
}

void DrawWell(const Canvas &canvas, const RECT &rect, int radius, Scale px) {
    const float f = px.factor();
    const float r = static_cast<float>(radius) * f;
    const ShadowStyle shadow{0x50000000, 0, px(2), 5 * f, 0, {r, r, r, r}, 1, LACQUER_SHADOW_INNER};
    Check(DrawShadows(canvas, &rect, &shadow, 1), "DrawShadows");
}

void DrawDots(const Canvas &canvas, const RECT &rect, std::uint32_t colour, Scale px) {
    const GeoRect ring = GeoRectOf(rect);
    const auto dot = static_cast<float>(px(1));
    Check(GeoRectFocusEx(canvas, &ring, colour, dot, 0, dot, dot), "GeoRectFocusEx");
}

void DrawFocusRing(const Canvas &canvas, const RECT &rect, Scale px) {
    const GeoRect ring = GeoRectOf(rect);
    const float f = px.factor();
    Check(GeoRectFocusEx(canvas, &ring, 0xFF2C5FA8, 2 * f, 7 * f, 0, 0), "GeoRectFocusEx");
}

void DrawButton(const Canvas &canvas, const Skin &skin, const RECT &rect, ButtonState state, Scale px) {
    Check(skin.buttons.Draw(canvas, rect, static_cast<int>(state), px.factor()), "drawing a button");
}

RECT FilledPart(const RECT &bar, int done, int all) {
    return {bar.left, bar.top, bar.left + (bar.right - bar.left) * done / all, bar.bottom};
}

void DrawProgress(const Canvas &canvas, const Skin &skin, const RECT &rect, int done, int all, Scale px) {
    const auto draw = [&](const lq::SkinPiece &piece, const RECT &part, int state) {
        Check(piece.Draw(canvas, part, state, px.factor()), "drawing a progress bar");
    };
    draw(skin.bars, rect, 0);
    if (done == 0) return;
    const RECT filled = FilledPart(rect, done, all);
    draw(skin.bars, filled, 1);
    draw(skin.stripe, Inset(filled, px(2)), 0);
}

void DrawScrollBar(const Canvas &canvas, const Skin &skin, const RECT &track, const RECT &thumb, ButtonState state,
                   Scale px) {
    Check(skin.scrolls.Draw(canvas, track, 0, px.factor()), "drawing a scroll bar");
    Check(skin.scrolls.Draw(canvas, thumb, 1 + static_cast<int>(state), px.factor()), "drawing a scroll bar");
}

}  // namespace lacquer::examples
