// Bad input to the vector functions, as far as the companion does not see it as it is. Each is refused or drawn, and
// what comes later is drawn as ever.

#include "scene.h"

namespace lacquer {
namespace {

/// A canvas with the scene, which bad input must not change.
class VectorInputTest : public testing::Test {
protected:
    ~VectorInputTest() override {
        // The state is that of a new canvas again, and it still draws.
        FillWith(ViewOf(canvas_), kGround);
        SetCanvasClipRect(canvas_, &kWhole);
        DrawScene(canvas_);
        const OwnedCanvas fresh = PlainCanvas();
        DrawScene(fresh);
        EXPECT_TRUE(Same(PixelsOn(fresh), PixelsOn(canvas_)));
        EXPECT_EQ(0, Restore(canvas_));
    }

    static constexpr RECT kWhole{0, 0, kSceneWidth, kSceneHeight};
    const OwnedCanvas canvas_ = PlainCanvas();
};

TEST_F(VectorInputTest, NullsAndWhatIsNoPolygonAreRefused) {
    const WORD glyph = 1;
    const velPointF position{};
    const POINT points[] = {{1, 2}, {13, 4}, {5, 16}};
    const Picture before = PixelsOn(canvas_);
    for (const int result :
         {DrawPath(canvas_, nullptr), DrawLottie(canvas_, nullptr, 0, 0, 0, 9, 9), SetGradient(canvas_, nullptr),
          DrawPosTextByGlyphs(canvas_, nullptr, 1, &position), DrawPosTextByGlyphs(canvas_, &glyph, 1, nullptr),
          SetDashPattern(canvas_, nullptr, 2, 0), SetFontFaceName(canvas_, nullptr), DrawPolygon(canvas_, 3, nullptr),
          DrawPolygon(canvas_, 0, points), DrawPolygon(canvas_, INT32_MIN, points), PathDestroy(nullptr),
          GradientDestroy(nullptr)}) {
        EXPECT_EQ(0, result);
    }
    EXPECT_TRUE(Same(before, PixelsOn(canvas_)));
}

TEST_F(VectorInputTest, OriginsAtTheEndsOfTheRangeDrawNothingElsewhere) {
    constexpr int kEnds[] = {INT32_MIN, -1, 0, INT32_MAX};
    const Picture before = PixelsOn(canvas_);
    for (const int viewport : kEnds) {
        for (const int window : kEnds) {
            SetViewportOrg(canvas_, viewport, 0, nullptr);
            SetWindowOrg(canvas_, window, 0, nullptr);
            for (const RECT &clip : {RECT{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}, RECT{5, 5, 9, 9}}) {
                SetCanvasClipRect(canvas_, &clip);
                const int result = DrawCircle(canvas_, 20, 20, 10);
                EXPECT_TRUE(result == 0 || result == 1);
                if (std::abs(int64_t{viewport} - window) > 100) {
                    EXPECT_TRUE(Same(before, PixelsOn(canvas_))) << viewport << " " << window;
                }
                FillWith(ViewOf(canvas_), kGround);
            }
        }
    }
    SetViewportOrg(canvas_, 0, 0, nullptr);
    SetWindowOrg(canvas_, 0, 0, nullptr);
}

TEST_F(VectorInputTest, LongPolygonsAreDrawn) {
    std::vector<POINT> points;
    for (LONG i = 0; i < 20000; ++i) points.push_back({i * 7919 % kSceneWidth, i * 104729 % kSceneHeight});
    EXPECT_EQ(1, DrawPolygon(canvas_, static_cast<int>(points.size()), points.data()));
    // A polygon that goes twice around its rectangle is the rectangle.
    FillWith(ViewOf(canvas_), kGround);
    const POINT twice[] = {{5, 5}, {15, 5}, {15, 12}, {5, 12}, {5, 5}, {15, 5}, {15, 12}, {5, 12}};
    SetColor(canvas_, 0xFF00FF00);
    EXPECT_EQ(1, DrawPolygon(canvas_, 8, twice));
    EXPECT_TRUE(Same(WithRectangle(PixelsOn(PlainCanvas()), {5, 5, 15, 12}, 0xFF00FF00), PixelsOn(canvas_)));
    // One with corners as far as they can be covers half of the canvas.
    FillWith(ViewOf(canvas_), kGround);
    const POINT distant[] = {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MIN}, {INT32_MAX, 20}, {INT32_MIN, 20}};
    EXPECT_EQ(1, DrawPolygon(canvas_, 4, distant));
    EXPECT_TRUE(Same(WithRectangle(PixelsOn(PlainCanvas()), {0, 0, kSceneWidth, 20}, 0xFF00FF00), PixelsOn(canvas_)));
    SetColor(canvas_, 0xFF000000);
}

}  // namespace
}  // namespace lacquer
