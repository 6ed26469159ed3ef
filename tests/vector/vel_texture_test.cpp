// Textures that describe the pixels of a companion canvas.

#include "scene.h"

namespace lacquer {
namespace {

/// A companion canvas over a buffer of the test's own.
class VelTextureTest : public testing::Test {
protected:
    static constexpr LONG kWidth = 10, kHeight = 6, kStride = 48;
    std::vector<uint32_t> pixels_ = std::vector<uint32_t>(kStride / 4 * kHeight, 0xFF112233);
    const OwnedCompanion companion_ = CompanionOn(pixels_.data(), kWidth, kHeight, kStride);
};

TEST_F(VelTextureTest, ShowsWhatTheCompanionDraws) {
    const OwnedTexture texture(GetTextureFromVelCanvas(companion_.get()));
    SIZE size{};
    BYTE bits = 0;
    DWORD filter = 1;
    ASSERT_EQ(1, GetTextureSize(texture, &size));
    EXPECT_EQ(kWidth, size.cx);
    EXPECT_EQ(kHeight, size.cy);
    EXPECT_EQ(1, GetTextureBitsPixel(texture, &bits));
    EXPECT_EQ(32, bits);
    EXPECT_EQ(1, GetTextureFilter(texture, &filter));
    EXPECT_EQ(0u, filter);
    EXPECT_EQ(nullptr, GetTextureHandle(texture));

    EXPECT_EQ(1, velCanvasSetColor(companion_.get(), 0xFF00FF00));
    EXPECT_EQ(1, velCanvasDrawRectangle(companion_.get(), 2, 1, 3, 4));
    const OwnedCanvas canvas = PlainCanvas(kWidth, kHeight, 0);
    const RECT whole{0, 0, kWidth, kHeight};
    EXPECT_EQ(1, DrawTexture(canvas, &whole, texture, LACQUER_NEAREST));
    const Picture expected =
        WithRectangle(PixelsOn(PlainCanvas(kWidth, kHeight, 0xFF112233)), {2, 1, 5, 5}, 0xFF00FF00);
    EXPECT_TRUE(Same(expected, PixelsOn(canvas)));
    EXPECT_TRUE(Same(expected, PictureOf(ViewOf(texture))));
}

TEST_F(VelTextureTest, BelongsToTheCompanion) {
    {
        const OwnedTexture texture(GetTextureFromVelCanvas(companion_.get())),
            again(GetTextureFromVelCanvas(companion_.get()));
        EXPECT_NE(HGTEXTURE(texture), HGTEXTURE(again));
        PutPixel(ViewOf(texture), 3, 2, 0x01020304);
        EXPECT_EQ(0x01020304u, PixelAt(ViewOf(again), 3, 2));
        const OwnedTexture copy(CreateTexture(kWidth, kHeight));
        EXPECT_EQ(1, CopyTexture(copy, nullptr, texture, nullptr));
        EXPECT_EQ(0x01020304u, PixelAt(ViewOf(copy), 3, 2));
        const OwnedTexture turned(RotateTexture(texture, LACQUER_ROTATE_180));
        EXPECT_EQ(0x01020304u, PixelAt(ViewOf(turned), kWidth - 4, kHeight - 3));
    }
    EXPECT_EQ(0x01020304u, pixels_[2 * kStride / 4 + 3]);
    EXPECT_EQ(1, velCanvasDrawColor(companion_.get(), 0xFFFFFFFF)) << "not locked any more";
    EXPECT_EQ(0xFFFFFFFFu, pixels_[0]);
    const OwnedCompanion empty(velCanvasCreate(), velCanvasDestroy);
    EXPECT_FALSE(GetTextureFromVelCanvas(empty.get())) << "no bitmap";
}

}  // namespace
}  // namespace lacquer
