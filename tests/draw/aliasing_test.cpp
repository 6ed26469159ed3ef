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
        const DWORD filter = random.Of<DWORD>({0u, kOver, 0x06000000u}), kernel = random.Of<DWORD>({0u, 1u, 4u, 5u});
        SetCanvasFilter(canvas, filter);
        const HGBITMAP bitmap = GetBitmap(canvas);
        const HGTEXTURE texture = GetTexture(canvas);
        const RECT source = random.Inside({0, 0, 40, 36}), margins{2, 2, 2, 2};
        const bool moves = random.Coin();
        const RECT dest =
            moves ? Moved(source, random.Between(-15, 15), random.Between(-15, 15)) : random.Inside({-9, -9, 49, 45});
        const auto alpha = random.Of<BYTE>({100, 255});
        switch (round % 8) {
            case 0: DrawBitmapRectEx(canvas, &dest, bitmap, &source, kernel, alpha); break;
            case 1: BlendCanvas(canvas, &dest, canvas, &source, alpha); break;
            case 2: DrawTextureCenter(canvas, &dest, texture, &source, kernel, alpha); break;
            case 3: MixCanvas(canvas, &dest, canvas, &source, alpha); break;
            case 4: DrawModulation(canvas, dest.left, dest.top, bitmap, &dest, 0xFF885522); break;
            case 5: DrawTexture9Grid(canvas, &dest, texture, &source, &margins, kernel, 1, alpha, 0, 1.0f, 0); break;
            case 6: DrawTextureTile(canvas, &dest, texture, &source, kernel, alpha, 0, 1.0f); break;
            default: DrawTextureTopTile(canvas, &dest, texture, &source, &margins, kernel, alpha);
        }
        Picture expected = before;
        const bool copies = round % 8 < 3 && moves && filter == 0 && alpha == 255;
        const Picture after = canvas.Pixels();
        DrawNearest(expected, before.Bounds(), dest, copies ? before : after, copies ? source : dest,
                    [](uint32_t s, uint32_t) { return s; });
        ASSERT_TRUE(Same(expected, after)) << "round " << round;
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
    EXPECT_NE(0, GdiTransCanvas(canvas.Context(), &dest, canvas, &source, 255));
}

}  // namespace
}  // namespace lacquer
