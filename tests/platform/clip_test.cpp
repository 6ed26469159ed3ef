// Clip regions: kinds, boxes and origins. That they bound what is drawn is tested with the draws.
#include <gtest/gtest.h>

#include "record.h"

namespace lacquer {
namespace {

/// Changes the clip or the origins. Result: the system's answer.
int ChangeClip(HDC dc, Random &random) {
    const RECT rect = random.Rect();
    const OwnedRegion shape = random.Shape();
    const int mode = random.Between(RGN_AND, RGN_COPY), x = random.Between(-1, 1), y = random.Between(-1, 1);
    // The system calls a clip of a rectangle without area simple.
    const bool hasArea = rect.left != rect.right && rect.top != rect.bottom;
    switch (random.Between(0, hasArea ? 6 : 4)) {
        case 0: return OffsetClipRgn(dc, x, y);
        case 1: return ExtSelectClipRgn(dc, nullptr, RGN_COPY);
        case 2: return SetViewportOrgEx(dc, 3 + x, 2 - y, nullptr) && SetWindowOrgEx(dc, 1 - y, 2 * x, nullptr);
        case 5: return IntersectClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
        case 6: return ExcludeClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
        default: return ExtSelectClipRgn(dc, shape, mode);
    }
}

TEST(Clip, ProgramsAreLikeTheSystems) {
    const Picture picture(10, -8);
    Random random(2);
    Record record;
    for (int step = 0; step < 2000; ++step) {
        record.Add(ChangeClip(picture, random));
        const OwnedRegion region(RECT{3, 3, 4, 4});
        record.Add(GetClipRgn(picture, region));
        for (const RECT &part : region.Rects()) record.Add(part);
        RECT box{};
        const int kind = GetClipBox(picture, &box), x = random.Between(-1, 12), y = random.Between(-1, 10);
        // The system's own answers reckon with more than is visible of several rectangles.
        if (region.Kind() != COMPLEXREGION) record.Add(kind);
        if (region.Kind() != COMPLEXREGION && kind != NULLREGION) record.Add(box);
        record.Add(PtVisible(picture, x, y) != 0);
    }
    EXPECT_EQ(record.Digest(), 0xAD2A174C42799B22);
}

TEST(Clip, IsACopyThatOutlivesBitmaps) {
    const Picture picture(10, -8);
    const OwnedRegion region(RECT{2, 2, 20, 20});
    EXPECT_EQ(SelectObject(picture, static_cast<HRGN>(region)), reinterpret_cast<HGDIOBJ>(uintptr_t{SIMPLEREGION}));
    SetRectRgn(region, 0, 0, 1, 1);
    const HBITMAP larger = NewSection(30, -15, 32);
    SelectObject(picture, larger);
    RECT box{};
    EXPECT_EQ(GetClipBox(picture, &box), SIMPLEREGION);
    EXPECT_EQ(box, (RECT{2, 2, 20, 15}));
    SelectObject(picture, picture.Bitmap());
    DeleteObject(larger);

    const RECT touching{9, 9, 1, 1}, beside{0, 0, 2, 9};
    EXPECT_NE(RectVisible(picture, &touching), FALSE);
    EXPECT_EQ(RectVisible(picture, &beside), FALSE);
    EXPECT_EQ(ExtSelectClipRgn(picture, nullptr, RGN_OR), ERROR);
    EXPECT_EQ(ExtSelectClipRgn(picture, region, 9), ERROR);
}

}  // namespace
}  // namespace lacquer
