// Transfers, fills, blends and single pixels: at any place, of any size, either way round, under any origins and clip,
// pixel by pixel against a model.
#include <gtest/gtest.h>

#include <optional>

#include "model.h"

namespace lacquer {
namespace {

constexpr uint32_t kAlpha = 77;

/// A row of words for each row of the source that belongs to a pixel.
using Words = std::vector<std::vector<uint32_t>>;

uint32_t PickOne(const Words &words, uint32_t) { return words.front().back(); }

template <bool isAnd>
uint32_t Merge(const Words &words, uint32_t) {
    uint32_t merged = isAnd ? ~0u : 0u;
    for (const auto &row : words) {
        for (const uint32_t word : row) merged = isAnd ? merged & word : merged | word;
    }
    return merged;
}

BOOL StretchAll(HDC to, const Stretch &x, const Stretch &y, HDC from) {
    return StretchBlt(to, x.dest, y.dest, x.destLength, y.destLength, from, x.source, y.source, x.sourceLength,
                      y.sourceLength, SRCCOPY);
}
BOOL BlendAll(HDC to, const Stretch &x, const Stretch &y, HDC from) {
    return GdiAlphaBlend(to, x.dest, y.dest, x.destLength, y.destLength, from, x.source, y.source, x.sourceLength,
                         y.sourceLength, BLENDFUNCTION{AC_SRC_OVER, 0, BYTE{kAlpha}, 0});
}
BOOL SetAll(HDC to, const Stretch &x, const Stretch &y, HDC from) {
    const int stepX = x.destLength < 0 ? -1 : 1, stepY = y.destLength < 0 ? -1 : 1;
    for (int i = 0; i != x.destLength; i += stepX) {
        for (int k = 0; k != y.destLength; k += stepY) {
            const COLORREF colour = GetPixel(from, x.source + i, y.source + k);
            if (colour == CLR_INVALID) continue;
            const COLORREF result = SetPixel(to, x.dest + i, y.dest + k, colour);
            EXPECT_TRUE(result == colour || !PtVisible(to, x.dest + i, y.dest + k));
        }
    }
    return TRUE;
}

/// What may be asked: anything of a stretch, one pixel for each pixel of a copy or fill, a source that lies inside of a
/// blend. The first two may draw onto their own source.
enum class Kind { kStretch, kCopy, kFill, kBlend };

const struct Draw {
    const char *name;
    Kind kind;
    int stretchMode;
    BOOL (*call)(HDC to, const Stretch &x, const Stretch &y, HDC from);
    /// The word that comes of the source's words, of which there are some, and the word before.
    uint32_t (*model)(const Words &words, uint32_t before);
} kDraws[] = {
    {"StretchBlt, and", Kind::kStretch, BLACKONWHITE, StretchAll, Merge<true>},
    {"StretchBlt, or", Kind::kStretch, WHITEONBLACK, StretchAll, Merge<false>},
    {"StretchBlt", Kind::kStretch, COLORONCOLOR, StretchAll, PickOne},
    {"BitBlt", Kind::kCopy, BLACKONWHITE,
     [](HDC to, const Stretch &x, const Stretch &y, HDC from) {
         return BitBlt(to, x.dest, y.dest, x.destLength, y.destLength, from, x.source, y.source, SRCCOPY);
     },
     PickOne},
    {"GdiAlphaBlend", Kind::kBlend, COLORONCOLOR, BlendAll,
     [](const Words &words, uint32_t before) { return Blended(words.front().back(), before, kAlpha, false); }},
    {"PatBlt", Kind::kFill, COLORONCOLOR,
     [](HDC to, const Stretch &x, const Stretch &y, HDC) {
         return PatBlt(to, x.dest, y.dest, x.destLength, y.destLength, WHITENESS);
     },
     [](const Words &, uint32_t) { return ~0u; }},
    {"BitBlt of nothing", Kind::kFill, COLORONCOLOR,
     [](HDC to, const Stretch &x, const Stretch &y, HDC) {
         return BitBlt(to, x.dest, y.dest, x.destLength, y.destLength, nullptr, 0, 0, BLACKNESS);
     },
     [](const Words &, uint32_t) { return 0u; }},
    {"SetPixel and GetPixel", Kind::kFill, COLORONCOLOR, SetAll,
     [](const Words &words, uint32_t) { return words[0][0] & 0xFFFFFF; }},
};

/// Somewhere on an axis of a source of `limit` pixels, as a rule partly beside it.
Stretch AnyStretch(Random &random, Kind kind, int limit) {
    Stretch axis{random.Between(-3, 12), random.Between(1, 17), random.Between(-4, limit + 2),
                 random.Between(1, limit)};
    if (kind == Kind::kBlend) axis.source = random.Between(0, limit - axis.sourceLength);
    if (kind == Kind::kBlend) return axis;
    if (kind == Kind::kFill) axis.source = 0, axis.destLength = random.Between(1, limit);
    if (kind != Kind::kStretch) axis.sourceLength = axis.destLength;
    const bool turnsDest = random.Coin(), turnsSource = kind == Kind::kStretch ? random.Coin() : turnsDest;
    if (turnsDest != turnsSource && (axis.source < 0 || axis.source + axis.sourceLength > limit)) {
        axis.sourceLength = random.Between(1, 5);
        axis.destLength = axis.sourceLength * random.Between(1, 4);
    }
    if (turnsDest) axis.dest += axis.destLength - 1, axis.destLength = -axis.destLength;
    if (turnsSource) axis.source += axis.sourceLength - 1, axis.sourceLength = -axis.sourceLength;
    return axis;
}

/// Moves the origins of a context by (dx, dy) in all.
void SetOrigins(HDC dc, int dx, int dy) {
    SetViewportOrgEx(dc, dx - 5, dy + 1, nullptr);
    SetWindowOrgEx(dc, -5, 1, nullptr);
}

/// Draws at random, onto another picture or onto the source itself.
void ExpectLikeModel(Random &random, const Draw &draw, bool isOntoItself) {
    const Picture other(14, random.Coin() ? 12 : -12), source(17, random.Coin() ? 15 : -15);
    const Picture &picture = isOntoItself ? source : other;
    other.Number(0x20000000);
    source.Number(0xA0000000);
    Points clip(RECT{0, 0, picture.Width(), picture.Height()});
    // Under several rectangles the system's own draws onto their source go wrong.
    if (!isOntoItself || !kIsSystem) {
        clip = random.Shape().Combined(Points({2, 2, 9, 9}), RGN_OR);
        SelectClipRgn(picture, clip.Region());
    }
    SetStretchBltMode(picture, draw.stretchMode);
    const bool isBlt = draw.kind != Kind::kBlend;
    Stretch x = AnyStretch(random, draw.kind, source.Width()), y = AnyStretch(random, draw.kind, source.Height());
    const std::vector<uint32_t> from = source.Words();
    std::vector<uint32_t> expected = picture.Words();
    std::vector<std::vector<int>> columns;
    for (int column = 0; column < picture.Width(); ++column) {
        columns.push_back(x.PixelsOf(column, source.Width(), isBlt));
    }
    for (int row = 0; row < picture.Height(); ++row) {
        const std::vector<int> rows = y.PixelsOf(row, source.Height(), isBlt);
        for (int column = 0; column < picture.Width(); ++column) {
            const std::vector<int> &inRow = columns[static_cast<size_t>(column)];
            if (!clip.Has(column, row) || rows.empty() || inRow.empty()) continue;
            Words words;
            for (const int sourceY : rows) {
                words.emplace_back();
                for (const int sourceX : inRow) words.back().push_back(from[source.IndexOf(sourceX, sourceY)]);
            }
            uint32_t &word = expected[picture.IndexOf(column, row)];
            word = draw.model(words, word);
        }
    }
    // From here on in logical coordinates.
    const int dx = random.Between(-3, 3), dy = random.Between(-3, 3);
    SetOrigins(source, 2, -1);
    SetOrigins(picture, dx, dy);
    x.dest -= dx, x.source -= isOntoItself ? dx : 2;
    y.dest -= dy, y.source -= isOntoItself ? dy : -1;
    const bool isDrawn = expected != picture.Words();
    EXPECT_TRUE(draw.call(picture, x, y, source) != FALSE || (kIsSystem && !isDrawn));
    ASSERT_EQ(picture.Words(), expected);
}

TEST(Drawing, IsLikeTheModel) {
    Random random(3);
    for (int round = 0; round < 2500; ++round) {
        for (const Draw &draw : kDraws) {
            SCOPED_TRACE(testing::Message() << "round " << round << ", " << draw.name);
            ExpectLikeModel(random, draw, draw.kind <= Kind::kCopy && round % 7 == 0);
            if (::testing::Test::HasFailure()) return;
        }
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
