// Surface canvases: state, parents, and their own device context.

#include <gtest/gtest.h>

#include "objects.h"

namespace lacquer {
namespace {

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
        EXPECT_FALSE(GetCanvasWindow(canvas) || GetCanvasParent(canvas));
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
    EXPECT_EQ(window, SetCanvasWindow(canvas, nullptr));
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

TEST(CanvasParentTest, MayBeSharedOrItselfAndIsGoneUnderEveryHandleWhenItEnds) {
    const OwnedCanvas child(CreateCanvas(1, 1, {})), sibling(CreateCanvas(1, 1, {}));
    for (const auto end : {DeleteCanvas, +[](HGCANVAS canvas) { DeleteBitmap(CanvasToBitmap(canvas)); }}) {
        const HGCANVAS parent = CreateCanvas(2, 1, {});
        for (const HGCANVAS canvas : {parent, HGCANVAS(sibling), HGCANVAS(child)}) {
            EXPECT_EQ(1, SetCanvasParent(canvas, sibling));
            EXPECT_EQ(1, SetCanvasParent(canvas, parent));
        }
        const HGCANVAS alias = GetCanvasParent(child), released = GetCanvasParent(child);
        const HGBITMAP bitmap = GetBitmap(parent);
        EXPECT_NE(parent, alias);
        EXPECT_EQ((Size{2, 1}), SizeOf(alias));
        EXPECT_EQ(1u, ReleaseCanvas(released));
        EXPECT_FALSE(IsLive(released));
        end(alias);
        EXPECT_FALSE(IsLive(parent) || IsLive(alias) || IsLive(bitmap));
        const OwnedCanvas next(CreateCanvas(3, 3, {}));
        EXPECT_FALSE(GetCanvasParent(child) || GetCanvasParent(sibling)) << "another canvas may sit where it was";
    }
}

}  // namespace
}  // namespace lacquer
