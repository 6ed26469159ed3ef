// Shadows against a convolution in double precision; clips, mirrors, order and colours.

#include <limits>

#include "shape_model.h"

namespace lacquer {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

/// A shadow of opaque black.
ShadowStyle Black(LONG dx, LONG dy, float blur, float spread, const std::array<float, 4> &radii, DWORD flags) {
    return {0xFF000000, dx, dy, blur, spread, {radii[0], radii[1], radii[2], radii[3]}, 1, flags};
}

/// The standard Gaussian's integral, integrated once more.
double TwiceIntegrated(double t) {
    return t * 0.5 * std::erfc(-t / std::sqrt(2.0)) + std::exp(-t * t / 2) / std::sqrt(8 * std::atan(1.0));
}

/// An edge at `edge`, blurred, averaged over the pixel that begins at x.
double EdgeIn(LONG x, double edge, double deviation) {
    return deviation * (TwiceIntegrated((x + 1 - edge) / deviation) - TwiceIntegrated((x - edge) / deviation));
}

/// The shares of pixels that a blurred shape covers, by thin slices of the shape.
std::vector<double> BlurredShares(const ModelShape &shape, double blur, LONG width, LONG height) {
    const double deviation = blur / 2;
    std::vector<double> shares(static_cast<size_t>(width * height));
    const double reach = 6 * deviation + 1;
    const double top = std::max(shape.top, -reach), bottom = std::min(shape.bottom, height + reach);
    const int slices = static_cast<int>(std::ceil((bottom - top) / std::min(0.1, std::max(0.01, deviation / 8))));
    std::vector<double> line(static_cast<size_t>(width));
    for (int i = 0; i < slices; ++i) {
        const double y0 = top + (bottom - top) * i / slices, y1 = top + (bottom - top) * (i + 1) / slices;
        const auto [from, to] = shape.At((y0 + y1) / 2);
        if (from >= to) continue;
        for (LONG x = 0; x < width; ++x) {
            line[static_cast<size_t>(x)] = EdgeIn(x, from, deviation) - EdgeIn(x, to, deviation);
        }
        for (LONG y = 0; y < height; ++y) {
            const double weight = EdgeIn(y, y0, deviation) - EdgeIn(y, y1, deviation);
            if (weight < 1e-9) continue;
            for (LONG x = 0; x < width; ++x) {
                shares[static_cast<size_t>(y * width + x)] += weight * line[static_cast<size_t>(x)];
            }
        }
    }
    return shares;
}

/// What a shadow of `rect` covers, and whether a pixel is one that it must leave alone.
struct ModelShadow {
    ModelShape rect, caster;
    double blur;
    DWORD flags;
    std::vector<double> shares;
    LONG width;

    ModelShadow(const RECT &from, const ShadowStyle &style, LONG canvasWidth, LONG canvasHeight)
        : flags(style.flags), width(canvasWidth) {
        rect = ShapeOf({float(from.left), float(from.top), float(from.right), float(from.bottom)}, style.radii);
        const double spread = Rounded(std::clamp(style.spread, -16384.0f, 16384.0f));
        caster = rect.Grown(flags & LACQUER_SHADOW_INNER ? -spread : spread, true);
        caster.left += style.offsetX;
        caster.right += style.offsetX;
        caster.top += style.offsetY;
        caster.bottom += style.offsetY;
        blur = Rounded(std::clamp(style.blur, 0.0f, 1024.0f));
        if (caster.IsEmpty()) {
            shares.assign(static_cast<size_t>(canvasWidth * canvasHeight), 0);
        } else if (blur == 0) {
            for (LONG y = 0; y < canvasHeight; ++y) {
                for (LONG x = 0; x < canvasWidth; ++x) shares.push_back(caster.AreaIn(x, y));
            }
        } else {
            shares = BlurredShares(caster, blur, canvasWidth, canvasHeight);
        }
    }

    double CoverAt(LONG x, LONG y) const {
        const double share = shares[static_cast<size_t>(y * width + x)], inside = rect.AreaIn(x, y);
        if (flags & LACQUER_SHADOW_INNER) return 255 * (1 - share) * inside;
        return 255 * share * (flags & LACQUER_SHADOW_FILLED ? 1 : 1 - inside);
    }

    bool MissesBounds(LONG x, LONG y) const {
        const double reach = 1.5 * blur;
        return caster.IsEmpty() || x + 1 + reach <= caster.left || x - reach >= caster.right ||
               y + 1 + reach <= caster.top || y - reach >= caster.bottom;
    }
};

void ExpectShadow(const RECT &rect, const ShadowStyle &style, LONG width, LONG height) {
    const Picture covers = CoversOf(width, height, [&](HGCANVAS canvas, DWORD colour) {
        ShadowStyle drawn = style;
        drawn.colour = colour;
        EXPECT_EQ(1, DrawShadows(canvas, &rect, &drawn, 1));
    });
    const ModelShadow model(rect, style, width, height);
    ForEachPixel(covers, [&](LONG x, LONG y) {
        const double expected = model.CoverAt(x, y), actual = covers.At(x, y);
        ASSERT_NEAR(expected, actual, 2) << x << ", " << y;
        const bool isInner = model.flags & LACQUER_SHADOW_INNER, isFilled = !isInner && model.flags != 0;
        const double inside = model.rect.AreaIn(x, y);
        const bool isNone = isInner ? inside == 0 : model.MissesBounds(x, y) || (!isFilled && inside > 1 - 1e-9);
        if (isNone) {
            ASSERT_EQ(0, actual) << x << ", " << y;
        }
    });
}

constexpr DWORD kFlags[] = {0, LACQUER_SHADOW_INNER, LACQUER_SHADOW_FILLED,
                            LACQUER_SHADOW_INNER | LACQUER_SHADOW_FILLED};

TEST(Shadows, AreBlurredShapes) {
    Random random(1);
    for (int round = 0; round < 32; ++round) {
        const RECT rect = random.Inside({8, 8, 48, 44});
        std::array<float, 4> radii{};
        for (float &radius : radii) radius = static_cast<float>(random.Between(0, 3) * random.Between(0, 300)) / 64;
        const float blur = random.Of({0.0f, 0.1f, 0.5f, 1.0f, 2.0f, 4.5f, 8.0f, 16.0f, 24.0f});
        const float spread = random.Of({0.0f, 0.0f, 2.5f, -1.25f, 6.0f, -4.0f});
        const ShadowStyle style =
            Black(random.Between(-6, 6), random.Between(-6, 6), blur, spread, radii, kFlags[random.Word() % 4]);
        SCOPED_TRACE(::testing::Message() << "round " << round << " blur " << blur << " spread " << spread);
        ExpectShadow(rect, style, 56, 52);
        if (HasFatalFailure()) return;
    }
    // Casters whose arcs leave nothing of some rows or meet inside a pixel, and very large ones.
    constexpr float kFar = 1e9f;
    struct Case {
        RECT rect;
        ShadowStyle style;
    };
    const Case cases[] = {{{10, 10, 40, 40}, Black(0, 0, 6, -7, {30, 0, 0, 0}, 0)},
                          {{10, 10, 40, 40}, Black(0, 0, 3, -5, {30, 0, 30, 0}, 2)},
                          {{10, 10, 40, 40}, Black(0, 0, 3, 5, {30, 0, 30, 0}, 1)},
                          {{10, 10, 40, 40}, Black(0, 0, 3, -9, {0, 30, 0, 30}, 2)},
                          {{10, 10, 40, 40}, Black(0, 0, 0, -9.5f, {30, 0, 30, 0}, 2)},
                          {{10, 10, 40, 40}, Black(0, 0, 0, -7, {0, 30, 0, 30}, 2)},
                          {{10, 10, 40, 30}, Black(0, 0, 6, 8, {20, 0, 0, 0}, 0)},
                          {{10, 10, 40, 30}, Black(0, 0, 6, -200, {20, 0, 0, 0}, 2)},
                          {{10, 10, 40, 30}, Black(0, 0, 6, 200, {20, 0, 0, 0}, 1)},
                          {{-500, -700, 30, 30}, Black(0, 0, 40, 0, {0, 0, 300, 0}, 2)},
                          {{-9000, 5, 25, 30000}, Black(3, 3, 0.7f, 0, {0, kFar, 0, 0}, 0)},
                          {{20, 20, 21, 21}, Black(0, 0, 30, 0, {}, 0)},
                          {{16404, -99, 16500, 90}, Black(0, 0, 4, kFar, {}, 0)},
                          {{-16384, -16384, 16414, 16404}, Black(0, 0, 4, -kFar, {}, 2)},
                          {{-3000, -3000, 20, 20}, Black(0, 0, 2000, 0, {0, 0, 40, 0}, 2)},
                          {{-400, 9, 35, 300}, Black(3, -3, 128, 0, {0, 150, 0, 0}, 0)},
                          {{-90, -160, 48, 44}, Black(-7, 0, 131, 1.75f, {9, 50, 90, 0}, 1)},
                          {{24, 20, 25, 21}, Black(0, 0, 128, 60, {}, 2)},
                          {{180, 0, 400, 400}, Black(0, 0, 129, 0, {90, 0, 0, 90}, 2)}};
    for (const Case &c : cases) {
        SCOPED_TRACE(&c - cases);
        ExpectShadow(c.rect, c.style, 50, 46);
    }
}

TEST(Shadows, AreTheSameUnderEveryClipMoveAndMirror) {
    Random random(2);
    constexpr SIZE kSize{150, 130};
    for (int round = 0; round < 40; ++round) {
        SCOPED_TRACE(round);
        const RECT rect = random.Inside({-20, -20, 170, 150});
        std::array<float, 4> radii{};
        for (float &radius : radii) radius = static_cast<float>(random.Between(0, 80)) / 2;
        const float blur = static_cast<float>(random.Between(0, 160)) / (round % 4 == 3 ? 0.5f : 4);
        const ShadowStyle style = Black(random.Between(-9, 9), random.Between(-9, 9), blur,
                                        static_cast<float>(random.Between(-20, 20)) / 4, radii, kFlags[round % 3]);
        ExpectSameWherever(random, kSize, [&](HGCANVAS canvas, const Place &place) {
            const GeoRect placed =
                place.Of({float(rect.left), float(rect.top), float(rect.right), float(rect.bottom)}, kSize);
            const RECT to{LONG(placed.left), LONG(placed.top), LONG(placed.right), LONG(placed.bottom)};
            ShadowStyle shadow = style;
            place.Mirror(shadow.radii);
            if (place.isAcross) shadow.offsetX = -shadow.offsetX;
            if (place.isDown) shadow.offsetY = -shadow.offsetY;
            EXPECT_EQ(1, DrawShadows(canvas, &to, &shadow, 1));
        });
    }
}

TEST(Shadows, AreDrawnLastToFirst) {
    const RECT rect{20, 20, 60, 50};
    const ShadowStyle shadows[] = {{0x80FF0000, 3, 3, 8, 0, {4, 4, 4, 4}, 1, 0},
                                   {0xC000FF00, -3, 1, 5, 2, {4, 0, 4, 0}, 1, LACQUER_SHADOW_INNER},
                                   {0xFF0000FF, 0, 8, 0, -1, {}, 1, LACQUER_SHADOW_FILLED},
                                   {0xFF0000FF, 0, 8, kNaN, -1, {}, 1, LACQUER_SHADOW_FILLED},
                                   {0xFF0000FF, 0, 8, 3, kNaN, {}, 1, LACQUER_SHADOW_FILLED},
                                   {0xFF0000FF, 0, 8, 3, 0, {0, 0, kNaN, 0}, 1, LACQUER_SHADOW_FILLED},
                                   {0xFF0000FF, 0, 8, 3, 0, {}, kNaN, LACQUER_SHADOW_FILLED}};
    const TestCanvas list(CanvasKind::FromDC, 80, 70, 1), one(CanvasKind::FromDC, 80, 70, 1);
    EXPECT_EQ(1, DrawShadows(list, &rect, shadows, static_cast<int>(std::size(shadows))));
    for (const int i : {2, 1, 0}) EXPECT_EQ(1, DrawShadows(one, &rect, &shadows[i], 1));
    EXPECT_TRUE(Same(one.Pixels(), list.Pixels()));
}

TEST(Shadows, ChangeTheirColoursLightness) {
    const auto filled = [](DWORD colour, float lightness) {
        const TestCanvas canvas(CanvasKind::Memory, 4, 4, 1);
        FillWith(canvas.View(), 0);
        const RECT rect{0, 0, 4, 4};
        const ShadowStyle shadow{colour, 0, 0, 0, 0, {}, lightness, LACQUER_SHADOW_FILLED};
        EXPECT_EQ(1, DrawShadows(canvas, &rect, &shadow, 1));
        return canvas.Pixels().At(2, 2);
    };
    for (const DWORD colour : {0xFF804020u, 0xFF123456u, 0xFFC0C0C0u, 0xFF0000FFu}) {
        EXPECT_EQ(colour, filled(colour, 1));
        const DWORD ahsl = ARGBtoAHSL(colour);
        for (const float factor : {0.0f, -3.0f, 0.5f, 0.999f, 1.25f, 7.0f, 300.0f}) {
            const float product = static_cast<float>(ahsl & 255) * std::clamp(factor, 0.0f, 255.0f);
            const DWORD lightness = product >= 255 ? 255 : static_cast<DWORD>(product);
            EXPECT_EQ(AHSLtoARGB((ahsl & 0xFFFFFF00) | lightness), filled(colour, factor)) << std::hex << colour;
        }
    }
}

}  // namespace
}  // namespace lacquer
