// The layout of DIB sections and device bitmaps.
#include <gtest/gtest.h>

#include <cstring>

#include "gdi_objects.h"

namespace lacquer {
namespace {

TEST(Bitmap, SectionsHavePaddedZeroedRows) {
    const struct {
        WORD bitsPerPixel;
        LONG stride;
    } cases[] = {{8, 8}, {16, 12}, {24, 16}, {32, 20}};
    for (const auto &expected : cases) {
        for (const int height : {3, -3}) {
            void *bits = nullptr;
            const HBITMAP bitmap = NewSection(5, height, expected.bitsPerPixel, &bits);
            ASSERT_NE(bitmap, nullptr);
            ASSERT_NE(bits, nullptr);
            BITMAP description{};
            EXPECT_EQ(GetObjectW(bitmap, 0, nullptr), 32);
            EXPECT_EQ(GetObjectW(bitmap, 31, &description), 0);
            ASSERT_EQ(GetObjectW(bitmap, sizeof(description), &description), 32);
            EXPECT_EQ(description.bmType, 0);
            EXPECT_EQ(description.bmWidth, 5);
            EXPECT_EQ(description.bmHeight, 3);
            EXPECT_EQ(description.bmWidthBytes, expected.stride);
            EXPECT_EQ(description.bmPlanes, 1);
            EXPECT_EQ(description.bmBitsPixel, expected.bitsPerPixel);
            EXPECT_EQ(description.bmBits, bits);
            const std::vector<uint8_t> zeros(static_cast<size_t>(expected.stride) * 3);
            EXPECT_EQ(std::memcmp(bits, zeros.data(), zeros.size()), 0);

            DIBSECTION section{};
            ASSERT_EQ(GetObjectW(bitmap, sizeof(section), &section), 104);
            EXPECT_EQ(section.dsBm.bmBits, bits);
            EXPECT_EQ(section.dsBmih.biSize, 40u);
            EXPECT_EQ(section.dsBmih.biHeight, 3);
            EXPECT_EQ(section.dsBmih.biBitCount, expected.bitsPerPixel);
            EXPECT_EQ(section.dsBmih.biSizeImage, static_cast<DWORD>(expected.stride * 3));
            EXPECT_EQ(section.dsBitfields[0], expected.bitsPerPixel == 16 ? 0x7C00u : 0u);
            EXPECT_EQ(section.dshSection, nullptr);
            DeleteObject(bitmap);
        }
    }
}

TEST(Bitmap, PixelsOfEveryDepth) {
    Picture words(3, -1, 16);
    EXPECT_EQ(SetPixel(words, 1, 0, 0x563412), 0x523110u);
    EXPECT_EQ(words.Bytes()[2] | words.Bytes()[3] << 8, 0x08CA);
    EXPECT_EQ(GetPixel(words, 1, 0), 0x523110u);

    Picture bytes(3, -1, 24);
    EXPECT_EQ(SetPixel(bytes, 1, 0, 0x563412), 0x563412u);
    EXPECT_EQ(std::memcmp(bytes.Bytes(), "\0\0\0\x56\x34\x12\0\0\0", 9), 0);

    Picture indices(3, -1, 8, {{0, 0, 0, 0}, {0xFF, 0xFF, 0xFF, 0}, {0, 0, 0xFF, 0}, {0x80, 0, 0, 0}});
    EXPECT_EQ(SetPixel(indices, 0, 0, 0x0000FF), 0x0000FFu);
    EXPECT_EQ(SetPixel(indices, 1, 0, 0x830105), 0x800000u);
    indices.Bytes()[2] = 1;
    EXPECT_EQ(std::memcmp(indices.Bytes(), "\2\3\1", 3), 0);
    EXPECT_EQ(GetPixel(indices, 2, 0), 0xFFFFFFu);

    OwnedDC mono;
    const HBITMAP bits = CreateCompatibleBitmap(mono, 9, 1);
    const HGDIOBJ initial = SelectObject(mono, bits);
    EXPECT_EQ(GetPixel(mono, 8, 0), 0u);
    EXPECT_EQ(SetPixel(mono, 8, 0, 0xF0F0F0), 0xFFFFFFu);
    EXPECT_EQ(GetPixel(mono, 8, 0), 0xFFFFFFu);
    EXPECT_EQ(GetPixel(mono, 7, 0), 0u);
    SelectObject(mono, initial);
    DeleteObject(bits);
}

TEST(Bitmap, ImpossibleSectionsAreRefused) {
    const struct {
        int width, height;
        WORD bitsPerPixel;
    } cases[] = {{0, 5, 32},         {5, 0, 32},        {-5, 5, 32}, {5, 5, 7}, {5, 5, 33}, {INT32_MAX, INT32_MAX, 32},
                 {65536, 65536, 32}, {INT32_MAX, 1, 32}};
    for (const auto &bad : cases) {
        int sentinel = 0;
        void *bits = &sentinel;
        EXPECT_EQ(NewSection(bad.width, bad.height, bad.bitsPerPixel, &bits), nullptr)
            << bad.width << " " << bad.height;
        EXPECT_EQ(bits, nullptr);
    }
    const HBITMAP bitmap = NewSection(5, 5, 32, nullptr);
    EXPECT_NE(bitmap, nullptr);
    DeleteObject(bitmap);
    void *bits = nullptr;
    EXPECT_EQ(CreateDIBSection(nullptr, nullptr, DIB_RGB_COLORS, &bits, nullptr, 0), nullptr);
}

TEST(Bitmap, CompatibleOnesTakeAfterTheSelectedBitmap) {
    Picture picture(4, -4, 24);
    OwnedDC fresh;
    for (const bool mono : {false, true}) {
        const HBITMAP bitmap = CreateCompatibleBitmap(mono ? HDC(fresh) : HDC(picture), 3, 5);
        const BITMAP description = DescriptionOf(bitmap);
        EXPECT_EQ(description.bmBitsPixel, mono ? 1 : 24);
        EXPECT_EQ(description.bmWidthBytes, mono ? 2 : 12);
        EXPECT_EQ(description.bmBits == nullptr, mono);
        DeleteObject(bitmap);
    }

    EXPECT_EQ(CreateCompatibleBitmap(picture, -3, 5), nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(fresh, 0, 5), GetCurrentObject(fresh, OBJ_BITMAP));
}

TEST(Bitmap, DeviceBitmapsKeepTheirPixelsToThemselves) {
    const uint32_t pixels[] = {0xFF112233, 0x80445566, 0x01020304, 0xFFFFFFFF, 0, 0x11111111};
    const HBITMAP bitmap = CreateBitmap(3, 2, 1, 32, pixels);
    const BITMAP description = DescriptionOf(bitmap);
    EXPECT_EQ(description.bmWidth, 3);
    EXPECT_EQ(description.bmHeight, 2);
    EXPECT_EQ(description.bmWidthBytes, 12);
    EXPECT_EQ(description.bmBitsPixel, 32);
    EXPECT_EQ(description.bmBits, nullptr);

    OwnedDC dc;
    const HGDIOBJ initial = SelectObject(dc, bitmap);
    ASSERT_NE(initial, nullptr);
    Picture copy(3, -2);
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
