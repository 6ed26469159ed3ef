// SetDIBitsToDevice: row order, bands of rows, placement and clipping. Other depths are tested with those of all draws.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "record.h"
#include "support/refusals.h"

namespace lacquer {
namespace {

constexpr int kWidth = 6;
constexpr int kSize = 12;

TEST(SetDibBits, ProgramsAreLikeTheSystems) {
    Random random(6);
    Record record;
    for (int round = 0; round < 1500; ++round) {
        const bool topDown = random.Coin();
        const auto number = [&](int limit) { return static_cast<UINT>(random.Between(0, limit - 1)); };
        const int x = random.Between(-4, kSize), y = random.Between(-4, kSize), height = random.Between(1, 9);
        const int sourceX = random.Between(-3, 4), sourceY = random.Between(-3, 4);
        const UINT drawnWidth = number(10), drawnHeight = number(11), startScan = number(height), lines = number(10);
        // No more rows than the picture has, so that a sanitizer sees reading beyond.
        const UINT rows = std::min(lines, static_cast<UINT>(height) - (topDown ? 0 : startScan));
        std::vector<uint32_t> bits(std::max(rows, 1u) * kWidth);
        std::iota(bits.begin(), bits.end(), 0xC0000001);
        // Under origins, on a picture of the other row order.
        const Picture picture(kSize, topDown ? kSize : -kSize);
        SetViewportOrgEx(picture, 2, 3, nullptr);
        SetWindowOrgEx(picture, 1, 2, nullptr);
        const BITMAPINFO info = HeaderOf(kWidth, topDown ? -height : height, 32);
        record.Add(SetDIBitsToDevice(picture, x, y, drawnWidth, drawnHeight, sourceX, sourceY, startScan, lines,
                                     bits.data(), &info, DIB_RGB_COLORS));
        record.Add(picture.Words());
    }
    EXPECT_EQ(record.Digest(), 0xD8068E24CA452E92);
}

TEST(SetDibBits, RefusesWhatIsNoPictureAndReadsShortTables) {
    const Picture picture(4, -1);
    picture.Fill(7);
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colours[2];
    } info{HeaderOf(3, 1, 8).bmiHeader, {{}, {1, 2, 3, 0}}};
    info.header.biClrUsed = 2;
    const auto draw = [&](LONG width, WORD depth, const char *bits) {
        info.header.biWidth = width;
        info.header.biBitCount = depth;
        return SetDIBitsToDevice(picture, 0, 0, 3, 1, 0, 0, 0, 1, bits, reinterpret_cast<const BITMAPINFO *>(&info),
                                 DIB_RGB_COLORS);
    };
    constexpr char kBits[] = "\1\0\1 of twelve bytes";
    ExpectRefused(draw(0, 32, kBits), draw(-3, 32, kBits), draw(3, 5, kBits), draw(3, 33, kBits), draw(3, 32, nullptr));
    EXPECT_EQ(draw(3, 8, kBits), 1);
    EXPECT_EQ(picture.Words(), (std::vector<uint32_t>{0x030201, 0, 0x030201, 7}));
}

}  // namespace
}  // namespace lacquer
