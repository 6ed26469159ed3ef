// dashes.png: the dash styles with each cap, patterns of one's own, and dashes along curves.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

struct Style {
    std::string_view name;
    DWORD style;
};

void DrawStyles(const Canvas &canvas, const Skin &skin, int left, int top) {
    constexpr std::array<Style, 5> styles{{{"solid", VEL_DASH_SOLID},
                                           {"dash", VEL_DASH_DASH},
                                           {"dot", VEL_DASH_DOT},
                                           {"dash dot", VEL_DASH_DASH_DOT},
                                           {"dash dot dot", VEL_DASH_DASH_DOT_DOT}}};
    struct Column {
        std::string_view name;
        DWORD cap;
        float width;
        std::uint32_t colour;
    };
    constexpr std::array<Column, 4> columns{{{"6 wide", VEL_CAP_BUTT, 6, kBlue},
                                             {"3 wide", VEL_CAP_BUTT, 3, kRed},
                                             {"round caps", VEL_CAP_ROUND, 6, kGold},
                                             {"square caps", VEL_CAP_SQUARE, 6, kGreen}}};
    DrawPanel(canvas, Box(left, top, 772, 162));
    const ScopedState keep(canvas);
    for (std::size_t row = 0; row < styles.size(); ++row) {
        const int y = top + 36 + static_cast<int>(row) * 26;
        skin.font.Draw(canvas, left + 12, y - 4, styles[row].name, kInk);
        Check(SetDashStyle(canvas, styles[row].style), "SetDashStyle");
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const Column &column = columns[i];
            const int x = left + 112 + static_cast<int>(i) * 165;
            if (row == 0) skin.font.Draw(canvas, x, top + 10, column.name, kFaintInk);
            Check(SetStrokeCap(canvas, column.cap), "SetStrokeCap");
            StrokeWith(canvas, column.colour, column.width);
            Check(DrawLine(canvas, static_cast<float>(x), static_cast<float>(y), static_cast<float>(x + 144),
                           static_cast<float>(y)),
                  "DrawLine");
        }
    }
}

void DrawPatterns(const Canvas &canvas, const Skin &skin, int left, int top) {
    struct Pattern {
        std::string_view name;
        std::array<float, 6> lengths;
        int count;
        float offset, width;
        DWORD cap;
    };
    constexpr std::array<Pattern, 6> patterns{{{"12 6", {12, 6}, 2, 0, 3, VEL_CAP_BUTT},
                                               {"12 6 from 9", {12, 6}, 2, 9, 3, VEL_CAP_BUTT},
                                               {"10, an odd count", {10}, 1, 0, 3, VEL_CAP_BUTT},
                                               {"24 4 4 4 4 4", {24, 4, 4, 4, 4, 4}, 6, 0, 4, VEL_CAP_BUTT},
                                               {"0 9, round caps", {0, 9}, 2, 0, 6, VEL_CAP_ROUND},
                                               {"2 3, 10 wide", {2, 3}, 2, 0, 10, VEL_CAP_BUTT}}};
    DrawPanel(canvas, Box(left, top, 380, 170));
    const ScopedState keep(canvas);
    skin.font.Draw(canvas, left + 12, top + 10, "patterns, pixels", kFaintInk);
    Check(SetDashStyle(canvas, VEL_DASH_PATTERN), "SetDashStyle");
    for (std::size_t row = 0; row < patterns.size(); ++row) {
        const Pattern &pattern = patterns[row];
        const int y = top + 36 + static_cast<int>(row) * 23;
        skin.font.Draw(canvas, left + 12, y - 4, pattern.name, kInk);
        Check(SetDashPattern(canvas, pattern.lengths.data(), pattern.count, pattern.offset), "SetDashPattern");
        Check(SetStrokeCap(canvas, pattern.cap), "SetStrokeCap");
        StrokeWith(canvas, kRed, pattern.width);
        Check(DrawLine(canvas, static_cast<float>(left + 140), static_cast<float>(y), static_cast<float>(left + 364),
                       static_cast<float>(y)),
              "DrawLine");
    }
}

/// Dashes that go round, and a selection frame of two colours whose dashes interlock.
void DrawCurves(const Canvas &canvas, const Skin &skin, int left, int top) {
    const auto x = static_cast<float>(left), y = static_cast<float>(top);
    DrawPanel(canvas, Box(left, top, 380, 170));
    const ScopedState keep(canvas);
    skin.font.Draw(canvas, left + 12, top + 10, "along curves and around shapes", kFaintInk);
    Check(SetStrokeCap(canvas, VEL_CAP_ROUND), "SetStrokeCap");
    constexpr std::array<float, 2> beads{0, 10.0531f};  // 20 on a circle of radius 32
    Check(SetDashStyle(canvas, VEL_DASH_PATTERN), "SetDashStyle");
    Check(SetDashPattern(canvas, beads.data(), 2, 0), "SetDashPattern");
    StrokeWith(canvas, kGold, 6);
    Check(DrawCircle(canvas, x + 60, y + 92, 32), "DrawCircle");
    Check(SetStrokeCap(canvas, VEL_CAP_BUTT), "SetStrokeCap");
    Check(SetDashStyle(canvas, VEL_DASH_DASH_DOT), "SetDashStyle");
    StrokeWith(canvas, kGreen, 4);
    Check(DrawBezier(canvas, x + 116, y + 140, x + 150, y - 40, x + 190, y + 240, x + 226, y + 46), "DrawBezier");
    FillWith(canvas, MakeLinearGradient({0, y + 46}, {0, y + 138}, {{0, 0xFFF3EFE4}, {1, 0xFFB9C7DC}}));
    Check(DrawRoundRect(canvas, x + 250, y + 46, 108, 92, 18, 18), "DrawRoundRect");
    Check(SetDashStyle(canvas, VEL_DASH_PATTERN), "SetDashStyle");
    constexpr std::array<float, 2> ants{6, 6};
    for (int i = 0; i < 2; ++i) {
        Check(SetDashPattern(canvas, ants.data(), 2, i == 0 ? 0 : 6.0f), "SetDashPattern");
        StrokeWith(canvas, i == 0 ? kRed : 0xFF1B1E27, 3);
        Check(DrawRoundRect(canvas, x + 250, y + 46, 108, 92, 18, 18), "DrawRoundRect");
    }
}

}  // namespace

Canvas PaintDashes(const Skin &skin) {
    Canvas canvas = MakePage(skin, 812, 432, "Dashes", "Lengths on and off along a stroke");
    DrawStyles(canvas, skin, 20, 68);
    DrawPatterns(canvas, skin, 20, 242);
    DrawCurves(canvas, skin, 412, 242);
    return canvas;
}

}  // namespace lacquer::examples
