// Copying between surfaces of all depths, and resampling.

#include "core/surface_copy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "pipeline/pixel/grey_ramp.h"
#include "support/pixels.h"

namespace lacquer {
namespace {

constexpr LONG kWidth = 7, kHeight = 5;
constexpr DWORD kDestFilter = 0x11111111, kSourceFilter = 0x22222222;

struct Format {
    int bitsPerPixel;
    uint16_t palette;
    SurfaceKind kind = SurfaceKind::Memory;
};

constexpr Format kFormats[] = {{8, 0},  {8, 16}, {8, 16}, {8, 256},
                               {16, 0}, {24, 0}, {32, 0}, {32, 0, SurfaceKind::System}};

/// A surface full of noise, with what it held.
struct Subject {
    PixelSurface surface;
    std::vector<uint32_t> pixels, colours, palette;

    Subject(const Format &format, uint32_t seed, DWORD filter) {
        EXPECT_TRUE(surface.Create(kWidth, kHeight, format.bitsPerPixel, format.palette, format.kind));
        const SurfaceView view = View();
        FillWithNoise(view, seed);
        if (format.palette > 0) FillPaletteWithNoise(view, seed + 100);
        surface.SetFilter(filter);
        pixels = PixelsOf(view);
        colours = ColoursOf(view);
        palette = Palette();
    }

    SurfaceView View() {
        SurfaceView view{};
        EXPECT_TRUE(surface.LockEx(&view));
        return view;
    }

    std::vector<uint32_t> Palette() {
        const SurfaceView view = View();
        return {view.palette, view.palette + view.paletteCount};
    }
};

/// `put` in the common top-left part of `to` and `from`, `around` elsewhere.
std::vector<uint32_t> Placed(const std::vector<uint32_t> &around, const RECT &to, const std::vector<uint32_t> &put,
                             const RECT &from) {
    std::vector<uint32_t> expected = around;
    const LONG width = std::min(to.right - to.left, from.right - from.left),
               height = std::min(to.bottom - to.top, from.bottom - from.top);
    for (LONG y = 0; y < height; ++y) {
        for (LONG x = 0; x < width; ++x) {
            expected[static_cast<size_t>((to.top + y) * kWidth + to.left + x)] =
                put[static_cast<size_t>((from.top + y) * kWidth + from.left + x)];
        }
    }
    return expected;
}

bool HasKernel(int bitsPerPixel) { return bitsPerPixel == 8 || bitsPerPixel == 24 || bitsPerPixel == 32; }

TEST(SurfaceCopyTest, EveryPairOfDepthsAndPalettes) {
    const RECT whole{0, 0, kWidth, kHeight};
    const std::pair<RECT, RECT> places[] = {
        {whole, whole}, {{2, 1, 6, 4}, {0, 0, 4, 3}}, {{1, 1, 7, 5}, {3, 2, 5, 3}}, {{5, 3, 7, 4}, {1, 0, 6, 5}}};
    for (const Format &destFormat : kFormats) {
        for (const Format &sourceFormat : kFormats) {
            for (const auto &[to, from] : places) {
                SCOPED_TRACE(std::to_string(destFormat.bitsPerPixel) + '/' + std::to_string(destFormat.palette) +
                             " from " + std::to_string(sourceFormat.bitsPerPixel) + '/' +
                             std::to_string(sourceFormat.palette));
                Subject dest(destFormat, 1, kDestFilter), source(sourceFormat, 2, kSourceFilter);
                CopySurface(dest.surface, &to, source.surface, &from);

                const bool alike = destFormat.bitsPerPixel == sourceFormat.bitsPerPixel &&
                                   dest.palette.size() == source.palette.size();
                const bool converts = !alike && destFormat.bitsPerPixel == 32;
                std::vector<uint32_t> expected = dest.pixels;
                if (alike) expected = Placed(dest.pixels, to, source.pixels, from);
                if (converts && HasKernel(sourceFormat.bitsPerPixel)) {
                    expected = Placed(dest.pixels, to, source.colours, from);
                }
                EXPECT_EQ(expected, PixelsOf(dest.View()));
                EXPECT_EQ(alike && destFormat.palette > 0 ? source.palette : dest.palette, dest.Palette());
                EXPECT_EQ(alike || converts ? kSourceFilter : kDestFilter, dest.surface.Filter());
                EXPECT_EQ(source.pixels, PixelsOf(source.View()));
                EXPECT_EQ(source.palette, source.Palette());
                EXPECT_EQ(kSourceFilter, source.surface.Filter());
            }
        }
    }
    for (DWORD i = 0; i < kGreyRampSize; ++i) EXPECT_EQ(0xFF000000 + i * 0x010101, GreyRamp()[i]);
}

TEST(SurfaceCopyTest, WithoutALockNothingHappens) {
    const RECT inside{0, 0, 2, 2}, outside{0, 0, kWidth + 1, 2};
    Subject dest({32, 0}, 1, kDestFilter), source({32, 0}, 2, kSourceFilter);
    CopySurface(dest.surface, &inside, source.surface, &outside);
    CopySurface(dest.surface, &outside, source.surface, &inside);
    EXPECT_EQ(dest.pixels, PixelsOf(dest.View()));
    EXPECT_EQ(kDestFilter, dest.surface.Filter());
}

TEST(SurfaceCopyTest, WithinOneSurfacePartsMayOverlap) {
    for (const Format &format : {Format{8, 16}, Format{24, 0}, Format{32, 0}}) {
        for (LONG dy = -1; dy <= 1; ++dy) {
            for (LONG dx = -1; dx <= 1; ++dx) {
                Subject subject(format, 3, kDestFilter);
                const RECT from{1, 1, kWidth - 1, kHeight - 1},
                    to{from.left + dx, from.top + dy, from.right + dx, from.bottom + dy};
                CopySurface(subject.surface, &to, subject.surface, &from);
                EXPECT_EQ(Placed(subject.pixels, to, subject.pixels, from), PixelsOf(subject.View()))
                    << dx << ' ' << dy;
            }
        }
    }
}

TEST(SurfaceCopyTest, ResizingGives32BitsOfTheWantedKind) {
    for (const Format &format : kFormats) {
        Subject source(format, 4, kSourceFilter);
        for (const SurfaceKind kind : {SurfaceKind::Memory, SurfaceKind::System}) {
            const std::unique_ptr<PixelSurface> same = ResizedSurface(source.surface, kWidth, kHeight, 4, kind);
            const std::unique_ptr<PixelSurface> twice =
                ResizedSurface(source.surface, 2 * kWidth, 2 * kHeight, 0, kind);
            ASSERT_TRUE(same && twice);
            EXPECT_EQ(kind, same->Kind());
            EXPECT_EQ(32, same->BitsPixel());
            EXPECT_EQ(kSourceFilter, same->Filter());
            if (!HasKernel(format.bitsPerPixel)) continue;
            SurfaceView view{};
            ASSERT_TRUE(same->Lock(&view));
            EXPECT_EQ(source.colours, PixelsOf(view));
            ASSERT_TRUE(twice->Lock(&view));
            for (LONG y = 0; y < 2 * kHeight; ++y) {
                for (LONG x = 0; x < 2 * kWidth; ++x) {
                    ASSERT_EQ(source.colours[static_cast<size_t>(y / 2 * kWidth + x / 2)], PixelAt(view, x, y));
                }
            }
        }
        EXPECT_EQ(source.pixels, PixelsOf(source.View()));
    }
}

TEST(SurfaceCopyTest, ResizingRefusesSizesButNotUnreadableSources) {
    PixelSurface indexed;
    ASSERT_TRUE(indexed.Create(4, 4, 4, 0, SurfaceKind::Memory));
    const std::unique_ptr<PixelSurface> resized = ResizedSurface(indexed, 2, 2, 0, SurfaceKind::System);
    ASSERT_TRUE(resized);
    SurfaceView view{};
    ASSERT_TRUE(resized->Lock(&view));
    EXPECT_EQ(std::vector<uint32_t>(4), PixelsOf(view));
    for (const DWORD wrong : {0u, 32768u, 0x10001u, 0xFFFFFFFFu}) {
        EXPECT_FALSE(ResizedSurface(indexed, wrong, 2, 0, SurfaceKind::Memory));
        EXPECT_FALSE(ResizedSurface(indexed, 2, wrong, 0, SurfaceKind::Memory));
    }
}

}  // namespace
}  // namespace lacquer
