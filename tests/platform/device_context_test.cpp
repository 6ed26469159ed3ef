// Device contexts and handles: selection, deletion, saved states, origins, and handles that are not.
#include <gtest/gtest.h>

#include "gdi_objects.h"
#include "support/refusals.h"

namespace lacquer {
namespace {

TEST(DeviceContext, ABitmapIsSelectedIntoOneAtATimeAndLivesAsLong) {
    const OwnedDC first;
    const HDC second = CreateCompatibleDC(nullptr);
    void *bits = nullptr;
    const HBITMAP bitmap = NewSection(4, -4, 32, &bits), kept = NewSection(4, -4, 32), doomed = NewSection(4, -4, 32);
    const HGDIOBJ initial = GetCurrentObject(first, OBJ_BITMAP);
    EXPECT_NE(DeleteObject(initial), FALSE);
    const BITMAP description = DescriptionOf(initial);
    EXPECT_EQ(description.bmWidth * description.bmHeight * description.bmBitsPixel, 1) << "it never goes";
    EXPECT_EQ(description.bmBits, nullptr);

    EXPECT_EQ(SelectObject(first, bitmap), initial);
    EXPECT_EQ(SelectObject(first, bitmap), bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), nullptr);
    EXPECT_EQ(GetCurrentObject(second, OBJ_BITMAP), initial);
    EXPECT_EQ(SelectObject(first, kept), bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), initial);
    EXPECT_NE(DeleteObject(bitmap), FALSE);
    EXPECT_EQ(SetPixel(second, 1, 1, 0x123456), 0x123456u);
    EXPECT_EQ(static_cast<uint32_t *>(bits)[5], 0x563412u);
    EXPECT_EQ(SelectObject(first, bitmap), nullptr) << "not any more";
    EXPECT_EQ(SelectObject(second, doomed), bitmap);
    EXPECT_EQ(GetObjectType(bitmap), 0u);

    // The end of a context ends a selection, too.
    DeleteObject(doomed);
    EXPECT_EQ(GetObjectType(second), static_cast<DWORD>(OBJ_MEMDC));
    EXPECT_NE(DeleteObject(second), FALSE);
    ExpectRefused(GetObjectType(second), GetObjectType(doomed));
    SelectObject(first, initial);
    EXPECT_EQ(GetObjectType(kept), static_cast<DWORD>(OBJ_BITMAP));
    DeleteObject(kept);
}

TEST(DeviceContext, SavedStatesAreAStack) {
    Picture picture(10, -10);
    OwnedDC other;
    const HBITMAP second = NewSection(6, -6, 32);

    RECT box{};
    SetViewportOrgEx(picture, 3, 4, nullptr);
    SetWindowOrgEx(picture, 1, 1, nullptr);
    SetStretchBltMode(picture, COLORONCOLOR);
    EXPECT_EQ(SaveDC(picture), 1);
    SetViewportOrgEx(picture, 0, 0, nullptr);
    SetStretchBltMode(picture, HALFTONE);
    EXPECT_EQ(SaveDC(picture), 2);
    IntersectClipRect(picture, 1, 1, 2, 2);
    SelectObject(picture, second);
    EXPECT_EQ(SaveDC(picture), 3);
    ExpectRefused(RestoreDC(picture, 0), RestoreDC(picture, 4), RestoreDC(picture, -4));
    EXPECT_NE(RestoreDC(picture, -2), FALSE);
    EXPECT_EQ(GetCurrentObject(picture, OBJ_BITMAP), picture.Bitmap());
    EXPECT_EQ(GetStretchBltMode(picture), HALFTONE);
    GetClipBox(picture, &box);
    EXPECT_EQ(box, (RECT{1, 1, 11, 11}));
    EXPECT_NE(SelectObject(other, second), nullptr) << "restoring releases the bitmap";
    EXPECT_NE(RestoreDC(picture, 1), FALSE);
    GetClipBox(picture, &box);
    EXPECT_EQ(box, (RECT{-2, -3, 8, 7})) << "both origins";
    EXPECT_EQ(GetStretchBltMode(picture), COLORONCOLOR);
    EXPECT_EQ(RestoreDC(picture, -1), FALSE);

    // A saved bitmap that is gone, or selected elsewhere, is left out.
    SaveDC(picture);
    const HGDIOBJ initial = CreateCompatibleBitmap(picture, 0, 0);
    SelectObject(picture, initial);
    SaveDC(picture);
    SelectObject(other, picture.Bitmap());
    EXPECT_NE(RestoreDC(picture, 1), FALSE);
    EXPECT_EQ(GetCurrentObject(picture, OBJ_BITMAP), initial);
    SelectObject(other, initial);
    DeleteObject(second);
}

TEST(DeviceContext, GivesBackWhatIsSet) {
    const OwnedDC dc;
    for (const auto &[set, get] :
         {std::pair{&SetViewportOrgEx, &GetViewportOrgEx}, {&SetWindowOrgEx, &GetWindowOrgEx}}) {
        POINT first{7, 7}, second{}, now{};
        EXPECT_NE(set(dc, INT32_MIN, INT32_MAX, &first), FALSE);
        EXPECT_NE(set(dc, 5, -6, &second), FALSE);
        EXPECT_NE(get(dc, &now), FALSE);
        EXPECT_EQ((std::vector{first.x, first.y, second.x, second.y, now.x, now.y}),
                  (std::vector<LONG>{0, 0, INT32_MIN, INT32_MAX, 5, -6}));
    }
    EXPECT_EQ(SetStretchBltMode(dc, COLORONCOLOR), BLACKONWHITE);
    for (const int unknown : {0, 5}) EXPECT_EQ(SetStretchBltMode(dc, unknown), 0);
    EXPECT_EQ(GetStretchBltMode(dc), COLORONCOLOR);
}

// That no function takes them for objects is seen by the fuzzer.
TEST(Handles, OfDeletedAndOfNoObjectsHaveAnswersOfTheirOwn) {
    const Picture picture(4, -4);
    const OwnedRegion region(RECT{0, 0, 4, 4});
    for (const HDC dc : {HDC{}, StaleDC(), Garbage<HDC>(), reinterpret_cast<HDC>(picture.Bitmap())}) {
        ExpectRefused(SelectObject(dc, picture.Bitmap()), BitBlt(picture, 0, 0, 4, 4, dc, 0, 0, SRCCOPY),
                      SelectClipRgn(dc, region), CreateCompatibleBitmap(dc, 4, 4));
        EXPECT_EQ(GetClipRgn(dc, region), -1);
        EXPECT_EQ(SetPixel(dc, 0, 0, 1), CLR_INVALID);
        EXPECT_EQ(GetPixel(dc, 0, 0), CLR_INVALID);
    }
    for (const HRGN bad : {HRGN{}, StaleRegion(), Garbage<HRGN>(), reinterpret_cast<HRGN>(picture.Bitmap())}) {
        ExpectRefused(CombineRgn(region, region, bad, RGN_OR), CombineRgn(bad, region, region, RGN_OR),
                      EqualRgn(region, bad), GetRegionData(bad, 0, nullptr));
    }
    EXPECT_EQ(region.Box(), (RECT{0, 0, 4, 4})) << "a refusal changes nothing";
}

TEST(Handles, AreNotReusedAtOnceAndRunOutCleanly) {
    std::vector<HRGN> regions = {StaleRegion()};
    while (regions.size() < 70000 && regions.back() != nullptr) {
        regions.push_back(CreateRectRgn(0, 0, 1, 1));
        ASSERT_NE(regions.back(), regions.front());
    }
    ASSERT_GT(regions.size(), 1000u);
    EXPECT_EQ(regions.back(), nullptr) << "creation fails at last";
    int sentinel = 0;
    void *bits = &sentinel;
    ExpectRefused(CreateCompatibleDC(nullptr), NewSection(1, 1, 32, &bits));
    EXPECT_EQ(bits, nullptr);
    for (size_t i = 1; i + 1 < regions.size(); ++i) ASSERT_NE(DeleteObject(regions[i]), FALSE);
    EXPECT_EQ(OwnedRegion(RECT{0, 0, 1, 1}).Kind(), SIMPLEREGION);
}

}  // namespace
}  // namespace lacquer
