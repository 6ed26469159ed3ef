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
enum Drawing { kAnd = BLACKONWHITE, kOr, kPick, kCopy, kBlend, kFill, kBlank, kPixels, kDrawings };

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
/// for each pixel of a copy or fill, a source that mostly
/// lies inside for a blend, which else is none. A mirrored part of a source has to grow by
/// a whole factor: else the system's own stretches go wrong.
Stretch AnyStretch(Random &random, Drawing drawing, int limit) {
    Stretch axis{random.Between(-3, 12), random.Between(0, 17), random.Between(-4, limit + 2),
                 random.Between(1, limit)};
    const bool isInside = drawing == kBlend && random.Between(0, 3) > 0;
    if (isInside) axis.source = random.Between(0, limit - axis.sourceLength);
    if (isInside || drawing == kPixels) return axis;
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
    EXPECT_TRUE(Draw(drawing, picture, x, y, source) != FALSE || drawing == kBlend || kIsSystem);
    record.Add(picture.Words());
}

TEST(Drawing, ProgramsAreLikeTheSystems) {
    constexpr uint64_t kDigests[kDrawings] = {0,
                                              0x6D42818718D77B4C,
                                              0x6651842AC56B0F6C,
                                              0x25A447CB50AE1C9E,
                                              0xD5ED61AADC7B2AF9,
                                              0xED6CEA781E5ED5E6,
                                              0x819E057E21B94427,
                                              0xD57342F68D732263,
                                              0x4A1CD6F38292BA79};
    Random random(3);
    for (int drawing = kAnd; drawing < kDrawings; ++drawing) {
        Record record;
        for (int round = 0; round < 2500; ++round) {
            DrawOnce(random, static_cast<Drawing>(drawing), drawing <= kBlend && round % 7 == 0, record);
        }
        EXPECT_EQ(record.Digest(), kDigests[drawing]) << "drawing " << drawing;
    }
}

}  // namespace
}  // namespace lacquer
