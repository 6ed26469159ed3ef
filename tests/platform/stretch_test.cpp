// StretchBlt: which source pixels a destination pixel is made of.
#include <gtest/gtest.h>

#include <algorithm>

#include "gdi_objects.h"

namespace lacquer {
namespace {

struct Span {
    int first, last;
};

// The source pixels of destination pixel n. Stretching takes the pixel in which the centre of n lies; shrinking gives a
// source pixel to the destination pixel in which its centre lies. A centre on an edge belongs to the lower pixel.
Span Expected(int n, int sourceLength, int destLength) {
    const auto lies = [](int centreTwice, int of, int pixel, int unit) {
        return centreTwice * of > pixel * 2 * unit && centreTwice * of <= (pixel + 1) * 2 * unit;
    };
    Span span{-1, -1};
    for (int i = 0; i < sourceLength; ++i) {
        const bool belongs = destLength >= sourceLength ? lies(2 * n + 1, sourceLength, i, destLength)
                                                        : lies(2 * i + 1, destLength, n, sourceLength);
        if (!belongs) continue;
        if (span.first < 0) span.first = i;
        span.last = i;
    }
    return span;
}

// Shrinking to one pixel leaves the last source pixel out, unless either side is mirrored.
int DrawnLength(int sourceLength, int destLength) {
    return destLength == 1 && sourceLength > 1 ? sourceLength - 1 : sourceLength;
}

constexpr int kMost = 17;

// Runs `check(sourceLength, destLength, isSourceMirrored, isDestMirrored)` over all lengths.
template <typename Check>
void ForAllLengths(Check check) {
    for (int sourceLength = 1; sourceLength <= kMost; ++sourceLength) {
        for (int destLength = 1; destLength <= kMost; ++destLength) {
            for (int mirrors = 0; mirrors < 4; ++mirrors)
                check(sourceLength, destLength, (mirrors & 1) != 0, mirrors > 1);
        }
    }
}

TEST(Stretch, PicksTheLastPixelOfARowAndTheFirstOfAColumn) {
    // The other axis shrinks, grows or stays.
    constexpr struct { int source, dest; } kAcross[] = {{8, 5}, {3, 7}, {1, 1}, {4, 1}};
    Picture source(kMost, -kMost);
    source.Number(100);
    Picture picture(kMost, -kMost);
    SetStretchBltMode(picture, COLORONCOLOR);
    ForAllLengths([&](int sourceLength, int destLength, bool sourceMirrored, bool destMirrored) {
        const int from = sourceMirrored ? sourceLength - 1 : 0, to = destMirrored ? destLength - 1 : 0;
        const int signedSource = sourceMirrored ? -sourceLength : sourceLength;
        const int signedDest = destMirrored ? -destLength : destLength;
        for (const auto &across : kAcross) {
            for (const bool vertical : {false, true}) {
                picture.Fill(1);
                ASSERT_NE(vertical ? StretchBlt(picture, 0, to, across.dest, signedDest, source, 0, from, across.source,
                                                signedSource, SRCCOPY)
                                   : StretchBlt(picture, to, 0, signedDest, across.dest, source, from, 0, signedSource,
                                                across.source, SRCCOPY),
                          FALSE);
                std::vector<uint32_t> expected(kMost * kMost, 1);
                for (int i = 0; i < destLength * across.dest; ++i) {
                    const int along = i / across.dest, side = i % across.dest;
                    const bool isMirrored = sourceMirrored || destMirrored;
                    const int drawn = isMirrored ? sourceLength : DrawnLength(sourceLength, destLength);
                    const Span span = Expected(along, drawn, destLength);
                    const Span other = Expected(side, DrawnLength(across.source, across.dest), across.dest);
                    const int number = vertical ? span.first : span.last;
                    const int pixel = sourceMirrored ? from - number : number, at = destMirrored ? to - along : along;
                    expected[static_cast<size_t>(vertical ? at * kMost + side : side * kMost + at)] =
                        static_cast<uint32_t>(100 +
                                              (vertical ? pixel * kMost + other.last : other.first * kMost + pixel));
                }
                ASSERT_EQ(picture.Words(), expected)
                    << sourceLength << " to " << destLength << " vertical " << vertical;
            }
        }
    });
}

TEST(Stretch, BlackOnWhiteAndWhiteOnBlackMergePixels) {
    // Each column and each row clears (sets) a bit of its own.
    Picture source(kMost, -kMost), picture(kMost, -kMost);
    for (const int mode : {BLACKONWHITE, WHITEONBLACK}) {
        SetStretchBltMode(picture, mode);
        const uint32_t flip = mode == BLACKONWHITE ? ~0u : 0u;
        // The other axis shrinks from three pixels to two, or stays.
        for (const int across : {2, 3, -2, -3}) {
            const bool vertical = across < 0;
            for (int y = 0; y < kMost; ++y) {
                for (int x = 0; x < kMost; ++x) source.At(x, y) = flip ^ (1u << (vertical ? y : x));
            }
            ForAllLengths([&](int sourceLength, int destLength, bool sourceMirrored, bool destMirrored) {
                if (sourceMirrored || destMirrored) return;
                if (vertical) {
                    StretchBlt(picture, 0, 0, -across, destLength, source, 0, 0, 3, sourceLength, SRCCOPY);
                } else {
                    StretchBlt(picture, 0, 0, destLength, across, source, 0, 0, sourceLength, 3, SRCCOPY);
                }
                for (int n = 0; n < destLength; ++n) {
                    const Span span = Expected(n, DrawnLength(sourceLength, destLength), destLength);
                    uint32_t bits = 0;
                    for (int i = span.first; i <= span.last; ++i) bits |= 1u << i;
                    ASSERT_EQ(vertical ? picture.At(0, n) : picture.At(n, 0), flip ^ bits)
                        << sourceLength << " to " << destLength << " pixel " << n << " vertical " << vertical;
                }
            });
        }
    }
}

TEST(Stretch, MirrorsAPartOfASourceWhereItLies) {
    // What lies in the bitmap of a source that leaves it is mirrored where it would be drawn without mirroring. Growing
    // by whole factors puts it on whole pixels; the other axis grows, so that plain copies count as stretches too.
    constexpr int kSize = 5, kLength = 4;
    Picture source(kSize, -kSize), picture(kMost, -kMost);
    source.Number(100);
    for (const bool vertical : {false, true}) {
        for (const bool sourceMirrored : {false, true}) {
            for (int factor = 1; factor <= 4; ++factor) {
                for (int low = -3; low < kSize; ++low) {
                    const int length = kLength * factor, from = sourceMirrored ? low + kLength - 1 : low;
                    const int at = sourceMirrored ? 0 : length - 1, signedLength = sourceMirrored ? length : -length;
                    const int signedSource = sourceMirrored ? -kLength : kLength;
                    picture.Fill(1);
                    EXPECT_NE(
                        vertical
                            ? StretchBlt(picture, 0, at, 3, signedLength, source, 0, from, 2, signedSource, SRCCOPY)
                            : StretchBlt(picture, at, 0, signedLength, 3, source, from, 0, signedSource, 2, SRCCOPY),
                        FALSE);
                    const int first = std::max(low, 0), last = std::min(low + kLength, kSize) - 1;
                    // A source that begins one pixel beyond the bitmap and goes back counts as inside.
                    const bool isInside = low >= 0 && low + kLength <= kSize + (sourceMirrored ? 1 : 0);
                    for (int i = 0; i < length; ++i) {
                        const int pixel = isInside ? low + kLength - 1 - i / factor : first + last - (low + i / factor);
                        const bool isDrawn = pixel >= first && pixel <= last;
                        ASSERT_EQ(vertical ? picture.At(0, i) : picture.At(i, 0),
                                  isDrawn ? 100u + static_cast<uint32_t>(pixel * (vertical ? kSize : 1)) : 1u)
                            << factor << " times from " << low << " pixel " << i << (vertical ? " vertical" : "");
                    }
                }
            }
        }
    }
}

TEST(Stretch, ClippingChangesNoPixel) {
    Picture source(30, -30);
    source.Number(1);
    Picture whole(40, -40), part(13, -11);
    SetStretchBltMode(whole, COLORONCOLOR);
    SetStretchBltMode(part, COLORONCOLOR);
    for (int width = 2; width <= 40; width += 3) {
        for (int height = 2; height <= 40; height += 7) {
            whole.Fill(0);
            part.Fill(0);
            StretchBlt(whole, 0, 0, width, height, source, 5, 3, 19, 23, SRCCOPY);
            StretchBlt(part, -7, -9, width, height, source, 5, 3, 19, 23, SRCCOPY);
            for (int y = 0; y < 11; ++y) {
                for (int x = 0; x < 13; ++x)
                    ASSERT_EQ(part.At(x, y), whole.At(x + 7, y + 9)) << width << ", " << height;
            }
        }
    }
}

TEST(Stretch, WithoutASizeDrawsNothing) {
    Picture source(4, -4);
    source.Fill(9);
    Picture picture(4, -4);
    EXPECT_NE(StretchBlt(picture, 0, 0, 0, 4, source, 0, 0, 4, 4, SRCCOPY), FALSE);
    EXPECT_NE(StretchBlt(picture, 0, 0, 4, 4, source, 0, 0, 4, 0, SRCCOPY), FALSE);
    EXPECT_NE(StretchBlt(picture, 0, 0, 4, 4, source, 50, 0, 4, 4, SRCCOPY), FALSE);
    EXPECT_EQ(picture.Words(), std::vector<uint32_t>(16));
    EXPECT_EQ(StretchBlt(picture, 0, 0, 4, 4, nullptr, 0, 0, 4, 4, SRCCOPY), FALSE);
}

TEST(Stretch, ConvertsWhileItScales) {
    Picture source(2, -1, 24);
    for (int i = 0; i < 6; ++i) source.Bytes()[i] = static_cast<uint8_t>(0x10 * (i + 1));
    Picture picture(4, -2);
    picture.Fill(0xFFFFFFFF);
    StretchBlt(picture, 0, 0, 4, 2, source, 0, 0, 2, 1, SRCCOPY);
    const uint32_t left = 0x302010, right = 0x605040;
    EXPECT_EQ(picture.Words(), (std::vector<uint32_t>{left, left, right, right, left, left, right, right}));
}

}  // namespace
}  // namespace lacquer
