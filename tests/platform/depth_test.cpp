// What pixels become when they are drawn into bitmaps of another depth.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "record.h"

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

TEST(Depth, EveryDrawingConvertsAsTheSystems) {
    // True colours count as the middle of their upper five bits where a table's entry is sought, in every transfer but
    // SetPixel; indices as their colours. A copy within a depth keeps bits that are no colour.
    constexpr uint64_t kCopied = 0x5FD320A10AEF8826;
    constexpr uint64_t kDigests[kDrawings] = {kCopied, kCopied, kCopied, 0xE543490BFEAC8DB5, 0xC2062CC06DC42C8F};
    const Table others = RampOf(3, 7, 5, kCount);
    for (int drawing = 0; drawing < kDrawings; ++drawing) {
        Record record;
        for (const Table &table : {RampOf(1, 1, 1, kCount), RampOf(89, 57, 35, 7), others}) {
            for (const WORD from : kDepths) {
                const Picture source(kCount, -1, from, others);
                for (int i = 0; i < kCount * from / 8; ++i) {
                    source.Bytes()[i] = static_cast<uint8_t>(i * 41 / (from / 8));
                }
                for (const WORD to : kDepths) {
                    const Picture picture(kCount, -1, to, table);
                    Draw(static_cast<Drawing>(drawing), picture, source, from, others);
                    record.Add({picture.Bytes(), picture.Bytes() + kCount * to / 8});
                }
            }
        }
        EXPECT_EQ(record.Digest(), kDigests[drawing]) << "drawing " << drawing;
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
