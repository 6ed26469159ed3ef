// Regions of textures, compared with regions that are put together rectangle by rectangle.

#include <algorithm>
#include <ctime>
#include <limits>
#include <memory>

#include "models.h"

namespace lacquer {
namespace {

struct RegionDeleter {
    void operator()(HRGN region) const { DeleteObject(region); }
};
using Region = std::unique_ptr<std::remove_pointer_t<HRGN>, RegionDeleter>;

Region RegionOf(HGTEXTURE texture, const RECT *rect = nullptr) { return Region(CreateTextureRgn(texture, rect)); }

/// The pixels that are not 0, one by one.
Region PixelByPixel(const Picture &picture) {
    Region region(CreateRectRgn(0, 0, 0, 0));
    for (LONG y = 0; y < picture.height; ++y) {
        // Rows first, so that merging stays quick.
        const Region row(CreateRectRgn(0, 0, 0, 0)), pixel(CreateRectRgn(0, 0, 0, 0));
        for (LONG x = 0; x < picture.width; ++x) {
            if (picture.At(x, y) == 0) continue;
            SetRectRgn(pixel.get(), x, y, x + 1, y + 1);
            CombineRgn(row.get(), row.get(), pixel.get(), RGN_OR);
        }
        CombineRgn(region.get(), region.get(), row.get(), RGN_OR);
    }
    return region;
}

::testing::AssertionResult IsRect(const Region &region, const RECT &rect) {
    if (!region) return ::testing::AssertionFailure() << "no region";
    const Region expected(CreateRectRgnIndirect(&rect));
    if (EqualRgn(region.get(), expected.get())) return ::testing::AssertionSuccess();
    RECT box{};
    GetRgnBox(region.get(), &box);
    return ::testing::AssertionFailure() << "box (" << box.left << ", " << box.top << ", " << box.right << ", "
                                         << box.bottom << ')';
}

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

TEST(TextureRegion, OfOpaqueTexturesIsTheRectangle) {
    for (const WORD bits : std::initializer_list<WORD>{4, 8, 16, 24, 32}) {
        const OwnedTexture texture(CreateTextureEx(9, 7, bits, 0));
        SetTextureFilter(texture, 0x00FFFFFF);
        const RECT part{2, 3, 8, 5}, empty{4, 4, 4, 4};
        EXPECT_TRUE(IsRect(RegionOf(texture), {0, 0, 9, 7}));
        EXPECT_TRUE(IsRect(RegionOf(texture, &part), {0, 0, 6, 2}));
        EXPECT_TRUE(IsRect(RegionOf(texture, &empty), {}));
    }
}

TEST(TextureRegion, EqualsOneMadePixelByPixel) {
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
        const Region whole = RegionOf(texture);
        ASSERT_TRUE(whole && EqualRgn(whole.get(), PixelByPixel(picture).get()));
        const RECT rect = random.Inside(picture.Bounds());
        const Region part = RegionOf(texture, &rect);
        ASSERT_TRUE(part && EqualRgn(part.get(), PixelByPixel(Cut(picture, rect)).get()));
    }
}

TEST(TextureRegion, MergesBatchesOfRuns) {
    // 99 to 101 and 1,999 to 2,001 runs stand around the steps in which the list grows and is handed over.
    const Picture pictures[] = {Striped(2, 99, 2),   Striped(2, 100, 2),  Striped(2, 101, 2),
                                Striped(2, 1999, 2), Striped(2, 2000, 2), Striped(2, 2001, 2),
                                Striped(2, 4000, 2), Striped(120, 90, 2), Striped(90, 160, 3)};
    for (const Picture &picture : pictures) {
        const Region region = RegionOf(OverTexture(picture));
        ASSERT_TRUE(region && EqualRgn(region.get(), PixelByPixel(picture).get())) << picture.height;
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

TEST(TextureRegion, LooksAtPalettesAndTakesTriplesWhole) {
    for (const DWORD count : {0u, 2u, 200u, 256u}) {
        const OwnedTexture texture(CreateTextureEx(21, 13, 8, count));
        SetTextureFilter(texture, kOver);
        const SurfaceView view = ViewOf(texture);
        FillWithNoise(view, 3);
        for (DWORD i = 0; count != 0 && i < count; ++i) view.palette[i] = i % 3 == 0 ? 0 : i;
        const Region region = RegionOf(texture);
        ASSERT_TRUE(region && EqualRgn(region.get(), PixelByPixel(PictureOf(view)).get())) << count;
    }
    const OwnedTexture triples(CreateTextureEx(10, 6, 24, 0));
    SetTextureFilter(triples, 0x02000000);
    FillWith(ViewOf(triples), 0);
    const RECT part{1, 2, 10, 5};
    EXPECT_TRUE(IsRect(RegionOf(triples), {0, 0, 10, 6}));
    EXPECT_TRUE(IsRect(RegionOf(triples, &part), {0, 0, 9, 3}));
}

TEST(TextureRegion, IsRefusedElsewhere) {
    const OwnedTexture texture = OverTexture(Striped(10, 10, 2));
    for (const DWORD filter : {kOver, DWORD{0}}) {
        SetTextureFilter(texture, filter);
        for (const RECT &rect : kOutside) EXPECT_EQ(nullptr, RegionOf(texture, &rect));
    }
    SetTextureFilter(texture, kOver);
    const RECT empty{4, 4, 4, 6};
    EXPECT_EQ(nullptr, RegionOf(texture, &empty));
    for (const WORD bits : std::initializer_list<WORD>{4, 16, 48}) {
        const OwnedTexture other(CreateTextureEx(6, 6, bits, 0));
        SetTextureFilter(other, kOver);
        EXPECT_EQ(nullptr, RegionOf(other)) << bits;
    }
}

}  // namespace
}  // namespace lacquer
