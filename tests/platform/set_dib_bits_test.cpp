// SetDIBitsToDevice: row order, bands of rows, placement and clipping.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "gdi_objects.h"

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
    std::vector<uint32_t> bits;
    for (UINT row = 0; row < std::min(band.lines, topDown ? height : height - std::min(height, band.startScan));
         ++row) {
        for (int column = 0; column < kWidth; ++column) bits.push_back(PixelOf(row, column));
    }
    if (bits.empty()) bits.push_back(0);
    const BITMAPINFO info = HeaderOf(kWidth, topDown ? -band.pictureHeight : band.pictureHeight, 32);
    return SetDIBitsToDevice(dc, band.x, band.y, band.width, band.height, band.sourceX, band.sourceY, band.startScan,
                             band.lines, bits.data(), &info, DIB_RGB_COLORS);
}

// The word that a band puts on a pixel of the picture, if any. Rows of the picture are counted from its bottom.
std::optional<uint32_t> Expected(const Band &band, bool topDown, int x, int y) {
    const int64_t column = band.sourceX + int64_t{x} - band.x;
    const int64_t row = band.sourceY + int64_t{band.height} - 1 - (int64_t{y} - band.y);
    const bool isInside = x >= band.x && x - int64_t{band.x} < band.width && y >= band.y &&
                          y - int64_t{band.y} < band.height && column >= 0 && column < kWidth &&
                          row >= band.startScan && row < int64_t{band.startScan} + band.lines;
    if (!isInside) return std::nullopt;
    // A top-down band's place is reckoned from all its lines, of which there are no more than the picture has.
    const auto inBand = static_cast<UINT>(row - band.startScan);
    const bool exists = (topDown ? band.lines - 1 - inBand : row) < band.pictureHeight;
    if (!exists) return std::nullopt;
    return PixelOf(topDown ? band.lines - 1 - inBand : inBand, static_cast<int>(column));
}

TEST(SetDibBits, DrawsBandsOfEitherRowOrder) {
    const Band bands[] = {
        {0, 0, 6, 4, 0, 0, 0, 4, 4},  {2, 3, 5, 2, 1, 1, 0, 4, 4},   {0, 0, 6, 8, 0, 0, 0, 4, 8},
        {0, 0, 6, 8, 0, 0, 2, 4, 8},  {0, 0, 6, 8, 0, 0, 6, 2, 8},   {0, 0, 6, 4, 0, 2, 2, 4, 8},
        {0, 0, 6, 3, 0, 3, 2, 4, 8},  {-3, -2, 6, 4, 0, 0, 0, 4, 4}, {0, 0, 6, 10, 0, 0, 0, 4, 4},
        {0, 0, 30, 4, 3, 0, 0, 4, 4}, {0, 0, 4, 4, -2, 0, 0, 4, 4},  {0, 0, 4, 4, 0, -1, 0, 4, 4},
        {0, 0, 4, 4, 0, 2, 0, 4, 4},  {0, 0, 6, 1, 0, 0, 0, 1, 4},   {0, 0, 6, 4, 0, 0, 1, 2, 4},
        {0, 0, 6, 2, 0, 1, 0, 4, 4},  {0, 0, 6, 2, 0, 0, 1, 3, 4},   {9, 9, 6, 4, 0, 0, 0, 4, 4},
        {20, 0, 6, 4, 0, 0, 0, 4, 4}, {0, 0, 6, 6, 0, 0, 0, 7, 4},   {0, 0, 6, 8, 0, -2, 0, 5, 3},
        {0, 0, 6, 5, 0, 1, 1, 7, 5},  {0, 0, 6, 9, 2, 0, 2, 9, 3},
    };
    for (const Band &band : bands) {
        for (const bool topDown : {false, true}) {
            // Under origins, which move it right and down, on a picture of the other row order.
            Picture picture(kSize, topDown ? kSize : -kSize);
            SetViewportOrgEx(picture, 2, 3, nullptr);
            SetWindowOrgEx(picture, 1, 2, nullptr);
            const int rows = Draw(picture, band, topDown);
            EXPECT_GT(rows, 0);
            EXPECT_LE(rows, static_cast<int>(band.lines));
            for (int y = 0; y < kSize; ++y) {
                for (int x = 0; x < kSize; ++x) {
                    ASSERT_EQ(picture.At(x, topDown ? kSize - 1 - y : y),
                              Expected(band, topDown, x - 1, y - 1).value_or(0))
                        << "band " << &band - bands << (topDown ? " top-down" : " bottom-up") << " at " << x << ", "
                        << y;
                }
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
        Picture picture(kSize, -kSize);
        EXPECT_EQ(Draw(picture, expected.band, false), expected.bottomUp) << &expected - cases;
        EXPECT_EQ(Draw(picture, expected.band, true), expected.topDown) << &expected - cases;
    }
}

TEST(SetDibBits, ConvertsOtherDepths) {
    Picture picture(4, -1);
    picture.Fill(0xFFFFFFFF);
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colours[2];
    } info{};
    info.header = HeaderOf(3, 1, 8).bmiHeader;
    info.header.biClrUsed = 2;
    info.colours[1] = RGBQUAD{1, 2, 3, 0};
    const uint8_t indices[] = {1, 0, 1, 0};
    const auto draw = [&](int x, const uint8_t *bits) {
        return SetDIBitsToDevice(picture, x, 0, 3, 1, 0, 0, 0, 1, bits, reinterpret_cast<const BITMAPINFO *>(&info),
                                 DIB_RGB_COLORS);
    };
    EXPECT_EQ(draw(0, indices), 1);
    EXPECT_EQ(picture.Words(), (std::vector<uint32_t>{0x030201, 0, 0x030201, 0xFFFFFFFF}));

    info.header.biBitCount = 24;
    const uint8_t triples[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 0, 0};
    EXPECT_EQ(draw(1, triples), 1);
    EXPECT_EQ(picture.Words(), (std::vector<uint32_t>{0x030201, 0x030201, 0x060504, 0x090807}));

    for (const WORD depth : {WORD{5}, WORD{33}}) {
        info.header.biBitCount = depth;
        EXPECT_EQ(draw(0, triples), 0);
    }
    info.header.biBitCount = 32;
    EXPECT_EQ(draw(0, nullptr), 0);
    for (const LONG width : {0, -3}) {
        info.header.biWidth = width;
        EXPECT_EQ(draw(0, triples), 0);
    }
}

TEST(SetDibBits, WritesNothingOutsideAtTheEndsOfTheRange) {
    Picture picture(4, -4);
    for (const int end : {INT32_MIN, INT32_MIN + 3, INT32_MAX - 3, INT32_MAX}) {
        for (const bool topDown : {false, true}) {
            Draw(picture, Band{end, 0, 6, 4, 0, 0, 0, 4, 4}, topDown);
            Draw(picture, Band{0, end, 6, 4, 0, 0, 0, 4, 4}, topDown);
            Draw(picture, Band{0, 0, 6, 4, end, 0, 0, 4, 4}, topDown);
            Draw(picture, Band{0, 0, 6, 4, 0, end, 0, 4, 4}, topDown);
            Draw(picture, Band{0, 0, 6, 4, 0, 0, static_cast<UINT>(end), 4, 4}, topDown);
        }
    }
    EXPECT_EQ(picture.Words(), std::vector<uint32_t>(16));
}

}  // namespace
}  // namespace lacquer
