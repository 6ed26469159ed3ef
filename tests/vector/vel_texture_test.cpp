// Textures that describe the pixels of a companion canvas.

#include "scene.h"

namespace lacquer {
namespace {

/// A companion canvas over a buffer of the test's own.
class VelTextureTest : public testing::Test {
protected:
    VelTextureTest() {
        velBitmap *bitmap = velBitmapCreateFromData(pixels_.data(), kWidth, kHeight, kStride);
        EXPECT_EQ(1, velCanvasSetBitmap(companion_, bitmap));
        EXPECT_EQ(1, velBitmapDestroy(bitmap));
    }
    ~VelTextureTest() override { velCanvasDestroy(companion_); }

    static constexpr LONG kWidth = 10, kHeight = 6, kStride = 48;
    velCanvas *companion_ = velCanvasCreate();
    std::vector<uint32_t> pixels_ = std::vector<uint32_t>(kStride / 4 * kHeight, 0xFF112233);
};

TEST_F(VelTextureTest, ShowsWhatTheCompanionDraws) {
    const OwnedTexture texture(GetTextureFromVelCanvas(companion_));
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

    EXPECT_EQ(1, velCanvasSetColor(companion_, 0xFF00FF00));
    EXPECT_EQ(1, velCanvasDrawRectangle(companion_, 2, 1, 3, 4));
    const OwnedCanvas canvas = PlainCanvas(kWidth, kHeight, 0);
    const RECT whole{0, 0, kWidth, kHeight};
    EXPECT_EQ(1, DrawTexture(canvas, &whole, texture, LACQUER_NEAREST));
    for (LONG y = 0; y < kHeight; ++y) {
        for (LONG x = 0; x < kWidth; ++x) {
            const uint32_t word = Contains({2, 1, 5, 5}, x, y) ? 0xFF00FF00 : 0xFF112233;
            ASSERT_EQ(word, PixelAt(Locked(canvas), x, y)) << x << " " << y;
            ASSERT_EQ(word, PixelAt(Locked(texture), x, y)) << x << " " << y;
        }
    }
}

TEST_F(VelTextureTest, BelongsToTheCompanion) {
    {
        const OwnedTexture texture(GetTextureFromVelCanvas(companion_)), again(GetTextureFromVelCanvas(companion_));
        EXPECT_NE(HGTEXTURE(texture), HGTEXTURE(again));
        PutPixel(Locked(texture), 3, 2, 0x01020304);
        EXPECT_EQ(0x01020304u, PixelAt(Locked(again), 3, 2));
        const OwnedTexture copy(CreateTexture(kWidth, kHeight));
        EXPECT_EQ(1, CopyTexture(copy, nullptr, texture, nullptr));
        EXPECT_EQ(0x01020304u, PixelAt(Locked(copy), 3, 2));
        const OwnedTexture turned(RotateTexture(texture, LACQUER_ROTATE_180));
        EXPECT_EQ(0x01020304u, PixelAt(Locked(turned), kWidth - 4, kHeight - 3));
    }
    EXPECT_EQ(0x01020304u, pixels_[2 * kStride / 4 + 3]);
    EXPECT_EQ(1, velCanvasDrawColor(companion_, 0xFFFFFFFF)) << "not locked any more";
    EXPECT_EQ(0xFFFFFFFFu, pixels_[0]);
}

TEST_F(VelTextureTest, NeedsABitmap) {
    velCanvas *empty = velCanvasCreate();
    EXPECT_FALSE(GetTextureFromVelCanvas(empty));
    EXPECT_FALSE(GetTextureFromVelCanvas(nullptr));
    velCanvasDestroy(empty);
}

}  // namespace
}  // namespace lacquer
