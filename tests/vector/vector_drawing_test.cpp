// Vector drawing on canvases: the state and its stack, pixels that move, and pixels that others change.

#include <thread>

#include "scene.h"

namespace lacquer {
namespace {

constexpr uint32_t kRed = 0xFFFF0000, kBlue = 0xFF0000FF;

/// The scene on a plain canvas, where nothing was done to it.
Picture Scene() {
    const OwnedCanvas canvas = PlainCanvas();
    DrawScene(canvas);
    return PixelsOn(canvas);
}

TEST(VectorDrawing, IsRefusedOnACallersDeviceContext) {
    const TestCanvas canvas(CanvasKind::FromDC, 12, 12, 1);
    const Picture before = canvas.Pixels();
    EXPECT_EQ(0, DrawColor(canvas, kRed));
    EXPECT_EQ(0, DrawRectangle(canvas, 0, 0, 5, 5));
    EXPECT_EQ(0, SetColor(canvas, kRed));
    EXPECT_EQ(0, Save(canvas));
    EXPECT_EQ(0xFFFFFFFF, GetBlendMode(canvas));
    EXPECT_EQ(255u, GetBlendValue(canvas));
    EXPECT_EQ(1.0f, GetStrokeWidth(canvas));
    const RECT rect{2, 2, 9, 9};
    EXPECT_EQ(1, FillGradualRect(canvas, kRed, kBlue, &rect, 1));
    EXPECT_TRUE(Same(before, canvas.Pixels()));
}

TEST(VectorState, LastsFromCallToCallAndBelongsToOneCanvas) {
    const OwnedCanvas first = PlainCanvas(), second = PlainCanvas();
    Picture expectedFirst = PixelsOn(first), expectedSecond = expectedFirst;
    EXPECT_EQ(1, SetColor(first, kRed));
    EXPECT_EQ(1, SetColor(second, kBlue));
    EXPECT_EQ(1, SetStrokeWidth(first, 3.5f));
    EXPECT_EQ(1, SetBlendMode(first, VEL_BLEND_SOURCE));
    EXPECT_EQ(1.0f, GetStrokeWidth(second));
    EXPECT_EQ(DWORD{VEL_BLEND_SOURCE_OVER}, GetBlendMode(second));
    for (const LONG x : {2, 12, 22}) {
        EXPECT_EQ(1, DrawRectangle(first, static_cast<float>(x), 4, 5, 6));
        EXPECT_EQ(1, DrawRectangle(second, static_cast<float>(x), 4, 5, 6));
        expectedFirst = WithRectangle(expectedFirst, {x, 4, x + 5, 10}, kRed);
        expectedSecond = WithRectangle(expectedSecond, {x, 4, x + 5, 10}, kBlue);
    }
    EXPECT_TRUE(Same(expectedFirst, PixelsOn(first)));
    EXPECT_TRUE(Same(expectedSecond, PixelsOn(second)));
}

TEST(VectorState, CallersShareTheStackWithEveryDrawing) {
    const OwnedCanvas canvas = PlainCanvas();
    Picture expected = PixelsOn(canvas);
    LONG x = 0;
    const auto drawColumn = [&](uint32_t word) {
        EXPECT_EQ(1, DrawRectangle(canvas, static_cast<float>(x), 0, 1, 5));
        expected = WithRectangle(expected, {x, 0, x + 1, 5}, word);
        ++x;
    };
    const RECT gradient{0, 20, 8, 28};
    EXPECT_EQ(0, Restore(canvas)) << "nothing was saved";
    SetColor(canvas, kRed);
    drawColumn(kRed);
    for (uint32_t word = 0xFF000041; word < 0xFF000046; ++word) {
        EXPECT_EQ(1, Save(canvas));
        SetColor(canvas, word);
        drawColumn(word);
    }
    for (uint32_t word = 0xFF000045; word > 0xFF000040; --word) {
        EXPECT_EQ(1, FillGradualRect(canvas, kRed, kBlue, &gradient, 2));
        drawColumn(word);
        EXPECT_EQ(1, Restore(canvas));
    }
    for (int i = 0; i < 3; ++i) EXPECT_EQ(0, Restore(canvas)) << "as many as were saved";
    drawColumn(kRed);
    EXPECT_TRUE(Same(Cropped(expected, PixelsOn(canvas), gradient), PixelsOn(canvas)));

    // Refused drawings leave the stack as it is, too.
    EXPECT_EQ(1, Save(canvas));
    EXPECT_EQ(0, DrawPath(canvas, nullptr));
    EXPECT_EQ(0, DrawLottie(canvas, nullptr, 0, 0, 0, 4, 4));
    EXPECT_EQ(1, Restore(canvas));
    EXPECT_EQ(0, Restore(canvas));
}

/// Moves a canvas's pixels into a device-independent bitmap.
void MovePixels(HGCANVAS canvas, bool throughAlias) {
    const void *before = ViewOf(canvas).bits;
    if (throughAlias) {
        const HGBITMAP alias = GetBitmap(canvas);
        EXPECT_NE(nullptr, GetBitmapHandle(alias));
        ReleaseBitmap(alias);
    } else {
        EXPECT_NE(nullptr, GetCanvasHandle(canvas));
    }
    EXPECT_NE(before, ViewOf(canvas).bits);
}

TEST(VectorPixels, AreFoundWhereverTheyHaveMoved) {
    const Picture scene = Scene();
    for (const bool throughAlias : {false, true}) {
        const OwnedCanvas canvas = PlainCanvas();
        const OwnedTexture old(GetTexture(canvas));
        EXPECT_EQ(1, SetColor(canvas, kRed));
        EXPECT_EQ(1, DrawRectangle(canvas, 0, 0, 3, 3));
        EXPECT_EQ(1, Save(canvas));
        EXPECT_EQ(1, SetColor(canvas, kBlue));
        MovePixels(canvas, throughAlias);
        EXPECT_EQ(1, DrawRectangle(canvas, 4, 0, 3, 3));
        EXPECT_EQ(1, Restore(canvas)) << "saved before the move";
        EXPECT_EQ(1, DrawRectangle(canvas, 8, 0, 3, 3));
        const Picture ground = PixelsOn(PlainCanvas());
        Picture expected = WithRectangle(ground, {0, 0, 3, 3}, kRed);
        EXPECT_TRUE(Same(expected, PictureOf(ViewOf(old)))) << "the borrower keeps the old pixels";
        expected = WithRectangle(WithRectangle(expected, {4, 0, 7, 3}, kBlue), {8, 0, 11, 3}, kRed);
        EXPECT_TRUE(Same(expected, PixelsOn(canvas)));
        EXPECT_EQ(0, Restore(canvas));

        FillWith(ViewOf(canvas), kGround);
        DrawScene(canvas);
        EXPECT_TRUE(Same(scene, PixelsOn(canvas)));

        // The state does not touch what is no more, nor does the end of the canvas.
        const OwnedCanvas other = PlainCanvas();
        DrawScene(other);
        MovePixels(other, throughAlias);
        EXPECT_EQ(1, Save(other));
    }
}

TEST(VectorPixels, ThatAreGoneRefuseDrawings) {
    const OwnedCanvas canvas = PlainCanvas();
    EXPECT_EQ(1, DrawColor(canvas, kRed));
    const OwnedTexture kept(BitmapToTexture(GetBitmap(canvas)));
    EXPECT_EQ(0, DrawColor(canvas, kBlue));
    EXPECT_EQ(0, DrawRectangle(canvas, 0, 0, 5, 5));
    EXPECT_EQ(1, Save(canvas));
    EXPECT_EQ(1, SetColor(canvas, kBlue));
    EXPECT_EQ(1, Restore(canvas));
    const std::vector<uint32_t> pixels = PixelsIn(kept);
    EXPECT_EQ(std::vector<uint32_t>(pixels.size(), kRed), pixels);
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

TEST(VectorPixels, BecomeTexturesAndBitmapsWithTheirCanvas) {
    const Picture scene = Scene();
    HGCANVAS canvas = CreateCanvas(kSceneWidth, kSceneHeight, {});
    FillWith(ViewOf(canvas), kGround);
    DrawScene(canvas);
    const OwnedTexture texture(CanvasToTexture(canvas));
    EXPECT_TRUE(Same(scene, PictureOf(ViewOf(texture))));
    EXPECT_EQ(0, DrawColor(canvas, kRed));
}

TEST(VectorDrawing, TwoThreadsDrawOnTwoCanvases) {
    const Picture scene = Scene();
    const OwnedCanvas first = PlainCanvas(), second = PlainCanvas();
    const auto draw = [&](HGCANVAS canvas) {
        for (int i = 0; i < 50; ++i) {
            FillWith(ViewOf(canvas), kGround);
            DrawScene(canvas);
            ASSERT_TRUE(Same(scene, PixelsOn(canvas)));
        }
    };
    std::thread other(draw, HGCANVAS(first));
    draw(second);
    other.join();
}

}  // namespace
}  // namespace lacquer
