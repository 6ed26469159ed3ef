// Bitmaps drawn on canvases: every draw mode, depth and strength under any clip and origins; and what has no kernels.

#include "rounds.h"

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
    ForRounds(5, 4000, [](Round &round) {
        Random &random = round.random;
        // Bits per pixel and colours: 0 for a system bitmap, and for greys, which are no palette of the bitmap's own.
        const auto [bits, colours] =
            random.Of<std::pair<DWORD, DWORD>>({{0, 0}, {8, 0}, {8, 16}, {8, 200}, {8, 256}, {24, 0}, {32, 0}});
        const bool isGrey = bits == 8 && colours == 0;
        const OwnedBitmap bitmap(bits == 0 ? CreateSystemBitmap(25, 22) : CreateMemBitmapEx(25, 22, bits, colours));
        const auto mode = random.Of<DWORD>({0, 1, 2, 3, 4, 5, 6, 7, 8, 255});
        const auto alpha = random.Of<BYTE>({0, 1, 128, 254, 255, 255});
        const DWORD filter = mode << 24 | kKeyColour;
        const SurfaceView view = ViewOf(bitmap);
        FillWithNoise(view, random.Word());
        if (!isGrey) FillPaletteWithNoise(view, random.Word());
        // Where the key pixels would be blended they are left out: they are not premultiplied.
        if (mode == LACQUER_DRAW_COLOR_KEY && alpha == 255 && !isGrey) PutKeys(view);
        SetBitmapFilter(bitmap, filter);
        const RECT dest = round.Logical(round.dest), from = random.Coin() ? kSource : round.Partner();
        EXPECT_EQ(1, DrawBitmapRectEx(round.canvas, &dest, bitmap, &from, LACQUER_NEAREST, alpha));
        round.Expect(PictureOf(view), from, round.clip,
                     [&](uint32_t s, uint32_t d) { return Combined(filter, alpha, view.bitsPerPixel, s, d); });
    });
}

/// What has no kernels is drawn from and drawn on without effect, and without failure.
TEST(BitmapDrawing, LeavesDepthsWithoutKernelsAlone) {
    const RECT same{0, 0, 4, 4}, stretched{-2, -2, 9, 9};
    const TestCanvas canvas(CanvasKind::Memory, 8, 8, 1);
    const Picture before = canvas.Pixels();
    for (const DWORD depth : {0u, 1u, 4u, 12u, 16u, 48u, 65535u}) {
        const OwnedBitmap bitmap(CreateMemBitmapEx(4, 4, depth, 0));
        for (const DWORD mode : {0u, 1u, 2u, 3u, 6u}) {
            SetBitmapFilter(bitmap, mode << 24);
            EXPECT_EQ(1, DrawBitmapEx(canvas, &same, bitmap, 4, 255));
            EXPECT_EQ(1, DrawBitmapEx(canvas, &stretched, bitmap, 1, 99));
        }
        EXPECT_TRUE(Same(before, canvas.Pixels())) << depth;
    }
    const Dib dib(8, 8, 16);
    const MemoryDC dc(dib.Handle());
    const OwnedCanvas shallow(CreateCanvasFromDC(dc));
    const GeoRect ring{1, 1, 7, 7};
    const ShadowStyle shadow{0xFF000000, 0, 0, 4, 0, {}, 1, LACQUER_SHADOW_FILLED};
    FillWith(dib.View(), 0x1234);
    EXPECT_EQ(1, DrawBitmap(shallow, &same, NoiseBitmap(4, 4, 32, 5), 0));
    EXPECT_EQ(1, FillSolidRect(shallow, 0xFFFFFFFF, &same));
    EXPECT_EQ(1, MixCanvasWithColor(shallow, &same, 0xFFFFFFFF, 255));
    EXPECT_EQ(1, GeoRoundRect(shallow, &same, 0xFF000000, 0xFF123456, 1, 2));
    EXPECT_EQ(1, GeoRectFocusEx(shallow, &ring, 0xFF000000, 1, 0, 1, 1));
    EXPECT_EQ(1, DrawShadows(shallow, &same, &shadow, 1));
    GdiFlush();
    EXPECT_EQ(std::vector<uint32_t>(64, 0x1234), PixelsOf(dib.View()));
}

#ifdef _WIN32
/// A metafile can't be read.
TEST(BitmapDrawing, TakesMetafilesForTransparentBlack) {
    const TestCanvas canvas(CanvasKind::Metafile, 40, 36, 1);
    Picture expected = PictureOf(canvas.View());
    const OwnedBitmap bitmap = NoiseBitmap(9, 8, 32, 5, kOver);
    const Picture source = PictureOf(ViewOf(bitmap));
    const RECT place{5, 6, 14, 14};
    DrawNearest(expected, kCanvas, place, source, source.Bounds(), [](uint32_t s, uint32_t) { return s; });
    EXPECT_EQ(1, DrawBitmap(canvas, &place, bitmap, 0));
    EXPECT_TRUE(Same(expected, canvas.Pixels()));
}
#endif

}  // namespace
}  // namespace lacquer
