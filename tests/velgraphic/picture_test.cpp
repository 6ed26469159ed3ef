// Whole pictures of shapes, strokes, gradients and operators: the same to the last bit on every system.

#include <gtest/gtest.h>

#include "painting.h"

namespace lacquer {
namespace {

/// A path, destroyed with the object.
class Path {
public:
    ~Path() { velPathDestroy(path_); }
    operator velPath *() const { return path_; }

private:
    velPath *path_ = velPathCreate();
};

/// A five-pointed star that crosses itself.
void AddStar(velPath *path, float x, float y, float size) {
    constexpr float kCorners[][2] = {{0.5f, 0}, {0.8f, 0.95f}, {0.02f, 0.36f}, {0.98f, 0.36f}, {0.2f, 0.95f}};
    velPathMoveTo(path, x + size * kCorners[0][0], y + size * kCorners[0][1]);
    for (int i = 1; i < 5; ++i) velPathLineTo(path, x + size * kCorners[i][0], y + size * kCorners[i][1]);
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
    ExpectDigest(painting, "shapes");
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
    ExpectDigest(painting, "strokes");
}

TEST(VelPictureTest, Gradients) {
    Painting painting(96, 96, 0xFF303030);
    velGradient *linear = velGradientCreateLinear(10, 5, 85.5f, 40.25f);
    velGradient *radial = velGradientCreateRadial(44, 66, 37.5f);
    for (velGradient *gradient : {linear, radial}) {
        velGradientAddColorStop(gradient, 0, 0xFFFF2010);
        velGradientAddColorStop(gradient, 0.3f, 0x60FFFF80);
        velGradientAddColorStop(gradient, 0.3f, 0xC010A0FF);
        velGradientAddColorStop(gradient, 1, 0xFF00FF40);
    }
    velCanvasSetGradient(painting, linear);
    velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_FILL);
    velCanvasDrawRectangle(painting, 2.5f, 2.5f, 91, 41);
    velCanvasSetGradient(painting, radial);
    velCanvasSetBlendValue(painting, 200);
    velCanvasDrawEllipse(painting, 48, 68, 45, 25);
    velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_STROKE);
    velCanvasSetStrokeWidth(painting, 5);
    velCanvasTranslate(painting, 3, -50);
    velCanvasDrawCircle(painting, 44, 66, 18);
    velGradientDestroy(linear);
    velGradientDestroy(radial);
    ExpectDigest(painting, "gradients");
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
    ExpectDigest(painting, "operators");
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
    ExpectDigest(painting, "jagged");
}

}  // namespace
}  // namespace lacquer
