// AlphaBlend: arithmetic over all channel values, formats, geometry and refusals.
#include <gtest/gtest.h>

#include "gdi_objects.h"

namespace lacquer {
namespace {

uint32_t Rounded(uint32_t product) { return (product + 127) / 255; }

BLENDFUNCTION Constant(int alpha) { return BLENDFUNCTION{AC_SRC_OVER, 0, static_cast<BYTE>(alpha), 0}; }

BLENDFUNCTION PerPixel(int alpha) { return BLENDFUNCTION{AC_SRC_OVER, 0, static_cast<BYTE>(alpha), AC_SRC_ALPHA}; }

uint32_t Grey(uint32_t alpha, uint32_t channel) { return alpha << 24 | channel * 0x010101; }

// A row of all source channels over a row of one destination channel.
class Blend : public ::testing::Test {
protected:
    void Draw(const BLENDFUNCTION &blend) {
        ASSERT_NE(GdiAlphaBlend(dest_, 0, 0, 256, 1, source_, 0, 0, 256, 1, blend), FALSE);
    }

    Picture source_{256, -1}, dest_{256, -1};
};

TEST_F(Blend, ConstantAlphaOverAllValues) {
    for (int i = 0; i < 256; ++i) source_.At(i, 0) = Grey(0x5A, static_cast<uint32_t>(i));
    for (uint32_t alpha = 0; alpha < 256; ++alpha) {
        const uint32_t resultAlpha = Rounded(0x5A * alpha + 0xA5 * (255 - alpha));
        for (uint32_t d = 0; d < 256; ++d) {
            dest_.Fill(Grey(0xA5, d));
            Draw(Constant(static_cast<int>(alpha)));
            for (uint32_t s = 0; s < 256; ++s) {
                const uint32_t expected = Grey(resultAlpha, Rounded(s * alpha + d * (255 - alpha)));
                ASSERT_EQ(dest_.At(static_cast<int>(s), 0), expected) << s << " over " << d << " with " << alpha;
            }
        }
    }
}

TEST_F(Blend, BothAlphasScaleTheSourceFirst) {
    // Every alpha and destination at full strength, many of them below it.
    for (uint32_t constant = 0; constant < 256; constant += 5) {
        const uint32_t alphaStep = constant == 255 ? 1 : 3, destStep = constant == 255 ? 1 : 15;
        for (uint32_t alpha = 0; alpha < 256; alpha += alphaStep) {
            for (int i = 0; i < 256; ++i) source_.At(i, 0) = Grey(alpha, std::min(static_cast<uint32_t>(i), alpha));
            const uint32_t scaled = Rounded(alpha * constant);
            for (uint32_t d = 0; d < 256; d += destStep) {
                dest_.Fill(Grey(0xF0, d));
                Draw(PerPixel(static_cast<int>(constant)));
                for (uint32_t s = 0; s <= alpha; ++s) {
                    const uint32_t expected = Grey(scaled + Rounded(0xF0 * (255 - scaled)),
                                                   Rounded(s * constant) + Rounded(d * (255 - scaled)));
                    ASSERT_EQ(dest_.At(static_cast<int>(s), 0), expected);
                }
            }
        }
    }
}

TEST_F(Blend, SumsAbove255SpillOneBitUpwards) {
    const struct {
        int constant;
        uint32_t result;
    } cases[] = {{255, 0xF1EF6FDF}, {128, 0xF177376F}};
    for (const auto &expected : cases) {
        source_.At(0, 0) = 0x10FF80F0;
        dest_.At(0, 0) = 0xF0FFFFFF;
        Draw(PerPixel(expected.constant));
        EXPECT_EQ(dest_.At(0, 0), expected.result);
    }
}

TEST_F(Blend, OtherDepthsCountAsOpaque) {
    Picture triples(1, -1, 24);
    triples.Bytes()[0] = triples.Bytes()[1] = triples.Bytes()[2] = 0x40;
    for (int alpha = 0; alpha < 256; ++alpha) {
        const auto a = static_cast<uint32_t>(alpha);
        dest_.At(0, 0) = 0xA5808080;
        EXPECT_NE(GdiAlphaBlend(dest_, 0, 0, 1, 1, triples, 0, 0, 1, 1, Constant(alpha)), FALSE);
        EXPECT_EQ(dest_.At(0, 0), Grey(Rounded(255 * a + 0xA5 * (255 - a)), Rounded(0x40 * a + 0x80 * (255 - a))));
    }
    source_.At(0, 0) = 0x80402010;
    // The same function under its other name.
    EXPECT_NE(AlphaBlend(triples, 0, 0, 1, 1, source_, 0, 0, 1, 1, PerPixel(255)), FALSE);
    const uint32_t kept = Rounded(0x40 * 0x7F);
    EXPECT_EQ(triples.Bytes()[0], 0x10 + kept);
    EXPECT_EQ(triples.Bytes()[1], 0x20 + kept);
    EXPECT_EQ(triples.Bytes()[2], 0x40 + kept);
}

TEST(BlendGeometry, ScalesAsStretchBltUnderOriginsAndClip) {
    Picture source(12, -12);
    for (int i = 0; i < 144; ++i) source.At(i, 0) = 0xFF000000u + static_cast<uint32_t>(i);
    Picture stretched(20, -20), blended(20, -20);
    for (const Picture *picture : {&stretched, &blended}) {
        SetStretchBltMode(*picture, COLORONCOLOR);
        SetViewportOrgEx(*picture, -3, 2, nullptr);
        IntersectClipRect(*picture, 5, 1, 14, 30);
        ExcludeClipRect(*picture, 7, 3, 9, 4);
    }
    SetWindowOrgEx(source, 1, 1, nullptr);
    for (const int width : {4, 7, 11, 18}) {
        for (const int height : {3, 9, 16}) {
            stretched.Fill(0xFF000000);
            blended.Fill(0xFF000000);
            EXPECT_NE(StretchBlt(stretched, 2, -1, width, height, source, 2, 3, 9, 7, SRCCOPY), FALSE);
            EXPECT_NE(GdiAlphaBlend(blended, 2, -1, width, height, source, 2, 3, 9, 7, PerPixel(255)), FALSE);
            EXPECT_EQ(blended.Words(), stretched.Words()) << width << " x " << height;
        }
    }
}

TEST(BlendGeometry, Refusals) {
    Picture source(8, -4), picture(8, -4);
    const auto draw = [&](int width, int height, int x, int y, int sourceWidth, int sourceHeight) {
        return GdiAlphaBlend(picture, 0, 0, width, height, source, x, y, sourceWidth, sourceHeight, PerPixel(255)) != 0;
    };
    source.Fill(0xFFFFFFFF);
    EXPECT_FALSE(draw(-1, 1, 0, 0, 1, 1));
    EXPECT_FALSE(draw(1, -1, 0, 0, 1, 1));
    EXPECT_FALSE(draw(1, 1, 2, 2, -1, 1));
    EXPECT_FALSE(draw(1, 1, 2, 2, 1, -1));
    EXPECT_FALSE(draw(1, 1, -1, 0, 1, 1));
    EXPECT_FALSE(draw(1, 1, 7, 0, 2, 1));
    EXPECT_FALSE(draw(1, 1, 0, 4, 1, 1));
    EXPECT_FALSE(draw(1, 1, 0, 1, 1, INT32_MAX));
    EXPECT_TRUE(draw(0, 0, 0, 0, 1, 1));
    EXPECT_TRUE(draw(1, 0, 0, 0, 1, 1));
    EXPECT_EQ(picture.Words(), std::vector<uint32_t>(32));
    // The source rectangle is taken after the source's origins.
    SetViewportOrgEx(source, -4, 0, nullptr);
    EXPECT_TRUE(draw(1, 1, 11, 0, 1, 1));
    EXPECT_FALSE(draw(1, 1, 12, 0, 1, 1));

    Picture triples(8, -4, 24);
    EXPECT_EQ(GdiAlphaBlend(picture, 0, 0, 1, 1, triples, 0, 0, 1, 1, PerPixel(255)), FALSE);

    const auto within = [&](int to, int from) {
        return GdiAlphaBlend(picture, to, 0, 3, 1, picture, from, 0, 3, 1, PerPixel(255)) != 0;
    };
    EXPECT_FALSE(within(0, 0));
    EXPECT_FALSE(within(0, 2));
    EXPECT_EQ(GdiAlphaBlend(picture, 0, 0, 3, 1, picture, 1, 0, 0, 1, PerPixel(255)), FALSE);
    EXPECT_TRUE(within(0, 3));
    EXPECT_TRUE(within(5, 0));
}

}  // namespace
}  // namespace lacquer
