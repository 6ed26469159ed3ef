// Gradients: colours, owners, and what is none. The pictures have more of their looks.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "painting.h"

namespace lacquer {
namespace {

/// Draws the whole painting with the gradient of the canvas.
void Cover(const Painting &painting) {
    EXPECT_EQ(1, velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_FILL));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, -10, -10, 100, 100));
}

TEST(VelGradientTest, RadialColoursFollowTheDistance) {
    Painting painting(41, 41);
    UseGradient(painting, velGradientCreateRadial(20.5f, 20.5f, 20), {{0, 0xFFFFFFFF}, {1, 0xFF000000}});
    Cover(painting);
    for (int y = 0; y < 41; ++y) {
        for (int x = 0; x < 41; ++x) {
            const double t = std::min(1.0, std::hypot(x - 20, y - 20) / 20);
            EXPECT_NEAR(255 * (1 - t), painting.At(x, y) & 0xFF, 3) << x << ' ' << y;
        }
    }
    // Without an extent there may be nothing to see, but what comes later is drawn.
    UseGradient(painting, velGradientCreateLinear(2, 2, 2, 2), {{0, 0xFF00FF00}, {1, 0xFF00FF00}});
    Cover(painting);
    EXPECT_EQ(1, velCanvasDrawColor(painting, 0xFF000000));
    EXPECT_EQ(0xFF000000u, painting.At(2, 1));
}

TEST(VelGradientTest, LivesAsLongAsAnyCanvasOrStateHasIt) {
    Painting first(4, 4), second(4, 4);
    velGradient *gradient = velGradientCreateLinear(0, 0, 4, 0);
    EXPECT_EQ(1, velCanvasSetGradient(first, gradient));
    EXPECT_EQ(1, velCanvasSetGradient(first, gradient));
    UseGradient(second, gradient, {{0, 0xFF00FF00}});  // shows in both although it comes later
    EXPECT_EQ(1, velCanvasSave(first));
    UseGradient(first, velGradientCreateRadial(1, 1, 1), {});  // without stops: nothing
    Cover(first);
    EXPECT_TRUE(first.IsEmpty());
    EXPECT_EQ(1, velCanvasRestore(first));
    for (const Painting *painting : {&first, &second}) {
        Cover(*painting);
        EXPECT_EQ(0xFF00FF00u, painting->At(2, 2));
    }
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
    for (const DWORD style : {VEL_STYLE_GRADIENT_FILL, VEL_STYLE_GRADIENT_STROKE}) {
        ExpectRefused("no gradient set", [&](velCanvas *canvas) {
            EXPECT_EQ(1, velCanvasSetDrawStyle(canvas, style));
            const int result = velCanvasDrawRectangle(canvas, 0, 0, 9, 9);
            EXPECT_EQ(1, velCanvasSetDrawStyle(canvas, VEL_STYLE_FILL));
            return result;
        });
    }
}

}  // namespace
}  // namespace lacquer
