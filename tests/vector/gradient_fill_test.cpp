// FillGradualRect: the ramp in both directions, its ends, its clip and origins, and rectangles of any size.

#include <algorithm>

#include "scene.h"

namespace lacquer {
namespace {

constexpr int kDown = 1, kAcross = 2;

/// Where the middle of a pixel lies between two edges, 0 to 1.
double PlaceOf(LONG pixel, int64_t low, int64_t high) {
    return (static_cast<double>(pixel - low) + 0.5) / static_cast<double>(high - low);
}

/// Every pixel of the rectangle inside `clip` shows the colour at its middle over the plain ground, but for what the
/// companion rounds on the way; nothing else is drawn.
void ExpectRamp(const Picture &pixels, const RECT &rect, const RECT &clip, uint32_t from, uint32_t to, int direction) {
    ForEachPixel(pixels, [&](LONG x, LONG y) {
        const bool isDrawn = Contains(rect, x, y) && Contains(clip, x, y);
        const double place = !isDrawn             ? 0
                             : direction == kDown ? PlaceOf(y, rect.top, rect.bottom)
                                                  : PlaceOf(x, rect.left, rect.right);
        const auto channel = [&](int i) { return ChannelOf(from, i) * (1 - place) + ChannelOf(to, i) * place; };
        for (int i = 0; i < 4; ++i) {
            const double ground = ChannelOf(kGround, i), alpha = isDrawn ? channel(3) / 255 : 0;
            const double expected = (i == 3 ? 255 : channel(i)) * alpha + ground * (1 - alpha);
            EXPECT_NEAR(expected, ChannelOf(pixels.At(x, y), i), isDrawn ? 3 : 0) << x << ' ' << y << ", channel " << i;
        }
    });
}

TEST(GradientFill, RunsFromTheFirstColourToTheSecond) {
    constexpr RECT kWhole{0, 0, kSceneWidth, kSceneHeight};
    const struct {
        uint32_t from, to;
        RECT rect, clip;
        LONG dx, dy;
    } kFills[] = {{0xFF000000, 0xFFFFFFFF, {2, 3, 46, 37}, kWhole, 0, 0},
                  {0x00FFFFFF, 0xFFFFFFFF, {2, 3, 46, 37}, kWhole, 7, 3},
                  {0x80102030, 0x80F0E0D0, {2, 3, 46, 37}, kWhole, -5, 9},
                  // Cut by the clip and the canvas, not squeezed.
                  {kRed, 0x400000FF, {-10, -6, 70, 64}, {5, 7, 31, 22}, 4, -2}};
    for (const auto &fill : kFills) {
        for (const int direction : {kDown, kAcross}) {
            const auto create = direction == kDown ? CreateCanvas : CreateSystemCanvas;
            const OwnedCanvas canvas(create(kSceneWidth, kSceneHeight, {}));
            FillWith(ViewOf(canvas), kGround);
            SetViewportOrg(canvas, fill.dx + 2, 1, nullptr);
            SetWindowOrg(canvas, 2, 1 - fill.dy, nullptr);
            const RECT clip = Moved(fill.clip, -fill.dx, -fill.dy), rect = Moved(fill.rect, -fill.dx, -fill.dy);
            SetCanvasClipRect(canvas, &clip);
            EXPECT_EQ(1, FillGradualRect(canvas, fill.from, fill.to, &rect, direction));
            ExpectRamp(PixelsOn(canvas), fill.rect, fill.clip, fill.from, fill.to, direction);
            if (testing::Test::HasFailure()) return;
        }
    }
}

TEST(GradientFill, DrawsRectanglesOfAnySize) {
    const OwnedCanvas canvas = PlainCanvas(16, 16);
    constexpr LONG kLow[] = {-INT32_MAX, -(1 << 30), -(1 << 24), -1000001, 0, 8, -1, 16, 9, 8, INT32_MAX, INT32_MIN};
    constexpr LONG kHigh[] = {INT32_MAX, 1 << 30, 1 << 24, 8, 1000001, 1000001, 9, 1 << 30, 8, 8, INT32_MIN, -1};
    for (size_t i = 0; i < std::size(kLow); ++i) {
        const LONG low = kLow[i], high = kHigh[i];
        for (const int direction : {kDown, kAcross}) {
            const RECT rect = direction == kDown ? RECT{2, low, 12, high} : RECT{low, 2, high, 12};
            FillWith(ViewOf(canvas), kGround);
            EXPECT_EQ(1, FillGradualRect(canvas, 0xFF204060, 0xFF80C0FF, &rect, direction));
            ExpectRamp(PixelsOn(canvas), rect, {0, 0, 16, 16}, 0xFF204060, 0xFF80C0FF, direction);
            ASSERT_FALSE(HasFailure()) << low << " to " << high;
        }
    }
}

}  // namespace
}  // namespace lacquer
