// Whole pictures of shapes, strokes, gradients and operators: the same to the last bit on every system.

#include <gtest/gtest.h>

#include "painting.h"

namespace lacquer {
namespace {

/// A five-pointed star that crosses itself.
void AddStar(velPath *path, float x, float y, float size) {
    constexpr float kCorners[][2] = {{0.5f, 0}, {0.8f, 0.95f}, {0.02f, 0.36f}, {0.98f, 0.36f}, {0.2f, 0.95f}};
    for (const auto &[right, down] : kCorners) velPathLineTo(path, x + size * right, y + size * down);
    velPathClose(path);
}

TEST(VelPictureTest, Shapes) {
    Painting painting(128, 128, 0xFFFFFFFF);
    for (DWORD style = 0; style < 2; ++style) {
        const float y = static_cast<float>(style) * 62.5f;
        velCanvasSetDrawStyle(painting, style);
        velCanvasSetStrokeWidth(painting, 1.5f);
        velCanvasSetColor(painting, 0xB0803010);
        velCanvasDrawRectangle(painting, 3.3f, y + 4.1f, 25.5f, 17.25f);
        velCanvasDrawRoundRect(painting, 34.5f, y + 4, 30, 18, 7.5f, 4.25f);
        velCanvasSetColor(painting, 0xD01050A0);
        velCanvasDrawCircle(painting, 83.2f, y + 13.7f, 10.3f);
        velCanvasDrawEllipse(painting, 110, y + 13, 15, 6.66f);
        velCanvasDrawArc(painting, 4, y + 28, 30, 28, 30, 231.5f, 0);
        velCanvasDrawArc(painting, 40, y + 28, 30, 28, -75, 123, 1);
        Path star, curves;
        velPathSetFillType(star, VEL_FILL_EVEN_ODD);
        AddStar(star, 72, y + 28, 28);
        velCanvasDrawPath(painting, star);
        velPathMoveTo(curves, 102, y + 30);
        velPathBezierCurveTo(curves, 130, y + 28, 100, y + 50, 124, y + 44);
        velPathQuadraticCurveTo(curves, 126, y + 60, 110, y + 54);
        velPathOvalCurveTo(curves, 9, 5, 27, 1, 0, 104, y + 46);
        velPathArcTo(curves, 98, y + 32, 9, 7, 200, -140, 0);
        velPathClose(curves);
        velCanvasDrawPath(painting, curves);
    }
    ExpectDigest(painting, "shapes", 0x19196bbbf65a1ff7);
}

TEST(VelPictureTest, Strokes) {
    Painting painting(160, 120, 0xFFFFFFFF);
    for (DWORD kind = 0; kind < 3; ++kind) {
        const float x = 4 + static_cast<float>(kind) * 52.0f;
        velCanvasSetStrokeCap(painting, kind);
        velCanvasSetStrokeJoin(painting, kind);
        velCanvasSetDrawStyle(painting, VEL_STYLE_STROKE);
        velCanvasSetColor(painting, 0xA0203040);
        velCanvasSetStrokeWidth(painting, 7.3f);
        Path zigzag;
        velPathMoveTo(zigzag, x + 4, 30);
        velPathLineTo(zigzag, x + 14.5f, 6);
        velPathLineTo(zigzag, x + 24, 30);
        velPathBezierCurveTo(zigzag, x + 30, 0, x + 46, 12, x + 36, 33);
        velCanvasDrawPath(painting, zigzag);
        for (DWORD style = 0; style < 6; ++style) {
            const float lengths[] = {7, 2.5f, 0, 3};
            const float step = static_cast<float>(style);
            velCanvasSetDashPattern(painting, lengths, 4, 2.25f);
            velCanvasSetDashStyle(painting, style);
            velCanvasSetStrokeWidth(painting, 0.5f + step * 0.75f);
            velCanvasDrawLine(painting, x, 44 + step * 7.5f, x + 44.2f, 41.3f + step * 8.0f);
        }
        velCanvasSetStrokeWidth(painting, 2);
        velCanvasDrawRoundRect(painting, x + 1, 92, 44, 24, 11, 9);
        velCanvasSetDashStyle(painting, VEL_DASH_SOLID);
        velCanvasDrawPoint(painting, x + 23, 104);
    }
    ExpectDigest(painting, "strokes", 0x525fbe1260c5aeb0);
}

TEST(VelPictureTest, Gradients) {
    Painting painting(96, 96, 0xFF303030);
    const auto stops = {
        std::pair<float, DWORD>{0, 0xFFFF2010}, {0.3f, 0x60FFFF80}, {0.3f, 0xC010A0FF}, {1, 0xFF00FF40}};
    UseGradient(painting, velGradientCreateLinear(10, 5, 85.5f, 40.25f), stops);
    velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_FILL);
    velCanvasDrawRectangle(painting, 2.5f, 2.5f, 91, 41);
    UseGradient(painting, velGradientCreateRadial(44, 66, 37.5f), stops);
    velCanvasSetBlendValue(painting, 200);
    velCanvasDrawEllipse(painting, 48, 68, 45, 25);
    velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_STROKE);
    velCanvasSetStrokeWidth(painting, 5);
    velCanvasTranslate(painting, 3, -50);
    velCanvasDrawCircle(painting, 44, 66, 18);
    ExpectDigest(painting, "gradients", 0xdf6c8925246d6453);
}

TEST(VelPictureTest, Operators) {
    Painting painting(6 * 24, 4 * 24);
    velCanvasSetColor(painting, 0xC0F0A020);
    velCanvasDrawRectangle(painting, 0, 20, 144, 10);
    velCanvasDrawRectangle(painting, 0, 64.5f, 144, 12.25f);
    for (DWORD mode = 0; mode <= VEL_BLEND_EXCLUSION; ++mode) {
        const int x = static_cast<int>(mode % 6) * 24, y = static_cast<int>(mode / 6) * 24;
        velCanvasSave(painting);
        velCanvasClipRect(painting, x, y, x + 23, y + 23);
        velCanvasTranslate(painting, static_cast<float>(x), static_cast<float>(y));
        velCanvasSetColor(painting, 0xE03060C0);
        velCanvasDrawCircle(painting, 9, 10, 8);
        velCanvasSetBlendMode(painting, mode);
        velCanvasSetBlendValue(painting, 220);
        velCanvasSetColor(painting, 0xD0C04080);
        velCanvasDrawCircle(painting, 14, 13, 8);
        velCanvasRestore(painting);
    }
    ExpectDigest(painting, "operators", 0xaf58ef6d4e5bb740);
}

TEST(VelPictureTest, Jagged) {
    Painting painting(64, 64, 0xFFFFFFFF);
    velCanvasSetSmooth(painting, 0);
    Path star;
    AddStar(star, 3, 3, 40);
    velCanvasDrawPath(painting, star);
    velCanvasSetDrawStyle(painting, VEL_STYLE_STROKE);
    velCanvasSetStrokeWidth(painting, 3);
    velCanvasSetColor(painting, 0x8000A000);
    velCanvasDrawEllipse(painting, 40, 42, 20.5f, 17.25f);
    velCanvasDrawLine(painting, 2, 60, 61, 33);
    ExpectDigest(painting, "jagged", 0x9d276e8a2aaf61d);
}

}  // namespace
}  // namespace lacquer
