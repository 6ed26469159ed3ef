// Inside the library: whole-number roots, and draws that allocate nothing.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "core/canvas.h"
#include "draw/geometry/focus_ring.h"
#include "draw/geometry/integer_root.h"
#include "draw/geometry/round_rectangle.h"
#include "draw/geometry/shadows.h"
#include "pipeline/allocation_count.h"
#include "support/pixels.h"

namespace lacquer {
namespace {

TEST(GeometryKernels, RootsAreRoundedDown) {
    const auto check = [](uint64_t square) {
        const uint64_t root = FloorRoot(square);
        ASSERT_LE(root * root, square);
        ASSERT_TRUE(root == UINT32_MAX || (root + 1) * (root + 1) > square) << square;
        ASSERT_NEAR(static_cast<double>(RoughRoot(square)), std::sqrt(static_cast<double>(square)),
                    1 + static_cast<double>(root) / 40000);
    };
    for (uint64_t i = 0; i < 70000; ++i) check(i);
    for (uint32_t i = 0; i < 200000; ++i) {
        const uint64_t any = uint64_t{Noise(1, i)} << 32 | Noise(2, i);
        check(any >> Noise(3, i) % 64);
        const uint64_t root = Noise(4, i) >> Noise(5, i) % 32;
        check(root * root);
        check(root * root - (root > 0));
    }
    check(UINT64_MAX);
}

TEST(GeometryKernels, DrawsAllocateNothing) {
    const std::unique_ptr<Canvas> canvas = MakeCanvas(300, 200, SurfaceKind::Memory);
    const RoundedRect shape{1000, 1100, 70000, 45000, {9000, 300, 2000, 4000}},
        even{999, 999, 50000, 40000, {700, 700, 700, 700}};
    const auto drawAll = [&] {
        for (DWORD mode = 0; mode < 8; ++mode)
            DrawRoundedRect(*canvas, shape, 300, {0x80FF0000, 0xFF00FF00, mode << 24});
        DrawFocusRing(*canvas, even, {0xFF000000, 600, 700, 500});
        for (const ShadowPlace place : {ShadowPlace::Around, ShadowPlace::Inside, ShadowPlace::AroundAndUnder}) {
            for (const int64_t blur : {0, 30, 2000, 1024 * 256}) {
                DrawShadow(*canvas, shape, {0x80000000, 999, -999, blur, 500, place});
            }
        }
    };
    drawAll();
    const long before = AllocationCount();
    drawAll();
    EXPECT_EQ(AllocationCount(), before);
}

}  // namespace
}  // namespace lacquer
