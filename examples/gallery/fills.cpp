// fills.png: every fill mode, with an opaque, a translucent and a premultiplied colour. The ground is opaque, half
// covered and clear from left to right.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

Canvas PaintFills(const Skin &skin) {
    struct Mode {
        DWORD mode;
        std::string_view name, rule;
    };
    constexpr std::array<Mode, 7> modes{{{LACQUER_DRAW_COPY, "copy", "d = c"},
                                         {LACQUER_DRAW_OVER, "over", "c + d*(256-cA)/256"},
                                         {LACQUER_DRAW_COLOR_KEY, "colour key", "as over"},
                                         {LACQUER_DRAW_MODULATE, "modulate", "d*(c+1)/256"},
                                         {LACQUER_DRAW_OR, "or", "bits of both"},
                                         {LACQUER_DRAW_GREY_TINT, "grey tint", "luma of d, by cA"},
                                         {LACQUER_DRAW_BEHIND, "behind", "d + c*(256-dA)/256"}}};
    struct Colour {
        std::string_view name, value;
        DWORD word;
        bool isPremultiplied;
    };
    constexpr std::array<Colour, 3> colours{{{"opaque", "FFC8501E", 0xFFC8501E, false},
                                             {"translucent", "80C8501E", 0x80C8501E, false},
                                             {"premultiplied", "80642880", 0x80642880, true}}};
    constexpr int width = 114;
    constexpr int height = 76;

    Canvas canvas =
        MakePage(skin, 1000, 354, "Fills", "Rectangles of one colour c in every mode, over three grounds d");
    for (std::size_t column = 0; column < modes.size(); ++column) {
        const Mode &mode = modes[column];
        const int x = 116 + static_cast<int>(column) * (width + 10);
        skin.font.DrawCentred(canvas, x + width / 2, 66, mode.name, kInk);
        skin.font.DrawCentred(canvas, x + width / 2, 80, mode.rule, kFaintInk);
        for (std::size_t row = 0; row < colours.size(); ++row) {
            const Colour &colour = colours[row];
            const int y = 98 + static_cast<int>(row) * (height + 8);
            const RECT fill = Box(12, 16, width - 24, height - 32);
            DrawSpecimen(canvas, Box(x, y, width, height), [&](const Canvas &layer) {
                const auto call = colour.isPremultiplied ? FillPreMulColorRectEx : FillSolidRectEx;
                Check(call(layer, colour.word, &fill, mode.mode << 24), "filling");
                CutToAlpha(layer);
            });
            if (column > 0) continue;
            skin.font.Draw(canvas, 20, y + height / 2 - 12, colour.name, kInk);
            skin.font.Draw(canvas, 20, y + height / 2 + 2, colour.value, kFaintInk);
        }
    }
    return canvas;
}

}  // namespace lacquer::examples
