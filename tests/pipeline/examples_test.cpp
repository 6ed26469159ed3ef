// The worked examples of docs/sampling-and-blending.md, number by number.

#include <gtest/gtest.h>

#include "pipeline/table/blit_dispatch.h"
#include "test_image.h"

namespace lacquer {
namespace {

constexpr DWORD kCopy = 0, kOver = 1u << 24;
constexpr DWORD kNearest = 0, kBilinear = 1, kArea = 5;

/// A source, `width` pixels wide, drawn in a size.
TestImage Drawn(const std::vector<uint32_t> &pixels, int width, SIZE size, DWORD modeWord, DWORD kernelMode,
                uint32_t ground = 0) {
    TestImage source(width, static_cast<int>(pixels.size()) / width), dest(size.cx, size.cy);
    source.FillBy([&](int x, int y) { return pixels[static_cast<std::size_t>(y * width + x)]; });
    dest.FillWith(ground);
    const SurfaceView destView = dest.View(), sourceView = source.View();
    EXPECT_EQ(BlitSameRect(&destView, &sourceView, modeWord, kernelMode, 255), 1);
    return dest;
}

TEST(Examples, HaveTheirResults) {
    const TestImage nearest = Drawn({0xFF0000AA, 0xFF0000BB}, 2, {3, 1}, kCopy, kNearest);
    EXPECT_EQ(PixelsOf(nearest.View()), (std::vector<uint32_t>{0xFF0000AA, 0xFF0000AA, 0xFF0000BB}));
    const TestImage bilinear = Drawn({0xFFC80000, 0xFF640000, 0xFF280000, 0xFF000000}, 2, {4, 4}, kCopy, kBilinear);
    EXPECT_EQ(bilinear.At(1, 2), 0xFF000000u | 66 << 16);
    const TestImage area = Drawn({90, 30, 200}, 3, {2, 1}, kCopy, kArea);
    EXPECT_EQ(PixelsOf(area.View()), (std::vector<uint32_t>{70, 143}));
    EXPECT_EQ(Drawn({0x80402010}, 1, {1, 1}, kOver, kNearest, 0xFF6090F0).At(0, 0), 0xFF706888u);
}

}  // namespace
}  // namespace lacquer
