// Regions: algebra, data, bounds and points.
#include <gtest/gtest.h>

#include <cstring>

#include "gdi_objects.h"

namespace lacquer {
namespace {

constexpr int kModes[] = {RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF};

bool Holds(int mode, bool first, bool second) {
    switch (mode) {
        case RGN_AND: return first && second;
        case RGN_OR: return first || second;
        case RGN_XOR: return first != second;
        default: return first && !second;
    }
}

TEST(Region, CombinationsHaveTheRightPointsAndRectangles) {
    // Small regions of several rectangles, compared point by point.
    constexpr int kSize = 12;
    uint32_t seed = 1;
    const auto next = [&seed](uint32_t below) {
        seed = seed * 1664525 + 1013904223;
        return static_cast<int>((seed >> 8) % below);
    };
    for (int round = 0; round < 150; ++round) {
        OwnedRegion operands[2] = {OwnedRegion(0, 0, 0, 0), OwnedRegion(0, 0, 0, 0)};
        for (OwnedRegion &operand : operands) {
            for (int i = next(4); i > 0; --i) {
                OwnedRegion part(next(kSize), next(kSize), next(kSize), next(kSize));
                CombineRgn(operand, operand, part, RGN_OR);
            }
        }
        for (const int mode : kModes) {
            OwnedRegion result(1, 1, 2, 2);
            const int kind = CombineRgn(result, operands[0], operands[1], mode);
            RECT bounds{kSize, kSize, 0, 0};
            int count = 0;
            for (int y = 0; y < kSize; ++y) {
                for (int x = 0; x < kSize; ++x) {
                    const bool expected =
                        Holds(mode, PtInRegion(operands[0], x, y) != 0, PtInRegion(operands[1], x, y) != 0);
                    ASSERT_EQ(PtInRegion(result, x, y) != 0, expected) << "mode " << mode << " at " << x << ", " << y;
                    if (!expected) continue;
                    ++count;
                    bounds = RECT{std::min<LONG>(bounds.left, x), std::min<LONG>(bounds.top, y),
                                  std::max<LONG>(bounds.right, x + 1), std::max<LONG>(bounds.bottom, y + 1)};
                }
            }
            if (count == 0) bounds = RECT{};
            EXPECT_EQ(result.Box(), bounds);
            const std::vector<RECT> rects = result.Rects();
            EXPECT_EQ(kind, rects.empty() ? NULLREGION : rects.size() == 1 ? SIMPLEREGION : COMPLEXREGION);
            EXPECT_EQ(result.Kind(), kind);
            int area = 0;
            for (size_t i = 0; i < rects.size(); ++i) {
                const RECT &rect = rects[i];
                area += static_cast<int>((rect.right - rect.left) * (rect.bottom - rect.top));
                const bool inOrder = i == 0 || rects[i - 1].top < rect.top ||
                                     (rects[i - 1].top == rect.top && rects[i - 1].right < rect.left);
                EXPECT_TRUE(inOrder);
            }
            EXPECT_EQ(area, count);

            // The target may be an operand.
            OwnedRegion inPlace(0, 0, 0, 0);
            CombineRgn(inPlace, operands[0], nullptr, RGN_COPY);
            EXPECT_EQ(CombineRgn(inPlace, inPlace, operands[1], mode), kind);
            EXPECT_NE(EqualRgn(inPlace, result), FALSE);
        }
    }
}

TEST(Region, SplitsIntoBands) {
    OwnedRegion first(0, 0, 10, 10), second(5, 5, 15, 15), result(0, 0, 0, 0);
    EXPECT_EQ(CombineRgn(result, first, second, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(result.Rects(), (std::vector<RECT>{{0, 0, 10, 5}, {0, 5, 15, 10}, {5, 10, 15, 15}}));
    EXPECT_EQ(CombineRgn(result, first, second, RGN_XOR), COMPLEXREGION);
    EXPECT_EQ(result.Rects(), (std::vector<RECT>{{0, 0, 10, 5}, {0, 5, 5, 10}, {10, 5, 15, 10}, {5, 10, 15, 15}}));
    EXPECT_EQ(CombineRgn(result, first, second, RGN_DIFF), COMPLEXREGION);
    EXPECT_EQ(result.Rects(), (std::vector<RECT>{{0, 0, 10, 5}, {0, 5, 5, 10}}));
    EXPECT_EQ(CombineRgn(result, first, first, RGN_XOR), NULLREGION);
    for (const int mode : {0, 6, -1}) EXPECT_EQ(CombineRgn(result, first, second, mode), ERROR);
}

TEST(Region, EmptyAndInvertedRectangles) {
    OwnedRegion inverted(10, 8, 0, 0);
    EXPECT_EQ(inverted.Box(), (RECT{0, 0, 10, 8}));
    OwnedRegion line(5, 5, 5, 9);
    EXPECT_EQ(line.Kind(), NULLREGION);
    EXPECT_EQ(line.Box(), RECT{});
    EXPECT_EQ(OffsetRgn(line, 3, 3), NULLREGION);
    OwnedRegion point(0, 0, 0, 0);
    EXPECT_NE(EqualRgn(line, point), FALSE);
    EXPECT_EQ(EqualRgn(line, inverted), FALSE);
    EXPECT_NE(SetRectRgn(point, 9, 9, 7, 7), FALSE);
    EXPECT_EQ(point.Box(), (RECT{7, 7, 9, 9}));

    const RECT rect{4, 3, 2, 1};
    OwnedRegion indirect(CreateRectRgnIndirect(&rect));
    EXPECT_EQ(indirect.Box(), (RECT{2, 1, 4, 3}));
    EXPECT_EQ(OffsetRgn(indirect, -2, 4), SIMPLEREGION);
    EXPECT_EQ(indirect.Box(), (RECT{0, 5, 2, 7}));

    for (const RECT &touching : {RECT{1, 6, 9, 9}, RECT{9, 9, 1, 6}})
        EXPECT_NE(RectInRegion(indirect, &touching), FALSE);
    const RECT beside{2, 5, 9, 9};
    EXPECT_EQ(RectInRegion(indirect, &beside), FALSE);
    EXPECT_NE(PtInRegion(indirect, 1, 6), FALSE);
    EXPECT_EQ(PtInRegion(indirect, 2, 6), FALSE);
}

// A region's data as ExtCreateRegion takes it.
std::vector<char> DataOf(const std::vector<RECT> &rects) {
    std::vector<char> bytes(sizeof(RGNDATAHEADER) + rects.size() * sizeof(RECT));
    RGNDATAHEADER header{};
    header.dwSize = sizeof(header);
    header.iType = RDH_RECTANGLES;
    header.nCount = static_cast<DWORD>(rects.size());
    header.rcBound = RECT{0, 0, 1, 1};
    std::memcpy(bytes.data(), &header, sizeof(header));
    if (!rects.empty()) std::memcpy(bytes.data() + sizeof(header), rects.data(), rects.size() * sizeof(RECT));
    return bytes;
}

HRGN FromData(const std::vector<char> &bytes) {
    return ExtCreateRegion(nullptr, static_cast<DWORD>(bytes.size()), reinterpret_cast<const RGNDATA *>(bytes.data()));
}

TEST(Region, DataMakesTheUnion) {
    OwnedRegion mixed(FromData(DataOf({{0, 0, 5, 5}, {10, 10, 5, 5}, {20, 20, 20, 25}, {5, 0, 9, 5}})));
    EXPECT_EQ(mixed.Rects(), (std::vector<RECT>{{0, 0, 9, 5}}));
    OwnedRegion overlapping(FromData(DataOf({{3, 3, 12, 12}, {0, 0, 5, 5}})));
    EXPECT_EQ(overlapping.Rects(), (std::vector<RECT>{{0, 0, 5, 3}, {0, 3, 12, 5}, {3, 5, 12, 12}}));
    for (const std::vector<RECT> &nothing :
         {std::vector<RECT>{}, {{10, 10, 5, 15}}, {{INT32_MAX, 0, INT32_MIN, 1}}, {{3, 3, 3, 9}, {9, 9, 8, 8}}}) {
        OwnedRegion empty(FromData(DataOf(nothing)));
        EXPECT_EQ(empty.Kind(), NULLREGION);
    }
    EXPECT_EQ(ExtCreateRegion(nullptr, 100, nullptr), nullptr);

    std::vector<char> lying = DataOf({{0, 0, 1, 1}});
    const DWORD many = 0x10000000;
    std::memcpy(lying.data() + offsetof(RGNDATAHEADER, nCount), &many, sizeof(many));
    EXPECT_EQ(FromData(lying), nullptr);
}

TEST(Region, DataOfThousandsOfRectanglesMakesTheRoundTrip) {
    std::vector<RECT> rects;
    for (LONG y = 0; y < 50; ++y) {
        for (LONG x = 0; x < 60; ++x) rects.push_back(RECT{x * 3 + y % 2, y, x * 3 + y % 2 + 2, y + 1});
    }
    OwnedRegion region(FromData(DataOf(rects)));
    EXPECT_EQ(region.Rects(), rects);
    EXPECT_EQ(region.Box(), (RECT{0, 0, 180, 50}));

    // The same region, made in two batches.
    const std::vector<RECT> head(rects.begin(), rects.begin() + 2000), tail(rects.begin() + 2000, rects.end());
    OwnedRegion batches(FromData(DataOf(head))), rest(FromData(DataOf(tail)));
    EXPECT_EQ(CombineRgn(batches, batches, rest, RGN_OR), COMPLEXREGION);
    EXPECT_NE(EqualRgn(region, batches), FALSE);
    OffsetRgn(batches, 1, 0);
    EXPECT_EQ(EqualRgn(region, batches), FALSE);
}

TEST(Region, DataNeedsRoom) {
    OwnedRegion region(1, 2, 3, 4);
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
    OwnedRegion empty(0, 0, 0, 0);
    EXPECT_EQ(GetRegionData(empty, 0, nullptr), 32u);
}

TEST(Region, SurvivesTheEndsOfTheRange) {
    OwnedRegion huge(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
    EXPECT_EQ(huge.Kind(), SIMPLEREGION);
    EXPECT_NE(PtInRegion(huge, INT32_MIN, INT32_MIN), FALSE);
    EXPECT_EQ(PtInRegion(huge, INT32_MAX, 0), FALSE);
    OwnedRegion hole(-5, -5, 5, 5);
    EXPECT_EQ(CombineRgn(huge, huge, hole, RGN_DIFF), COMPLEXREGION);
    EXPECT_EQ(huge.Rects().size(), 4u);
    EXPECT_EQ(CombineRgn(huge, huge, hole, RGN_OR), SIMPLEREGION);
}

}  // namespace
}  // namespace lacquer
