// shapes.png: every shape that a canvas draws of itself, filled and stroked.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

/// Corners of a star of five points that crosses itself, in a square of 64 pixels.
constexpr std::array<velPointF, 5> kStar{{{32, 1}, {50.2f, 57.1f}, {2.5f, 22.4f}, {61.5f, 22.4f}, {13.8f, 57.1f}}};

int DrawStar(const Canvas &canvas, float x, float y, DWORD fillType) {
    const Path path = MakePath();
    Check(PathSetFillType(path, fillType), "PathSetFillType");
    Check(PathMoveTo(path, x + kStar[0].x, y + kStar[0].y), "PathMoveTo");
    for (std::size_t i = 1; i < kStar.size(); ++i)
        Check(PathLineTo(path, x + kStar[i].x, y + kStar[i].y), "PathLineTo");
    Check(PathClose(path), "PathClose");
    return DrawPath(canvas, path);
}

/// A drop: a straight lead and two curves around an elliptical bottom.
int DrawDrop(const Canvas &canvas, float x, float y) {
    const Path path = MakePath();
    Check(PathMoveTo(path, x + 32, y), "PathMoveTo");
    Check(PathBezierCurveTo(path, x + 34, y + 14, x + 52, y + 28, x + 52, y + 42), "PathBezierCurveTo");
    Check(PathOvalCurveTo(path, 20, 18, 0, 0, 1, x + 12, y + 42), "PathOvalCurveTo");
    Check(PathQuadraticCurveTo(path, x + 12, y + 27, x + 32, y), "PathQuadraticCurveTo");
    Check(PathClose(path), "PathClose");
    return DrawPath(canvas, path);
}

/// Figures within each other, which are holes by the even-odd rule: a face that winks.
int DrawFace(const Canvas &canvas, float x, float y) {
    const Path path = MakePath();
    Check(PathSetFillType(path, VEL_FILL_EVEN_ODD), "PathSetFillType");
    Check(PathAddCircle(path, x + 32, y + 30, 30), "PathAddCircle");
    Check(PathAddEllipse(path, x + 22, y + 22, 4, 6), "PathAddEllipse");
    Check(PathAddRectangle(path, x + 36, y + 21, 12, 3), "PathAddRectangle");
    Check(PathAddArc(path, x + 14, y + 12, 36, 36, 20, 140), "PathAddArc");
    return DrawPath(canvas, path);
}

int DrawPoints(const Canvas &canvas, float x, float y) {
    constexpr std::array<DWORD, 2> caps{VEL_CAP_BUTT, VEL_CAP_ROUND};
    for (int i = 0; i < 10; ++i) {
        const int row = i / 5;
        Check(SetStrokeCap(canvas, caps[static_cast<std::size_t>(row)]), "SetStrokeCap");
        Check(SetStrokeWidth(canvas, static_cast<float>(2 + i % 5 * 3)), "SetStrokeWidth");
        Check(
            DrawPoint(canvas, x + static_cast<float>(2 + i % 5 * (10 + i % 5)), y + static_cast<float>(18 + row * 26)),
            "DrawPoint");
    }
    return 1;
}

int DrawFan(const Canvas &canvas, float x, float y) {
    for (int i = 0; i < 9; ++i)
        Check(DrawLine(canvas, x + static_cast<float>(i), y + 60, x + static_cast<float>(i * 8), y), "DrawLine");
    return 1;
}

int DrawHexagon(const Canvas &canvas, float x, float y) {
    const LONG left = static_cast<LONG>(x), top = static_cast<LONG>(y);
    const std::array<POINT, 6> corners{{{left + 16, top + 2},
                                        {left + 48, top + 2},
                                        {left + 64, top + 30},
                                        {left + 48, top + 58},
                                        {left + 16, top + 58},
                                        {left, top + 30}}};
    return DrawPolygon(canvas, static_cast<int>(corners.size()), corners.data());
}

int DrawJagged(const Canvas &canvas, float x, float y) {
    Check(SetSmooth(canvas, 0), "SetSmooth");
    return DrawCircle(canvas, x + 32, y + 30, 28.5f);
}

int DrawGround(const Canvas &canvas, float x, float y) {
    const ScopedClip clip(canvas, Box(static_cast<int>(x), static_cast<int>(y) + 8, 64, 44));
    return DrawColor(canvas, kBlue);
}

struct Shape {
    std::string_view name, detail;
    int (*draw)(const Canvas &canvas, float x, float y);  // into a square of 64 pixels
};

constexpr std::array<Shape, 16> kShapes{{
    {"DrawPoint", "butt and round caps", DrawPoints},
    {"DrawLine", "stroked in any style", DrawFan},
    {"DrawRectangle", "",
     [](const Canvas &canvas, float x, float y) { return DrawRectangle(canvas, x, y + 8, 64, 44); }},
    {"DrawRoundRect", "two radii",
     [](const Canvas &canvas, float x, float y) { return DrawRoundRect(canvas, x, y + 8, 64, 44, 20, 12); }},
    {"DrawCircle", "",
     [](const Canvas &canvas, float x, float y) { return DrawCircle(canvas, x + 32, y + 30, 28.5f); }},
    {"DrawCircle", "not smooth", DrawJagged},
    {"DrawEllipse", "",
     [](const Canvas &canvas, float x, float y) { return DrawEllipse(canvas, x + 32, y + 30, 32, 20); }},
    {"DrawArc", "open, 220 degrees",
     [](const Canvas &canvas, float x, float y) { return DrawArc(canvas, x + 2, y, 60, 60, 160, 220, 0); }},
    {"DrawArc", "with its centre",
     [](const Canvas &canvas, float x, float y) { return DrawArc(canvas, x + 2, y, 60, 60, 30, 300, 1); }},
    {"DrawPolygon", "", DrawHexagon},
    {"DrawBezier", "",
     [](const Canvas &canvas, float x, float y) {
         return DrawBezier(canvas, x, y + 50, x + 20, y - 50, x + 44, y + 110, x + 64, y + 10);
     }},
    {"DrawPath", "lines and curves", DrawDrop},
    {"DrawPath", "winding",
     [](const Canvas &canvas, float x, float y) { return DrawStar(canvas, x, y, VEL_FILL_WINDING); }},
    {"DrawPath", "even-odd",
     [](const Canvas &canvas, float x, float y) { return DrawStar(canvas, x, y, VEL_FILL_EVEN_ODD); }},
    {"DrawPath", "shapes added to it", DrawFace},
    {"DrawColor", "inside the clip", DrawGround},
}};

}  // namespace

Canvas PaintShapes(const Skin &skin) {
    constexpr int width = 184;
    constexpr int height = 112;
    Canvas canvas = MakePage(skin, 804, 566, "Shapes", "On the left filled, on the right stroked 2.5 pixels wide");
    for (std::size_t i = 0; i < kShapes.size(); ++i) {
        const Shape &shape = kShapes[i];
        const int left = 20 + static_cast<int>(i % 4) * (width + 9);
        const int top = 68 + static_cast<int>(i / 4) * (height + 10);
        DrawPanel(canvas, Box(left, top, width, height));
        skin.font.Draw(canvas, left + 12, top + 10, shape.name, kInk);
        skin.font.Draw(canvas, left + 24 + skin.font.Width(shape.name), top + 10, shape.detail, kFaintInk);

        const ScopedState keep(canvas);
        FillWith(canvas, kRed);
        Check(shape.draw(canvas, static_cast<float>(left + 18), static_cast<float>(top + 36)), "a filled shape");
        StrokeWith(canvas, kGold, 2.5f);
        Check(shape.draw(canvas, static_cast<float>(left + 104), static_cast<float>(top + 36)), "a stroke");
    }
    return canvas;
}

}  // namespace lacquer::examples
