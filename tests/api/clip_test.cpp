// The clip of a canvas against sums in 64 bits, without a device context, with one of its own, with one that comes
// later, and with another's: all must tell the same.

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "objects.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

constexpr LONG kWidth = 20, kHeight = 16;

/// What a canvas should have as its clip, in device coordinates.
struct Model {
    int64_t dx, dy;
    Rect clip{0, 0, kWidth, kHeight};

    void Set(const RECT &rect) {
        const auto cut = [](int64_t at, LONG end) { return static_cast<LONG>(std::clamp<int64_t>(at, 0, end)); };
        const bool isEmpty = rect.right <= rect.left || rect.bottom <= rect.top;
        clip = {cut(rect.left + dx, kWidth), cut(rect.top + dy, kHeight), isEmpty ? 0 : cut(rect.right + dx, kWidth),
                isEmpty ? 0 : cut(rect.bottom + dy, kHeight)};
    }
    void Intersect(const RECT &rect) {
        const Rect before = clip;
        Set(rect);
        clip = {std::max(clip.left, before.left), std::max(clip.top, before.top), std::min(clip.right, before.right),
                std::min(clip.bottom, before.bottom)};
    }
};

/// The canvas tells the model's clip, and fills exactly that.
void ExpectClip(HGCANVAS canvas, const SurfaceView &view, const Model &model) {
    const Rect told = ClipOf(canvas), &clip = model.clip;
    const auto dx = static_cast<LONG>(model.dx), dy = static_cast<LONG>(model.dy);
    EXPECT_TRUE(told == Rect(clip.left - dx, clip.top - dy, clip.right - dx, clip.bottom - dy) ||
                (clip.IsEmpty() && told.IsEmpty()))
        << testing::PrintToString(told);
    const RECT everywhere{-100, -100, 100, 100};
    FillWith(view, 0);
    EXPECT_EQ(1, FillSolidRect(canvas, 0xFFFFFFFF, &everywhere));
    for (LONG y = 0; y < kHeight; ++y) {
        for (LONG x = 0; x < kWidth; ++x) {
            const bool inside = x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
            ASSERT_EQ(inside ? 0xFFFFFFFF : 0, PixelAt(view, x, y)) << x << ' ' << y;
        }
    }
}

enum class Context { None, Own, Later, Foreign };
using ClipTest = testing::TestWithParam<Context>;
INSTANTIATE_TEST_SUITE_P(Contexts, ClipTest,
                         testing::Values(Context::None, Context::Own, Context::Later, Context::Foreign));

/// Of the viewport and of the window.
constexpr POINT kOrigins[][2] = {{{0, 0}, {0, 0}}, {{5, 5}, {0, 0}}, {{-3, 2}, {4, -6}}, {{1000000, -7}, {999990, -3}}};

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
    const bool isForeign = GetParam() == Context::Foreign;
    for (const auto &[viewport, window] : kOrigins) {
        for (const RECT &first : kRects) {
            for (const RECT &second : kRects) {
                SCOPED_TRACE(testing::PrintToString(Rect(first)) + testing::PrintToString(Rect(second)) +
                             std::to_string(viewport.x));
                const Dib dib(kWidth, kHeight);
                const MemoryDC dc(dib.Handle());
                const OwnedCanvas canvas(isForeign ? CreateCanvasFromDC(dc) : CreateCanvas(kWidth, kHeight, {}));
                EXPECT_TRUE(GetParam() != Context::Own || GetCanvasHandle(canvas));
                SetViewportOrg(canvas, viewport.x, viewport.y, nullptr);
                SetWindowOrg(canvas, window.x, window.y, nullptr);
                Model model{int64_t{viewport.x} - window.x, int64_t{viewport.y} - window.y};
                EXPECT_EQ(1, SetCanvasClipRect(canvas, &first));
                model.Set(first);
                EXPECT_TRUE(GetParam() != Context::Later || GetCanvasHandle(canvas));
                const SurfaceView view = isForeign ? dib.View() : ViewOf(canvas);
                ExpectClip(canvas, view, model);
                EXPECT_EQ(1, IntersectCanvasClipRect(canvas, &second));
                model.Intersect(second);
                ExpectClip(canvas, view, model);
                EXPECT_EQ(1, SetCanvasClipRect(canvas, &second));
                model.Set(second);
                // The clip stays where it is on the device.
                SetViewportOrg(canvas, viewport.x + 2, viewport.y - 1, nullptr);
                model.dx += 2;
                model.dy -= 1;
                ExpectClip(canvas, view, model);
            }
        }
    }
}

}  // namespace
}  // namespace lacquer
