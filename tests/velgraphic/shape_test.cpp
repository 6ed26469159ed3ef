// Shapes: where they lie and how large they are.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "painting.h"

namespace lacquer {
namespace {

constexpr double kPi = std::numbers::pi;

TEST(VelShapeTest, RectanglesOnWholePixelsAreExact) {
    Painting painting(10, 8);
    EXPECT_EQ(1, velCanvasSetColor(painting, 0xFF204060));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 2, 3, 5, 4));
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 10; ++x) {
            EXPECT_EQ(x >= 2 && x < 7 && y >= 3 && y < 7 ? 0xFF204060u : 0u, painting.At(x, y)) << x << ' ' << y;
        }
    }
}

TEST(VelShapeTest, PartlyCoveredPixelsGetTheirShare) {
    Painting painting(4, 4);
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 0.5f, 1, 2, 1));
    EXPECT_NEAR(128, painting.AlphaAt(0, 1), 1);
    EXPECT_EQ(255u, painting.AlphaAt(1, 1));
    EXPECT_NEAR(128, painting.AlphaAt(2, 1), 1);
    EXPECT_NEAR(2, painting.Area(), 0.02);
}

TEST(VelShapeTest, WithoutSmoothingPixelsAreAllOrNothing) {
    Painting painting;
    EXPECT_EQ(1, velCanvasSetSmooth(painting, 0));
    EXPECT_EQ(1, velCanvasDrawCircle(painting, 16, 16, 11.3f));
    for (const uint32_t pixel : painting.Pixels()) EXPECT_TRUE(pixel == 0 || pixel == 0xFF000000);
    EXPECT_NEAR(kPi * 11.3 * 11.3, painting.Area(), 12);
}

TEST(VelShapeTest, AreasAreThoseOfTheShapes) {
    const struct {
        const char *name;
        int (*draw)(velCanvas *);
        double area;
    } kShapes[] = {
        {"circle", [](velCanvas *c) { return velCanvasDrawCircle(c, 30.3f, 30.7f, 25); }, kPi * 625},
        {"ellipse", [](velCanvas *c) { return velCanvasDrawEllipse(c, 32, 31, 28.5f, 11); }, kPi * 28.5 * 11},
        {"round rectangle", [](velCanvas *c) { return velCanvasDrawRoundRect(c, 5, 6, 50, 40, 12, 9); },
         50 * 40 - (4 - kPi) * 12 * 9},
        {"round rectangle without radius", [](velCanvas *c) { return velCanvasDrawRoundRect(c, 5, 6, 50, 40, 0, 9); },
         50 * 40},
        {"round rectangle, radii too large",
         [](velCanvas *c) { return velCanvasDrawRoundRect(c, 5, 6, 50, 40, 900, 901); }, kPi * 25 * 20},
        {"pie", [](velCanvas *c) { return velCanvasDrawArc(c, 4, 4, 50, 50, 20, 120, 1); }, kPi * 625 / 3},
        {"pie, backwards", [](velCanvas *c) { return velCanvasDrawArc(c, 4, 4, 50, 50, 20, -120, 1); }, kPi * 625 / 3},
        {"segment", [](velCanvas *c) { return velCanvasDrawArc(c, 4, 4, 50, 50, 20, 120, 0); },
         625 * (kPi / 3 - std::sqrt(3.0) / 4)},
        {"whole arc", [](velCanvas *c) { return velCanvasDrawArc(c, 4, 4, 50, 50, 20, 400, 1); }, kPi * 625},
        {"whole arc, backwards", [](velCanvas *c) { return velCanvasDrawArc(c, 4, 4, 50, 50, 20, -720, 0); },
         kPi * 625},
    };
    for (const auto &shape : kShapes) {
        Painting painting(64, 64);
        EXPECT_EQ(1, shape.draw(painting)) << shape.name;
        EXPECT_NEAR(shape.area, painting.Area(), shape.area * 0.004 + 1) << shape.name;
    }
}

TEST(VelShapeTest, AnglesGoClockwiseFromTheRight) {
    Painting painting(20, 20);
    EXPECT_EQ(1, velCanvasDrawArc(painting, 0, 0, 20, 20, 0, 90, 1));
    const RECT box = painting.Box();
    EXPECT_EQ(10, box.left);
    EXPECT_EQ(10, box.top);
    EXPECT_EQ(20, box.right);
    EXPECT_EQ(20, box.bottom);
    EXPECT_EQ(255u, painting.AlphaAt(12, 12));
    painting.Fill(0);
    EXPECT_EQ(1, velCanvasDrawArc(painting, 0, 0, 20, 20, 270 + 3600, -90, 1));
    EXPECT_EQ(255u, painting.AlphaAt(7, 7));
    EXPECT_EQ(0u, painting.AlphaAt(12, 7) + painting.AlphaAt(7, 12) + painting.AlphaAt(12, 12));
}

TEST(VelShapeTest, TheSegmentIsCutOffByTheChord) {
    Painting painting(20, 20);
    EXPECT_EQ(1, velCanvasDrawArc(painting, 0, 0, 20, 20, 0, 90, 0));
    EXPECT_EQ(0u, painting.AlphaAt(12, 12));
    EXPECT_EQ(255u, painting.AlphaAt(16, 15));
    // Stroked, there is no chord.
    painting.Fill(0);
    EXPECT_EQ(1, velCanvasSetDrawStyle(painting, VEL_STYLE_STROKE));
    EXPECT_EQ(1, velCanvasDrawArc(painting, 1, 1, 18, 18, 0, 90, 0));
    EXPECT_EQ(0u, painting.AlphaAt(14, 14));
    EXPECT_NEAR(9 * kPi / 2, painting.Area(), 0.3);
}

TEST(VelShapeTest, PointsAreAsWideAsTheStroke) {
    Painting painting(16, 16);
    EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 6));
    EXPECT_EQ(1, velCanvasDrawPoint(painting, 8, 7));
    EXPECT_EQ(36.0, painting.Area());
    EXPECT_EQ(255u, painting.AlphaAt(5, 4));
    painting.Fill(0);
    EXPECT_EQ(1, velCanvasSetStrokeCap(painting, VEL_CAP_ROUND));
    EXPECT_EQ(1, velCanvasDrawPoint(painting, 8, 7));
    EXPECT_NEAR(9 * kPi, painting.Area(), 0.5);
    EXPECT_LT(painting.AlphaAt(5, 4), 32u);
}

TEST(VelShapeTest, LinesAreStrokedInEveryStyle) {
    velGradient *gradient = velGradientCreateLinear(0, 0, 1, 0);
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 0, 0xFF000000));
    for (DWORD style = 0; style < 4; ++style) {
        Painting painting(12, 6);
        EXPECT_EQ(1, velCanvasSetGradient(painting, gradient));
        EXPECT_EQ(1, velCanvasSetDrawStyle(painting, style));
        EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 2));
        EXPECT_EQ(1, velCanvasDrawLine(painting, 1, 3, 11, 3));
        EXPECT_EQ(20.0, painting.Area()) << "style " << style;
    }
    velGradientDestroy(gradient);
}

}  // namespace
}  // namespace lacquer
