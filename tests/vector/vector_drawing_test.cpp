// Vector drawing on canvases: the state and its stack, pixels that move, pixels that others change, far coordinates,
// and the few functions that no picture of the gallery shows.

#include "scene.h"

namespace lacquer {
namespace {

TEST(VectorState, IsNotThereOnACallersDeviceContext) {
    const TestCanvas canvas(CanvasKind::FromDC, 12, 12, 1);
    const Picture before = canvas.Pixels();
    const RECT rect{2, 2, 9, 9};
    for (const int result : {DrawColor(canvas, kRed), DrawRectangle(canvas, 0, 0, 5, 5), SetColor(canvas, kRed),
                             Save(canvas), Restore(canvas)}) {
        EXPECT_EQ(0, result);
    }
    EXPECT_EQ(0xFFFFFFFF, GetBlendMode(canvas));
    EXPECT_EQ(255u, GetBlendValue(canvas));
    EXPECT_EQ(1.0f, GetStrokeWidth(canvas));
    EXPECT_EQ(1, FillGradualRect(canvas, kRed, kBlue, &rect, 1));
    EXPECT_TRUE(Same(before, canvas.Pixels()));
}

/// A canvas on which each column is drawn once, by the state of that moment.
struct Columns {
    OwnedCanvas canvas = PlainCanvas();
    Picture expected = PixelsOn(canvas);
    LONG x = 0;

    void Draw(uint32_t word) {
        EXPECT_EQ(1, DrawRectangle(canvas, static_cast<float>(x), 0, 1, 5));
        expected = WithRectangle(expected, {x, 0, x + 1, 5}, word);
        ++x;
    }
};

TEST(VectorState, BelongsToOneCanvasAndItsStackToTheCaller) {
    Columns first, second;
    const HGCANVAS canvas = first.canvas;
    const RECT gradualRect{0, 20, 8, 28};
    EXPECT_EQ(0, Restore(canvas)) << "nothing was saved";
    SetColor(canvas, kRed);
    SetColor(second.canvas, kBlue);
    SetStrokeWidth(second.canvas, 3.5f);
    SetBlendMode(second.canvas, VEL_BLEND_SOURCE);
    EXPECT_EQ(1.0f, GetStrokeWidth(canvas));
    EXPECT_EQ(3.5f, GetStrokeWidth(second.canvas));
    EXPECT_EQ(DWORD{VEL_BLEND_SOURCE}, GetBlendMode(second.canvas));
    for (uint32_t word = 0xFF000041; word < 0xFF000046; ++word) {
        first.Draw(word == 0xFF000041 ? kRed : word - 1);
        second.Draw(kBlue);
        EXPECT_EQ(1, Save(canvas));
        SetColor(canvas, word);
    }
    // Drawings, refused ones too, leave the state and the stack as they are.
    for (uint32_t word = 0xFF000045; word > 0xFF000040; --word) {
        EXPECT_EQ(1, FillGradualRect(canvas, kRed, kBlue, &gradualRect, 2));
        EXPECT_EQ(0, DrawPath(canvas, nullptr));
        EXPECT_EQ(0, DrawLottie(canvas, nullptr, 0, 0, 0, 4, 4));
        first.Draw(word);
        EXPECT_EQ(1, Restore(canvas));
    }
    for (int i = 0; i < 3; ++i) EXPECT_EQ(0, Restore(canvas)) << "as many as were saved";
    first.Draw(kRed);
    velGradient *gradient = GradientCreateLinear(0, 0, 90, 0);
    for (const uint32_t colour : {kGreen, kBlue}) EXPECT_EQ(1, GradientAddColorStop(gradient, 0.5f, colour));
    EXPECT_EQ(1, SetGradient(canvas, gradient));
    EXPECT_EQ(1, GradientDestroy(gradient));
    EXPECT_EQ(1, FillGradualRect(canvas, kRed, kBlue, &gradualRect, 2));
    EXPECT_EQ(1, SetDrawStyle(canvas, VEL_STYLE_GRADIENT_FILL));
    first.Draw(kGreen);
    EXPECT_TRUE(Same(Cropped(first.expected, PixelsOn(canvas), gradualRect), PixelsOn(canvas)));
    EXPECT_TRUE(Same(second.expected, PixelsOn(second.canvas)));
}

TEST(VectorPixels, AreFoundWhereverTheyHaveMoved) {
    for (const bool throughAlias : {false, true}) {
        Columns columns;
        const HGCANVAS canvas = columns.canvas;
        const OwnedTexture old(GetTexture(canvas));
        EXPECT_EQ(1, SetColor(canvas, kRed));
        columns.Draw(kRed);
        const Picture before = columns.expected;
        EXPECT_EQ(1, Save(canvas));
        EXPECT_EQ(1, SetColor(canvas, kBlue));
        // Into a device-independent bitmap.
        const HGBITMAP alias = GetBitmap(canvas);
        EXPECT_TRUE(throughAlias ? GetBitmapHandle(alias) != nullptr : GetCanvasHandle(canvas) != nullptr);
        ReleaseBitmap(alias);
        EXPECT_NE(ViewOf(old).bits, ViewOf(canvas).bits);
        columns.Draw(kBlue);
        EXPECT_EQ(1, Restore(canvas)) << "saved before the move";
        columns.Draw(kRed);
        EXPECT_TRUE(Same(before, PictureOf(ViewOf(old)))) << "the borrower keeps the old pixels";
        EXPECT_TRUE(Same(columns.expected, PixelsOn(canvas)));
    }
}

TEST(VectorPixels, LiveOnInWhatTheCanvasBecomes) {
    const OwnedCanvas robbed = PlainCanvas();
    EXPECT_EQ(1, DrawColor(robbed, kRed));
    const OwnedTexture kept(BitmapToTexture(GetBitmap(robbed)));
    EXPECT_EQ(0, DrawColor(robbed, kBlue));
    EXPECT_EQ(1, SetColor(robbed, kBlue)) << "the state is still there";
    EXPECT_EQ(std::vector<uint32_t>(kSceneWidth * kSceneHeight, kRed), PixelsIn(kept));
}

TEST(VectorPixels, ChangedByOthersAreSeen) {
    const RECT part{4, 4, 20, 20};
    for (const bool throughGdi : {false, true}) {
        const OwnedCanvas canvas = PlainCanvas();
        if (throughGdi) GetCanvasHandle(canvas);
        // Whatever the companion may remember of pixels that it has just cleared is out of date afterwards.
        SetBlendMode(canvas, VEL_BLEND_CLEAR);
        EXPECT_EQ(1, DrawColor(canvas, 0));
        EXPECT_EQ(1, FillSolidRect(canvas, kRed, &part));
        SetBlendMode(canvas, VEL_BLEND_SOURCE_OVER);
        SetColor(canvas, kBlue);
        EXPECT_EQ(1, DrawRectangle(canvas, 10, 10, 4, 4));
        const Picture cleared = PixelsOn(PlainCanvas(kSceneWidth, kSceneHeight, 0));
        EXPECT_TRUE(Same(WithRectangle(WithRectangle(cleared, part, kRed), {10, 10, 14, 14}, kBlue), PixelsOn(canvas)));
        SetBlendMode(canvas, VEL_BLEND_CLEAR);
        for (const int result : {DrawColor(canvas, 0), FillSolidRect(canvas, kRed, &part), DrawColor(canvas, 0)}) {
            EXPECT_EQ(1, result);
        }
        EXPECT_TRUE(Same(cleared, PixelsOn(canvas))) << "cleared again";
    }
}

TEST(VectorInput, PolygonsMayBeAsFarAsTheyCanBe) {
    const OwnedCanvas canvas = PlainCanvas();
    const Picture before = PixelsOn(canvas);
    const POINT distant[] = {{INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MIN}, {INT32_MAX, 20}, {INT32_MIN, 20}};
    SetColor(canvas, kGreen);
    EXPECT_EQ(1, DrawPolygon(canvas, 4, distant));
    EXPECT_TRUE(Same(WithRectangle(before, {0, 0, kSceneWidth, 20}, kGreen), PixelsOn(canvas)));
    for (const int count : {0, -1, INT32_MIN}) EXPECT_EQ(0, DrawPolygon(canvas, count, distant));
}

TEST(VectorInput, GradientRectanglesMayHaveEdgesThatNoFloatHas) {
    constexpr int kFar = 1 << 24;
    for (const int origin : {0, kFar, -kFar}) {
        const OwnedCanvas canvas = PlainCanvas();
        const Picture before = PixelsOn(canvas);
        SetWindowOrg(canvas, origin, origin, nullptr);
        // So high that what is visible has the first colour.
        const RECT high{origin + 3, origin + 5, origin + 10, INT32_MAX};
        EXPECT_EQ(1, FillGradualRect(canvas, kRed, kBlue, &high, 1));
        EXPECT_TRUE(Same(WithRectangle(before, {3, 5, 10, kSceneHeight}, kRed), PixelsOn(canvas))) << origin;
    }
}

TEST(VectorPath, BeginsAnewGoesOnAndTellsItsBounds) {
    velPath *path = PathCreate();
    for (const int forceMoveTo : {0, 1}) {
        const OwnedCanvas canvas = PlainCanvas();
        SetColor(canvas, kRed);
        EXPECT_EQ(1, PathBegin(path));
        EXPECT_EQ(1, PathMoveTo(path, 0, 15));
        EXPECT_EQ(1, PathArcTo(path, 10, 5, 20, 20, 180, 90, forceMoveTo));
        EXPECT_EQ(1, DrawPath(canvas, path));
        EXPECT_EQ(forceMoveTo ? kGround : kRed, PixelAt(ViewOf(canvas), 8, 13)) << "between the point and the arc";
    }
    const OwnedCanvas canvas = PlainCanvas();
    const POINT triangle[] = {{2, 20}, {20, 20}, {20, 38}};
    SetDrawStyle(canvas, VEL_STYLE_STROKE);
    EXPECT_EQ(1, DrawPolygon(canvas, 3, triangle));
    EXPECT_NE(kGround, PixelAt(ViewOf(canvas), 11, 29)) << "closed";
    velRectF bounds{};
    EXPECT_EQ(1, PathGetBounds(path, &bounds));
    EXPECT_NEAR(20, bounds.right, 1e-3);
    EXPECT_NEAR(5, bounds.top, 1e-3);
    EXPECT_EQ(1, PathDestroy(path));
}

}  // namespace
}  // namespace lacquer
