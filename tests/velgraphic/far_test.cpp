// Figures and gradients that reach far beyond what a renderer can count with: what is seen of them is where it is. That
// it is the same on every system, the fuzzer shows.

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <numbers>
#include <random>

#include "painting.h"

namespace lacquer {
namespace {

constexpr DWORD kColours[] = {0xFFFF0000, 0x4000FF20, 0xFF2000FF};

/// The share of each pixel that lies inside, from 8 x 8 points, against what was drawn in an opaque colour.
template <class Inside>
void ExpectCoverage(const Painting &painting, Inside inside) {
    constexpr int kSteps = 8;
    for (int y = 0; y < painting.Height(); ++y) {
        for (int x = 0; x < painting.Width(); ++x) {
            int count = 0;
            for (int i = 0; i < kSteps * kSteps; ++i) {
                count += inside(x + (i % kSteps + 0.5) / kSteps, y + (i / kSteps + 0.5) / kSteps) ? 1 : 0;
            }
            ASSERT_NEAR(255.0 * count / (kSteps * kSteps), painting.AlphaAt(x, y), 28) << "at " << x << ' ' << y;
        }
    }
}

TEST(VelFarTest, PolygonsOfAnySizeLookAlike) {
    // Each edge runs through the middle of the picture, or passes it far away.
    std::mt19937 random(12);
    const auto number = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    int visible = 0;
    for (int i = 0; i < 300; ++i) {
        Painting close(24, 24), distant(24, 24);
        Path nearPath, farPath;
        const int exponent = number(16, i % 3 == 0 ? 120 : 29);
        for (int k = number(2, 4); k > 0; --k) {
            const auto x = static_cast<float>(number(-8, 8)), y = static_cast<float>(number(-8, 8));
            for (const float sign : {1.0f, -1.0f}) {
                velPathLineTo(nearPath, std::ldexp(sign * x, 10), std::ldexp(sign * y, 10));
                velPathLineTo(farPath, std::ldexp(sign * x, exponent), std::ldexp(sign * y, exponent));
            }
        }
        for (const auto &[painting, path] : {std::pair{&close, &nearPath}, {&distant, &farPath}}) {
            velCanvasTranslate(*painting, 12, 12.5f);
            velPathSetFillType(*path, i % 2 ? VEL_FILL_EVEN_ODD : VEL_FILL_WINDING);
            ASSERT_EQ(1, velCanvasDrawPath(*painting, *path));
        }
        EXPECT_EQ(0, Differing(close, distant, 28)) << i << ": " << exponent;
        visible += !close.IsEmpty() && close.Area() < 576;
    }
    EXPECT_LT(200, visible) << "the test is to show edges";
}

TEST(VelFarTest, CurvesRunWhereTheyRun) {
    // Ellipses twice as wide as high, whose edges pass near the middle; the centre is what a float can be. Coordinates
    // of 1e12 pixels have digits for 1e-4 pixels.
    for (const double radius : {1.1e6, 7.7e6, 1e8, 3e9, 1e12}) {
        for (int degrees = 0; degrees < 360; degrees += 23) {
            const double angle = degrees * std::numbers::pi / 180;
            const auto x = static_cast<float>(16 - 2 * radius * std::cos(angle)),
                       y = static_cast<float>(16 - radius * std::sin(angle));
            const auto high = static_cast<float>(std::hypot((16 - x) / 2, 16.0 - y));
            Painting painting;
            ASSERT_EQ(1, velCanvasDrawEllipse(painting, x, y, 2 * high, high));
            SCOPED_TRACE(testing::Message() << radius << ' ' << degrees);
            ExpectCoverage(painting, [&](double px, double py) { return std::hypot((px - x) / 2, py - y) <= high; });
            if (HasFatalFailure()) return;
        }
    }
    // A circle through the middle whose numbers are exact.
    Painting circle;
    velCanvasTranslate(circle, 16, 16);
    ASSERT_EQ(1, velCanvasDrawCircle(circle, -0x3p42f, -0x4p42f, 0x5p42f));
    ExpectCoverage(circle, [](double x, double y) { return 3 * (x - 16) + 4 * (y - 16) <= 0; });
    // Pies around the middle, and bounds.
    for (const float radius : {2e6f, 1e20f, FLT_MAX / 4}) {
        Painting painting;
        velCanvasTranslate(painting, 16, 16);
        ASSERT_EQ(1, velCanvasDrawArc(painting, -radius, -radius, 2 * radius, 2 * radius, 45, 180, 1));
        ExpectCoverage(painting, [](double x, double y) { return x < y; });
        Path path;
        ASSERT_EQ(1, velPathAddEllipse(path, 0, radius, radius, radius / 2));
        EXPECT_FLOAT_EQ(-radius, path.Bounds().left);
        EXPECT_FLOAT_EQ(radius * 1.5f, path.Bounds().bottom);
    }
    Path path;
    EXPECT_EQ(1, velPathAddRectangle(path, FLT_MAX, 0, FLT_MAX, 0));
    EXPECT_EQ(FLT_MAX, path.Bounds().right);
}

TEST(VelFarTest, TranslationsMayBeAsFarAway) {
    for (const float distant : {3e6f, 1e15f, 1e20f, FLT_MAX}) {
        Painting painting;
        velCanvasTranslate(painting, distant, 0);
        velCanvasTranslate(painting, 0, -distant);
        ASSERT_EQ(1, velCanvasDrawRectangle(painting, -distant, distant, distant / 4, distant / 4));
        EXPECT_EQ(1024.0, painting.Area()) << distant;
        velCanvasTranslate(painting, 16, 8);
        painting.Fill(0);
        ASSERT_EQ(1, velCanvasDrawRectangle(painting, -distant, distant, distant / 4, distant / 4));
        if (distant < 1e16f) ExpectBox(painting, {16, 8, 32, 32});
    }
}

/// Sets one of many combinations of style, cap, join, width and dashes. The pattern is 10 pixels long.
void Prepare(const Painting &painting, DWORD kind) {
    constexpr float kPattern[] = {4, 3, 0, 1, 2, 0};
    velCanvasSetDrawStyle(painting, kind % 4 == 3 ? VEL_STYLE_FILL : VEL_STYLE_STROKE);
    velCanvasSetStrokeCap(painting, kind % 3);
    velCanvasSetStrokeJoin(painting, kind / 3 % 3);
    velCanvasSetStrokeWidth(painting, kind % 2 ? 6.25f : 2.5f);
    velCanvasSetDashPattern(painting, kPattern, 6, 1.37f * static_cast<float>(kind));
    velCanvasSetDashStyle(painting, kind / 4 % 6);
    velCanvasSetColor(painting, 0x80FFFFFF);
    velCanvasSetBlendMode(painting, kind % 11 == 10 ? VEL_BLEND_SOURCE_IN : VEL_BLEND_SOURCE);
}

TEST(VelFarTest, AFarFigureBesideItChangesNoFigure) {
    std::mt19937 random(34);
    const auto number = [&] { return std::uniform_real_distribution<float>(-8, 72)(random); };
    for (DWORD kind = 0; kind < 600; ++kind) {
        Painting close(64, 64, 0xFF000000), distant(64, 64, 0xFF000000);
        // Along curves the renderer's own dashes are a little off, and it joins them to lines in its own way.
        const bool isDashed = kind % 4 != 3 && kind / 4 % 6 != 0;
        Path path;
        velPathSetFillType(path, kind / 2 % 2);
        for (DWORD i = 0; i <= kind % 5; ++i) {
            if (i % 3 != 1) velPathMoveTo(path, number(), number());
            velPathLineTo(path, number(), number());
            if (!isDashed) velPathBezierCurveTo(path, number(), number(), number(), number(), number(), number());
            if (!isDashed && i == 1) velPathAddEllipse(path, number(), number(), 25, 9);
            if (kind % 3) velPathLineTo(path, number(), number());
            if (kind / (isDashed ? 3 : 24) % 2) velPathClose(path);
        }
        for (const Painting *each : {&close, &distant}) {
            Prepare(*each, kind);
            velCanvasSetSmooth(*each, kind % 7 != 0 || kind % 4 != 3);
            ASSERT_EQ(1, velCanvasDrawPath(*each, path));
            velPathAddRectangle(path, -4e9f, 3e6f, 8e9f, 1e9f);
        }
        // A last digit decides whether a dash that ends at a corner is mitred.
        EXPECT_LE(Differing(close, distant, 10), isDashed ? 12 : 0) << kind;
    }
}

TEST(VelFarTest, MitresAreSeenWhereTheirCornersAreNot) {
    Painting painting;
    Path path;
    for (const float y : {-4e6f, 0.0f, 4e6f}) velPathLineTo(path, y == 0 ? 0 : -2e7f, y);
    velCanvasTranslate(painting, -6, 16);
    velCanvasSetDrawStyle(painting, VEL_STYLE_STROKE);
    velCanvasSetStrokeWidth(painting, 4);
    ASSERT_EQ(1, velCanvasDrawPath(painting, path));
    EXPECT_NEAR(4, painting.Box().right, 1);
}

TEST(VelFarTest, DashesGoOnBehindWhatIsNotSeen) {
    constexpr float kPattern[] = {6, 4};
    // Draws a stroke that crosses the picture from left to right in the end, or from right to left, and comes to its
    // left edge, or its middle, after `length` pixels.
    const auto expectDashes = [&](const char *name, double length, int middle, int direction, const auto &draw) {
        Painting painting;
        velCanvasTranslate(painting, 16, 16);
        velCanvasSetStrokeWidth(painting, 7);
        velCanvasSetDrawStyle(painting, VEL_STYLE_STROKE);
        velCanvasSetDashPattern(painting, kPattern, 2, 1);
        velCanvasSetDashStyle(painting, VEL_DASH_PATTERN);
        ASSERT_EQ(1, draw(painting));
        for (int x = 0; x < painting.Width(); ++x) {
            double share = 0;
            for (double part = 1.0 / 64; part < 1; part += 1.0 / 32) {
                share += std::fmod(1 + length + direction * (x + part - middle), 10) < 6 ? 1.0 / 32 : 0;
            }
            EXPECT_NEAR(255 * share, painting.AlphaAt(x, 15), 20) << name << ' ' << length << ' ' << x;
        }
    };
    for (const float radius : {20000.0f, 2e6f, 3e7f, 1e9f}) {
        // It begins on the right and comes to its lowest point, in the middle of the picture, from there.
        expectDashes("circle", static_cast<double>(radius) * std::numbers::pi / 2, 16, -1,
                     [=](velCanvas *canvas) { return velCanvasDrawCircle(canvas, 0, -radius, radius); });
    }
    for (const float size : {1e5f, 4e6f}) {
        // Out and back along the same line: the turn, at a third of the parameter, is as sharp as it can be.
        expectDashes("turn", 8.0 / 9 * size, -14, 1, [=](velCanvas *canvas) {
            Path path;
            velPathMoveTo(path, -30, 0);
            velPathBezierCurveTo(path, -30 - size, 0, -30, 0, -30, 0);
            velPathLineTo(path, 30, 0);
            return velCanvasDrawPath(canvas, path);
        });
    }
}

TEST(VelFarTest, GradientsHaveTheColoursOfNearOnes) {
    for (const double reach : {5e4, 3e5, 4e6}) {
        for (int i = 0; i < 48; ++i) {
            // From a point far away through the middle of the picture, as exact as floats are.
            const double dx = std::cos(i * std::numbers::pi / 24), dy = std::sin(i * std::numbers::pi / 24);
            const auto x = static_cast<float>(24 - reach * dx), y = static_cast<float>(20 - reach * dy);
            const auto length = static_cast<float>(1.5 * reach);
            const auto endX = static_cast<float>(x + length * dx), endY = static_cast<float>(y + length * dy);
            double distances[3];
            Painting close(48, 40), distant(48, 40);
            velGradient *gradient =
                i % 2 ? velGradientCreateRadial(x, y, length) : velGradientCreateLinear(x, y, endX, endY);
            for (int k = 0; k < 3; ++k) {
                const auto offset = static_cast<float>((reach + 16 * (k - 1)) / length);
                velGradientAddColorStop(gradient, offset, kColours[k]);
                distances[k] =
                    i % 2 ? double{offset} * length : offset * std::hypot(double{endX} - x, double{endY} - y);
            }
            UseGradient(distant, gradient, {});
            const auto [low, middle, high] = distances;
            UseGradient(
                close,
                velGradientCreateLinear(static_cast<float>(x + low * dx), static_cast<float>(y + low * dy),
                                        static_cast<float>(x + high * dx), static_cast<float>(y + high * dy)),
                {{0, kColours[0]}, {static_cast<float>((middle - low) / (high - low)), kColours[1]}, {1, kColours[2]}});
            for (const Painting *each : {&close, &distant}) {
                velCanvasSetDrawStyle(*each, VEL_STYLE_GRADIENT_FILL);
                ASSERT_EQ(1, velCanvasDrawRectangle(*each, -1e9f, -1e9f, 2e9f, 2e9f));
            }
            EXPECT_EQ(0, Differing(close, distant, 2)) << reach << ' ' << i;
        }
    }
    // A stroke has its colours up to its edges.
    Painting graded, black;
    UseGradient(graded, velGradientCreateLinear(-1e6f, 0, 1000032, 0), {{0.5f, 0xFFFF0000}, {0.5f, 0xFF0000FF}});
    for (const Painting *each : {&graded, &black}) {
        velCanvasSetDrawStyle(*each, each == &graded ? VEL_STYLE_GRADIENT_STROKE : VEL_STYLE_STROKE);
        velCanvasSetStrokeWidth(*each, 10);
        ASSERT_EQ(1, velCanvasDrawLine(*each, 4, 16, 28, 16));
    }
    EXPECT_EQ(0, Differing(graded, black, 1, 0xFF000000));
}

}  // namespace
}  // namespace lacquer
