// Vector drawing on canvases: clip and origins, the state and its stack, pixels that move, and pixels that others
// change.

#include <thread>

#include "scene.h"

namespace lacquer {
namespace {

constexpr uint32_t kGround = 0xFF808080, kRed = 0xFFFF0000, kBlue = 0xFF0000FF;
constexpr RECT kWhole{0, 0, kSceneWidth, kSceneHeight};

Picture PixelsOn(HGCANVAS canvas) { return PictureOf(Locked(canvas)); }

OwnedCanvas Ground() { return PlainCanvas(kSceneWidth, kSceneHeight, kGround); }

/// The scene on a plain canvas, where nothing was done to it.
Picture Scene() {
    const OwnedCanvas canvas = Ground();
    DrawScene(canvas);
    return PixelsOn(canvas);
}

/// A rectangle of whole pixels in the present colour.
Picture WithRectangle(Picture picture, const RECT &rect, uint32_t word) {
    for (LONG y = rect.top; y < rect.bottom; ++y) {
        for (LONG x = rect.left; x < rect.right; ++x) picture.At(x, y) = word;
    }
    return picture;
}

/// Whether a picture is `whole` inside the clip and, to the bit, `before` outside. The companion cuts shapes at the
/// clip before it works out how much of a pixel they cover, so that the inside may be rounded otherwise.
::testing::AssertionResult IsCut(const Picture &whole, const Picture &before, const RECT &clip, const Picture &actual) {
    constexpr int kRounding = 3;
    const auto outside = Same(Cropped(before, actual, clip), actual);
    return outside ? Near(Cropped(before, whole, clip), actual, kRounding) : outside;
}

TEST(VectorDrawing, ScenesHaveEveryShapeInThem) {
    const Picture scene = Scene();
    ptrdiff_t ground = std::count(scene.pixels.begin(), scene.pixels.end(), kGround);
    EXPECT_LT(ground, 2 * kSceneWidth * kSceneHeight / 3);
    EXPECT_GT(ground, kSceneWidth * kSceneHeight / 8);
    for (const uint32_t word : scene.pixels) ASSERT_EQ(0xFFu, word >> 24) << "opaque ground stays opaque";
}

TEST(VectorDrawing, StaysInsideTheClip) {
    const Picture scene = Scene();
    for (const RECT clip : {RECT{0, 0, 1, 1}, RECT{5, 3, 41, 29}, RECT{-100, 11, 20, 1000}, RECT{47, 0, 48, 40},
                            RECT{20, 20, 20, 30}, RECT{30, 30, 10, 10}}) {
        const OwnedCanvas canvas = Ground();
        const Picture before = PixelsOn(canvas);
        SetCanvasClipRect(canvas, &clip);
        DrawScene(canvas);
        EXPECT_TRUE(IsCut(scene, before, clip, PixelsOn(canvas)))
            << clip.left << " " << clip.top << " " << clip.right << " " << clip.bottom;

        // The clip was the drawing's only.
        FillWith(Locked(canvas), kGround);
        SetCanvasClipRect(canvas, &kWhole);
        DrawScene(canvas);
        EXPECT_TRUE(Same(scene, PixelsOn(canvas)));
    }
}

TEST(VectorDrawing, FollowsTheOrigins) {
    const Picture scene = Scene();
    struct Case {
        POINT viewport, window;
    };
    for (const auto &[viewport, window] : {Case{{7, 5}, {0, 0}}, Case{{0, 0}, {10, 10}}, Case{{-3, 20}, {4, -6}},
                                           Case{{100000, -100000}, {100003, -100004}}}) {
        const OwnedCanvas canvas = PlainCanvas(64, 56, kGround);
        const RECT clip{1, 2, 37, 35};
        const LONG dx = viewport.x - window.x, dy = viewport.y - window.y;
        const Picture before = PixelsOn(canvas), expected = Shifted(before, scene, dx, dy);
        SetViewportOrg(canvas, viewport.x, viewport.y, nullptr);
        SetWindowOrg(canvas, window.x, window.y, nullptr);
        DrawScene(canvas);
        EXPECT_TRUE(IsCut(expected, before, Moved(kWhole, dx, dy), PixelsOn(canvas))) << dx << " " << dy;

        FillWith(Locked(canvas), kGround);
        SetCanvasClipRect(canvas, &clip);
        DrawScene(canvas);
        EXPECT_TRUE(IsCut(expected, before, Moved(clip, dx, dy), PixelsOn(canvas))) << dx << " " << dy << " clipped";
    }

    const OwnedCanvas canvas = PlainCanvas(20, 20, kGround);
    const Picture before = PixelsOn(canvas);
    SetWindowOrg(canvas, 10, 10, nullptr);
    SetColor(canvas, kRed);
    EXPECT_EQ(1, DrawRectangle(canvas, 10, 10, 1, 1));
    EXPECT_TRUE(Same(WithRectangle(before, {0, 0, 1, 1}, kRed), PixelsOn(canvas)));
}

TEST(VectorDrawing, IsTheSameOnEveryKindOfSurface) {
    const Picture scene = Scene();
    for (const bool system : {false, true}) {
        const OwnedCanvas canvas(system ? CreateSystemCanvas(kSceneWidth, kSceneHeight, {})
                                        : CreateCanvas(kSceneWidth, kSceneHeight, {}));
        GetCanvasHandle(canvas);
        FillWith(Locked(canvas), kGround);
        DrawScene(canvas);
        EXPECT_TRUE(Same(scene, PixelsOn(canvas)));
        const RECT clip{9, 4, 30, 33};
        FillWith(Locked(canvas), kGround);
        const Picture before = PixelsOn(canvas);
        SetCanvasClipRect(canvas, &clip);
        DrawScene(canvas);
        EXPECT_TRUE(IsCut(scene, before, clip, PixelsOn(canvas)));
    }
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
    const OwnedCanvas first = Ground(), second = Ground();
    const Picture ground = PixelsOn(first);
    EXPECT_EQ(1, SetColor(first, kRed));
    EXPECT_EQ(1, SetColor(second, kBlue));
    EXPECT_EQ(1, SetStrokeWidth(first, 3.5f));
    EXPECT_EQ(1, SetBlendMode(first, VEL_BLEND_SOURCE));
    EXPECT_EQ(1, SetBlendValue(second, 77));
    EXPECT_EQ(1, SetBlendValue(second, 255));
    EXPECT_EQ(3.5f, GetStrokeWidth(first));
    EXPECT_EQ(1.0f, GetStrokeWidth(second));
    EXPECT_EQ(DWORD{VEL_BLEND_SOURCE}, GetBlendMode(first));
    EXPECT_EQ(DWORD{VEL_BLEND_SOURCE_OVER}, GetBlendMode(second));
    for (const LONG x : {2, 12, 22}) {
        EXPECT_EQ(1, DrawRectangle(first, static_cast<float>(x), 4, 5, 6));
        EXPECT_EQ(1, DrawRectangle(second, static_cast<float>(x), 4, 5, 6));
    }
    Picture expectedFirst = ground, expectedSecond = ground;
    for (const LONG x : {2, 12, 22}) {
        expectedFirst = WithRectangle(expectedFirst, {x, 4, x + 5, 10}, kRed);
        expectedSecond = WithRectangle(expectedSecond, {x, 4, x + 5, 10}, kBlue);
    }
    EXPECT_TRUE(Same(expectedFirst, PixelsOn(first)));
    EXPECT_TRUE(Same(expectedSecond, PixelsOn(second)));
}

TEST(VectorState, CallersShareTheStackWithEveryDrawing) {
    const OwnedCanvas canvas = Ground();
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
    for (int depth = 0; depth < 5; ++depth) {
        EXPECT_EQ(1, Save(canvas));
        const uint32_t word = 0xFF000040u + static_cast<uint32_t>(depth);
        SetColor(canvas, word);
        SetStrokeWidth(canvas, static_cast<float>(depth + 2));
        drawColumn(word);
    }
    for (int depth = 4; depth >= 0; --depth) {
        EXPECT_EQ(static_cast<float>(depth + 2), GetStrokeWidth(canvas));
        EXPECT_EQ(1, FillGradualRect(canvas, kRed, kBlue, &gradient, 2));
        drawColumn(0xFF000040u + static_cast<uint32_t>(depth));
        EXPECT_EQ(1, Restore(canvas));
    }
    drawColumn(kRed);
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

TEST(VectorState, GradientsOutliveTheirDestruction) {
    const OwnedCanvas canvas = Ground();
    velGradient *gradient = GradientCreateLinear(0, 0, kSceneWidth, 0);
    EXPECT_EQ(1, GradientAddColorStop(gradient, 0, kRed));
    EXPECT_EQ(1, GradientAddColorStop(gradient, 1, kRed));
    EXPECT_EQ(1, SetGradient(canvas, gradient));
    EXPECT_EQ(1, GradientDestroy(gradient));
    EXPECT_EQ(1, SetDrawStyle(canvas, VEL_STYLE_GRADIENT_FILL));
    const RECT rect{3, 4, 20, 9};
    EXPECT_EQ(1, DrawRectangle(canvas, 3, 4, 17, 5));
    EXPECT_TRUE(Same(WithRectangle(PixelsOn(Ground()), rect, kRed), PixelsOn(canvas)));
}

/// Moves a canvas's pixels somewhere else, or says that they are gone.
struct Move {
    const char *name;
    void (*run)(HGCANVAS canvas);
};

const Move kMoves[] = {
    {"GetCanvasHandle", [](HGCANVAS canvas) { EXPECT_NE(nullptr, GetCanvasHandle(canvas)); }},
    {"GetBitmapHandle through an alias",
     [](HGCANVAS canvas) {
         const HGBITMAP alias = GetBitmap(canvas);
         EXPECT_NE(nullptr, GetBitmapHandle(alias));
         ReleaseBitmap(alias);
     }},
};

TEST(VectorPixels, AreFoundWhereverTheyHaveMoved) {
    const Picture scene = Scene();
    for (const Move &move : kMoves) {
        const OwnedCanvas canvas = Ground();
        const OwnedTexture old(GetTexture(canvas));
        EXPECT_EQ(1, SetColor(canvas, kRed));
        EXPECT_EQ(1, DrawRectangle(canvas, 0, 0, 3, 3));
        EXPECT_EQ(1, Save(canvas));
        EXPECT_EQ(1, SetColor(canvas, kBlue));
        const void *before = Locked(canvas).bits;
        move.run(canvas);
        ASSERT_NE(before, Locked(canvas).bits) << move.name;

        EXPECT_EQ(1, DrawRectangle(canvas, 4, 0, 3, 3));
        EXPECT_EQ(1, Restore(canvas)) << "saved before the move";
        EXPECT_EQ(1, DrawRectangle(canvas, 8, 0, 3, 3));
        const Picture ground = PixelsOn(Ground());
        Picture expected = WithRectangle(ground, {0, 0, 3, 3}, kRed);
        EXPECT_TRUE(Same(expected, PictureOf(Locked(old)))) << move.name << ": the borrower keeps the old pixels";
        expected = WithRectangle(WithRectangle(expected, {4, 0, 7, 3}, kBlue), {8, 0, 11, 3}, kRed);
        EXPECT_TRUE(Same(expected, PixelsOn(canvas))) << move.name;
        EXPECT_EQ(0, Restore(canvas));

        FillWith(Locked(canvas), kGround);
        DrawScene(canvas);
        EXPECT_TRUE(Same(scene, PixelsOn(canvas))) << move.name;
    }
}

TEST(VectorPixels, ThatMovedAreNotTouchedByTheState) {
    for (const Move &move : kMoves) {
        const OwnedCanvas canvas = Ground();
        DrawScene(canvas);
        move.run(canvas);
        EXPECT_EQ(1, Save(canvas));
        EXPECT_EQ(1, SetColor(canvas, kRed));
        EXPECT_EQ(1, Restore(canvas));
    }
    // A canvas that is deleted while its companion still has pixels that are no more.
    for (const Move &move : kMoves) {
        const HGCANVAS canvas = CreateCanvas(64, 64, {});
        EXPECT_EQ(1, DrawColor(canvas, kRed));
        move.run(canvas);
        DeleteCanvas(canvas);
    }
}

TEST(VectorPixels, ThatAreGoneRefuseDrawings) {
    const OwnedCanvas canvas = Ground();
    EXPECT_EQ(1, DrawColor(canvas, kRed));
    const OwnedTexture kept(BitmapToTexture(GetBitmap(canvas)));
    EXPECT_EQ(0, DrawColor(canvas, kBlue));
    EXPECT_EQ(0, DrawRectangle(canvas, 0, 0, 5, 5));
    EXPECT_EQ(1, Save(canvas));
    EXPECT_EQ(1, SetColor(canvas, kBlue));
    EXPECT_EQ(1, Restore(canvas));
    const std::vector<uint32_t> pixels = PixelsOf(Locked(kept));
    EXPECT_EQ(std::vector<uint32_t>(pixels.size(), kRed), pixels);
}

TEST(VectorPixels, ChangedByOthersAreSeen) {
    const RECT part{4, 4, 20, 20};
    for (const bool throughGdi : {false, true}) {
        const OwnedCanvas canvas = Ground();
        if (throughGdi) GetCanvasHandle(canvas);
        // Whatever the companion may remember of pixels that it has just cleared is out of date afterwards.
        SetBlendMode(canvas, VEL_BLEND_CLEAR);
        EXPECT_EQ(1, DrawColor(canvas, 0));
        EXPECT_EQ(1, FillSolidRect(canvas, kRed, &part));
        SetBlendMode(canvas, VEL_BLEND_SOURCE_OVER);
        SetColor(canvas, 0x80000000);
        EXPECT_EQ(1, DrawRectangle(canvas, 10, 10, 4, 4));
        const Picture pixels = PixelsOn(canvas);
        EXPECT_EQ(kRed, pixels.At(5, 5));
        EXPECT_EQ(0u, pixels.At(30, 30));
        EXPECT_EQ(0xFFu, pixels.At(11, 11) >> 24);
        EXPECT_NEAR(0x7F, static_cast<int>(pixels.At(11, 11) >> 16 & 0xFF), 1);

        SetBlendMode(canvas, VEL_BLEND_CLEAR);
        EXPECT_EQ(1, DrawColor(canvas, 0));
        EXPECT_EQ(1, FillSolidRect(canvas, kRed, &part));
        EXPECT_EQ(1, DrawColor(canvas, 0));
        const std::vector<uint32_t> cleared = PixelsOf(Locked(canvas));
        EXPECT_EQ(std::vector<uint32_t>(cleared.size(), 0), cleared) << "cleared again";
    }
}

TEST(VectorPixels, BecomeTexturesAndBitmapsWithTheirCanvas) {
    const Picture scene = Scene();
    HGCANVAS canvas = CreateCanvas(kSceneWidth, kSceneHeight, {});
    FillWith(Locked(canvas), kGround);
    DrawScene(canvas);
    const OwnedTexture texture(CanvasToTexture(canvas));
    EXPECT_TRUE(Same(scene, PictureOf(Locked(texture))));
    EXPECT_EQ(0, DrawColor(canvas, kRed));
}

TEST(VectorDrawing, TwoThreadsDrawOnTwoCanvases) {
    const Picture scene = Scene();
    const OwnedCanvas first = Ground(), second = Ground();
    const auto draw = [&](HGCANVAS canvas) {
        for (int i = 0; i < 50; ++i) {
            FillWith(Locked(canvas), kGround);
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
