// BitBlt and PatBlt: placement, clipping, overlap, depths and alpha.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "gdi_objects.h"

namespace lacquer {
namespace {

TEST(Blit, CopiesAllFourBytesWhereBothBitmapsReach) {
    // Every placement of a 4 x 3 block around a 5 x 4 picture and a 6 x 5 source, of either row order, both under
    // origins.
    for (const int sourceSign : {1, -1}) {
        Picture source(6, 5 * sourceSign);
        for (int y = 0; y < 5; ++y) {
            for (int x = 0; x < 6; ++x)
                source.At(x, sourceSign < 0 ? y : 4 - y) = 0xA0000000u + static_cast<uint32_t>(y * 16 + x);
        }
        Picture picture(5, -4);
        SetViewportOrgEx(picture, 3, 1, nullptr);
        SetWindowOrgEx(picture, 1, -1, nullptr);
        SetViewportOrgEx(source, -2, 2, nullptr);
        for (int x = -5; x <= 6; ++x) {
            for (int y = -4; y <= 5; ++y) {
                for (int fromX = -2; fromX <= 5; fromX += 3) {
                    for (int fromY = -2; fromY <= 5; fromY += 2) {
                        picture.Fill(7);
                        ASSERT_NE(BitBlt(picture, x - 2, y - 2, 4, 3, source, fromX + 2, fromY - 2, SRCCOPY), FALSE);
                        for (int i = 0; i < 20; ++i) {
                            const int column = i % 5 - x, row = i / 5 - y, sx = fromX + column, sy = fromY + row;
                            const bool isCopied = column >= 0 && column < 4 && row >= 0 && row < 3 && sx >= 0 &&
                                                  sx < 6 && sy >= 0 && sy < 5;
                            const uint32_t expected = isCopied ? 0xA0000000u + static_cast<uint32_t>(sy * 16 + sx) : 7;
                            ASSERT_EQ(picture.At(i, 0), expected)
                                << x << ", " << y << " from " << fromX << ", " << fromY << " pixel " << i;
                        }
                    }
                }
            }
        }
    }
}

TEST(Blit, OntoTheSameBitmapWorksAsThroughACopy) {
    for (const int height : {-9, 9}) {
        for (int dx = -2; dx <= 2; ++dx) {
            for (int dy = -2; dy <= 2; ++dy) {
                Picture copy(9, height), picture(9, height), expected(9, height);
                for (const Picture *each : {&copy, &picture, &expected}) each->Number(1);
                BitBlt(expected, 2 + dx, 2 + dy, 5, 6, copy, 2, 2, SRCCOPY);
                BitBlt(picture, 2 + dx, 2 + dy, 5, 6, picture, 2, 2, SRCCOPY);
                EXPECT_EQ(picture.Words(), expected.Words()) << dx << ", " << dy;
            }
        }
    }
    Picture picture(8, -1);
    picture.Number();
    StretchBlt(picture, 7, 0, -8, 1, picture, 0, 0, 8, 1, SRCCOPY);
    EXPECT_EQ(picture.Words(), (std::vector<uint32_t>{7, 6, 5, 4, 3, 2, 1, 0}));
    picture.Number();
    StretchBlt(picture, 0, 0, 8, 1, picture, 0, 0, 4, 1, SRCCOPY);
    EXPECT_EQ(picture.Words(), (std::vector<uint32_t>{0, 0, 1, 1, 2, 2, 3, 3}));
}

TEST(Blit, ConvertsBetweenDepths) {
    constexpr int kCount = 256;
    Picture words(kCount, -1), back(kCount, -1);
    for (int i = 0; i < kCount; ++i) words.At(i, 0) = 0xEE000000u + static_cast<uint32_t>(i) * 0x010305;
    for (const WORD depth : {WORD{16}, WORD{24}}) {
        Picture shallow(kCount, -1, depth);
        BitBlt(shallow, 0, 0, kCount, 1, words, 0, 0, SRCCOPY);
        back.Fill(0xFFFFFFFF);
        BitBlt(back, 0, 0, kCount, 1, shallow, 0, 0, SRCCOPY);
        for (int i = 0; i < kCount; ++i) {
            uint32_t expected = 0;
            for (int shift = 0; shift < 24; shift += 8) {
                const uint32_t byte = words.At(i, 0) >> shift & 0xFF;
                expected |= (depth == 24 ? byte : (byte & 0xF8) | byte >> 5) << shift;
            }
            EXPECT_EQ(back.At(i, 0), expected);
        }
    }

    const std::vector<RGBQUAD> colours = {{0, 0, 0, 0}, {10, 20, 30, 0}, {0xFF, 0xFF, 0xFF, 0}};
    Picture indices(3, -1, 8, colours);
    std::memcpy(indices.Bytes(), "\2\1\0", 3);
    BitBlt(back, 0, 0, 3, 1, indices, 0, 0, SRCCOPY);
    EXPECT_EQ(back.At(0, 0), 0xFFFFFFu);
    EXPECT_EQ(back.At(1, 0), 0x1E140Au);
    EXPECT_EQ(back.At(2, 0), 0u);
    Picture sameTable(3, -1, 8, colours);
    BitBlt(sameTable, 0, 0, 3, 1, indices, 0, 0, SRCCOPY);
    EXPECT_EQ(std::memcmp(sameTable.Bytes(), "\2\1\0", 3), 0);
    Picture otherTable(3, -1, 8, {{0xFF, 0xFF, 0xFF, 0}, {0, 0, 0, 0}});
    BitBlt(otherTable, 0, 0, 3, 1, words, 0, 0, BLACKNESS);
    indices.Bytes()[1] = 0;
    BitBlt(otherTable, 0, 0, 3, 1, indices, 0, 0, SRCCOPY);
    EXPECT_EQ(std::memcmp(otherTable.Bytes(), "\0\1\1", 3), 0);
}

// The index of the colour table's entry that is nearest to 0xRRGGBB, the first of several.
uint8_t Nearest(const std::vector<RGBQUAD> &colours, uint32_t colour) {
    const auto distanceTo = [colour](const RGBQUAD &entry) {
        const int r = entry.rgbRed - static_cast<int>(colour >> 16 & 0xFF);
        const int g = entry.rgbGreen - static_cast<int>(colour >> 8 & 0xFF);
        const int b = entry.rgbBlue - static_cast<int>(colour & 0xFF);
        return r * r + g * g + b * b;
    };
    const auto nearer = [&](const RGBQUAD &x, const RGBQUAD &y) { return distanceTo(x) < distanceTo(y); };
    return static_cast<uint8_t>(std::min_element(colours.begin(), colours.end(), nearer) - colours.begin());
}

TEST(Blit, TakesTheNearestEntryOfATable) {
    // True colours count as the middle of their upper five bits in every transfer but SetPixel; indices as their
    // colours.
    constexpr int kCount = 256;
    std::vector<RGBQUAD> ramp, sparse(kCount), others;
    for (uint32_t i = 0; i < kCount; ++i) {
        const auto byte = [i](uint32_t factor) { return static_cast<BYTE>(i * factor); };
        ramp.push_back(RGBQUAD{byte(1), byte(1), byte(1), 0});
        if (i < 7) sparse[i] = RGBQUAD{byte(89), byte(57), byte(35), 0};
        others.push_back(RGBQUAD{byte(3), byte(7), byte(5), 0});
    }
    const BLENDFUNCTION opaque{AC_SRC_OVER, 0, 255, 0};
    for (const std::vector<RGBQUAD> &table : {ramp, sparse}) {
        for (const WORD depth : {WORD{8}, WORD{16}, WORD{24}, WORD{32}}) {
            Picture source(kCount, -1, depth, others), picture(kCount, -1, 8, table);
            for (int i = 0; i < kCount * depth / 8; ++i) source.Bytes()[i] = static_cast<uint8_t>(i * 41 / (depth / 8));
            const BITMAPINFO header = HeaderOf(kCount, -1, depth);
            for (int drawing = depth == 8 ? 1 : 0; drawing < 5; ++drawing) {
                PatBlt(picture, 0, 0, kCount, 1, WHITENESS);
                switch (drawing) {
                    case 0:
                        SetDIBitsToDevice(picture, 0, 0, kCount, 1, 0, 0, 0, 1, source.Bytes(), &header,
                                          DIB_RGB_COLORS);
                        break;
                    case 1: BitBlt(picture, 0, 0, kCount, 1, source, 0, 0, SRCCOPY); break;
                    case 2: StretchBlt(picture, 0, 0, kCount, 1, source, 0, 0, kCount, -1, SRCCOPY); break;
                    case 3: GdiAlphaBlend(picture, 0, 0, kCount, 1, source, 0, 0, kCount, 1, opaque); break;
                    default:
                        for (int i = 0; i < kCount; ++i) SetPixel(picture, i, 0, GetPixel(source, i, 0));
                }
                const bool isExact = drawing == 4 || (depth == 8 && drawing != 3);
                for (int i = 0; i < kCount; ++i) {
                    const COLORREF pixel = GetPixel(source, i, 0);
                    const uint32_t colour = (pixel & 0xFF) << 16 | (pixel & 0xFF00) | pixel >> 16;
                    const uint32_t sought = isExact ? colour : (colour & 0xF8F8F8) | 0x040404;
                    ASSERT_EQ(picture.Bytes()[i], Nearest(table, sought))
                        << depth << " bits, drawing " << drawing << ", colour " << std::hex << colour;
                }
            }
        }
    }
}

TEST(Blit, MakesOneBitOfWhiteOrOfTheNearest) {
    // Between device contexts the source's value for white, alpha 0, becomes 1; elsewhere the nearest counts.
    Picture source(4, -1), back(4, -1);
    const uint32_t words[] = {0x00FFFFFF, 0xFFFFFFFF, 0x00808080, 0x007F7F7F};
    std::memcpy(source.Bytes(), words, sizeof(words));
    OwnedDC mono;
    const HBITMAP bits = CreateCompatibleBitmap(mono, 4, 1);
    const HGDIOBJ initial = SelectObject(mono, bits);
    const BITMAPINFO header = HeaderOf(4, -1, 32);
    const BLENDFUNCTION opaque{AC_SRC_OVER, 0, 255, 0};
    for (int drawing = 0; drawing < 3; ++drawing) {
        switch (drawing) {
            case 0: BitBlt(mono, 0, 0, 4, 1, source, 0, 0, SRCCOPY); break;
            case 1: GdiAlphaBlend(mono, 0, 0, 4, 1, source, 0, 0, 4, 1, opaque); break;
            default: SetDIBitsToDevice(mono, 0, 0, 4, 1, 0, 0, 0, 1, words, &header, DIB_RGB_COLORS);
        }
        BitBlt(back, 0, 0, 4, 1, mono, 0, 0, SRCCOPY);
        const uint32_t rest = drawing == 0 ? 0 : 0xFFFFFF;
        EXPECT_EQ(back.Words(), (std::vector<uint32_t>{0xFFFFFF, rest, rest, 0})) << drawing;
    }
    // Without white in a table its nearest colour takes its part.
    Picture indices(4, -1, 8, {{0, 0, 0, 0}, {0xC0, 0xD0, 0xE0, 0}, {0x80, 0x80, 0x80, 0}});
    std::memcpy(indices.Bytes(), "\0\1\2\1", 4);
    BitBlt(mono, 0, 0, 4, 1, indices, 0, 0, SRCCOPY);
    BitBlt(back, 0, 0, 4, 1, mono, 0, 0, SRCCOPY);
    EXPECT_EQ(back.Words(), (std::vector<uint32_t>{0, 0xFFFFFF, 0, 0xFFFFFF}));
    SelectObject(mono, initial);
    DeleteObject(bits);
}

TEST(Blit, FillsWithAllBits) {
    Picture picture(6, -2);
    picture.Fill(0x12345678);
    SetViewportOrgEx(picture, 1, 0, nullptr);
    EXPECT_NE(PatBlt(picture, 0, 1, 2, 1, WHITENESS), FALSE);
    EXPECT_NE(BitBlt(picture, 2, 1, 1, 9, nullptr, 0, 0, BLACKNESS), FALSE);
    const uint32_t old = 0x12345678;
    EXPECT_EQ(picture.Words(), (std::vector<uint32_t>{old, old, old, old, old, old, old, ~0u, ~0u, 0, old, old}));
    EXPECT_NE(PatBlt(picture, 4, 0, -3, -1, BLACKNESS), FALSE);
    EXPECT_EQ(picture.Words(), (std::vector<uint32_t>{old, old, old, 0, 0, 0, old, ~0u, ~0u, 0, old, old}));
    EXPECT_EQ(PatBlt(picture, 0, 0, 1, 1, SRCCOPY), FALSE);
    EXPECT_EQ(BitBlt(picture, 0, 0, 1, 1, nullptr, 0, 0, SRCCOPY), FALSE);
    EXPECT_NE(PatBlt(picture, 0, 0, 0, 5, BLACKNESS), FALSE);
}

}  // namespace
}  // namespace lacquer
