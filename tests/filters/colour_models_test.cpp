// Colour conversions: every colour in both directions, against the model and against digests that hold on every target.

#include "models.h"

namespace lacquer {
namespace {

constexpr uint32_t kColours = 1u << 24;

/// The words of all colours, with alphas that differ, as one number.
struct Walk {
    uint64_t digest = 0xCBF29CE484222325;
    uint32_t mismatches = 0, first = 0;
};

template <class Convert, class Model>
Walk WalkAll(const Convert &convert, const Model &model) {
    Walk walk;
    for (uint32_t colour = 0; colour < kColours; ++colour) {
        const uint32_t word = colour | (colour * 0x9E3779B1u & 0xFF000000);
        const uint32_t converted = convert(word);
        if (converted != model(word) && walk.mismatches++ == 0) walk.first = word;
        walk.digest = (walk.digest ^ converted) * 0x100000001B3;
    }
    return walk;
}

TEST(ColourModels, ConvertEveryColourToTheBit) {
    const Walk forward = WalkAll(ARGBtoAHSL, ModelAhslOf), reverse = WalkAll(AHSLtoARGB, ModelArgbOf);
    EXPECT_EQ(0u, forward.mismatches) << "first " << std::hex << forward.first;
    EXPECT_EQ(0u, reverse.mismatches) << "first " << std::hex << reverse.first;
    EXPECT_EQ(0xA1CF89EF8A19F325u, forward.digest);
    EXPECT_EQ(0x38FC07E1D6A1891Au, reverse.digest);
}

TEST(ColourModels, HaveKnownValues) {
    EXPECT_EQ(0xFFAA0080u, ARGBtoAHSL(0xFF808080));
    EXPECT_EQ(0xFF00FF80u, ARGBtoAHSL(0xFFFF0000));
    EXPECT_EQ(0x1255FF80u, ARGBtoAHSL(0x1200FF00));
    EXPECT_EQ(0x00AAFF80u, ARGBtoAHSL(0x000000FF));
    EXPECT_EQ(0x7FAA00FFu, ARGBtoAHSL(0x7FFFFFFF));
    EXPECT_EQ(0x00AA0000u, ARGBtoAHSL(0));
    // A hue below red's wraps around the circle.
    EXPECT_EQ(0xFFD6u, ARGBtoAHSL(0xFFFF00FF) >> 16);
    EXPECT_EQ(0x80FFFFFFu, AHSLtoARGB(0x801234FF));
    EXPECT_EQ(0x80000000u, AHSLtoARGB(0x8012FF00));
}

TEST(ColourModels, RecordsFollowTheWordsBytes) {
    for (uint32_t colour = 0; colour < kColours; colour += 0xFD3) {
        const RGBRecord rgb{static_cast<BYTE>(colour), static_cast<BYTE>(colour >> 8), static_cast<BYTE>(colour >> 16)};
        const HSLRecord hsl{static_cast<BYTE>(colour), static_cast<BYTE>(colour >> 8), static_cast<BYTE>(colour >> 16)};
        HSLRecord toHsl{};
        RGBRecord toRgb{};
        ASSERT_EQ(&toHsl, RGBtoHSL(&toHsl, &rgb));
        ASSERT_EQ(&toRgb, HSLtoRGB(&toRgb, &hsl));
        ASSERT_EQ(ARGBtoAHSL(colour), static_cast<uint32_t>(toHsl.h << 16 | toHsl.s << 8 | toHsl.l));
        ASSERT_EQ(AHSLtoARGB(colour), static_cast<uint32_t>(toRgb.r << 16 | toRgb.g << 8 | toRgb.b));
    }
}

TEST(ColourModels, NullRecordsAreRefused) {
    RGBRecord rgb{1, 2, 3};
    HSLRecord hsl{4, 5, 6};
    EXPECT_EQ(nullptr, RGBtoHSL(nullptr, &rgb));
    EXPECT_EQ(nullptr, RGBtoHSL(&hsl, nullptr));
    EXPECT_EQ(nullptr, HSLtoRGB(nullptr, &hsl));
    EXPECT_EQ(nullptr, HSLtoRGB(&rgb, nullptr));
    for (const float delta : {0.0f, 0.5f}) {
        EXPECT_EQ(nullptr, RGBColorize(nullptr, &rgb, delta, 0, 0));
        EXPECT_EQ(nullptr, RGBColorize(&rgb, nullptr, delta, 0, 0));
        EXPECT_EQ(nullptr, HSLColorize(nullptr, &hsl, delta, 0, 0));
        EXPECT_EQ(nullptr, HSLColorize(&hsl, nullptr, delta, 0, 0));
    }
    EXPECT_TRUE(rgb.b == 1 && rgb.g == 2 && rgb.r == 3);
    EXPECT_TRUE(hsl.l == 4 && hsl.s == 5 && hsl.h == 6);
}

}  // namespace
}  // namespace lacquer
