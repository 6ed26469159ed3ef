// AlphaBlend: arithmetic over all channel values and formats. Where it draws is tested with all draws.
#include <gtest/gtest.h>

#include "record.h"

namespace lacquer {
namespace {

BLENDFUNCTION BlendOf(uint32_t alpha, BYTE format) { return {AC_SRC_OVER, 0, static_cast<BYTE>(alpha), format}; }

TEST(Blend, EveryChannelIsTheSystems) {
    // Rows of all source channels, also beyond their alpha, over all destination channels, three at a time: every
    // constant alpha without alphas in the pixels, and every alpha with constants of full strength and below.
    const Picture source(256, -1), dest(256, -1), triple(256, -1, 24);
    Record record;
    const auto blend = [&](uint32_t constant, uint32_t alpha, BYTE format, uint32_t step) {
        for (uint32_t s = 0; s < 256; ++s) source.At(static_cast<int>(s), 0) = alpha << 24 | s * 0x010101;
        for (uint32_t d = 0; d < 86; d += step) {
            dest.Fill(0xA5000000 | (170 + d) << 16 | (85 + d) << 8 | d);
            ASSERT_NE(GdiAlphaBlend(dest, 0, 0, 256, 1, source, 0, 0, 256, 1, BlendOf(constant, format)), FALSE);
            record.Add(dest.Words());
        }
    };
    for (uint32_t alpha = 0; alpha < 256; ++alpha) {
        blend(alpha, 0x5A, 0, 1);
        blend(255, alpha, AC_SRC_ALPHA, 1);
        for (uint32_t constant = alpha % 3 * 5; constant < 255; constant += 15)
            blend(constant, alpha, AC_SRC_ALPHA, 17);
        // Depths without an alpha count as opaque. The same function under its other name.
        EXPECT_NE(AlphaBlend(triple, 0, 0, 256, 1, source, 0, 0, 256, 1, BlendOf(200, AC_SRC_ALPHA)), FALSE);
        EXPECT_NE(GdiAlphaBlend(dest, 0, 0, 256, 1, triple, 0, 0, 256, 1, BlendOf(alpha, 0)), FALSE);
        record.Add(dest.Words());
    }
    EXPECT_EQ(record.Digest(), 0x64748A0531912E44);
    EXPECT_EQ(GdiAlphaBlend(dest, 0, 0, 1, 1, triple, 0, 0, 1, 1, BlendOf(255, AC_SRC_ALPHA)), FALSE);
}

}  // namespace
}  // namespace lacquer
