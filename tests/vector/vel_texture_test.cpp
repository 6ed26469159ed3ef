// Textures that describe the pixels of a companion canvas.

#include <memory>

#include "scene.h"

namespace lacquer {
namespace {

/// A canvas of the companion that draws on someone else's pixels.
using OwnedCompanion = std::unique_ptr<velCanvas, int (*)(velCanvas *)>;
OwnedCompanion CompanionOn(void *bits, LONG width, LONG height, LONG stride) {
    OwnedCompanion companion(velCanvasCreate(), velCanvasDestroy);
    velBitmap *bitmap = velBitmapCreateFromData(bits, width, height, stride);
    EXPECT_EQ(1, velCanvasSetBitmap(companion.get(), bitmap));
    EXPECT_EQ(1, velBitmapDestroy(bitmap));
    return companion;
}

TEST(VelTexture, ShowsAndChangesThePixelsOfTheCompanion) {
    constexpr LONG kWidth = 10, kHeight = 6, kStride = 48;
    std::vector<uint32_t> pixels(kStride / 4 * kHeight, 0xFF112233);
    const OwnedCompanion companion = CompanionOn(pixels.data(), kWidth, kHeight, kStride);
    {
        const OwnedTexture texture(GetTextureFromVelCanvas(companion.get()));
        const OwnedTexture again(GetTextureFromVelCanvas(companion.get()));
        EXPECT_NE(HGTEXTURE(texture), HGTEXTURE(again));
        EXPECT_EQ(nullptr, GetTextureHandle(texture));
        EXPECT_EQ(1, velCanvasSetColor(companion.get(), kGreen));
        EXPECT_EQ(1, velCanvasDrawRectangle(companion.get(), 2, 1, 3, 4));
        PutPixel(ViewOf(texture), 7, 2, 0x01020304);
        const Picture ground = PixelsOn(PlainCanvas(kWidth, kHeight, 0xFF112233));
        const Picture expected = WithRectangle(WithRectangle(ground, {2, 1, 5, 5}, kGreen), {7, 2, 8, 3}, 0x01020304);
        EXPECT_TRUE(Same(expected, PictureOf(ViewOf(again))));
    }
    EXPECT_EQ(0x01020304u, pixels[2 * kStride / 4 + 7]) << "they belong to the companion";
    EXPECT_EQ(1, velCanvasDrawColor(companion.get(), 0xFFFFFFFF)) << "not locked any more";
    const OwnedCompanion empty(velCanvasCreate(), velCanvasDestroy);
    EXPECT_FALSE(GetTextureFromVelCanvas(empty.get())) << "no bitmap";
}

}  // namespace
}  // namespace lacquer
