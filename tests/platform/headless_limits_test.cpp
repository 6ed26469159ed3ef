// What the headless GDI promises beyond the system's own: any coordinate in every function, null pointers, documented
// refusals.
#include <gtest/gtest.h>

#include <unistd.h>

#include <chrono>
#include <fstream>
#include <future>
#include <string>
#include <thread>

#include "record.h"
#include "support/refusals.h"

namespace lacquer {
namespace {

constexpr int kEnds[] = {INT32_MIN, INT32_MIN + 1, -3, 0, 3, INT32_MAX - 1, INT32_MAX};

TEST(HeadlessLimits, EveryFunctionTakesAnyCoordinateAndPrintsNothing) {
    // The region library complains on the standard error about boxes that it does not like.
    Picture picture(4, -4), source(4, -4);
    OwnedRegion region(RECT{0, 0, 2, 2}), other(RECT{1, 1, 9, 9});
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, 128, 0};
    const BITMAPINFO info = HeaderOf(4, 4, 32);
    struct {
        RGNDATAHEADER header{sizeof(RGNDATAHEADER), RDH_RECTANGLES, 2, 0, {}};
        RECT rects[2];
    } data{};
    Random random(7);
    const auto end = [&] { return kEnds[random.Between(0, 6)]; };
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    for (int i = 0; i < 20000; ++i) {
        const int left = end(), top = end(), right = end(), bottom = end(), x = end(), y = end();
        const RECT rect{left, top, right, bottom};
        data.rects[0] = data.rects[1] = rect;
        data.header.nCount = 1u + static_cast<DWORD>(i % 2);
        const OwnedRegion made(ExtCreateRegion(nullptr, sizeof(data), reinterpret_cast<const RGNDATA *>(&data)));
        SetRectRgn(region, left, top, right, bottom);
        CombineRgn(other, made, other, RGN_XOR);
        OffsetRgn(other, x, y);
        CombineRgn(other, other, region, RGN_OR);
        RectInRegion(other, &rect);
        PtInRegion(other, x, y);
        SetViewportOrgEx(picture, x, top, nullptr);
        SetWindowOrgEx(picture, y, right, nullptr);
        SetStretchBltMode(picture, 1 + i % 4);
        switch (i % 8) {
            case 0: ExtSelectClipRgn(picture, other, 1 + random.Between(0, 4)); break;
            case 1: IntersectClipRect(picture, left, top, right, bottom); break;
            case 2: ExcludeClipRect(picture, left, top, right, bottom); break;
            case 3: OffsetClipRgn(picture, x, y); break;
            default: SelectClipRgn(picture, nullptr); break;
        }
        RECT box{};
        GetClipBox(picture, &box);
        RectVisible(picture, &rect);
        EXPECT_NE(StretchBlt(picture, left, top, right, bottom, source, x, y, top, left, SRCCOPY), FALSE);
        EXPECT_NE(BitBlt(picture, left, top, right, bottom, source, x, y, SRCCOPY), FALSE);
        EXPECT_NE(PatBlt(picture, left, top, right, bottom, BLACKNESS), FALSE);
        GdiAlphaBlend(picture, left, top, right, bottom, source, x % 4, 0, 3, 2, blend);
        SetDIBitsToDevice(picture, left, top, static_cast<DWORD>(right), static_cast<DWORD>(bottom), x, y, 0, 4,
                          source.Bytes(), &info, DIB_RGB_COLORS);
        SetPixel(picture, x, y, GetPixel(picture, left, top) & 0);
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr() + ::testing::internal::GetCapturedStdout(), "");
    for (const uint32_t word : picture.Words()) EXPECT_EQ(word & 0xFFFFFF, 0u);
}

TEST(HeadlessLimits, HugeStretchesPickTheRightPixels) {
    Picture source(4, -1);
    source.Number(1);
    Picture picture(4, -1);
    SetStretchBltMode(picture, COLORONCOLOR);
    // One source pixel covers a quarter of the range; the middle of the stretch lies between the second and the third.
    EXPECT_NE(StretchBlt(picture, -0x3FFFFFFE, 0, INT32_MAX, 1, source, 0, 0, 4, 1, SRCCOPY), FALSE);
    EXPECT_EQ(picture.Words(), (std::vector<uint32_t>{2, 2, 3, 3}));
    // Every pixel of the source falls on one pixel, of which the last is kept.
    EXPECT_NE(StretchBlt(picture, 1, 0, 2, 1, source, -0x3FFFFFFD, 0, INT32_MAX, 1, SRCCOPY), FALSE);
    EXPECT_EQ(picture.At(1, 0), 3u);
    EXPECT_EQ(picture.At(2, 0), 4u);
}

TEST(HeadlessLimits, SetDibBitsTakesAnySize) {
    Picture picture(4, -4);
    const std::vector<uint32_t> bits(16, 9);
    BITMAPINFO info = HeaderOf(4, -4, 32);
    const auto draw = [&](DWORD width, DWORD height, DWORD startScan) {
        return SetDIBitsToDevice(picture, 0, 0, width, height, 0, 0, startScan, 4, bits.data(), &info, DIB_RGB_COLORS);
    };
    for (const DWORD size : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(draw(size, 4, 0), 4);
        EXPECT_EQ(picture.Words(), bits);
        EXPECT_EQ(draw(4, size, 0), 4);
        EXPECT_EQ(draw(4, 4, size), 0);
    }
    for (const LONG height : {0, INT32_MIN}) {
        info.bmiHeader.biHeight = height;
        EXPECT_EQ(draw(4, 4, 0), 0);
    }
}

TEST(HeadlessLimits, RegionsLoseWhatLeavesTheRange) {
    OwnedRegion region(RECT{-10, -10, 10, 10});
    EXPECT_EQ(OffsetRgn(region, INT32_MAX, INT32_MIN), SIMPLEREGION);
    EXPECT_EQ(region.Box(), (RECT{INT32_MAX - 10, INT32_MIN, INT32_MAX, INT32_MIN + 10}));
    EXPECT_EQ(OffsetRgn(region, INT32_MIN, 0), SIMPLEREGION);
    EXPECT_EQ(region.Box(), (RECT{-11, INT32_MIN, -1, INT32_MIN + 10}));
    EXPECT_EQ(OffsetRgn(region, 0, -10), NULLREGION);
}

TEST(HeadlessLimits, NullPointersAndUnknownValuesAreRefused) {
    Picture picture(4, -4);
    OwnedRegion region(RECT{0, 0, 1, 1});
    ExpectRefused(GetClipBox(picture, nullptr), GetViewportOrgEx(picture, nullptr), GetWindowOrgEx(picture, nullptr),
                  CreateRectRgnIndirect(nullptr), GetRgnBox(region, nullptr), RectInRegion(region, nullptr),
                  RectVisible(picture, nullptr));

    RGNDATA data{};
    data.rdh = RGNDATAHEADER{sizeof(RGNDATAHEADER), RDH_RECTANGLES, 1, 0, {}};
    EXPECT_EQ(ExtCreateRegion(nullptr, 47, &data), nullptr) << "too small for its count";
    EXPECT_EQ(ExtCreateRegion(nullptr, 31, &data), nullptr);
    data.rdh.nCount = 0;
    EXPECT_EQ(ExtCreateRegion(&data, sizeof(data), &data), nullptr) << "a transform";
    data.rdh.iType = 2;
    EXPECT_EQ(ExtCreateRegion(nullptr, sizeof(data), &data), nullptr);

    for (const BLENDFUNCTION &blend :
         {BLENDFUNCTION{1, 0, 255, 0}, BLENDFUNCTION{AC_SRC_OVER, 1, 255, 0}, BLENDFUNCTION{AC_SRC_OVER, 0, 255, 2}}) {
        EXPECT_EQ(GdiAlphaBlend(picture, 0, 0, 1, 1, picture, 2, 2, 1, 1, blend), FALSE);
    }
    EXPECT_EQ(BitBlt(picture, 0, 0, 1, 1, picture, 2, 2, 0x00EE0086), FALSE);

    BITMAPINFO info = HeaderOf(4, 4, 32);
    for (DWORD BITMAPINFOHEADER::*field : {&BITMAPINFOHEADER::biSize, &BITMAPINFOHEADER::biCompression}) {
        BITMAPINFO bad = info;
        bad.bmiHeader.*field = 12;
        EXPECT_EQ(CreateDIBSection(nullptr, &bad, DIB_RGB_COLORS, nullptr, nullptr, 0), nullptr);
    }
    info.bmiHeader.biPlanes = 2;
    EXPECT_EQ(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, nullptr, nullptr, 0), nullptr);
}

/// The letter by which the system tells what a thread of this process does: S when it sleeps.
char StateOf(pid_t thread) {
    std::ifstream file("/proc/self/task/" + std::to_string(thread) + "/stat");
    std::string number, name;
    char state = 0;
    file >> number >> name >> state;
    return state;
}

// A thread that waits without sleep may keep the owner from running for ever.
TEST(HeadlessLimits, WhoWaitsForACriticalSectionSleeps) {
    CRITICAL_SECTION section{};
    EnterCriticalSection(&section);
    std::promise<pid_t> started;
    std::thread waiter([&] {
        started.set_value(gettid());
        EXPECT_EQ(TryEnterCriticalSection(&section), FALSE);
        EnterCriticalSection(&section);
        LeaveCriticalSection(&section);
    });
    const pid_t thread = started.get_future().get();
    int asleep = 0;
    for (int i = 0; i < 100; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        asleep += StateOf(thread) == 'S';
    }
    LeaveCriticalSection(&section);
    waiter.join();
    EXPECT_GT(asleep, 25);
}

}  // namespace
}  // namespace lacquer
