// The clip of a canvas against sums in 64 bits, with and without a device context: both must tell the same.

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "objects.h"

namespace lacquer {
namespace {

constexpr LONG kWidth = 20, kHeight = 16;

struct Wide {
    int64_t left, top, right, bottom;
};

Wide Intersected(const Wide &a, const Wide &b) {
    const Wide both{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                    std::min(a.bottom, b.bottom)};
    return both.right > both.left && both.bottom > both.top ? both : Wide{0, 0, 0, 0};
}

/// What a canvas should have as its clip, in device coordinates.
class Model {
public:
    void SetOrigins(POINT viewport, POINT window) {
        dx_ = int64_t{viewport.x} - window.x;
        dy_ = int64_t{viewport.y} - window.y;
    }
    void Set(const RECT &rect) { clip_ = Intersected(Device(rect), {0, 0, kWidth, kHeight}); }
    void Intersect(const RECT &rect) { clip_ = Intersected(Device(rect), clip_); }
    Wide Logical() const { return {clip_.left - dx_, clip_.top - dy_, clip_.right - dx_, clip_.bottom - dy_}; }
    bool IsEmpty() const { return clip_.right <= clip_.left; }

private:
    Wide Device(const RECT &rect) const {
        if (rect.right <= rect.left || rect.bottom <= rect.top) return {0, 0, 0, 0};
        return {rect.left + dx_, rect.top + dy_, rect.right + dx_, rect.bottom + dy_};
    }

    int64_t dx_ = 0, dy_ = 0;
    Wide clip_{0, 0, kWidth, kHeight};
};

void ExpectClip(const Model &model, HGCANVAS canvas) {
    const Rect clip = ClipOf(canvas);
    if (model.IsEmpty()) {
        EXPECT_TRUE(clip.IsEmpty()) << testing::PrintToString(clip);
        return;
    }
    const Wide expected = model.Logical();
    EXPECT_EQ(Rect(static_cast<LONG>(expected.left), static_cast<LONG>(expected.top), static_cast<LONG>(expected.right),
                   static_cast<LONG>(expected.bottom)),
              clip);
}

struct Origins {
    POINT viewport, window;
};

class ClipTest : public testing::TestWithParam<bool> {
protected:
    OwnedCanvas Create(const Origins &origins) const {
        OwnedCanvas canvas(CreateCanvas(kWidth, kHeight, HGCANVAS{}));
        EXPECT_TRUE(!GetParam() || GetCanvasHandle(canvas));
        SetViewportOrg(canvas, origins.viewport.x, origins.viewport.y, nullptr);
        SetWindowOrg(canvas, origins.window.x, origins.window.y, nullptr);
        return canvas;
    }
};

INSTANTIATE_TEST_SUITE_P(WithoutAndWithDC, ClipTest, testing::Bool());

constexpr Origins kOrigins[] = {{{0, 0}, {0, 0}}, {{5, 5}, {0, 0}}, {{-3, 2}, {4, -6}}, {{1000000, -7}, {999990, -3}}};

constexpr RECT kRects[] = {{0, 0, 10, 10},
                           {-5, -5, 100, 100},
                           {3, 4, 12, 9},
                           {7, 7, 7, 12},
                           {9, 3, 2, 14},
                           {3, 14, 9, 2},
                           {500, 500, 600, 600},
                           {INT_MIN, INT_MIN, INT_MAX, INT_MAX},
                           {0, 0, INT_MAX, INT_MAX},
                           {INT_MIN, INT_MIN, 8, 8},
                           {INT_MAX, INT_MAX, INT_MIN, INT_MIN},
                           {INT_MIN, 2, INT_MIN + 5, 8},
                           {INT_MAX - 5, 2, INT_MAX, 8}};

TEST_P(ClipTest, SetAndIntersectFollowTheModel) {
    for (const Origins &origins : kOrigins) {
        for (const RECT &first : kRects) {
            for (const RECT &second : kRects) {
                SCOPED_TRACE(testing::PrintToString(Rect(first)) + testing::PrintToString(Rect(second)) +
                             std::to_string(origins.viewport.x));
                const OwnedCanvas canvas = Create(origins);
                Model model;
                model.SetOrigins(origins.viewport, origins.window);
                EXPECT_EQ(1, SetCanvasClipRect(canvas, &first));
                model.Set(first);
                ExpectClip(model, canvas);
                EXPECT_EQ(1, IntersectCanvasClipRect(canvas, &second));
                model.Intersect(second);
                ExpectClip(model, canvas);
                EXPECT_EQ(1, SetCanvasClipRect(canvas, &second));
                model.Set(second);
                ExpectClip(model, canvas);
            }
        }
    }
}

TEST_P(ClipTest, StaysOnTheDeviceWhenTheOriginsMove) {
    const OwnedCanvas canvas = Create({{5, 5}, {0, 0}});
    const RECT rect{0, 0, 10, 10};
    SetCanvasClipRect(canvas, &rect);
    EXPECT_EQ(Rect(rect), ClipOf(canvas));
    SetViewportOrg(canvas, 7, 4, nullptr);
    EXPECT_EQ(Rect(-2, 1, 8, 11), ClipOf(canvas));
    SetWindowOrg(canvas, 100, 0, nullptr);
    EXPECT_EQ(Rect(98, 1, 108, 11), ClipOf(canvas));
}

TEST(ClipHandoverTest, ALaterDeviceContextHasTheClip) {
    for (const RECT &rect : kRects) {
        const OwnedCanvas canvas(CreateCanvas(kWidth, kHeight, HGCANVAS{}));
        SetCanvasClipRect(canvas, &rect);
        const Rect before = ClipOf(canvas);
        ASSERT_NE(nullptr, GetCanvasHandle(canvas));
        const Rect after = ClipOf(canvas);
        EXPECT_TRUE(before == after || (before.IsEmpty() && after.IsEmpty())) << testing::PrintToString(Rect(rect));
    }
}

TEST_P(ClipTest, NothingIsDrawnOutsideIt) {
    for (const RECT &rect : kRects) {
        const OwnedCanvas canvas = Create({{2, 1}, {0, 0}});
        SetCanvasClipRect(canvas, &rect);
        Model model;
        model.SetOrigins({2, 1}, {0, 0});
        model.Set(rect);
        const OwnedBitmap bitmap(CreateMemBitmap(3, 3));
        FillWith(ViewOf(bitmap), 0xFFFFFFFF);
        const RECT everywhere{-10, -10, 50, 50};
        EXPECT_EQ(1, DrawBitmap(canvas, &everywhere, bitmap, 0));
        const Wide clip = model.Logical();
        const SurfaceView view = ViewOf(canvas);
        for (LONG y = 0; y < kHeight; ++y) {
            for (LONG x = 0; x < kWidth; ++x) {
                const bool inside = !model.IsEmpty() && x - 2 >= clip.left && x - 2 < clip.right && y - 1 >= clip.top &&
                                    y - 1 < clip.bottom;
                ASSERT_EQ(inside ? 0xFFFFFFFF : 0, PixelAt(view, x, y))
                    << testing::PrintToString(Rect(rect)) << x << ' ' << y;
            }
        }
    }
}

}  // namespace
}  // namespace lacquer
