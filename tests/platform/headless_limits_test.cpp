// What the headless GDI promises beyond the system's own: any coordinate in every function, null pointers, documented
// refusals.
#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <fstream>
#include <future>
#include <string>
#include <thread>

#include "gdi_objects.h"
#include "support/refusals.h"

namespace lacquer {
namespace {

constexpr int kEnds[] = {INT32_MIN, INT32_MIN + 1, -3, 0, 3, INT32_MAX - 1, INT32_MAX};

TEST(HeadlessLimits, TransfersTakeAnyCoordinate) {
    Picture source(4, -4), picture(4, -4);
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, 128, 0};
    for (const int origin : {0, INT32_MAX, INT32_MIN}) {
        SetViewportOrgEx(picture, origin, origin, nullptr);
        SetWindowOrgEx(picture, 0, origin, nullptr);
        for (const int mode : {BLACKONWHITE, COLORONCOLOR}) {
            SetStretchBltMode(picture, mode);
            for (const int x : kEnds) {
                for (const int width : kEnds) {
                    for (const int from : kEnds) {
                        EXPECT_NE(StretchBlt(picture, x, 0, width, 3, source, from, 0, x, 2, SRCCOPY), FALSE);
                        EXPECT_NE(StretchBlt(picture, 0, x, 5, width, source, 0, from, 9, x, SRCCOPY), FALSE);
                        EXPECT_NE(BitBlt(picture, x, from, width, width, source, from, x, SRCCOPY), FALSE);
                        GdiAlphaBlend(picture, x, 0, width, 4, source, from, 0, 4, 4, blend);
                    }
                    EXPECT_NE(PatBlt(picture, x, x, width, width, BLACKNESS), FALSE);
                }
                EXPECT_EQ(SetPixel(picture, x, INT32_MIN, 1), CLR_INVALID);
                EXPECT_EQ(GetPixel(picture, x, INT32_MIN), CLR_INVALID);
            }
        }
    }
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
    picture.Fill(5);
    std::vector<uint32_t> bits(16, 9);
    BITMAPINFO info = HeaderOf(4, -4, 32);
    const auto draw = [&](DWORD width, DWORD height, int sourceY) {
        return SetDIBitsToDevice(picture, 0, 0, width, height, 0, sourceY, 0, 4, bits.data(), &info, DIB_RGB_COLORS);
    };
    for (const DWORD size : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(draw(size, 4, 0), 4);
        EXPECT_EQ(picture.Words(), bits);
        EXPECT_EQ(draw(4, size, 0), 4);
        EXPECT_EQ(SetDIBitsToDevice(picture, 0, 0, 4, 4, 0, 0, size, 4, bits.data(), &info, DIB_RGB_COLORS), 0);
    }
    for (const LONG height : {0, INT32_MIN}) {
        info.bmiHeader.biHeight = height;
        EXPECT_EQ(draw(4, 4, 0), 0);
    }
}

TEST(HeadlessLimits, RegionsLoseWhatLeavesTheRange) {
    OwnedRegion region(-10, -10, 10, 10);
    EXPECT_EQ(OffsetRgn(region, INT32_MAX, INT32_MIN), SIMPLEREGION);
    EXPECT_EQ(region.Box(), (RECT{INT32_MAX - 10, INT32_MIN, INT32_MAX, INT32_MIN + 10}));
    EXPECT_EQ(OffsetRgn(region, INT32_MIN, 0), SIMPLEREGION);
    EXPECT_EQ(region.Box(), (RECT{-11, INT32_MIN, -1, INT32_MIN + 10}));
    EXPECT_EQ(OffsetRgn(region, 0, -10), NULLREGION);
}

TEST(HeadlessLimits, NothingIsPrinted) {
    // The region library complains on the standard error about boxes that it does not like.
    Picture picture(4, -4), source(4, -4);
    OwnedRegion region(0, 0, 2, 2), other(1, 1, 9, 9);
    struct {
        RGNDATAHEADER header;
        RECT rects[2];
    } data{};
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    for (int i = 0; i < 7 * 7 * 7 * 7; ++i) {
        const RECT rect{kEnds[i % 7], kEnds[i / 7 % 7], kEnds[i / 49 % 7], kEnds[i / 343]};
        for (const DWORD count : {1u, 2u}) {
            data.header = RGNDATAHEADER{sizeof(RGNDATAHEADER), RDH_RECTANGLES, count, 0, {}};
            data.rects[0] = data.rects[1] = rect;
            OwnedRegion made(ExtCreateRegion(nullptr, sizeof(data), reinterpret_cast<const RGNDATA *>(&data)));
            CombineRgn(other, made, other, RGN_XOR);
            OffsetRgn(other, rect.left, rect.bottom);
            CombineRgn(other, other, region, RGN_OR);
        }
        SetRectRgn(region, rect.left, rect.top, rect.right, rect.bottom);
        RectInRegion(other, &rect);
        SetWindowOrgEx(picture, rect.top, rect.right, nullptr);
        ExtSelectClipRgn(picture, other, 1 + i % 5);
        IntersectClipRect(picture, rect.left, rect.top, rect.right, rect.bottom);
        ExcludeClipRect(picture, rect.right, rect.top, rect.left, rect.bottom);
        OffsetClipRgn(picture, rect.top, rect.left);
        RectVisible(picture, &rect);
        StretchBlt(picture, rect.left, rect.top, rect.right, rect.bottom, source, rect.top, 0, rect.left, 4, SRCCOPY);
        if (i % 9 == 0) SelectClipRgn(picture, nullptr);
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr() + ::testing::internal::GetCapturedStdout(), "");
}

TEST(HeadlessLimits, NullPointersAndUnknownValuesAreRefused) {
    Picture picture(4, -4);
    OwnedRegion region(0, 0, 1, 1);
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

TEST(HeadlessLimits, BandsThatOverlapInOneBitmapAreCopiedThroughTheClip) {
    // The clip splits the blit into boxes: a box must not read what another has written.
    Picture picture(16, -16), expected(16, -16);
    picture.Number();
    expected.Number();
    OwnedRegion clip(0, 0, 16, 5), lower(3, 5, 9, 16);
    CombineRgn(clip, clip, lower, RGN_OR);
    SelectClipRgn(picture, clip);
    for (int y = 2; y < 16; ++y) {
        for (int x = 1; x < 16; ++x) {
            if (PtInRegion(clip, x, y) != 0) expected.At(x, y) = static_cast<uint32_t>((y - 2) * 16 + x - 1);
        }
    }
    EXPECT_NE(BitBlt(picture, 1, 2, 15, 14, picture, 0, 0, SRCCOPY), FALSE);
    EXPECT_EQ(picture.Words(), expected.Words());
}

TEST(HeadlessLimits, ThreadsMayWorkOnObjectsOfTheirOwn) {
    std::atomic<int> failures{0};
    const auto work = [&failures] {
        for (int i = 0; i < 300; ++i) {
            Picture source(8, -8), picture(8, 8);
            OwnedRegion clip(1, 1, 7, 7);
            source.Fill(0xFF000000u + static_cast<uint32_t>(i));
            SelectClipRgn(picture, clip);
            BitBlt(picture, 0, 0, 8, 8, source, 0, 0, SRCCOPY);
            if (picture.At(3, 3) != source.At(0, 0) || picture.At(0, 0) != 0) ++failures;
        }
    };
    std::thread threads[] = {std::thread(work), std::thread(work), std::thread(work)};
    for (std::thread &thread : threads) thread.join();
    EXPECT_EQ(failures, 0);
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
