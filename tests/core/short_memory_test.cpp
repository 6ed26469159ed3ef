// Memory that runs short at every possible moment: a failure is a result, and nothing changes or leaks.

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "core/canvas.h"
#include "core/locked_pieces.h"
#include "core/surface_copy.h"
#include "core/texture.h"
#include "support/failing_allocation.h"
#include "support/memory_dc.h"
#include "support/pixels.h"

namespace lacquer {
namespace {

/// Repeats `act` with the first, second, third ... allocation failing until none fails any more; it must give false
/// whenever one did, and true in the end. Result: how many times memory ran short.
template <class Act>
int FailEachAllocation(Act act) {
    for (int count = 0;; ++count) {
        FailAllocationsAfter(count);
        const bool done = act();
        const bool failed = AllocationHasFailed();
        FailAllocationsAfter(-1);
        EXPECT_EQ(!failed, done) << "allocation " << count;
        if (!failed || count > 100) return count;
    }
}

TEST(ShortMemoryTest, NothingIsMadeByHalves) {
    PixelSurface source;
    ASSERT_TRUE(source.Create(5, 4, 24, 0, SurfaceKind::Memory));
    const Dib dib(4, 4);
    const MemoryDC dc(dib.Handle());
    for (const SurfaceKind kind : {SurfaceKind::Memory, SurfaceKind::System}) {
        EXPECT_LE(1, FailEachAllocation([&] { return MakeSurface(5, 5, 8, 16, kind) != nullptr; }));
        EXPECT_LE(1, FailEachAllocation([&] { return MakeCanvas(5, 5, kind) != nullptr; }));
        EXPECT_LE(1, FailEachAllocation([&] { return ResizedSurface(source, 9, 9, 1, kind) != nullptr; }));
    }
    EXPECT_LE(1, FailEachAllocation([&] { return MakeCanvasFromDC(dc) != nullptr; }));
    EXPECT_LE(1, FailEachAllocation([&] { return MakeTexture(5, 5, 8, 16) != nullptr; }));
    EXPECT_LE(1, FailEachAllocation([&] { return MakeSharingTexture(&source, true) != nullptr; }));
    EXPECT_LE(1, FailEachAllocation([&] { return TransformedSurface(source, 1, SurfaceKind::Memory) != nullptr; }));
}

TEST(ShortMemoryTest, AFailedConversionKeepsThePixels) {
    PixelSurface surface;
    SurfaceView view{};
    ASSERT_TRUE(surface.Create(5, 4, 24, 0, SurfaceKind::Memory));
    ASSERT_TRUE(surface.Lock(&view));
    FillWithNoise(view, 1);
    const std::vector<uint32_t> pixels = PixelsOf(view);
    EXPECT_LE(1, FailEachAllocation([&] {
                  if (surface.GetHandle()) return true;
                  EXPECT_EQ(24, surface.GetBitsPixel());
                  EXPECT_TRUE(surface.Lock(&view));
                  EXPECT_EQ(pixels, PixelsOf(view));
                  return false;
              }));
    EXPECT_EQ(32, surface.GetBitsPixel());
}

TEST(ShortMemoryTest, AFailedDeviceContextCanBeHadLater) {
    const std::unique_ptr<Canvas> canvas = MakeCanvas(5, 4, SurfaceKind::Memory);
    ASSERT_TRUE(canvas);
    canvas->SetClip({1, 1, 3, 3});
    EXPECT_LE(1, FailEachAllocation([&] { return canvas->GetDeviceContext() != nullptr; }));
    const RECT box = canvas->ClipBox();
    EXPECT_EQ(1, box.left);
    EXPECT_EQ(3, box.bottom);
}

TEST(ShortMemoryTest, AFailedSliceListKeepsTheOldOne) {
    const std::unique_ptr<Texture> texture = MakeTexture(9, 9, 32, 0);
    const std::vector<RECT> old{{0, 0, 1, 2}, {0, 0, 3, 4}}, replacing(5, RECT{1, 1, 2, 2});
    ASSERT_TRUE(texture->SetSlices(2, old.data()));
    EXPECT_LE(1, FailEachAllocation([&] {
                  if (texture->SetSlices(5, replacing.data())) return true;
                  EXPECT_EQ(2u, texture->SliceCount());
                  EXPECT_EQ(4, texture->CurrentSlice()->bottom);
                  return false;
              }));
    EXPECT_EQ(5u, texture->SliceCount());
}

TEST(ShortMemoryTest, ACopyInLockFailsWithItsDibSectionAndElseReadsNothing) {
    const Dib dib(6, 6);
    FillWithNoise(dib.View(), 1);
    const std::vector<uint32_t> pixels = PixelsOf(dib.View());
    const MemoryDC dc(dib.Handle());
    SelectClipWithHole(dc, {0, 0, 6, 6}, {2, 2, 3, 3});
    DcLock lock;
    SurfaceView view{};
    bool failed = true;
    for (int count = 0; failed; ++count) {
        FailAllocationsAfter(count);
        const bool locked = lock.Lock(dc, {0, 0, 6, 6}, &view);
        failed = AllocationHasFailed();
        FailAllocationsAfter(-1);
        EXPECT_TRUE(locked || count == 0);
        if (!locked) continue;
        EXPECT_EQ(failed ? std::vector<uint32_t>(36) : pixels, PixelsOf(view)) << "allocation " << count;
        lock.Unlock();
        FillWithNoise(dib.View(), 1);
    }
}

TEST(ShortMemoryTest, PiecesAreLockedApartWhenTheirAreaCantBe) {
    const Dib dib(24, 8);
    const MemoryDC dc(dib.Handle());
    SelectClipWithHole(dc, {0, 0, 24, 8}, {2, 2, 3, 3});
    const std::unique_ptr<Canvas> canvas = MakeCanvasFromDC(dc);
    LockedPieces pieces(*canvas, {0, 0, 24, 8});
    FailAllocationsAfter(0);
    const SurfaceView *first = pieces.Lock({0, 0, 8, 8});
    FailAllocationsAfter(-1);
    const SurfaceView *second = pieces.Lock({8, 0, 16, 8});
    ASSERT_NE(nullptr, second);
    // Windows makes device contexts and DIB sections without this program's allocations.
    EXPECT_EQ(first ? 24 * 4 : 8 * 4, second->stride);
}

}  // namespace
}  // namespace lacquer
