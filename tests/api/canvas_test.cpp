// Surface canvases: state, locks, and their own device context.

#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "objects.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

constexpr uint32_t kColours = 0xFFFFFF;

using Point = Size;

/// What `get` tells of a canvas or of a device context.
template <class Object>
Point OriginOf(int (*get)(Object, POINT *), Object object) {
    POINT origin{};
    EXPECT_EQ(1, get(object, &origin));
    return {origin.x, origin.y};
}

using CanvasTest = BothStorages;
INSTANTIATE_TEST_SUITE_P(MemoryAndSystem, CanvasTest, testing::Bool());

TEST_P(CanvasTest, ANewOneIsTransparentBlackAndUnclippedAndHasItsTemplatesFilterWordOnly) {
    const OwnedCanvas model(Create(3, 3));
    SetCanvasFilter(model, 0x01000042);
    SetCanvasBkColor(model, 7, nullptr);
    SetViewportOrg(model, 1, 1, nullptr);
    for (const bool templated : {false, true}) {
        const OwnedCanvas canvas(Create(7, 5, templated ? HGCANVAS(model) : HGCANVAS{}));
        EXPECT_EQ(std::vector<uint32_t>(35), PixelsIn(canvas));
        EXPECT_EQ(Rect(0, 0, 7, 5), ClipOf(canvas));
        EXPECT_EQ((Point{0, 0}), OriginOf(GetViewportOrg, HGCANVAS(canvas)));
        EXPECT_EQ((Point{0, 0}), OriginOf(GetWindowOrg, HGCANVAS(canvas)));
        EXPECT_EQ(nullptr, GetCanvasWindow(canvas));
        EXPECT_FALSE(GetCanvasParent(canvas));
        EXPECT_EQ(templated ? 0x01000042u : 0, FilterOf(canvas));
        DWORD colour = 1;
        EXPECT_EQ(1, GetCanvasBkColor(canvas, &colour));
        EXPECT_EQ(0u, colour);
        EXPECT_EQ((Point{7, 5}), SizeOf(canvas));
    }
}

TEST_P(CanvasTest, StoresWhatItIsGiven) {
    const OwnedCanvas canvas(Create(2, 2));
    DWORD word = 0;
    EXPECT_EQ(1, SetCanvasFilter(canvas, 0x06ABCDEF));
    EXPECT_EQ(0x06ABCDEFu, FilterOf(canvas));
    const HGBITMAP alias = GetBitmap(canvas);
    EXPECT_EQ(0x06ABCDEFu, FilterOf(alias)) << "the surface has it too";
    ReleaseBitmap(alias);

    EXPECT_EQ(1, SetCanvasBkColor(canvas, 0x11223344, nullptr));
    EXPECT_EQ(1, SetCanvasBkColor(canvas, 5, &word));
    EXPECT_EQ(0x11223344u, word);
    EXPECT_EQ(1, GetCanvasBkColor(canvas, &word));
    EXPECT_EQ(5u, word);

    HWND window = reinterpret_cast<HWND>(&word);
    EXPECT_EQ(nullptr, SetCanvasWindow(canvas, window));
    EXPECT_EQ(window, GetCanvasWindow(canvas));
    EXPECT_EQ(window, SetCanvasWindow(canvas, nullptr));
    EXPECT_EQ(nullptr, GetCanvasWindow(canvas));
}

TEST_P(CanvasTest, OriginsAreExchanged) {
    for (const bool withDC : {false, true}) {
        const OwnedCanvas canvas(Create(8, 8));
        EXPECT_TRUE(!withDC || GetCanvasHandle(canvas));
        POINT previous{-1, -1};
        EXPECT_NE(0, SetViewportOrg(canvas, 3, -4, nullptr));
        EXPECT_NE(0, SetViewportOrg(canvas, 5, 6, &previous));
        EXPECT_EQ((Point{3, -4}), (Point{previous.x, previous.y}));
        EXPECT_NE(0, SetWindowOrg(canvas, -7, 8, nullptr));
        EXPECT_NE(0, SetWindowOrg(canvas, 9, -10, &previous));
        EXPECT_EQ((Point{-7, 8}), (Point{previous.x, previous.y}));
        EXPECT_EQ((Point{5, 6}), OriginOf(GetViewportOrg, HGCANVAS(canvas)));
        EXPECT_EQ((Point{9, -10}), OriginOf(GetWindowOrg, HGCANVAS(canvas)));
        // A device context takes them over, at once or later.
        HDC dc = GetCanvasHandle(canvas);
        EXPECT_EQ((Point{5, 6}), OriginOf(GetViewportOrgEx, dc));
        EXPECT_EQ((Point{9, -10}), OriginOf(GetWindowOrgEx, dc));
    }
}

TEST_P(CanvasTest, LocksLogicalRectangles) {
    const OwnedCanvas canvas(Create(8, 6));
    FillWithNoise(ViewOf(canvas), 3);
    SetViewportOrg(canvas, 10, 20, nullptr);
    SetWindowOrg(canvas, 7, 22, nullptr);  // device = logical + (3, -2)
    const SurfaceView whole = ViewOf(canvas);
    EXPECT_EQ(8, whole.width);
    const RECT inside{-3, 2, 5, 8}, part{0, 3, 2, 5}, outside{-3, 2, 6, 8}, device{0, 0, 8, 6};
    SurfaceView view{};
    ASSERT_EQ(1, LockCanvasBits(canvas, &view, &inside));
    EXPECT_EQ(whole.bits, view.bits);
    ASSERT_EQ(1, LockCanvasBitsEx(canvas, &view, &part));
    EXPECT_EQ(2, view.width);
    EXPECT_EQ(PixelAt(whole, 3, 1), PixelAt(view, 0, 0));
    EXPECT_EQ(PixelAt(whole, 4, 2), PixelAt(view, 1, 1));
    EXPECT_EQ(0u, view.paletteCount);
    EXPECT_EQ(nullptr, view.palette);
    for (const RECT &wrong :
         {outside, device, RECT{0, 3, 0, 5}, RECT{2, 3, 0, 5}, RECT{INT_MIN, INT_MIN, INT_MAX, INT_MAX}}) {
        EXPECT_EQ(0, LockCanvasBits(canvas, &view, &wrong));
        EXPECT_EQ(0, LockCanvasBitsEx(canvas, &view, &wrong));
    }
    EXPECT_EQ(1, UnlockCanvasBits(canvas));
}

TEST_P(CanvasTest, GdiAndTheLibraryDrawOnTheSamePixels) {
    const OwnedCanvas canvas(Create(6, 6));
    FillWithNoise(ViewOf(canvas), 5);
    const std::vector<uint32_t> before = PixelsIn(canvas);
    HDC dc = GetCanvasHandle(canvas);
    ASSERT_NE(nullptr, dc);
    EXPECT_EQ(dc, GetCanvasHandle(canvas));
    EXPECT_EQ(before, PixelsIn(canvas)) << "the move into a DIB section keeps the pixels";

    EXPECT_TRUE(PatBlt(dc, 1, 2, 3, 2, WHITENESS));
    GdiFlush();
    for (LONG i = 0; i < 36; ++i) {
        const bool white = i % 6 >= 1 && i % 6 < 4 && i / 6 >= 2 && i / 6 < 4;
        // What GDI makes of alpha is its own affair.
        const uint32_t looked = white ? kColours : 0xFFFFFFFF;
        EXPECT_EQ(white ? kColours : before[static_cast<size_t>(i)], PixelAt(ViewOf(canvas), i % 6, i / 6) & looked);
    }
    const OwnedBitmap bitmap = NoisyBitmap(2, 2, 9);
    const RECT place{4, 4, 6, 6};
    EXPECT_EQ(1, DrawBitmap(canvas, &place, bitmap, 0));
    const uint32_t drawn = PixelAt(ViewOf(bitmap), 1, 0);
    EXPECT_EQ((drawn & 0xFF) << 16 | (drawn & 0xFF00) | (drawn >> 16 & 0xFF), GetPixel(dc, 5, 4));
}

TEST_P(CanvasTest, ItsDeviceContextHasItsClip) {
    const OwnedCanvas canvas(Create(20, 20));
    SetViewportOrg(canvas, 5, 4, nullptr);
    SetWindowOrg(canvas, 1, 1, nullptr);
    const RECT clip{2, 3, 8, 9};
    SetCanvasClipRect(canvas, &clip);
    HDC dc = GetCanvasHandle(canvas);
    RECT box{};
    EXPECT_EQ(SIMPLEREGION, GetClipBox(dc, &box));
    EXPECT_EQ(Rect(clip), Rect(box));
    EXPECT_EQ(Rect(clip), ClipOf(canvas));
    // Pixels drawn through the context land where the library's own draws would.
    SetPixel(dc, 2, 3, 0x0000FF);
    SetPixel(dc, 1, 3, 0x0000FF);
    EXPECT_EQ(0xFF0000u, PixelAt(ViewOf(canvas), 6, 6) & kColours);
    EXPECT_EQ(0u, PixelAt(ViewOf(canvas), 5, 6));
    // A complex clip counts by its box.
    SelectClipWithHole(dc, {6, 5, 13, 15}, {8, 8, 9, 9});
    EXPECT_EQ(Rect(2, 2, 9, 12), ClipOf(canvas));
}

TEST(RefusedLockTest, ClearsTheRecord) {
    const OwnedBitmap bitmap = NoisyBitmap(4, 4, 1);
    const OwnedTexture texture = NoisyTexture(4, 4, 1);
    const OwnedCanvas canvas = NoisyCanvas(4, 4, 1);
    const Dib dib(4, 4);
    const MemoryDC dc(dib.Handle());
    const OwnedCanvas foreign(CreateCanvasFromDC(dc));
    constexpr size_t kPlain = sizeof(BITMAP), kAll = sizeof(SurfaceView);
    const RECT inside{0, 0, 4, 4}, outside{0, 0, 5, 4}, inverted{3, 0, 1, 4};
    const auto check = [](auto lock, auto handle, const RECT *rect, size_t cleared) {
        SurfaceView record;
        BYTE expected[kAll] = {};
        std::memset(&record, 0xA5, kAll);
        std::memset(expected + cleared, 0xA5, kAll - cleared);
        EXPECT_EQ(0, lock(handle, &record, rect));
        EXPECT_EQ(0, std::memcmp(expected, &record, kAll)) << "not " << cleared << " bytes are cleared";
    };
    for (const RECT *rect : {&outside, &inverted}) {
        check(LockBitmapBits, HGBITMAP(bitmap), rect, kPlain);
        check(LockBitmapBitsEx, HGBITMAP(bitmap), rect, kAll);
        check(LockTextureBits, HGTEXTURE(texture), rect, kPlain);
        check(LockTextureBitsEx, HGTEXTURE(texture), rect, kAll);
        check(LockCanvasBits, HGCANVAS(canvas), rect, kPlain);
        check(LockCanvasBitsEx, HGCANVAS(canvas), rect, kAll);
    }
    for (const RECT *rect : {static_cast<const RECT *>(nullptr), &inverted}) {
        check(LockCanvasBits, HGCANVAS(foreign), rect, kPlain);
    }
    for (const RECT *rect : {static_cast<const RECT *>(nullptr), &inside}) {
        check(LockCanvasBitsEx, HGCANVAS(foreign), rect, kAll);
    }
}

TEST(CanvasParentTest, IsForgottenWhenItEnds) {
    const OwnedCanvas child(CreateCanvas(1, 1, {}));
    const HGCANVAS parent = CreateCanvas(2, 2, {}), other = CreateCanvas(2, 1, {});
    SetCanvasFilter(parent, 0x77);
    EXPECT_EQ(1, SetCanvasParent(child, other));
    EXPECT_EQ(1, SetCanvasParent(child, parent));
    const HGCANVAS alias = GetCanvasParent(child);
    EXPECT_NE(parent, alias);
    EXPECT_EQ(0x77u, FilterOf(alias));
    EXPECT_EQ(1u, ReleaseCanvas(alias));
    EXPECT_EQ(0u, ReleaseCanvas(alias));
    EXPECT_TRUE(IsLive(parent));
    DeleteCanvas(parent);
    EXPECT_FALSE(GetCanvasParent(child));
    const OwnedCanvas next(CreateCanvas(3, 3, {}));
    EXPECT_FALSE(GetCanvasParent(child)) << "another canvas may sit where the parent was";
    EXPECT_EQ(1, SetCanvasParent(child, other));
    const OwnedBitmap bitmap(CanvasToBitmap(other));
    EXPECT_FALSE(GetCanvasParent(child));
}

TEST(CanvasParentTest, MayBeSharedOrItself) {
    const OwnedCanvas first(CreateCanvas(1, 1, {})), second(CreateCanvas(2, 1, {}));
    const HGCANVAS child = CreateCanvas(3, 1, {});
    EXPECT_EQ(1, SetCanvasParent(child, second));
    EXPECT_EQ(1, SetCanvasParent(first, second));
    const HGCANVAS alias = GetCanvasParent(child);
    EXPECT_EQ((Point{2, 1}), SizeOf(alias));
    ReleaseCanvas(alias);
    EXPECT_EQ(1, SetCanvasParent(child, child));
    DeleteCanvas(child);
    EXPECT_TRUE(IsLive(first));
}

}  // namespace
}  // namespace lacquer
