// Regions: algebra, data, bounds and points.
#include <gtest/gtest.h>

#include <cstring>

#include "record.h"

namespace lacquer {
namespace {

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
            switch (random.Between(0, 2)) {
                case 0: EXPECT_NE(SetRectRgn(region, rect.left, rect.top, rect.right, rect.bottom), FALSE); break;
                case 1: record.Add(CombineRgn(region, first, second, mode)); break;
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
    EXPECT_EQ(record.Digest(), 0xA022908E7A7DB7BB);
    const OwnedRegion region(RECT{0, 0, 3, 3});
    for (const int mode : {0, 6, -1}) EXPECT_EQ(CombineRgn(region, region, region, mode), ERROR);
    EXPECT_EQ(OwnedRegion(CreateRectRgn(9, 9, 7, 8)).Box(), (RECT{7, 8, 9, 9}));
}

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

TEST(Region, DataMakesTheUnion) {
    const OwnedRegion mixed = FromData({{0, 0, 5, 5}, {10, 10, 5, 5}, {20, 20, 20, 25}, {5, 0, 9, 5}});
    EXPECT_EQ(mixed.Rects(), (std::vector<RECT>{{0, 0, 9, 5}}));
    const OwnedRegion overlapping = FromData({{3, 3, 12, 12}, {0, 0, 5, 5}});
    EXPECT_EQ(overlapping.Rects(), (std::vector<RECT>{{0, 0, 5, 3}, {0, 3, 12, 5}, {3, 5, 12, 12}}));
    for (const std::vector<RECT> &nothing :
         {std::vector<RECT>{}, {{10, 10, 5, 15}}, {{INT32_MAX, 0, INT32_MIN, 1}}, {{3, 3, 3, 9}, {9, 9, 8, 8}}}) {
        EXPECT_EQ(FromData(nothing).Kind(), NULLREGION);
    }
    EXPECT_EQ(ExtCreateRegion(nullptr, 100, nullptr), nullptr);
    EXPECT_EQ(FromData({{0, 0, 1, 1}}, 0x10000000), nullptr);
}

TEST(Region, DataOfThousandsOfRectanglesMakesTheRoundTrip) {
    std::vector<RECT> rects;
    for (LONG i = 0; i < 3000; ++i) rects.push_back(Moved({0, 0, 2, 1}, i % 60 * 3 + i / 60 % 2, i / 60));
    EXPECT_EQ(FromData(rects).Rects(), rects);
}

TEST(Region, DataNeedsRoom) {
    const OwnedRegion region(RECT{1, 2, 3, 4});
    EXPECT_EQ(GetRegionData(region, 0, nullptr), 48u);
    std::vector<char> bytes(48, 'x');
    auto *data = reinterpret_cast<RGNDATA *>(bytes.data());
    EXPECT_EQ(GetRegionData(region, 47, data), 0u);
    EXPECT_EQ(bytes[0], 'x');
    EXPECT_EQ(GetRegionData(region, 48, data), 48u);
    EXPECT_EQ(data->rdh.dwSize, 32u);
    EXPECT_EQ(data->rdh.iType, static_cast<DWORD>(RDH_RECTANGLES));
    EXPECT_EQ(data->rdh.nCount, 1u);
    EXPECT_EQ(data->rdh.nRgnSize, 16u);
    EXPECT_EQ(data->rdh.rcBound, (RECT{1, 2, 3, 4}));
}

}  // namespace
}  // namespace lacquer
