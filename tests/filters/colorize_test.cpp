// Colorizing single colours and textures.

#include <cmath>
#include <limits>

#include "models.h"

namespace lacquer {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity(), kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kLargest = std::numeric_limits<float>::max();

const float kDeltas[] = {0.0f,       -0.0f,    1e-6f,     -1e-6f,   1e-3f, -1e-3f,  0.1f,     -0.1f,     0.25f,
                         -0.25f,     1 / 3.0f, -1 / 3.0f, 0.5f,     -0.5f, 0.7071f, -0.7071f, 0.998f,    -0.998f,
                         -0.999f,    -0.9991f, 0.9999f,   -0.9999f, 1.0f,  -1.0f,   -1.0009f, -1.001f,   -1.0011f,
                         -1.00198f,  1.5f,     -1.5f,     2.0f,     -2.0f, 33.3f,   -33.3f,   1e5f,      -1e5f,
                         8.4e6f,     -8.4e6f,  1.68e7f,   -1.69e7f, 1e10f, -1e10f,  kLargest, -kLargest, kInfinity,
                         -kInfinity, kNaN,     1e-45f,    -1e-45f};

TEST(Colorize, ShiftsEveryByteByEveryDelta) {
    for (const float delta : kDeltas) {
        for (uint32_t byte = 0; byte < 256; ++byte) {
            const uint32_t colour = byte * 0x010101 | 0x5A000000;
            // A large hue shift keeps the others from being within the limits of doing nothing.
            for (const Deltas &deltas : {Deltas{delta, 0.01f, 0.01f}, Deltas{0.5f, delta, 0}, Deltas{0.5f, 0, delta}}) {
                ASSERT_EQ(ModelShifted(colour, deltas), AHSLColorize(colour, deltas.h, deltas.s, deltas.l))
                    << std::hex << colour << " by " << deltas.h << ", " << deltas.s << ", " << deltas.l;
            }
        }
    }
}

TEST(Colorize, LeavesColoursAloneWithinTheLimitsOnly) {
    // In double precision the nearest single to 0.000001 lies below it.
    const float below = 0.000001f, above = std::nextafter(below, 1.0f);
    for (const uint32_t colour : {0u, 0xFF808080u, 0x80AA0080u, 0x12345678u, 0xFFFFFFFFu}) {
        for (const float delta : {0.0f, below, -below}) {
            EXPECT_EQ(colour, ARGBColorize(colour, delta, -delta, delta));
            EXPECT_EQ(colour, AHSLColorize(colour, -delta, delta, -delta));
        }
        for (const float delta : {above, -above, kNaN}) {
            for (const Deltas &deltas : {Deltas{delta, 0, 0}, Deltas{0, delta, 0}, Deltas{0, 0, delta}}) {
                EXPECT_EQ(ModelColorized(colour, deltas), ARGBColorize(colour, deltas.h, deltas.s, deltas.l));
                EXPECT_NE(0u, AHSLColorize(colour, deltas.h, deltas.s, deltas.l) & 0xFF00);
            }
        }
    }
}

TEST(Colorize, HasKnownValues) {
    EXPECT_EQ(0xFF40FF80u, AHSLColorize(0xFF00FF80, 0.5f, 0, 0));
    EXPECT_EQ(0xFF000180u, AHSLColorize(0xFF00FF80, 0, -1, 0));
    EXPECT_EQ(0xFF00FF00u, AHSLColorize(0xFF00FF80, 0, 0, -1));
    EXPECT_EQ(0xFF00FFFFu, AHSLColorize(0xFF00FF80, 0, 0, 1));
    EXPECT_EQ(0xFF00FF7Eu, AHSLColorize(0xFF00FF80, 0, 0, 2));
    EXPECT_EQ(0xFFAA0180u, AHSLColorize(0xFFAA0080, 0, 0, 0.001f));
    EXPECT_EQ(0x33000000u, ARGBColorize(0x33FF8040, 0, 0, -1));
    EXPECT_EQ(0x33FFFFFFu, ARGBColorize(0x33FF8040, 0, 0, 1));
}

TEST(Colorize, RecordsAreColorizedInPlaceAsTheWords) {
    Random random(7);
    for (int i = 0; i < 2000; ++i) {
        const auto delta = [&] { return static_cast<float>(random.Between(-2000, 2000)) / 1000; };
        const Deltas deltas{delta(), delta(), delta()};
        const uint32_t colour = random.Word() & 0xFFFFFF;
        RGBRecord rgb{static_cast<BYTE>(colour), static_cast<BYTE>(colour >> 8), static_cast<BYTE>(colour >> 16)};
        HSLRecord hsl{static_cast<BYTE>(colour), static_cast<BYTE>(colour >> 8), static_cast<BYTE>(colour >> 16)};
        ASSERT_EQ(&rgb, RGBColorize(&rgb, &rgb, deltas.h, deltas.s, deltas.l));
        ASSERT_EQ(&hsl, HSLColorize(&hsl, &hsl, deltas.h, deltas.s, deltas.l));
        ASSERT_EQ(ModelColorized(colour, deltas), static_cast<uint32_t>(rgb.r << 16 | rgb.g << 8 | rgb.b));
        ASSERT_EQ(ModelShifted(colour, deltas), static_cast<uint32_t>(hsl.h << 16 | hsl.s << 8 | hsl.l));
        ASSERT_EQ(ModelColorized(colour | 0x9A000000, deltas),
                  ARGBColorize(colour | 0x9A000000, deltas.h, deltas.s, deltas.l));
    }
}

TEST(Colorize, TexturesOfEveryDepth) {
    constexpr Deltas kShift{0.3f, -0.4f, 0.2f};
    for (const WORD bits : std::initializer_list<WORD>{8, 24, 32}) {
        const OwnedTexture texture = NoiseTexture(13, 7, bits, bits);
        const SurfaceView view = ViewOf(texture);
        const std::vector<uint32_t> stored = PixelsOf(view);
        std::vector<uint32_t> expected = ColoursOf(view);
        for (size_t i = 0; i < expected.size(); ++i) {
            // An index beyond the palette has no entry to change.
            if (bits != 8 || stored[i] < view.paletteCount) expected[i] = ModelColorized(expected[i], kShift);
        }
        EXPECT_EQ(1, ColorizeTexture(texture, kShift.h, kShift.s, kShift.l));
        EXPECT_EQ(expected, ColoursOf(view)) << bits;
        if (bits == 8) {
            EXPECT_EQ(stored, PixelsOf(view));
        }
    }
    for (const WORD bits : std::initializer_list<WORD>{16, 48}) {
        const OwnedTexture texture(CreateTextureEx(5, 3, bits, 0));
        const SurfaceView view = ViewOf(texture);
        FillBytes(view, 0x5A);
        EXPECT_EQ(1, ColorizeTexture(texture, kShift.h, kShift.s, kShift.l));
        EXPECT_TRUE(HasOnlyBytes(view, 0x5A)) << bits;
    }
}

TEST(Colorize, RefusesWhatIsNoTextureUnlessThereIsNothingToDo) {
    const OwnedBitmap bitmap(CreateMemBitmap(2, 2));
    const OwnedTexture shallow(CreateTextureEx(2, 2, 4, 0));
    for (const HGTEXTURE wrong : {HGTEXTURE{}, HGTEXTURE{HGBITMAP(bitmap).value}, HGTEXTURE(shallow)}) {
        EXPECT_EQ(0, ColorizeTexture(wrong, 0, 0.000002f, 0));
        EXPECT_EQ(1, ColorizeTexture(wrong, 0.0000009f, 0, -0.0000009f));
    }
}

}  // namespace
}  // namespace lacquer
