// Locks of a caller's device context: directly in its DIB section, or through a copy that is written back.

#include "core/dc_lock.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "core/locked.h"
#include "core/locked_pieces.h"
#include "support/memory_dc.h"
#include "support/pixels.h"

namespace lacquer {
namespace {

constexpr uint32_t kColours = 0xFFFFFF;
constexpr LONG kSide = 8;

class DcLockTest : public testing::Test {
protected:
    DcLockTest() { FillWithNoise(dib_.View(), 21); }

    /// The pixel at device coordinates.
    uint32_t At(LONG x, LONG y) const { return PixelAt(dib_.View(), x, y); }

    Dib dib_{kSide, kSide};
    MemoryDC dc_{dib_.Handle()};
    DcLock lock_;
    SurfaceView view_{};
};

TEST_F(DcLockTest, AVisibleRectangleIsLockedInPlace) {
    ASSERT_TRUE(lock_.Lock(dc_, {2, 3, 6, 8}, &view_));
    const SurfaceView whole = dib_.View();
    EXPECT_EQ(static_cast<char *>(whole.bits) + 3 * whole.stride + 2 * 4, view_.bits);
    EXPECT_EQ(4, view_.width);
    EXPECT_EQ(5, view_.height);
    EXPECT_EQ(whole.stride, view_.stride);
    EXPECT_EQ(32, view_.bitsPerPixel);
    EXPECT_EQ(1, view_.planes);
    SurfaceView second{};
    EXPECT_TRUE(lock_.Lock(dc_, {0, 0, kSide, kSide}, &second)) << "locks in place are not exclusive";
    lock_.Unlock();
    lock_.Unlock();
}

TEST_F(DcLockTest, OriginsMoveTheRectangle) {
    SetViewportOrgEx(dc_, 5, -4, nullptr);
    SetWindowOrgEx(dc_, 3, -6, nullptr);
    ASSERT_TRUE(lock_.Lock(dc_, {-2, -1, 3, 2}, &view_));  // (0, 1, 5, 4) on the device
    const SurfaceView whole = dib_.View();
    EXPECT_EQ(static_cast<char *>(whole.bits) + whole.stride, view_.bits);
    EXPECT_EQ(5, view_.width);
    EXPECT_EQ(3, view_.height);
}

TEST_F(DcLockTest, InsideASimpleClipItIsStillInPlace) {
    HRGN region = CreateRectRgn(1, 1, 7, 7);
    SelectClipRgn(dc_, region);
    DeleteObject(region);
    ASSERT_TRUE(lock_.Lock(dc_, {1, 1, 7, 7}, &view_));
    EXPECT_EQ(dib_.View().stride, view_.stride);
    EXPECT_EQ(static_cast<char *>(dib_.View().bits) + dib_.View().stride + 4, view_.bits);
}

TEST_F(DcLockTest, OtherDepthsAreLockedAsTheyAre) {
    for (const WORD bitsPerPixel : std::initializer_list<WORD>{8, 16, 24}) {
        const Dib dib(5, 4, bitsPerPixel);
        const MemoryDC dc(dib.Handle());
        ASSERT_TRUE(lock_.Lock(dc, {1, 2, 3, 4}, &view_));
        EXPECT_EQ(bitsPerPixel, view_.bitsPerPixel);
        EXPECT_EQ(static_cast<char *>(dib.View().bits) + 2 * dib.View().stride + bitsPerPixel / 8, view_.bits);
    }
}

TEST_F(DcLockTest, BeyondTheClipACopyIsLockedAndWrittenBackInside) {
    HRGN region = CreateRectRgn(2, 2, 5, 6);
    SelectClipRgn(dc_, region);
    DeleteObject(region);
    const std::vector<uint32_t> before = PixelsOf(dib_.View());
    ASSERT_TRUE(lock_.Lock(dc_, {1, 1, 7, 7}, &view_));
    EXPECT_EQ(6, view_.width);
    EXPECT_EQ(6, view_.height);
    EXPECT_EQ(24, view_.stride);
    EXPECT_EQ(32, view_.bitsPerPixel);
    for (LONG y = 2; y < 6; ++y) {
        for (LONG x = 2; x < 5; ++x) EXPECT_EQ(At(x, y), PixelAt(view_, x - 1, y - 1));
    }
    FillWith(view_, 0x80402010);
    EXPECT_EQ(before, PixelsOf(dib_.View())) << "nothing is written before the unlock";
    lock_.Unlock();
    for (LONG y = 0; y < kSide; ++y) {
        for (LONG x = 0; x < kSide; ++x) {
            const bool inside = x >= 2 && x < 5 && y >= 2 && y < 6;
            EXPECT_EQ(inside ? 0x80402010 : before[static_cast<size_t>(y * kSide + x)], At(x, y)) << x << ' ' << y;
        }
    }
}

TEST_F(DcLockTest, WritingBackSparesTheHolesOfTheClip) {
    SelectClipWithHole(dc_, {0, 0, kSide, kSide}, {3, 3, 5, 5});
    const std::vector<uint32_t> before = PixelsOf(dib_.View());
    ASSERT_TRUE(lock_.Lock(dc_, {0, 0, kSide, kSide}, &view_));
    EXPECT_NE(dib_.View().bits, view_.bits);
    FillWith(view_, 0xFFAABBCC);
    lock_.Unlock();
    for (LONG y = 0; y < kSide; ++y) {
        for (LONG x = 0; x < kSide; ++x) {
            const bool hole = x >= 3 && x < 5 && y >= 3 && y < 5;
            EXPECT_EQ(hole ? before[static_cast<size_t>(y * kSide + x)] : 0xFFAABBCC, At(x, y)) << x << ' ' << y;
        }
    }
}

TEST_F(DcLockTest, PartlyOutsideTheBitmapItIsACopy) {
    SetViewportOrgEx(dc_, -2, 1, nullptr);
    const std::vector<uint32_t> before = PixelsOf(dib_.View());
    ASSERT_TRUE(lock_.Lock(dc_, {0, -3, 4, 3}, &view_));  // (-2, -2, 2, 4) on the device
    EXPECT_EQ(4, view_.width);
    EXPECT_EQ(6, view_.height);
    for (LONG y = 0; y < 4; ++y) {
        for (LONG x = 0; x < 2; ++x) EXPECT_EQ(At(x, y), PixelAt(view_, x + 2, y + 2));
    }
    for (LONG y = 0; y < 6; ++y) {
        for (LONG x = 0; x < 4; ++x) PutPixel(view_, x, y, 0xFF000000u + static_cast<uint32_t>(y * 4 + x));
    }
    lock_.Unlock();
    for (LONG y = 0; y < kSide; ++y) {
        for (LONG x = 0; x < kSide; ++x) {
            const bool inside = x < 2 && y < 4;
            EXPECT_EQ(inside ? 0xFF000000u + static_cast<uint32_t>((y + 2) * 4 + x + 2)
                             : before[static_cast<size_t>(y * kSide + x)],
                      At(x, y));
        }
    }
}

TEST_F(DcLockTest, ACopyConvertsTheDepthBothWays) {
    const Dib dib(6, 6, 24);
    FillWithNoise(dib.View(), 9);
    const MemoryDC dc(dib.Handle());
    SelectClipWithHole(dc, {0, 0, 6, 6}, {0, 0, 1, 1});
    ASSERT_TRUE(lock_.Lock(dc, {2, 2, 6, 6}, &view_));
    EXPECT_EQ(32, view_.bitsPerPixel);
    EXPECT_EQ(PixelAt(dib.View(), 3, 4), PixelAt(view_, 1, 2) & kColours);
    PutPixel(view_, 1, 2, 0x7F102030);
    lock_.Unlock();
    EXPECT_EQ(0x102030u, PixelAt(dib.View(), 3, 4));
}

TEST_F(DcLockTest, ABitmapThatIsNoDibSectionIsCopied) {
    constexpr COLORREF kWhite = 0xFFFFFF, kBlack = 0;
    HDC plain = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(plain, 6, 4);  // one bit per pixel
    HGDIOBJ previous = SelectObject(plain, bitmap);
    PatBlt(plain, 0, 0, 6, 4, BLACKNESS);
    SetPixel(plain, 2, 1, kWhite);
    ASSERT_TRUE(lock_.Lock(plain, {1, 1, 5, 4}, &view_));
    EXPECT_EQ(4, view_.width);
    EXPECT_EQ(3, view_.height);
    EXPECT_EQ(0xFFFFFFu, PixelAt(view_, 1, 0) & kColours);
    EXPECT_EQ(0u, PixelAt(view_, 0, 0) & kColours);
    PutPixel(view_, 1, 0, 0xFF000000);
    PutPixel(view_, 3, 2, 0xFFFFFFFF);
    lock_.Unlock();
    EXPECT_EQ(kBlack, GetPixel(plain, 2, 1));
    EXPECT_EQ(kWhite, GetPixel(plain, 4, 3));
    EXPECT_EQ(kBlack, GetPixel(plain, 4, 2));
    SelectObject(plain, previous);
    DeleteObject(bitmap);
    DeleteDC(plain);
}

TEST_F(DcLockTest, OneCopyAtATimeWithLocksInPlaceInsideIt) {
    ASSERT_TRUE(lock_.Lock(dc_, {0, 0, 2, 2}, &view_)) << "in place, before the copy";
    SelectClipWithHole(dc_, {0, 0, kSide, kSide}, {3, 3, 5, 5});
    ASSERT_TRUE(lock_.Lock(dc_, {0, 0, 4, 4}, &view_));
    FillWith(view_, 0x01020304);
    SurfaceView second{};
    EXPECT_FALSE(lock_.Lock(dc_, {0, 0, kSide, kSide}, &second)) << "a second copy";
    ExtSelectClipRgn(dc_, nullptr, RGN_COPY);
    const uint32_t before = At(0, 0);
    for (int nested = 0; nested < 2; ++nested) {
        ASSERT_TRUE(lock_.Lock(dc_, {4, 4, 6, 6}, &second));
        EXPECT_EQ(At(5, 4), PixelAt(second, 1, 0));
    }
    EXPECT_FALSE(lock_.Lock(dc_, {4, 4, 4, 6}, &second)) << "a refused lock has no unlock";
    lock_.Unlock();
    lock_.Unlock();
    EXPECT_EQ(before, At(0, 0)) << "these unlocks end the locks in place";
    lock_.Unlock();
    EXPECT_EQ(0x01020304u, At(0, 0));
    EXPECT_EQ(0x01020304u, At(3, 3)) << "the copy has kept its rectangle";
    EXPECT_NE(0x01020304u, At(4, 4));
    FillWith(dib_.View(), 0);
    for (int more = 0; more < 3; ++more) lock_.Unlock();
    EXPECT_EQ(0u, At(0, 0)) << "the copy is written once";
    SelectClipWithHole(dc_, {0, 0, kSide, kSide}, {3, 3, 5, 5});
    EXPECT_TRUE(lock_.Lock(dc_, {0, 0, kSide, kSide}, &second));
}

TEST_F(DcLockTest, ACopyThatIsNeverUnlockedIsFreed) {
    SelectClipWithHole(dc_, {0, 0, kSide, kSide}, {3, 3, 5, 5});
    DcLock forgotten;
    EXPECT_TRUE(forgotten.Lock(dc_, {0, 0, kSide, kSide}, &view_));
}

TEST_F(DcLockTest, RefusesEmptyAndImpossibleRectangles) {
    const RECT wrong[] = {{3, 3, 3, 5},
                          {3, 3, 5, 3},
                          {5, 5, 3, 3},
                          {INT_MAX, INT_MAX, INT_MIN, INT_MIN},
                          {INT_MIN, INT_MIN, INT_MAX, INT_MAX},
                          {0, 0, INT_MAX, INT_MAX},
                          {INT_MIN, 0, INT_MAX, 1},
                          {0, 0, 65536, 65536}};
    for (const RECT &rect : wrong) {
        EXPECT_FALSE(lock_.Lock(dc_, rect, &view_)) << rect.left << ' ' << rect.right;
        lock_.Unlock();
    }
}

TEST_F(DcLockTest, WhatCantBeReadIsTransparentBlack) {
    HDC gone = CreateCompatibleDC(nullptr);
    DeleteDC(gone);
    ASSERT_TRUE(lock_.Lock(gone, {0, 0, 3, 2}, &view_));
    EXPECT_EQ(std::vector<uint32_t>(6), PixelsOf(view_));
    lock_.Unlock();
}

TEST_F(DcLockTest, ExtremeOriginsReachNoForeignPixels) {
    for (const int x : {INT_MIN, -1, 0, INT_MAX}) {
        for (const int windowX : {INT_MIN, 0, INT_MAX}) {
            SetViewportOrgEx(dc_, x, 0, nullptr);
            SetWindowOrgEx(dc_, windowX, 0, nullptr);
            for (const RECT &rect :
                 {RECT{0, 0, 4, 4}, RECT{INT_MIN, 0, INT_MIN + 4, 4}, RECT{INT_MAX - 4, 0, INT_MAX, 4}}) {
                if (!lock_.Lock(dc_, rect, &view_)) continue;
                FillWith(view_, 0x12345678);
                lock_.Unlock();
            }
        }
    }
}

/// What a piece may do to a view: read and write every pixel, alpha included.
void Change(const SurfaceView &view) {
    for (LONG y = 0; y < view.height; ++y) {
        for (LONG x = 0; x < view.width; ++x) PutPixel(view, x, y, PixelAt(view, x, y) * 31 + 0x9A070503);
    }
}

TEST(LockedPiecesTest, SeeAndLeaveWhatLocksOfTheirOwnDo) {
    constexpr LONG kWidth = 30, kHeight = 20;
    for (uint32_t round = 0; round < 300; ++round) {
        uint32_t next = 0;
        const auto below = [&](LONG end) {
            return static_cast<LONG>(Noise(round, ++next) % static_cast<uint32_t>(end));
        };
        const Dib shared(kWidth, kHeight, 24), apart(kWidth, kHeight, 24);
        const MemoryDC sharedDC(shared.Handle()), apartDC(apart.Handle());
        for (const Dib *dib : {&shared, &apart}) FillWithNoise(dib->View(), round);
        for (HDC dc : {HDC(sharedDC), HDC(apartDC)}) {
            if (round % 4 != 0) SelectClipWithHole(dc, {0, 0, kWidth, kHeight}, {7, 4, 12, 15});
        }
        const std::unique_ptr<Canvas> sharing = MakeCanvasFromDC(sharedDC), single = MakeCanvasFromDC(apartDC);
        {
            LockedPieces pieces(*sharing, {0, 0, kWidth - below(3), kHeight + below(3)});
            for (LONG i = 0; i < 12; ++i) {
                // Columns that do not touch, cells from left to right, or anything.
                RECT rect{2 * i, 3, 2 * i + 1, 9};
                if (round % 3 == 1) rect = {i % 4 * 5, i / 4 * 4, i % 4 * 5 + 5, i / 4 * 4 + 4};
                if (round % 3 == 2) rect = {below(20), below(12), 20 + below(11), 12 + below(9)};
                const SurfaceView *view = pieces.Lock(rect);
                const LockedCanvas own(*single, &rect);
                ASSERT_NE(nullptr, view);
                ASSERT_EQ(PixelsOf(*own.View()), PixelsOf(*view)) << "round " << round << " piece " << i;
                Change(*view);
                Change(*own.View());
            }
        }
        ASSERT_EQ(PixelsOf(apart.View()), PixelsOf(shared.View())) << "round " << round;
    }
}

}  // namespace
}  // namespace lacquer
