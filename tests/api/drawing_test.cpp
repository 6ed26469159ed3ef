// Drawing bitmaps and textures 1:1 against the formulas of the draw modes, clipped draws against whole ones, and what
// is refused.

#include <gtest/gtest.h>

#include <string>

#include "objects.h"

namespace lacquer {
namespace {

constexpr LONG kWidth = 37, kHeight = 5;
constexpr uint32_t kKeyColour = 0x0A141E;

// ---- The formulas, channel by channel
// ----------------------------------------------------------------------------------

template <class Function>
uint32_t PerChannel(Function function) {
    uint32_t word = 0;
    for (unsigned shift = 0; shift < 32; shift += 8) word |= (function(shift) & 0xFF) << shift;
    return word;
}
uint32_t Channel(uint32_t word, unsigned shift) { return word >> shift & 0xFF; }
uint32_t Scaled(uint32_t word, uint32_t factor) {
    return PerChannel([&](unsigned shift) { return Channel(word, shift) * factor >> 8; });
}
uint32_t Over(uint32_t d, uint32_t s) {
    return PerChannel([&](unsigned shift) { return Channel(s, shift) + (Channel(d, shift) * (256 - (s >> 24)) >> 8); });
}

/// `s`: the source as a word; `key`: the word that a colour-keyed draw leaves out.
uint32_t Drawn(uint32_t d, uint32_t s, DWORD mode, BYTE alpha, uint32_t key) {
    if (mode == LACQUER_DRAW_MODULATE) {
        return PerChannel([&](unsigned shift) { return (Channel(s, shift) + 1) * Channel(d, shift) >> 8; });
    }
    if (mode == LACQUER_DRAW_BEHIND) {
        return PerChannel(
            [&](unsigned shift) { return Channel(d, shift) + (Channel(s, shift) * (256 - (d >> 24)) >> 8); });
    }
    if (alpha == 0) return d;
    if (alpha < 255) return Over(d, Scaled(s, alpha + 1u));
    if (mode == LACQUER_DRAW_OVER) return Over(d, s);
    return mode == LACQUER_DRAW_COLOR_KEY && s == key ? d : s;
}

// ---- 1:1
// ---------------------------------------------------------------------------------------------------------------

struct Source {
    DWORD bitsPerPixel, palette;
    bool system = false;
};

class SameSizeTest : public testing::TestWithParam<Source> {
protected:
    /// A source with some pixels of the key colour where the draw mode looks for them.
    void Fill(const SurfaceView &view, bool withKey) const {
        FillWithNoise(view, 41);
        if (GetParam().palette > 0) FillPaletteWithNoise(view, 42);
        if (!withKey) return;
        if (GetParam().palette > 0) view.palette[3] = kKeyColour;
        for (LONG x = 0; x < kWidth; x += 3) {
            PutPixel(view, x, 1, view.bitsPerPixel == 8 ? 3 : kKeyColour);
            PutPixel(view, x, 2, view.bitsPerPixel == 8 ? 3 : 0xFF000000 | kKeyColour);
        }
    }
    uint32_t Key() const { return GetParam().bitsPerPixel == 24 ? 0xFF000000 | kKeyColour : kKeyColour; }

    static constexpr RECT kPlace{2, 1, 2 + kWidth, 1 + kHeight};

    static std::string Name(DWORD mode, BYTE alpha) {
        return "mode " + std::to_string(mode) + " alpha " + std::to_string(alpha);
    }
};

TEST_P(SameSizeTest, FollowsTheFormulaOfItsMode) {
    const OwnedBitmap bitmap(GetParam().system
                                 ? CreateSystemBitmap(kWidth, kHeight)
                                 : CreateMemBitmapEx(kWidth, kHeight, GetParam().bitsPerPixel, GetParam().palette));
    for (const bool systemCanvas : {false, true}) {
        const OwnedCanvas canvas(systemCanvas ? CreateSystemCanvas(kWidth + 5, kHeight + 4, HGCANVAS{})
                                              : CreateCanvas(kWidth + 5, kHeight + 4, HGCANVAS{}));
        for (const DWORD mode : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 7u, 255u}) {
            for (const BYTE alpha : std::initializer_list<BYTE>{0, 1, 127, 254, 255}) {
                SCOPED_TRACE(Name(mode, alpha));
                // Off the key draw the pixels stay premultiplied: what others give is left to each processor.
                Fill(ViewOf(bitmap), mode == LACQUER_DRAW_COLOR_KEY && alpha == 255);
                FillWithNoise(ViewOf(canvas), 43);
                SetBitmapFilter(bitmap, mode << 24 | kKeyColour);
                const std::vector<uint32_t> before = PixelsIn(canvas), colours = ColoursOf(ViewOf(bitmap));
                ASSERT_EQ(1, DrawBitmapEx(canvas, &kPlace, bitmap, 4, alpha));
                const SurfaceView view = ViewOf(canvas);
                for (LONG y = 0; y < view.height; ++y) {
                    for (LONG x = 0; x < view.width; ++x) {
                        const uint32_t d = before[static_cast<size_t>(y * view.width + x)];
                        const bool inside =
                            x >= kPlace.left && x < kPlace.right && y >= kPlace.top && y < kPlace.bottom;
                        const uint32_t expected =
                            inside ? Drawn(d, colours[static_cast<size_t>((y - kPlace.top) * kWidth + x - kPlace.left)],
                                           mode, alpha, Key())
                                   : d;
                        ASSERT_EQ(expected, PixelAt(view, x, y)) << x << ' ' << y;
                    }
                }
            }
        }
    }
}

TEST_P(SameSizeTest, TexturesAndShorterFormsDrawTheSame) {
    if (GetParam().system) return;
    const HGBITMAP bitmap = CreateMemBitmapEx(kWidth, kHeight, GetParam().bitsPerPixel, GetParam().palette);
    Fill(ViewOf(bitmap), false);
    SetBitmapFilter(bitmap, LACQUER_DRAW_OVER << 24);
    const OwnedCanvas canvas(CreateCanvas(kWidth + 5, kHeight + 4, HGCANVAS{}));
    const auto drawn = [&](auto draw) {
        FillWithNoise(ViewOf(canvas), 44);
        EXPECT_EQ(1, draw());
        return PixelsIn(canvas);
    };
    const RECT all{0, 0, kWidth, kHeight};
    const std::vector<uint32_t> faded = drawn([&] { return DrawBitmapEx(canvas, &kPlace, bitmap, 0, 99); }),
                                full = drawn([&] { return DrawBitmapEx(canvas, &kPlace, bitmap, 0, 255); });
    EXPECT_NE(faded, full);
    EXPECT_EQ(full, drawn([&] { return DrawBitmap(canvas, &kPlace, bitmap, 0); }));
    EXPECT_EQ(full, drawn([&] { return DrawBitmapRectEx(canvas, &kPlace, bitmap, &all, 0, 255); }));
    EXPECT_EQ(full, drawn([&] { return DrawBitmapRectEx(canvas, &kPlace, bitmap, nullptr, 0, 255); }));
    const OwnedTexture texture(BitmapToTexture(bitmap));
    EXPECT_EQ(faded, drawn([&] { return DrawTextureEx(canvas, &kPlace, texture, 0, 99, 1.0f, 0); }));
    EXPECT_EQ(full, drawn([&] { return DrawTexture(canvas, &kPlace, texture, 0); }));
    // Scale and half scale play no part in a stretch, and unknown layouts stretch.
    const TextureMode unknown{6, 0x1F, {1, 1, 1, 1}};
    SetTextureMode(texture, &unknown);
    EXPECT_EQ(full, drawn([&] { return DrawTextureEx(canvas, &kPlace, texture, 0, 255, -3.5f, 1); }));
}

INSTANTIATE_TEST_SUITE_P(Depths, SameSizeTest,
                         testing::Values(Source{8, 0}, Source{8, 16}, Source{8, 256}, Source{24, 0}, Source{32, 0},
                                         Source{32, 0, true}));

// ---- Source rectangles and slices
// ----------------------------------------------------------------------------------------

TEST(SourceRectTest, PartsAreDrawnAndInvalidOnesAreNot) {
    const OwnedBitmap bitmap = NoisyBitmap(8, 6, 1);
    const OwnedCanvas canvas = NoisyCanvas(8, 6, 2);
    const RECT part{3, 2, 7, 5}, place{1, 1, 5, 4};
    EXPECT_EQ(1, DrawBitmapRectEx(canvas, &place, bitmap, &part, 0, 255));
    for (LONG y = 0; y < 3; ++y) {
        for (LONG x = 0; x < 4; ++x) {
            EXPECT_EQ(PixelAt(ViewOf(bitmap), x + 3, y + 2), PixelAt(ViewOf(canvas), x + 1, y + 1));
        }
    }
    const std::vector<uint32_t> before = PixelsIn(canvas);
    for (const RECT &wrong : {RECT{0, 0, 9, 6}, RECT{-1, 0, 4, 4}, RECT{4, 4, 4, 5}, RECT{5, 5, 2, 2},
                              RECT{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}, RECT{0, 0, INT32_MAX, 1}}) {
        EXPECT_EQ(1, DrawBitmapRectEx(canvas, &place, bitmap, &wrong, 1, 255));
        EXPECT_EQ(before, PixelsIn(canvas));
    }
}

TEST(SourceRectTest, ATextureDrawsItsCurrentSlice) {
    const OwnedTexture texture = NoisyTexture(10, 8, 1);
    const OwnedCanvas canvas(CreateCanvas(4, 3, HGCANVAS{}));
    const RECT slices[] = {{5, 4, 9, 7}, {9, 7, 5, 4}, {0, 0, 4, 3}}, all{0, 0, 4, 3};
    SetTextureSlice(texture, 3, slices);
    const auto drawn = [&] {
        FillWith(ViewOf(canvas), 0);
        EXPECT_EQ(1, DrawTexture(canvas, &all, texture, 0));
        return PixelsIn(canvas);
    };
    const std::vector<uint32_t> last = drawn();
    SetTextureCurSlice(texture, 0);
    const std::vector<uint32_t> first = drawn();
    EXPECT_EQ(PixelAt(ViewOf(texture), 5, 4), first[0]);
    EXPECT_NE(last, first);
    SetTextureCurSlice(texture, 1);
    EXPECT_EQ(first, drawn()) << "exchanged edges are put right";
    // An index outside the list counts as none.
    SetTextureCurSlice(texture, 2);
    SetTextureSlice(texture, 0, slices);
    const RECT whole{0, 0, 10, 8};
    const OwnedCanvas large(CreateCanvas(10, 8, HGCANVAS{}));
    EXPECT_EQ(1, DrawTexture(large, &whole, texture, 0));
    EXPECT_EQ(PixelsIn(texture), PixelsIn(large));
}

TEST(SourceRectTest, ASliceOutsideTheTextureIsRefused) {
    const OwnedTexture texture = NoisyTexture(10, 8, 1);
    const OwnedCanvas canvas = NoisyCanvas(4, 3, 2);
    const std::vector<uint32_t> before = PixelsIn(canvas);
    const RECT all{0, 0, 4, 3};
    for (const RECT &wrong :
         {RECT{0, 0, 11, 8}, RECT{0, 0, 10, 9}, RECT{-1, 0, 3, 3}, RECT{0, -1, 3, 3}, RECT{11, 8, 0, 0},
          RECT{3, -1, 0, 3}, RECT{5, 0, 5, 8}, RECT{0, 2, 9, 2}, RECT{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX},
          RECT{INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN}}) {
        SetTextureSlice(texture, 1, &wrong);
        EXPECT_EQ(0, DrawTexture(canvas, &all, texture, 1));
        EXPECT_EQ(0, DrawTextureEx(canvas, &all, texture, 1, 0, 1.0f, 0));
        EXPECT_EQ(before, PixelsIn(canvas));
    }
}

TEST(SourceRectTest, DepthsWithoutAKernelDrawNothingAndGive1) {
    const OwnedCanvas canvas = NoisyCanvas(6, 6, 2);
    const std::vector<uint32_t> before = PixelsIn(canvas);
    const RECT same{0, 0, 4, 4}, stretched{0, 0, 6, 6}, clipped{-2, -2, 9, 9};
    for (const DWORD depth : {0u, 1u, 4u, 12u, 16u, 48u, 65535u}) {
        const OwnedBitmap bitmap(CreateMemBitmapEx(4, 4, depth, 0));
        const OwnedTexture texture(CreateTextureEx(4, 4, depth, 0));
        for (const DWORD mode : {0u, 1u, 2u, 3u, 6u}) {
            SetBitmapFilter(bitmap, mode << 24);
            SetTextureFilter(texture, mode << 24);
            for (const RECT &place : {same, stretched, clipped}) {
                EXPECT_EQ(1, DrawBitmapEx(canvas, &place, bitmap, 4, 255));
                EXPECT_EQ(1, DrawBitmapEx(canvas, &place, bitmap, 1, 99));
                EXPECT_EQ(1, DrawTexture(canvas, &place, texture, 5));
            }
        }
        EXPECT_EQ(before, PixelsIn(canvas)) << depth;
    }
}

// ---- Clipping and origins
// ------------------------------------------------------------------------------------------------

TEST(ClippedDrawTest, IsTheCropOfTheWholeDraw) {
    constexpr LONG kCanvasWidth = 24, kCanvasHeight = 18, kMargin = 80, kDraws = 400;
    const OwnedCanvas small(CreateCanvas(kCanvasWidth, kCanvasHeight, HGCANVAS{})),
        large(CreateCanvas(kCanvasWidth + 2 * kMargin, kCanvasHeight + 2 * kMargin, HGCANVAS{}));
    const OwnedBitmap bitmaps[] = {OwnedBitmap(CreateMemBitmapEx(9, 7, 8, 200)),
                                   OwnedBitmap(CreateMemBitmapEx(9, 7, 24, 0)), NoisyBitmap(9, 7, 3)};
    for (const OwnedBitmap &bitmap : bitmaps) FillWithNoise(ViewOf(bitmap), 5);
    FillPaletteWithNoise(ViewOf(bitmaps[0]), 6);
    constexpr DWORD kModes[] = {0, 1, 2, 3, 6}, kKernelModes[] = {0, 1, 4, 5};
    for (uint32_t draw = 0; draw < kDraws; ++draw) {
        uint32_t used = 0;
        const auto pick = [&](LONG from, LONG to) {
            return from + static_cast<LONG>(Noise(draw, used++) % static_cast<uint32_t>(to - from + 1));
        };
        const OwnedBitmap &bitmap = bitmaps[draw % 3];
        SetBitmapFilter(bitmap, kModes[draw % 5] << 24 | 0x123456);
        const DWORD kernelMode = kKernelModes[draw % 4];
        const BYTE alpha = draw % 7 < 2 ? static_cast<BYTE>(pick(1, 254)) : 255;
        const bool sameSize = draw % 11 < 3;
        RECT place{pick(-40, kCanvasWidth), pick(-30, kCanvasHeight), 0, 0};
        place.right = place.left + (sameSize ? 9 : pick(1, 60));
        place.bottom = place.top + (sameSize ? 7 : pick(1, 60));
        RECT clip{pick(-2, 12), pick(-2, 9), 0, 0};
        clip.right = clip.left + pick(1, 20);
        clip.bottom = clip.top + pick(1, 15);

        const SurfaceView smallView = ViewOf(small), largeView = ViewOf(large);
        FillWithNoise(smallView, draw);
        const std::vector<uint32_t> before = PixelsOf(smallView);
        for (LONG y = 0; y < kCanvasHeight; ++y) {
            for (LONG x = 0; x < kCanvasWidth; ++x) {
                PutPixel(largeView, x + kMargin, y + kMargin, PixelAt(smallView, x, y));
            }
        }
        SetCanvasClipRect(small, &clip);
        ASSERT_EQ(1, DrawBitmapEx(small, &place, bitmap, kernelMode, alpha));
        const RECT moved{place.left + kMargin, place.top + kMargin, place.right + kMargin, place.bottom + kMargin};
        ASSERT_EQ(1, DrawBitmapEx(large, &moved, bitmap, kernelMode, alpha));
        for (LONG y = 0; y < kCanvasHeight; ++y) {
            for (LONG x = 0; x < kCanvasWidth; ++x) {
                const bool visible = x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
                ASSERT_EQ(visible ? PixelAt(largeView, x + kMargin, y + kMargin)
                                  : before[static_cast<size_t>(y * kCanvasWidth + x)],
                          PixelAt(smallView, x, y))
                    << "draw " << draw << " at " << x << ' ' << y;
            }
        }
    }
}

TEST(OriginTest, DrawsAtLogicalCoordinates) {
    const OwnedBitmap bitmap = NoisyBitmap(5, 4, 1);
    const OwnedCanvas plain(CreateCanvas(12, 12, HGCANVAS{})), moved(CreateCanvas(12, 12, HGCANVAS{}));
    SetViewportOrg(moved, -4, 9, nullptr);
    SetWindowOrg(moved, -6, 2, nullptr);  // device = logical + (2, 7)
    const RECT onDevice{3, 4, 9, 11}, logical{1, -3, 7, 4};
    EXPECT_EQ(1, DrawBitmap(plain, &onDevice, bitmap, 4));
    EXPECT_EQ(1, DrawBitmap(moved, &logical, bitmap, 4));
    EXPECT_EQ(PixelsIn(plain), PixelsIn(moved));
}

TEST(OriginTest, ACanvasMayDrawItself) {
    // The order in which pixels of an overlapping draw are read is open; the memory around them is not.
    const OwnedCanvas canvas = NoisyCanvas(9, 9, 3);
    const HGBITMAP alias = GetBitmap(canvas);
    const OwnedTexture texture(GetTexture(canvas));
    for (const RECT &place : {RECT{1, 1, 9, 9}, RECT{-3, -3, 12, 12}, RECT{0, 0, 9, 9}, RECT{2, 2, 4, 4}}) {
        for (const DWORD kernelMode : {0u, 1u, 4u, 5u}) {
            EXPECT_EQ(1, DrawBitmap(canvas, &place, alias, kernelMode));
            EXPECT_EQ(1, DrawTexture(canvas, &place, texture, kernelMode));
        }
    }
    ReleaseBitmap(alias);
}

}  // namespace
}  // namespace lacquer
