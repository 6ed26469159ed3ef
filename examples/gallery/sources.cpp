// sources.png: the skin pieces as their files store them, from palettes and greys to four channels. Each became a
// texture of the nearest depth; draws accept all of them.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

std::string Describe(const Texture &texture) {
    BYTE bits = 0;
    Check(GetTextureBitsPixel(texture, &bits), "GetTextureBitsPixel");
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
    const std::array<Piece, 18> pieces{{{skin.button, "button", 20, 88},
                                        {skin.photo, "photo", 148, 88},
                                        {skin.splash, "splash", 364, 88},
                                        {skin.card, "card", 652, 88},
                                        {skin.knob, "knob", 652, 200},
                                        {skin.icon, "icon", 148, 248},
                                        {skin.ladybird32, "ladybird", 240, 248},
                                        {skin.wood, "wood", 332, 302},
                                        {skin.vignette, "vignette", 424, 302},
                                        {skin.shadow, "shadow", 516, 302},
                                        {skin.frame, "frame", 608, 302},
                                        {skin.waves, "waves", 148, 352},
                                        {skin.check, "check", 240, 352},
                                        {skin.caption, "caption", 20, 304},
                                        {skin.progress, "progress", 332, 412},
                                        {skin.scroll, "scroll", 424, 412},
                                        {skin.field, "field", 516, 412},
                                        {skin.popup, "popup", 20, 384}}};

    Canvas canvas = MakePage(skin, 776, 486, "Sources",
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
