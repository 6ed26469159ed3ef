// alpha.png: each draw mode with a constant alpha that falls from left to right. It turns copy, over and colour key
// into one rule, so that the key's pixels show as well; modulate and behind ignore it.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

Canvas PaintAlpha(const Skin &skin) {
    struct Row {
        DWORD mode;
        std::string_view name;
        const Texture &piece;
    };
    const std::array<Row, 5> rows{{{LACQUER_DRAW_COPY, "copy", skin.wood},
                                   {LACQUER_DRAW_OVER, "over", skin.icon},
                                   {LACQUER_DRAW_COLOR_KEY, "colour key", skin.ladybird24},
                                   {LACQUER_DRAW_MODULATE, "modulate", skin.vignette},
                                   {LACQUER_DRAW_BEHIND, "behind", skin.knob}}};
    constexpr std::array<BYTE, 6> alphas{255, 254, 192, 128, 64, 0};
    constexpr int cellWidth = 90;
    constexpr int cellHeight = 76;

    Canvas canvas =
        MakePage(skin, 712, 518, "Constant alpha", "The strength of a whole draw, which modulate and behind ignore");
    for (std::size_t line = 0; line < rows.size(); ++line) {
        const Row &row = rows[line];
        const int y = 86 + static_cast<int>(line) * (cellHeight + 8);
        const Texture piece = CopyOf(row.piece);
        SetDrawMode(piece, row.mode, row.mode == LACQUER_DRAW_COLOR_KEY ? kKeyColour : 0);
        skin.font.Draw(canvas, 20, y + cellHeight / 2 - 4, row.name, kInk);
        for (std::size_t column = 0; column < alphas.size(); ++column) {
            const int x = 92 + static_cast<int>(column) * (cellWidth + 10);
            if (line == 0) skin.font.DrawCentred(canvas, x + cellWidth / 2, 68, std::to_string(alphas[column]), kInk);
            DrawSpecimen(canvas, Box(x, y, cellWidth, cellHeight), piece, alphas[column]);
        }
    }
    return canvas;
}

}  // namespace lacquer::examples
