// operators.png: every blend mode of vector drawing. On a clear layer a disc is drawn over, then a square in the mode;
// the finished layer lies over a checkerboard.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

constexpr int kWidth = 120;
constexpr int kHeight = 92;

constexpr std::array<std::string_view, 23> kModes{
    "source over", "source",          "clear",       "destination over", "source in", "destination in",
    "source out",  "destination out", "source atop", "destination atop", "xor",       "plus",
    "multiply",    "screen",          "overlay",     "darken",           "lighten",   "colour dodge",
    "colour burn", "hard light",      "soft light",  "difference",       "exclusion"};

void DrawDisc(const Canvas &layer) {
    FillWith(layer, MakeLinearGradient({16, 10}, {70, 78}, {{0, 0xFFFFE08A}, {0.5f, 0xFFF0803C}, {1, 0xC0A01840}}));
    Check(DrawCircle(layer, 47, 44, 35), "DrawCircle");
}

void DrawSquare(const Canvas &layer) {
    FillWith(layer, MakeLinearGradient({44, 0}, {110, 0}, {{0, 0xFF1E3C8C}, {0.6f, 0xFF3C9CDC}, {1, 0x803CDCC8}}));
    Check(DrawRoundRect(layer, 44, 24, 66, 58, 10, 10), "DrawRoundRect");
}

void DrawCell(const Canvas &canvas, int left, int top, DWORD mode, DWORD opacity) {
    const Canvas layer = MakeCanvas(kWidth, kHeight);
    DrawDisc(layer);
    Check(SetBlendMode(layer, mode), "SetBlendMode");
    Check(SetBlendValue(layer, opacity), "SetBlendValue");
    DrawSquare(layer);
    FillChecker(canvas, Box(left, top, kWidth, kHeight), 6);
    DrawLayer(canvas, left, top, layer);
}

}  // namespace

Canvas PaintOperators(const Skin &skin) {
    Canvas canvas = MakePage(skin, 814, 546, "Operators",
                             "A blue square drawn onto a warm disc on clear ground, in every blend mode");
    for (std::size_t i = 0; i <= kModes.size(); ++i) {
        const int left = 20 + static_cast<int>(i % 6) * (kWidth + 11);
        const int top = 82 + static_cast<int>(i / 6) * (kHeight + 26);
        if (i < kModes.size()) {
            skin.font.Draw(canvas, left, top - 13, kModes[i], kInk);
            DrawCell(canvas, left, top, static_cast<DWORD>(i), 255);
        } else {
            skin.font.Draw(canvas, left, top - 13, "over, at 96 of 255", kInk);
            DrawCell(canvas, left, top, VEL_BLEND_SOURCE_OVER, 96);
        }
    }
    return canvas;
}

}  // namespace lacquer::examples
