// Bitmaps drawn on canvases: every draw mode, depth and strength, the samplers, and clipping under any origins.

#include "draw_rules.h"
#include "painting.h"

namespace lacquer {
namespace {

constexpr DWORD kKeyColour = 0x00030201;

/// Makes every third pixel the key of colour-keyed draws.
void PutKeys(const SurfaceView &view) {
    if (view.bitsPerPixel == 8) view.palette[7] = kKeyColour;
    for (LONG i = 0; i < view.width * view.height; i += 3) {
        PutPixel(view, i % view.width, i / view.width, view.bitsPerPixel == 8 ? 7 : kKeyColour);
    }
}

TEST(BitmapDrawing, FollowsTheFormulasOfEveryModeDepthAndStrength) {
    constexpr RECT kDests[] = {{2, 3, 13, 12},   {-4, -3, 7, 6}, {9, 8, 20, 17},
                               {1, 1, 16, 6},    {3, 3, 5, 7},   {-200000, -300000, 200000, 100000},
                               {-9, -9, 31, 40}, {20, 0, 31, 9}, {9, 9, 2, 2}};
    const auto make = [](DWORD bits, DWORD palette) { return OwnedBitmap(CreateMemBitmapEx(11, 9, bits, palette)); };
    const OwnedBitmap bitmaps[] = {make(8, 0),  make(8, 16), make(8, 200),
                                   make(24, 0), make(32, 0), OwnedBitmap(CreateSystemBitmap(11, 9))};
    for (const DWORD mode : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u, 255u}) {
        for (const OwnedBitmap &bitmap : bitmaps) {
            const SurfaceView view = ViewOf(bitmap);
            // The palette of the first, greys, is not its own.
            const bool hasOwnPalette = &bitmap != bitmaps;
            for (const BYTE alpha : {BYTE{0}, BYTE{1}, BYTE{128}, BYTE{254}, BYTE{255}}) {
                FillWithNoise(view, 3);
                if (hasOwnPalette) FillPaletteWithNoise(view, 4);
                // Where the key pixels would be blended they are left out: they are not premultiplied.
                if (mode == LACQUER_DRAW_COLOR_KEY && alpha == 255 && hasOwnPalette) PutKeys(view);
                const DWORD filter = mode << 24 | kKeyColour;
                SetBitmapFilter(bitmap, filter);
                const Picture source = PictureOf(view);
                for (const RECT &dest : kDests) {
                    const TestCanvas canvas(dest.left == 1 ? CanvasKind::System : CanvasKind::Memory, 16, 15, mode);
                    Picture expected = canvas.Pixels();
                    DrawNearest(
                        expected, expected.Bounds(), dest, source, source.Bounds(),
                        [&](uint32_t s, uint32_t d) { return Combined(filter, alpha, view.bitsPerPixel, s, d); });
                    EXPECT_EQ(1, DrawBitmapEx(canvas, &dest, bitmap, LACQUER_NEAREST, alpha));
                    ASSERT_TRUE(Same(expected, canvas.Pixels()))
                        << "mode " << mode << " bits " << view.bitsPerPixel << " colours " << view.paletteCount
                        << " alpha " << int{alpha} << " left " << dest.left;
                }
            }
        }
    }
}

TEST(BitmapDrawing, SamplesByTheKernelModeOfTheDraw) {
    const OwnedBitmap bitmap = NoiseBitmap(13, 10, 32, 8);
    for (const RECT &dest : {RECT{0, 0, 29, 23}, RECT{0, 0, 6, 5}}) {
        for (const DWORD kernelMode : {0u, 1u, 4u, 5u}) {
            const TestCanvas drawn(CanvasKind::Memory, 30, 24, 1), resized(CanvasKind::Memory, 30, 24, 1);
            EXPECT_EQ(1, DrawBitmap(drawn, &dest, bitmap, kernelMode));
            const OwnedBitmap copy(
                ResizeBitmap(bitmap, static_cast<DWORD>(dest.right), static_cast<DWORD>(dest.bottom), kernelMode));
            EXPECT_EQ(1, DrawBitmap(resized, &dest, copy, 0));
            EXPECT_TRUE(Same(resized.Pixels(), drawn.Pixels())) << kernelMode;
        }
    }
}

/// A canvas that shows only `clip` has there what an unclipped one has, and is as before elsewhere.
void ExpectClippedEqualsCrop(CanvasKind kind, const RECT &clip, const RECT &dest, HGBITMAP bitmap, const RECT *source,
                             DWORD kernelMode, BYTE alpha) {
    constexpr LONG kWidth = 40, kHeight = 34, kBorder = 50;
    const TestCanvas large(CanvasKind::Memory, kWidth + 2 * kBorder, kHeight + 2 * kBorder, 1);
    const TestCanvas canvas(kind, kWidth, kHeight, 2);
    Picture expected = canvas.Pixels();
    ForEachPixel(expected,
                 [&](LONG x, LONG y) { PutPixel(large.View(), x + kBorder, y + kBorder, expected.At(x, y)); });
    const RECT inner = Moved(dest, kBorder, kBorder);
    DrawBitmapRectEx(large, &inner, bitmap, source, kernelMode, alpha);
    const Picture drawn = large.Pixels();
    ForEachPixel(expected, [&](LONG x, LONG y) {
        if (Contains(clip, x, y)) expected.At(x, y) = drawn.At(x + kBorder, y + kBorder);
    });
    // The same place under other origins.
    SetViewportOrg(canvas, -7, 11, nullptr);
    SetWindowOrg(canvas, 5, 4, nullptr);
    const RECT logicalClip = Moved(clip, 12, -7), logicalDest = Moved(dest, 12, -7);
    SetCanvasClipRect(canvas, &logicalClip);
    EXPECT_EQ(1, DrawBitmapRectEx(canvas, &logicalDest, bitmap, source, kernelMode, alpha));
    EXPECT_TRUE(Same(expected, canvas.Pixels())) << "kind " << static_cast<int>(kind);
}

TEST(BitmapDrawing, ClippedDrawsAreCropsOfWholeOnes) {
    Random random(17);
    for (int round = 0; round < 500; ++round) {
        const DWORD mode = random.Of<DWORD>({0u, 1u, 2u, 3u, 6u}), kernelMode = random.Of<DWORD>({0u, 1u, 4u, 5u});
        const OwnedBitmap bitmap =
            NoiseBitmap(24, 19, random.Of<WORD>({8, 24, 32}), static_cast<uint32_t>(round), mode << 24);
        const RECT part = random.Inside({0, 0, 24, 19});
        const RECT *source = random.Coin() ? &part : nullptr;
        RECT dest = random.Inside({-30, -30, 70, 60});
        if (random.Between(0, 3) == 0) {
            dest.right = dest.left + (source ? part.right - part.left : 24);
            dest.bottom = dest.top + (source ? part.bottom - part.top : 19);
        }
        ExpectClippedEqualsCrop(random.Of(kCanvasKinds), random.Inside({0, 0, 40, 34}), dest, bitmap, source,
                                kernelMode, random.Of<BYTE>({255, 255, 90}));
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

/// What has no kernels is drawn from and drawn on without effect, and without failure.
TEST(BitmapDrawing, LeavesDepthsWithoutKernelsAlone) {
    constexpr RECT kDests[] = {{0, 0, 4, 4}, {0, 0, 6, 6}, {-2, -2, 9, 9}};
    const TestCanvas canvas(CanvasKind::Memory, 8, 8, 1);
    const Picture before = canvas.Pixels();
    for (const DWORD depth : {0u, 1u, 4u, 12u, 16u, 48u, 65535u}) {
        const OwnedBitmap bitmap(CreateMemBitmapEx(4, 4, depth, 0));
        for (const DWORD mode : {0u, 1u, 2u, 3u, 6u}) {
            SetBitmapFilter(bitmap, mode << 24);
            for (const RECT &dest : kDests) {
                EXPECT_EQ(1, DrawBitmapEx(canvas, &dest, bitmap, 4, 255));
                EXPECT_EQ(1, DrawBitmapEx(canvas, &dest, bitmap, 1, 99));
            }
        }
        EXPECT_TRUE(Same(before, canvas.Pixels())) << depth;
    }
    for (const WORD depth : {WORD{16}, WORD{24}}) {
        const Dib dib(8, 8, depth);
        const MemoryDC dc(dib.Handle());
        const OwnedCanvas shallow(CreateCanvasFromDC(dc));
        const OwnedBitmap bitmap = NoiseBitmap(4, 4, 32, 5);
        const GeoRect ring{1, 1, 7, 7};
        const ShadowStyle shadow{0xFF000000, 0, 0, 4, 0, {}, 1, LACQUER_SHADOW_FILLED};
        FillWith(dib.View(), 0x1234);
        EXPECT_EQ(1, DrawBitmap(shallow, kDests, bitmap, 0));
        EXPECT_EQ(1, FillSolidRect(shallow, 0xFFFFFFFF, kDests));
        EXPECT_EQ(1, MixCanvasWithColor(shallow, kDests, 0xFFFFFFFF, 255));
        EXPECT_EQ(1, GeoRoundRect(shallow, kDests, 0xFF000000, 0xFF123456, 1, 2));
        EXPECT_EQ(1, GeoRectFocusEx(shallow, &ring, 0xFF000000, 1, 0, 1, 1));
        EXPECT_EQ(1, DrawShadows(shallow, kDests, &shadow, 1));
        GdiFlush();
        EXPECT_EQ(std::vector<uint32_t>(64, 0x1234), PixelsOf(dib.View()));
    }
}

}  // namespace
}  // namespace lacquer
