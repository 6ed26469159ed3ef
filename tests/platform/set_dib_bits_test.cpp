// SetDIBitsToDevice: row order, bands of rows, placement and clipping. Other depths are tested with those of all draws.
#include <gtest/gtest.h>

#include <algorithm>

#include "model.h"

namespace lacquer {
namespace {

constexpr int kWidth = 6;
constexpr int kSize = 12;

// A band of rows and where it is drawn; the picture has `height` rows in all.
struct Band {
    int x, y;
    DWORD width, height;
    int sourceX, sourceY;
    UINT startScan, lines;
    int pictureHeight;
};

uint32_t PixelOf(UINT rowInMemory, int column) {
    return 0xC0000001u + (rowInMemory << 8) + static_cast<uint32_t>(column);
}

int Draw(HDC dc, const Band &band, bool topDown) {
    // No more rows than the picture has, so that a sanitizer sees reading beyond.
    const auto height = static_cast<UINT>(band.pictureHeight);
    const UINT rows = std::min(band.lines, topDown ? height : height - std::min(height, band.startScan));
    std::vector<uint32_t> bits;
    for (UINT row = 0; row < std::max(rows, 1u); ++row) {
        for (int column = 0; column < kWidth; ++column) bits.push_back(PixelOf(row, column));
    }
    const BITMAPINFO info = HeaderOf(kWidth, topDown ? -band.pictureHeight : band.pictureHeight, 32);
    return SetDIBitsToDevice(dc, band.x, band.y, band.width, band.height, band.sourceX, band.sourceY, band.startScan,
                             band.lines, bits.data(), &info, DIB_RGB_COLORS);
}

// The word that a band puts on a pixel of the picture, 0 for none. Rows of the picture are counted from its bottom.
uint32_t Expected(const Band &band, bool topDown, int x, int y) {
    const RECT drawn{band.x, band.y, band.x + static_cast<LONG>(band.width), band.y + static_cast<LONG>(band.height)};
    const int column = band.sourceX + x - band.x, inBand = band.sourceY + (drawn.bottom - 1 - y) - int(band.startScan);
    const int lines = static_cast<int>(band.lines);
    if (!PtInRect(&drawn, {x, y}) || column < 0 || column >= kWidth || inBand < 0 || inBand >= lines) return 0;
    // A top-down band's place is reckoned from all its lines, of which there are no more than the picture has.
    const int inMemory = topDown ? lines - 1 - inBand : inBand;
    const bool exists = (topDown ? inMemory : inBand + int(band.startScan)) < band.pictureHeight;
    return exists ? PixelOf(static_cast<UINT>(inMemory), column) : 0;
}

TEST(SetDibBits, DrawsBandsOfEitherRowOrder) {
    Random random(6);
    for (int round = 0; round < 1500; ++round) {
        const bool topDown = random.Coin();
        const int height = random.Between(1, 9);
        const auto number = [&](int limit) { return static_cast<DWORD>(random.Between(0, limit - 1)); };
        const Band band{random.Between(-4, kSize),
                        random.Between(-4, kSize),
                        number(10),
                        number(11),
                        random.Between(-3, 4),
                        random.Between(-3, 4),
                        number(height),
                        number(10),
                        height};
        // Under origins, which move it right and down, on a picture of the other row order.
        const Picture picture(kSize, topDown ? kSize : -kSize);
        SetViewportOrgEx(picture, 2, 3, nullptr);
        SetWindowOrgEx(picture, 1, 2, nullptr);
        const int rows = Draw(picture, band, topDown);
        EXPECT_TRUE(rows >= 0 && rows <= static_cast<int>(band.lines));
        for (int y = 0; y < kSize; ++y) {
            for (int x = 0; x < kSize; ++x) {
                ASSERT_EQ(picture.Words()[picture.IndexOf(x, y)], Expected(band, topDown, x - 1, y - 1))
                    << "round " << round << (topDown ? " top-down" : " bottom-up") << " at " << x << ", " << y;
            }
        }
    }
}

TEST(SetDibBits, CountsTheRowsItReads) {
    const struct {
        Band band;
        int bottomUp, topDown;
    } cases[] = {
        {{0, 0, 6, 4, 0, 0, 0, 4, 4}, 4, 4},  {{0, 0, 6, 2, 0, 1, 0, 4, 4}, 3, 4},
        {{0, 0, 6, 8, 0, 0, 6, 4, 8}, 2, 4},  {{0, 0, 6, 8, 0, 0, 8, 4, 8}, 0, 0},
        {{0, 0, 6, 8, 0, 0, 0, 0, 8}, 0, 0},  {{0, 0, 0, 4, 0, 0, 0, 4, 4}, 0, 0},
        {{0, 0, 4, 4, 20, 0, 0, 4, 4}, 0, 0}, {{0, 0, 4, 4, 0, 20, 0, 4, 40}, 0, 0},
        {{0, 0, 4, 4, 0, 6, 0, 4, 4}, 0, 0},  {{0, 0, 4, 4, -4, 0, 0, 4, 4}, 0, 0},
        {{99, 0, 6, 4, 0, 0, 0, 4, 4}, 4, 4}, {{0, 0, 6, 4, 0, 5, 2, 7, 5}, 0, 7},
        {{0, 0, 6, 1, 0, 3, 3, 7, 5}, 1, 0},  {{0, 0, 6, 5, 0, -2, 3, 1, 5}, 0, 1},
        {{0, 0, 6, 0, 0, 1, 1, 2, 5}, 0, 2},  {{0, 0, 6, 0, 0, 2, 1, 2, 5}, 0, 0},
    };
    for (const auto &expected : cases) {
        const Picture picture(kSize, -kSize);
        EXPECT_EQ(Draw(picture, expected.band, false), expected.bottomUp) << &expected - cases;
        EXPECT_EQ(Draw(picture, expected.band, true), expected.topDown) << &expected - cases;
    }
}

TEST(SetDibBits, RefusesWhatIsNoPictureAndReadsShortTables) {
    const Picture picture(4, -1);
    picture.Fill(7);
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colours[2];
    } info{HeaderOf(3, 1, 8).bmiHeader, {{}, {1, 2, 3, 0}}};
    info.header.biClrUsed = 2;
    const auto draw = [&](LONG width, WORD depth, const void *bits) {
        info.header.biWidth = width;
        info.header.biBitCount = depth;
        return SetDIBitsToDevice(picture, 0, 0, 3, 1, 0, 0, 0, 1, bits, reinterpret_cast<const BITMAPINFO *>(&info),
                                 DIB_RGB_COLORS);
    };
    for (const LONG width : {0, -3}) EXPECT_EQ(draw(width, 32, "1234567890123"), 0);
    for (const WORD depth : {WORD{5}, WORD{33}}) EXPECT_EQ(draw(3, depth, "1234567890123"), 0);
    EXPECT_EQ(draw(3, 32, nullptr), 0);
    EXPECT_EQ(picture.Words(), std::vector<uint32_t>(4, 7));
    EXPECT_EQ(draw(3, 8, "\1\0\1"), 1);
    EXPECT_EQ(picture.Words(), (std::vector<uint32_t>{0x030201, 0, 0x030201, 7}));
}

}  // namespace
}  // namespace lacquer
