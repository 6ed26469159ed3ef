// Paths: how they are built, what they enclose, and their bounds.

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <numbers>

#include "painting.h"

namespace lacquer {
namespace {

void ExpectBounds(const velRectF &bounds, float left, float top, float right, float bottom, float tolerance = 1e-4f) {
    EXPECT_NEAR(left, bounds.left, tolerance);
    EXPECT_NEAR(top, bounds.top, tolerance);
    EXPECT_NEAR(right, bounds.right, tolerance);
    EXPECT_NEAR(bottom, bounds.bottom, tolerance);
}

TEST(VelPathTest, BoundsAreThoseOfTheCurvesThemselves) {
    Path path;
    ExpectBounds(path.Bounds(), 0, 0, 0, 0);
    EXPECT_EQ(1, velPathMoveTo(path, 5, 7));
    ExpectBounds(path.Bounds(), 5, 7, 5, 7);
    EXPECT_EQ(1, velPathBezierCurveTo(path, 5, 27, 25, 27, 25, 7));  // reaches 3/4 of its control points' height
    ExpectBounds(path.Bounds(), 5, 7, 25, 22);
    EXPECT_EQ(1, velPathQuadraticCurveTo(path, 35, 17, 25, 17));
    ExpectBounds(path.Bounds(), 5, 7, 30, 22);
    // Both extremes lie between its ends: at the roots of the derivative, (10 -+ sqrt(37)) / 21.
    EXPECT_EQ(1, velPathBegin(path));
    EXPECT_EQ(1, velPathMoveTo(path, 1, 0));
    EXPECT_EQ(1, velPathBezierCurveTo(path, 1, -30, 1, 40, 1, 0));
    const auto heightAt = [](double t) { return 3 * t * (1 - t) * (-30 * (1 - t) + 40 * t); };
    ExpectBounds(path.Bounds(), 1, static_cast<float>(heightAt((10 - std::sqrt(37.0)) / 21)), 1,
                 static_cast<float>(heightAt((10 + std::sqrt(37.0)) / 21)));

    EXPECT_EQ(1, velPathBegin(path));
    EXPECT_EQ(1, velPathAddEllipse(path, -4, 3, 10, 2.5f));
    ExpectBounds(path.Bounds(), -14, 0.5f, 6, 5.5f, 1e-3f);
    EXPECT_EQ(1, velPathAddRectangle(path, 0, -2, 1, 1));
    ExpectBounds(path.Bounds(), -14, -2, 6, 5.5f, 1e-3f);
    EXPECT_EQ(1, velPathBegin(path));
    EXPECT_EQ(1, velPathAddArc(path, 0, 0, 20, 20, 45, 90));
    const float half = static_cast<float>(10 / std::numbers::sqrt2);
    ExpectBounds(path.Bounds(), 10 - half, 10 + half, 10 + half, 20, 1e-3f);
    EXPECT_EQ(1, velPathBegin(path));
    EXPECT_EQ(1, velPathAddRectangle(path, FLT_MAX, 0, FLT_MAX, 0));
    EXPECT_EQ(FLT_MAX, path.Bounds().right);
}

TEST(VelPathTest, FillTypesDifferInsideOverlaps) {
    for (const DWORD type : {VEL_FILL_WINDING, VEL_FILL_EVEN_ODD}) {
        Painting painting(20, 20);
        Path path;
        EXPECT_EQ(1, velPathSetFillType(path, type));
        EXPECT_EQ(0, velPathSetFillType(path, 2));
        EXPECT_EQ(1, velPathAddRectangle(path, 2, 2, 16, 16));
        EXPECT_EQ(1, velPathBegin(path));  // the type stays
        EXPECT_EQ(1, velPathAddRectangle(path, 1, 1, 12, 12));
        EXPECT_EQ(1, velPathAddRectangle(path, 7, 7, 12, 12));
        EXPECT_EQ(1, velCanvasDrawPath(painting, path));
        EXPECT_EQ(type == VEL_FILL_WINDING ? 288.0 - 36 : 288.0 - 72, painting.Area());
    }
}

TEST(VelPathTest, WindingOppositeWaysLeavesAHole) {
    Painting painting(20, 20);
    Path path;
    EXPECT_EQ(1, velPathAddArc(path, 2, 2, 16, 16, 0, 360));
    EXPECT_EQ(1, velPathAddArc(path, 6, 6, 8, 8, 0, -360));
    EXPECT_EQ(1, velCanvasDrawPath(painting, path));
    EXPECT_NEAR(std::numbers::pi * (64 - 16), painting.Area(), 1);
    EXPECT_EQ(0u, painting.AlphaAt(10, 10));
}

TEST(VelPathTest, FiguresBeginWhereTheyAreToldTo) {
    Path path;
    EXPECT_EQ(0, velPathClose(path));
    EXPECT_EQ(1, velPathLineTo(path, 5, 5));  // no present point: begins here
    ExpectBounds(path.Bounds(), 5, 5, 5, 5);
    EXPECT_EQ(1, velPathLineTo(path, 15, 5));
    EXPECT_EQ(1, velPathLineTo(path, 15, 15));
    EXPECT_EQ(1, velPathClose(path));
    // After a close the present point is where the figure began.
    EXPECT_EQ(1, velPathLineTo(path, 5, 15));
    EXPECT_EQ(1, velPathLineTo(path, 15, 15));
    Painting painting(20, 20);
    EXPECT_EQ(1, velPathSetFillType(path, VEL_FILL_EVEN_ODD));
    EXPECT_EQ(1, velCanvasDrawPath(painting, path));
    EXPECT_NEAR(100, painting.Area(), 0.5);
}

TEST(VelPathTest, ArcsContinueWithALineOrAnew) {
    for (const int forceMoveTo : {0, 1}) {
        Painting painting(30, 30);
        Path path;
        EXPECT_EQ(1, velCanvasSetDrawStyle(painting, VEL_STYLE_STROKE));
        EXPECT_EQ(1, velPathMoveTo(path, 0, 15));
        EXPECT_EQ(1, velPathArcTo(path, 10, 5, 20, 20, 180, 90, forceMoveTo));
        EXPECT_EQ(1, velCanvasDrawPath(painting, path));
        EXPECT_NEAR((forceMoveTo ? 0 : 10) + 5 * std::numbers::pi, painting.Area(), 0.4);
    }
}

TEST(VelPathTest, OvalCurvesTakeTheArcThatTheFlagsName) {
    // From (10, 20) to (30, 20) on circles of radius 12.5, whose centres lie 7.5 above and below the chord.
    const struct {
        int large, clockwise;
        float top, bottom;
    } kArcs[] = {{0, 1, 15, 20}, {0, 0, 20, 25}, {1, 1, 0, 20}, {1, 0, 20, 40}};
    for (const auto &[large, clockwise, top, bottom] : kArcs) {
        Path path;
        EXPECT_EQ(1, velPathMoveTo(path, 10, 20));
        EXPECT_EQ(1, velPathOvalCurveTo(path, 12.5f, 12.5f, 0, large, clockwise, 30, 20));
        ExpectBounds(path.Bounds(), large ? 7.5f : 10, top, large ? 32.5f : 30, bottom, 1e-3f);
        EXPECT_EQ(1, velPathLineTo(path, 31, 20));  // the present point is the end
    }
    Path path;
    // Too small: enlarged to a half circle. Turned by 90 degrees: the radii change places.
    EXPECT_EQ(1, velPathMoveTo(path, 0, 0));
    EXPECT_EQ(1, velPathOvalCurveTo(path, 1, 1, 0, 0, 1, 10, 0));
    ExpectBounds(path.Bounds(), 0, -5, 10, 0, 1e-3f);
    EXPECT_EQ(1, velPathBegin(path));
    EXPECT_EQ(1, velPathMoveTo(path, 0, 0));
    EXPECT_EQ(1, velPathOvalCurveTo(path, 20, 5, 90, 0, 1, 10, 0));
    ExpectBounds(path.Bounds(), 0, -20, 10, 0, 1e-3f);
    // Without a radius, or to where it is already: lines.
    EXPECT_EQ(1, velPathBegin(path));
    EXPECT_EQ(1, velPathOvalCurveTo(path, 9, 9, 0, 1, 1, 3, 4));
    EXPECT_EQ(1, velPathOvalCurveTo(path, 9, 0, 0, 1, 1, 5, 4));
    EXPECT_EQ(1, velPathOvalCurveTo(path, 9, 9, 0, 1, 1, 5, 4));
    ExpectBounds(path.Bounds(), 3, 4, 5, 4);
    EXPECT_EQ(1, velPathOvalCurveTo(path, FLT_MAX, FLT_MIN, 33, 1, 0, -FLT_MAX, FLT_MAX));
    EXPECT_TRUE(std::isfinite(path.Bounds().left));
}

TEST(VelPathTest, ManySegmentsAreDrawn) {
    Path path;
    constexpr int kSegments = 20000;
    for (int i = 0; i < kSegments; ++i) {
        const double angle = i * 2 * std::numbers::pi / kSegments;
        ASSERT_EQ(1, velPathLineTo(path, static_cast<float>(50 + 40 * std::cos(angle)),
                                   static_cast<float>(50 + 40 * std::sin(angle))));
    }
    Painting painting(100, 100);
    EXPECT_EQ(1, velCanvasDrawPath(painting, path));
    EXPECT_NEAR(std::numbers::pi * 1600, painting.Area(), 15);
}

TEST(VelPathTest, AClosedPathOfOnePointDrawsNothing) {
    Painting painting;
    Path path;
    EXPECT_EQ(1, velCanvasDrawPath(painting, path));
    EXPECT_EQ(1, velPathMoveTo(path, 5, 5));
    EXPECT_EQ(1, velPathClose(path));
    EXPECT_EQ(1, velCanvasDrawPath(painting, path));
    EXPECT_EQ(1, velCanvasSetDrawStyle(painting, VEL_STYLE_STROKE));
    EXPECT_EQ(1, velCanvasDrawPath(painting, path));
    EXPECT_TRUE(painting.IsEmpty());
}

}  // namespace
}  // namespace lacquer
