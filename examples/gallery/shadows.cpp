// shadows.png: cards at heights of 1 to 24, and shadows that fall inwards, are coloured, spread, moved or made lighter.
#include <array>
#include <cstdio>
#include <span>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

constexpr std::uint32_t kGround = 0xFFE8EAEF, kCard = 0xFFFFFFFF, kDarkText = 0xFF4A5060;

ShadowStyle MakeShadow(std::uint32_t colour, int dx, int dy, float blur, float spread, float radius, DWORD flags = 0,
                       float lightness = 1) {
    return {colour, dx, dy, blur, spread, {radius, radius, radius, radius}, lightness, flags};
}

void DrawShadowsOf(const Canvas &canvas, const RECT &rect, std::span<const ShadowStyle> shadows) {
    Check(DrawShadows(canvas, &rect, shadows.data(), static_cast<int>(shadows.size())), "DrawShadows");
}

void DrawCard(const Canvas &canvas, const RECT &rect, int radius, std::uint32_t colour = kCard) {
    Check(GeoRoundRect(canvas, &rect, 0, colour, 0, radius), "GeoRoundRect");
}

/// A card so far above the ground: one soft shadow all around, and one of a light from above.
void DrawRaised(const Canvas &canvas, const Skin &skin, int x, int y, int height) {
    const RECT card = Box(x, y, 96, 64);
    const auto away = static_cast<float>(height);
    const std::array<ShadowStyle, 2> shadows{MakeShadow(0x38101828, 0, height, 2 * away, -away / 4, 8),
                                             MakeShadow(0x24101828, 0, 0, 2 + away / 2, 0, 8)};
    DrawShadowsOf(canvas, card, shadows);
    DrawCard(canvas, card, 8);
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%d", height);
    skin.font.DrawCentred(canvas, x + 48, y + 26, text.data(), kDarkText, 2);
}

struct Specimen {
    std::string_view name;
    ShadowStyle shadow;
    int radius;
};

void DrawSpecimens(const Canvas &canvas, const Skin &skin, int top, std::string_view title,
                   std::span<const Specimen> specimens, std::uint32_t card) {
    skin.font.Draw(canvas, 36, top, title, kDarkText);
    int x = 44;
    for (const Specimen &specimen : specimens) {
        const RECT rect = Box(x, top + 28, 96, 64);
        const bool isInner = (specimen.shadow.flags & LACQUER_SHADOW_INNER) != 0;
        if (isInner) DrawCard(canvas, rect, specimen.radius, card);
        DrawShadowsOf(canvas, rect, {&specimen.shadow, 1});
        if (!isInner && specimen.shadow.flags == 0) DrawCard(canvas, rect, specimen.radius, card);
        skin.font.DrawCentred(canvas, x + 48, top + 112, specimen.name, kDarkText);
        x += 134;
    }
}

}  // namespace

Canvas PaintShadows(const Skin &skin) {
    Canvas canvas = MakePage(skin, 1000, 800, "Shadows",
                             "A Gaussian of any size for rectangles with round corners, without a bitmap");
    const RECT ground = Box(20, 68, 960, 712);
    DrawCard(canvas, ground, 10, kGround);
    skin.font.Draw(canvas, 36, 84, "Elevations of 1 to 24, two shadows each", kDarkText);
    constexpr std::array<int, 7> heights{1, 2, 4, 8, 12, 16, 24};
    for (std::size_t i = 0; i < heights.size(); ++i)
        DrawRaised(canvas, skin, 44 + static_cast<int>(i) * 134, 108, heights[i]);

    const std::array<Specimen, 7> inner{
        {{"blur 4", MakeShadow(0xA0101828, 0, 0, 4, 0, 8, LACQUER_SHADOW_INNER), 8},
         {"blur 12", MakeShadow(0xA0101828, 0, 0, 12, 0, 8, LACQUER_SHADOW_INNER), 8},
         {"down by 4", MakeShadow(0xA0101828, 0, 4, 8, 0, 8, LACQUER_SHADOW_INNER), 8},
         {"light from below", MakeShadow(0xFFFFFFFF, 0, -3, 4, 0, 16, LACQUER_SHADOW_INNER), 16},
         {"spread 6", MakeShadow(0xA0101828, 0, 0, 6, 6, 20, LACQUER_SHADOW_INNER), 20},
         {"blur 40", MakeShadow(0xFFB01E2E, 0, 0, 40, 0, 32, LACQUER_SHADOW_INNER), 32},
         {"no blur", MakeShadow(0xFF5A7ABE, 6, 6, 0, 0, 12, LACQUER_SHADOW_INNER), 12}}};
    DrawSpecimens(canvas, skin, 232, "Inner shadows", inner, 0xFFC9D2E2);

    const std::array<Specimen, 7> coloured{
        {{"red", MakeShadow(0xC0E5484D, 0, 6, 18, 0, 12), 12},
         {"gold", MakeShadow(0xFFF5B84B, 0, 0, 24, 4, 12), 12},
         {"green", MakeShadow(0xFF2E8B66, 8, 8, 8, 0, 0), 0},
         {"lightness 0.5", MakeShadow(0xFF5AA9E6, 0, 8, 16, 0, 12, 0, 0.5f), 12},
         {"lightness 1", MakeShadow(0xFF5AA9E6, 0, 8, 16, 0, 12), 12},
         {"lightness 1.3", MakeShadow(0xFF5AA9E6, 0, 8, 16, 0, 12, 0, 1.3f), 12},
         {"filled", MakeShadow(0xFF8E2458, 0, 0, 16, 0, 12, LACQUER_SHADOW_FILLED), 12}}};
    DrawSpecimens(canvas, skin, 368, "Colours", coloured, kCard);

    const std::array<Specimen, 7> spread{{{"spread -8", MakeShadow(0x90101828, 0, 14, 12, -8, 12), 12},
                                          {"spread 0", MakeShadow(0x90101828, 0, 14, 12, 0, 12), 12},
                                          {"spread 8", MakeShadow(0x90101828, 0, 0, 12, 8, 12), 12},
                                          {"a ring: no blur", MakeShadow(0xFF5AA9E6, 0, 0, 0, 3, 12), 12},
                                          {"half a pixel", MakeShadow(0xFF4A5060, 0, 0, 0, 0.5f, 12), 12},
                                          {"blur 1", MakeShadow(0xC0101828, 1, 2, 1, 0, 20), 20},
                                          {"blur 60", MakeShadow(0xFF101828, 0, 0, 60, -12, 32), 32}}};
    DrawSpecimens(canvas, skin, 504, "Spread", spread, kCard);

    constexpr std::array<float, 4> leaf{32, 0, 32, 0};
    const auto withRadii = [](ShadowStyle style, std::array<float, 4> radii) {
        for (std::size_t i = 0; i < radii.size(); ++i) style.radii[i] = radii[i];
        return style;
    };
    const std::array<Specimen, 7> moved{
        {{"left up", MakeShadow(0x90101828, -10, -10, 10, 0, 8), 8},
         {"right", MakeShadow(0x90101828, 16, 0, 10, 0, 8), 8},
         {"down by 24", MakeShadow(0x90101828, 0, 24, 10, -10, 8), 8},
         {"alone", MakeShadow(0x90101828, 0, 0, 14, 0, 8), 8},
         {"a leaf", withRadii(MakeShadow(0xFF2E8B66, 0, 0, 10, 0, 0, 2), leaf), 0},
         {"a leaf, grown", withRadii(MakeShadow(0xFF2E8B66, 0, 0, 6, 8, 0, 2), leaf), 0},
         {"a leaf, sharp", withRadii(MakeShadow(0xFF2E8B66, 0, 0, 0, -4, 0, 2), leaf), 0}}};
    DrawSpecimens(canvas, skin, 640, "Offsets and corners", moved, kCard);
    return canvas;
}

}  // namespace lacquer::examples
