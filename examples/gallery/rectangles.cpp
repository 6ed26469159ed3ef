// rectangles.png: rectangles with fractions of a pixel, round corners and borders, in every mode, and focus rings.
#include <array>
#include <functional>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

constexpr int kCell = 120;  // of a row, pixels
constexpr int kCellsInRow = 8;
constexpr std::uint32_t kFill = 0xFF3C6EA8, kBorder = 0xFFF5B84B;

struct Cell {
    std::string_view name;
    std::function<void(const Canvas &canvas, float x, float y)> draw;  // into 96 x 56 pixels
};

/// A row of specimens with a line of explanation above it.
void DrawRow(const Canvas &canvas, const Skin &skin, int top, std::string_view title,
             const std::array<Cell, kCellsInRow> &cells) {
    skin.font.Draw(canvas, 20, top, title, kInk);
    for (int i = 0; i < kCellsInRow; ++i) {
        const Cell &cell = cells[static_cast<std::size_t>(i)];
        const int left = 20 + i * kCell;
        cell.draw(canvas, static_cast<float>(left + 6), static_cast<float>(top + 18));
        skin.font.DrawCentred(canvas, left + 54, top + 82, cell.name, kFaintInk);
    }
}

void DrawStyled(const Canvas &canvas, const GeoRect &rect, const GeoStyle &style, DWORD mode = LACQUER_DRAW_OVER) {
    Check(GeoRoundRectEx(canvas, &rect, &style, mode << 24), "GeoRoundRectEx");
}

Cell WithRadii(std::string_view name, std::array<float, 4> radii, float border = 0) {
    return {name, [=](const Canvas &canvas, float x, float y) {
                DrawStyled(canvas, {x, y, x + 96, y + 56},
                           {kBorder, kFill, border, {radii[0], radii[1], radii[2], radii[3]}});
            }};
}

Cell WithBorder(std::string_view name, float width, std::uint32_t border, std::uint32_t fill) {
    return {name, [=](const Canvas &canvas, float x, float y) {
                DrawStyled(canvas, {x, y, x + 96, y + 56}, {border, fill, width, {12, 12, 12, 12}});
            }};
}

/// Bars that grow and move by fractions of a pixel.
Cell WithBars(std::string_view name, float width, float step) {
    return {name, [=](const Canvas &canvas, float x, float y) {
                for (int i = 0; i < 8; ++i) {
                    const float left = x + static_cast<float>(i) * (12 + step), top = y + static_cast<float>(i) * step;
                    const GeoRect rect{left, top, left + width + static_cast<float>(i) * step, top + 44};
                    const GeoStyle style{0, kInk, 0, {}};
                    Check(GeoRectangleEx(canvas, &rect, &style, LACQUER_DRAW_OVER << 24), "GeoRectangleEx");
                }
            }};
}

Cell WithMode(std::string_view name, DWORD mode) {
    return {name, [=](const Canvas &canvas, float x, float y) {
                const RECT place = Box(static_cast<int>(x), static_cast<int>(y), 96, 56);
                DrawSpecimen(canvas, place, [mode](const Canvas &layer) {
                    DrawStyled(layer, {8, 8, 88, 48}, {0xC0E5484D, 0x8063C7A0, 5, {14, 14, 14, 14}}, mode);
                    CutToAlpha(layer);
                });
            }};
}

Cell WithRing(std::string_view name, float width, float radius, float dash, float gap, std::uint32_t colour = kInk) {
    return {name, [=](const Canvas &canvas, float x, float y) {
                const RECT button = Box(static_cast<int>(x) + 5, static_cast<int>(y) + 12, 86, 32);
                Check(GeoRoundRect(canvas, &button, 0xFF6A7288, 0xFF454C5E, 1, static_cast<int>(radius)),
                      "GeoRoundRect");
                const GeoRect ring{x + 1, y + 8, x + 95, y + 48};
                Check(GeoRectFocusEx(canvas, &ring, colour, width, radius == 0 ? 0 : radius + 4, dash, gap),
                      "GeoRectFocusEx");
            }};
}

}  // namespace

Canvas PaintRectangles(const Skin &skin) {
    Canvas canvas = MakePage(skin, 1000, 588, "Rectangles",
                             "Edges at any 1/256 of a pixel, a radius for each corner, borders, modes and focus rings");
    DrawRow(canvas, skin, 68, "Radii",
            {{WithRadii("0", {}), WithRadii("2", {2, 2, 2, 2}), WithRadii("6", {6, 6, 6, 6}),
              WithRadii("14", {14, 14, 14, 14}), WithRadii("as large as fits", {999, 999, 999, 999}),
              WithRadii("20, 0, 20, 0", {20, 0, 20, 0}), WithRadii("40, 16, 8, 0", {40, 16, 8, 0}, 2),
              WithRadii("56, 0, 0, 0", {56, 0, 0, 0}, 6)}});
    DrawRow(canvas, skin, 172, "Borders",
            {{WithBorder("0.5", 0.5f, kBorder, kFill), WithBorder("1", 1, kBorder, kFill),
              WithBorder("3", 3, kBorder, kFill), WithBorder("16", 16, kBorder, kFill),
              WithBorder("100: all border", 100, kBorder, kFill), WithBorder("no fill", 3, kBorder, 0),
              WithBorder("border unpainted", 6, 0, kFill), WithBorder("both translucent", 8, 0x90E5484D, 0x603C6EA8)}});
    DrawRow(canvas, skin, 276, "Fractions of a pixel",
            {{WithBars("1 wide, by 0", 1, 0), WithBars("1 wide, by 1/8", 1, 0.125f),
              WithBars("0.1 wide, by 1/8", 0.1f, 0.125f), WithBars("2 wide, by 1/4", 2, 0.25f),
              WithBars("3 wide, by 0", 3, 0), WithBars("3.5 wide, by 0", 3.5f, 0),
              WithBars("4 wide, by 1/8", 4, 0.125f), WithBars("5 wide, by 1/16", 5, 0.0625f)}});
    DrawRow(canvas, skin, 380, "Modes, over three grounds",
            {{WithMode("copy", LACQUER_DRAW_COPY), WithMode("over", LACQUER_DRAW_OVER),
              WithMode("colour key", LACQUER_DRAW_COLOR_KEY), WithMode("modulate", LACQUER_DRAW_MODULATE),
              WithMode("or", LACQUER_DRAW_OR), WithMode("grey tint", LACQUER_DRAW_GREY_TINT),
              WithMode("behind", LACQUER_DRAW_BEHIND), WithMode("8: as over", 8)}});
    DrawRow(canvas, skin, 484, "Focus rings: width, radius, dash and gap",
            {{WithRing("1, 0, 1 and 1", 1, 0, 1, 1), WithRing("1, 4, 1 and 1", 1, 4, 1, 1),
              WithRing("2, 4, 3 and 2", 2, 4, 3, 2), WithRing("2, 8, 6 and 4", 2, 8, 6, 4, kGold),
              WithRing("3, 16, 3 and 3", 3, 16, 3, 3, kBlue), WithRing("2, 16, 16 and 3", 2, 16, 16, 3, kGreen),
              WithRing("2.5, 0, 8 and 3", 2.5f, 0, 8, 3, kRed), WithRing("2, 6, no gap", 2, 6, 1, 0, kBlue)}});
    return canvas;
}

}  // namespace lacquer::examples
