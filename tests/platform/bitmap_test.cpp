// The layout of DIB sections and device bitmaps.
#include <gtest/gtest.h>

#include <cstring>

#include "gdi_objects.h"

namespace lacquer {
namespace {

/// What GetObjectW is to tell, field by field.
void ExpectDescription(const BITMAP &description, LONG width, LONG height, LONG stride, WORD bits, const void *pixels) {
    EXPECT_EQ(description.bmType, 0);
    EXPECT_EQ(description.bmWidth, width);
    EXPECT_EQ(description.bmHeight, height);
    EXPECT_EQ(description.bmWidthBytes, stride);
    EXPECT_EQ(description.bmPlanes, 1);
    EXPECT_EQ(description.bmBitsPixel, bits);
    EXPECT_EQ(description.bmBits, pixels);
}

TEST(Bitmap, SectionsHavePaddedZeroedRows) {
    for (const auto &[depth, stride] : {std::pair{8, 8}, {16, 12}, {24, 16}, {32, 20}}) {
        const auto bits = static_cast<WORD>(depth);
        for (const int height : {3, -3}) {
            void *pixels = nullptr;
            const HBITMAP bitmap = NewSection(5, height, bits, &pixels);
            ASSERT_NE(pixels, nullptr);
            const std::vector<uint8_t> zeros(static_cast<size_t>(stride) * 3);
            EXPECT_EQ(std::memcmp(pixels, zeros.data(), zeros.size()), 0);
            EXPECT_EQ(GetObjectW(bitmap, 0, nullptr), 32);
            BITMAP description{};
            EXPECT_EQ(GetObjectW(bitmap, 31, &description), 0);
            ASSERT_EQ(GetObjectW(bitmap, sizeof(description), &description), 32);
            ExpectDescription(description, 5, 3, stride, bits, pixels);

            DIBSECTION section{};
            ASSERT_EQ(GetObjectW(bitmap, sizeof(section), &section), 104);
            ExpectDescription(section.dsBm, 5, 3, stride, bits, pixels);
            EXPECT_EQ(section.dsBmih.biSize, 40u);
            EXPECT_EQ(section.dsBmih.biHeight, 3);
            EXPECT_EQ(section.dsBmih.biBitCount, bits);
            EXPECT_EQ(section.dsBmih.biSizeImage, static_cast<DWORD>(stride * 3));
            EXPECT_EQ(section.dsBitfields[0], depth == 16 ? 0x7C00u : 0u);
            EXPECT_EQ(section.dshSection, nullptr);
            DeleteObject(bitmap);
        }
    }
    const HBITMAP bitmap = NewSection(5, 5, 32, nullptr);
    EXPECT_NE(bitmap, nullptr);
    DeleteObject(bitmap);
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
    EXPECT_EQ(CreateDIBSection(nullptr, nullptr, DIB_RGB_COLORS, nullptr, nullptr, 0), nullptr);
}

TEST(Bitmap, CompatibleOnesTakeAfterTheSelectedBitmap) {
    const Picture picture(4, -4, 24);
    const OwnedDC fresh;
    const HBITMAP mono = CreateCompatibleBitmap(fresh, 3, 5), section = CreateCompatibleBitmap(picture, 3, 5);
    ExpectDescription(DescriptionOf(mono), 3, 5, 2, 1, nullptr);
    const BITMAP description = DescriptionOf(section);
    EXPECT_NE(description.bmBits, nullptr);
    ExpectDescription(description, 3, 5, 12, 24, description.bmBits);
    DeleteObject(mono);
    DeleteObject(section);
    EXPECT_EQ(CreateCompatibleBitmap(picture, -3, 5), nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(fresh, 0, 5), GetCurrentObject(fresh, OBJ_BITMAP));
}

TEST(Bitmap, DeviceBitmapsKeepTheirPixelsToThemselves) {
    const uint32_t pixels[] = {0xFF112233, 0x80445566, 0x01020304, 0xFFFFFFFF, 0, 0x11111111};
    const HBITMAP bitmap = CreateBitmap(3, 2, 1, 32, pixels);
    ExpectDescription(DescriptionOf(bitmap), 3, 2, 12, 32, nullptr);
    const OwnedDC dc;
    const HGDIOBJ initial = SelectObject(dc, bitmap);
    ASSERT_NE(initial, nullptr);
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
