// Surface canvases: state, locks, and their own device context.

#include <gtest/gtest.h>

#include <array>
#include <climits>

#include "objects.h"

namespace lacquer {
namespace {

constexpr uint32_t kColours = 0xFFFFFF;

using Point = std::array<LONG, 2>;

Point ViewportOf(HGCANVAS canvas) {
    POINT origin{};
    EXPECT_EQ(1, GetViewportOrg(canvas, &origin));
    return {origin.x, origin.y};
}
Point WindowOriginOf(HGCANVAS canvas) {
    POINT origin{};
    EXPECT_EQ(1, GetWindowOrg(canvas, &origin));
    return {origin.x, origin.y};
}

/// Both kinds of storage, with and without a device context at the start.
class CanvasTest : public testing::TestWithParam<bool> {
protected:
    HGCANVAS Create(DWORD width, DWORD height, HGCANVAS model = {}) const {
        return GetParam() ? CreateSystemCanvas(width, height, model) : CreateCanvas(width, height, model);
    }
};

INSTANTIATE_TEST_SUITE_P(MemoryAndSystem, CanvasTest, testing::Bool());

TEST_P(CanvasTest, ANewOneIsTransparentBlackAndUnclipped) {
    const OwnedCanvas canvas(Create(7, 5));
    EXPECT_EQ(std::vector<uint32_t>(35), PixelsIn(canvas));
    EXPECT_EQ(Rect(0, 0, 7, 5), ClipOf(canvas));
    EXPECT_EQ((Point{0, 0}), ViewportOf(canvas));
    EXPECT_EQ((Point{0, 0}), WindowOriginOf(canvas));
    EXPECT_EQ(nullptr, GetCanvasWindow(canvas));
    EXPECT_FALSE(GetCanvasParent(canvas));
    DWORD word = 1;
    EXPECT_EQ(1, GetCanvasFilter(canvas, &word));
    EXPECT_EQ(0u, word);
    EXPECT_EQ(1, GetCanvasBkColor(canvas, &word));
    EXPECT_EQ(0u, word);
    SIZE size{};
    EXPECT_EQ(1, GetCanvasSize(canvas, &size));
    EXPECT_EQ(7, size.cx);
    EXPECT_EQ(5, size.cy);
}

TEST_P(CanvasTest, StoresWhatItIsGiven) {
    const OwnedCanvas canvas(Create(2, 2));
    DWORD word = 0;
    EXPECT_EQ(1, SetCanvasFilter(canvas, 0x06ABCDEF));
    EXPECT_EQ(1, GetCanvasFilter(canvas, &word));
    EXPECT_EQ(0x06ABCDEFu, word);
    const HGBITMAP alias = GetBitmap(canvas);
    EXPECT_EQ(1, GetBitmapFilter(alias, &word));
    EXPECT_EQ(0x06ABCDEFu, word) << "the surface has it too";
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

TEST_P(CanvasTest, ATemplateLendsItsFilterWordOnly) {
    const OwnedCanvas model(Create(3, 3));
    SetCanvasFilter(model, 0x01000042);
    SetCanvasBkColor(model, 7, nullptr);
    SetViewportOrg(model, 1, 1, nullptr);
    const OwnedCanvas canvas(Create(2, 2, model));
    DWORD word = 0;
    GetCanvasFilter(canvas, &word);
    EXPECT_EQ(0x01000042u, word);
    GetCanvasBkColor(canvas, &word);
    EXPECT_EQ(0u, word);
    EXPECT_EQ((Point{0, 0}), ViewportOf(canvas));
}

TEST_P(CanvasTest, OriginsAreExchanged) {
    for (const bool withDC : {false, true}) {
        const OwnedCanvas canvas(Create(8, 8));
        if (withDC) {
            ASSERT_NE(nullptr, GetCanvasHandle(canvas));
        }
        POINT previous{-1, -1};
        EXPECT_EQ(1, SetViewportOrg(canvas, 3, -4, nullptr) != 0);
        EXPECT_EQ(1, SetViewportOrg(canvas, 5, 6, &previous) != 0);
        EXPECT_EQ((Point{3, -4}), (Point{previous.x, previous.y}));
        EXPECT_EQ((Point{5, 6}), ViewportOf(canvas));
        EXPECT_EQ(1, SetWindowOrg(canvas, -7, 8, nullptr) != 0);
        EXPECT_EQ(1, SetWindowOrg(canvas, 9, -10, &previous) != 0);
        EXPECT_EQ((Point{-7, 8}), (Point{previous.x, previous.y}));
        EXPECT_EQ((Point{9, -10}), WindowOriginOf(canvas));
        if (!withDC) continue;
        POINT viewport{}, window{};
        EXPECT_TRUE(GetViewportOrgEx(GetCanvasHandle(canvas), &viewport));
        EXPECT_TRUE(GetWindowOrgEx(GetCanvasHandle(canvas), &window));
        EXPECT_EQ((Point{5, 6}), (Point{viewport.x, viewport.y}));
        EXPECT_EQ((Point{9, -10}), (Point{window.x, window.y}));
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

TEST_P(CanvasTest, ExtremeOriginsReachNoForeignPixels) {
    const OwnedCanvas canvas(Create(4, 4));
    for (const int viewport : {INT_MIN, -1, 0, INT_MAX}) {
        for (const int window : {INT_MIN, 0, 1, INT_MAX}) {
            SetViewportOrg(canvas, viewport, viewport, nullptr);
            SetWindowOrg(canvas, window, window, nullptr);
            for (const LONG from : {INT_MIN, -1, 0, 1, INT_MAX - 4}) {
                const RECT rect{from, from, from + 4, from + 4};
                SurfaceView view{};
                const bool fits = int64_t{from} + viewport - window == 0;
                EXPECT_EQ(fits, LockCanvasBits(canvas, &view, &rect)) << viewport << ' ' << window << ' ' << from;
                if (fits) FillWith(view, 1);
            }
        }
    }
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
    const SurfaceView view = ViewOf(canvas);
    for (LONG y = 0; y < 6; ++y) {
        for (LONG x = 0; x < 6; ++x) {
            const bool white = x >= 1 && x < 4 && y >= 2 && y < 4;
            if (white) {
                EXPECT_EQ(kColours, PixelAt(view, x, y) & kColours);
            } else {
                EXPECT_EQ(before[static_cast<size_t>(y * 6 + x)], PixelAt(view, x, y));
            }
        }
    }
    const OwnedBitmap bitmap = NoisyBitmap(2, 2, 9);
    const RECT place{4, 4, 6, 6};
    EXPECT_EQ(1, DrawBitmap(canvas, &place, bitmap, 0));
    const uint32_t drawn = PixelAt(ViewOf(bitmap), 1, 0);
    EXPECT_EQ((drawn & 0xFF) << 16 | (drawn & 0xFF00) | (drawn >> 16 & 0xFF), GetPixel(dc, 5, 4));
}

TEST_P(CanvasTest, ItsDeviceContextHasItsOriginsAndClip) {
    const OwnedCanvas canvas(Create(20, 20));
    SetViewportOrg(canvas, 5, 4, nullptr);
    SetWindowOrg(canvas, 1, 1, nullptr);
    const RECT clip{2, 3, 8, 9};
    SetCanvasClipRect(canvas, &clip);
    HDC dc = GetCanvasHandle(canvas);
    POINT origin{};
    RECT box{};
    GetViewportOrgEx(dc, &origin);
    EXPECT_EQ((Point{5, 4}), (Point{origin.x, origin.y}));
    GetWindowOrgEx(dc, &origin);
    EXPECT_EQ((Point{1, 1}), (Point{origin.x, origin.y}));
    EXPECT_EQ(SIMPLEREGION, GetClipBox(dc, &box));
    EXPECT_EQ(Rect(clip), Rect(box));
    EXPECT_EQ(Rect(clip), ClipOf(canvas));
    // Pixels drawn through the context land where the library's own draws would.
    SetPixel(dc, 2, 3, 0x0000FF);
    SetPixel(dc, 1, 3, 0x0000FF);
    EXPECT_EQ(0xFF0000u, PixelAt(ViewOf(canvas), 6, 6) & kColours);
    EXPECT_EQ(0u, PixelAt(ViewOf(canvas), 5, 6));
}

TEST_P(CanvasTest, AComplexClipOfItsContextCountsByItsBox) {
    const OwnedCanvas canvas(Create(10, 10));
    HDC dc = GetCanvasHandle(canvas);
    HRGN region = CreateRectRgn(1, 1, 3, 3), other = CreateRectRgn(5, 6, 8, 9);
    CombineRgn(region, region, other, RGN_OR);
    SelectClipRgn(dc, region);
    DeleteObject(region);
    DeleteObject(other);
    EXPECT_EQ(Rect(1, 1, 8, 9), ClipOf(canvas));
    EXPECT_EQ(1, UnlockCanvasBits(canvas));
}

TEST(CanvasParentTest, IsForgottenWhenItDies) {
    const OwnedCanvas child(CreateCanvas(1, 1, HGCANVAS{}));
    const HGCANVAS parent = CreateCanvas(2, 2, HGCANVAS{});
    SetCanvasFilter(parent, 0x77);
    EXPECT_EQ(1, SetCanvasParent(child, parent));
    const HGCANVAS alias = GetCanvasParent(child);
    ASSERT_TRUE(alias);
    EXPECT_NE(parent, alias);
    DWORD filter = 0;
    EXPECT_EQ(1, GetCanvasFilter(alias, &filter));
    EXPECT_EQ(0x77u, filter);
    EXPECT_EQ(1u, ReleaseCanvas(alias));
    EXPECT_EQ(0u, ReleaseCanvas(alias));
    EXPECT_TRUE(IsLive(parent));
    DeleteCanvas(parent);
    EXPECT_FALSE(GetCanvasParent(child));
    const OwnedCanvas next(CreateCanvas(3, 3, HGCANVAS{}));
    EXPECT_FALSE(GetCanvasParent(child)) << "another canvas may sit where the parent was";
}

TEST(CanvasParentTest, MayBeReplacedSharedOrItself) {
    const OwnedCanvas first(CreateCanvas(1, 1, HGCANVAS{})), second(CreateCanvas(2, 1, HGCANVAS{}));
    HGCANVAS child = CreateCanvas(3, 1, HGCANVAS{});
    EXPECT_EQ(1, SetCanvasParent(child, first));
    EXPECT_EQ(1, SetCanvasParent(child, second));
    EXPECT_EQ(1, SetCanvasParent(first, second));
    const HGCANVAS alias = GetCanvasParent(child);
    SIZE size{};
    GetCanvasSize(alias, &size);
    EXPECT_EQ(2, size.cx);
    ReleaseCanvas(alias);
    EXPECT_EQ(1, SetCanvasParent(child, child));
    DeleteCanvas(child);
    EXPECT_TRUE(IsLive(first));
}

TEST(CanvasParentTest, IsForgottenWhenItBecomesABitmap) {
    const OwnedCanvas child(CreateCanvas(1, 1, HGCANVAS{}));
    const HGCANVAS parent = CreateCanvas(2, 2, HGCANVAS{});
    SetCanvasParent(child, parent);
    const OwnedBitmap bitmap(CanvasToBitmap(parent));
    EXPECT_FALSE(GetCanvasParent(child));
}

TEST(CanvasReleaseTest, AnswersForeignHandlesWithTheirType) {
    const OwnedBitmap bitmap(CreateMemBitmap(1, 1));
    const OwnedTexture texture(CreateTexture(1, 1));
    EXPECT_EQ(0x20000u, ReleaseCanvas(HGCANVAS{HGBITMAP(bitmap).value}));
    EXPECT_EQ(0x30000u, ReleaseCanvas(HGCANVAS{HGTEXTURE(texture).value}));
    EXPECT_EQ(0xFF0000u, ReleaseCanvas(HGCANVAS{0xFFFFFFFF}));
    EXPECT_EQ(0u, ReleaseCanvas(HGCANVAS{0}));
    EXPECT_TRUE(IsLive(bitmap));
    EXPECT_TRUE(IsLive(texture));
}

}  // namespace
}  // namespace lacquer
