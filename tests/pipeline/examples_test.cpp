// The worked examples of docs/sampling-and-blending.md, number by number.

#include <gtest/gtest.h>

#include "pipeline/table/blit_dispatch.h"
#include "test_image.h"

namespace lacquer {
namespace {

constexpr DWORD kCopy = 0, kOver = 1u << 24;
constexpr DWORD kNearest = 0, kBilinear = 1, kArea = 5;

TestImage Drawn(const std::vector<std::vector<uint32_t>> &rows, SIZE size, DWORD modeWord, DWORD kernelMode,
                uint32_t ground = 0) {
    TestImage source(static_cast<int>(rows[0].size()), static_cast<int>(rows.size())), dest(size.cx, size.cy);
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x) {
            source.Set(x, y, rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
        }
    }
    dest.FillWith(ground);
    const SurfaceView destView = dest.View(), sourceView = source.View();
    EXPECT_EQ(BlitSameRect(&destView, &sourceView, modeWord, kernelMode, 255), 1);
    return dest;
}

TEST(Examples, Nearest) {
    const TestImage dest = Drawn({{0xFF0000AA, 0xFF0000BB}}, {3, 1}, kCopy, kNearest);
    EXPECT_EQ(dest.At(0, 0), 0xFF0000AAu);
    EXPECT_EQ(dest.At(1, 0), 0xFF0000AAu);
    EXPECT_EQ(dest.At(2, 0), 0xFF0000BBu);
}

TEST(Examples, Bilinear) {
    const TestImage dest =
        Drawn({{0xFF000000 | 200 << 16, 0xFF000000 | 100 << 16}, {0xFF000000 | 40 << 16, 0xFF000000}}, {4, 4}, kCopy,
              kBilinear);
    EXPECT_EQ(dest.At(1, 2), 0xFF000000u | 66 << 16);
}

TEST(Examples, Area) {
    const TestImage dest = Drawn({{90, 30, 200}}, {2, 1}, kCopy, kArea);
    EXPECT_EQ(dest.At(0, 0), 70u);
    EXPECT_EQ(dest.At(1, 0), 143u);
}

TEST(Examples, Over) { EXPECT_EQ(Drawn({{0x80402010}}, {1, 1}, kOver, kNearest, 0xFF6090F0).At(0, 0), 0xFF706888u); }

}  // namespace
}  // namespace lacquer
