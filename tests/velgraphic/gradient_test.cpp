// Gradients: their colours, their owners, and opacity.

#include <gtest/gtest.h>

#include <cmath>

#include "painting.h"

namespace lacquer {
namespace {

/// Draws the whole painting with the gradient, which is given up before.
void Paint(Painting &painting, velGradient *gradient) {
    EXPECT_EQ(1, velCanvasSetGradient(painting, gradient));
    EXPECT_EQ(1, velGradientDestroy(gradient));
    EXPECT_EQ(1, velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_FILL));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 0, 0, static_cast<float>(painting.Width()),
                                        static_cast<float>(painting.Height())));
}

TEST(VelGradientTest, LinearColoursFollowTheLine) {
    Painting painting(64, 4);
    velGradient *gradient = velGradientCreateLinear(16, 0, 48, 0);
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 0, 0xFF000000));
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 1, 0xFFFF8000));
    Paint(painting, gradient);
    for (int x = 0; x < 64; ++x) {
        const double t = std::clamp((x + 0.5 - 16) / 32, 0.0, 1.0);
        EXPECT_NEAR(255 * t, painting.At(x, 2) >> 16 & 0xFF, 2) << x;
        EXPECT_NEAR(128 * t, painting.At(x, 2) >> 8 & 0xFF, 2) << x;
        EXPECT_EQ(painting.At(x, 0), painting.At(x, 3));
    }
}

TEST(VelGradientTest, RadialColoursFollowTheDistance) {
    Painting painting(41, 41);
    velGradient *gradient = velGradientCreateRadial(20.5f, 20.5f, 20);
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 0, 0xFFFFFFFF));
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 1, 0xFF000000));
    Paint(painting, gradient);
    for (int y = 0; y < 41; ++y) {
        for (int x = 0; x < 41; ++x) {
            const double t = std::min(1.0, std::hypot(x - 20, y - 20) / 20);
            EXPECT_NEAR(255 * (1 - t), painting.At(x, y) & 0xFF, 3) << x << ' ' << y;
        }
    }
}

TEST(VelGradientTest, MovesWithTheTranslationAndScalesWithTheBlendValue) {
    Painting still(32, 4), moved(32, 4);
    for (Painting *painting : {&still, &moved}) {
        const float shift = painting == &moved ? 7 : 0;
        EXPECT_EQ(1, velCanvasTranslate(*painting, shift, 0));
        EXPECT_EQ(1, velCanvasSetBlendValue(*painting, 51));
        velGradient *gradient = velGradientCreateLinear(4 - shift, 0, 28 - shift, 0);
        EXPECT_EQ(1, velGradientAddColorStop(gradient, 0, 0xFFFFFFFF));
        EXPECT_EQ(1, velGradientAddColorStop(gradient, 1, 0x80FFFFFF));
        EXPECT_EQ(1, velCanvasSetGradient(*painting, gradient));
        EXPECT_EQ(1, velGradientDestroy(gradient));
        EXPECT_EQ(1, velCanvasSetDrawStyle(*painting, VEL_STYLE_GRADIENT_FILL));
        EXPECT_EQ(1, velCanvasDrawRectangle(*painting, -shift, 0, 32, 4));
    }
    EXPECT_EQ(still.Pixels(), moved.Pixels());
    EXPECT_NEAR(51, still.AlphaAt(1, 1), 1);
    EXPECT_NEAR(51.0 * 128 / 255, still.AlphaAt(30, 1), 1);
}

TEST(VelGradientTest, TwoStopsAtOnePlaceAreAnEdge) {
    Painting painting(10, 2);
    velGradient *gradient = velGradientCreateLinear(0, 0, 10, 0);
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 0, 0xFFFF0000));
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 0.5f, 0xFFFF0000));
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 0.5f, 0xFF0000FF));
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 1, 0xFF0000FF));
    Paint(painting, gradient);
    EXPECT_EQ(0xFFFF0000u, painting.At(4, 0));
    EXPECT_EQ(0xFF0000FFu, painting.At(5, 0));
}

TEST(VelGradientTest, LivesAsLongAsAnyCanvasOrStateHasIt) {
    Painting first(4, 4), second(4, 4);
    velGradient *gradient = velGradientCreateLinear(0, 0, 4, 0);
    EXPECT_EQ(1, velCanvasSetGradient(first, gradient));
    EXPECT_EQ(1, velCanvasSetGradient(first, gradient));
    EXPECT_EQ(1, velCanvasSetGradient(second, gradient));
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 0, 0xFF00FF00));  // shows although it came later
    EXPECT_EQ(1, velGradientDestroy(gradient));
    EXPECT_EQ(1, velCanvasSave(first));
    Paint(first, velGradientCreateRadial(1, 1, 1));  // without stops: nothing
    EXPECT_TRUE(first.IsEmpty());
    EXPECT_EQ(1, velCanvasRestore(first));
    for (Painting *painting : {&first, &second}) {
        EXPECT_EQ(1, velCanvasSetDrawStyle(*painting, VEL_STYLE_GRADIENT_FILL));
        EXPECT_EQ(1, velCanvasDrawRectangle(*painting, 0, 0, 4, 4));
        EXPECT_EQ(0xFF00FF00u, painting->At(2, 2));
    }
}

TEST(VelGradientTest, DrawsWhenItHasNoExtent) {
    Painting painting(4, 4);
    velGradient *gradient = velGradientCreateLinear(2, 2, 2, 2);
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 0, 0xFF00FF00));
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 1, 0xFF00FF00));
    Paint(painting, gradient);
    EXPECT_EQ(1, velCanvasSetDrawStyle(painting, VEL_STYLE_FILL));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 0, 0, 4, 4));
    EXPECT_EQ(0xFF000000u, painting.At(2, 2));
}

TEST(VelGradientTest, RefusesWhatIsNoGradient) {
    EXPECT_EQ(nullptr, velGradientCreateLinear(NAN, 0, 1, 1));
    EXPECT_EQ(nullptr, velGradientCreateLinear(0, 0, 1, INFINITY));
    EXPECT_EQ(nullptr, velGradientCreateRadial(0, 0, 0));
    EXPECT_EQ(nullptr, velGradientCreateRadial(0, 0, -1));
    EXPECT_EQ(nullptr, velGradientCreateRadial(0, NAN, 1));
    velGradient *gradient = velGradientCreateLinear(0, 0, 1, 1);
    for (const float offset : {-0.1f, 1.1f, NAN, INFINITY}) EXPECT_EQ(0, velGradientAddColorStop(gradient, offset, 0));
    velGradientDestroy(gradient);
    ExpectRefused("no gradient set", [](velCanvas *canvas) {
        EXPECT_EQ(1, velCanvasSetDrawStyle(canvas, VEL_STYLE_GRADIENT_FILL));
        const int result = velCanvasDrawRectangle(canvas, 0, 0, 9, 9);
        EXPECT_EQ(1, velCanvasSetDrawStyle(canvas, VEL_STYLE_FILL));
        return result;
    });
    ExpectRefused("gradient too far away", [](velCanvas *canvas) {
        velGradient *distant = velGradientCreateLinear(0, 0, 1e30f, 0);
        EXPECT_EQ(1, velCanvasSetGradient(canvas, distant));
        velGradientDestroy(distant);
        EXPECT_EQ(1, velCanvasSetDrawStyle(canvas, VEL_STYLE_GRADIENT_STROKE));
        const int result = velCanvasDrawLine(canvas, 0, 0, 9, 9);
        EXPECT_EQ(1, velCanvasSetDrawStyle(canvas, VEL_STYLE_FILL));
        return result;
    });
}

}  // namespace
}  // namespace lacquer
