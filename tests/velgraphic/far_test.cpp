// Figures and gradients that reach far beyond what a renderer can count with: what is seen of them is where it is.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <numbers>
#include <random>

#include "painting.h"

namespace lacquer {
namespace {

/// The share of each pixel that lies inside, from 8 x 8 points, against what was drawn in an opaque colour.
template <class Inside>
void ExpectCoverage(const Painting &painting, Inside inside, const std::string &name) {
    constexpr int kSteps = 8;
    for (int y = 0; y < painting.Height(); ++y) {
        for (int x = 0; x < painting.Width(); ++x) {
            int count = 0;
            for (int i = 0; i < kSteps * kSteps; ++i) {
                count += inside(x + (i % kSteps + 0.5) / kSteps, y + (i / kSteps + 0.5) / kSteps) ? 1 : 0;
            }
            ASSERT_NEAR(255.0 * count / (kSteps * kSteps), painting.AlphaAt(x, y), 28) << name << " at " << x << ' ' << y;
        }
    }
}

int LargestDifference(const Painting &a, const Painting &b) {
    int largest = 0;
    for (int y = 0; y < a.Height(); ++y) {
        for (int x = 0; x < a.Width(); ++x) {
            largest = std::max(largest, std::abs(static_cast<int>(a.AlphaAt(x, y)) - static_cast<int>(b.AlphaAt(x, y))));
        }
    }
    return largest;
}

TEST(VelFarTest, PolygonsEncloseWhatTheyEnclose) {
    // Through points around the middle of the picture and through far ones, on lines that floats can tell exactly.
    std::mt19937 random(12);
    const auto number = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    int visible = 0;
    for (int i = 0; i < 300; ++i) {
        Painting painting(24, 24);
        Path path;
        struct {
            double x, y;
        } points[8];
        const int exponent = i % 3 == 0 ? number(30, 120) : number(16, 29);
        const size_t count = 4 + 2 * static_cast<size_t>(number(0, 2));
        const DWORD type = i % 2 ? VEL_FILL_EVEN_ODD : VEL_FILL_WINDING;
        for (size_t k = 0; k < count; k += 2) {
            const double x = std::ldexp(number(-8, 8), exponent), y = std::ldexp(number(-8, 8), exponent);
            // Beside the middle as long as the floats can tell.
            const double aside = exponent < 20 ? number(-8, 8) : 0;
            points[k] = {x + aside, y};
            points[k + 1] = {-x + aside, -y};
        }
        velCanvasTranslate(painting, 12, 12.5f);
        velPathSetFillType(path, type);
        for (size_t k = 0; k < count; ++k) {
            ASSERT_EQ(1, velPathLineTo(path, static_cast<float>(points[k].x), static_cast<float>(points[k].y)));
        }
        ASSERT_EQ(1, velCanvasDrawPath(painting, path));
        if (getenv("DBG") && i == atoi(getenv("DBG"))) { for (size_t k = 0; k < count; ++k) std::printf("%g %g\n", std::ldexp(points[k].x,-exponent), std::ldexp(points[k].y,-exponent)); for(int y=0;y<24;++y){for(int x=0;x<24;++x) std::printf("%3u ",painting.AlphaAt(x,y)); std::printf("\n");}}
        const auto winding = [&](double x, double y) {
            int turns = 0;
            for (size_t k = 0; k < count; ++k) {
                const auto &a = points[k], &b = points[(k + 1) % count];
                if ((a.y <= y) == (b.y <= y)) continue;
                const double side = a.x * b.y - a.y * b.x + y * (b.x - a.x) - x * (b.y - a.y);
                if (b.y > a.y ? side > 0 : side < 0) turns += b.y > a.y ? 1 : -1;
            }
            return turns;
        };
        ExpectCoverage(
            painting,
            [&](double x, double y) {
                const int turns = winding(x - 12, y - 12.5);
                return type == VEL_FILL_WINDING ? turns != 0 : turns % 2 != 0;
            },
            "polygon " + std::to_string(i));
        if (HasFatalFailure()) return;
        visible += !painting.IsEmpty() && painting.Area() < 576 ? 1 : 0;
    }
    EXPECT_LT(200, visible) << "the test is to show edges";
}

TEST(VelFarTest, CurvesRunWhereTheyRun) {
    for (const double radius : {9e5, 1.1e6, 7.7e6, 1e8, 3e9, 1e12}) {
        for (int degrees = 0; degrees < 360; degrees += 23) {
            // An ellipse twice as wide as high, whose edge passes near the middle; the centre is what a float can be.
            const double angle = degrees * std::numbers::pi / 180;
            const auto x = static_cast<float>(16 - 2 * radius * std::cos(angle)),
                       y = static_cast<float>(16 - radius * std::sin(angle));
            const auto high = static_cast<float>(std::hypot((16 - x) / 2, 16.0 - y));
            Painting painting, pie;
            const auto isInside = [&](double px, double py) {
                // r1^2 - r2^2 = (r1 - r2) (r1 + r2), with the digits kept
                return std::hypot((px - x) / 2, py - y) <= high;
            };
            ASSERT_EQ(1, velCanvasDrawEllipse(painting, x, y, 2 * high, high));
            // Coordinates of 1e12 pixels have digits for 1e-4 pixels.
            if (radius < 1e6) continue;
            ExpectCoverage(painting, isInside, "ellipse " + std::to_string(radius) + " " + std::to_string(degrees));
            if (HasFatalFailure()) return;
        }
    }
    // A parabola: y = x^2 / 16, from -2^k to 2^k.
    for (const int exponent : {21, 30, 40, 60}) {
        Painting painting;
        Path path;
        const float end = std::ldexp(1.0f, exponent), height = std::ldexp(1.0f, 2 * exponent - 4);
        velCanvasTranslate(painting, 16, 5);
        velPathMoveTo(path, -end, height);
        velPathQuadraticCurveTo(path, 0, -height, end, height);
        ASSERT_EQ(1, velCanvasDrawPath(painting, path));
        const auto isInside = [](double x, double y) { return y - 5 >= (x - 16) * (x - 16) / 16; };
        ExpectCoverage(painting, isInside, "parabola " + std::to_string(exponent));
    }
    // Pies around the middle, and bounds.
    for (const float radius : {2e6f, 1e20f, FLT_MAX / 4}) {
        Painting painting;
        velCanvasTranslate(painting, 16, 16);
        ASSERT_EQ(1, velCanvasDrawArc(painting, -radius, -radius, 2 * radius, 2 * radius, 45, 180, 1));
        ExpectCoverage(painting, [](double x, double y) { return x - 16 < y - 16; }, "pie");
        Path path;
        ASSERT_EQ(1, velPathAddEllipse(path, 0, radius, radius, radius / 2));
        EXPECT_FLOAT_EQ(-radius, path.Bounds().left);
        EXPECT_FLOAT_EQ(radius * 1.5f, path.Bounds().bottom);
    }
}

TEST(VelFarTest, TranslationsMayBeAsFarAway) {
    for (const float far : {3e6f, 1e15f, 1e20f, FLT_MAX}) {
        Painting painting;
        velCanvasTranslate(painting, far, 0);
        velCanvasTranslate(painting, 0, -far);
        ASSERT_EQ(1, velCanvasDrawRectangle(painting, -far, far, far / 4, far / 4));
        EXPECT_EQ(1024.0, painting.Area()) << far;
        velCanvasTranslate(painting, 16, 8);
        painting.Fill(0);
        ASSERT_EQ(1, velCanvasDrawRectangle(painting, -far, far, far / 4, far / 4));
        if (far < 1e16f) ExpectBox(painting, {16, 8, 32, 32});
    }
}

/// What a stroke or a fill looks like with one of a few settings.
void Prepare(const Painting &painting, DWORD kind) {
    constexpr float kPattern[] = {7, 3, 0, 5, 4};
    velCanvasSetDrawStyle(painting, kind % 4 == 3 ? VEL_STYLE_FILL : VEL_STYLE_STROKE);
    velCanvasSetStrokeCap(painting, kind % 3);
    velCanvasSetStrokeJoin(painting, kind / 3 % 3);
    velCanvasSetStrokeWidth(painting, kind % 2 ? 6.5f : 2);
    velCanvasSetDashPattern(painting, kPattern, 5, static_cast<float>(kind));
    velCanvasSetDashStyle(painting, kind / 4 % 6);
    velCanvasSetSmooth(painting, kind % 7 != 0);
    if (kind % 11 == 10) velCanvasSetBlendMode(painting, VEL_BLEND_DESTINATION_IN);
}

TEST(VelFarTest, AFarFigureBesideItChangesNoFigure) {
    std::mt19937 random(34);
    const auto number = [&] { return std::uniform_real_distribution<float>(-8, 72)(random); };
    int most = 0;
    for (DWORD kind = 0; kind < 600; ++kind) {
        Painting near(64, 64, 0xFF000000), far(64, 64, 0xFF000000);
        Path path;
        velPathSetFillType(path, kind / 2 % 2);
        for (DWORD i = 0; i <= kind % 5; ++i) {
            if (i % 3 != 1) velPathMoveTo(path, number(), number());
            velPathLineTo(path, number(), number());
            if (kind % 4 < 2) velPathBezierCurveTo(path, number(), number(), number(), number(), number(), number());
            if (kind % 8 == 1) velPathAddEllipse(path, number(), number(), 25, 9);
            if (kind % 3) velPathLineTo(path, number(), number());
            if (kind / 3 % 2) velPathClose(path);
        }
        for (const Painting *each : {&near, &far}) {
            Prepare(*each, kind);
            velCanvasSetColor(*each, 0x80FFFFFF);
            velCanvasSetBlendMode(*each, kind % 11 == 10 ? VEL_BLEND_SOURCE_IN : VEL_BLEND_SOURCE);
            ASSERT_EQ(1, velCanvasDrawPath(*each, path));
            velPathAddRectangle(path, -4e9f, 3e6f, 8e9f, 1e9f);
        }
        const int d = LargestDifference(near, far);
        if (d > 1) std::printf("kind %u style %u dash %u cap %u join %u : %d\n", kind, kind%4, kind/4%6, kind%3,kind/3%3, d);
        most = std::max(most, d);
    }
    EXPECT_LE(most, 3);
}

}  // namespace
}  // namespace lacquer
