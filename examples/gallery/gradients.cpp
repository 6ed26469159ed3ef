// gradients.png: colours along a line and outwards from a point, filled and stroked, and gradient rectangles.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

constexpr int kWidth = 178;
constexpr int kHeight = 132;
constexpr int kMiddle = kWidth / 2;

/// What a cell shows, in the coordinates of the cell: the canvas's origin is at its corner.
struct Cell {
    std::string_view name;
    void (*draw)(const Canvas &canvas);
};

void FillCell(const Canvas &canvas, const Gradient &gradient) {
    FillWith(canvas, gradient);
    Check(DrawRectangle(canvas, 12, 30, kWidth - 24, kHeight - 42), "DrawRectangle");
}

void DrawGradual(const Canvas &canvas, int direction) {
    const RECT rect = Box(12, 30, kWidth - 24, kHeight - 42);
    Check(FillGradualRect(canvas, 0xFF2B6CB0, 0x10FFD27A, &rect, direction), "FillGradualRect");
}

constexpr std::array<Cell, 12> kCells{{
    {"linear",
     [](const Canvas &canvas) {
         FillCell(canvas, MakeLinearGradient({12, 0}, {kWidth - 12, 0}, {{0, 0xFFE5484D}, {1, 0xFFF5B84B}}));
     }},
    {"slanting, colours go on",
     [](const Canvas &canvas) {
         FillCell(canvas, MakeLinearGradient({60, 60}, {118, 100}, {{0, 0xFF1F4E8C}, {1, 0xFF8FE3CF}}));
     }},
    {"many stops",
     [](const Canvas &canvas) {
         FillCell(canvas, MakeLinearGradient({12, 0}, {kWidth - 12, 0},
                                             {{0, 0xFFE5484D},
                                              {0.2f, 0xFFF5B84B},
                                              {0.4f, 0xFFE8E26A},
                                              {0.6f, 0xFF63C7A0},
                                              {0.8f, 0xFF5AA9E6},
                                              {1, 0xFF9B6BD3}}));
     }},
    {"sharp edges",
     [](const Canvas &canvas) {
         FillCell(canvas, MakeLinearGradient({12, 30}, {100, 118},
                                             {{0, 0xFFF3EFE4},
                                              {0.35f, 0xFFF3EFE4},
                                              {0.35f, 0xFFE5484D},
                                              {0.65f, 0xFFB3202A},
                                              {0.65f, 0xFF2B6CB0},
                                              {1, 0xFF2B6CB0}}));
     }},
    {"radial",
     [](const Canvas &canvas) {
         FillCell(canvas,
                  MakeRadialGradient({kMiddle, 75}, 76, {{0, 0xFFFFF3D6}, {0.5f, 0xFFF5B84B}, {1, 0xFF7A2F1D}}));
     }},
    {"rings",
     [](const Canvas &canvas) {
         FillCell(canvas, MakeRadialGradient({kMiddle, 75}, 60,
                                             {{0, 0xFFF5B84B},
                                              {0.3f, 0xFFF5B84B},
                                              {0.3f, 0xFFF3EFE4},
                                              {0.55f, 0xFFF3EFE4},
                                              {0.55f, 0xFFE5484D},
                                              {0.8f, 0xFFE5484D},
                                              {0.8f, 0xFF5A0A14}}));
     }},
    {"fading out",
     [](const Canvas &canvas) {
         FillChecker(canvas, Box(12, 30, kWidth - 24, kHeight - 42), 6);
         FillCell(canvas, MakeLinearGradient({12, 0}, {kWidth - 12, 0}, {{0, 0xFF2B6CB0}, {1, 0x002B6CB0}}));
     }},
    {"a glow",
     [](const Canvas &canvas) {
         FillBox(canvas, Box(12, 30, kWidth - 24, kHeight - 42), 0xFF14161D);
         FillCell(canvas,
                  MakeRadialGradient({kMiddle, 75}, 46, {{0, 0xFFFFFFFF}, {0.25f, 0xD0FFD27A}, {1, 0x00E5484D}}));
     }},
    {"a ball, its shine and shadow",
     [](const Canvas &canvas) {
         FillWith(canvas, MakeRadialGradient({kMiddle, 122}, 44, {{0, 0xA0000000}, {1, 0x00000000}}));
         Check(DrawEllipse(canvas, kMiddle, 116, 44, 8), "DrawEllipse");
         FillWith(canvas,
                  MakeRadialGradient({kMiddle - 12, 56}, 62, {{0, 0xFFFF9A8A}, {0.45f, 0xFFE5484D}, {1, 0xFF5A0A14}}));
         Check(DrawCircle(canvas, kMiddle, 73, 42), "DrawCircle");
         FillWith(canvas, MakeLinearGradient({0, 34}, {0, 66}, {{0, 0xC0FFFFFF}, {1, 0x00FFFFFF}}));
         Check(DrawEllipse(canvas, kMiddle - 4, 50, 26, 15), "DrawEllipse");
     }},
    {"stroked",
     [](const Canvas &canvas) {
         StrokeWith(
             canvas,
             MakeLinearGradient({20, 30}, {kWidth - 20, 120}, {{0, 0xFF5AA9E6}, {0.5f, 0xFF9B6BD3}, {1, 0xFFE5484D}}),
             9);
         Check(SetStrokeCap(canvas, VEL_CAP_ROUND), "SetStrokeCap");
         Check(DrawBezier(canvas, 20, 104, 60, -30, 118, 190, kWidth - 20, 44), "DrawBezier");
         StrokeWith(canvas, MakeRadialGradient({kMiddle, 75}, 74, {{0.3f, 0xFFF5B84B}, {1, 0x20F5B84B}}), 3);
         for (float radius = 14; radius < 42; radius += 9) Check(DrawCircle(canvas, kMiddle, 75, radius), "DrawCircle");
     }},
    {"FillGradualRect, down",
     [](const Canvas &canvas) {
         FillChecker(canvas, Box(12, 30, kWidth - 24, kHeight - 42), 6);
         DrawGradual(canvas, 1);
     }},
    {"FillGradualRect, across",
     [](const Canvas &canvas) {
         FillChecker(canvas, Box(12, 30, kWidth - 24, kHeight - 42), 6);
         DrawGradual(canvas, 2);
     }},
}};

}  // namespace

Canvas PaintGradients(const Skin &skin) {
    Canvas canvas = MakePage(skin, 780, 504, "Gradients", "Linear and radial, in straight colours with stops");
    for (std::size_t i = 0; i < kCells.size(); ++i) {
        const Cell &cell = kCells[i];
        const int left = 20 + static_cast<int>(i % 4) * (kWidth + 9);
        const int top = 68 + static_cast<int>(i / 4) * (kHeight + 10);
        DrawPanel(canvas, Box(left, top, kWidth, kHeight));
        skin.font.Draw(canvas, left + 12, top + 11, cell.name, kInk);
        Canvas layer = MakeCanvas(kWidth, kHeight);
        cell.draw(layer);
        DrawLayer(canvas, left, top, layer);
    }
    return canvas;
}

}  // namespace lacquer::examples
