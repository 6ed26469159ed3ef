// Textures that describe the pixels of a companion canvas.

#include <velgraphic/velgraphic.hpp>

#include "scene.h"

namespace lacquer {
namespace {

TEST(VelTexture, ShowsAndChangesThePixelsOfTheCompanion) {
    constexpr LONG kWidth = 10, kHeight = 6, kStride = 48;
    std::vector<uint32_t> pixels(kStride / 4 * kHeight, 0xFF112233);
    lq::VectorCanvas companion = lq::VectorCanvas::Create();
    EXPECT_TRUE(companion.DrawInto(pixels.data(), kWidth, kHeight, kStride));
    {
        const OwnedTexture texture(GetTextureFromVelCanvas(companion));
        const OwnedTexture again(GetTextureFromVelCanvas(companion));
        EXPECT_NE(HGTEXTURE(texture), HGTEXTURE(again));
        EXPECT_EQ(nullptr, GetTextureHandle(texture));
        EXPECT_EQ(1, velCanvasSetColor(companion, kGreen));
        EXPECT_EQ(1, velCanvasDrawRectangle(companion, 2, 1, 3, 4));
        PutPixel(ViewOf(texture), 7, 2, 0x01020304);
        const Picture ground = PixelsOn(PlainCanvas(kWidth, kHeight, 0xFF112233));
        const Picture expected = WithRectangle(WithRectangle(ground, {2, 1, 5, 5}, kGreen), {7, 2, 8, 3}, 0x01020304);
        EXPECT_TRUE(Same(expected, PictureOf(ViewOf(again))));
    }
    EXPECT_EQ(0x01020304u, pixels[2 * kStride / 4 + 7]) << "they belong to the companion";
    EXPECT_EQ(1, velCanvasDrawColor(companion, 0xFFFFFFFF)) << "not locked any more";
    EXPECT_FALSE(GetTextureFromVelCanvas(lq::VectorCanvas::Create())) << "no bitmap";
}

}  // namespace
}  // namespace lacquer
