// Objects that become others, and pixels that two objects share.

#include <gtest/gtest.h>

#include "objects.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

constexpr DWORD kFilter = 0x01000007;

/// Turns a canvas into an object of another type, which has the canvas's pixels, opaque unless the canvas draws over.
template <class Object, class Convert, class GetHandle>
void ExpectConverted(const Convert &convert, const GetHandle &getHandle) {
    for (const bool system : {false, true}) {
        for (const DWORD filter : std::initializer_list<DWORD>{0, kFilter, 0x02000001, 0x81000000}) {
            const HGCANVAS canvas = system ? CreateSystemCanvas(5, 3, {}) : CreateCanvas(5, 3, {});
            EXPECT_TRUE(filter != kFilter || GetCanvasHandle(canvas));
            FillWithNoise(ViewOf(canvas), filter);
            SetCanvasFilter(canvas, filter);
            std::vector<uint32_t> expected = PixelsIn(canvas);
            if (filter >> 24 != LACQUER_DRAW_OVER) {
                for (uint32_t &pixel : expected) pixel |= 0xFF000000;
            }
            const HGBITMAP alias = GetBitmap(canvas);
            SetBitmapFilter(alias, 0x05000005);
            const Object made(convert(canvas));
            EXPECT_FALSE(IsLive(canvas));
            if (IsLive(alias)) {
                EXPECT_EQ(ViewOf(made).bits, ViewOf(alias).bits);
            }
            EXPECT_EQ((std::is_same_v<Object, OwnedBitmap>), IsLive(alias));
            EXPECT_EQ(filter, FilterOf(made));
            EXPECT_EQ(expected, PixelsIn(made));
            EXPECT_EQ((Size{5, 3}), SizeOf(made));
            const MemoryDC dc(getHandle(made));  // no context holds the GDI bitmap any more
            EXPECT_EQ(expected[0] & 0xFF, GetPixel(dc, 0, 0) >> 16);
        }
    }
}

TEST(ConversionTest, ACanvasGivesItsPixelsAway) {
    ExpectConverted<OwnedBitmap>(CanvasToBitmap, GetBitmapHandle);
    ExpectConverted<OwnedTexture>(CanvasToTexture, GetTextureHandle);
}

TEST(ConversionTest, ABitmapGivesItsPixelsAway) {
    const HGBITMAP bitmap = Noisy(CreateMemBitmapEx(5, 4, 8, 16), 1, true);
    SetBitmapFilter(bitmap, kFilter);
    const void *bits = ViewOf(bitmap).bits;
    const OwnedTexture texture(BitmapToTexture(bitmap));
    EXPECT_FALSE(IsLive(bitmap));
    EXPECT_EQ(bits, ViewOf(texture).bits) << "no pixel is copied";
    EXPECT_EQ(kFilter, FilterOf(texture));
    EXPECT_NE(nullptr, GetTextureHandle(texture));
}

TEST(SharingTest, BorrowedPixelsOutliveWhateverTheCanvasDoes) {
    using Event = void (*)(HGCANVAS canvas, HGBITMAP alias);
    const Event events[] = {[](HGCANVAS canvas, HGBITMAP) { ReleaseTexture(GetTexture(canvas)); },
                            [](HGCANVAS canvas, HGBITMAP) { DeleteCanvas(canvas); },
                            [](HGCANVAS canvas, HGBITMAP) { EXPECT_NE(nullptr, GetCanvasHandle(canvas)); },
                            [](HGCANVAS canvas, HGBITMAP) { const OwnedBitmap made(CanvasToBitmap(canvas)); },
                            [](HGCANVAS canvas, HGBITMAP) { const OwnedTexture made(CanvasToTexture(canvas)); },
                            [](HGCANVAS, HGBITMAP alias) { DeleteBitmap(alias); },
                            [](HGCANVAS, HGBITMAP alias) { EXPECT_NE(nullptr, GetBitmapHandle(alias)); }};
    for (const Event &event : events) {
        for (const bool system : {false, true}) {
            SCOPED_TRACE(testing::Message() << "event " << &event - events);
            const HGCANVAS canvas = system ? CreateSystemCanvas(6, 5, {}) : CreateCanvas(6, 5, {});
            SetCanvasFilter(canvas, kFilter);
            FillWithNoise(ViewOf(canvas), 8);
            const OwnedTexture texture(GetTexture(canvas));
            EXPECT_EQ(kFilter, FilterOf(texture));
            EXPECT_EQ(ViewOf(canvas).bits, ViewOf(texture).bits);
            EXPECT_EQ(system, GetTextureHandle(texture) != nullptr) << "the texture can't move them";
            const std::vector<uint32_t> pixels = PixelsIn(texture);
            event(canvas, GetBitmap(canvas));
            EXPECT_EQ(pixels, PixelsIn(texture));
            DeleteCanvas(canvas);
            EXPECT_EQ(pixels, PixelsIn(texture));
            FillWith(ViewOf(texture), 0x01020304);
        }
    }
}

}  // namespace
}  // namespace lacquer
