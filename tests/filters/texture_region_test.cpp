// Regions of textures, compared with regions that are put together pixel by pixel.

#include <algorithm>
#include <ctime>
#include <limits>

#include "models.h"

namespace lacquer {
namespace {

using Region = lq::Owner<HRGN, DeleteObject>;

Region RegionOf(HGTEXTURE texture, const RECT *rect = nullptr) { return Region(CreateTextureRgn(texture, rect)); }

/// Success when a texture's region is that of the pixels of `visible` which are not 0; of a rectangle, too.
::testing::AssertionResult ShowsPixelsOf(const Picture &visible, HGTEXTURE texture, const RECT *rect = nullptr) {
    const Picture shown = rect ? Cut(visible, *rect) : visible;
    const Region expected(CreateRectRgn(0, 0, 0, 0)), region = RegionOf(texture, rect);
    for (LONG y = 0; y < shown.height; ++y) {
        // Rows first, so that merging stays quick.
        const Region row(CreateRectRgn(0, 0, 0, 0)), pixel(CreateRectRgn(0, 0, 0, 0));
        for (LONG x = 0; x < shown.width; ++x) {
            if (shown.At(x, y) == 0) continue;
            SetRectRgn(pixel, x, y, x + 1, y + 1);
            CombineRgn(row, row, pixel, RGN_OR);
        }
        CombineRgn(expected, expected, row, RGN_OR);
    }
    if (region && EqualRgn(region, expected)) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << shown.width << " x " << shown.height;
}

/// Drawn over: only of copied textures every pixel is visible.
OwnedTexture OverTexture(const Picture &picture) {
    OwnedTexture texture = TextureOf(picture);
    SetTextureFilter(texture, kOver);
    return texture;
}

/// Every `period`th pixel is 0, in rows of their own runs.
Picture Striped(LONG width, LONG height, LONG period) {
    Picture picture = NoisePicture(width, height, 0);
    ForEachPixel(picture, [&](LONG x, LONG y) { picture.At(x, y) = (x + y) % period == 0 ? 0 : 0x00FFFFFF; });
    return picture;
}

TEST(TextureRegion, HoldsEveryPixelThatIsNotZero) {
    Random random(4);
    for (int i = 0; i < 40; ++i) {
        Picture picture = NoisePicture(random.Between(1, 40), random.Between(1, 30), random.Word());
        const uint32_t share = random.Word() % 6;
        for (uint32_t &pixel : picture.pixels) {
            if (pixel % 5 < share) pixel = 0;
            // One channel is enough to be visible.
            if (pixel % 7 < 3) pixel &= random.Of<uint32_t>({0xFF000000, 0x00FF0000, 1});
        }
        const OwnedTexture texture = OverTexture(picture);
        const RECT rect = random.Inside(picture.Bounds());
        ASSERT_TRUE(ShowsPixelsOf(picture, texture));
        ASSERT_TRUE(ShowsPixelsOf(picture, texture, &rect));
    }
    // The list grows in steps of 100 runs, and is handed over at 2,000.
    for (const LONG runs : {99, 100, 101, 1999, 2000, 2001, 10000}) {
        const Picture picture = Striped(2, runs, 2);
        ASSERT_TRUE(ShowsPixelsOf(picture, OverTexture(picture)));
    }
}

TEST(TextureRegion, IsEverythingWhereAllIsOpaqueAndFollowsPalettes) {
    const RECT part{2, 3, 8, 5};
    for (const auto &[bits, filter] :
         {std::pair<DWORD, DWORD>{4, 0}, {8, 0}, {16, 0}, {24, 0}, {32, 0x00FFFFFF}, {24, kOver}, {24, 0x02000000}}) {
        const OwnedTexture texture(CreateTextureEx(9, 7, bits, 0));
        SetTextureFilter(texture, filter);
        const Picture all{9, 7, std::vector<uint32_t>(63, 1)};
        EXPECT_TRUE(ShowsPixelsOf(all, texture)) << bits;
        EXPECT_TRUE(ShowsPixelsOf(all, texture, &part)) << bits;
    }
    for (const DWORD count : {0u, 2u, 200u, 256u}) {
        const OwnedTexture texture(CreateTextureEx(21, 13, 8, count));
        SetTextureFilter(texture, kOver);
        const SurfaceView view = ViewOf(texture);
        FillWithNoise(view, 3);
        for (DWORD i = 0; i < count; ++i) view.palette[i] = i % 3 == 0 ? 0 : i;
        EXPECT_TRUE(ShowsPixelsOf(PictureOf(view), texture)) << count;
    }
}

#ifndef _WIN32
// On Windows the system's own region functions take most of the time.
TEST(TextureRegion, CostsLittleMoreThanItsRuns) {
    // The least of some, so that what else the machine does counts little.
    const auto ticksOf = [](LONG size) {
        const OwnedTexture texture = OverTexture(Striped(size, size, 2));
        std::clock_t least = std::numeric_limits<std::clock_t>::max();
        for (int i = 0; i < 3; ++i) {
            const std::clock_t start = std::clock();
            EXPECT_TRUE(RegionOf(texture));
            least = std::min(least, std::clock() - start);
        }
        return least;
    };
    // 16 times the runs: about 20 times the work, and over 100 times if each batch were merged into all before it.
    EXPECT_LT(ticksOf(1200), 50 * ticksOf(300));
}
#endif

TEST(TextureRegion, IsRefusedElsewhere) {
    const OwnedTexture texture = OverTexture(Striped(10, 10, 2));
    const RECT empty{4, 4, 4, 6};
    EXPECT_FALSE(RegionOf(texture, &empty));
    for (const DWORD filter : {kOver, DWORD{0}}) {
        SetTextureFilter(texture, filter);
        for (const RECT &rect : kOutside) EXPECT_FALSE(RegionOf(texture, &rect));
    }
    EXPECT_TRUE(RegionOf(texture, &empty)) << "of an opaque one it is empty";
    for (const WORD bits : std::initializer_list<WORD>{4, 16, 48}) {
        const OwnedTexture other(CreateTextureEx(6, 6, bits, 0));
        SetTextureFilter(other, kOver);
        EXPECT_FALSE(RegionOf(other)) << bits;
    }
}

}  // namespace
}  // namespace lacquer
