// Regions: algebra, data, bounds and points.
#include <gtest/gtest.h>

#include <cstring>

#include "record.h"

namespace lacquer {
namespace {

/// A region's data as ExtCreateRegion takes it, with a count that may lie.
HRGN FromData(const std::vector<RECT> &rects, DWORD count) {
    std::vector<char> bytes(sizeof(RGNDATAHEADER) + rects.size() * sizeof(RECT));
    const RGNDATAHEADER header{sizeof(header), RDH_RECTANGLES, count, 0, {0, 0, 1, 1}};
    std::memcpy(bytes.data(), &header, sizeof(header));
    if (!rects.empty()) std::memcpy(bytes.data() + sizeof(header), rects.data(), rects.size() * sizeof(RECT));
    return ExtCreateRegion(nullptr, static_cast<DWORD>(bytes.size()), reinterpret_cast<const RGNDATA *>(bytes.data()));
}
OwnedRegion FromData(const std::vector<RECT> &rects) {
    return OwnedRegion(FromData(rects, static_cast<DWORD>(rects.size())));
}

TEST(Region, ProgramsAreLikeTheSystems) {
    Random random(1);
    Record record;
    for (int round = 0; round < 300; ++round) {
        const OwnedRegion regions[3] = {OwnedRegion(RECT{}), OwnedRegion(RECT{}), OwnedRegion(RECT{})};
        for (int step = 0; step < 10; ++step) {
            const HRGN first = regions[random.Between(0, 2)], second = regions[random.Between(0, 2)];
            const OwnedRegion &region = regions[random.Between(0, 2)];
            const RECT rect = random.Rect();
            const int mode = random.Between(RGN_AND, RGN_COPY), x = random.Between(-2, 2), y = random.Between(-2, 2);
            switch (random.Between(0, 3)) {
                case 0: CombineRgn(region, FromData({rect, random.Rect()}), nullptr, RGN_COPY); break;
                case 1: EXPECT_NE(SetRectRgn(region, rect.left, rect.top, rect.right, rect.bottom), FALSE); break;
                case 2: record.Add(CombineRgn(region, first, second, mode)); break;
                default: record.Add(OffsetRgn(region, x, y));
            }
            for (const RECT &part : region.Rects()) record.Add(part);
            record.Add(region.Box());
            record.Add(region.Kind());
            record.Add(PtInRegion(region, rect.left, rect.top) != 0);
            record.Add(EqualRgn(region, first) != 0);
            // The system may find rectangles without an area inside.
            const bool hasArea = rect.left != rect.right && rect.top != rect.bottom;
            if (hasArea) record.Add(RectInRegion(region, &rect) != 0);
        }
    }
    EXPECT_EQ(record.Digest(), 0xBEF53119BDB59032);
    const OwnedRegion region(RECT{0, 0, 3, 3});
    for (const int mode : {0, 6, -1}) EXPECT_EQ(CombineRgn(region, region, region, mode), ERROR);
    EXPECT_EQ(OwnedRegion(CreateRectRgn(9, 9, 7, 8)).Box(), (RECT{7, 8, 9, 9}));
}

TEST(Region, DataNeedsRoom) {
    const OwnedRegion region(RECT{1, 2, 3, 4});
    EXPECT_EQ(GetRegionData(region, 0, nullptr), 48u);
    std::vector<DWORD> words(12, 9);
    auto *data = reinterpret_cast<RGNDATA *>(words.data());
    EXPECT_EQ(GetRegionData(region, 47, data), 0u);
    EXPECT_EQ(words[0], 9u);
    EXPECT_EQ(GetRegionData(region, 48, data), 48u);
    EXPECT_EQ(words, (std::vector<DWORD>{32, RDH_RECTANGLES, 1, 16, 1, 2, 3, 4, 1, 2, 3, 4}));
    EXPECT_EQ(FromData({{0, 0, 1, 1}}, 0x10000000), nullptr) << "a count that lies";
    EXPECT_EQ(ExtCreateRegion(nullptr, 100, nullptr), nullptr);
}

}  // namespace
}  // namespace lacquer
