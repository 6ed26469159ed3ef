// Textures: slices, layout records, and pixels shared with canvases and taken from bitmaps.

#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "objects.h"

namespace lacquer {
namespace {

constexpr int kNone = -1;
using Size = std::array<LONG, 2>;

Rect SliceOf(HGTEXTURE texture) {
    RECT slice{};
    EXPECT_EQ(1, GetTextureCurSlice(texture, &slice));
    return slice;
}
class SliceTest : public testing::Test {
protected:
    const RECT slices_[3] = {{10, 0, 40, 20}, {0, 0, 5, 6}, {1, 2, 3, 4}};
    const OwnedTexture texture_{CreateTexture(100, 50)};
};

TEST_F(SliceTest, WithoutAListTheTextureStandsForItself) {
    EXPECT_EQ(0u, GetTextureSliceCount(texture_));
    EXPECT_EQ(kNone, SetTextureCurSlice(texture_, 0));
    EXPECT_EQ(Rect(0, 0, 100, 50), SliceOf(texture_));
    EXPECT_EQ((Size{100, 50}), SizeOf(texture_));
}

TEST_F(SliceTest, TheLastOfANewListIsCurrent) {
    EXPECT_EQ(3u, SetTextureSlice(texture_, 3, slices_));
    EXPECT_EQ(3u, GetTextureSliceCount(texture_));
    EXPECT_EQ(Rect(slices_[2]), SliceOf(texture_));
    EXPECT_EQ(2, SetTextureCurSlice(texture_, 0));
    EXPECT_EQ((Size{30, 20}), SizeOf(texture_));
    for (const int wrong : {3, -1, INT_MIN, INT_MAX}) EXPECT_EQ(kNone, SetTextureCurSlice(texture_, wrong));
    EXPECT_EQ(Rect(slices_[0]), SliceOf(texture_));
    EXPECT_EQ(0, SetTextureCurSlice(texture_, 1));
    EXPECT_EQ(1u, SetTextureSlice(texture_, 1, slices_));
    EXPECT_EQ(Rect(slices_[0]), SliceOf(texture_));
    EXPECT_EQ(0, SetTextureCurSlice(texture_, 0));
    for (const DWORD count : {0u, 5u}) EXPECT_EQ(0u, SetTextureSlice(texture_, count, nullptr));
    EXPECT_EQ(1u, GetTextureSliceCount(texture_));
    EXPECT_EQ(Rect(slices_[0]), SliceOf(texture_));
}

TEST_F(SliceTest, AnEmptyListKeepsTheOldIndex) {
    ASSERT_EQ(3u, SetTextureSlice(texture_, 3, slices_));
    EXPECT_EQ(0u, SetTextureSlice(texture_, 0, slices_));
    EXPECT_EQ(0u, GetTextureSliceCount(texture_));
    EXPECT_EQ((Size{-7, -8}), SizeOf(texture_)) << "nothing is told";
    EXPECT_EQ(Rect(0, 0, 100, 50), SliceOf(texture_));
    EXPECT_EQ(kNone, SetTextureCurSlice(texture_, 0));
    EXPECT_EQ(3u, SetTextureSlice(texture_, 3, slices_));
    EXPECT_EQ(2, SetTextureCurSlice(texture_, 1));

    const OwnedTexture never(CreateTexture(4, 4));
    EXPECT_EQ(0u, SetTextureSlice(never, 0, slices_));
    EXPECT_EQ((Size{-7, -8}), SizeOf(never)) << "an empty list is a list";
}

TEST_F(SliceTest, AnyRectanglesAreKept) {
    const RECT wild[] = {{5, 6, 1, 2}, {INT_MIN, INT_MIN, INT_MAX, INT_MAX}};
    ASSERT_EQ(2u, SetTextureSlice(texture_, 2, wild));
    EXPECT_EQ(Rect(wild[1]), SliceOf(texture_));
    EXPECT_EQ((Size{INT_MAX, INT_MAX}), SizeOf(texture_));
    SetTextureCurSlice(texture_, 0);
    EXPECT_EQ(Rect(wild[0]), SliceOf(texture_));
    EXPECT_EQ((Size{-4, -4}), SizeOf(texture_));

    std::vector<RECT> many;
    for (LONG i = 0; i < 5000; ++i) many.push_back({i, i + 1, i + 2, i + 3});
    EXPECT_EQ(5000u, SetTextureSlice(texture_, 5000, many.data()));
    many.assign(5000, RECT{});
    EXPECT_EQ(4999, SetTextureCurSlice(texture_, 4711));
    EXPECT_EQ(Rect(4711, 4712, 4713, 4714), SliceOf(texture_)) << "the list is a copy";
}

TEST(TextureTest, TheLayoutRecordIsKeptByteForByte) {
    const OwnedTexture texture(CreateTextureEx(3, 3, 24, 0));
    TextureMode mode, stored;
    std::memset(&stored, 0xFF, sizeof stored);
    std::memset(&mode, 0, sizeof mode);
    EXPECT_EQ(1, GetTextureMode(texture, &stored));
    EXPECT_EQ(0, std::memcmp(&mode, &stored, sizeof mode));
    for (size_t i = 0; i < sizeof mode; ++i)
        reinterpret_cast<unsigned char *>(&mode)[i] = static_cast<unsigned char>(i * 9 + 1);
    EXPECT_EQ(1, SetTextureMode(texture, &mode));
    EXPECT_EQ(1, GetTextureMode(texture, &stored));
    EXPECT_EQ(0, std::memcmp(&mode, &stored, sizeof mode));
}

TEST(TextureTest, LocksAreInWholeTextureCoordinates) {
    const OwnedTexture texture = NoisyTexture(9, 9, 1);
    const RECT slice{4, 4, 8, 8}, corner{0, 0, 2, 2};
    SetTextureSlice(texture, 1, &slice);
    SurfaceView whole{}, part{};
    ASSERT_EQ(1, LockTextureBits(texture, &whole, nullptr));
    EXPECT_EQ(9, whole.width);
    ASSERT_EQ(1, LockTextureBits(texture, &part, &corner));
    EXPECT_EQ(whole.bits, part.bits);
    EXPECT_EQ(1, UnlockTextureBits(texture));
}

TEST(TextureTest, ProductsHaveNoSlicesAndNoLayout) {
    const OwnedTexture texture = Noisy(OwnedTexture(CreateTextureEx(6, 4, 8, 16)), 1, true);
    const RECT slice{0, 0, 2, 2};
    const TextureMode mode{3, 1, {1, 1, 1, 1}};
    SetTextureFilter(texture, 0x01000000);
    SetTextureSlice(texture, 1, &slice);
    SetTextureMode(texture, &mode);
    const OwnedTexture resized(ResizeTexture(texture, 12, 8, 0)), turned(TransformTexture(texture, 3)),
        rotated(RotateTexture(texture, 3)), flipped(FlipTexture(texture, 5));
    for (const HGTEXTURE made : {HGTEXTURE(resized), HGTEXTURE(turned), HGTEXTURE(rotated), HGTEXTURE(flipped)}) {
        TextureMode stored{9, 9, {}};
        GetTextureMode(made, &stored);
        EXPECT_EQ(0u, stored.mode);
        EXPECT_EQ(0u, stored.scaleFlags);
        EXPECT_EQ(0u, GetTextureSliceCount(made));
        EXPECT_EQ(0x01000000u, FilterOf(made));
    }
    BYTE depth = 0;
    EXPECT_EQ(1, GetTextureBitsPixel(resized, &depth));
    EXPECT_EQ(32, depth);
    EXPECT_EQ(1, GetTextureBitsPixel(turned, &depth));
    EXPECT_EQ(8, depth);
    EXPECT_EQ((Size{12, 8}), SizeOf(resized));
    EXPECT_EQ((Size{4, 6}), SizeOf(turned));
    EXPECT_EQ(PixelsIn(turned), PixelsIn(rotated));
    const uint32_t topLeft = ColourAt(ViewOf(texture), 0, 0);
    EXPECT_EQ(topLeft, ColourAt(ViewOf(turned), 0, 5)) << "counter-clockwise: top left to bottom left";
    EXPECT_EQ(topLeft, ColourAt(ViewOf(flipped), 5, 0));
    for (const int code : {0, 4, -1}) EXPECT_FALSE(RotateTexture(texture, code));
    for (const DWORD code : {0u, 3u, 6u}) EXPECT_FALSE(FlipTexture(texture, code));
    for (const DWORD code : {0u, 8u}) EXPECT_FALSE(TransformTexture(texture, code));
}

TEST(TextureTest, ProductsOfSystemPixelsAreInMemory) {
    const OwnedCanvas canvas(CreateSystemCanvas(4, 4, {}));
    const OwnedTexture borrowed(GetTexture(canvas));
    const OwnedTexture resized(ResizeTexture(borrowed, 4, 4, 0)), turned(TransformTexture(borrowed, 1));
    for (const HGTEXTURE made : {HGTEXTURE(resized), HGTEXTURE(turned)}) {
        const void *bits = ViewOf(made).bits;
        EXPECT_NE(nullptr, GetTextureHandle(made));
        EXPECT_NE(bits, ViewOf(made).bits) << "the pixels move when a handle is asked for";
    }
}

TEST(TextureTest, CopyIsTheOneOfBitmaps) {
    const OwnedTexture dest = NoisyTexture(4, 4, 1), source = Noisy(OwnedTexture(CreateTextureEx(2, 2, 24, 0)), 2);
    SetTextureFilter(source, 0x02000001);
    const RECT to{1, 1, 4, 4};
    EXPECT_EQ(1, CopyTexture(dest, &to, source, nullptr));
    EXPECT_EQ(0x02000001u, FilterOf(dest));
    EXPECT_EQ(ColourAt(ViewOf(source), 1, 1), PixelAt(ViewOf(dest), 2, 2));
}

TEST(TextureTest, ABitmapGivesItsPixelsAway) {
    const HGBITMAP bitmap = Noisy(CreateMemBitmapEx(5, 4, 8, 16), 1, true);
    SetBitmapFilter(bitmap, 0x02000003);
    const void *bits = ViewOf(bitmap).bits;
    const std::vector<uint32_t> colours = ColoursOf(ViewOf(bitmap));
    const OwnedTexture texture(BitmapToTexture(bitmap));
    EXPECT_FALSE(IsLive(bitmap));
    EXPECT_FALSE(BitmapToTexture(bitmap));
    EXPECT_EQ(bits, ViewOf(texture).bits) << "no pixel is copied";
    EXPECT_EQ(colours, ColoursOf(ViewOf(texture)));
    EXPECT_EQ(0x02000003u, FilterOf(texture));
    EXPECT_EQ(0u, GetTextureSliceCount(texture));
    EXPECT_NE(nullptr, GetTextureHandle(texture));
    EXPECT_EQ(colours, PixelsIn(texture));
}

TEST(TextureTest, BorrowedPixelsOutliveWhateverTheCanvasDoes) {
    enum class Event { Release, Delete, GetHandle, ToBitmap, ToTexture, DeleteAlias, ConvertAlias };
    for (const Event event : {Event::Release, Event::Delete, Event::GetHandle, Event::ToBitmap, Event::ToTexture,
                              Event::DeleteAlias, Event::ConvertAlias}) {
        for (const bool system : {false, true}) {
            SCOPED_TRACE(static_cast<int>(event));
            const HGCANVAS canvas = system ? CreateSystemCanvas(6, 5, {}) : CreateCanvas(6, 5, {});
            SetCanvasFilter(canvas, 0x01000000);
            FillWithNoise(ViewOf(canvas), 8);
            const OwnedTexture texture(GetTexture(canvas));
            EXPECT_EQ(0x01000000u, FilterOf(texture));
            EXPECT_EQ(ViewOf(canvas).bits, ViewOf(texture).bits);
            EXPECT_EQ(system, GetTextureHandle(texture) != nullptr) << "the texture can't move them";
            const std::vector<uint32_t> pixels = PixelsIn(texture);
            HGBITMAP made{};
            HGTEXTURE other{};
            const HGBITMAP alias = GetBitmap(canvas);
            switch (event) {
                case Event::Release: ReleaseTexture(GetTexture(canvas)); break;
                case Event::Delete: DeleteCanvas(canvas); break;
                case Event::GetHandle: EXPECT_NE(nullptr, GetCanvasHandle(canvas)); break;
                case Event::ToBitmap: made = CanvasToBitmap(canvas); break;
                case Event::ToTexture: other = CanvasToTexture(canvas); break;
                case Event::DeleteAlias: DeleteBitmap(alias); break;
                case Event::ConvertAlias: EXPECT_NE(nullptr, GetBitmapHandle(alias)); break;
            }
            ReleaseBitmap(alias);
            EXPECT_EQ(pixels, PixelsIn(texture));
            DeleteBitmap(made);
            DeleteTexture(other);
            DeleteCanvas(canvas);
            EXPECT_EQ(pixels, PixelsIn(texture));
            FillWith(ViewOf(texture), 0x01020304);
        }
    }
}

}  // namespace
}  // namespace lacquer
