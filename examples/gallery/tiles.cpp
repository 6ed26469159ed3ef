// tiles.png: tiles at their own size and scaled, a tile from a slice, the cut at the right edge, and top-tiles of
// several heights.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

/// `ground`: a colour between the checkerboard and the piece.
void DrawLabelled(const Canvas &canvas, const Skin &skin, const RECT &dest, const Texture &piece, float scale,
                  std::string_view label, DWORD ground = 0) {
    skin.font.Draw(canvas, dest.left, dest.top - 14, label, kInk);
    FillChecker(canvas, dest, 8);
    FillBox(canvas, dest, ground);
    DrawInto(canvas, dest, piece, LACQUER_BILINEAR, 255, scale);
    OutlineBox(canvas, {dest.left - 1, dest.top - 1, dest.right + 1, dest.bottom + 1}, 0x60FFFFFF);
}

}  // namespace

Canvas PaintTiles(const Skin &skin) {
    Canvas canvas = MakePage(skin, 760, 588, "Tiles", "Textures and slices repeated, at their own size or scaled");
    const Texture wood = CopyOf(skin.wood);
    const auto tile = [&](const RECT &dest, const Texture &piece, DWORD flags, float scale, std::string_view label) {
        SetLayout(piece, LACQUER_LAYOUT_TILE, {}, flags);
        DrawLabelled(canvas, skin, dest, piece, scale, label);
    };
    tile(Box(20, 86, 192, 128), wood, 0, 1.0f, "whole tiles");
    tile(Box(228, 86, 208, 128), wood, LACQUER_SCALE_CELL, 0.5f, "scale 0.5");
    tile(Box(452, 86, 288, 144), wood, LACQUER_SCALE_CELL, 1.5f, "scale 1.5");

    // Sprites on a clear ground; the rows below the first repeat its cut cell.
    const Texture drops = CopyOf(skin.icon);
    tile(Box(20, 250, 192, 192), drops, 0, 1.0f, "drawn over");
    tile(Box(228, 250, 208, 192), drops, 0, 1.0f, "cut at the right edge");
    const Texture states = CopyOf(skin.check);
    const std::array<RECT, 3> slices{Box(0, 0, 24, 24), Box(24, 0, 24, 24), Box(48, 0, 24, 24)};
    SetSlices(states, slices);
    SetTextureCurSlice(states, 1);
    tile(Box(452, 266, 144, 96), states, 0, 1.0f, "slice 1 of a sheet");
    SetTextureCurSlice(states, 2);
    tile(Box(612, 266, 128, 96), states, LACQUER_SCALE_CELL, 2.0f, "slice 2, scale 2");
    const Texture stripes = CopyOf(skin.stripes);
    SetLayout(stripes, LACQUER_LAYOUT_TILE, {}, LACQUER_SCALE_CELL);
    DrawLabelled(canvas, skin, Box(452, 398, 288, 44), stripes, 44.0f / 14, "stripes, scale 44 / 14", 0xFFB4323A);

    DrawLabelled(canvas, skin, Box(20, 478, 96, 40), skin.waves, 1.0f, "top-tile");
    DrawLabelled(canvas, skin, Box(132, 478, 160, 90), skin.waves, 1.0f, "higher");
    DrawLabelled(canvas, skin, Box(308, 478, 432, 90), skin.waves, 1.0f, "wider: the rows below the waves stretch");
    return canvas;
}

}  // namespace lacquer::examples
