// sources.png: the skin pieces as their files store them, from palettes and greys to four channels. Each became a
// texture of the nearest depth; draws accept all of them.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

std::string Describe(const Texture &texture) {
    BYTE bits = 0;
    Check(GetTextureBitsPixel(texture.get(), &bits), "GetTextureBitsPixel");
    const SIZE size = SizeOf(texture);
    return std::to_string(size.cx) + " x " + std::to_string(size.cy) + ", " + std::to_string(bits) + " bit";
}

}  // namespace

Canvas PaintSources(const Skin &skin) {
    struct Piece {
        const Texture &texture;
        std::string_view name;
        int left, top;
    };
    const std::array<Piece, 9> pieces{{{skin.button, "button", 20, 88},
                                       {skin.photo, "photo", 156, 88},
                                       {skin.frame, "frame", 380, 88},
                                       {skin.check, "check", 500, 88},
                                       {skin.wood, "wood", 156, 256},
                                       {skin.vignette, "vignette", 258, 256},
                                       {skin.knob, "knob", 360, 256},
                                       {skin.icon, "icon", 462, 256},
                                       {skin.ladybird32, "ladybird", 500, 162}}};

    Canvas canvas = MakePage(skin, 604, 356, "Sources",
                             "Palette, grey, colour and four-channel files became textures of 8, 24 and 32 bits");
    for (const Piece &piece : pieces) {
        const Texture whole = CopyOf(piece.texture);
        const SIZE size = SizeOf(whole);
        skin.font.Draw(canvas, piece.left, piece.top - 14, piece.name, kInk);
        skin.font.Draw(canvas, piece.left, piece.top + size.cy + 6, Describe(whole), kFaintInk);
        FillChecker(canvas, Box(piece.left, piece.top, size.cx, size.cy), 8);
        DrawAt(canvas, piece.left, piece.top, whole);
    }
    return canvas;
}

}  // namespace lacquer::examples
