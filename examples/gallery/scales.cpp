// scales.png: one skin at five sizes of the screen's pixels. A nine-grid keeps its corners, or scales them, or halves
// them first, as for art that was made at twice the size.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

Canvas PaintScales(const Skin &skin) {
    struct Row {
        std::string_view name, detail;
        DWORD scaleFlags;
        bool halfScale;
    };
    constexpr DWORD all = LACQUER_SCALE_LEFT | LACQUER_SCALE_TOP | LACQUER_SCALE_RIGHT | LACQUER_SCALE_BOTTOM;
    constexpr std::array<Row, 5> rows{
        {{"plain", "corners 24", 0, false},
         {"scale", "corners 24 * scale", all, false},
         {"half scale", "corners 12", 0, true},
         {"both", "corners 12 * scale", all, true},
         {"left and top", "the others 12", LACQUER_SCALE_LEFT | LACQUER_SCALE_TOP, true}}};
    constexpr std::array<int, 5> percents{100, 125, 150, 175, 200};
    constexpr SIZE size{84, 60};

    Canvas canvas = MakePage(skin, 856, 760, "Scales", "A nine-grid with margins of 24 pixels, at 100 to 200 percent");
    const SIZE source = SizeOf(skin.card);
    skin.font.Draw(canvas, 20, 66, "the texture", kFaintInk);
    DrawAt(canvas, 20, 78, CopyOf(skin.card));
    int y = 90;
    for (const Row &row : rows) {
        const int bottom = y + size.cy * 2;
        const int top = y == 90 ? y + source.cy : y;
        skin.font.Draw(canvas, 20, top + (bottom - top) / 2 - 8, row.name, kInk);
        skin.font.Draw(canvas, 20, top + (bottom - top) / 2 + 6, row.detail, kFaintInk);
        int x = 130;
        for (const int percent : percents) {
            const int width = size.cx * percent / 100;
            const int height = size.cy * percent / 100;
            if (y == 90) skin.font.DrawCentred(canvas, x + width / 2, 70, std::to_string(percent) + " %", kInk);
            const RECT dest = Box(x, bottom - height, width, height);
            const RECT margins{24, 24, 24, 24};
            Check(DrawTexture9Grid(canvas, &dest, skin.card, nullptr, &margins, LACQUER_BILINEAR, 0, 255,
                                   row.scaleFlags, static_cast<float>(percent) / 100, row.halfScale),
                  "DrawTexture9Grid");
            x += width + 14;
        }
        y = bottom + 14;
    }
    return canvas;
}

}  // namespace lacquer::examples
