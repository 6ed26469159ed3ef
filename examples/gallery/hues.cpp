// hues.png: one skin, its hue, saturation and lightness shifted. The shift counts on straight colours, so the pieces
// are shifted first and premultiplied afterwards.
#include <array>
#include <cstdio>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

struct Shift {
    float hue, saturation, lightness;
};

/// The texture, or its current slice, with its colours shifted.
Texture Shifted(const Texture &texture, const Shift &shift) {
    RECT part{};
    Check(GetTextureCurSlice(texture, &part), "GetTextureCurSlice");
    Texture result = Straightened(texture, &part);
    Check(ColorizeTexture(result, shift.hue, shift.saturation, shift.lightness), "ColorizeTexture");
    Check(NormalizeTexture(result), "NormalizeTexture");
    return result;
}

}  // namespace

Canvas PaintHues(const Skin &skin) {
    struct Row {
        std::string_view name;
        Shift unit;  // what a delta of 1 means
    };
    constexpr std::array<Row, 3> rows{{{"hue", {1, 0, 0}}, {"saturation", {0, 1, 0}}, {"lightness", {0, 0, 1}}}};
    constexpr std::array<float, 7> deltas{-0.9f, -0.6f, -0.3f, 0, 0.3f, 0.6f, 0.9f};

    Canvas canvas = MakePage(skin, 876, 496, "Hues", "A skin with its hue, saturation and lightness shifted");
    SetTextureCurSlice(skin.button, static_cast<int>(ButtonState::kNormal));
    SetTextureCurSlice(skin.caption, 4);
    for (std::size_t line = 0; line < rows.size(); ++line) {
        const int y = 84 + static_cast<int>(line) * 136;
        FillBox(canvas, Box(92, y, 764, 128), 0xFFF1EEE8);
        skin.font.Draw(canvas, 20, y + 60, rows[line].name, kInk);
        for (std::size_t column = 0; column < deltas.size(); ++column) {
            const int x = 96 + static_cast<int>(column) * 108;
            const float delta = deltas[column];
            std::array<char, 8> label{};
            std::snprintf(label.data(), label.size(), "%+.1f", static_cast<double>(delta));
            if (line == 0) skin.font.DrawCentred(canvas, x + 52, 68, label.data(), kInk);
            const Shift &unit = rows[line].unit;
            const Shift shift{unit.hue * delta, unit.saturation * delta, unit.lightness * delta};
            DrawAt(canvas, x, y + 6, Shifted(skin.button, shift));
            skin.font.DrawCentred(canvas, x + 52, y + 23, "Apply", 0xFFFFFFFF);
            DrawAt(canvas, x + 6, y + 54, Shifted(skin.icon, shift));
            DrawInto(canvas, Box(x + 66, y + 56, 34, 34), Shifted(skin.card, shift));
            DrawAt(canvas, x + 69, y + 98, Shifted(skin.caption, shift));
        }
    }
    return canvas;
}

}  // namespace lacquer::examples
