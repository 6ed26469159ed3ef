// Bitmaps drawn on canvases: every draw mode, depth and strength; clipping, origins and results.

#include "painting.h"

namespace lacquer {
namespace {

constexpr DWORD kNearest = LACQUER_NEAREST;
constexpr WORD kDepths[] = {8, 24, 32};
constexpr DWORD kKeyColour = 0x00030201;

/// Noise in which every third pixel is the key of colour-keyed draws.
OwnedBitmap KeyedBitmap(LONG width, LONG height, WORD bitsPerPixel, DWORD filter) {
    OwnedBitmap bitmap = NoiseBitmap(width, height, bitsPerPixel, 3, filter);
    const SurfaceView view = Locked(bitmap);
    if (bitsPerPixel == 8) view.palette[7] = kKeyColour;
    for (LONG i = 0; i < width * height; i += 3) {
        PutPixel(view, i % width, i / width, bitsPerPixel == 8 ? 7 : kKeyColour);
    }
    return bitmap;
}

/// Where the key pixels would be blended they are left out: they are not premultiplied.
OwnedBitmap SourceFor(DWORD mode, WORD bits, BYTE alpha) {
    const bool keyed = mode == LACQUER_DRAW_COLOR_KEY && alpha == 255;
    const DWORD filter = mode << 24 | kKeyColour;
    return keyed ? KeyedBitmap(11, 9, bits, filter) : NoiseBitmap(11, 9, bits, 3, filter);
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
    for (DWORD mode = 0; mode <= 8; ++mode) {
        for (const WORD bits : kDepths) {
            for (const BYTE alpha : {BYTE{0}, BYTE{1}, BYTE{128}, BYTE{254}, BYTE{255}}) {
                const OwnedBitmap bitmap = SourceFor(mode, bits, alpha);
                const Picture source = PictureOf(Locked(bitmap));
                for (const RECT &dest : dests) {
                    const TestCanvas canvas(CanvasKind::Memory, 16, 15, mode);
                    Picture expected = canvas.Pixels();
                    DWORD filter = 0;
                    GetBitmapFilter(bitmap, &filter);
                    DrawNearest(expected, expected.Bounds(), dest, source, whole,
                                [&](uint32_t s, uint32_t d) { return Combined(filter, alpha, bits, s, d); });
                    EXPECT_EQ(1, DrawBitmapEx(canvas, &dest, bitmap, kNearest, alpha));
                    ASSERT_TRUE(Same(expected, canvas.Pixels()))
                        << "mode " << mode << " bits " << bits << " alpha " << int{alpha} << " left " << dest.left;
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
        for (const DWORD kernelMode : {0u, 1u, 4u, 5u, 77u}) {
            const OwnedCanvas canvas(CreateCanvas(30, 24, {}));
            EXPECT_EQ(1, DrawBitmap(canvas, &dest, bitmap, kernelMode));
            const OwnedBitmap resized(
                ResizeBitmap(bitmap, static_cast<DWORD>(dest.right), static_cast<DWORD>(dest.bottom), kernelMode));
            const OwnedCanvas copied(CreateCanvas(30, 24, {}));
            EXPECT_EQ(1, DrawBitmap(copied, &dest, resized, 0));
            EXPECT_TRUE(Same(PictureOf(Locked(copied)), PictureOf(Locked(canvas)))) << kernelMode;
            results.push_back(PictureOf(Locked(canvas)));
        }
        EXPECT_FALSE(Same(results[0], results[1])) << "nearest and bilinear";
        EXPECT_FALSE(Same(results[1], results[2])) << "bilinear and bicubic";
        EXPECT_TRUE(Same(results[1], results[4])) << "any other mode is bilinear";
    }
}

TEST(BitmapDrawing, FilteredColourKeysDrawOverUnlessTheSourceIsOpaque) {
    const RECT dest{1, 1, 24, 20};
    for (const WORD bits : kDepths) {
        for (const DWORD kernelMode : {1u, 4u, 5u}) {
            const auto drawn = [&](DWORD filter, DWORD kernel) {
                const OwnedBitmap bitmap = KeyedBitmap(11, 9, bits, filter);
                if (bits == 32) FillWithNoise(Locked(bitmap), 3);
                const TestCanvas canvas(CanvasKind::Memory, 26, 22, 4);
                DrawBitmap(canvas, &dest, bitmap, kernel);
                return canvas.Pixels();
            };
            const DWORD keyed = 0x02000000 | kKeyColour;
            EXPECT_TRUE(Same(bits == 24 ? drawn(keyed, 0) : drawn(0x01000000, kernelMode), drawn(keyed, kernelMode)))
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
    for (LONG y = 0; y < kHeight; ++y) {
        for (LONG x = 0; x < kWidth; ++x) PutPixel(large.View(), x + kBorder, y + kBorder, expected.At(x, y));
    }
    const RECT inner = Moved(dest, kBorder, kBorder);
    DrawBitmapRectEx(large, &inner, bitmap, &source, kernelMode, alpha);
    const Picture drawn = large.Pixels();
    for (LONG y = 0; y < kHeight; ++y) {
        for (LONG x = 0; x < kWidth; ++x) {
            if (Contains(clip, x, y)) expected.At(x, y) = drawn.At(x + kBorder, y + kBorder);
        }
    }
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
        ExpectClippedEqualsCrop(random.Of({CanvasKind::Memory, CanvasKind::System, CanvasKind::FromDC}),
                                random.Inside({0, 0, 40, 34}), dest, bitmap, source, kernelMode,
                                random.Of<BYTE>({255, 255, 90}));
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

TEST(BitmapDrawing, LeavesTheHoleOfAClipRegionAlone) {
    const TestCanvas canvas(CanvasKind::FromDC, 20, 18, 1), plain(CanvasKind::FromDC, 20, 18, 1);
    const Picture before = canvas.Pixels();
    const RECT clip{2, 2, 17, 16}, hole{6, 5, 11, 9}, dest{0, 0, 20, 18};
    const OwnedBitmap bitmap = NoiseBitmap(7, 6, 32, 9, 0x01000000);
    SelectClipWithHole(canvas.Context(), clip, hole);
    EXPECT_EQ(1, DrawBitmap(canvas, &dest, bitmap, 1));
    EXPECT_EQ(1, DrawBitmap(plain, &dest, bitmap, 1));
    const Picture after = canvas.Pixels(), unclipped = plain.Pixels();
    for (LONG y = 0; y < 18; ++y) {
        for (LONG x = 0; x < 20; ++x) {
            const Picture &expected = Contains(clip, x, y) && !Contains(hole, x, y) ? unclipped : before;
            ASSERT_EQ(expected.At(x, y), after.At(x, y)) << x << ", " << y;
        }
    }
}

TEST(BitmapDrawing, TakesTheWholeBitmapOrARectangleOfIt) {
    const OwnedBitmap bitmap = NoiseBitmap(12, 10, 32, 5);
    const RECT dest{1, 1, 13, 11}, whole{0, 0, 12, 10};
    const auto drawn = [&](auto draw) {
        const TestCanvas canvas(CanvasKind::Memory, 16, 12, 1);
        EXPECT_EQ(1, draw(canvas));
        return canvas.Pixels();
    };
    const Picture expected =
        drawn([&](HGCANVAS c) { return DrawBitmapRectEx(c, &dest, bitmap, &whole, kNearest, 255); });
    EXPECT_TRUE(Same(expected, drawn([&](HGCANVAS c) { return DrawBitmap(c, &dest, bitmap, kNearest); })));
    EXPECT_TRUE(
        Same(expected, drawn([&](HGCANVAS c) { return DrawBitmapRectEx(c, &dest, bitmap, nullptr, kNearest, 255); })));

    const Picture untouched = drawn([](HGCANVAS) { return 1; });
    for (const RECT &source : {RECT{-1, 0, 12, 10}, RECT{0, 0, 13, 10}, RECT{0, 0, 12, 11}, RECT{0, -1, 5, 5},
                               RECT{4, 4, 4, 8}, RECT{8, 8, 2, 2}}) {
        EXPECT_TRUE(Same(
            untouched, drawn([&](HGCANVAS c) { return DrawBitmapRectEx(c, &dest, bitmap, &source, kNearest, 255); })));
    }
}

TEST(BitmapDrawing, RefusesOnlyHandlesAndNullDestinations) {
    const OwnedBitmap bitmap = NoiseBitmap(4, 4, 32, 5);
    const OwnedTexture texture = NoiseTexture(4, 4, 32, 5);
    const TestCanvas canvas(CanvasKind::Memory, 8, 8, 1);
    const Picture before = canvas.Pixels();
    const RECT dest{0, 0, 4, 4}, outside{8, 0, 12, 4}, inverted{4, 4, 0, 0};
    const HGBITMAP otherType{HGTEXTURE(texture).value};
    EXPECT_EQ(0, DrawBitmap(canvas, &dest, {}, 0));
    EXPECT_EQ(0, DrawBitmap(canvas, &dest, otherType, 0));
    EXPECT_EQ(0, DrawBitmap({}, &dest, bitmap, 0));
    EXPECT_EQ(0, DrawBitmap({HGBITMAP(bitmap).value}, &dest, bitmap, 0));
    EXPECT_EQ(0, DrawBitmapEx(canvas, nullptr, bitmap, 0, 255));
    EXPECT_EQ(0, DrawTexture(canvas, nullptr, texture, 0));
    EXPECT_EQ(0, DrawTexture(canvas, &dest, {}, 0));
    EXPECT_EQ(0, DrawTexture({}, &dest, texture, 0));
    EXPECT_EQ(1, DrawBitmap(canvas, &outside, bitmap, 0));
    EXPECT_EQ(1, DrawBitmap(canvas, &inverted, bitmap, 0));
    EXPECT_TRUE(Same(before, canvas.Pixels()));
}

TEST(BitmapDrawing, LeavesDepthsWithoutKernelsAlone) {
    const OwnedBitmap deep(CreateMemBitmapEx(4, 4, 16, 0));
    const RECT dest{0, 0, 4, 4};
    const TestCanvas canvas(CanvasKind::Memory, 8, 8, 1);
    const Picture before = canvas.Pixels();
    EXPECT_EQ(1, DrawBitmap(canvas, &dest, deep, 0));
    EXPECT_TRUE(Same(before, canvas.Pixels()));

    const Dib dib(8, 8, 24);
    const MemoryDC dc(dib.Handle());
    const OwnedCanvas shallow(CreateCanvasFromDC(dc));
    const OwnedBitmap bitmap = NoiseBitmap(4, 4, 32, 5);
    FillWith(dib.View(), 0x123456);
    EXPECT_EQ(1, DrawBitmap(shallow, &dest, bitmap, 0));
    EXPECT_EQ(1, FillSolidRect(shallow, 0xFFFFFFFF, &dest));
    EXPECT_EQ(1, MixCanvasWithColor(shallow, &dest, 0xFFFFFFFF, 255));
    EXPECT_EQ(std::vector<uint32_t>(64, 0x123456), PixelsOf(dib.View()));
}

}  // namespace
}  // namespace lacquer
