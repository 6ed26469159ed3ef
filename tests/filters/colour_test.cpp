// Colour conversions, of every colour in both directions, by digests that hold on every target; and colorizing against
// a model.

#include <cmath>
#include <cstring>
#include <limits>

#include "models.h"

namespace lacquer {
namespace {

/// The words that all colours are converted to, with alphas that differ, as one number.
uint64_t DigestOfAll(uint32_t (*convert)(uint32_t)) {
    uint64_t digest = 0xCBF29CE484222325;
    for (uint32_t colour = 0; colour < 1u << 24; ++colour) {
        digest = (digest ^ convert(colour | (colour * 0x9E3779B1u & 0xFF000000))) * 0x100000001B3;
    }
    return digest;
}

/// The digests are those of a model that made each single-precision step in double precision and rounded it.
TEST(ColourModels, ConvertEveryColourToTheBit) {
    EXPECT_EQ(0xA1CF89EF8A19F325u, DigestOfAll([](uint32_t colour) -> uint32_t { return ARGBtoAHSL(colour); }));
    EXPECT_EQ(0x38FC07E1D6A1891Au, DigestOfAll([](uint32_t colour) -> uint32_t { return AHSLtoARGB(colour); }));
}

constexpr float kInfinity = std::numeric_limits<float>::infinity(), kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kLargest = std::numeric_limits<float>::max();

const float kDeltas[] = {0.0f,    1e-6f,    -1e-3f, 0.1f,     -0.25f,    1 / 3.0f,  0.7071f,    -0.7071f, -0.998f,
                         -0.999f, -0.9991f, 1.0f,   -1.0f,    -1.0009f,  -1.001f,   -1.0011f,   1.5f,     -33.3f,
                         8.4e6f,  -1.69e7f, 1e10f,  kLargest, -kLargest, kInfinity, -kInfinity, kNaN,     -1e-45f};

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
    // Where there is nothing to do no texture is asked for, nor one that can be locked.
    const OwnedTexture shallow(CreateTextureEx(2, 2, 4, 0));
    for (const HGTEXTURE wrong : {HGTEXTURE{}, HGTEXTURE(shallow)}) {
        EXPECT_EQ(0, ColorizeTexture(wrong, 0, 2 * above, 0));
        EXPECT_EQ(1, ColorizeTexture(wrong, below, 0, -below));
    }
}

TEST(Colorize, RecordsAreConvertedAndColorizedInPlaceAsTheWords) {
    Random random(7);
    for (int i = 0; i < 2000; ++i) {
        const auto delta = [&] { return static_cast<float>(random.Between(-2000, 2000)) / 1000; };
        const Deltas deltas{delta(), delta(), delta()};
        const uint32_t colour = random.Word() & 0xFFFFFF;
        RGBRecord rgb;
        HSLRecord hsl;
        std::memcpy(&rgb, &colour, sizeof rgb);
        std::memcpy(&hsl, &colour, sizeof hsl);
        const auto wordOf = [](const auto &record) {
            uint32_t word = 0;
            std::memcpy(&word, &record, sizeof record);
            return word;
        };
        RGBRecord toRgb{};
        HSLRecord toHsl{};
        ASSERT_EQ(&toHsl, RGBtoHSL(&toHsl, &rgb));
        ASSERT_EQ(&toRgb, HSLtoRGB(&toRgb, &hsl));
        ASSERT_EQ(ARGBtoAHSL(colour), wordOf(toHsl));
        ASSERT_EQ(AHSLtoARGB(colour), wordOf(toRgb));
        ASSERT_EQ(&rgb, RGBColorize(&rgb, &rgb, deltas.h, deltas.s, deltas.l));
        ASSERT_EQ(&hsl, HSLColorize(&hsl, &hsl, deltas.h, deltas.s, deltas.l));
        ASSERT_EQ(ModelColorized(colour, deltas), wordOf(rgb));
        ASSERT_EQ(ModelShifted(colour, deltas), wordOf(hsl));
    }
}

}  // namespace
}  // namespace lacquer
