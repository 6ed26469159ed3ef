// Pixel surfaces: creation, sharing, foreign pixels, the move into a DIB section.

#include "core/pixel_surface.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "support/pixels.h"

namespace lacquer {
namespace {

SurfaceView Locked(PixelSurface &surface) {
    SurfaceView view{};
    EXPECT_TRUE(surface.LockEx(&view));
    return view;
}

void ExpectEmpty(PixelSurface &surface) {
    SurfaceView view{};
    EXPECT_EQ(0, surface.Width());
    EXPECT_EQ(0, surface.Height());
    EXPECT_EQ(0, surface.BitsPixel());
    EXPECT_EQ(0, surface.PaletteCount());
    EXPECT_EQ(0u, surface.Filter());
    EXPECT_FALSE(surface.Lock(&view));
    EXPECT_FALSE(surface.LockEx(&view));
    EXPECT_EQ(nullptr, surface.GetHandle());
}

TEST(PixelSurfaceTest, RefusesSidesBeyondItsRangeAndIsEmptyThen) {
    for (const SurfaceKind kind : {SurfaceKind::Memory, SurfaceKind::System}) {
        for (const int wrong : {0, -1, 32768, 65537, INT32_MIN, INT32_MAX}) {
            PixelSurface surface;
            ASSERT_TRUE(surface.Create(2, 2, 32, 0, kind));
            surface.SetFilter(7);
            EXPECT_FALSE(surface.Create(wrong, 5, 32, 0, kind));
            ExpectEmpty(surface);
            EXPECT_FALSE(surface.Create(5, wrong, 32, 0, kind));
            ExpectEmpty(surface);
        }
        PixelSurface longest;
        EXPECT_TRUE(longest.Create(32767, 1, 32, 0, kind));
        EXPECT_TRUE(longest.Create(1, 32767, 32, 0, kind));
    }
}

TEST(PixelSurfaceTest, SystemSurfacesHave32Bits) {
    PixelSurface surface;
    ASSERT_TRUE(surface.Create(3, 2, 8, 16, SurfaceKind::System));
    EXPECT_EQ(SurfaceKind::System, surface.Kind());
    EXPECT_EQ(32, surface.BitsPixel());
    EXPECT_EQ(0, surface.PaletteCount());
    EXPECT_NE(nullptr, surface.GetHandle());
}

TEST(PixelSurfaceTest, SharedPixelsOutliveTheirSource) {
    PixelSurface shared;
    {
        PixelSurface source;
        ASSERT_TRUE(source.Create(3, 2, 24, 0, SurfaceKind::Memory));
        source.SetFilter(0x01000005);
        FillWithNoise(Locked(source), 3);
        const std::vector<uint32_t> pixels = PixelsOf(Locked(source));
        ASSERT_TRUE(shared.ShareFrom(&source, true));
        EXPECT_EQ(0x01000005u, shared.Filter());
        EXPECT_EQ(24, shared.BitsPixel());
        EXPECT_EQ(Locked(source).bits, Locked(shared).bits);
        EXPECT_EQ(nullptr, shared.GetHandle()) << "borrowed pixels stay where they are";

        ASSERT_NE(nullptr, source.GetHandle());
        EXPECT_EQ(24, shared.BitsPixel()) << "the source has moved on, the borrower keeps what it had";
        EXPECT_EQ(pixels, PixelsOf(Locked(shared)));
        source.Destroy();
        EXPECT_EQ(pixels, PixelsOf(Locked(shared)));
    }
    PutPixel(Locked(shared), 2, 1, 0xABCDEF);
    shared.Destroy();
    ExpectEmpty(shared);
}

TEST(PixelSurfaceTest, TakenOverPixelsCanBeConverted) {
    auto source = std::make_unique<PixelSurface>();
    ASSERT_TRUE(source->Create(2, 2, 32, 0, SurfaceKind::Memory));
    FillWith(Locked(*source), 0x80402010);
    PixelSurface owner;
    ASSERT_TRUE(owner.ShareFrom(source.get(), false));
    source.reset();
    ASSERT_NE(nullptr, owner.GetHandle());
    EXPECT_EQ(std::vector<uint32_t>(4, 0x80402010), PixelsOf(Locked(owner)));
}

TEST(PixelSurfaceTest, ABorrowedDibSectionHasItsHandle) {
    PixelSurface source, borrower;
    ASSERT_TRUE(source.Create(2, 2, 32, 0, SurfaceKind::System));
    ASSERT_TRUE(borrower.ShareFrom(&source, true));
    EXPECT_EQ(SurfaceKind::System, borrower.Kind());
    EXPECT_EQ(source.GetHandle(), borrower.GetHandle());
}

TEST(PixelSurfaceTest, SharesOnlyStoredPixels) {
    PixelSurface empty, foreign, surface;
    std::array<uint32_t, 4> pixels{};
    SurfaceView description{0, 2, 2, 8, 1, 32, pixels.data(), 0, nullptr};
    foreign.AttachPixels(description);
    for (const PixelSurface *source :
         {static_cast<const PixelSurface *>(nullptr), static_cast<const PixelSurface *>(&empty),
          static_cast<const PixelSurface *>(&foreign)}) {
        ASSERT_TRUE(surface.Create(2, 2, 32, 0, SurfaceKind::Memory));
        EXPECT_FALSE(surface.ShareFrom(source, true));
        ExpectEmpty(surface);
    }
}

TEST(PixelSurfaceTest, ForeignPixelsAreDescribedNotOwned) {
    std::array<DWORD, 12> pixels{};
    for (DWORD i = 0; i < pixels.size(); ++i) pixels[i] = i;
    // Three pixels of each row of four; the depth is always taken as 32 bits.
    SurfaceView description{9, 3, 3, 16, 7, 8, pixels.data(), 5, pixels.data()};
    PixelSurface surface;
    ASSERT_TRUE(surface.Create(9, 9, 8, 4, SurfaceKind::Memory));
    surface.AttachPixels(description);
    EXPECT_EQ(3, surface.Width());
    EXPECT_EQ(32, surface.BitsPixel());
    EXPECT_EQ(0, surface.PaletteCount());
    EXPECT_EQ(0u, surface.Filter());
    EXPECT_EQ(nullptr, surface.GetHandle());
    const SurfaceView whole = Locked(surface);
    EXPECT_EQ(0, whole.type);
    EXPECT_EQ(1, whole.planes);
    EXPECT_EQ(16, whole.stride);
    EXPECT_EQ(0u, whole.paletteCount);
    EXPECT_EQ(nullptr, whole.palette);

    const RECT inner{1, 1, 3, 3}, outside{1, 1, 4, 3};
    SurfaceView view{};
    ASSERT_TRUE(surface.Lock(&view, &inner));
    EXPECT_EQ((std::vector<uint32_t>{5, 6, 9, 10}), PixelsOf(view));
    EXPECT_FALSE(surface.Lock(&view, &outside));
    surface.Unlock();
    surface.Destroy();
    ExpectEmpty(surface);
    EXPECT_EQ(11u, pixels[11]);
}

struct Source {
    int bitsPerPixel;
    uint16_t palette;
};

class GetHandleTest : public testing::TestWithParam<Source> {};

TEST_P(GetHandleTest, KeepsColoursInA32BitDibSection) {
    PixelSurface surface;
    ASSERT_TRUE(surface.Create(7, 5, GetParam().bitsPerPixel, GetParam().palette, SurfaceKind::Memory));
    SurfaceView view = Locked(surface);
    FillWithNoise(view, 11);
    if (GetParam().palette > 0) FillPaletteWithNoise(view, 12);
    surface.SetFilter(0x02000003);
    const std::vector<uint32_t> colours = ColoursOf(view);

    HBITMAP bitmap = surface.GetHandle();
    ASSERT_NE(nullptr, bitmap);
    EXPECT_EQ(bitmap, surface.GetHandle());
    EXPECT_EQ(SurfaceKind::System, surface.Kind());
    EXPECT_EQ(32, surface.BitsPixel());
    EXPECT_EQ(0, surface.PaletteCount());
    EXPECT_EQ(7, surface.Width());
    EXPECT_EQ(5, surface.Height());
    EXPECT_EQ(0x02000003u, surface.Filter());
    view = Locked(surface);
    EXPECT_EQ(28, view.stride);
    EXPECT_EQ(nullptr, view.palette);
    EXPECT_EQ(colours, PixelsOf(view));
    BITMAP description{};
    ASSERT_NE(0, GetObjectW(bitmap, sizeof description, &description));
    EXPECT_EQ(view.bits, description.bmBits);
}

// Of a short palette most indices are beyond the end: they are transparent black.
INSTANTIATE_TEST_SUITE_P(Depths, GetHandleTest,
                         testing::Values(Source{8, 0}, Source{8, 3}, Source{8, 256}, Source{24, 0}, Source{32, 0}));

TEST(PixelSurfaceTest, DepthsWithoutAKernelAreNotConverted) {
    for (const int bitsPerPixel : {0, 1, 4, 9, 16, 48, 65535}) {
        PixelSurface surface;
        ASSERT_TRUE(surface.Create(3, 2, bitsPerPixel, 0, SurfaceKind::Memory));
        EXPECT_EQ(nullptr, surface.GetHandle());
        EXPECT_EQ(SurfaceKind::Memory, surface.Kind());
        EXPECT_EQ(bitsPerPixel, surface.BitsPixel());
    }
}

}  // namespace
}  // namespace lacquer
