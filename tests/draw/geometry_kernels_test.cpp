// Inside the library: whole-number roots, and the faster forms of painting parts of pixels against the base forms.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "core/canvas.h"
#include "draw/geometry/cover_kernels.h"
#include "draw/geometry/focus_ring.h"
#include "draw/geometry/integer_root.h"
#include "draw/geometry/round_rectangle.h"
#include "draw/geometry/shadow_kernels.h"
#include "draw/geometry/shadows.h"
#include "pipeline/allocation_count.h"
#include "support/pixels.h"

namespace lacquer {
namespace {

constexpr CpuFeatures kNone{}, kSse2{true, true, true, true};

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

/// Every cover with every channel of pixel and colour, at every length of a run's end.
TEST(GeometryKernels, FasterCoversAreTheBaseOnes) {
    const CoverKernels base = BuildCoverKernels(kNone), fast = BuildCoverKernels(kSse2);
    constexpr uint32_t kCount = 261;
    const auto compare = [&](const auto &paint, uint32_t seed) {
        std::vector<uint32_t> slow(kCount), quick(kCount);
        for (uint32_t i = 0; i < kCount; ++i) slow[i] = quick[i] = PremultipliedNoise(seed, i);
        for (const uint32_t count : {kCount, kCount - 1, kCount - 2, kCount - 3, 1u, 0u}) {
            paint(base, reinterpret_cast<BYTE *>(slow.data()), count);
            paint(fast, reinterpret_cast<BYTE *>(quick.data()), count);
            ASSERT_EQ(slow, quick) << seed << " " << count;
        }
    };
    for (uint32_t round = 0; round < 512; ++round) {
        std::vector<BYTE> inner(kCount), outer(kCount);
        std::vector<DWORD> fills(kCount), borders(kCount);
        for (uint32_t i = 0; i < kCount; ++i) {
            inner[i] = static_cast<BYTE>(round < 256 ? round : Noise(round, i));
            outer[i] = static_cast<BYTE>(Noise(round, i + 1000) % (256u - inner[i]));
            fills[i] = PremultipliedNoise(round + 1, i);
            borders[i] = PremultipliedNoise(round + 2, i);
        }
        const DWORD fill = fills[round % 16], border = borders[round % 16];
        compare([&](const CoverKernels &k, BYTE *p, uint32_t n) { k.overOne(p, fill, inner.data(), n); }, round);
        compare([&](const CoverKernels &k, BYTE *p, uint32_t n) { k.overEvenly(p, fill, inner[0], n); }, round);
        compare(
            [&](const CoverKernels &k, BYTE *p, uint32_t n) { k.over(p, fill, border, inner.data(), outer.data(), n); },
            round);
        compare([&](const CoverKernels &k, BYTE *p,
                    uint32_t n) { k.mix(p, fills.data(), borders.data(), inner.data(), outer.data(), n); },
                round);
    }
}

TEST(GeometryKernels, FasterSumsAreTheBaseOnes) {
    const ShadowKernels base = BuildShadowKernels(kNone), fast = BuildShadowKernels(kSse2);
    constexpr int kMost = 7;
    for (uint32_t round = 0; round < 200; ++round) {
        std::vector<int16_t> lines(kMost * kLinePixels), weights(kMost);
        for (size_t i = 0; i < lines.size(); ++i) {
            const uint32_t index = static_cast<uint32_t>(i);
            lines[i] = static_cast<int16_t>(static_cast<int>(Noise(round, index) % 16385) - 8192);
        }
        // A row's weights add up to 2^14 at most.
        for (int16_t &weight : weights) weight = static_cast<int16_t>(Noise(round, 7777) % (16385 / kMost));
        if (round % 3 == 0) weights.assign(kMost, 0), weights[round % kMost] = 16384;
        std::vector<int32_t> slow(kLinePixels, 4096), quick(kLinePixels, 4096);
        const int count = static_cast<int>(round % kMost) + 1;
        const int from = static_cast<int>(Noise(round, 1) % 64),
                  to = from + static_cast<int>(Noise(round, 2)) % (65 - from);
        base.addLines(slow.data(), lines.data(), weights.data(), count, from, std::max(from, to));
        fast.addLines(quick.data(), lines.data(), weights.data(), count, from, std::max(from, to));
        for (int x = from; x < to; ++x) ASSERT_EQ(slow[static_cast<size_t>(x)], quick[static_cast<size_t>(x)]) << round;
    }
    // Shares a little beyond both ends as well.
    std::vector<int32_t> shares;
    for (int32_t share = -5000000; share < kFullShadow + 5000000; share += 1237) shares.push_back(share);
    std::vector<BYTE> slow(shares.size()), quick(shares.size());
    base.cover(shares.data(), static_cast<int>(shares.size()), slow.data());
    fast.cover(shares.data(), static_cast<int>(shares.size()), quick.data());
    EXPECT_EQ(slow, quick);
    EXPECT_EQ(255, CoverOfShare(kFullShadow, 255));
    EXPECT_EQ(0, CoverOfShare(0, 255));
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
