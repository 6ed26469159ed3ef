// One canvas as source and destination at once, directly and through handles that name its pixels: a plain copy at 1:1
// has the result of a copied source; other overlapping draws have none in particular, but stay inside the destination.

#include "painting.h"

namespace lacquer {
namespace {

TEST(Aliasing, OverlappingDrawsStayInsideTheirDestination) {
    Random random(1);
    for (int round = 0; round < 600; ++round) {
        const TestCanvas canvas(random.Of({CanvasKind::Memory, CanvasKind::System}), 40, 36, random.Word());
        const Picture before = canvas.Pixels();
        const DWORD filter = random.Of<DWORD>({0u, kOver, 0x06000000u});
        SetCanvasFilter(canvas, filter);
        const HGBITMAP bitmap = GetBitmap(canvas);
        const HGTEXTURE texture = GetTexture(canvas);
        const RECT source = random.Inside({0, 0, 40, 36});
        const bool moves = random.Coin();
        const RECT dest =
            moves ? Moved(source, random.Between(-15, 15), random.Between(-15, 15)) : random.Inside({-9, -9, 49, 45});
        const DWORD kernelMode = random.Of<DWORD>({0u, 1u, 4u, 5u});
        const auto alpha = static_cast<BYTE>(random.Of({100, 255}));
        const RECT margins{2, 2, 2, 2};
        switch (round % 8) {
            case 0: EXPECT_EQ(1, DrawBitmapRectEx(canvas, &dest, bitmap, &source, kernelMode, alpha)); break;
            case 1: EXPECT_EQ(1, BlendCanvas(canvas, &dest, canvas, &source, alpha)); break;
            case 2: EXPECT_EQ(1, MixCanvas(canvas, &dest, canvas, &source, alpha)); break;
            case 3: EXPECT_EQ(1, DrawModulation(canvas, dest.left, dest.top, bitmap, &dest, 0xFF885522)); break;
            case 4:
                EXPECT_EQ(
                    1, DrawTexture9Grid(canvas, &dest, texture, &source, &margins, kernelMode, 1, alpha, 0, 1.0f, 0));
                break;
            case 5: EXPECT_EQ(0, DrawTextureTile(canvas, &dest, texture, &source, kernelMode, alpha, 0, 1.0f)); break;
            case 6:
                EXPECT_EQ(0, DrawTextureTopTile(canvas, &dest, texture, &source, &margins, kernelMode, alpha));
                break;
            default: EXPECT_EQ(1, DrawTextureCenter(canvas, &dest, texture, &source, kernelMode, alpha)); break;
        }
        const Picture after = canvas.Pixels();
        ExpectSameOutside(dest, before, after);
        const bool copies = round % 8 < 2 || round % 8 == 7;
        if (moves && copies && filter == 0 && alpha == 255) {
            ForEachPixel(before, [&](LONG x, LONG y) {
                if (!Contains(dest, x, y)) return;
                ASSERT_EQ(before.At(x - dest.left + source.left, y - dest.top + source.top), after.At(x, y));
            });
        }
        ASSERT_FALSE(HasFailure()) << "round " << round;
        ReleaseTexture(texture);
        ReleaseBitmap(bitmap);
    }
}

TEST(Aliasing, CanvasesOfOneDeviceContextDrawOnThemselves) {
    const TestCanvas canvas(CanvasKind::FromDC, 40, 36, 1);
    const RECT dest{2, 2, 22, 22}, source{10, 12, 30, 32}, outside{30, 30, 50, 50};
    // Partly outside, the destination is locked by a copy. The source beside it is not.
    Picture expected = canvas.Pixels();
    DrawNearest(expected, expected.Bounds(), outside, canvas.Pixels(), dest, [](uint32_t s, uint32_t) { return s; });
    EXPECT_EQ(1, MixCanvas(canvas, &outside, canvas, &dest, 255));
    EXPECT_TRUE(Same(expected, canvas.Pixels()));
    SelectClipWithHole(canvas.Context(), {0, 0, 40, 36}, {5, 5, 9, 9});
    EXPECT_EQ(1, MixCanvas(canvas, &dest, canvas, &source, 100)) << "only one copying lock at a time: nothing is drawn";
    EXPECT_TRUE(Same(expected, canvas.Pixels()));
    EXPECT_NE(0, BlendCanvas(canvas, &dest, canvas, &source, 100));
    HDC dc = canvas.Context();
    EXPECT_NE(0, GdiTransCanvas(dc, &dest, canvas, &source, 255));
}

}  // namespace
}  // namespace lacquer
