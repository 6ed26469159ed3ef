// Blend modes and the blend value, against their formulas.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "painting.h"

namespace lacquer {
namespace {

/// B(backdrop, source) of the separable modes, straight channels 0 to 1.
double Separable(DWORD mode, double b, double s) {
    switch (mode) {
        case VEL_BLEND_MULTIPLY: return b * s;
        case VEL_BLEND_SCREEN: return b + s - b * s;
        case VEL_BLEND_OVERLAY: return Separable(VEL_BLEND_HARD_LIGHT, s, b);
        case VEL_BLEND_DARKEN: return std::min(b, s);
        case VEL_BLEND_LIGHTEN: return std::max(b, s);
        case VEL_BLEND_COLOR_DODGE: return b == 0 ? 0 : s >= 1 ? 1 : std::min(1.0, b / (1 - s));
        case VEL_BLEND_COLOR_BURN: return b >= 1 ? 1 : s <= 0 ? 0 : 1 - std::min(1.0, (1 - b) / s);
        case VEL_BLEND_HARD_LIGHT: return s <= 0.5 ? b * 2 * s : b + (2 * s - 1) - b * (2 * s - 1);
        case VEL_BLEND_SOFT_LIGHT: {
            if (s <= 0.5) return b - (1 - 2 * s) * b * (1 - b);
            const double d = b <= 0.25 ? ((16 * b - 12) * b + 4) * b : std::sqrt(b);
            return b + (2 * s - 1) * (d - b);
        }
        case VEL_BLEND_DIFFERENCE: return std::fabs(b - s);
        case VEL_BLEND_EXCLUSION: return b + s - 2 * b * s;
        default: return s;
    }
}

/// The premultiplied channel that a mode makes of premultiplied `d` and `s` with alphas `da` and `sa`.
double Blended(DWORD mode, double d, double da, double s, double sa) {
    switch (mode) {
        case VEL_BLEND_SOURCE_OVER: return s + d * (1 - sa);
        case VEL_BLEND_SOURCE: return s;
        case VEL_BLEND_CLEAR: return 0;
        case VEL_BLEND_DESTINATION_OVER: return d + s * (1 - da);
        case VEL_BLEND_SOURCE_IN: return s * da;
        case VEL_BLEND_DESTINATION_IN: return d * sa;
        case VEL_BLEND_SOURCE_OUT: return s * (1 - da);
        case VEL_BLEND_DESTINATION_OUT: return d * (1 - sa);
        case VEL_BLEND_SOURCE_ATOP: return s * da + d * (1 - sa);
        case VEL_BLEND_DESTINATION_ATOP: return d * sa + s * (1 - da);
        case VEL_BLEND_XOR: return s * (1 - da) + d * (1 - sa);
        case VEL_BLEND_PLUS: return std::min(1.0, s + d);
        default: {
            const double mixed = sa > 0 && da > 0 ? sa * da * Separable(mode, d / da, s / sa) : 0;
            return s * (1 - da) + d * (1 - sa) + mixed;
        }
    }
}

struct Premultiplied {
    double channels[4];  // blue, green, red, alpha

    static Premultiplied Of(uint32_t straight, double opacity = 1) {
        const double alpha = (straight >> 24) / 255.0 * opacity;
        return {{(straight & 0xFF) / 255.0 * alpha, (straight >> 8 & 0xFF) / 255.0 * alpha,
                 (straight >> 16 & 0xFF) / 255.0 * alpha, alpha}};
    }
    uint32_t Pixel() const {
        uint32_t pixel = 0;
        for (int i = 0; i < 4; ++i) pixel |= static_cast<uint32_t>(std::lround(channels[i] * 255)) << 8 * i;
        return pixel;
    }
};

constexpr uint32_t kColours[] = {0x00000000, 0xFFFFFFFF, 0xFF000000, 0xFF2060C0, 0xFFE0A010,
                                 0x80FF8020, 0x40103050, 0xC0C08040, 0x8000FF00, 0xFFFF0000};

TEST(VelBlendTest, EveryModeFollowsItsFormula) {
    for (DWORD mode = 0; mode <= VEL_BLEND_EXCLUSION; ++mode) {
        for (const DWORD value : {255u, 128u, 0u}) {
            for (const uint32_t below : kColours) {
                for (const uint32_t above : kColours) {
                    const uint32_t background = Premultiplied::Of(below).Pixel();
                    Painting painting(2, 2, background);
                    EXPECT_EQ(1, velCanvasSetBlendMode(painting, mode));
                    EXPECT_EQ(1, velCanvasSetBlendValue(painting, value));
                    EXPECT_EQ(1, velCanvasSetColor(painting, above));
                    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 0, 0, 2, 2));
                    const Premultiplied s = Premultiplied::Of(above, value / 255.0);
                    double d[4];
                    for (int i = 0; i < 4; ++i) d[i] = (background >> 8 * i & 0xFF) / 255.0;
                    for (int i = 0; i < 4; ++i) {
                        const double expected = i == 3 && mode > VEL_BLEND_PLUS
                                                    ? s.channels[3] + d[3] * (1 - s.channels[3])
                                                    : Blended(mode, d[i], d[3], s.channels[i], s.channels[3]);
                        ASSERT_NEAR(255 * expected, painting.At(1, 1) >> 8 * i & 0xFF, 3)
                            << "mode " << mode << " value " << value << std::hex << " below " << below << " above "
                            << above << " channel " << i;
                    }
                    EXPECT_EQ(painting.At(0, 0), painting.At(1, 1));

                    // Covering the clip gives the same as a rectangle does.
                    const uint32_t pixel = painting.At(1, 1);
                    painting.Fill(background);
                    EXPECT_EQ(1, velCanvasDrawColor(painting, above));
                    EXPECT_EQ(pixel, painting.At(1, 1)) << "mode " << mode;
                }
            }
        }
    }
}

}  // namespace
}  // namespace lacquer
