// Regions: algebra, data, bounds and points.
#include <gtest/gtest.h>

#include <cstring>

#include "model.h"

namespace lacquer {
namespace {

TEST(Region, HoldsTheRightPointsInTheRightRectangles) {
    Random random(1);
    for (int round = 0; round < 300; ++round) {
        OwnedRegion regions[3] = {OwnedRegion(0, 0, 0, 0), OwnedRegion(0, 0, 0, 0), OwnedRegion(0, 0, 0, 0)};
        Points points[3];
        for (int step = 0; step < 10; ++step) {
            const int target = random.Between(0, 2), first = random.Between(0, 2), second = random.Between(0, 2);
            const RECT rect = random.Rect();
            const int mode = random.Between(RGN_AND, RGN_COPY), x = random.Between(-2, 2), y = random.Between(-2, 2);
            switch (random.Between(0, 2)) {
                case 0:
                    EXPECT_NE(SetRectRgn(regions[target], rect.left, rect.top, rect.right, rect.bottom), FALSE);
                    points[target] = Points(rect);
                    break;
                case 1:
                    points[target] = points[first].Combined(points[second], mode);
                    EXPECT_EQ(CombineRgn(regions[target], regions[first], regions[second], mode),
                              points[target].Kind());
                    break;
                default:
                    points[target] = points[target].Moved(x, y);
                    EXPECT_EQ(OffsetRgn(regions[target], x, y), points[target].Kind());
            }
            const OwnedRegion &region = regions[target];
            ASSERT_EQ(region.Rects(), points[target].Bands()) << "round " << round << ", step " << step;
            EXPECT_EQ(region.Box(), points[target].Box());
            EXPECT_EQ(region.Kind(), points[target].Kind());
            EXPECT_EQ(PtInRegion(region, rect.left, rect.top) != 0, points[target].Has(rect.left, rect.top));
            // The system may find rectangles without an area inside.
            const Points inside(rect);
            EXPECT_TRUE((kIsSystem && inside == Points()) ||
                        (RectInRegion(region, &rect) != 0) ==
                            (points[target].Combined(inside, RGN_AND).Kind() != NULLREGION));

            EXPECT_EQ(EqualRgn(region, regions[first]) != 0, points[target] == points[first]);
        }
    }
    const OwnedRegion region(0, 0, 3, 3);
    for (const int mode : {0, 6, -1}) EXPECT_EQ(CombineRgn(region, region, region, mode), ERROR);
    const RECT rect{4, 3, 2, 1};
    EXPECT_EQ(OwnedRegion(CreateRectRgnIndirect(&rect)).Box(), (RECT{2, 1, 4, 3}));
    EXPECT_EQ(OwnedRegion(9, 9, 7, 8).Box(), (RECT{7, 8, 9, 9}));
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
    for (LONG i = 0; i < 3000; ++i) {
        const LONG x = i % 60 * 3 + i / 60 % 2, y = i / 60;
        rects.push_back(RECT{x, y, x + 2, y + 1});
    }
    const OwnedRegion region = FromData(rects);
    EXPECT_EQ(region.Rects(), rects);
    EXPECT_EQ(region.Box(), (RECT{0, 0, 180, 50}));
    // The same region, made in two batches.
    const OwnedRegion batches = FromData({rects.begin(), rects.begin() + 2000});
    const OwnedRegion rest = FromData({rects.begin() + 2000, rects.end()});
    EXPECT_EQ(CombineRgn(batches, batches, rest, RGN_OR), COMPLEXREGION);
    EXPECT_NE(EqualRgn(region, batches), FALSE);
}

TEST(Region, DataNeedsRoom) {
    const OwnedRegion region(1, 2, 3, 4);
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
