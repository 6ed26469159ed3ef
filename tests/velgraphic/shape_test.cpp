// Shapes: where they lie and how large they are.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "arguments.h"
#include "painting.h"

namespace lacquer {
namespace {

constexpr double kPi = std::numbers::pi;

TEST(VelShapeTest, RectanglesOnWholePixelsAreExact) {
    Painting painting(10, 8);
    EXPECT_EQ(1, velCanvasSetColor(painting, 0xFF204060));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 2, 3, 5, 4));
    ExpectBox(painting, {2, 3, 7, 7});
    EXPECT_EQ(20, std::ranges::count(painting.Pixels(), 0xFF204060));
    // Partly covered pixels get their share.
    painting.Fill(0);
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 0.5f, 1, 2, 1));
    EXPECT_NEAR(128, painting.AlphaAt(0, 1), 1);
    EXPECT_EQ(255u, painting.AlphaAt(1, 1));
    EXPECT_NEAR(128, painting.AlphaAt(2, 1), 1);
    EXPECT_NEAR(2, painting.Area(), 0.02);
}

TEST(VelShapeTest, AreasAreThoseOfTheShapes) {
    const struct {
        NumberFunction<velCanvas *> draw;
        std::array<float, 6> numbers;
        double area;
    } kShapes[] = {
        {{"circle", velCanvasDrawCircle}, {30.3f, 30.7f, 25}, kPi * 625},
        {{"ellipse", velCanvasDrawEllipse}, {32, 31, 28.5f, 11}, kPi * 28.5 * 11},
        {{"round rectangle", velCanvasDrawRoundRect}, {5, 6, 50, 40, 12, 9}, 50 * 40 - (4 - kPi) * 12 * 9},
        {{"round rectangle without radius", velCanvasDrawRoundRect}, {5, 6, 50, 40, 0, 9}, 50 * 40},
        {{"round rectangle, radii too large", velCanvasDrawRoundRect}, {5, 6, 50, 40, 900, 901}, kPi * 25 * 20},
        {{"pie", velCanvasDrawArc, 1}, {4, 4, 50, 50, 20, 120}, kPi * 625 / 3},
        {{"pie, backwards", velCanvasDrawArc, 1}, {4, 4, 50, 50, 20, -120}, kPi * 625 / 3},
        {{"segment", velCanvasDrawArc, 0}, {4, 4, 50, 50, 20, 120}, 625 * (kPi / 3 - std::sqrt(3.0) / 4)},
        {{"whole arc", velCanvasDrawArc, 1}, {4, 4, 50, 50, 20, 400}, kPi * 625},
        {{"whole arc, backwards", velCanvasDrawArc, 0}, {4, 4, 50, 50, 20, -720}, kPi * 625},
    };
    for (const auto &[draw, numbers, area] : kShapes) {
        Painting painting(64, 64);
        EXPECT_EQ(1, draw.call(painting, numbers.data())) << draw.name;
        EXPECT_NEAR(area, painting.Area(), area * 0.004 + 1) << draw.name;
    }
}

TEST(VelShapeTest, AnglesGoClockwiseFromTheRight) {
    Painting painting(20, 20);
    EXPECT_EQ(1, velCanvasDrawArc(painting, 0, 0, 20, 20, 0, 90, 1));
    ExpectBox(painting, {10, 10, 20, 20});
    EXPECT_EQ(255u, painting.AlphaAt(12, 12));
    painting.Fill(0);
    EXPECT_EQ(1, velCanvasDrawArc(painting, 0, 0, 20, 20, 270 + 3600, -90, 1));
    ExpectBox(painting, {0, 0, 10, 10});
}

TEST(VelShapeTest, LinesAreStrokedInEveryStyle) {
    for (DWORD style = 0; style < 4; ++style) {
        Painting painting(12, 6);
        UseGradient(painting, velGradientCreateLinear(0, 0, 1, 0), {{0, 0xFF000000}});
        EXPECT_EQ(1, velCanvasSetDrawStyle(painting, style));
        EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 2));
        EXPECT_EQ(1, velCanvasDrawLine(painting, 1, 3, 11, 3));
        EXPECT_EQ(20.0, painting.Area()) << "style " << style;
    }
}

}  // namespace
}  // namespace lacquer
