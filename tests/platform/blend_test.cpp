// AlphaBlend: arithmetic over all channel values, formats and refusals.
#include <gtest/gtest.h>

#include "model.h"

namespace lacquer {
namespace {

BLENDFUNCTION BlendOf(uint32_t alpha, BYTE format) { return {AC_SRC_OVER, 0, static_cast<BYTE>(alpha), format}; }

TEST(Blend, EveryChannelIsTheModels) {
    // Rows of all source channels, also beyond their alpha, over all destination channels, three at a time: every
    // constant alpha without alphas in the pixels, and every alpha with constants of full strength and below.
    const Picture source(256, -1), dest(256, -1);
    const auto check = [&](uint32_t constant, uint32_t alpha, BYTE format, uint32_t step) {
        for (uint32_t s = 0; s < 256; ++s) source.At(static_cast<int>(s), 0) = alpha << 24 | s * 0x010101;
        for (uint32_t d = 0; d < 86; d += step) {
            const uint32_t before = 0xA5000000 | (170 + d) << 16 | (85 + d) << 8 | d;
            dest.Fill(before);
            ASSERT_NE(GdiAlphaBlend(dest, 0, 0, 256, 1, source, 0, 0, 256, 1, BlendOf(constant, format)), FALSE);
            std::vector<uint32_t> expected = source.Words();
            for (uint32_t &word : expected) word = Blended(word, before, constant, format == AC_SRC_ALPHA);
            ASSERT_EQ(dest.Words(), expected) << std::hex << before << " with " << constant << " and " << alpha;
        }
    };
    for (uint32_t alpha = 0; alpha < 256; ++alpha) {
        check(alpha, 0x5A, 0, 1);
        check(255, alpha, AC_SRC_ALPHA, 1);
        for (uint32_t constant = alpha % 3 * 5; constant < 255; constant += 15)
            check(constant, alpha, AC_SRC_ALPHA, 17);
    }
    EXPECT_EQ(Blended(0x10FF80F0, 0xF0FFFFFF, 255, true), 0xF1EF6FDF) << "sums that spill";
}

TEST(Blend, OtherDepthsCountAsOpaque) {
    const Picture source(1, -1), dest(1, -1), triple(1, -1, 24);
    for (uint32_t alpha = 0; alpha < 256; ++alpha) {
        triple.Bytes()[0] = triple.Bytes()[1] = triple.Bytes()[2] = 0x40;
        dest.At(0, 0) = 0xA5808080;
        EXPECT_NE(GdiAlphaBlend(dest, 0, 0, 1, 1, triple, 0, 0, 1, 1, BlendOf(alpha, 0)), FALSE);
        EXPECT_EQ(dest.At(0, 0), Blended(0xFF404040, 0xA5808080, alpha, false));
        // The same function under its other name.
        source.At(0, 0) = 0x80402010;
        EXPECT_NE(AlphaBlend(triple, 0, 0, 1, 1, source, 0, 0, 1, 1, BlendOf(alpha, AC_SRC_ALPHA)), FALSE);
        EXPECT_EQ(triple.Bytes()[1], Blended(0x80402010, 0x404040, alpha, true) >> 8 & 0xFF);
    }
    EXPECT_EQ(GdiAlphaBlend(dest, 0, 0, 1, 1, triple, 0, 0, 1, 1, BlendOf(255, AC_SRC_ALPHA)), FALSE);
}

TEST(Blend, ImpossibleSizesAndOverlapsAreRefused) {
    const Picture source(8, -4), picture(8, -4);
    source.Fill(0xFFFFFFFF);
    const struct {
        bool isDrawn;
        int width, height, x, y, sourceWidth, sourceHeight;
    } cases[] = {
        {false, -1, 1, 0, 0, 1, 1}, {false, 1, -1, 0, 0, 1, 1}, {false, 1, 1, 2, 2, -1, 1}, {false, 1, 1, 2, 2, 1, -1},
        {false, 1, 1, -1, 0, 1, 1}, {false, 1, 1, 7, 0, 2, 1},  {false, 1, 1, 0, 4, 1, 1},  {false, 1, 1, 0, -1, 1, 1},
        {false, 1, 1, 0, 3, 1, 2},  {true, 0, 0, 0, 0, 1, 1},   {true, 1, 0, 0, 0, 1, 1},
    };
    for (const auto &[isDrawn, width, height, x, y, sourceWidth, sourceHeight] : cases) {
        EXPECT_EQ(isDrawn, GdiAlphaBlend(picture, 0, 0, width, height, source, x, y, sourceWidth, sourceHeight,
                                         BlendOf(255, AC_SRC_ALPHA)) != 0);
    }
    EXPECT_EQ(picture.Words(), std::vector<uint32_t>(32));
    const struct {
        bool isDrawn;
        int to, from, width;
    } within[] = {{false, 0, 0, 3}, {false, 0, 2, 3}, {false, 2, 0, 3},
                  {false, 0, 1, 0}, {true, 0, 3, 3},  {true, 5, 0, 3}};
    for (const auto &[isDrawn, to, from, width] : within) {
        EXPECT_EQ(isDrawn, GdiAlphaBlend(picture, to, 0, 3, 1, picture, from, 0, width, 1, BlendOf(255, 0)) != 0);
    }
}

}  // namespace
}  // namespace lacquer
