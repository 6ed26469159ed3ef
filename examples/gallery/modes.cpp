// modes.png: every draw mode at every source depth, at the source's own size. The layer under each piece is opaque,
// half covered and clear from left to right; the finished layer lies over a checkerboard.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

Canvas PaintModes(const Skin &skin) {
    struct Mode {
        DWORD mode;
        std::string_view name, rule;
    };
    struct Depth {
        std::string_view name;
        const Texture &piece, &sprite;
    };
    constexpr std::array<Mode, 5> modes{{{LACQUER_DRAW_COPY, "copy", "d = s"},
                                         {LACQUER_DRAW_OVER, "over", "s + d*(256-sA)/256"},
                                         {LACQUER_DRAW_COLOR_KEY, "colour key", "d = s unless key"},
                                         {LACQUER_DRAW_MODULATE, "modulate", "d*(s+1)/256"},
                                         {LACQUER_DRAW_BEHIND, "behind", "d + s*(256-dA)/256"}}};
    const std::array<Depth, 3> depths{{{"32 bit", skin.icon, skin.ladybird32},
                                       {"24 bit", skin.wood, skin.ladybird24},
                                       {"8 bit", skin.knob, skin.ladybird8}}};
    constexpr int cellWidth = 108;
    constexpr int cellHeight = 84;

    Canvas canvas =
        MakePage(skin, 696, 392, "Draw modes", "Each over an opaque, a half covered and a clear third of a layer");
    for (std::size_t column = 0; column < modes.size(); ++column) {
        const Mode &mode = modes[column];
        const int x = 76 + static_cast<int>(column) * (cellWidth + 12);
        skin.font.DrawCentred(canvas, x + cellWidth / 2, 66, mode.name, kInk);
        skin.font.DrawCentred(canvas, x + cellWidth / 2, 80, mode.rule, kFaintInk);
        for (std::size_t row = 0; row < depths.size(); ++row) {
            const Depth &depth = depths[row];
            const int y = 98 + static_cast<int>(row) * (cellHeight + 10);
            const bool keyed = mode.mode == LACQUER_DRAW_COLOR_KEY;
            const Texture piece = CopyOf(keyed ? depth.sprite : depth.piece);
            SetDrawMode(piece, mode.mode, keyed ? kKeyColour : 0);
            DrawSpecimen(canvas, Box(x, y, cellWidth, cellHeight), piece);
            if (column == 0) skin.font.Draw(canvas, 20, y + cellHeight / 2 - 4, depth.name, kInk);
        }
    }
    return canvas;
}

}  // namespace lacquer::examples
