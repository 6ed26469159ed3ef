// Canvases around a caller's device context.

#include <gtest/gtest.h>

#include <climits>
#include <utility>

#include "objects.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

constexpr LONG kSide = 10;

class DcCanvasTest : public testing::Test {
protected:
    DcCanvasTest() { FillWithNoise(dib_.View(), 2); }

    const Dib dib_{kSide, kSide};
    const MemoryDC dc_{dib_.Handle()};
    const OwnedCanvas canvas_{CreateCanvasFromDC(dc_)};
};

TEST_F(DcCanvasTest, HasNoSurface) {
    EXPECT_EQ((std::array<LONG, 2>{-7, -8}), SizeOf(canvas_)) << "it has none";
    EXPECT_FALSE(GetBitmap(canvas_));
    EXPECT_FALSE(GetTexture(canvas_));
    EXPECT_FALSE(CanvasToBitmap(canvas_));
    EXPECT_FALSE(CanvasToTexture(canvas_));
    EXPECT_TRUE(IsLive(canvas_));
    EXPECT_EQ(0, SetCanvasFilter(canvas_, 5));
    EXPECT_EQ(0u, FilterOf(canvas_));
    EXPECT_EQ(static_cast<HDC>(dc_), GetCanvasHandle(canvas_));
    EXPECT_EQ(nullptr, GetCanvasWindow(canvas_));
}

TEST_F(DcCanvasTest, LocksARectangleInPlace) {
    const RECT rect{1, 2, 5, 6};
    SurfaceView view{};
    ASSERT_EQ(1, LockCanvasBits(canvas_, &view, &rect));
    EXPECT_EQ(4, view.width);
    EXPECT_EQ(static_cast<char *>(dib_.View().bits) + 2 * dib_.View().stride + 4, view.bits);
    EXPECT_EQ(1, UnlockCanvasBits(canvas_));
}

TEST_F(DcCanvasTest, LocksACopyWhereTheClipIsComplexWhichADeletionForgets) {
    SelectClipWithHole(dc_, {0, 0, kSide, kSide}, {4, 4, 6, 6});
    const RECT all{0, 0, kSide, kSide};
    SurfaceView view{}, second{};
    const std::vector<uint32_t> before = PixelsOf(dib_.View());
    const HGCANVAS other = CreateCanvasFromDC(dc_);
    ASSERT_EQ(1, LockCanvasBits(other, &view, &all));
    FillWith(view, 1);
    DeleteCanvas(other);
    EXPECT_EQ(before, PixelsOf(dib_.View()));
    EXPECT_NE(0u, GetObjectType(dc_)) << "the context is the caller's";

    ASSERT_EQ(1, LockCanvasBits(canvas_, &view, &all));
    EXPECT_EQ(0, LockCanvasBits(canvas_, &second, &all));
    FillWith(view, 0x0A0B0C0D);
    EXPECT_EQ(1, UnlockCanvasBits(canvas_));
    EXPECT_EQ(0x0A0B0C0Du, PixelAt(dib_.View(), 3, 3));
    EXPECT_EQ(before[5 * kSide + 5], PixelAt(dib_.View(), 5, 5));
}

TEST_F(DcCanvasTest, TakesTheContextsOriginsOver) {
    SetViewportOrgEx(dc_, 3, 4, nullptr);
    SetWindowOrgEx(dc_, 1, -1, nullptr);
    const OwnedCanvas canvas(CreateCanvasFromDC(dc_));
    POINT origin{};
    GetViewportOrg(canvas, &origin);
    EXPECT_EQ(3, origin.x);
    EXPECT_EQ(4, origin.y);
    GetWindowOrg(canvas, &origin);
    EXPECT_EQ(1, origin.x);
    EXPECT_EQ(-1, origin.y);
    const OwnedBitmap bitmap = NoisyBitmap(2, 2, 5);
    const RECT place{0, 0, 2, 2};
    EXPECT_EQ(1, DrawBitmap(canvas, &place, bitmap, 0));
    EXPECT_EQ(PixelAt(ViewOf(bitmap), 1, 1), PixelAt(dib_.View(), 3, 6));
    // And moves them.
    EXPECT_NE(0, SetViewportOrg(canvas, 0, 0, &origin));
    EXPECT_EQ(3, origin.x);
    GetViewportOrgEx(dc_, &origin);
    EXPECT_EQ(0, origin.x);
}

TEST_F(DcCanvasTest, ClipsThroughTheContext) {
    EXPECT_EQ(Rect(0, 0, kSide, kSide), ClipOf(canvas_));
    const RECT clip{2, 2, 8, 8}, narrower{5, 0, 20, 7};
    EXPECT_EQ(1, SetCanvasClipRect(canvas_, &clip));
    EXPECT_EQ(Rect(clip), ClipOf(canvas_));
    EXPECT_EQ(1, IntersectCanvasClipRect(canvas_, &narrower));
    EXPECT_EQ(Rect(5, 2, 8, 7), ClipOf(canvas_));
    RECT box{};
    EXPECT_EQ(SIMPLEREGION, GetClipBox(dc_, &box));
    EXPECT_EQ(Rect(5, 2, 8, 7), Rect(box));
    const RECT inverted{8, 8, 2, 2};
    EXPECT_EQ(1, SetCanvasClipRect(canvas_, &inverted));
    EXPECT_TRUE(ClipOf(canvas_).IsEmpty());
    EXPECT_EQ(1, SetCanvasClipRect(canvas_, &clip));
    EXPECT_EQ(1, IntersectCanvasClipRect(canvas_, &inverted));
    EXPECT_TRUE(ClipOf(canvas_).IsEmpty());
}

TEST_F(DcCanvasTest, TheClipLastsWhenTheVisiblePartChanges) {
    const Dib smaller(5, 4), larger(30, 25);  // the larger one is (-4, 1, 26, 26) in logical coordinates
    constexpr std::pair<RECT, RECT> kCases[] = {{{2, 3, 22, 23}, {2, 3, 22, 23}},
                                                {{-9, -9, 100, 14}, {-4, 1, 26, 14}},
                                                {{12, 12, 20, 20}, {12, 12, 20, 20}},
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

TEST(RefusingDcTest, ClipsAreAcceptedAllTheSame) {
    const OwnedCanvas system(CreateSystemCanvas(4, 4, {}));
    HDC gone = CreateCompatibleDC(nullptr);
    const OwnedCanvas foreign(CreateCanvasFromDC(gone));
    DeleteDC(gone);
    DeleteDC(GetCanvasHandle(system));
    const RECT rect{1, 1, 3, 3};
    for (const HGCANVAS canvas : {HGCANVAS(system), HGCANVAS(foreign)}) {
        EXPECT_EQ(1, SetCanvasClipRect(canvas, &rect));
        EXPECT_EQ(1, IntersectCanvasClipRect(canvas, &rect));
    }
}

TEST(NullDcCanvasTest, CanBeMadeButNotLocked) {
    const OwnedCanvas canvas(CreateCanvasFromDC(nullptr));
    const RECT rect{0, 0, 1, 1};
    SurfaceView view{};
    EXPECT_EQ(0, LockCanvasBits(canvas, &view, &rect));
    EXPECT_EQ(0, LockCanvasBits(canvas, &view, nullptr));
    EXPECT_EQ(nullptr, GetCanvasHandle(canvas));
    EXPECT_EQ(1, SetCanvasClipRect(canvas, &rect));
    EXPECT_EQ(1, IntersectCanvasClipRect(canvas, &rect));
    EXPECT_TRUE(ClipOf(canvas).IsEmpty());
    const OwnedBitmap bitmap(CreateMemBitmap(1, 1));
    EXPECT_EQ(1, DrawBitmap(canvas, &rect, bitmap, 0));
}

}  // namespace
}  // namespace lacquer
