// Clip regions: kinds, boxes, origins, and drawing under them.
#include <gtest/gtest.h>

#include "gdi_objects.h"

namespace lacquer {
namespace {

RECT ClipBox(HDC dc, int expectedKind) {
    RECT box{};
    EXPECT_EQ(GetClipBox(dc, &box), expectedKind);
    return box;
}

// The clip region as it is kept, device coordinates.
RECT ClipRegionBox(HDC dc) {
    OwnedRegion region(0, 0, 0, 0);
    EXPECT_EQ(GetClipRgn(dc, region), 1);
    return region.Box();
}

TEST(Clip, IsTheBitmapWithoutARegion) {
    Picture picture(10, -8);
    OwnedRegion region(3, 3, 4, 4);
    EXPECT_EQ(GetClipRgn(picture, region), 0);
    EXPECT_EQ(region.Box(), (RECT{3, 3, 4, 4}));
    EXPECT_EQ(OffsetClipRgn(picture, 1, 1), NULLREGION);
    EXPECT_EQ(GetClipRgn(picture, region), 0);
    EXPECT_EQ(ClipBox(picture, SIMPLEREGION), (RECT{0, 0, 10, 8}));
    SetViewportOrgEx(picture, 1, 2, nullptr);
    SetWindowOrgEx(picture, 10, 10, nullptr);
    EXPECT_EQ(ClipBox(picture, SIMPLEREGION), (RECT{9, 8, 19, 16}));
    OwnedDC fresh;
    EXPECT_EQ(ClipBox(fresh, SIMPLEREGION), (RECT{0, 0, 1, 1}));
}

TEST(Clip, IsADeviceRegionAndItsBoxIsLogicalAndCutToTheBitmap) {
    Picture picture(10, -8);
    OwnedRegion region(2, 2, 20, 20);
    SetViewportOrgEx(picture, 1, 1, nullptr);
    EXPECT_EQ(ExtSelectClipRgn(picture, region, RGN_COPY), SIMPLEREGION);
    EXPECT_EQ(ClipBox(picture, SIMPLEREGION), (RECT{1, 1, 9, 7}));
    EXPECT_EQ(ClipRegionBox(picture), (RECT{2, 2, 20, 20}));
    SetRectRgn(region, 0, 0, 1, 1);
    EXPECT_EQ(ClipRegionBox(picture), (RECT{2, 2, 20, 20})) << "the clip is a copy";
    const HBITMAP larger = NewSection(30, -15, 32);
    SelectObject(picture, larger);
    EXPECT_EQ(ClipBox(picture, SIMPLEREGION), (RECT{1, 1, 19, 14}));
    SelectObject(picture, picture.Bitmap());
    DeleteObject(larger);

    EXPECT_EQ(ExtSelectClipRgn(picture, nullptr, RGN_OR), ERROR);
    EXPECT_EQ(ExtSelectClipRgn(picture, region, 9), ERROR);
    EXPECT_EQ(ClipRegionBox(picture), (RECT{2, 2, 20, 20}));
    EXPECT_EQ(ExtSelectClipRgn(picture, nullptr, RGN_COPY), SIMPLEREGION);
    EXPECT_EQ(GetClipRgn(picture, region), 0);

    SetRectRgn(region, 1, 1, 3, 3);
    EXPECT_EQ(SelectObject(picture, static_cast<HRGN>(region)), reinterpret_cast<HGDIOBJ>(uintptr_t{SIMPLEREGION}));
    EXPECT_EQ(ClipRegionBox(picture), (RECT{1, 1, 3, 3}));
}

TEST(Clip, KindsFollowTheShape) {
    Picture picture(10, -8);
    EXPECT_EQ(IntersectClipRect(picture, -100, 1, 300, 6), SIMPLEREGION);
    EXPECT_EQ(ClipRegionBox(picture), (RECT{-100, 1, 300, 6}));
    EXPECT_EQ(ExcludeClipRect(picture, 2, 2, 4, 4), COMPLEXREGION);
    EXPECT_EQ(ClipBox(picture, COMPLEXREGION), (RECT{0, 1, 10, 6}));
    EXPECT_EQ(OffsetClipRgn(picture, 1, 2), COMPLEXREGION);
    EXPECT_EQ(ClipBox(picture, COMPLEXREGION), (RECT{0, 3, 10, 8}));
    EXPECT_EQ(PtVisible(picture, 4, 4), 0);
    EXPECT_EQ(PtVisible(picture, 5, 4), 1);
    // Corners in any order.
    EXPECT_EQ(IntersectClipRect(picture, 9, 7, 5, 4), SIMPLEREGION);
    EXPECT_EQ(ClipBox(picture, SIMPLEREGION), (RECT{5, 4, 9, 7}));
    EXPECT_EQ(IntersectClipRect(picture, 50, 50, 52, 52), NULLREGION);
    RECT box{1, 1, 2, 2};
    EXPECT_EQ(GetClipBox(picture, &box), NULLREGION);
    EXPECT_NE(IsRectEmpty(&box), FALSE);
    EXPECT_EQ(IntersectClipRect(picture, 0, 0, 10, 8), NULLREGION);

    OwnedRegion outside(100, 100, 200, 200);
    SelectClipRgn(picture, outside);
    EXPECT_EQ(GetClipBox(picture, &box), NULLREGION);
}

TEST(Clip, RegionsCombineWithTheBitmapWhenThereIsNone) {
    const struct {
        int mode, kind;
        RECT box;
    } cases[] = {{RGN_AND, SIMPLEREGION, {2, 2, 10, 8}},
                 {RGN_OR, COMPLEXREGION, {0, 0, 20, 20}},
                 {RGN_XOR, COMPLEXREGION, {0, 0, 20, 20}},
                 {RGN_DIFF, COMPLEXREGION, {0, 0, 10, 8}}};
    for (const auto &expected : cases) {
        Picture picture(10, -8);
        OwnedRegion region(2, 2, 20, 20);
        EXPECT_EQ(ExtSelectClipRgn(picture, region, expected.mode), expected.kind);
        EXPECT_EQ(ClipRegionBox(picture), expected.box);
    }
    Picture picture(10, -8);
    EXPECT_EQ(ExcludeClipRect(picture, 0, 0, 3, 3), COMPLEXREGION);
    EXPECT_EQ(ClipRegionBox(picture), (RECT{0, 0, 10, 8}));
}

TEST(Clip, IntersectsInLogicalCoordinates) {
    Picture picture(10, -8);
    SetViewportOrgEx(picture, 4, 3, nullptr);
    SetWindowOrgEx(picture, 1, 1, nullptr);
    EXPECT_EQ(IntersectClipRect(picture, 0, 0, 5, 5), SIMPLEREGION);
    EXPECT_EQ(ClipRegionBox(picture), (RECT{3, 2, 8, 7}));
    EXPECT_EQ(ClipBox(picture, SIMPLEREGION), (RECT{0, 0, 5, 5}));
    EXPECT_EQ(PtVisible(picture, 4, 4), 1);
    EXPECT_EQ(PtVisible(picture, 5, 4), 0);
    EXPECT_EQ(PtVisible(picture, -1, 0), 0);
    const RECT touching{9, 9, 4, 4}, beside{5, 0, 9, 9};
    EXPECT_NE(RectVisible(picture, &touching), FALSE);
    EXPECT_EQ(RectVisible(picture, &beside), FALSE);
}

TEST(Clip, BoundsAllDrawing) {
    Picture source(8, -8);
    source.Fill(0xFF00FF00);
    OwnedRegion ring(1, 1, 7, 7), hole(3, 3, 5, 5);
    CombineRgn(ring, ring, hole, RGN_DIFF);
    const BLENDFUNCTION opaque{AC_SRC_OVER, 0, 255, 0};
    const BITMAPINFO info = HeaderOf(8, -8, 32);

    for (int drawing = 0; drawing < 6; ++drawing) {
        Picture picture(8, -8);
        picture.Fill(7);
        SelectClipRgn(picture, ring);
        switch (drawing) {
            case 0: BitBlt(picture, 0, 0, 8, 8, source, 0, 0, SRCCOPY); break;
            case 1: StretchBlt(picture, 0, 0, 8, 8, source, 0, 0, 4, 4, SRCCOPY); break;
            case 2: GdiAlphaBlend(picture, 0, 0, 8, 8, source, 0, 0, 8, 8, opaque); break;
            case 3: PatBlt(picture, 0, 0, 8, 8, WHITENESS); break;
            case 4: SetDIBitsToDevice(picture, 0, 0, 8, 8, 0, 0, 0, 8, source.Bytes(), &info, DIB_RGB_COLORS); break;
            default:
                for (int i = 0; i < 64; ++i) SetPixel(picture, i % 8, i / 8, 0x00FF00);
        }
        for (int i = 0; i < 64; ++i) {
            EXPECT_EQ(picture.At(i, 0) != 7, PtInRegion(ring, i % 8, i / 8) != 0)
                << "drawing " << drawing << " at " << i;
        }
    }
}

TEST(Clip, SurvivesTheEndsOfTheRange) {
    Picture picture(10, -8);
    const std::vector<uint32_t> before = picture.Words();
    constexpr int kEnds[] = {INT32_MIN, -1, 0, INT32_MAX};
    for (const int x : kEnds) {
        for (const int y : kEnds) {
            SetViewportOrgEx(picture, x, y, nullptr);
            SetWindowOrgEx(picture, y, x, nullptr);
            SelectClipRgn(picture, nullptr);
            RECT box{};
            EXPECT_EQ(GetClipBox(picture, &box), SIMPLEREGION);
            IntersectClipRect(picture, INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
            ExcludeClipRect(picture, INT32_MAX, INT32_MIN, INT32_MIN, 0);
            OffsetClipRgn(picture, x, y);
            GetClipBox(picture, &box);
            RectVisible(picture, &box);
        }
    }
    EXPECT_EQ(picture.Words(), before);
}

}  // namespace
}  // namespace lacquer
