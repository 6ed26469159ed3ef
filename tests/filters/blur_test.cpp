// The box blur and the Gaussian blur against models of them, over many sizes, rectangles and kinds of object.

#include <array>

#include "models.h"

namespace lacquer {
namespace {

OwnedTexture TextureOf(const Picture &picture) {
    OwnedTexture texture(CreateTexture(static_cast<DWORD>(picture.width), static_cast<DWORD>(picture.height)));
    Put(ViewOf(texture), picture);
    return texture;
}
OwnedBitmap BitmapOf(const Picture &picture) {
    OwnedBitmap bitmap(CreateMemBitmap(static_cast<DWORD>(picture.width), static_cast<DWORD>(picture.height)));
    Put(ViewOf(bitmap), picture);
    return bitmap;
}

/// The common part of the blurred source over what the destination had.
Picture BoxBlurredInto(Picture dest, const Picture &source) {
    const RECT common{0, 0, std::min(dest.width, source.width), std::min(dest.height, source.height)};
    Paste(dest, 0, 0, Cut(ModelBoxBlur(source), common));
    return dest;
}

TEST(BoxBlur, IsTheMeanOfNinePixelsAtEverySize) {
    for (LONG width = 1; width <= 24; ++width) {
        for (const LONG height : {1, 2, 3, 6}) {
            // Destinations that are smaller, of the same size and larger.
            for (const LONG change : {-5, -1, 0, 1, 4}) {
                if (width + change < 1) continue;
                const Picture source = NoisePicture(width, height, static_cast<uint32_t>(width * 7 + height));
                const Picture before = NoisePicture(width + change, std::max(height + change, LONG{1}), 99);
                const OwnedTexture from = TextureOf(source), to = TextureOf(before);
                ASSERT_EQ(1, BlurTexture(to, from));
                ASSERT_TRUE(Same(BoxBlurredInto(before, source), PictureOf(ViewOf(to)))) << width << " x " << height;
                ASSERT_TRUE(Same(source, PictureOf(ViewOf(from))));
            }
        }
    }
}

TEST(BoxBlur, KeepsEvenPictures) {
    for (uint32_t value = 0; value < 256; ++value) {
        const Picture even{11, 2, std::vector<uint32_t>(22, value * 0x01010101)};
        const OwnedTexture from = TextureOf(even), to = TextureOf(NoisePicture(11, 2, value));
        BlurTexture(to, from);
        ASSERT_TRUE(Same(even, PictureOf(ViewOf(to))));
    }
}

TEST(BoxBlur, OfRectanglesStopsAtTheirEdges) {
    Random random(11);
    for (int i = 0; i < 200; ++i) {
        const Picture source = NoisePicture(23, 17, random.Word()), before = NoisePicture(19, 21, random.Word());
        const RECT sourceRect = random.Inside(source.Bounds()), destRect = random.Inside(before.Bounds());
        Picture expected = before;
        Paste(expected, destRect.left, destRect.top, BoxBlurredInto(Cut(before, destRect), Cut(source, sourceRect)));
        const OwnedTexture textureFrom = TextureOf(source), textureTo = TextureOf(before);
        ASSERT_EQ(1, BlurTextureEx(textureTo, &destRect, textureFrom, &sourceRect));
        ASSERT_TRUE(Same(expected, PictureOf(ViewOf(textureTo))));
        const OwnedBitmap bitmapFrom = BitmapOf(source), bitmapTo = BitmapOf(before);
        ASSERT_EQ(1, BlurBitmapEx(bitmapTo, &destRect, bitmapFrom, &sourceRect));
        ASSERT_TRUE(Same(expected, PictureOf(ViewOf(bitmapTo))));
    }
}

TEST(BoxBlur, WorksOnSystemBitmaps) {
    const Picture source = NoisePicture(20, 9, 5);
    const OwnedBitmap from = BitmapOf(source), to(CreateSystemBitmap(20, 9));
    EXPECT_EQ(1, BlurBitmap(to, from));
    EXPECT_TRUE(Same(ModelBoxBlur(source), PictureOf(ViewOf(to))));
}

TEST(GaussianBlur, IsExactAtEverySize) {
    constexpr std::array<LONG, 15> kWidths{1, 2, 3, 4, 5, 6, 7, 8, 17, 63, 64, 65, 66, 67, 131};
    for (const LONG width : kWidths) {
        for (const LONG height : {1, 2, 3, 4, 6, 7, 8, 19}) {
            const Picture source = NoisePicture(width, height, static_cast<uint32_t>(width * 31 + height));
            const OwnedTexture target = TextureOf(source), scratch = TextureOf(NoisePicture(width, height, 1));
            ASSERT_EQ(1, GaussianBlurTexture(target, scratch));
            ASSERT_TRUE(Same(ModelGaussianBlur(source), PictureOf(ViewOf(target)))) << width << " x " << height;
        }
    }
    const Picture source = NoisePicture(30, 20, 3);
    const OwnedBitmap target = BitmapOf(source), scratch(CreateSystemBitmap(30, 20));
    EXPECT_EQ(1, GaussianBlurBitmap(target, scratch));
    EXPECT_TRUE(Same(ModelGaussianBlur(source), PictureOf(ViewOf(target))));
}

TEST(GaussianBlur, TruncatesEvenPictures) {
    std::array<uint32_t, 256> blurred{};
    for (uint32_t value = 0; value < 256; ++value) {
        const Picture even{9, 9, std::vector<uint32_t>(81, value * 0x01010101)};
        const OwnedTexture target = TextureOf(even), scratch(CreateTexture(9, 9));
        GaussianBlurTexture(target, scratch);
        const Picture result = PictureOf(ViewOf(target));
        ASSERT_TRUE(Same(ModelGaussianBlur(even), result)) << value;
        blurred[value] = result.pixels[40] & 0xFF;
    }
    EXPECT_EQ(254u, blurred[255]);
    EXPECT_EQ(254u, blurred[254]);
    EXPECT_EQ(2u, blurred[3]);
    EXPECT_EQ(0u, blurred[0]);
}

TEST(GaussianBlur, OfCanvasRectanglesFollowsTheOrigins) {
    for (const CanvasKind targetKind : kCanvasKinds) {
        for (const CanvasKind scratchKind : kCanvasKinds) {
            const TestCanvas target(targetKind, 40, 30, 1), scratch(scratchKind, 35, 28, 2);
            Picture expected = target.Pixels();
            const Picture untouched = scratch.Pixels();
            const RECT device{6, 5, 33, 26}, scratchDevice{3, 2, 30, 23};
            Paste(expected, device.left, device.top, ModelGaussianBlur(Cut(expected, device)));
            SetViewportOrg(target, 2, -3, nullptr);
            SetWindowOrg(scratch, 7, 8, nullptr);
            const RECT rect = Moved(device, -2, 3), scratchRect = Moved(scratchDevice, 7, 8);
            EXPECT_EQ(1, GaussianBlurCanvas(target, &rect, scratch, &scratchRect));
            EXPECT_TRUE(Same(expected, target.Pixels()));
            // Nothing of the scratch changes but its rectangle.
            Picture around = scratch.Pixels();
            Paste(around, scratchDevice.left, scratchDevice.top, Cut(untouched, scratchDevice));
            EXPECT_TRUE(Same(untouched, around));
        }
    }
    const TestCanvas whole(CanvasKind::Memory, 12, 8, 3), scratch(CanvasKind::System, 12, 8, 4);
    const Picture expected = ModelGaussianBlur(whole.Pixels());
    EXPECT_EQ(1, GaussianBlurCanvas(whole, nullptr, scratch, nullptr));
    EXPECT_TRUE(Same(expected, whole.Pixels()));
}

TEST(Blurs, ChangeNothingWithoutALockOrWithOtherSizes) {
    const Picture source = NoisePicture(6, 5, 1), before = NoisePicture(6, 4, 2);
    const OwnedTexture first = TextureOf(source), second = TextureOf(before);
    const OwnedBitmap firstBitmap = BitmapOf(source), secondBitmap = BitmapOf(before);
    const TestCanvas canvas(CanvasKind::Memory, 6, 5, 3), other(CanvasKind::FromDC, 6, 5, 4);
    const Picture canvasBefore = canvas.Pixels(), otherBefore = other.Pixels();
    EXPECT_EQ(1, GaussianBlurTexture(first, second));
    EXPECT_EQ(1, GaussianBlurBitmap(firstBitmap, secondBitmap));
    for (const RECT &rect : kOutside) {
        EXPECT_EQ(1, BlurTextureEx(second, &rect, first, nullptr));
        EXPECT_EQ(1, BlurTextureEx(second, nullptr, first, &rect));
        EXPECT_EQ(1, BlurBitmapEx(secondBitmap, &rect, firstBitmap, &rect));
        EXPECT_EQ(1, GaussianBlurCanvas(canvas, &rect, canvas, nullptr));
        EXPECT_EQ(1, GaussianBlurCanvas(canvas, nullptr, canvas, &rect));
    }
    // A canvas made from a device context can't be locked as a whole.
    EXPECT_EQ(1, GaussianBlurCanvas(canvas, nullptr, other, nullptr));
    EXPECT_EQ(1, GaussianBlurCanvas(other, nullptr, canvas, nullptr));
    EXPECT_TRUE(Same(source, PictureOf(ViewOf(first))));
    EXPECT_TRUE(Same(before, PictureOf(ViewOf(second))));
    EXPECT_TRUE(Same(source, PictureOf(ViewOf(firstBitmap))));
    EXPECT_TRUE(Same(before, PictureOf(ViewOf(secondBitmap))));
    EXPECT_TRUE(Same(canvasBefore, canvas.Pixels()));
    EXPECT_TRUE(Same(otherBefore, other.Pixels()));
}

TEST(Blurs, LeaveOtherDepthsAlone) {
    for (const WORD bits : std::initializer_list<WORD>{8, 16, 24, 48}) {
        const OwnedTexture deep = TextureOf(NoisePicture(7, 4, 1)), other(CreateTextureEx(7, 4, bits, 0));
        const SurfaceView view = ViewOf(other);
        FillBytes(view, 0x5A);
        const Picture before = PictureOf(ViewOf(deep));
        EXPECT_EQ(1, BlurTexture(other, deep));
        EXPECT_EQ(1, BlurTexture(deep, other));
        EXPECT_EQ(1, GaussianBlurTexture(other, deep));
        EXPECT_EQ(1, GaussianBlurTexture(deep, other));
        EXPECT_EQ(1, GaussianBlurTexture(other, other));
        EXPECT_TRUE(Same(before, PictureOf(ViewOf(deep)))) << bits;
        EXPECT_TRUE(HasOnlyBytes(view, 0x5A)) << bits;
    }
}

TEST(Blurs, OfAnObjectOntoItselfStayInside) {
    for (const LONG width : {1, 5, 40}) {
        Picture picture = NoisePicture(width, 5, 8);
        const OwnedTexture texture = TextureOf(picture);
        const RECT upper{0, 0, width, 3}, lower{0, 1, width, 4};
        EXPECT_EQ(1, BlurTexture(texture, texture));
        EXPECT_EQ(1, BlurTextureEx(texture, &lower, texture, &upper));
        EXPECT_EQ(1, GaussianBlurTexture(texture, texture));
    }
    const TestCanvas canvas(CanvasKind::FromDC, 20, 20, 1);
    const RECT first{0, 0, 10, 10}, second{5, 5, 15, 15};
    EXPECT_EQ(1, GaussianBlurCanvas(canvas, &first, canvas, &second));
}

}  // namespace
}  // namespace lacquer
