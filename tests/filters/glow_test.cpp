// The glow, and the scratch object that it makes and deletes.

#include "models.h"

namespace lacquer {
namespace {

Picture ModelGlow(const Picture &picture) {
    Picture shape = ModelBoxBlur(picture);
    for (uint32_t &pixel : shape.pixels) {
        if (pixel >> 24 != 0) pixel = 0xFFFFFFFF;
    }
    return ModelBoxBlur(ModelBoxBlur(ModelBoxBlur(shape)));
}

/// A few covered pixels on nothing, with colours that differ.
Picture Shapes(LONG width, LONG height, uint32_t seed) {
    Picture picture = NoisePicture(width, height, seed);
    for (uint32_t &pixel : picture.pixels) {
        if (pixel % 11 != 0) pixel &= pixel % 3 == 0 ? 0xFFFFFF : 0;
    }
    return picture;
}

TEST(Glow, IsABlurredWhiteShape) {
    for (const auto &[width, height] : {std::pair<LONG, LONG>{1, 1}, {2, 9}, {17, 1}, {31, 22}}) {
        const Picture before = Shapes(width, height, static_cast<uint32_t>(width));
        const auto w = static_cast<DWORD>(width), h = static_cast<DWORD>(height);
        const OwnedTexture texture(CreateTexture(w, h));
        const OwnedBitmap bitmap(CreateMemBitmap(w, h)), system(CreateSystemBitmap(w, h));
        for (const SurfaceView &view : {ViewOf(texture), ViewOf(bitmap), ViewOf(system)}) Put(view, before);
        EXPECT_EQ(1, LightTexture(texture));
        EXPECT_EQ(1, LightBitmap(bitmap));
        EXPECT_EQ(1, LightBitmap(system));
        const Picture expected = ModelGlow(before);
        for (const SurfaceView &view : {ViewOf(texture), ViewOf(bitmap), ViewOf(system)}) {
            EXPECT_TRUE(Same(expected, PictureOf(view))) << width << " x " << height;
        }
    }
}

TEST(Glow, StaysInsideItsRectangle) {
    Random random(2);
    for (int i = 0; i < 50; ++i) {
        const Picture before = Shapes(24, 20, random.Word());
        const RECT rect = random.Inside(before.Bounds());
        Picture expected = before;
        Paste(expected, rect.left, rect.top, ModelGlow(Cut(before, rect)));
        const OwnedTexture texture(CreateTexture(24, 20));
        Put(ViewOf(texture), before);
        // Slices play no part.
        SetTextureSlice(texture, 1, &rect);
        EXPECT_EQ(1, LightTextureEx(texture, &rect));
        EXPECT_TRUE(Same(expected, PictureOf(ViewOf(texture))));
    }
    const OwnedTexture texture = NoiseTexture(8, 8, 32, 5);
    const Picture before = PictureOf(ViewOf(texture));
    for (const RECT &rect : kOutside) EXPECT_EQ(1, LightTextureEx(texture, &rect));
    EXPECT_TRUE(Same(before, PictureOf(ViewOf(texture))));
}

TEST(Glow, LeavesOtherDepthsAlone) {
    for (const WORD bits : std::initializer_list<WORD>{8, 24}) {
        const OwnedTexture texture = NoiseTexture(9, 4, bits, 1);
        const OwnedBitmap bitmap = NoiseBitmap(9, 4, bits, 1);
        const Picture before = PictureOf(ViewOf(texture));
        EXPECT_EQ(1, LightTexture(texture));
        EXPECT_EQ(1, LightBitmap(bitmap));
        EXPECT_TRUE(Same(before, PictureOf(ViewOf(texture))));
        EXPECT_TRUE(Same(before, PictureOf(ViewOf(bitmap))));
    }
    for (const WORD bits : std::initializer_list<WORD>{4, 16, 48}) {
        const OwnedTexture texture(CreateTextureEx(9, 4, bits, 0));
        EXPECT_EQ(1, LightTexture(texture));
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
    const uint32_t third = nextHandle();
    // Each deletion in a slot raises its generation by one.
    EXPECT_EQ(first + 0x02000000, second);
    EXPECT_EQ(second + 0x02000000, third);

    // Without a free slot the glow does nothing.
    const Picture before = PictureOf(ViewOf(texture));
    std::vector<DWORD> entries;
    while (const DWORD entry = e_NewHandleEntry(nullptr, 9, &entries)) entries.push_back(entry);
    EXPECT_EQ(1, LightTexture(texture));
    EXPECT_EQ(1, LightBitmap(bitmap));
    EXPECT_TRUE(Same(before, PictureOf(ViewOf(texture))));
    for (const DWORD entry : entries) e_DelHandleEntry(nullptr, entry);
    EXPECT_GT(entries.size(), 30000u);
}

TEST(Glow, RefusesOtherHandles) {
    const OwnedBitmap bitmap = NoiseBitmap(2, 2, 32, 1);
    const OwnedTexture texture = NoiseTexture(2, 2, 32, 1);
    EXPECT_EQ(0, LightBitmap({HGTEXTURE(texture).value}));
    EXPECT_EQ(0, LightTexture({HGBITMAP(bitmap).value}));
    EXPECT_EQ(0, LightTextureEx({}, nullptr));
}

}  // namespace
}  // namespace lacquer
