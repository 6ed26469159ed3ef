// The two kinds of pixel storage: layout, palettes, locked rectangles.

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <memory>

#include "core/dib_storage.h"
#include "core/memory_storage.h"
#include "support/pixels.h"

namespace lacquer {
namespace {

SurfaceView Wanted(LONG width, LONG height, WORD bitsPerPixel) {
    SurfaceView view{};
    view.width = width;
    view.height = height;
    view.bitsPerPixel = bitsPerPixel;
    return view;
}

struct Layout {
    LONG width, height;
    WORD bitsPerPixel;
    uint16_t palette;
    LONG stride;
    int paletteKept;
};

class LayoutTest : public testing::TestWithParam<Layout> {};

TEST_P(LayoutTest, StrideAndPaletteFollowTheDepth) {
    const Layout &layout = GetParam();
    MemoryStorage storage;
    SurfaceView view = Wanted(layout.width, layout.height, layout.bitsPerPixel);
    ASSERT_TRUE(storage.Create(&view, layout.palette));
    EXPECT_FALSE(storage.IsEmpty());
    EXPECT_EQ(layout.stride, view.stride);
    EXPECT_EQ(layout.width, storage.Width());
    EXPECT_EQ(layout.height, storage.Height());
    EXPECT_EQ(layout.bitsPerPixel, storage.BitsPixel());
    EXPECT_EQ(layout.paletteKept, storage.PaletteCount());

    SurfaceView locked{};
    ASSERT_EQ(layout.bitsPerPixel >= 8, storage.LockEx(&locked, nullptr));
    if (layout.bitsPerPixel < 8) return;
    EXPECT_EQ(0, locked.type);
    EXPECT_EQ(1, locked.planes);
    EXPECT_EQ(layout.stride, locked.stride);
    EXPECT_EQ(layout.bitsPerPixel, locked.bitsPerPixel);
    EXPECT_GE(locked.stride, layout.width * (layout.bitsPerPixel / 8));
    // Every byte of the rows and of the storage's own palette is there: an exact block shows under the sanitizer.
    std::memset(locked.bits, 0x5A, static_cast<size_t>(locked.stride) * static_cast<size_t>(locked.height));
    if (layout.paletteKept > 0) {
        std::memset(locked.palette, 0xA5, static_cast<size_t>(layout.paletteKept) * sizeof(DWORD));
        EXPECT_EQ(static_cast<void *>(locked.palette + layout.paletteKept), locked.bits);
    }
}

INSTANTIATE_TEST_SUITE_P(Depths, LayoutTest,
                         testing::Values(Layout{3, 2, 24, 0, 12, 0}, Layout{5, 2, 8, 16, 8, 16},
                                         Layout{5, 3, 8, 300, 8, 256}, Layout{5, 3, 8, 65535, 8, 256},
                                         Layout{4, 1, 8, 0, 4, 0}, Layout{1, 1, 32, 9, 4, 0},
                                         Layout{7, 5, 24, 256, 24, 0}, Layout{9, 2, 0, 5, 0, 1},
                                         Layout{9, 2, 1, 5, 4, 2}, Layout{9, 2, 4, 99, 8, 16},
                                         Layout{3, 3, 16, 7, 8, 0}, Layout{3, 2, 48, 0, 20, 0},
                                         Layout{2, 2, 65535, 1, 16384, 0}, Layout{32767, 1, 32, 0, 131068, 0},
                                         Layout{1, 32767, 24, 0, 4, 0}));

TEST(MemoryStorageTest, WithoutAPaletteIndicesAreGreys) {
    MemoryStorage storage;
    SurfaceView view = Wanted(3, 3, 8), locked{};
    ASSERT_TRUE(storage.Create(&view, 0));
    ASSERT_TRUE(storage.LockEx(&locked, nullptr));
    ASSERT_EQ(256u, locked.paletteCount);
    for (DWORD i = 0; i < 256; ++i) EXPECT_EQ(0xFF000000 | i << 16 | i << 8 | i, locked.palette[i]);
    ASSERT_TRUE(storage.Lock(&locked, nullptr));
    EXPECT_EQ(0u, locked.paletteCount);
    EXPECT_EQ(nullptr, locked.palette);
}

TEST(MemoryStorageTest, CreateReplacesAndReleaseEmpties) {
    MemoryStorage storage;
    SurfaceView view = Wanted(5, 5, 8), locked{};
    ASSERT_TRUE(storage.Create(&view, 256));
    view = Wanted(2, 3, 24);
    ASSERT_TRUE(storage.Create(&view, 0));
    EXPECT_EQ(2, storage.Width());
    EXPECT_EQ(0, storage.PaletteCount());
    storage.Release();
    EXPECT_TRUE(storage.IsEmpty());
    EXPECT_EQ(0, storage.Width());
    EXPECT_EQ(0, storage.BitsPixel());
    EXPECT_FALSE(storage.Lock(&locked, nullptr));
    EXPECT_FALSE(storage.LockEx(&locked, nullptr));
}

TEST(MemoryStorageTest, IsEmptyWhenMemoryIsShort) {
    MemoryStorage storage;
    SurfaceView view = Wanted(2, 2, 8), huge = Wanted(65535, 65535, 65535);
    ASSERT_TRUE(storage.Create(&view, 4));
    EXPECT_FALSE(storage.Create(&huge, 4));
    EXPECT_TRUE(storage.IsEmpty());
    EXPECT_EQ(0, storage.PaletteCount());
    EXPECT_EQ(0, storage.Height());
}

TEST(DibStorageTest, IsAlways32BitsTopDownAndZero) {
    DibStorage storage;
    SurfaceView view = Wanted(5, 3, 8), locked{};
    ASSERT_TRUE(storage.Create(&view, 256));
    EXPECT_EQ(32, view.bitsPerPixel);
    EXPECT_EQ(20, view.stride);
    EXPECT_EQ(32, storage.BitsPixel());
    EXPECT_EQ(0, storage.PaletteCount());
    ASSERT_TRUE(storage.LockEx(&locked, nullptr));
    EXPECT_EQ(0u, locked.paletteCount);
    EXPECT_EQ(nullptr, locked.palette);
    EXPECT_EQ(std::vector<uint32_t>(15), PixelsOf(locked));

    // The second row in memory is the second from the top for the system too.
    PutPixel(locked, 1, 1, 0x00112233);
    HDC dc = CreateCompatibleDC(nullptr);
    HGDIOBJ previous = SelectObject(dc, storage.Bitmap());
    EXPECT_EQ(0x00332211u, GetPixel(dc, 1, 1));
    SelectObject(dc, previous);
    DeleteDC(dc);

    storage.Release();
    EXPECT_TRUE(storage.IsEmpty());
    EXPECT_EQ(0, storage.Width());
    EXPECT_EQ(0, storage.BitsPixel());
    EXPECT_FALSE(storage.Lock(&locked, nullptr));
}

/// Both kinds follow the same rules for rectangles.
class LockRectangleTest : public testing::TestWithParam<int> {
protected:
    static constexpr LONG kWidth = 7, kHeight = 5;

    void SetUp() override {
        storage_.reset(GetParam() == 0 ? static_cast<SurfaceStorage *>(new DibStorage) : new MemoryStorage);
        SurfaceView view = Wanted(kWidth, kHeight, static_cast<WORD>(GetParam()));
        ASSERT_TRUE(storage_->Create(&view, 3));
        ASSERT_TRUE(storage_->LockEx(&whole_, nullptr));
        FillWithNoise(whole_, 1);
    }

    std::unique_ptr<SurfaceStorage> storage_;
    SurfaceView whole_{};
};

TEST_P(LockRectangleTest, TheWholeRectangleIsTheWholeSurface) {
    const RECT all{0, 0, kWidth, kHeight};
    SurfaceView locked{};
    ASSERT_TRUE(storage_->LockEx(&locked, &all));
    EXPECT_EQ(0, std::memcmp(&whole_, &locked, sizeof locked));
}

TEST_P(LockRectangleTest, EveryInnerRectangleShowsItsPixels) {
    for (LONG left = 0; left < kWidth; ++left) {
        for (LONG right = left + 1; right <= kWidth; ++right) {
            for (LONG top = 0; top < kHeight; ++top) {
                const RECT rect{left, top, right, top + 1};
                SurfaceView locked{};
                ASSERT_TRUE(storage_->Lock(&locked, &rect));
                ASSERT_EQ(right - left, locked.width);
                ASSERT_EQ(1, locked.height);
                ASSERT_EQ(whole_.stride, locked.stride);
                for (LONG x = left; x < right; ++x) {
                    ASSERT_EQ(PixelAt(whole_, x, top), PixelAt(locked, x - left, 0));
                }
            }
        }
    }
}

TEST_P(LockRectangleTest, OutsideEmptyAndInvertedOnesAreRefused) {
    const RECT wrong[] = {
        {-1, 0, 3, 3},
        {0, -1, 3, 3},
        {0, 0, kWidth + 1, 3},
        {0, 0, 3, kHeight + 1},
        {1, 1, 1, 5},
        {1, 1, 5, 1},
        {3, 1, 1, 3},
        {1, 3, 3, 1},
        {kWidth, kHeight, kWidth, kHeight},
        {INT_MIN, INT_MIN, INT_MAX, INT_MAX},
        {INT_MAX, INT_MAX, INT_MIN, INT_MIN},
        {0, 0, INT_MAX, INT_MAX},
        {INT_MIN, 0, 1, 1},
        {INT_MAX - 1, 0, INT_MAX, 1},
    };
    for (const RECT &rect : wrong) {
        SurfaceView locked{};
        EXPECT_FALSE(storage_->Lock(&locked, &rect))
            << rect.left << ' ' << rect.top << ' ' << rect.right << ' ' << rect.bottom;
        EXPECT_FALSE(storage_->LockEx(&locked, &rect));
    }
}

INSTANTIATE_TEST_SUITE_P(DibAndDepths, LockRectangleTest, testing::Values(0, 8, 16, 24, 32));

}  // namespace
}  // namespace lacquer
