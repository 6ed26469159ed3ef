// strokes.png: how strokes turn corners and end, how thin and how wide they are. A thin line shows where each one runs.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

constexpr std::uint32_t kStroke = 0xC05AA9E6;
constexpr std::uint32_t kMiddle = 0xFFFFFFFF;
constexpr std::array<std::string_view, 3> kJoins{"miter", "round", "bevel"};
constexpr std::array<std::string_view, 3> kCaps{"butt", "round", "square"};

/// Corners from wide to sharp: a triangle's sides, by half their distance. The last one is too sharp for a miter.
struct Corner {
    std::string_view degrees;
    float half;
};
constexpr std::array<Corner, 5> kCorners{{{"100", 40.5f}, {"60", 19.6f}, {"35", 10.7f}, {"20", 6}, {"8", 2.4f}}};

void DrawCorner(const Canvas &canvas, float x, float y, float half) {
    const Path path = MakePath();
    for (const velPointF point : {velPointF{x - half, y + 34}, {x, y}, {x + half, y + 34}})
        Check(PathLineTo(path, point.x, point.y), "PathLineTo");
    Check(DrawPath(canvas, path), "DrawPath");
}

void DrawJoins(const Canvas &canvas, const Skin &skin, int left, int top) {
    for (std::size_t join = 0; join < kJoins.size(); ++join) {
        const int y = top + static_cast<int>(join) * 110;
        DrawPanel(canvas, Box(left, y, 430, 100));
        skin.font.Draw(canvas, left + 12, y + 46, kJoins[join], kInk);
        const ScopedState keep(canvas);
        Check(SetStrokeJoin(canvas, static_cast<DWORD>(join)), "SetStrokeJoin");
        int x = left + 116;
        for (const Corner &corner : kCorners) {
            StrokeWith(canvas, kStroke, 10);
            DrawCorner(canvas, static_cast<float>(x), static_cast<float>(y + 36), corner.half);
            StrokeWith(canvas, kMiddle, 1);
            DrawCorner(canvas, static_cast<float>(x), static_cast<float>(y + 36), corner.half);
            skin.font.DrawCentred(canvas, x, y + 84, corner.degrees, kFaintInk);
            x += 50 + static_cast<int>(corner.half);
        }
    }
}

void DrawCaps(const Canvas &canvas, const Skin &skin, int left, int top) {
    for (std::size_t cap = 0; cap < kCaps.size(); ++cap) {
        const int y = top + static_cast<int>(cap) * 110;
        DrawPanel(canvas, Box(left, y, 330, 100));
        skin.font.Draw(canvas, left + 12, y + 46, kCaps[cap], kInk);
        const ScopedState keep(canvas);
        const auto draw = [&] {
            const auto x = static_cast<float>(left + 104), middle = static_cast<float>(y + 50);
            Check(DrawLine(canvas, x, middle - 20, x + 90, middle - 20), "DrawLine");
            Check(DrawLine(canvas, x, middle + 30, x + 90, middle + 8), "DrawLine");
            Check(DrawArc(canvas, x + 130, middle - 30, 60, 60, 110, 160, 0), "DrawArc");
        };
        Check(SetStrokeCap(canvas, static_cast<DWORD>(cap)), "SetStrokeCap");
        StrokeWith(canvas, kStroke, 16);
        draw();
        Check(SetStrokeCap(canvas, VEL_CAP_BUTT), "SetStrokeCap");
        StrokeWith(canvas, kMiddle, 1);
        draw();
    }
}

void DrawWidths(const Canvas &canvas, const Skin &skin, int left, int top, bool smooth) {
    struct Width {
        std::string_view name;
        float width;
    };
    constexpr std::array<Width, 9> widths{
        {{"0.25", 0.25f}, {"0.5", 0.5f}, {"1", 1}, {"1.5", 1.5f}, {"2", 2}, {"3", 3}, {"5", 5}, {"8", 8}, {"12", 12}}};
    DrawPanel(canvas, Box(left, top, 380, 112));
    skin.font.Draw(canvas, left + 12, top + 12, smooth ? "smooth" : "not smooth", kInk);
    const ScopedState keep(canvas);
    Check(SetSmooth(canvas, smooth), "SetSmooth");
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const int x = left + 18 + static_cast<int>(i) * 38;
        StrokeWith(canvas, kGold, widths[i].width);
        Check(DrawLine(canvas, static_cast<float>(x), static_cast<float>(top + 80), static_cast<float>(x + 30),
                       static_cast<float>(top + 32)),
              "DrawLine");
        skin.font.DrawCentred(canvas, x + 12, top + 96, widths[i].name, kFaintInk);
    }
}

}  // namespace

Canvas PaintStrokes(const Skin &skin) {
    Canvas canvas = MakePage(skin, 810, 550, "Strokes", "Joins, caps and widths");
    skin.font.Draw(canvas, 20, 66, "joins, at corners of these degrees", kInk);
    DrawJoins(canvas, skin, 20, 82);
    skin.font.Draw(canvas, 460, 66, "caps", kInk);
    DrawCaps(canvas, skin, 460, 82);
    DrawWidths(canvas, skin, 20, 418, true);
    DrawWidths(canvas, skin, 410, 418, false);
    return canvas;
}

}  // namespace lacquer::examples
