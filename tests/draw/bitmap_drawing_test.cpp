// Bitmaps drawn on canvases: every draw mode, depth and strength; clipping, origins and results.

#include "painting.h"

namespace lacquer {
namespace {

constexpr DWORD kNearest = LACQUER_NEAREST;
constexpr WORD kDepths[] = {8, 24, 32};
constexpr DWORD kKeyColour = 0x00030201;

/// Makes every third pixel the key of colour-keyed draws.
void PutKeys(const SurfaceView &view) {
    if (view.bitsPerPixel == 8) view.palette[7] = kKeyColour;
    for (LONG i = 0; i < view.width * view.height; i += 3) {
        PutPixel(view, i % view.width, i / view.width, view.bitsPerPixel == 8 ? 7 : kKeyColour);
    }
}

TEST(BitmapDrawing, FollowsTheFormulasOfEveryModeDepthAndStrength) {
    const RECT dests[] = {{2, 3, 13, 12},
                          {-4, -3, 7, 6},
                          {9, 8, 20, 17},
                          {1, 1, 16, 6},
                          {-9, -9, 31, 40},
                          {3, 3, 5, 7},
                          {-200000, -300000, 200000, 100000}};
    const RECT whole{0, 0, 11, 9};
    const auto make = [](DWORD bits, DWORD palette) { return OwnedBitmap(CreateMemBitmapEx(11, 9, bits, palette)); };
    const OwnedBitmap bitmaps[] = {make(8, 0),
                                   make(8, 16),
                                   make(8, 200),
                                   make(8, 256),
                                   make(24, 0),
                                   make(32, 0),
                                   OwnedBitmap(CreateSystemBitmap(11, 9))};
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
                for (const RECT &dest : dests) {
                    const TestCanvas canvas(dest.left == 1 ? CanvasKind::System : CanvasKind::Memory, 16, 15, mode);
                    Picture expected = canvas.Pixels();
                    DrawNearest(expected, expected.Bounds(), dest, source, whole, [&](uint32_t s, uint32_t d) {
                        return Combined(filter, alpha, view.bitsPerPixel, s, d);
                    });
                    EXPECT_EQ(1, DrawBitmapEx(canvas, &dest, bitmap, kNearest, alpha));
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
    const RECT sizes[] = {{0, 0, 29, 23}, {0, 0, 6, 5}, {0, 0, 6, 20}};
    for (const RECT &dest : sizes) {
        std::vector<Picture> results;
        for (const DWORD kernelMode : {0u, 1u, 4u, 5u, 2u, 3u, 6u, 77u, 0xFFFFFFFFu}) {
            const OwnedCanvas canvas(CreateCanvas(30, 24, {}));
            EXPECT_EQ(1, DrawBitmap(canvas, &dest, bitmap, kernelMode));
            const OwnedBitmap resized(
                ResizeBitmap(bitmap, static_cast<DWORD>(dest.right), static_cast<DWORD>(dest.bottom), kernelMode));
            const OwnedCanvas copied(CreateCanvas(30, 24, {}));
            EXPECT_EQ(1, DrawBitmap(copied, &dest, resized, 0));
            EXPECT_TRUE(Same(PictureOf(ViewOf(copied)), PictureOf(ViewOf(canvas)))) << kernelMode;
            results.push_back(PictureOf(ViewOf(canvas)));
        }
        EXPECT_FALSE(Same(results[0], results[1])) << "nearest and bilinear";
        EXPECT_FALSE(Same(results[1], results[2])) << "bilinear and bicubic";
        for (size_t other = 4; other < results.size(); ++other) {
            EXPECT_TRUE(Same(results[1], results[other])) << "any other mode is bilinear";
        }
    }
}

TEST(BitmapDrawing, FilteredColourKeysDrawOverUnlessTheSourceIsOpaque) {
    const RECT dest{1, 1, 24, 20};
    for (const WORD bits : kDepths) {
        for (const DWORD kernelMode : {1u, 4u, 5u}) {
            const auto drawn = [&](DWORD filter, DWORD kernel) {
                const OwnedBitmap bitmap = NoiseBitmap(11, 9, bits, 3, filter);
                if (bits != 32) PutKeys(ViewOf(bitmap));
                const TestCanvas canvas(CanvasKind::Memory, 26, 22, 4);
                DrawBitmap(canvas, &dest, bitmap, kernel);
                return canvas.Pixels();
            };
            const DWORD keyed = 0x02000000 | kKeyColour;
            EXPECT_TRUE(Same(bits == 24 ? drawn(keyed, 0) : drawn(kOver, kernelMode), drawn(keyed, kernelMode)))
                << bits << " " << kernelMode;
        }
    }
}

/// A canvas that shows only `clip` has there what an unclipped one has, and is as before elsewhere.
void ExpectClippedEqualsCrop(CanvasKind kind, const RECT &clip, const RECT &dest, HGBITMAP bitmap, const RECT &source,
                             DWORD kernelMode, BYTE alpha) {
    constexpr LONG kWidth = 40, kHeight = 34, kBorder = 50;
    const TestCanvas large(CanvasKind::Memory, kWidth + 2 * kBorder, kHeight + 2 * kBorder, 1);
    const TestCanvas canvas(kind, kWidth, kHeight, 2);
    Picture expected = canvas.Pixels();
    ForEachPixel(expected,
                 [&](LONG x, LONG y) { PutPixel(large.View(), x + kBorder, y + kBorder, expected.At(x, y)); });
    const RECT inner = Moved(dest, kBorder, kBorder);
    DrawBitmapRectEx(large, &inner, bitmap, &source, kernelMode, alpha);
    const Picture drawn = large.Pixels();
    ForEachPixel(expected, [&](LONG x, LONG y) {
        if (Contains(clip, x, y)) expected.At(x, y) = drawn.At(x + kBorder, y + kBorder);
    });
    // The same place under other origins.
    SetViewportOrg(canvas, -7, 11, nullptr);
    SetWindowOrg(canvas, 5, 4, nullptr);
    const RECT logicalClip = Moved(clip, 12, -7), logicalDest = Moved(dest, 12, -7);
    SetCanvasClipRect(canvas, &logicalClip);
    EXPECT_EQ(1, DrawBitmapRectEx(canvas, &logicalDest, bitmap, &source, kernelMode, alpha));
    EXPECT_TRUE(Same(expected, canvas.Pixels())) << "kind " << static_cast<int>(kind);
}

TEST(BitmapDrawing, ClippedDrawsAreCropsOfWholeOnes) {
    Random random(17);
    for (int round = 0; round < 700; ++round) {
        const DWORD mode = random.Of<DWORD>({0u, 1u, 2u, 3u, 6u}), kernelMode = random.Of<DWORD>({0u, 1u, 4u, 5u});
        const OwnedBitmap bitmap =
            NoiseBitmap(24, 19, random.Of<WORD>({8, 24, 32}), static_cast<uint32_t>(round), mode << 24);
        const RECT source = random.Inside({0, 0, 24, 19});
        RECT dest = random.Inside({-30, -30, 70, 60});
        if (random.Between(0, 3) == 0) {
            dest.right = dest.left + source.right - source.left;
            dest.bottom = dest.top + source.bottom - source.top;
        }
        ExpectClippedEqualsCrop(random.Of(kCanvasKinds), random.Inside({0, 0, 40, 34}), dest, bitmap, source,
                                kernelMode, random.Of<BYTE>({255, 255, 90}));
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

TEST(BitmapDrawing, LeavesTheHoleOfAClipRegionAlone) {
    const TestCanvas canvas(CanvasKind::FromDC, 20, 18, 1), plain(CanvasKind::FromDC, 20, 18, 1);
    const Picture before = canvas.Pixels();
    const RECT clip{2, 2, 17, 16}, hole{6, 5, 11, 9}, dest{0, 0, 20, 18};
    const OwnedBitmap bitmap = NoiseBitmap(7, 6, 32, 9, kOver);
    SelectClipWithHole(canvas.Context(), clip, hole);
    EXPECT_EQ(1, DrawBitmap(canvas, &dest, bitmap, 1));
    EXPECT_EQ(1, DrawBitmap(plain, &dest, bitmap, 1));
    const Picture after = canvas.Pixels(), unclipped = plain.Pixels();
    ForEachPixel(after, [&](LONG x, LONG y) {
        const Picture &expected = Contains(clip, x, y) && !Contains(hole, x, y) ? unclipped : before;
        ASSERT_EQ(expected.At(x, y), after.At(x, y)) << x << ", " << y;
    });
}

TEST(BitmapDrawing, TakesTheWholeBitmapOrARectangleOfIt) {
    const OwnedBitmap bitmap = NoiseBitmap(12, 10, 32, 5);
    const RECT dest{1, 1, 13, 11}, whole{0, 0, 12, 10};
    const auto drawn = [&](auto draw) {
        const TestCanvas canvas(CanvasKind::Memory, 16, 12, 1);
        EXPECT_EQ(1, draw(canvas));
        return canvas.Pixels();
    };
    const auto from = [&](const RECT *source) {
        return drawn([&](HGCANVAS c) { return DrawBitmapRectEx(c, &dest, bitmap, source, kNearest, 255); });
    };
    EXPECT_TRUE(Same(from(&whole), drawn([&](HGCANVAS c) { return DrawBitmap(c, &dest, bitmap, kNearest); })));
    EXPECT_TRUE(Same(from(&whole), from(nullptr)));

    const Picture untouched = drawn([](HGCANVAS) { return 1; });
    for (const RECT &source : {RECT{-1, 0, 12, 10}, RECT{0, 0, 13, 10}, RECT{0, 0, 12, 11}, RECT{0, -1, 5, 5},
                               RECT{4, 4, 4, 8}, RECT{8, 8, 2, 2}}) {
        EXPECT_TRUE(Same(untouched, from(&source)));
    }
    for (const RECT &away : {RECT{16, 0, 20, 4}, RECT{4, 4, 0, 0}}) {
        EXPECT_TRUE(Same(untouched, drawn([&](HGCANVAS c) { return DrawBitmap(c, &away, bitmap, 0); })));
    }
}

TEST(BitmapDrawing, LeavesDepthsWithoutKernelsAlone) {
    const RECT same{0, 0, 4, 4}, stretched{0, 0, 6, 6}, clipped{-2, -2, 9, 9};
    const TestCanvas canvas(CanvasKind::Memory, 8, 8, 1);
    const Picture before = canvas.Pixels();
    for (const DWORD depth : {0u, 1u, 4u, 12u, 16u, 48u, 65535u}) {
        const OwnedBitmap bitmap(CreateMemBitmapEx(4, 4, depth, 0));
        const OwnedTexture texture(CreateTextureEx(4, 4, depth, 0));
        for (const DWORD mode : {0u, 1u, 2u, 3u, 6u}) {
            SetBitmapFilter(bitmap, mode << 24);
            SetTextureFilter(texture, mode << 24);
            for (const RECT &dest : {same, stretched, clipped}) {
                EXPECT_EQ(1, DrawBitmapEx(canvas, &dest, bitmap, 4, 255));
                EXPECT_EQ(1, DrawBitmapEx(canvas, &dest, bitmap, 1, 99));
                EXPECT_EQ(1, DrawTexture(canvas, &dest, texture, 5));
            }
        }
        EXPECT_TRUE(Same(before, canvas.Pixels())) << depth;
    }
    for (const WORD depth : {WORD{16}, WORD{24}}) {
        const Dib dib(8, 8, depth);
        const MemoryDC dc(dib.Handle());
        const OwnedCanvas shallow(CreateCanvasFromDC(dc));
        const OwnedBitmap bitmap = NoiseBitmap(4, 4, 32, 5);
        FillWith(dib.View(), 0x1234);
        EXPECT_EQ(1, DrawBitmap(shallow, &same, bitmap, 0));
        EXPECT_EQ(1, FillSolidRect(shallow, 0xFFFFFFFF, &same));
        EXPECT_EQ(1, MixCanvasWithColor(shallow, &same, 0xFFFFFFFF, 255));
        EXPECT_EQ(std::vector<uint32_t>(64, 0x1234), PixelsOf(dib.View()));
    }
}

}  // namespace
}  // namespace lacquer
