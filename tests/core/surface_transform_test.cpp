// Quarter turns, mirrors and transpositions, pixel by pixel.

#include <gtest/gtest.h>

#include <tuple>

#include "core/surface_copy.h"
#include "support/pixels.h"

namespace lacquer {
namespace {

constexpr DWORD kFilter = 0x03000007;

bool Swaps(DWORD code) { return code == 1 || code == 3 || code == 6 || code == 7; }

/// Where the source's pixel (x, y) goes in a destination of the given size.
POINT Moved(DWORD code, LONG x, LONG y, LONG width, LONG height) {
    switch (code) {
        case 1: return {width - 1 - y, x};
        case 2: return {width - 1 - x, height - 1 - y};
        case 3: return {y, height - 1 - x};
        case 4: return {x, height - 1 - y};
        case 5: return {width - 1 - x, y};
        case 6: return {y, x};
        default: return {width - 1 - y, height - 1 - x};
    }
}

// The thinnest sizes, those of one tile with and without whole blocks, results of more than 16 kB, which take tiles of
// 16, 32 or 64 pixels, whose edges they pass by, and a large one.
constexpr SIZE kSizes[] = {{1, 1},   {1, 7},   {7, 1},   {3, 2},   {1, 33},  {65, 1},    {31, 33},  {32, 32},
                           {33, 31}, {65, 34}, {64, 65}, {63, 81}, {97, 95}, {130, 129}, {513, 257}};

class TransformTest : public testing::TestWithParam<std::tuple<DWORD, int>> {};

TEST_P(TransformTest, MovesEveryPixelAsTheCodeSays) {
    const auto [code, bitsPerPixel] = GetParam();
    for (const SIZE &size : kSizes) {
        for (const uint16_t palette : std::initializer_list<uint16_t>{0, 16, 256}) {
            if (palette > 0 && bitsPerPixel != 8) continue;
            PixelSurface source;
            SurfaceView from{}, to{};
            ASSERT_TRUE(source.Create(size.cx, size.cy, bitsPerPixel, palette, SurfaceKind::Memory));
            ASSERT_TRUE(source.LockEx(&from));
            FillWithNoise(from, static_cast<uint32_t>(size.cx * 100 + size.cy));
            if (palette > 0) FillPaletteWithNoise(from, 5);
            source.SetFilter(kFilter);
            const std::vector<uint32_t> before = PixelsOf(from);

            const std::unique_ptr<PixelSurface> made = TransformedSurface(source, code, SurfaceKind::Memory);
            ASSERT_TRUE(made);
            ASSERT_TRUE(made->LockEx(&to));
            EXPECT_EQ(Swaps(code) ? size.cy : size.cx, to.width);
            EXPECT_EQ(Swaps(code) ? size.cx : size.cy, to.height);
            EXPECT_EQ(bitsPerPixel, to.bitsPerPixel);
            EXPECT_EQ(kFilter, made->Filter());
            EXPECT_EQ(palette, made->PaletteCount());
            ASSERT_EQ(from.paletteCount, to.paletteCount);
            for (DWORD i = 0; i < to.paletteCount; ++i) ASSERT_EQ(from.palette[i], to.palette[i]);
            for (LONG y = 0; y < size.cy; ++y) {
                for (LONG x = 0; x < size.cx; ++x) {
                    const POINT place = Moved(code, x, y, to.width, to.height);
                    ASSERT_EQ(PixelAt(from, x, y), PixelAt(to, place.x, place.y))
                        << size.cx << 'x' << size.cy << " at " << x << ' ' << y;
                }
            }
            EXPECT_EQ(before, PixelsOf(from));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(CodesAndDepths, TransformTest,
                         testing::Combine(testing::Range<DWORD>(1, 8), testing::Values(8, 24, 32)));

// Results that go past the caches: rows begin at cache lines, and the last tiles are not whole.
TEST(TransformTest, HugeResultsAreWhole) {
    for (const int bitsPerPixel : {8, 32}) {
        const SIZE size = bitsPerPixel == 8 ? SIZE{2068, 2112} : SIZE{2068, 1040};
        PixelSurface source;
        SurfaceView from{}, to{};
        ASSERT_TRUE(source.Create(size.cx, size.cy, bitsPerPixel, 0, SurfaceKind::Memory));
        ASSERT_TRUE(source.Lock(&from));
        FillWithNoise(from, 3);
        for (const DWORD code : {1u, 3u, 5u, 6u, 7u}) {
            const std::unique_ptr<PixelSurface> made = TransformedSurface(source, code, SurfaceKind::Memory);
            ASSERT_TRUE(made && made->Lock(&to));
            for (LONG y = 0; y < size.cy; ++y) {
                for (LONG x = 0; x < size.cx; ++x) {
                    const POINT place = Moved(code, x, y, to.width, to.height);
                    ASSERT_EQ(PixelAt(from, x, y), PixelAt(to, place.x, place.y)) << code << ' ' << x << ' ' << y;
                }
            }
        }
    }
}

TEST(TransformTest, OtherCodesAreRefused) {
    PixelSurface source;
    ASSERT_TRUE(source.Create(2, 2, 32, 0, SurfaceKind::Memory));
    for (const DWORD code : {0u, 8u, 33u, 0x80000001u, 0xFFFFFFFFu}) {
        EXPECT_FALSE(TransformedSurface(source, code, SurfaceKind::Memory));
    }
    PixelSurface empty;
    EXPECT_FALSE(TransformedSurface(empty, 1, SurfaceKind::Memory));
}

TEST(TransformTest, SystemSurfacesStaySystemSurfaces) {
    PixelSurface source;
    SurfaceView view{};
    ASSERT_TRUE(source.Create(2, 1, 32, 0, SurfaceKind::System));
    ASSERT_TRUE(source.Lock(&view));
    PutPixel(view, 0, 0, 0x11111111);
    PutPixel(view, 1, 0, 0x22222222);
    const std::unique_ptr<PixelSurface> turned = TransformedSurface(source, 1, SurfaceKind::System);
    ASSERT_TRUE(turned && turned->Lock(&view));
    EXPECT_EQ(SurfaceKind::System, turned->Kind());
    EXPECT_EQ((std::vector<uint32_t>{0x11111111, 0x22222222}), PixelsOf(view));
}

TEST(TransformTest, OddDepthsKeepTheirDepth) {
    for (const int bitsPerPixel : {0, 1, 4, 12, 16, 48, 65535}) {
        PixelSurface source;
        ASSERT_TRUE(source.Create(3, 2, bitsPerPixel, 2, SurfaceKind::Memory));
        for (DWORD code = 1; code <= 7; ++code) {
            const std::unique_ptr<PixelSurface> made = TransformedSurface(source, code, SurfaceKind::Memory);
            ASSERT_TRUE(made);
            EXPECT_EQ(bitsPerPixel, made->BitsPixel());
            EXPECT_EQ(source.PaletteCount(), made->PaletteCount());
        }
    }
}

}  // namespace
}  // namespace lacquer
