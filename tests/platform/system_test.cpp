// What the library uses of USER and the kernel: rectangles, MulDiv, global memory.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "gdi_objects.h"
#include "support/refusals.h"

namespace lacquer {
namespace {

TEST(Rectangles, Values) {
    RECT rect{}, copy{};
    EXPECT_NE(SetRect(&rect, 1, 2, 7, 9), FALSE);
    EXPECT_NE(CopyRect(&copy, &rect), FALSE);
    EXPECT_NE(EqualRect(&copy, &rect), FALSE);
    EXPECT_NE(OffsetRect(&copy, -2, 3), FALSE);
    EXPECT_NE(InflateRect(&copy, 1, -2), FALSE);
    EXPECT_EQ(copy, (RECT{-2, 7, 6, 10}));
    EXPECT_NE(PtInRect(&rect, POINT{1, 8}), FALSE);
    ExpectRefused(EqualRect(&copy, &rect), PtInRect(&rect, POINT{7, 8}), PtInRect(&rect, POINT{1, 9}),
                  IsRectEmpty(&rect));
    SetRectEmpty(&rect);
    EXPECT_EQ(rect, RECT{});
    for (const RECT &empty : {RECT{3, 0, 3, 9}, RECT{0, 4, 9, 4}, RECT{5, 5, 1, 9}, RECT{INT32_MAX, 0, INT32_MIN, 1}}) {
        EXPECT_NE(IsRectEmpty(&empty), FALSE) << empty;
    }
    // At the ends of the range they wrap around.
    rect = {INT32_MAX - 15, 0, INT32_MAX, 5};
    OffsetRect(&rect, 32, INT32_MAX);
    EXPECT_EQ(rect, (RECT{INT32_MIN + 16, INT32_MAX, INT32_MIN + 31, INT32_MIN + 4}));
    InflateRect(&rect, INT32_MIN, 1);
    EXPECT_EQ(rect, (RECT{16, INT32_MAX - 1, 31, INT32_MIN + 5}));
}

TEST(Rectangles, IntersectAndUnion) {
    constexpr RECT kFirst{0, 0, 10, 10}, kInverted{10, 10, 0, 0}, kLine{50, 4, 50, 90}, kNone{};
    constexpr RECT kAll{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
    const struct {
        RECT first, second, common, around;
    } cases[] = {{kFirst, {5, 6, 20, 20}, {5, 6, 10, 10}, {0, 0, 20, 20}},
                 {kFirst, {10, 0, 20, 10}, kNone, {0, 0, 20, 10}},
                 {kFirst, kInverted, kNone, kFirst},
                 {kLine, kFirst, kNone, kFirst},
                 {kFirst, kLine, kNone, kFirst},
                 {kLine, kInverted, kNone, kNone},
                 {kAll, kFirst, kFirst, kAll}};
    for (const auto &[first, second, common, around] : cases) {
        // The result may be an operand.
        RECT intersected = first, united = second;
        EXPECT_EQ(IntersectRect(&intersected, &intersected, &second) != FALSE, !IsRectEmpty(&common));
        EXPECT_EQ(intersected, common);
        EXPECT_EQ(UnionRect(&united, &first, &united) != FALSE, !IsRectEmpty(&around));
        EXPECT_EQ(united, around);
    }
}

TEST(Kernel, MulDivRoundsHalvesAwayFromZero) {
    const int cases[][4] = {{7, 3, 2, 11},         {-5, 1, 2, -3},        {5, 1, -2, -3},
                            {4, 1, 3, 1},          {0, 0, 0, -1},         {INT32_MAX, INT32_MAX, INT32_MAX, INT32_MAX},
                            {INT32_MAX, 2, 1, -1}, {INT32_MIN, 1, -1, -1}};
    for (const auto &[number, numerator, denominator, result] : cases) {
        EXPECT_EQ(MulDiv(number, numerator, denominator), result)
            << number << " x " << numerator << " / " << denominator;
    }
}

TEST(Kernel, GlobalMemoryGrowsAndKeepsItsContents) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 10);
    auto *bytes = static_cast<char *>(GlobalLock(block));
    ASSERT_NE(bytes, nullptr);
    EXPECT_EQ(std::string(bytes, 10), std::string(10, '\0'));
    std::memcpy(bytes, "0123456789", 10);
    EXPECT_EQ(GlobalLock(block), bytes);
    EXPECT_NE(GlobalUnlock(block), FALSE);
    EXPECT_EQ(GlobalUnlock(block), FALSE);
    for (const size_t size : {size_t{1000}, size_t{100000}, size_t{20}}) {
        block = GlobalReAlloc(block, size, GMEM_MOVEABLE | GMEM_ZEROINIT);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(GlobalSize(block), size);
        bytes = static_cast<char *>(GlobalLock(block));
        EXPECT_EQ(std::string(bytes, 10), "0123456789");
        EXPECT_EQ(bytes[size - 1], 0);
        EXPECT_EQ(GlobalUnlock(block), FALSE);
    }
    HGLOBAL fixed = GlobalAlloc(GMEM_FIXED, 10);
    EXPECT_EQ(GlobalLock(fixed), fixed);
    EXPECT_NE(GlobalUnlock(fixed), FALSE);
    EXPECT_EQ(GlobalSize(fixed), 10u);
    constexpr auto kEndless = static_cast<size_t>(-1);
    ExpectRefused(GlobalFree(block), GlobalFree(fixed), GlobalFree(nullptr), GlobalSize(nullptr),
                  GlobalAlloc(GMEM_MOVEABLE, kEndless), GlobalAlloc(GMEM_FIXED, kEndless));
}

}  // namespace
}  // namespace lacquer
