// FillGradualRect: the ramp in both directions, its ends, clip and origins, and the vector state around it.

#include <algorithm>

#include "scene.h"

namespace lacquer {
namespace {

constexpr int kDown = 1, kAcross = 2;

/// The word that a straight colour has over an opaque ground, rounded.
uint32_t Over(uint32_t straight, uint32_t ground) {
    const uint32_t alpha = straight >> 24;
    return WordOf([&](int i) {
        const uint32_t s = i == 3 ? 255 : ChannelOf(straight, i);
        return (s * alpha + ChannelOf(ground, i) * (255 - alpha) + 127) / 255;
    });
}

/// The straight colour at `position` of 0 to 1 along the ramp.
uint32_t Between(uint32_t from, uint32_t to, double position) {
    return WordOf([&](int i) { return ChannelOf(from, i) * (1 - position) + ChannelOf(to, i) * position + 0.5; });
}

TEST(GradientFill, RunsFromTheFirstColourToTheSecond) {
    const RECT rect{2, 3, 46, 37};
    const std::pair<uint32_t, uint32_t> colours[] = {
        {0xFF000000, 0xFFFFFFFF}, {0xFFFF8000, 0xFF0040FF}, {0x00FFFFFF, 0xFFFFFFFF}, {0x80102030, 0x80F0E0D0}};
    for (const auto &[from, to] : colours) {
        for (const int direction : {kDown, kAcross}) {
            const OwnedCanvas canvas = PlainCanvas();
            EXPECT_EQ(1, FillGradualRect(canvas, from, to, &rect, direction));
            const Picture pixels = PixelsOn(canvas);
            EXPECT_TRUE(Same(Cropped(PixelsOn(PlainCanvas()), pixels, rect), pixels)) << "nothing around it";
            for (LONG y = rect.top; y < rect.bottom; ++y) {
                for (LONG x = rect.left; x < rect.right; ++x) {
                    const uint32_t word = pixels.At(x, y);
                    ASSERT_EQ(direction == kDown ? pixels.At(rect.left, y) : pixels.At(x, rect.top), word);
                    // A pixel shows the colour at its middle; what the companion rounds on the way is allowed for.
                    const double position = direction == kDown ? (y + 0.5 - rect.top) / (rect.bottom - rect.top)
                                                               : (x + 0.5 - rect.left) / (rect.right - rect.left);
                    ASSERT_LE(Difference(Over(Between(from, to, position), kGround), word), 3)
                        << std::hex << from << " " << to << std::dec << " at " << position << ": " << std::hex << word;
                }
            }
        }
    }
}

TEST(GradientFill, IsCutNotSqueezedByTheClip) {
    const RECT rect{-10, -6, 50, 44};
    for (const int direction : {kDown, kAcross}) {
        const OwnedCanvas plain = PlainCanvas(40, 36), clipped = PlainCanvas(40, 36);
        EXPECT_EQ(1, FillGradualRect(plain, 0xFFFF0000, 0x400000FF, &rect, direction));
        const RECT clip{5, 7, 31, 22};
        const Picture before = PixelsOn(clipped);
        SetCanvasClipRect(clipped, &clip);
        EXPECT_EQ(1, FillGradualRect(clipped, 0xFFFF0000, 0x400000FF, &rect, direction));
        EXPECT_TRUE(Same(Cropped(before, PixelsOn(plain), clip), PixelsOn(clipped))) << direction;

        const OwnedCanvas moved = PlainCanvas(40, 36);
        SetViewportOrg(moved, 9, 4, nullptr);
        SetWindowOrg(moved, 2, 1, nullptr);
        const RECT logical = Moved(rect, -7, -3);
        EXPECT_EQ(1, FillGradualRect(moved, 0xFFFF0000, 0x400000FF, &logical, direction));
        const Picture expected = PixelsOn(plain), actual = PixelsOn(moved);
        for (size_t i = 0; i < expected.pixels.size(); ++i) {
            ASSERT_LE(Difference(expected.pixels[i], actual.pixels[i]), 1) << direction << " at " << i;
        }
    }
}

TEST(GradientFill, LeavesTheVectorStateAlone) {
    const OwnedCanvas canvas = PlainCanvas(30, 30);
    velGradient *gradient = GradientCreateLinear(0, 0, 30, 0);
    for (const float offset : {0.0f, 1.0f}) EXPECT_EQ(1, GradientAddColorStop(gradient, offset, 0xFF00FF00));
    EXPECT_EQ(1, SetGradient(canvas, gradient));
    EXPECT_EQ(1, GradientDestroy(gradient));
    EXPECT_EQ(1, SetColor(canvas, 0xFF0000FF));
    const RECT rect{0, 0, 30, 10}, outside{30, 0, 40, 10};
    EXPECT_EQ(1, FillGradualRect(canvas, 0xFF000000, 0xFFFFFFFF, &rect, kAcross));
    EXPECT_EQ(1, FillGradualRect(canvas, 0xFF000000, 0xFFFFFFFF, &outside, kAcross));
    EXPECT_EQ(1, DrawRectangle(canvas, 0, 10, 30, 10));
    EXPECT_EQ(1, SetDrawStyle(canvas, VEL_STYLE_GRADIENT_FILL));
    EXPECT_EQ(1, DrawRectangle(canvas, 0, 20, 30, 10));
    EXPECT_EQ(0, Restore(canvas));
    const Picture pixels = PixelsOn(canvas);
    EXPECT_EQ(0xFF0000FF, pixels.At(15, 15));
    EXPECT_EQ(0xFF00FF00, pixels.At(15, 25));
}

TEST(GradientFill, DrawsRectanglesOfAnySize) {
    const OwnedCanvas canvas = PlainCanvas(16, 16);
    for (const LONG size : {1000001, 1 << 24, 1 << 30, INT32_MAX}) {
        const RECT wide{-size, 2, size, 12}, high{2, -size, 12, size};
        for (const int direction : {kDown, kAcross}) {
            const RECT &rect = direction == kDown ? high : wide;
            FillWith(ViewOf(canvas), kGround);
            EXPECT_EQ(1, FillGradualRect(canvas, 0xFF204060, 0xFF80C0FF, &rect, direction));
            const Picture pixels = PixelsOn(canvas);
            EXPECT_LE(Difference(Between(0xFF204060, 0xFF80C0FF, 0.5), pixels.At(7, 7)), 1) << size;
            const RECT seen{std::max<LONG>(rect.left, 0), std::max<LONG>(rect.top, 0), std::min<LONG>(rect.right, 16),
                            std::min<LONG>(rect.bottom, 16)};
            EXPECT_TRUE(Same(WithRectangle(PixelsOn(PlainCanvas(16, 16)), seen, pixels.At(7, 7)), pixels)) << size;
        }
    }
    FillWith(ViewOf(canvas), kGround);
    constexpr LONG kEnds[] = {INT32_MIN, -1000001, -1, 0, 8, 16, 1000001, INT32_MAX};
    for (const LONG left : kEnds) {
        for (const LONG right : kEnds) {
            for (const int direction : {kDown, kAcross}) {
                const RECT wide{left, 2, right, 12}, high{2, left, 12, right};
                EXPECT_EQ(1, FillGradualRect(canvas, 0xFF000000, 0xFFFFFFFF, &wide, direction));
                EXPECT_EQ(1, FillGradualRect(canvas, 0xFF000000, 0xFFFFFFFF, &high, direction));
            }
        }
    }
    for (const auto &[x, y] : {std::pair{0, 0}, {0, 15}, {15, 0}, {15, 15}}) {
        EXPECT_EQ(kGround, PixelsOn(canvas).At(x, y)) << "in none of them";
    }
    const RECT rect{0, 0, 16, 16};
    EXPECT_EQ(1, FillGradualRect(canvas, 0xFF000000, 0xFF000100, &rect, kDown));
    EXPECT_EQ(0xFF000000, PixelsOn(canvas).At(0, 0) & 0xFFFFFEFF);
}

}  // namespace
}  // namespace lacquer
