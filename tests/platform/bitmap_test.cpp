// The layout of DIB sections and device bitmaps.
#include <gtest/gtest.h>

#include <cstring>

#include "gdi_objects.h"

namespace lacquer {
namespace {

/// Width, height, bytes of a row, planes and depth: what GetObjectW is to tell beside the pixels' place.
std::vector<LONG> LayoutOf(const BITMAP &bitmap) {
    EXPECT_EQ(bitmap.bmType, 0);
    return {bitmap.bmWidth, bitmap.bmHeight, bitmap.bmWidthBytes, bitmap.bmPlanes, bitmap.bmBitsPixel};
}

TEST(Bitmap, SectionsHavePaddedZeroedRows) {
    for (const auto &[depth, stride] : {std::pair{8, 8}, {16, 12}, {24, 16}, {32, 20}}) {
        for (const int height : {3, -3}) {
            void *pixels = nullptr;
            const HBITMAP bitmap = NewSection(5, height, static_cast<WORD>(depth), &pixels);
            ASSERT_NE(pixels, nullptr);
            const std::vector<uint8_t> zeros(static_cast<size_t>(stride) * 3);
            EXPECT_EQ(std::memcmp(pixels, zeros.data(), zeros.size()), 0);
            DIBSECTION section{};
            EXPECT_EQ(GetObjectW(bitmap, 0, nullptr), 32);
            EXPECT_EQ(GetObjectW(bitmap, 31, &section), 0);
            EXPECT_EQ(DescriptionOf(bitmap).bmBits, pixels);
            ASSERT_EQ(GetObjectW(bitmap, sizeof(section), &section), 104);
            EXPECT_EQ(LayoutOf(section.dsBm), (std::vector<LONG>{5, 3, stride, 1, depth}));
            EXPECT_EQ(section.dsBm.bmBits, pixels);
            EXPECT_EQ(section.dsBmih.biHeight, 3);
            EXPECT_EQ(section.dsBmih.biBitCount, depth);
            EXPECT_EQ(section.dsBmih.biSizeImage, static_cast<DWORD>(stride * 3));
            EXPECT_EQ(section.dsBitfields[0], depth == 16 ? 0x7C00u : 0u);
            DeleteObject(bitmap);
        }
    }
}

TEST(Bitmap, ImpossibleSectionsAreRefused) {
    const struct {
        int width, height;
        WORD bitsPerPixel;
    } cases[] = {{0, 5, 32},         {5, 0, 32},        {-5, 5, 32}, {5, 5, 7}, {5, 5, 33}, {INT32_MAX, INT32_MAX, 32},
                 {65536, 65536, 32}, {INT32_MAX, 1, 32}};
    for (const auto &[width, height, depth] : cases) {
        int sentinel = 0;
        void *bits = &sentinel;
        EXPECT_EQ(NewSection(width, height, depth, &bits), nullptr) << width << " " << height;
        EXPECT_EQ(bits, nullptr);
    }
}

TEST(Bitmap, CompatibleOnesTakeAfterTheSelectedBitmap) {
    const Picture picture(4, -4, 24);
    const OwnedDC fresh;
    const HBITMAP mono = CreateCompatibleBitmap(fresh, 3, 5), section = CreateCompatibleBitmap(picture, 3, 5);
    EXPECT_EQ(LayoutOf(DescriptionOf(mono)), (std::vector<LONG>{3, 5, 2, 1, 1}));
    EXPECT_EQ(LayoutOf(DescriptionOf(section)), (std::vector<LONG>{3, 5, 12, 1, 24}));
    EXPECT_NE(DescriptionOf(section).bmBits, nullptr);
    DeleteObject(mono);
    DeleteObject(section);
    EXPECT_EQ(CreateCompatibleBitmap(picture, -3, 5), nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(fresh, 0, 5), GetCurrentObject(fresh, OBJ_BITMAP));
}

TEST(Bitmap, DeviceBitmapsKeepTheirPixelsToThemselves) {
    const uint32_t pixels[] = {0xFF112233, 0x80445566, 0x01020304, 0xFFFFFFFF, 0, 0x11111111};
    const HBITMAP bitmap = CreateBitmap(3, 2, 1, 32, pixels);
    EXPECT_EQ(LayoutOf(DescriptionOf(bitmap)), (std::vector<LONG>{3, 2, 12, 1, 32}));
    EXPECT_EQ(DescriptionOf(bitmap).bmBits, nullptr);
    const OwnedDC dc;
    const HGDIOBJ initial = SelectObject(dc, bitmap);
    const Picture copy(3, -2);
    EXPECT_NE(BitBlt(copy, 0, 0, 3, 2, dc, 0, 0, SRCCOPY), FALSE);
    EXPECT_EQ(copy.Words(), std::vector<uint32_t>(pixels, pixels + 6));
    SelectObject(dc, initial);
    DeleteObject(bitmap);

    EXPECT_EQ(CreateBitmap(3, 2, 2, 32, nullptr), nullptr);
    EXPECT_EQ(CreateBitmap(0, 2, 1, 32, nullptr), initial);
    EXPECT_EQ(CreateBitmap(2, 0, 0, 0, nullptr), initial);
}

}  // namespace
}  // namespace lacquer
