// glow.png: what halos and blurs are good for: glows, shadows of any shape, and a pane of frosted glass.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

constexpr int kRoom = 16;  // around a piece, for its glow

std::string Counted(int count, const std::string &thing, const std::string &things) {
    return std::to_string(count) + ' ' + (count == 1 ? thing : things);
}

Canvas WithRoom(const Texture &piece) {
    const SIZE size = SizeOf(piece);
    Canvas canvas = MakeCanvas(size.cx + 2 * kRoom, size.cy + 2 * kRoom);
    DrawAt(canvas, kRoom, kRoom, piece);
    return canvas;
}

void Tint(const Canvas &layer, DWORD colour) {
    const RECT whole = Box(0, 0, 32767, 32767);
    Check(FillSolidRectEx(layer, colour, &whole, LACQUER_DRAW_MODULATE << 24), "FillSolidRectEx");
}

/// The halo of a piece, once for each pass, in a colour.
Canvas Glow(const Texture &piece, int passes, DWORD colour) {
    Canvas layer = WithRoom(piece);
    {
        const Texture pixels = Need(layer.AsTexture(), "GetTexture");
        for (int i = 0; i < passes; ++i) Check(LightTexture(pixels), "LightTexture");
    }
    Tint(layer, colour);
    return layer;
}

/// A piece's silhouette, blurred.
Canvas ShadowOfPiece(const Texture &piece, int passes) {
    Canvas layer = WithRoom(piece);
    Tint(layer, 0xFF000000);
    SIZE size{};
    Check(GetCanvasSize(layer, &size), "GetCanvasSize");
    const Canvas scratch = MakeCanvas(size.cx, size.cy);
    for (int i = 0; i < passes; ++i) Check(GaussianBlurCanvas(layer, nullptr, scratch, nullptr), "GaussianBlurCanvas");
    return layer;
}

/// Blurs what lies under a pane, and lays the pane's tint and edge on it.
void DrawFrostedGlass(const Canvas &canvas, const RECT &pane, int passes) {
    const Canvas scratch = MakeCanvas(pane.right - pane.left, pane.bottom - pane.top);
    for (int i = 0; i < passes; ++i) Check(GaussianBlurCanvas(canvas, &pane, scratch, nullptr), "GaussianBlurCanvas");
    // Each blur rounds down, alpha too: what was opaque has to become so again.
    Check(FillSolidRectEx(canvas, 0xFF000000, &pane, LACQUER_DRAW_OR << 24), "FillSolidRectEx");
    FillBox(canvas, pane, 0x48FFFFFF);
    FillBox(canvas, {pane.left, pane.top, pane.right, pane.top + 1}, 0xA0FFFFFF);
    OutlineBox(canvas, {pane.left - 1, pane.top - 1, pane.right + 1, pane.bottom + 1}, 0x60000000);
}

}  // namespace

Canvas PaintGlow(const Skin &skin) {
    Canvas canvas = MakePage(skin, 776, 616, "Glow", "Halos, shadows of any shape, and frosted glass");
    FillBox(canvas, Box(20, 66, 736, 132), 0xFF14161C);
    constexpr std::array<DWORD, 6> colours{0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFB040, 0xFF40C0FF, 0xFFFF4060};
    constexpr std::array<int, 6> passes{1, 2, 3, 3, 3, 3};
    for (std::size_t i = 0; i < passes.size(); ++i) {
        const int x = 32 + static_cast<int>(i) * 122;
        const Texture sprite = i % 2 == 0 ? CopyOf(skin.ladybird32) : CopyOf(skin.knob);
        DrawLayer(canvas, x, 76, Glow(sprite, passes[i], colours[i]));
        DrawAt(canvas, x + kRoom, 76 + kRoom, sprite);
        skin.font.DrawCentred(canvas, x + kRoom + 32, 180, Counted(passes[i], "pass", "passes"), kFaintInk);
    }

    FillGradient(canvas, Box(20, 212, 736, 132), 0xFFF6F2E8, 0xFFD8D2C2);
    for (int i = 0; i < 6; ++i) {
        const int x = 32 + i * 122;
        const Texture sprite = i % 2 == 0 ? CopyOf(skin.ladybird32) : CopyOf(skin.icon);
        const int away = 2 + i * 2;
        DrawLayer(canvas, x + away, 222 + away, ShadowOfPiece(sprite, i), 170);
        DrawAt(canvas, x + kRoom, 222 + kRoom, sprite);
        skin.font.DrawCentred(canvas, x + kRoom + 32, 326, Counted(i, "blur", "blurs"), 0xFF5A5648);
    }

    const RECT picture = Box(20, 358, 736, 238);
    DrawInto(canvas, picture, skin.photo, LACQUER_BICUBIC);
    for (int i = 0; i < 9; ++i) DrawAt(canvas, 36 + i * 80, 440, i % 2 == 0 ? skin.ladybird32 : skin.knob);
    for (int i = 0; i < 4; ++i) {
        const RECT pane = Box(44 + i * 178, 382, 154, 190);
        DrawFrostedGlass(canvas, pane, 1 << i);
        skin.font.DrawCentred(canvas, (pane.left + pane.right) / 2, pane.top + 14, Counted(1 << i, "blur", "blurs"),
                              0xFF201828);
    }
    return canvas;
}

}  // namespace lacquer::examples
