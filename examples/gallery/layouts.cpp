// layouts.png: the six layouts of a texture, each in three rectangles and once more at half strength.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

Canvas PaintLayouts(const Skin &skin) {
    struct Row {
        DWORD layout;
        std::string_view name, detail;
        const Texture &piece;
        RECT margins;
    };
    const std::array<Row, 6> rows{
        {{LACQUER_LAYOUT_STRETCH, "stretch", "the whole rectangle", skin.photo, {}},
         {LACQUER_LAYOUT_CENTER, "centre", "with its aspect", skin.photo, {}},
         {LACQUER_LAYOUT_NINE_GRID, "nine-grid", "corners at their size", skin.card, {24, 24, 24, 24}},
         {LACQUER_LAYOUT_HOLLOW_NINE_GRID, "hollow nine-grid", "one colour inside", skin.card, {24, 24, 24, 24}},
         {LACQUER_LAYOUT_TILE, "tile", "from the top left", skin.wood, {}},
         {LACQUER_LAYOUT_TOP_TILE, "top-tile", "tiled at the top", skin.waves, {0, 24, 0, 16}}}};
    constexpr std::array<SIZE, 3> sizes{{{84, 84}, {148, 84}, {270, 84}}};

    Canvas canvas = MakePage(skin, 788, 696, "Layouts", "How a texture fills a rectangle, by its mode record");
    int y = 86;
    for (const Row &row : rows) {
        const Texture piece = CopyOf(row.piece);
        SetLayout(piece, row.layout, row.margins);
        skin.font.Draw(canvas, 20, y + 30, row.name, kInk);
        skin.font.Draw(canvas, 20, y + 44, row.detail, kFaintInk);
        int x = 138;
        for (std::size_t i = 0; i < sizes.size() + 1; ++i) {
            const bool isFaint = i == sizes.size();
            const SIZE size = isFaint ? sizes[0] : sizes[i];
            const RECT dest = Box(x, y, size.cx, size.cy);
            FillChecker(canvas, dest, 6);
            DrawInto(canvas, dest, piece, LACQUER_BILINEAR, isFaint ? 128 : 255);
            if (y == 86 && isFaint) skin.font.DrawCentred(canvas, x + 42, 68, "alpha 128", kInk);
            x += size.cx + 14;
        }
        y += 100;
    }
    return canvas;
}

}  // namespace lacquer::examples
