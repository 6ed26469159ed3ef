// transforms.png: the seven codes of TransformTexture at each depth. The results keep their source's depth and palette.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

/// A picture with a clear reading direction, painted on a canvas and turned into a 32-bit texture.
Texture MakeBadge(const Skin &skin) {
    Canvas canvas = MakeCanvas(72, 48);
    FillGradient(canvas, Box(0, 0, 72, 48), 0xFFE8604C, 0xFF8E1A22);
    FillBox(canvas, Box(0, 0, 72, 14), 0x60FFFFFF);
    skin.font.Draw(canvas, 6, 18, "Lac", 0xFFFFFFFF, 3);
    OutlineBox(canvas, Box(0, 0, 72, 48), 0xFF4A0810);
    return Need(Texture::From(std::move(canvas)), "CanvasToTexture");
}

}  // namespace

Canvas PaintTransforms(const Skin &skin) {
    struct Code {
        DWORD code;
        std::string_view name;
    };
    constexpr std::array<Code, 7> codes{{{LACQUER_ROTATE_90, "90"},
                                         {LACQUER_ROTATE_180, "180"},
                                         {LACQUER_ROTATE_270, "270"},
                                         {LACQUER_FLIP_VERTICAL, "flip vertical"},
                                         {LACQUER_FLIP_HORIZONTAL, "flip horizontal"},
                                         {LACQUER_TRANSPOSE, "transpose"},
                                         {LACQUER_TRANSVERSE, "transverse"}}};
    constexpr int step = 88;
    const Texture badge = MakeBadge(skin);
    const RECT part = Box(84, 30, 72, 48);
    const Texture crop = CopyOf(skin.photo, &part);
    const std::array<const Texture *, 3> sources{&badge, &crop, &skin.knob};

    Canvas canvas =
        MakePage(skin, 744, 372, "Transforms", "Textures of 32, 24 and 8 bits per pixel, turned and mirrored");
    const auto centred = [&](int column, int row, const Texture &texture) {
        const SIZE size = SizeOf(texture);
        DrawAt(canvas, 20 + column * step + (step - size.cx) / 2, 90 + row * step + (step - size.cy) / 2, texture);
    };
    FillBox(canvas, Box(20, 62, step, 90 + 3 * step - 62 + 6), 0x18FFFFFF);
    skin.font.DrawCentred(canvas, 20 + step / 2, 70, "original", kInk);
    for (int row = 0; row < 3; ++row) {
        const Texture &source = *sources[static_cast<std::size_t>(row)];
        centred(0, row, source);
        for (int column = 1; column <= 7; ++column) {
            const Code &code = codes[static_cast<std::size_t>(column - 1)];
            if (row == 0) skin.font.DrawCentred(canvas, 20 + column * step + step / 2, 70, code.name, kInk);
            // The filter word is carried over, so the result is drawn in the mode of its source.
            centred(column, row, Need(source.Transformed(code.code), "TransformTexture"));
        }
    }
    return canvas;
}

}  // namespace lacquer::examples
