// What pixels become when they are drawn into bitmaps of another depth.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "gdi_objects.h"

namespace lacquer {
namespace {

constexpr int kCount = 256;
constexpr WORD kDepths[] = {8, 16, 24, 32};
constexpr BLENDFUNCTION kOpaque{AC_SRC_OVER, 0, 255, 0};

using Table = std::vector<RGBQUAD>;

Table RampOf(uint32_t blue, uint32_t green, uint32_t red, uint32_t count) {
    Table table(kCount);
    for (uint32_t i = 0; i < count; ++i) {
        const auto byte = [i](uint32_t factor) { return static_cast<BYTE>(i * factor); };
        table[i] = RGBQUAD{byte(blue), byte(green), byte(red), 0};
    }
    return table;
}

uint32_t RawAt(const Picture &picture, WORD depth, int x) {
    uint32_t raw = 0;
    std::memcpy(&raw, picture.Bytes() + x * (depth / 8), depth / 8u);
    return raw;
}

/// 0xRRGGBB of a stored pixel.
uint32_t ColourOf(WORD depth, const Table &table, uint32_t raw) {
    const auto wide = [raw](unsigned shift) { return (raw >> shift & 31) << 3 | (raw >> shift & 31) >> 2; };
    if (depth == 16) return wide(10) << 16 | wide(5) << 8 | wide(0);
    if (depth == 8) return uint32_t{table[raw].rgbRed} << 16 | uint32_t{table[raw].rgbGreen} << 8 | table[raw].rgbBlue;
    return raw & 0xFFFFFF;
}

/// What is stored of a colour; of a table the first of its nearest entries.
uint32_t RawOf(WORD depth, const Table &table, uint32_t colour) {
    if (depth == 16) return (colour >> 9 & 0x7C00) | (colour >> 6 & 0x03E0) | (colour >> 3 & 0x1F);
    if (depth > 16) return colour;
    const auto distanceTo = [&](const RGBQUAD &entry) {
        const int r = entry.rgbRed - static_cast<int>(colour >> 16 & 0xFF);
        const int g = entry.rgbGreen - static_cast<int>(colour >> 8 & 0xFF);
        const int b = entry.rgbBlue - static_cast<int>(colour & 0xFF);
        return r * r + g * g + b * b;
    };
    const auto nearer = [&](const RGBQUAD &x, const RGBQUAD &y) { return distanceTo(x) < distanceTo(y); };
    return static_cast<uint32_t>(std::min_element(table.begin(), table.end(), nearer) - table.begin());
}

enum Drawing { kSetDibBits, kBitBlt, kStretchBlt, kBlend, kSetPixel, kDrawings };

void Draw(Drawing drawing, const Picture &picture, const Picture &source, WORD depth, const Table &table) {
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colours[kCount];
    } info{HeaderOf(kCount, -1, depth).bmiHeader, {}};
    std::ranges::copy(table, info.colours);
    switch (drawing) {
        case kSetDibBits:
            SetDIBitsToDevice(picture, 0, 0, kCount, 1, 0, 0, 0, 1, source.Bytes(),
                              reinterpret_cast<const BITMAPINFO *>(&info), DIB_RGB_COLORS);
            break;
        case kBitBlt: BitBlt(picture, 0, 0, kCount, 1, source, 0, 0, SRCCOPY); break;
        case kStretchBlt: StretchBlt(picture, 0, 0, kCount, 1, source, 0, 0, kCount, -1, SRCCOPY); break;
        case kBlend: GdiAlphaBlend(picture, 0, 0, kCount, 1, source, 0, 0, kCount, 1, kOpaque); break;
        default:
            for (int i = 0; i < kCount; ++i) {
                const COLORREF result = SetPixel(picture, i, 0, GetPixel(source, i, 0));
                EXPECT_EQ(result, GetPixel(picture, i, 0));
            }
    }
}

TEST(Depth, EveryDrawingConverts) {
    // True colours count as the middle of their upper five bits where a table's entry is sought, in every transfer but
    // SetPixel; indices as their colours.
    const Table others = RampOf(3, 7, 5, kCount);
    for (const Table &table : {RampOf(1, 1, 1, kCount), RampOf(89, 57, 35, 7), others}) {
        for (const WORD from : kDepths) {
            const Picture source(kCount, -1, from, others);
            for (int i = 0; i < kCount * from / 8; ++i) source.Bytes()[i] = static_cast<uint8_t>(i * 41 / (from / 8));
            for (const WORD to : kDepths) {
                for (int drawing = 0; drawing < kDrawings; ++drawing) {
                    const Picture picture(kCount, -1, to, table);
                    Draw(static_cast<Drawing>(drawing), picture, source, from, others);
                    // A copy within a depth keeps bits that are no colour.
                    const bool isCopy = from == to && from > 8 && drawing < kBlend;
                    const bool isExact = to != 8 || drawing == kSetPixel || (from == 8 && drawing != kBlend);
                    for (int i = 0; i < kCount; ++i) {
                        const uint32_t raw = RawAt(source, from, i), colour = ColourOf(from, others, raw);
                        const uint32_t sought = isExact ? colour : (colour & 0xF8F8F8) | 0x040404;
                        const uint32_t alpha = drawing != kBlend || to != 32 ? 0 : from == 32 ? raw >> 24 : 255;
                        const uint32_t expected = isCopy ? raw : RawOf(to, table, sought) | alpha << 24;
                        ASSERT_EQ(RawAt(picture, to, i), expected) << from << " to " << to << " bits, drawing "
                                                                   << drawing << ", colour " << std::hex << colour;
                    }
                }
            }
        }
    }
    // Equal tables keep indices whose colours come twice.
    const Table twice = {{0, 0, 0, 0}, {9, 9, 9, 0}, {9, 9, 9, 0}};
    const Picture source(1, -1, 8, twice), same(1, -1, 8, twice);
    source.Bytes()[0] = 2;
    BitBlt(same, 0, 0, 1, 1, source, 0, 0, SRCCOPY);
    EXPECT_EQ(same.Bytes()[0], 2);
}

TEST(Depth, OneBitIsWhiteOrTheNearest) {
    // Between device contexts the source's value for white, alpha 0, becomes 1; elsewhere the nearest counts.
    const Picture source(4, -1), back(4, -1);
    const std::vector<uint32_t> words = {0x00FFFFFF, 0xFFFFFFFF, 0x00808080, 0x007F7F7F};
    std::memcpy(source.Bytes(), words.data(), 16);
    const OwnedDC mono;
    const HBITMAP bits = CreateCompatibleBitmap(mono, 4, 1);
    const HGDIOBJ initial = SelectObject(mono, bits);
    const BITMAPINFO header = HeaderOf(4, -1, 32);
    const auto drawn = [&] {
        BitBlt(back, 0, 0, 4, 1, mono, 0, 0, SRCCOPY);
        return back.Words();
    };
    const uint32_t white = 0xFFFFFF;
    BitBlt(mono, 0, 0, 4, 1, source, 0, 0, SRCCOPY);
    EXPECT_EQ(drawn(), (std::vector<uint32_t>{white, 0, 0, 0}));
    const std::vector<uint32_t> nearest = {white, white, white, 0};
    GdiAlphaBlend(mono, 0, 0, 4, 1, source, 0, 0, 4, 1, kOpaque);
    EXPECT_EQ(drawn(), nearest);
    PatBlt(mono, 0, 0, 4, 1, BLACKNESS);
    SetDIBitsToDevice(mono, 0, 0, 4, 1, 0, 0, 0, 1, words.data(), &header, DIB_RGB_COLORS);
    EXPECT_EQ(drawn(), nearest);
    EXPECT_EQ(SetPixel(mono, 3, 0, 0xF0F0F0), white);
    EXPECT_EQ(GetPixel(mono, 3, 0), white);
    // Without white in a table its nearest colour takes its part.
    const Picture indices(4, -1, 8, {{0, 0, 0, 0}, {0xC0, 0xD0, 0xE0, 0}, {0x80, 0x80, 0x80, 0}});
    std::memcpy(indices.Bytes(), "\0\1\2\1", 4);
    BitBlt(mono, 0, 0, 4, 1, indices, 0, 0, SRCCOPY);
    EXPECT_EQ(drawn(), (std::vector<uint32_t>{0, white, 0, white}));
    SelectObject(mono, initial);
    DeleteObject(bits);
}

}  // namespace
}  // namespace lacquer
