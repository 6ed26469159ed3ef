// FillGradualRect: the ramp in both directions, its ends, clip and origins, and the vector state around it.

#include <algorithm>

#include "scene.h"

namespace lacquer {
namespace {

constexpr int kDown = 1, kAcross = 2;
constexpr uint32_t kGround = 0xFF204060;

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
    constexpr LONG kLength = 64, kAcrossLength = 9;
    const std::pair<uint32_t, uint32_t> colours[] = {
        {0xFF000000, 0xFFFFFFFF}, {0xFFFF8000, 0xFF0040FF}, {0x00FFFFFF, 0xFFFFFFFF}, {0x80102030, 0x80F0E0D0}};
    for (const auto &[from, to] : colours) {
        for (const int direction : {kDown, kAcross}) {
            const bool down = direction == kDown;
            const LONG width = down ? kAcrossLength : kLength, height = down ? kLength : kAcrossLength;
            const OwnedCanvas canvas = PlainCanvas(width + 6, height + 8, kGround);
            const Picture before = PictureOf(Locked(canvas));
            const RECT rect{2, 3, 2 + width, 3 + height};
            EXPECT_EQ(1, FillGradualRect(canvas, from, to, &rect, direction));
            const Picture pixels = PictureOf(Locked(canvas));
            EXPECT_TRUE(Same(Cropped(before, pixels, rect), pixels)) << "nothing around it";
            for (LONG i = 0; i < kLength; ++i) {
                const uint32_t word = down ? pixels.At(2, 3 + i) : pixels.At(2 + i, 3);
                for (LONG j = 1; j < kAcrossLength; ++j) {
                    ASSERT_EQ(word, down ? pixels.At(2 + j, 3 + i) : pixels.At(2 + i, 3 + j)) << "the same across";
                }
                // A pixel shows the colour at its middle; what the companion rounds on the way is allowed for.
                const uint32_t middle = Between(from, to, (static_cast<double>(i) + 0.5) / kLength);
                ASSERT_LE(Difference(Over(middle, kGround), word), 3)
                    << std::hex << from << " " << to << std::dec << " at " << i << ": " << std::hex << word;
            }
        }
    }
}

TEST(GradientFill, NeverTurnsBack) {
    for (const int direction : {kDown, kAcross}) {
        const OwnedCanvas canvas = PlainCanvas(300, 300, 0);
        const RECT rect{0, 0, 300, 300};
        EXPECT_EQ(1, FillGradualRect(canvas, 0xFF000000, 0xFFFFFFFF, &rect, direction));
        const Picture pixels = PictureOf(Locked(canvas));
        for (LONG i = 1; i < 300; ++i) {
            const uint32_t last = direction == kDown ? pixels.At(7, i - 1) : pixels.At(i - 1, 7);
            const uint32_t next = direction == kDown ? pixels.At(7, i) : pixels.At(i, 7);
            ASSERT_GE(next, last) << i;
        }
        EXPECT_LE(pixels.At(0, 0) & 0xFF, 1u);
        EXPECT_GE(pixels.At(299, 299) & 0xFF, 254u);
    }
}

TEST(GradientFill, IsCutNotSqueezedByTheClip) {
    const RECT rect{-10, -6, 50, 44};
    for (const int direction : {kDown, kAcross}) {
        const OwnedCanvas plain = PlainCanvas(40, 36, kGround), clipped = PlainCanvas(40, 36, kGround);
        EXPECT_EQ(1, FillGradualRect(plain, 0xFFFF0000, 0x400000FF, &rect, direction));
        const RECT clip{5, 7, 31, 22};
        const Picture before = PictureOf(Locked(clipped));
        SetCanvasClipRect(clipped, &clip);
        EXPECT_EQ(1, FillGradualRect(clipped, 0xFFFF0000, 0x400000FF, &rect, direction));
        EXPECT_TRUE(Same(Cropped(before, PictureOf(Locked(plain)), clip), PictureOf(Locked(clipped)))) << direction;

        const OwnedCanvas moved = PlainCanvas(40, 36, kGround);
        SetViewportOrg(moved, 9, 4, nullptr);
        SetWindowOrg(moved, 2, 1, nullptr);
        const RECT logical = Moved(rect, -7, -3);
        EXPECT_EQ(1, FillGradualRect(moved, 0xFFFF0000, 0x400000FF, &logical, direction));
        EXPECT_TRUE(Near(PictureOf(Locked(plain)), PictureOf(Locked(moved)), 1)) << direction;
    }
}

TEST(GradientFill, LeavesTheVectorStateAlone) {
    const OwnedCanvas canvas = PlainCanvas(30, 30, kGround);
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
    const Picture pixels = PictureOf(Locked(canvas));
    EXPECT_EQ(0xFF0000FF, pixels.At(15, 15));
    EXPECT_EQ(0xFF00FF00, pixels.At(15, 25));
}

TEST(GradientFill, SurvivesRectanglesOfAnySize) {
    const OwnedCanvas canvas = PlainCanvas(16, 16, kGround);
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
        EXPECT_EQ(kGround, PictureOf(Locked(canvas)).At(x, y)) << "in none of them";
    }
    const RECT rect{0, 0, 16, 16};
    EXPECT_EQ(1, FillGradualRect(canvas, 0xFF000000, 0xFF000100, &rect, kDown));
    EXPECT_EQ(0xFF000000, PictureOf(Locked(canvas)).At(0, 0) & 0xFFFFFEFF);
}

}  // namespace
}  // namespace lacquer
