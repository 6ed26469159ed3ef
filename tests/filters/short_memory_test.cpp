// Filters when memory is short: blurs need none, and regions that can't be finished are no regions.

#include <gtest/gtest.h>

#include <memory>

#include "core/texture.h"
#include "filters/box_blur.h"
#include "filters/gaussian_blur.h"
#include "filters/texture_region.h"
#include "support/failing_allocation.h"
#include "support/pixels.h"

namespace lacquer {
namespace {

TEST(ShortMemory, BlursAllocateNothing) {
    PixelSurface first, second;
    ASSERT_TRUE(first.Create(300, 20, 32, 0, SurfaceKind::Memory));
    ASSERT_TRUE(second.Create(300, 20, 32, 0, SurfaceKind::Memory));
    SurfaceView source{}, dest{};
    ASSERT_TRUE(first.LockEx(&source) && second.LockEx(&dest));
    FillWithNoise(source, 1);
    FillWith(dest, 0);
    FailAllocationsAfter(0);
    BoxBlur(dest, source);
    GaussianBlur(source, dest);
    EXPECT_FALSE(AllocationHasFailed());
    FailAllocationsAfter(-1);
}

TEST(ShortMemory, RegionsAreWholeOrNull) {
    const std::unique_ptr<Texture> texture = MakeTexture(3, 4500, 32, 0);
    ASSERT_TRUE(texture);
    SurfaceView view{};
    ASSERT_TRUE(texture->Surface().LockEx(&view));
    for (LONG y = 0; y < view.height; ++y) {
        for (LONG x = 0; x < view.width; ++x) PutPixel(view, x, y, (x + y) % 2 == 0 ? 0 : 1);
    }
    texture->Surface().SetFilter(0x01000000);
    HRGN whole = MakeTextureRegion(*texture, nullptr);
    ASSERT_NE(nullptr, whole);
    // GDI's own memory on Windows never fails here; the loop then ends at once.
    for (int count = 0;; ++count) {
        FailAllocationsAfter(count);
        HRGN region = MakeTextureRegion(*texture, nullptr);
        const bool failed = AllocationHasFailed();
        FailAllocationsAfter(-1);
        ASSERT_EQ(failed, region == nullptr) << "allocation " << count;
        if (!failed) {
            EXPECT_TRUE(EqualRgn(whole, region));
            DeleteObject(region);
            break;
        }
    }
    DeleteObject(whole);
}

}  // namespace
}  // namespace lacquer
