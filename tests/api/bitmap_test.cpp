// Bitmaps: inspection, copies, resampling, turns, and canvases that become bitmaps.

#include <gtest/gtest.h>

#include <array>

#include "objects.h"

namespace lacquer {
namespace {

constexpr DWORD kFilter = 0x01000007;

DWORD FilterOf(HGBITMAP bitmap) {
    DWORD filter = 0xAAAAAAAA;
    EXPECT_EQ(1, GetBitmapFilter(bitmap, &filter));
    return filter;
}
int DepthOf(HGBITMAP bitmap) {
    BYTE depth = 0;
    EXPECT_EQ(1, GetBitmapBitsPixel(bitmap, &depth));
    return depth;
}
std::array<LONG, 2> SizeOf(HGBITMAP bitmap) {
    SIZE size{};
    EXPECT_EQ(1, GetBitmapSize(bitmap, &size));
    return {size.cx, size.cy};
}

TEST(BitmapTest, ANewOneHasItsSizeAndFilterWord0) {
    const OwnedBitmap memory(CreateMemBitmap(7, 5)), system(CreateSystemBitmap(7, 5));
    for (const HGBITMAP bitmap : {HGBITMAP(memory), HGBITMAP(system)}) {
        EXPECT_EQ((std::array<LONG, 2>{7, 5}), SizeOf(bitmap));
        EXPECT_EQ(32, DepthOf(bitmap));
        EXPECT_EQ(0u, FilterOf(bitmap));
        EXPECT_EQ(1, SetBitmapFilter(bitmap, 0xFFFFFFFF));
        EXPECT_EQ(0xFFFFFFFF, FilterOf(bitmap));
        EXPECT_EQ(1, UnlockBitmapBits(bitmap));
    }
    EXPECT_EQ(std::vector<uint32_t>(35), PixelsIn(system));
}

TEST(BitmapTest, ThePlainLockWritesOnlyTheBitmapPart) {
    const OwnedBitmap bitmap(CreateMemBitmapEx(6, 4, 8, 16));
    const RECT rect{2, 1, 5, 4};
    DWORD marker = 0;
    SurfaceView plain{}, extended{};
    plain.paletteCount = 0x5A5A5A5A;
    plain.palette = &marker;
    ASSERT_EQ(1, LockBitmapBits(bitmap, &plain, &rect));
    EXPECT_EQ(0x5A5A5A5Au, plain.paletteCount);
    EXPECT_EQ(&marker, plain.palette);
    ASSERT_EQ(1, LockBitmapBitsEx(bitmap, &extended, &rect));
    EXPECT_EQ(16u, extended.paletteCount);
    EXPECT_EQ(plain.bits, extended.bits);
    EXPECT_EQ(3, plain.width);
    EXPECT_EQ(3, plain.height);
    EXPECT_EQ(8, plain.stride);
}

TEST(BitmapTest, HandleConversionKeepsThePixels) {
    const OwnedBitmap bitmap(CreateMemBitmapEx(5, 3, 24, 0)), system(CreateSystemBitmap(5, 3));
    FillWithNoise(ViewOf(bitmap), 1);
    SetBitmapFilter(bitmap, kFilter);
    const std::vector<uint32_t> colours = ColoursOf(ViewOf(bitmap));
    HBITMAP handle = GetBitmapHandle(bitmap);
    ASSERT_NE(nullptr, handle);
    EXPECT_EQ(handle, GetBitmapHandle(bitmap));
    EXPECT_EQ(32, DepthOf(bitmap));
    EXPECT_EQ(kFilter, FilterOf(bitmap));
    EXPECT_EQ(colours, PixelsIn(bitmap));
    EXPECT_NE(nullptr, GetBitmapHandle(system));
    EXPECT_NE(handle, GetBitmapHandle(system));
}

TEST(BitmapTest, CopyMovesPixelsFilterAndPaletteBetweenRectangles) {
    const OwnedBitmap source = NoisyBitmap(6, 5, 2), dest = NoisyBitmap(8, 8, 3);
    const std::vector<uint32_t> before = PixelsIn(dest);
    SetBitmapFilter(source, kFilter);
    const RECT from{1, 1, 4, 3}, to{4, 5, 8, 8}, outside{5, 0, 9, 4};
    EXPECT_EQ(1, CopyBitmap(dest, &outside, source, &from));
    EXPECT_EQ(before, PixelsIn(dest));
    EXPECT_EQ(0u, FilterOf(dest));
    EXPECT_EQ(1, CopyBitmap(dest, &to, source, &from));
    EXPECT_EQ(kFilter, FilterOf(dest));
    const SurfaceView sourceView = ViewOf(source), destView = ViewOf(dest);
    for (LONG y = 0; y < 8; ++y) {
        for (LONG x = 0; x < 8; ++x) {
            const bool copied = x >= 4 && x < 7 && y >= 5 && y < 7;
            EXPECT_EQ(copied ? PixelAt(sourceView, x - 3, y - 4) : before[static_cast<size_t>(y * 8 + x)],
                      PixelAt(destView, x, y));
        }
    }
}

TEST(BitmapTest, CopyIntoAShallowerBitmapChangesNothingAndGives1) {
    const OwnedBitmap source(CreateMemBitmapEx(4, 4, 24, 0)), dest(CreateMemBitmapEx(4, 4, 8, 0));
    FillWithNoise(ViewOf(source), 1);
    FillWithNoise(ViewOf(dest), 2);
    SetBitmapFilter(source, kFilter);
    const std::vector<uint32_t> before = PixelsIn(dest);
    EXPECT_EQ(1, CopyBitmap(dest, nullptr, source, nullptr));
    EXPECT_EQ(before, PixelsIn(dest));
    EXPECT_EQ(0u, FilterOf(dest));
}

TEST(BitmapTest, CopyIntoItselfMayOverlap) {
    const OwnedBitmap bitmap = NoisyBitmap(4, 4, 9);
    const std::vector<uint32_t> before = PixelsIn(bitmap);
    const RECT from{0, 0, 3, 3}, to{1, 1, 4, 4};
    EXPECT_EQ(1, CopyBitmap(bitmap, &to, bitmap, &from));
    for (LONG y = 0; y < 3; ++y) {
        for (LONG x = 0; x < 3; ++x) {
            EXPECT_EQ(before[static_cast<size_t>(y * 4 + x)], PixelAt(ViewOf(bitmap), x + 1, y + 1));
        }
    }
}

TEST(BitmapTest, ResizeGives32BitsInTheSameKindOfStorage) {
    const OwnedBitmap source(CreateMemBitmapEx(6, 4, 8, 16)), system(CreateSystemBitmap(6, 4));
    FillWithNoise(ViewOf(source), 1);
    FillPaletteWithNoise(ViewOf(source), 2);
    SetBitmapFilter(source, kFilter);
    const OwnedBitmap same(ResizeBitmap(source, 6, 4, 5)), half(ResizeBitmap(source, 3, 2, 0)),
        ofSystem(ResizeBitmap(system, 3, 2, 0));
    EXPECT_EQ(32, DepthOf(same));
    EXPECT_EQ(kFilter, FilterOf(same));
    EXPECT_EQ(ColoursOf(ViewOf(source)), PixelsIn(same));
    EXPECT_EQ((std::array<LONG, 2>{3, 2}), SizeOf(half));
    // Of a system bitmap's product the handle is there without a move.
    const void *bits = ViewOf(ofSystem).bits;
    EXPECT_NE(nullptr, GetBitmapHandle(ofSystem));
    EXPECT_EQ(bits, ViewOf(ofSystem).bits);
    const void *memoryBits = ViewOf(same).bits;
    EXPECT_NE(nullptr, GetBitmapHandle(same));
    EXPECT_NE(memoryBits, ViewOf(same).bits);
}

TEST(BitmapTest, ResizeKernelModesBeyondAreaAreBilinear) {
    const OwnedBitmap source = NoisyBitmap(5, 5, 6);
    const auto resized = [&](DWORD mode) {
        const OwnedBitmap made(ResizeBitmap(source, 9, 3, mode));
        return PixelsIn(made);
    };
    const std::vector<uint32_t> bilinear = resized(1);
    for (const DWORD mode : {2u, 3u, 6u, 9u, 0xFFFFFFFFu}) EXPECT_EQ(bilinear, resized(mode)) << mode;
    EXPECT_NE(bilinear, resized(0));
    EXPECT_NE(bilinear, resized(4));
}

TEST(BitmapTest, RotateAndFlipTakeTheirOwnCodesOnly) {
    const OwnedBitmap source = NoisyBitmap(3, 2, 4);
    for (int code = -2; code <= 9; ++code) {
        const DWORD word = static_cast<DWORD>(code);
        const HGBITMAP transformed = TransformBitmap(source, word), rotated = RotateBitmap(source, code),
                       flipped = FlipBitmap(source, word);
        EXPECT_EQ(code >= 1 && code <= 7, static_cast<bool>(transformed)) << code;
        EXPECT_EQ(code >= 1 && code <= 3, static_cast<bool>(rotated)) << code;
        EXPECT_EQ(code == 4 || code == 5, static_cast<bool>(flipped)) << code;
        EXPECT_TRUE(!rotated || PixelsIn(transformed) == PixelsIn(rotated));
        EXPECT_TRUE(!flipped || PixelsIn(transformed) == PixelsIn(flipped));
        for (const HGBITMAP made : {transformed, rotated, flipped}) DeleteBitmap(made);
    }
}

TEST(BitmapTest, AQuarterTurnBringsTheTopLeftToTheTopRight) {
    const OwnedBitmap source(CreateMemBitmapEx(3, 2, 8, 16));
    FillWithNoise(ViewOf(source), 4);
    FillPaletteWithNoise(ViewOf(source), 5);
    SetBitmapFilter(source, kFilter);
    const OwnedBitmap turned(RotateBitmap(source, LACQUER_ROTATE_90));
    EXPECT_EQ((std::array<LONG, 2>{2, 3}), SizeOf(turned));
    EXPECT_EQ(8, DepthOf(turned));
    EXPECT_EQ(kFilter, FilterOf(turned));
    EXPECT_EQ(16u, ViewOf(turned).paletteCount);
    EXPECT_EQ(ColourAt(ViewOf(source), 0, 0), ColourAt(ViewOf(turned), 1, 0));
}

TEST(BitmapTest, ACanvasBecomesOpaqueUnlessItsDrawModeIsOver) {
    for (const bool system : {false, true}) {
        for (const DWORD filter : std::initializer_list<DWORD>{0, kFilter, 0x02000001, 0x81000000}) {
            const HGCANVAS canvas = system ? CreateSystemCanvas(5, 3, HGCANVAS{}) : CreateCanvas(5, 3, HGCANVAS{});
            FillWithNoise(ViewOf(canvas), filter);
            SetCanvasFilter(canvas, filter);
            std::vector<uint32_t> expected = PixelsIn(canvas);
            if (filter >> 24 != LACQUER_DRAW_OVER) {
                for (uint32_t &pixel : expected) pixel |= 0xFF000000;
            }
            const OwnedBitmap bitmap(CanvasToBitmap(canvas));
            EXPECT_FALSE(IsLive(canvas));
            EXPECT_EQ(filter, FilterOf(bitmap));
            EXPECT_EQ(expected, PixelsIn(bitmap));
            EXPECT_EQ((std::array<LONG, 2>{5, 3}), SizeOf(bitmap));
            EXPECT_NE(nullptr, GetBitmapHandle(bitmap));
        }
    }
}

TEST(BitmapTest, ACanvasWithADeviceContextBecomesABitmapWithoutOne) {
    const HGCANVAS canvas = CreateCanvas(4, 4, HGCANVAS{});
    HDC dc = GetCanvasHandle(canvas);
    ASSERT_NE(nullptr, dc);
    PatBlt(dc, 0, 0, 2, 2, WHITENESS);
    const OwnedBitmap bitmap(CanvasToBitmap(canvas));
    EXPECT_EQ(0xFFFFFFFF, PixelAt(ViewOf(bitmap), 1, 1));
    EXPECT_EQ(0xFF000000, PixelAt(ViewOf(bitmap), 2, 2));
    // No context holds the GDI bitmap any more, so another one can take it.
    HDC other = CreateCompatibleDC(nullptr);
    HGDIOBJ previous = SelectObject(other, GetBitmapHandle(bitmap));
    EXPECT_NE(nullptr, previous);
    SelectObject(other, previous);
    DeleteDC(other);
}

}  // namespace
}  // namespace lacquer
