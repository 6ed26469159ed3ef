// What the headless GDI promises beyond the system's own: the ends of the range, null pointers, documented refusals.
// That it takes any coordinate and any handle is seen by the fuzzer.
#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <thread>

#include "record.h"
#include "support/refusals.h"

namespace lacquer {
namespace {

TEST(HeadlessLimits, RegionsLoseWhatLeavesTheRange) {
    OwnedRegion region(RECT{-10, -10, 10, 10});
    EXPECT_EQ(OffsetRgn(region, INT32_MAX, INT32_MIN), SIMPLEREGION);
    EXPECT_EQ(region.Box(), (RECT{INT32_MAX - 10, INT32_MIN, INT32_MAX, INT32_MIN + 10}));
    EXPECT_EQ(OffsetRgn(region, INT32_MIN, 0), SIMPLEREGION);
    EXPECT_EQ(region.Box(), (RECT{-11, INT32_MIN, -1, INT32_MIN + 10}));
    EXPECT_EQ(OffsetRgn(region, 0, -10), NULLREGION);
}

TEST(HeadlessLimits, NullPointersAndUnknownValuesAreRefused) {
    const Picture picture(4, -4);
    const OwnedRegion region(RECT{0, 0, 1, 1});
    // In their order too small for their count or their header, a transform, and no rectangles.
    RGNDATA data{{sizeof(RGNDATAHEADER), RDH_RECTANGLES, 1, 0, {}}, {}},
        unknown{{sizeof(RGNDATAHEADER), 2, 0, 0, {}}, {}};
    ExpectRefused(GetClipBox(picture, nullptr), GetViewportOrgEx(picture, nullptr), GetWindowOrgEx(picture, nullptr),
                  CreateRectRgnIndirect(nullptr), GetRgnBox(region, nullptr), RectInRegion(region, nullptr),
                  RectVisible(picture, nullptr), ExtCreateRegion(nullptr, 47, &data),
                  ExtCreateRegion(nullptr, 31, &data), ExtCreateRegion(&data, 48, &data),
                  ExtCreateRegion(nullptr, sizeof(unknown), &unknown),
                  BitBlt(picture, 0, 0, 1, 1, picture, 2, 2, 0x00EE0086));
    for (const BLENDFUNCTION &blend :
         {BLENDFUNCTION{1, 0, 255, 0}, BLENDFUNCTION{AC_SRC_OVER, 1, 255, 0}, BLENDFUNCTION{AC_SRC_OVER, 0, 255, 2}}) {
        EXPECT_EQ(GdiAlphaBlend(picture, 0, 0, 1, 1, picture, 2, 2, 1, 1, blend), FALSE);
    }
    BITMAPINFO layouts[] = {HeaderOf(4, 4, 32), HeaderOf(4, 4, 32), HeaderOf(4, 4, 32)};
    layouts[0].bmiHeader.biSize = 12;
    layouts[1].bmiHeader.biCompression = 12;
    layouts[2].bmiHeader.biPlanes = 2;
    for (const BITMAPINFO &layout : layouts) {
        EXPECT_EQ(CreateDIBSection(nullptr, &layout, DIB_RGB_COLORS, nullptr, nullptr, 0), nullptr);
    }
}

// A thread that waits without sleep may keep the owner from running for ever.
TEST(HeadlessLimits, WhoWaitsForACriticalSectionSleeps) {
    CRITICAL_SECTION section{};
    EnterCriticalSection(&section);
    EXPECT_NE(TryEnterCriticalSection(&section), FALSE) << "by its owner";
    LeaveCriticalSection(&section);
    std::thread waiter([&] {
        EXPECT_EQ(TryEnterCriticalSection(&section), FALSE);
        EnterCriticalSection(&section);
        LeaveCriticalSection(&section);
    });
    const std::clock_t before = std::clock();
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 50) << "the time that all threads worked";
    LeaveCriticalSection(&section);
    waiter.join();
}

}  // namespace
}  // namespace lacquer
