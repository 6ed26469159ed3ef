// Figures that would keep a renderer busy for long: no call takes more than moments, and what is drawn in another way
// because of that looks as ever.

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "painting.h"

namespace lacquer {
namespace {

/// How a path is drawn.
struct Manner {
    DWORD style = VEL_STYLE_FILL;
    float width = 1;
    DWORD join = VEL_JOIN_MITER, cap = VEL_CAP_BUTT;
    DWORD rule = VEL_FILL_WINDING;
    int smooth = 1;
    std::vector<float> dashes = {};
    DWORD blend = VEL_BLEND_SOURCE_OVER;
};

int Draw(velCanvas *canvas, const Manner &manner, velPath *path) {
    velCanvasSetDrawStyle(canvas, manner.style);
    velCanvasSetStrokeWidth(canvas, manner.width);
    velCanvasSetStrokeJoin(canvas, manner.join);
    velCanvasSetStrokeCap(canvas, manner.cap);
    velCanvasSetSmooth(canvas, manner.smooth);
    velCanvasSetBlendMode(canvas, manner.blend);
    velPathSetFillType(path, manner.rule);
    if (velCanvasSetDashPattern(canvas, manner.dashes.data(), static_cast<int>(manner.dashes.size()), 1)) {
        velCanvasSetDashStyle(canvas, VEL_DASH_PATTERN);
    }
    return velCanvasDrawPath(canvas, path);
}

TEST(VelDenseTest, LooksLikeWhatTheRendererDraws) {
    constexpr DWORD kStroke = VEL_STYLE_STROKE;
    const Manner manners[] = {
        {},
        {.rule = VEL_FILL_EVEN_ODD},
        {.smooth = 0},
        {.blend = VEL_BLEND_SOURCE_IN},
        {.style = VEL_STYLE_GRADIENT_FILL},
        {kStroke, 9},
        {kStroke, 9, VEL_JOIN_ROUND, VEL_CAP_ROUND},
        {kStroke, 30, VEL_JOIN_BEVEL, VEL_CAP_SQUARE},
        {kStroke, 60, VEL_JOIN_ROUND},
        {VEL_STYLE_GRADIENT_STROKE, 9},
    };
    for (const Manner &manner : manners) {
        const bool isStroke = manner.style % 3 == 0;
        // Drawn over and over, the figures enclose what they did.
        Painting once(200, 200, 0x80400010), often(200, 200, 0x80400010);
        for (const Painting *painting : {&once, &often}) {
            Path path;
            for (int i = painting == &once ? 1 : isStroke ? 2501 : 9001; i > 0; --i) {
                velPathMoveTo(path, 20, 30);
                for (const float x : {150.0f, 60.0f, 130.0f}) velPathLineTo(path, x, 170 - x / 2);
                velPathBezierCurveTo(path, 220, 110, 40, 260, -20, 90);
                velPathClose(path);
                velPathMoveTo(path, 160, 10);
                velPathLineTo(path, 175, 120);
                velPathLineTo(path, 150, 140);
                // A corner that turns the other way, and a line over it.
                velPathMoveTo(path, 40, 145);
                velPathLineTo(path, 100, 145);
                velPathLineTo(path, 100, 100);
                velPathMoveTo(path, 80, 152);
                velPathLineTo(path, 130, 152);
            }
            velCanvasTranslate(*painting, 3.25f, 7.5f);
            velCanvasClipRect(*painting, 7, 5, 180, 170);
            velCanvasSetColor(*painting, 0xFF20C040);
            UseGradient(*painting, velGradientCreateLinear(0, 0, 200, 90), {{0, 0xFFFFFFFF}, {1, 0xFF20C040}});
            ASSERT_EQ(1, Draw(*painting, manner, path));
        }
        double sum = 0;
        int distant = 0;
        for (int y = 0; y < 200; ++y) {
            for (int x = 0; x < 200; ++x) {
                const int green =
                    static_cast<int>(once.At(x, y) >> 8 & 255) - static_cast<int>(often.At(x, y) >> 8 & 255);
                sum += std::abs(green);
                distant += std::abs(green) > 20;
            }
        }
        const auto index = &manner - manners;
        EXPECT_LE(sum, 200 * 200 * 0.2) << index;
        EXPECT_GT(sum, 0) << index << " was drawn in the same way";
        EXPECT_LE(distant, manner.smooth ? 12 : 40) << index;
    }
}

TEST(VelDenseTest, NoCallTakesLong) {
    constexpr int kSide = 2000;
    constexpr DWORD kStroke = VEL_STYLE_STROKE;
    const struct {
        const char *name;
        Manner manner;
        int lines;
        double step;  ///< between points, or anywhere for 0
        int result;
    } kTries[] = {
        {"crossing lines", {}, 30000, 0, 1},
        {"not smooth", {.smooth = 0}, 30000, 0, 1},
        {"too many rows", {}, 300000, 0, 0},
        {"small steps", {}, 900000, 10, 1},
        {"too many lines", {}, 1000001, 10, 0},
        {"thin stroke", {kStroke, 1}, 30000, 0, 1},
        {"wide", {kStroke, 3000, VEL_JOIN_ROUND}, 5000, 0, 1},
        {"wide walk", {kStroke, 100, VEL_JOIN_ROUND}, 30000, 30, 1},
        {"long stroke", {kStroke, 30, VEL_JOIN_ROUND}, 900000, 10, 0},
        {"round dashes", {kStroke, 500, VEL_JOIN_MITER, VEL_CAP_ROUND, 0, 1, {1, 5}}, 40, 0, 1},
    };
    for (const auto &[name, manner, lines, step, result] : kTries) {
        Painting painting(kSide, kSide);
        Path path;
        std::mt19937 random(1);
        const auto any = [&](double range) { return range * static_cast<double>(random()) / 0x1p32; };
        double x = 1000, y = 1000;
        for (int i = 0; i <= lines; ++i) {
            x = step > 0 ? x + any(step) - step / 2 : any(kSide);
            y = step > 0 ? y + any(step) - step / 2 : any(kSide);
            velPathLineTo(path, static_cast<float>(x), static_cast<float>(y));
        }
        const PageClock clock;
        EXPECT_EQ(result, Draw(painting, manner, path)) << name;
        EXPECT_FALSE(clock.IsLong()) << name;
        EXPECT_EQ(result == 0, painting.IsEmpty()) << name;
    }
}

TEST(VelDenseTest, GradientsOfManyStopsArePaintedAtOnce) {
    constexpr int kStops = 100000;
    Painting many(512, 512), two(512, 512);
    velGradient *gradient = velGradientCreateLinear(0, 0, 512, 0);
    for (int i = 0; i < kStops; ++i) {
        const DWORD level = static_cast<DWORD>(i * 255.0 / (kStops - 1) + 0.5);
        ASSERT_EQ(1, velGradientAddColorStop(gradient, static_cast<float>(i) / (kStops - 1), 0xFF000000 | level));
    }
    EXPECT_EQ(0, velGradientAddColorStop(gradient, 1, 0)) << "one too many";
    UseGradient(many, gradient, {});
    UseGradient(two, velGradientCreateLinear(0, 0, 512, 0), {{0, 0xFF000000}, {1, 0xFF0000FF}});
    const PageClock clock;
    for (const Painting *each : {&many, &two}) {
        velCanvasSetDrawStyle(*each, VEL_STYLE_GRADIENT_FILL);
        for (int i = 0; i < 9; ++i) EXPECT_EQ(1, velCanvasDrawRectangle(*each, 0, 0, 512, 512));
    }
    EXPECT_FALSE(clock.IsLong());
    for (int x = 0; x < 512; ++x) EXPECT_NEAR(two.At(x, 7) & 255, many.At(x, 7) & 255, 1);
    // A pattern that is kept from one draw to the next has the stops that came between.
    velGradient *growing = velGradientCreateLinear(0, 0, 512, 0);
    velCanvasSetGradient(two, growing);
    velGradientAddColorStop(growing, 1, 0xFF112233);
    velCanvasDrawRectangle(two, 0, 0, 512, 512);
    EXPECT_EQ(0xFF112233, two.At(9, 9));
    velGradientAddColorStop(growing, 0.5f, 0xFF445566);
    velCanvasDrawRectangle(two, 0, 0, 512, 512);
    EXPECT_EQ(0xFF445566, two.At(9, 9));
    velGradientDestroy(growing);
}

}  // namespace
}  // namespace lacquer
