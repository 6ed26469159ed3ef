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

void Draw(Drawing drawing, HDC picture, const Picture &source, WORD depth, const Table &table) {
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
            for (int i = 0; i < kCount; ++i) SetPixel(picture, i, 0, GetPixel(source, i, 0));
    }
}

TEST(Depth, EveryDrawingConvertsAsTheSystems) {
    // True colours count as the middle of their upper five bits where a table's entry is sought, in every transfer but
    // SetPixel; indices as their colours. A copy within a depth keeps bits that are no colour. Between device contexts
    // the source's value for white, alpha 0, becomes 1 in a bitmap of one bit; elsewhere the nearest counts.
    constexpr uint64_t kDigests[kDrawings] = {0x84E63362119E98B5, 0xD249B171282561CC, 0xD249B171282561CC,
                                              0xC9CB5DCF74EED168, 0x7C7EF7ABC0869299};
    const Table others = RampOf(3, 7, 5, kCount);
    const OwnedDC mono;
    const Picture back(kCount, -1);
    const HBITMAP bits = CreateCompatibleBitmap(mono, kCount, 1);
    const HGDIOBJ initial = SelectObject(mono, bits);
    for (int drawing = 0; drawing < kDrawings; ++drawing) {
        Record record;
        for (const Table &table : {RampOf(1, 1, 1, kCount), RampOf(89, 57, 35, 7), others}) {
            for (const WORD from : kDepths) {
                const Picture source(kCount, -1, from, others);
                for (int i = 0; i < kCount * from / 8; ++i) {
                    source.Bytes()[i] = static_cast<uint8_t>(i * 41 / (from / 8));
                }
                std::memcpy(source.Bytes(), "\xFF\xFF\xFF\0\xFF\xFF\xFF\xFF", 8);
                Draw(static_cast<Drawing>(drawing), mono, source, from, others);
                BitBlt(back, 0, 0, kCount, 1, mono, 0, 0, SRCCOPY);
                record.Add(back.Words());
                for (const WORD to : kDepths) {
                    const Picture picture(kCount, -1, to, table);
                    Draw(static_cast<Drawing>(drawing), picture, source, from, others);
                    record.Add({picture.Bytes(), picture.Bytes() + kCount * to / 8});
                }
            }
        }
        EXPECT_EQ(record.Digest(), kDigests[drawing]) << "drawing " << drawing;
    }
    SelectObject(mono, initial);
    DeleteObject(bits);
    // Equal tables keep indices whose colours come twice.
    const Table twice = {{0, 0, 0, 0}, {9, 9, 9, 0}, {9, 9, 9, 0}};
    const Picture source(1, -1, 8, twice), same(1, -1, 8, twice);
    source.Bytes()[0] = 2;
    BitBlt(same, 0, 0, 1, 1, source, 0, 0, SRCCOPY);
    EXPECT_EQ(same.Bytes()[0], 2);
}

}  // namespace
}  // namespace lacquer
