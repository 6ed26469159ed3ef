// The box blur, the Gaussian blur and the glow against models of them, over many sizes, rectangles and kinds of object.

#include "models.h"

namespace lacquer {
namespace {

TEST(BoxBlur, IsTheMeanOfNinePixelsOfItsRectangle) {
    Random random(11);
    for (int i = 0; i < 400; ++i) {
        const Picture source = NoisePicture(27, 9, random.Word()), before = NoisePicture(29, 11, random.Word());
        // Destinations that are smaller, of the same size and larger.
        const RECT sourceRect = random.Inside(source.Bounds()), destRect = random.Inside(before.Bounds());
        const OwnedTexture textureFrom = TextureOf(source), textureTo = TextureOf(before);
        const OwnedBitmap bitmapFrom = BitmapOf(source), bitmapTo = BitmapOf(before, i % 2 == 0);
        const bool isWhole = i % 8 == 0;
        const RECT from = isWhole ? source.Bounds() : sourceRect, to = isWhole ? before.Bounds() : destRect;
        EXPECT_EQ(1, isWhole ? BlurTexture(textureTo, textureFrom) : BlurTextureEx(textureTo, &to, textureFrom, &from));
        EXPECT_EQ(1, isWhole ? BlurBitmap(bitmapTo, bitmapFrom) : BlurBitmapEx(bitmapTo, &to, bitmapFrom, &from));
        Picture expected = before;
        const Picture blurred = ModelBoxBlur(Cut(source, from));
        Paste(expected, to.left, to.top,
              Cut(blurred, {0, 0, std::min<LONG>(blurred.width, to.right - to.left),
                            std::min<LONG>(blurred.height, to.bottom - to.top)}));
        for (const SurfaceView &view : {ViewOf(textureTo), ViewOf(bitmapTo)}) {
            ASSERT_TRUE(Same(expected, PictureOf(view))) << "round " << i;
        }
    }
}

TEST(GaussianBlur, IsExactAtEverySizeAndValue) {
    const auto expectBlurred = [](const Picture &source) {
        const OwnedTexture target = TextureOf(source),
                           scratch = TextureOf(NoisePicture(source.width, source.height, 1));
        EXPECT_EQ(1, GaussianBlurTexture(target, scratch));
        ASSERT_TRUE(Same(ModelGaussianBlur(source), PictureOf(ViewOf(target))))
            << source.width << " x " << source.height;
    };
    for (const LONG width : {1, 2, 3, 4, 5, 6, 7, 8, 17, 63, 64, 65, 66, 67, 131}) {
        for (const LONG height : {1, 2, 3, 4, 6, 7, 8, 19}) {
            expectBlurred(NoisePicture(width, height, static_cast<uint32_t>(width * 31 + height)));
        }
    }
    for (uint32_t value = 0; value < 256; ++value) expectBlurred({9, 9, std::vector<uint32_t>(81, value * 0x01010101)});
    const Picture source = NoisePicture(30, 20, 3);
    const OwnedBitmap target = BitmapOf(source), scratch = BitmapOf(source, true);
    EXPECT_EQ(1, GaussianBlurBitmap(target, scratch));
    EXPECT_TRUE(Same(ModelGaussianBlur(source), PictureOf(ViewOf(target))));
}

TEST(GaussianBlur, OfCanvasRectanglesFollowsTheOrigins) {
    for (const CanvasKind targetKind : kCanvasKinds) {
        for (const CanvasKind scratchKind : kCanvasKinds) {
            const TestCanvas target(targetKind, 40, 30, 1), scratch(scratchKind, 35, 28, 2);
            Picture expected = target.Pixels();
            const Picture before = scratch.Pixels();
            const RECT device{6, 5, 33, 26}, scratchDevice{3, 2, 30, 23};
            Paste(expected, device.left, device.top, ModelGaussianBlur(Cut(expected, device)));
            SetViewportOrg(target, 2, -3, nullptr);
            SetWindowOrg(scratch, 7, 8, nullptr);
            const RECT rect = Moved(device, -2, 3), scratchRect = Moved(scratchDevice, 7, 8);
            EXPECT_EQ(1, GaussianBlurCanvas(target, &rect, scratch, &scratchRect));
            EXPECT_TRUE(Same(expected, target.Pixels()));
            ExpectSameOutside(scratchDevice, before, scratch.Pixels());
        }
    }
}

Picture ModelGlow(const Picture &picture) {
    Picture shape = ModelBoxBlur(picture);
    for (uint32_t &pixel : shape.pixels) {
        if (pixel >> 24 != 0) pixel = 0xFFFFFFFF;
    }
    return ModelBoxBlur(ModelBoxBlur(ModelBoxBlur(shape)));
}

TEST(Glow, IsABlurredWhiteShapeInsideItsRectangle) {
    Random random(2);
    for (int round = 0; round < 50; ++round) {
        // A few covered pixels on nothing, with colours that differ.
        Picture before = NoisePicture(random.Between(1, 31), random.Between(1, 22), random.Word());
        for (uint32_t &pixel : before.pixels) {
            if (pixel % 11 != 0) pixel &= pixel % 3 == 0 ? 0xFFFFFF : 0;
        }
        const RECT rect = random.Inside(before.Bounds());
        Picture expected = before;
        Paste(expected, rect.left, rect.top, ModelGlow(Cut(before, rect)));
        const OwnedTexture part = TextureOf(before), texture = TextureOf(before);
        const OwnedBitmap bitmap = BitmapOf(before, round % 2 == 0);
        // Slices play no part.
        SetTextureSlice(texture, 1, &rect);
        EXPECT_EQ(1, LightTextureEx(part, &rect));
        EXPECT_EQ(1, LightTexture(texture));
        EXPECT_EQ(1, LightBitmap(bitmap));
        EXPECT_TRUE(Same(expected, PictureOf(ViewOf(part))));
        for (const SurfaceView &view : {ViewOf(texture), ViewOf(bitmap)}) {
            EXPECT_TRUE(Same(ModelGlow(before), PictureOf(view)));
        }
    }
}

TEST(Glow, TakesAHandleSlotForTheTimeOfTheCall) {
    const OwnedBitmap bitmap = NoiseBitmap(4, 4, 32, 1);
    const OwnedTexture texture = NoiseTexture(4, 4, 32, 1);
    const auto nextHandle = [] {
        const HGBITMAP next = CreateMemBitmap(1, 1);
        DeleteBitmap(next);
        return static_cast<uint32_t>(next.value);
    };
    const uint32_t first = nextHandle();
    LightBitmap(bitmap);
    const uint32_t second = nextHandle();
    LightTexture(texture);
    // Each deletion in a slot raises its generation by one.
    EXPECT_EQ(first + 0x02000000, second);
    EXPECT_EQ(second + 0x02000000, nextHandle());

    // Without a free slot the glow does nothing.
    const Picture before = PictureOf(ViewOf(texture));
    std::vector<DWORD> entries;
    while (const DWORD entry = e_NewHandleEntry(nullptr, 9, &entries)) entries.push_back(entry);
    EXPECT_EQ(1, LightTexture(texture));
    EXPECT_EQ(1, LightBitmap(bitmap));
    EXPECT_TRUE(Same(before, PictureOf(ViewOf(texture))));
    for (const DWORD entry : entries) e_DelHandleEntry(nullptr, entry);
}

TEST(Blurs, ChangeNothingWithoutALockOrWithOtherSizesOrDepths) {
    const Picture source = NoisePicture(6, 5, 1);
    const OwnedTexture texture = TextureOf(source), lower = TextureOf(NoisePicture(6, 4, 2));
    const TestCanvas canvas(CanvasKind::Memory, 6, 5, 3), foreign(CanvasKind::FromDC, 6, 5, 4);
    const Picture canvasBefore = canvas.Pixels(), foreignBefore = foreign.Pixels();
    EXPECT_EQ(1, GaussianBlurTexture(texture, lower));
    for (const RECT &rect : kOutside) {
        EXPECT_EQ(1, BlurTextureEx(texture, &rect, lower, nullptr));
        EXPECT_EQ(1, BlurTextureEx(texture, nullptr, lower, &rect));
        EXPECT_EQ(1, GaussianBlurCanvas(canvas, &rect, canvas, nullptr));
        EXPECT_EQ(1, LightTextureEx(texture, &rect));
    }
    // A canvas made from a device context can't be locked as a whole.
    EXPECT_EQ(1, GaussianBlurCanvas(canvas, nullptr, foreign, nullptr));
    EXPECT_EQ(1, GaussianBlurCanvas(foreign, nullptr, canvas, nullptr));
    for (const WORD bits : std::initializer_list<WORD>{8, 16, 24, 48}) {
        const OwnedTexture other(CreateTextureEx(6, 5, bits, 0));
        FillWithNoise(ViewOf(other), 1);
        const std::vector<uint32_t> before = PixelsIn(other);
        for (const auto &blur : {BlurTexture, GaussianBlurTexture}) {
            EXPECT_EQ(1, blur(other, texture));
            EXPECT_EQ(1, blur(texture, other));
        }
        EXPECT_EQ(1, LightTexture(other));
        EXPECT_EQ(before, PixelsIn(other)) << bits;
    }
    EXPECT_TRUE(Same(source, PictureOf(ViewOf(texture))));
    EXPECT_TRUE(Same(canvasBefore, canvas.Pixels()));
    EXPECT_TRUE(Same(foreignBefore, foreign.Pixels()));
}

}  // namespace
}  // namespace lacquer
