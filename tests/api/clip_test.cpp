// The clip of a canvas against sums in 64 bits, with a device context of its own, another's and without: all must tell
// the same.

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "objects.h"
#include "support/memory_dc.h"

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
    Model(POINT viewport, POINT window) : dx_(int64_t{viewport.x} - window.x), dy_(int64_t{viewport.y} - window.y) {}

    void Set(const RECT &rect) { clip_ = Intersected(OnDevice(rect), {0, 0, kWidth, kHeight}); }
    void Intersect(const RECT &rect) { clip_ = Intersected(OnDevice(rect), clip_); }
    Wide Logical() const { return {clip_.left - dx_, clip_.top - dy_, clip_.right - dx_, clip_.bottom - dy_}; }
    Wide Device() const { return clip_; }
    bool IsEmpty() const { return clip_.right <= clip_.left; }

private:
    Wide OnDevice(const RECT &rect) const {
        if (rect.right <= rect.left || rect.bottom <= rect.top) return {0, 0, 0, 0};
        return {rect.left + dx_, rect.top + dy_, rect.right + dx_, rect.bottom + dy_};
    }

    int64_t dx_, dy_;
    Wide clip_{0, 0, kWidth, kHeight};
};

struct Origins {
    POINT viewport, window;
};

enum class Context { None, Own, Foreign };

/// A canvas, and its pixels.
class Subject {
public:
    Subject(Context context, const Origins &origins)
        : canvas_(context == Context::Foreign ? CreateCanvasFromDC(dc_) : CreateCanvas(kWidth, kHeight, {})),
          view_(context == Context::Foreign ? dib_.View() : SurfaceView{}) {
        EXPECT_TRUE(context != Context::Own || GetCanvasHandle(canvas_));
        if (!view_.bits) view_ = ViewOf(canvas_);
        SetViewportOrg(canvas_, origins.viewport.x, origins.viewport.y, nullptr);
        SetWindowOrg(canvas_, origins.window.x, origins.window.y, nullptr);
    }

    operator HGCANVAS() const { return canvas_; }

    /// The canvas tells the model's clip, and fills exactly that.
    void ExpectClip(const Model &model) const {
        const Rect clip = ClipOf(canvas_);
        const Wide wide = model.Logical(), device = model.Device();
        const Rect expected(static_cast<LONG>(wide.left), static_cast<LONG>(wide.top), static_cast<LONG>(wide.right),
                            static_cast<LONG>(wide.bottom));
        EXPECT_TRUE(expected == clip || (model.IsEmpty() && clip.IsEmpty())) << testing::PrintToString(clip);
        const RECT everywhere{-100, -100, 100, 100};
        FillWith(view_, 0);
        EXPECT_EQ(1, FillSolidRect(canvas_, 0xFFFFFFFF, &everywhere));
        for (LONG y = 0; y < kHeight; ++y) {
            for (LONG x = 0; x < kWidth; ++x) {
                const bool inside = x >= device.left && x < device.right && y >= device.top && y < device.bottom;
                ASSERT_EQ(inside ? 0xFFFFFFFF : 0, PixelAt(view_, x, y)) << x << ' ' << y;
            }
        }
    }

private:
    const Dib dib_{kWidth, kHeight};
    const MemoryDC dc_{dib_.Handle()};
    const OwnedCanvas canvas_;
    SurfaceView view_;
};

using ClipTest = testing::TestWithParam<Context>;
INSTANTIATE_TEST_SUITE_P(Contexts, ClipTest, testing::Values(Context::None, Context::Own, Context::Foreign));

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
                const Subject canvas(GetParam(), origins);
                Model model(origins.viewport, origins.window);
                EXPECT_EQ(1, SetCanvasClipRect(canvas, &first));
                model.Set(first);
                canvas.ExpectClip(model);
                EXPECT_EQ(1, IntersectCanvasClipRect(canvas, &second));
                model.Intersect(second);
                canvas.ExpectClip(model);
                EXPECT_EQ(1, SetCanvasClipRect(canvas, &second));
                model.Set(second);
                canvas.ExpectClip(model);
            }
        }
    }
}

TEST_P(ClipTest, StaysOnTheDeviceWhenTheOriginsMove) {
    const Subject canvas(GetParam(), {{5, 5}, {0, 0}});
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
        const OwnedCanvas canvas(CreateCanvas(kWidth, kHeight, {}));
        SetCanvasClipRect(canvas, &rect);
        const Rect before = ClipOf(canvas);
        ASSERT_NE(nullptr, GetCanvasHandle(canvas));
        const Rect after = ClipOf(canvas);
        EXPECT_TRUE(before == after || (before.IsEmpty() && after.IsEmpty())) << testing::PrintToString(Rect(rect));
    }
}

}  // namespace
}  // namespace lacquer
