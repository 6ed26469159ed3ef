// Shapes, strokes, paths and blends: how large they come out and where, and what every draw has in common.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "painting.h"

namespace lacquer {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr int kSize = 64;

using Draw = std::function<int(velCanvas *)>;

template <class... Numbers>
Draw Of(int (*function)(velCanvas *, Numbers...), std::type_identity_t<Numbers>... numbers) {
    return [=](velCanvas *canvas) { return function(canvas, numbers...); };
}

Draw OfPath(void (*build)(velPath *path)) {
    return [=](velCanvas *canvas) {
        const Path path;
        build(path);
        return velCanvasDrawPath(canvas, path);
    };
}

Draw Capped(DWORD cap, const Draw &draw) {
    return [=](velCanvas *canvas) { return velCanvasSetStrokeCap(canvas, cap) && draw(canvas); };
}

void BuildCorner(velPath *path) {
    EXPECT_TRUE(velPathLineTo(path, 10, 30) && velPathLineTo(path, 10, 10) && velPathLineTo(path, 30, 10));
}

void BuildOverlap(velPath *path) {
    EXPECT_EQ(1, velPathSetFillType(path, VEL_FILL_EVEN_ODD));
    EXPECT_EQ(0, velPathSetFillType(path, 2));
    EXPECT_EQ(1, velPathAddRectangle(path, 2, 2, 16, 16));
    EXPECT_EQ(1, velPathBegin(path));  // the type stays
    EXPECT_EQ(1, velPathAddRectangle(path, 1, 1, 12, 12));
    EXPECT_EQ(1, velPathAddRectangle(path, 7, 7, 12, 12));
}

void BuildArcAfterAPoint(velPath *path) {
    EXPECT_EQ(1, velPathMoveTo(path, 0, 15));
    EXPECT_EQ(1, velPathArcTo(path, 10, 5, 20, 20, 180, 90, 0));
}

/// After a close the present point is where the figure began, here for a triangle and a curve.
void BuildAfterAClose(velPath *path) {
    EXPECT_EQ(0, velPathClose(path));
    // Without a present point the first line begins where it ends.
    EXPECT_TRUE(velPathLineTo(path, 5, 5) && velPathLineTo(path, 15, 5) && velPathLineTo(path, 15, 15));
    EXPECT_TRUE(velPathClose(path) && velPathQuadraticCurveTo(path, 5, 15, 15, 15));
}

void BuildArcOfMoreThanACircle(velPath *path) {
    EXPECT_EQ(1, velPathSetFillType(path, VEL_FILL_EVEN_ODD));
    EXPECT_EQ(1, velPathAddArc(path, 4, 4, 50, 50, 20, 450));
}

/// Drawn with lines of 4 pixels in black, opaque.
const struct {
    const char *name;
    DWORD style;
    Draw draw;
    double area;
    RECT box;
} kDraws[] = {
    {"rectangle", VEL_STYLE_FILL, Of(velCanvasDrawRectangle, 2, 3, 5, 4), 20, {2, 3, 7, 7}},
    {"circle", VEL_STYLE_FILL, Of(velCanvasDrawCircle, 30.5f, 30, 25.25f), kPi * 637.56, {5, 4, 56, 56}},
    {"ellipse", VEL_STYLE_FILL, Of(velCanvasDrawEllipse, 32, 31, 28.5f, 11), kPi * 313.5, {3, 20, 61, 42}},
    {"round", VEL_STYLE_FILL, Of(velCanvasDrawRoundRect, 5, 6, 50, 40, 12, 9), 2000 - (4 - kPi) * 108, {5, 6, 55, 46}},
    {"round, too far", VEL_STYLE_FILL, Of(velCanvasDrawRoundRect, 5, 6, 50, 40, 900, 901), kPi * 500, {5, 6, 55, 46}},
    {"backwards", VEL_STYLE_FILL, Of(velCanvasDrawArc, 0, 0, 20, 20, 3870, -90, 1), kPi * 25, {0, 0, 10, 10}},
    {"segment", VEL_STYLE_FILL, Of(velCanvasDrawArc, 0, 0, 20, 20, 0, 90, 0), kPi * 25 - 50, {10, 10, 20, 20}},
    {"whole, backwards", VEL_STYLE_STROKE, Of(velCanvasDrawArc, 4, 4, 50, 50, 20, -720, 1), kPi * 200, {2, 2, 56, 56}},
    {"pie", VEL_STYLE_STROKE, Of(velCanvasDrawArc, 4, 4, 40, 40, 0, 90, 1), 40 * kPi + 160, {22, 22, 46, 46}},
    {"frame", VEL_STYLE_STROKE, Of(velCanvasDrawRectangle, 10, 10, 20, 20), 24 * 24 - 16 * 16, {8, 8, 32, 32}},
    {"filled line", VEL_STYLE_FILL, Of(velCanvasDrawLine, 10, 10, 30, 10), 80, {10, 8, 30, 12}},
    {"mitre", VEL_STYLE_STROKE, OfPath(BuildCorner), 160, {8, 8, 30, 30}},
    {"point", VEL_STYLE_STROKE, Of(velCanvasDrawPoint, 10, 10), 16, {8, 8, 12, 12}},
    {"square point", VEL_STYLE_FILL, Capped(VEL_CAP_SQUARE, Of(velCanvasDrawPoint, 10, 10)), 16, {8, 8, 12, 12}},
    {"round point", VEL_STYLE_FILL, Capped(VEL_CAP_ROUND, Of(velCanvasDrawPoint, 10, 10)), kPi * 4, {8, 8, 12, 12}},
    {"even and odd", VEL_STYLE_FILL, OfPath(BuildOverlap), 288 - 72, {1, 1, 19, 19}},
    {"after a close", VEL_STYLE_FILL, OfPath(BuildAfterAClose), 50 + 100.0 / 3, {5, 5, 15, 15}},
    {"arc of more than a circle", VEL_STYLE_FILL, OfPath(BuildArcOfMoreThanACircle), kPi * 625, {4, 4, 54, 54}},
    {"arc after a line", VEL_STYLE_STROKE, OfPath(BuildArcAfterAPoint), 40 + 20 * kPi, {0, 3, 20, 17}},
};

/// The draw on a canvas that `prepare` has changed.
template <class Prepare>
std::vector<uint32_t> Painted(DWORD style, const Draw &draw, Prepare prepare) {
    Painting painting(kSize, kSize);
    UseGradient(painting, velGradientCreateLinear(0, 0, 1, 0), {{0, 0xFF000000}});
    EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 4));
    EXPECT_EQ(1, velCanvasSetDrawStyle(painting, style));
    prepare(painting);
    EXPECT_EQ(1, draw(painting));
    return painting.Pixels();
}

TEST(VelDrawTest, HasItsSizeAndPlaceInEveryState) {
    for (const auto &[name, style, draw, area, box] : kDraws) {
        SCOPED_TRACE(name);
        Painting painting(kSize, kSize);
        EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 4));
        EXPECT_EQ(1, velCanvasSetDrawStyle(painting, style));
        EXPECT_EQ(1, draw(painting));
        EXPECT_NEAR(area, painting.Area(), area * 0.002 + 0.6);
        ExpectBox(painting, box);

        const auto moved = Painted(style, draw, [](velCanvas *canvas) { velCanvasTranslate(canvas, 3, 2); });
        const auto clipped = Painted(style, draw, [](velCanvas *canvas) { velCanvasClipRect(canvas, 9, 8, 28, 29); });
        const auto half = Painted(style, draw, [](velCanvas *canvas) { velCanvasSetBlendValue(canvas, 128); });
        const DWORD graded = style == VEL_STYLE_FILL ? VEL_STYLE_GRADIENT_FILL : VEL_STYLE_GRADIENT_STROKE;
        const auto withGradient = Painted(graded, draw, [](velCanvas *canvas) { velCanvasSetBlendValue(canvas, 128); });
        for (int y = 0; y < kSize; ++y) {
            for (int x = 0; x < kSize; ++x) {
                const auto at = static_cast<size_t>(y * kSize + x);
                const bool isInClip = x >= 9 && x < 28 && y >= 8 && y < 29;
                EXPECT_NEAR(isInClip ? painting.AlphaAt(x, y) : 0u, clipped[at] >> 24, isInClip ? 4 : 0);
                EXPECT_EQ(x < 3 || y < 2 ? 0 : painting.At(x - 3, y - 2), moved[at]);
                EXPECT_NEAR(painting.AlphaAt(x, y) / 2.0, half[at] >> 24, 1);
                EXPECT_NEAR(painting.AlphaAt(x, y) / 2.0, withGradient[at] >> 24, 1);
                if (HasFailure()) FAIL() << x << ", " << y;
            }
        }
        velCanvas *without = velCanvasCreate();
        EXPECT_EQ(0, draw(without)) << "no bitmap";
        velCanvasDestroy(without);
    }
}

void ExpectBounds(const Path &path, float left, float top, float right, float bottom) {
    const float expected[] = {left, top, right, bottom};
    const auto [x0, y0, x1, y1] = path.Bounds();
    const float bounds[] = {x0, y0, x1, y1};
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(expected[i], bounds[i], 1e-3f) << i;
}

TEST(VelPathTest, BoundsAreThoseOfTheCurvesThemselves) {
    // Both extremes lie between its ends: at the roots of the derivative, (10 -+ sqrt(37)) / 21.
    Path path;
    EXPECT_TRUE(velPathMoveTo(path, 1, 0) && velPathBezierCurveTo(path, 1, -30, 1, 40, 1, 0));
    const auto heightAt = [](double t) { return static_cast<float>(3 * t * (1 - t) * (-30 * (1 - t) + 40 * t)); };
    ExpectBounds(path, 1, heightAt((10 - std::sqrt(37.0)) / 21), 1, heightAt((10 + std::sqrt(37.0)) / 21));
}

TEST(VelPathTest, OvalCurvesTakeTheArcThatTheFlagsName) {
    const struct {
        float radiusX, radiusY, rotation;
        int large, clockwise;
        velRectF bounds;  ///< of a curve from (10, 20) to (30, 20)
    } kOvals[] = {
        {12.5f, 12.5f, 0, 0, 1, {10, 15, 30, 20}},
        {12.5f, 12.5f, 0, 0, 0, {10, 20, 30, 25}},
        {12.5f, 12.5f, 0, 1, 1, {7.5f, 0, 32.5f, 20}},
        {12.5f, 12.5f, 0, 1, 0, {7.5f, 20, 32.5f, 40}},
        {2, 2, 0, 0, 1, {10, 10, 30, 20}},      // too small: enlarged to a half circle
        {40, 10, 90, 0, 1, {10, -20, 30, 20}},  // turned: the radii change places
        {24, 12, 30, 1, 1, {-11.4654f, -9.1198f, 31.8012f, 20.0000f}},
        {9, 0, 0, 1, 1, {10, 20, 30, 20}},  // without a radius: a line
    };
    for (const auto &[radiusX, radiusY, rotation, large, clockwise, bounds] : kOvals) {
        Path path;
        EXPECT_EQ(1, velPathMoveTo(path, 10, 20));
        EXPECT_EQ(1, velPathOvalCurveTo(path, radiusX, radiusY, rotation, large, clockwise, 30, 20));
        ExpectBounds(path, bounds.left, bounds.top, bounds.right, bounds.bottom);
    }
    Path path;
    EXPECT_EQ(1, velPathOvalCurveTo(path, 9, 9, 0, 1, 1, 3, 4));
    ExpectBounds(path, 3, 4, 3, 4);
}

/// The alpha of a row as a word of '#' (opaque), '.' (transparent) and '+'.
std::string Row(const Painting &painting, int y) {
    std::string row;
    for (int x = 0; x < painting.Width(); ++x)
        row += ".+#"[(painting.AlphaAt(x, y) + 254) / 255 + painting.AlphaAt(x, y) / 255];
    return row;
}

TEST(VelDashTest, PatternsCountInPixelsAndStylesInWidths) {
    const std::string solid(20, '#');
    const struct {
        DWORD style;
        std::vector<float> lengths;
        float offset;
        std::string row;
    } kPatterns[] = {
        {VEL_DASH_PATTERN, {4, 2}, 0, "####..####..####..##"},
        {VEL_DASH_PATTERN, {4, 2}, 1, "###..####..####..###"},
        {VEL_DASH_PATTERN, {4, 2}, -1, ".####..####..####..#"},
        {VEL_DASH_PATTERN, {4, 2}, 6e6f + 1, "###..####..####..###"},
        {VEL_DASH_PATTERN, {3}, 0, "###...###...###...##"},
        {VEL_DASH_PATTERN, {1, 2, 3}, 0, "#..###.##...#..###.#"},
        {VEL_DASH_PATTERN, {0, 2, 3, 1}, 0, "..###...###...###..."},
        {VEL_DASH_SOLID, {4, 2}, 0, solid},
        {VEL_DASH_DASH, {}, 0, "#########...########"},
        {VEL_DASH_DOT, {}, 0, "###...###...###...##"},
        {VEL_DASH_DASH_DOT, {}, 0, "#########...###...##"},
        {VEL_DASH_PATTERN, {}, 0, solid},
    };
    for (const auto &[style, lengths, offset, row] : kPatterns) {
        // A line that begins at the edge, and one that comes from far beyond, where whole patterns fit.
        for (const float before : {0.0f, style == VEL_DASH_PATTERN ? 6e6f : 0.0f}) {
            Painting painting(20, 5);
            EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 3));
            EXPECT_EQ(1, velCanvasSetDashStyle(painting, style));
            std::vector<float> copied = lengths;
            if (!copied.empty())
                velCanvasSetDashPattern(painting, copied.data(), static_cast<int>(copied.size()), offset);
            copied.assign(copied.size(), 99);
            EXPECT_EQ(1, velCanvasDrawLine(painting, -before, 2.5f, 20, 2.5f));
            EXPECT_EQ(row, Row(painting, 2)) << style << ", offset " << offset << ", from " << before;
        }
    }
}

TEST(VelDashTest, PatternsBeyondReasonAreRefused) {
    const std::vector<float> kMany(10001, 1.0f);
    const std::pair<std::vector<float>, float> kBad[] = {{{}, 0},       {{0, 0}, 0},         {{1, -1}, 0},
                                                         {{1, NAN}, 0}, {{INFINITY, 1}, 0},  {{32768, 1}, 0},
                                                         {{1, 1}, NAN}, {{1, 1}, -INFINITY}, {kMany, 0}};
    for (const auto &[lengths, offset] : kBad) {
        ExpectRefused("pattern of " + std::to_string(lengths.size()),
                      [&, &numbers = lengths, &at = offset](velCanvas *canvas) {
                          return velCanvasSetDashPattern(canvas, numbers.data(), static_cast<int>(numbers.size()), at);
                      });
    }
    // Accepted as such, but not where too many of them would be seen.
    const struct {
        float length, line;
        int result;
    } kTries[] = {{32767, 900000, 1}, {1, 21000, 1},      {1, 1e30f, 1}, {1e-3f, 19, 1},
                  {1e-3f, 30, 0},     {1e-3f, 900000, 0}, {1e-45f, 1, 0}};
    for (const auto &[length, line, result] : kTries) {
        Painting painting;
        const float lengths[] = {length, length};
        EXPECT_EQ(1, velCanvasSetDashPattern(painting, lengths, 2, 0));
        EXPECT_EQ(1, velCanvasSetDashStyle(painting, VEL_DASH_PATTERN));
        EXPECT_EQ(result, velCanvasDrawLine(painting, 0, 5, line, 5)) << length << ' ' << line;
        EXPECT_EQ(result, velCanvasDrawLine(painting, line, 5, 0, 5)) << length << ' ' << line;
    }
}

}  // namespace
}  // namespace lacquer
