// Transfers, fills, blends and single pixels: at any place, of any size, either way round, under any origins and clip.
#include <gtest/gtest.h>

#include "record.h"

namespace lacquer {
namespace {

/// One axis of a stretch; negative lengths go backwards.
struct Stretch {
    int dest, destLength, source, sourceLength;
};

/// What is drawn. A stretch's number is its mode.
enum Drawing {
    kAnd = BLACKONWHITE,
    kOr = WHITEONBLACK,
    kPick = COLORONCOLOR,
    kCopy,
    kBlend,
    kFill,
    kBlank,
    kPixels,
    kDrawings
};

BOOL Draw(Drawing drawing, HDC to, const Stretch &x, const Stretch &y, HDC from) {
    switch (drawing) {
        case kCopy: return BitBlt(to, x.dest, y.dest, x.destLength, y.destLength, from, x.source, y.source, SRCCOPY);
        case kBlend:
            return GdiAlphaBlend(to, x.dest, y.dest, x.destLength, y.destLength, from, x.source, y.source,
                                 x.sourceLength, y.sourceLength, BLENDFUNCTION{AC_SRC_OVER, 0, 77, 0});
        case kFill: return PatBlt(to, x.dest, y.dest, x.destLength, y.destLength, WHITENESS);
        case kBlank: return BitBlt(to, x.dest, y.dest, x.destLength, y.destLength, nullptr, 0, 0, BLACKNESS);
        case kPixels:
            for (int i = 0; i < x.sourceLength; ++i) {
                for (int k = 0; k < y.sourceLength; ++k) {
                    const COLORREF colour = GetPixel(from, x.source + i, y.source + k);
                    if (colour == CLR_INVALID) continue;
                    const COLORREF result = SetPixel(to, x.dest + i, y.dest + k, colour);
                    EXPECT_TRUE(result == colour || !PtVisible(to, x.dest + i, y.dest + k));
                }
            }
            return TRUE;
        default:
            SetStretchBltMode(to, drawing);
            return StretchBlt(to, x.dest, y.dest, x.destLength, y.destLength, from, x.source, y.source, x.sourceLength,
                              y.sourceLength, SRCCOPY);
    }
}

/// Somewhere on an axis of a source of `limit` pixels, as a rule partly beside it: anything for a stretch, one pixel
/// for each pixel of a copy or fill, a source that lies inside for a blend. A mirrored part of a source has to grow by
/// a whole factor: else the system's own stretches go wrong.
Stretch AnyStretch(Random &random, Drawing drawing, int limit) {
    Stretch axis{random.Between(-3, 12), random.Between(1, 17), random.Between(-4, limit + 2),
                 random.Between(1, limit)};
    if (drawing == kBlend) axis.source = random.Between(0, limit - axis.sourceLength);
    if (drawing == kBlend || drawing == kPixels) return axis;
    if (drawing > kPick) axis.sourceLength = axis.destLength;
    const bool turnsDest = random.Coin(), turnsSource = drawing > kPick ? turnsDest : random.Coin();
    if (turnsDest != turnsSource && (axis.source < 0 || axis.source + axis.sourceLength > limit)) {
        axis.sourceLength = random.Between(1, 5);
        axis.destLength = axis.sourceLength * random.Between(1, 4);
    }
    if (turnsDest) axis.dest += axis.destLength - 1, axis.destLength = -axis.destLength;
    if (turnsSource) axis.source += axis.sourceLength - 1, axis.sourceLength = -axis.sourceLength;
    return axis;
}

/// Draws at random, onto another picture or onto the source itself.
void DrawOnce(Random &random, Drawing drawing, bool isOntoItself, Record &record) {
    const Picture other(14, random.Coin() ? 12 : -12), source(17, random.Coin() ? 15 : -15);
    const Picture &picture = isOntoItself ? source : other;
    other.Number(0x20000000);
    source.Number(0xA0000000);
    // Under several rectangles the system's own draws onto their source go wrong.
    if (!isOntoItself) SelectClipRgn(picture, random.Shape({2, 2, 9, 9}));
    Stretch x = AnyStretch(random, drawing, source.Width()), y = AnyStretch(random, drawing, source.Height());
    SetViewportOrgEx(other, -3, random.Between(-2, 2), nullptr);
    SetWindowOrgEx(other, -5, 1, nullptr);
    SetViewportOrgEx(source, 2, -1, nullptr);
    x.source -= 2, y.source += 1;
    EXPECT_TRUE(Draw(drawing, picture, x, y, source) != FALSE || kIsSystem);
    record.Add(picture.Words());
}

TEST(Drawing, ProgramsAreLikeTheSystems) {
    constexpr uint64_t kDigests[kDrawings] = {0,
                                              0xAEB21B60A04510AF,
                                              0x16AA575A3EF07390,
                                              0xD2B86FB3DA040854,
                                              0xD36F8AC2AC5ED5EA,
                                              0x47E5CACFBD3721F4,
                                              0x2F21D1A07FD88560,
                                              0x2D512EED0ECD917A,
                                              0xA0733120F531E0BB};
    Random random(3);
    for (int drawing = kAnd; drawing < kDrawings; ++drawing) {
        Record record;
        for (int round = 0; round < 2500; ++round) {
            DrawOnce(random, static_cast<Drawing>(drawing), drawing <= kCopy && round % 7 == 0, record);
        }
        EXPECT_EQ(record.Digest(), kDigests[drawing]) << "drawing " << drawing;
    }
}

TEST(Drawing, WithoutASizeOrAWayIsNone) {
    const Picture source(4, -4), picture(4, -4);
    source.Fill(9);
    EXPECT_NE(StretchBlt(picture, 0, 0, 0, 4, source, 0, 0, 4, 4, SRCCOPY), FALSE);
    EXPECT_NE(StretchBlt(picture, 0, 0, 4, 4, source, 0, 0, 4, 0, SRCCOPY), FALSE);
    EXPECT_NE(StretchBlt(picture, 0, 0, 4, 4, source, 50, 0, 4, 4, SRCCOPY), FALSE);
    EXPECT_NE(PatBlt(picture, 0, 0, 0, 5, WHITENESS), FALSE);
    EXPECT_EQ(PatBlt(picture, 0, 0, 1, 1, SRCCOPY), FALSE);
    EXPECT_EQ(StretchBlt(picture, 0, 0, 4, 4, nullptr, 0, 0, 2, 2, SRCCOPY), FALSE);
    EXPECT_EQ(picture.Words(), std::vector<uint32_t>(16));
}

}  // namespace
}  // namespace lacquer
