// Premultiplied and straight words, depths of images, and the textures made from them.
#include <gtest/gtest.h>

#include "example_skin.h"

namespace lacquer::examples {
namespace {

TEST(Words, StraightIsTheSmallestThatPremultipliesBack) {
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha) {
        for (std::uint32_t channel = 0; channel <= 255 * (alpha + 1) >> 8; ++channel) {
            const std::uint32_t stored = alpha << 24 | channel << 16 | channel;
            const std::uint32_t straight = StraightWord(stored);
            ASSERT_EQ(PremultipliedWord(straight), stored);
            if ((straight & 255) > 0) {
                ASSERT_NE(PremultipliedWord(straight - 1), stored);
            }
        }
    }
}

TEST(Words, PremultiplyTreatsImagesAndPalettesAlike) {
    Image direct{
        .width = 2, .height = 1, .bitsPerPixel = 32, .pixels = {10, 100, 200, 128, 7, 255, 0, 255}, .palette = {}};
    Image indexed = WithPalette(direct);
    Premultiply(direct);
    Premultiply(indexed);
    EXPECT_EQ(direct.word(0, 0), 128u << 24 | (200u * 129 >> 8) << 16 | (100u * 129 >> 8) << 8 | (10u * 129 >> 8));
    EXPECT_EQ(direct.word(1, 0), 0xFF00FF07u);
    EXPECT_EQ(indexed.word(0, 0), direct.word(0, 0));
    EXPECT_EQ(indexed.word(1, 0), direct.word(1, 0));
}

TEST(Images, TooManyColoursForAPaletteAreRefused) {
    Image image{.width = 257, .height = 1, .bitsPerPixel = 24, .pixels = {}, .palette = {}};
    for (int i = 0; i < 257; ++i) {
        image.pixels.push_back(static_cast<std::uint8_t>(i));
        image.pixels.push_back(static_cast<std::uint8_t>(i >> 8));
        image.pixels.push_back(0);
    }
    EXPECT_THROW(WithPalette(image), std::runtime_error);
    image.width = 256;
    image.pixels.resize(std::size_t{256} * 3);
    EXPECT_EQ(WithPalette(image).palette.size(), 256u);
}

// The three ladybirds store their pixels in different ways but look the same, and leave the same pixels alone.
TEST(Textures, OneSpriteAtThreeDepthsDrawsTheSamePicture) {
    const Skin skin = LoadSkin();
    std::vector<DWORD> expected;
    for (const Texture *sprite : {&skin.ladybird32, &skin.ladybird24, &skin.ladybird8}) {
        const Canvas canvas = MakeCanvas(80, 80);
        FillGradient(canvas, Box(0, 0, 80, 80), 0xFF102030, 0xFFA0B0C0);
        const std::vector<DWORD> ground = PixelsOf(canvas);
        DrawAt(canvas, 8, 8, *sprite);
        const std::vector<DWORD> pixels = PixelsOf(canvas);
        EXPECT_EQ(pixels[8 * 80 + 8], ground[8 * 80 + 8]);
        EXPECT_NE(pixels[45 * 80 + 40], ground[45 * 80 + 40]);
        if (expected.empty()) expected = pixels;
        EXPECT_EQ(pixels, expected);
    }
}

TEST(Textures, CopiesKeepDepthPixelsAndDrawMode) {
    const Skin skin = LoadSkin();
    for (const Texture *texture : {&skin.photo, &skin.icon, &skin.knob, &skin.vignette}) {
        const RECT part = Box(9, 17, 30, 20);
        const Texture copy = CopyOf(*texture, &part);
        BYTE bits = 0;
        BYTE copiedBits = 0;
        DWORD filter = 0;
        DWORD copiedFilter = 1;
        ASSERT_EQ(GetTextureBitsPixel(texture->get(), &bits), 1);
        ASSERT_EQ(GetTextureBitsPixel(copy.get(), &copiedBits), 1);
        ASSERT_EQ(GetTextureFilter(texture->get(), &filter), 1);
        ASSERT_EQ(GetTextureFilter(copy.get(), &copiedFilter), 1);
        EXPECT_EQ(copiedBits, bits);
        EXPECT_EQ(copiedFilter, filter);

        const Canvas fromCopy = MakeCanvas(30, 20);
        const Canvas fromWhole = MakeCanvas(30, 20);
        DrawAt(fromCopy, 0, 0, copy);
        DrawAt(fromWhole, -9, -17, *texture);
        EXPECT_EQ(PixelsOf(fromCopy), PixelsOf(fromWhole));
    }
}

}  // namespace
}  // namespace lacquer::examples
