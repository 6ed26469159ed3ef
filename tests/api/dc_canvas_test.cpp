// Canvases around a caller's device context: locks in place and by copy, origins, what lasts.

#include <gtest/gtest.h>

#include <climits>
#include <utility>

#include "objects.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

constexpr uint32_t kColours = 0xFFFFFF;
constexpr LONG kSide = 10;
constexpr RECT kAll{0, 0, kSide, kSide};

class DcCanvasTest : public testing::Test {
protected:
    DcCanvasTest() { FillWithNoise(dib_.View(), 2); }

    /// The pixel at device coordinates.
    uint32_t At(LONG x, LONG y) const { return PixelAt(dib_.View(), x, y); }

    int Lock(const RECT &rect) { return LockCanvasBits(canvas_, &view_, &rect); }
    void Unlock() const { EXPECT_EQ(1, UnlockCanvasBits(canvas_)); }

    const Dib dib_{kSide, kSide};
    const MemoryDC dc_{dib_.Handle()};
    const OwnedCanvas canvas_{CreateCanvasFromDC(dc_)};
    SurfaceView view_{};
};

/// A context, and a rectangle of it in device coordinates.
struct Situation {
    WORD depth;
    RECT rect, clip = kAll, hole{};
    POINT viewport{}, window{};

    bool IsVisible(LONG x, LONG y) const {
        const POINT point{x, y};
        const auto holds = [&](const RECT &box) {
            return point.x >= box.left && point.x < box.right && point.y >= box.top && point.y < box.bottom;
        };
        return holds(kAll) && holds(clip) && !holds(hole);
    }
};

TEST(DcLockTest, IsInPlaceInASimpleClipElseACopyThatIsWrittenBackWhereItIsVisible) {
    const std::pair<bool, Situation> situations[] = {
        {true, {32, {2, 3, 6, 8}}},
        {true, {32, {0, 1, 5, 4}, kAll, {}, {5, -4}, {3, -6}}},
        {true, {32, {1, 1, 7, 7}, {1, 1, 7, 7}}},
        {true, {8, {1, 2, 3, 4}}},
        {true, {24, {1, 2, 3, 4}}},
        {false, {32, {1, 1, 7, 7}, {2, 2, 5, 6}}},
        {false, {32, kAll, kAll, {3, 3, 5, 5}}},
        {false, {32, {6, 6, 9, 9}, kAll, {3, 3, 5, 5}}},  // in sight, but the clip is complex
        {false, {32, {-2, -2, 2, 4}, kAll, {}, {-2, 1}}},
        {false, {24, {2, 2, 6, 6}, kAll, {0, 0, 1, 1}, {3, 1}, {-1, 2}}},
    };
    for (const auto &[isInPlace, situation] : situations) {
        const auto &[depth, rect, clip, hole, viewport, window] = situation;
        SCOPED_TRACE(&situation - &situations[0].second);
        const Dib dib(kSide, kSide, depth);
        FillWithNoise(dib.View(), 21);
        const MemoryDC dc(dib.Handle());
        SelectClipWithHole(dc, clip, hole);
        SetViewportOrgEx(dc, viewport.x, viewport.y, nullptr);
        SetWindowOrgEx(dc, window.x, window.y, nullptr);
        const OwnedCanvas canvas(CreateCanvasFromDC(dc));
        const LONG dx = window.x - viewport.x, dy = window.y - viewport.y;
        const RECT logical{rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
        const SurfaceView whole = dib.View();
        const std::vector<uint32_t> before = PixelsOf(whole);
        SurfaceView view{};
        ASSERT_EQ(1, LockCanvasBits(canvas, &view, &logical));
        EXPECT_EQ((Size{rect.right - rect.left, rect.bottom - rect.top}), (Size{view.width, view.height}));
        EXPECT_EQ(isInPlace ? whole.stride : 4 * view.width, view.stride);
        EXPECT_EQ(isInPlace ? depth : 32, view.bitsPerPixel);
        const char *first = static_cast<char *>(whole.bits) + rect.top * whole.stride + rect.left * (depth / 8);
        EXPECT_EQ(isInPlace, view.bits == first);

        const auto written = [](LONG x, LONG y) { return 0x80000000 | static_cast<uint32_t>(y * 16 + x + 64); };
        for (LONG y = rect.top; y < rect.bottom; ++y) {
            for (LONG x = rect.left; x < rect.right; ++x) {
                const uint32_t looked = depth == 24 ? kColours : 0xFFFFFFFF;
                if (situation.IsVisible(x, y)) {
                    EXPECT_EQ(PixelAt(whole, x, y), PixelAt(view, x - rect.left, y - rect.top) & looked);
                }
                PutPixel(view, x - rect.left, y - rect.top, written(x, y));
            }
        }
        EXPECT_EQ(isInPlace, before != PixelsOf(whole)) << "a copy is not written before the unlock";
        EXPECT_EQ(1, UnlockCanvasBits(canvas));
        for (LONG i = 0; i < kSide * kSide; ++i) {
            const LONG x = i % kSide, y = i / kSide;
            const bool isLocked = x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
            EXPECT_EQ(isLocked && situation.IsVisible(x, y) ? written(x, y) & 0xFFFFFFFF >> (32 - depth)
                                                            : before[static_cast<size_t>(i)],
                      PixelAt(whole, x, y))
                << x << ' ' << y;
        }
    }
}

TEST_F(DcCanvasTest, LocksOneCopyAtATimeWithLocksInPlaceInsideIt) {
    const RECT hole{3, 3, 5, 5};
    EXPECT_EQ(1, Lock({0, 0, 2, 2})) << "in place, before the copy";
    EXPECT_EQ(1, Lock(kAll)) << "locks in place are not exclusive";
    SelectClipWithHole(dc_, kAll, hole);
    ASSERT_EQ(1, Lock({0, 0, 4, 4}));
    FillWith(view_, 0x01020304);
    EXPECT_EQ(0, Lock(kAll)) << "a second copy";
    ExtSelectClipRgn(dc_, nullptr, RGN_COPY);
    const uint32_t before = At(0, 0);
    for (int nested = 0; nested < 2; ++nested) {
        ASSERT_EQ(1, Lock({4, 4, 6, 6}));
        EXPECT_EQ(At(5, 4), PixelAt(view_, 1, 0));
    }
    Unlock();
    Unlock();
    EXPECT_EQ(before, At(0, 0)) << "these unlocks end the locks in place";
    Unlock();
    EXPECT_EQ(0x01020304u, At(0, 0));
    EXPECT_EQ(0x01020304u, At(3, 3)) << "the copy has kept its rectangle";
    EXPECT_NE(0x01020304u, At(4, 4));
    FillWith(dib_.View(), 0);
    Unlock();
    EXPECT_EQ(0u, At(0, 0)) << "the copy is written once";
}

TEST_F(DcCanvasTest, TakesTheContextsOriginsOverAndMovesThem) {
    SetViewportOrgEx(dc_, 3, 4, nullptr);
    SetWindowOrgEx(dc_, 1, -1, nullptr);
    const OwnedCanvas canvas(CreateCanvasFromDC(dc_));
    POINT viewport{}, window{};
    const RECT place{0, 0, 2, 2};
    EXPECT_EQ(1, FillSolidRect(canvas, 0xFF123456, &place));
    EXPECT_EQ(0xFF123456, At(2, 5));
    EXPECT_EQ(0xFF123456, At(3, 6));
    EXPECT_NE(0, SetViewportOrg(canvas, 0, 0, &viewport));
    EXPECT_NE(0, SetWindowOrg(canvas, 0, 0, &window));
    EXPECT_EQ((Size{3, 1}), (Size{viewport.x, window.x}));
    GetViewportOrgEx(dc_, &viewport);
    EXPECT_EQ(0, viewport.x);
}

TEST_F(DcCanvasTest, TheClipLastsWhenTheVisiblePartChanges) {
    const Dib smaller(5, 4), larger(30, 25);  // the larger one is (-4, 1, 26, 26) in logical coordinates
    constexpr std::pair<RECT, RECT> kCases[] = {{{2, 3, 22, 23}, {2, 3, 22, 23}},
                                                {{INT_MIN, INT_MIN, INT_MAX, INT_MAX}, {-4, 1, 26, 26}},
                                                {{INT_MAX - 3, 0, INT_MAX, 9}, {}}};
    for (const auto &[rect, shown] : kCases) {
        for (const auto narrow : {SetCanvasClipRect, IntersectCanvasClipRect}) {
            const MemoryDC dc(smaller.Handle());
            SetViewportOrgEx(dc, 4, -1, nullptr);
            const OwnedCanvas canvas(CreateCanvasFromDC(dc));
            EXPECT_EQ(1, narrow(canvas, &rect));
            SelectObject(dc, larger.Handle());
            const Rect clip = ClipOf(canvas);
            EXPECT_TRUE(clip == shown || (clip.IsEmpty() && Rect(shown).IsEmpty())) << testing::PrintToString(clip);
        }
    }
}

TEST(GoneDcTest, OrNullClipsAreAcceptedAndPixelsAreTransparentBlack) {
    const OwnedCanvas system(CreateSystemCanvas(4, 4, {}));
    HDC gone = CreateCompatibleDC(nullptr);
    const OwnedCanvas foreign(CreateCanvasFromDC(gone)), none(CreateCanvasFromDC(nullptr));
    DeleteDC(gone);
    DeleteDC(GetCanvasHandle(system));
    const RECT rect{1, 1, 3, 3};
    SurfaceView view{};
    for (const HGCANVAS canvas : {HGCANVAS(system), HGCANVAS(foreign), HGCANVAS(none)}) {
        ASSERT_EQ(canvas != none, LockCanvasBits(canvas, &view, &rect));
        if (canvas != none) {
            EXPECT_EQ(std::vector<uint32_t>(4), PixelsOf(view)) << "what can't be read";
            EXPECT_EQ(1, UnlockCanvasBits(canvas));
        }
        EXPECT_EQ(1, SetCanvasClipRect(canvas, &rect));
        EXPECT_EQ(1, IntersectCanvasClipRect(canvas, &rect));
    }
}

}  // namespace
}  // namespace lacquer
