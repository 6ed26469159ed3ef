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

/// How many pixels differ in their alpha by more than `tolerance`.
int Differing(const Painting &a, const Painting &b, int tolerance) {
    int count = 0;
    for (size_t i = 0; i < a.Pixels().size(); ++i) {
        const auto difference = static_cast<int>(a.Pixels()[i] >> 24) - static_cast<int>(b.Pixels()[i] >> 24);
        count += std::abs(difference) > tolerance;
    }
    return count;
}

TEST(VelFarTest, PolygonsEncloseWhatTheyEnclose) {
    // Through points around the middle of the picture and through far ones, on lines that floats can tell exactly.
    std::mt19937 random(12);
    const auto number = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    int visible = 0;
    for (int i = 0; i < 300; ++i) {
        SCOPED_TRACE(i);
        std::vector<std::pair<double, double>> points;
        const int exponent = i % 3 == 0 ? number(30, 120) : number(16, 29);
        for (int k = number(2, 4); k > 0; --k) {
            const double x = std::ldexp(number(-8, 8), exponent), y = std::ldexp(number(-8, 8), exponent);
            // Beside the middle as long as the floats can tell.
            const double aside = exponent < 20 ? number(-8, 8) : 0;
            points.insert(points.end(), {{x + aside, y}, {-x + aside, -y}});
        }
        Painting painting(24, 24);
        Path path;
        velCanvasTranslate(painting, 12, 12.5f);
        velPathSetFillType(path, i % 2 ? VEL_FILL_EVEN_ODD : VEL_FILL_WINDING);
        for (const auto &[x, y] : points) velPathLineTo(path, static_cast<float>(x), static_cast<float>(y));
        ASSERT_EQ(1, velCanvasDrawPath(painting, path));
        ExpectCoverage(painting, [&](double pixelX, double pixelY) {
            const double x = pixelX - 12, y = pixelY - 12.5;
            int turns = 0;
            for (size_t k = 0; k < points.size(); ++k) {
                const auto &[ax, ay] = points[k];
                const auto &[bx, by] = points[(k + 1) % points.size()];
                if ((ay <= y) == (by <= y)) continue;
                const double side = ax * by - ay * bx + y * (bx - ax) - x * (by - ay);
                if (by > ay ? side > 0 : side < 0) turns += by > ay ? 1 : -1;
            }
            return i % 2 ? turns % 2 != 0 : turns != 0;
        });
        if (HasFatalFailure()) return;
        visible += !painting.IsEmpty() && painting.Area() < 576;
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
    // A parabola: y = x^2 / 16, from -2^k to 2^k.
    for (const int exponent : {21, 23, 25}) {
        Painting painting;
        Path path;
        const float end = std::ldexp(1.0f, exponent), height = std::ldexp(1.0f, 2 * exponent - 4);
        velCanvasTranslate(painting, 16, 5);
        velPathMoveTo(path, -end, height);
        velPathQuadraticCurveTo(path, 0, -height, end, height);
        ASSERT_EQ(1, velCanvasDrawPath(painting, path));
        ExpectCoverage(painting, [](double x, double y) { return y - 5 >= (x - 16) * (x - 16) / 16; });
    }
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
        // A loop with a sharp turn, and back.
        double length = 0, x = 0, y = 0;
        for (int i = 1; i <= 2000000; ++i) {
            const double t = i / 2e6, u = 3 * t * (1 - t);
            const double nextX = double{-3 * size} * u * (1 - t) - double{size} * u * t,
                         nextY = double{9 * size} * u * (1 - 2 * t);
            length += std::hypot(nextX - x, nextY - y);
            x = nextX;
            y = nextY;
        }
        expectDashes("loop", length, -14, 1, [=](velCanvas *canvas) {
            Path path;
            velPathMoveTo(path, -30, 0);
            velPathBezierCurveTo(path, -30 - 3 * size, 9 * size, -30 - size, -9 * size, -30, 0);
            velPathLineTo(path, 30, 0);
            return velCanvasDrawPath(canvas, path);
        });
    }
}

using Stops = std::vector<std::pair<float, DWORD>>;

/// The channels of sorted stops at `t`, premultiplied, 0 to 255.
std::array<double, 4> ColourAt(const Stops &stops, double t) {
    size_t next = 0;
    while (next < stops.size() && stops[next].first <= t) ++next;
    const auto &[low, from] = stops[next == 0 ? 0 : next - 1];
    const auto &[high, to] = stops[next == stops.size() ? next - 1 : next];
    const double s = low < high ? (t - low) / (double{high} - low) : 0;
    std::array<double, 4> colour{};
    for (size_t i = 4; i-- > 0;) {
        const auto channel = [i](DWORD word) { return static_cast<double>(word >> 8 * i & 0xFF); };
        colour[i] = channel(from) + s * (channel(to) - channel(from));
        if (i < 3) colour[i] *= colour[3] / 255;
    }
    return colour;
}

/// Colours may lie 0.01 pixels beside their place: at a sharp edge the one or the other is right.
template <class PlaceOf>
void ExpectColours(const Painting &painting, const Stops &stops, PlaceOf placeOf) {
    constexpr double kAside = 0.01;
    for (int y = 0; y < painting.Height(); ++y) {
        for (int x = 0; x < painting.Width(); ++x) {
            std::array<double, 4> low{255, 255, 255, 255}, high{};
            for (const auto &[dx, dy] : {std::pair{-1, -1}, {-1, 1}, {1, -1}, {1, 1}}) {
                const auto colour = ColourAt(stops, placeOf(x + 0.5 + dx * kAside, y + 0.5 + dy * kAside));
                for (size_t k = 0; k < 4; ++k) {
                    low[k] = std::min(low[k], colour[k]);
                    high[k] = std::max(high[k], colour[k]);
                }
            }
            for (size_t k = 0; k < 4; ++k) {
                const double channel = painting.At(x, y) >> 8 * k & 0xFF;
                ASSERT_GE(channel, low[k] - 1) << "channel " << k << " at " << x << ' ' << y;
                ASSERT_LE(channel, high[k] + 1) << "channel " << k << " at " << x << ' ' << y;
            }
        }
    }
}

TEST(VelFarTest, GradientsHaveTheirColours) {
    std::mt19937 random(56);
    const auto number = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
    const auto word = [&] { return static_cast<DWORD>(random()); };
    int plain = 0;
    for (int i = 0; i < 480; ++i) {
        // From a point far away, or near the picture in one direction, to one on the other side; most with colours that
        // change in sight, as far as floats can say where.
        const double reach = std::pow(10.0, number(4.6, i % 8 < 6 ? 7.2 : 36));
        const auto coordinate = [&](bool isFar) {
            return static_cast<float>(isFar ? (random() % 2 ? reach : -reach) * number(0.5, 1) : number(0, 40));
        };
        const float x0 = coordinate(i % 3), y0 = coordinate(i % 5 || i % 3 == 0);
        const float x1 = x0 * static_cast<float>(-number(0.5, 2)), y1 = y0 * static_cast<float>(-number(0.5, 2));
        const double dx = double{x1} - x0, dy = double{y1} - y0, squared = dx * dx + dy * dy;
        const auto radius = static_cast<float>(std::hypot(x0, y0) * number(0.9, 2));
        const bool isRadial = i % 2;
        const auto at = [&](double x, double y) {
            return isRadial ? std::hypot(x - x0, y - y0) / radius : (dx * (x - x0) + dy * (y - y0)) / squared;
        };
        Stops stops{{0.0f, word()}, {1.0f, word()}};
        for (int k = i % 7 == 0 ? 4 : 0; k < 2 + i % 3; ++k) {
            const double offset = i % 16 < 13 ? at(number(0, 48), number(0, 40)) : number(0, 1);
            stops.emplace_back(static_cast<float>(std::clamp(offset, 0.0, 1.0)), word());
        }
        Painting painting(48, 40);
        velGradient *gradient =
            isRadial ? velGradientCreateRadial(x0, y0, radius) : velGradientCreateLinear(x0, y0, x1, y1);
        for (const auto &[offset, colour] : stops) EXPECT_EQ(1, velGradientAddColorStop(gradient, offset, colour));
        UseGradient(painting, gradient, {});
        std::ranges::stable_sort(stops, {}, &std::pair<float, DWORD>::first);
        velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_FILL);
        ASSERT_EQ(1, velCanvasDrawRectangle(painting, -1e9f, -1e9f, 2e9f, 2e9f));
        plain += std::ranges::count(painting.Pixels(), painting.At(0, 0)) == 48 * 40;
        SCOPED_TRACE(testing::Message() << i << ": " << x0 << ' ' << y0 << ' ' << x1 << ' ' << y1);
        ExpectColours(painting, stops, at);
        if (HasFatalFailure()) return;
    }
    EXPECT_GT(240, plain) << "the test is to show colours";
    // A stroke has its colours up to its edges.
    Painting graded, black;
    UseGradient(graded, velGradientCreateLinear(-1e6f, 0, 1000032, 0), {{0.5f, 0xFFFF0000}, {0.5f, 0xFF0000FF}});
    for (const Painting *each : {&graded, &black}) {
        velCanvasSetDrawStyle(*each, each == &graded ? VEL_STYLE_GRADIENT_STROKE : VEL_STYLE_STROKE);
        velCanvasSetStrokeWidth(*each, 10);
        ASSERT_EQ(1, velCanvasDrawLine(*each, 4, 16, 28, 16));
    }
    EXPECT_EQ(0, Differing(graded, black, 1));
}

TEST(VelFarTest, PicturesAreTheSameOnEverySystem) {
    Painting painting(96, 96, 0xFFFFFFFF);
    const float pattern[] = {9, 4, 2, 4};
    velCanvasSetDashPattern(painting, pattern, 4, 3);
    velCanvasTranslate(painting, 48, 48);
    for (int i = 0; i < 7; ++i) {
        const float size = std::ldexp(1.0f, 16 + 6 * i), shift = static_cast<float>(12 * i - 36);
        UseGradient(painting, velGradientCreateRadial(size, shift, size),
                    {{0.9f, 0x00FF0000}, {1 - 16 / size, 0xA0FF2010}, {1, 0xC01040FF}});
        velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_FILL);
        velCanvasDrawRectangle(painting, -size, shift, 2 * size, 5);
        velCanvasSetColor(painting, 0x60107040);
        velCanvasSetDrawStyle(painting, VEL_STYLE_FILL);
        velCanvasDrawCircle(painting, -0.6f * size + shift, 0.8f * size, size);
        velCanvasSetDrawStyle(painting, VEL_STYLE_STROKE);
        velCanvasSetStrokeCap(painting, static_cast<DWORD>(i % 3));
        velCanvasSetStrokeWidth(painting, 2.5f);
        velCanvasSetDashStyle(painting, static_cast<DWORD>(i % 6));
        velCanvasDrawArc(painting, shift, -size, 3 * size, 2 * size, 90, 270, 1);
        velCanvasDrawLine(painting, -size, shift - size / 3, size, shift + size / 3);
    }
    ExpectDigest(painting, "far", 0x9233e42822c40bdf);
}

}  // namespace
}  // namespace lacquer
