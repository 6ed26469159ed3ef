// Bitmaps: inspection, copies, resampling, turns, and canvases that become bitmaps.

#include <gtest/gtest.h>

#include "objects.h"

namespace lacquer {
namespace {

constexpr DWORD kFilter = 0x01000007;
using Size = std::array<LONG, 2>;

int DepthOf(HGBITMAP bitmap) {
    BYTE depth = 0;
    EXPECT_EQ(1, GetBitmapBitsPixel(bitmap, &depth));
    return depth;
}

TEST(BitmapTest, ANewOneHasItsSizeAndFilterWord0) {
    const OwnedBitmap memory(CreateMemBitmap(7, 5)), system(CreateSystemBitmap(7, 5));
    for (const HGBITMAP bitmap : {HGBITMAP(memory), HGBITMAP(system)}) {
        EXPECT_EQ((Size{7, 5}), SizeOf(bitmap));
        EXPECT_EQ(32, DepthOf(bitmap));
        EXPECT_EQ(0u, FilterOf(bitmap));
        EXPECT_EQ(1, SetBitmapFilter(bitmap, 0xFFFFFFFF));
        EXPECT_EQ(0xFFFFFFFF, FilterOf(bitmap));
        EXPECT_EQ(1, UnlockBitmapBits(bitmap));
    }
    EXPECT_EQ(std::vector<uint32_t>(35), PixelsIn(system));
    EXPECT_NE(GetBitmapHandle(memory), GetBitmapHandle(system));
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
    const OwnedBitmap bitmap = Noisy(OwnedBitmap(CreateMemBitmapEx(5, 3, 24, 0)), 1);
    SetBitmapFilter(bitmap, kFilter);
    const std::vector<uint32_t> colours = ColoursOf(ViewOf(bitmap));
    HBITMAP handle = GetBitmapHandle(bitmap);
    ASSERT_NE(nullptr, handle);
    EXPECT_EQ(handle, GetBitmapHandle(bitmap));
    EXPECT_EQ(32, DepthOf(bitmap));
    EXPECT_EQ(kFilter, FilterOf(bitmap));
    EXPECT_EQ(colours, PixelsIn(bitmap));
}

TEST(BitmapTest, CopyMovesPixelsAndFilterBetweenRectanglesOrNothing) {
    const OwnedBitmap source = NoisyBitmap(6, 5, 2), dest = NoisyBitmap(8, 8, 3),
                      shallow = Noisy(OwnedBitmap(CreateMemBitmapEx(8, 8, 8, 0)), 4);
    const std::vector<uint32_t> before = PixelsIn(dest), indices = PixelsIn(shallow);
    SetBitmapFilter(source, kFilter);
    const RECT from{1, 1, 4, 3}, to{4, 5, 8, 8}, outside{5, 0, 9, 4};
    EXPECT_EQ(1, CopyBitmap(dest, &outside, source, &from));
    EXPECT_EQ(before, PixelsIn(dest));
    EXPECT_EQ(0u, FilterOf(dest));
    EXPECT_EQ(1, CopyBitmap(shallow, &to, source, &from));
    EXPECT_EQ(indices, PixelsIn(shallow)) << "no depth is converted downwards";
    EXPECT_EQ(0u, FilterOf(shallow));
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

TEST(BitmapTest, ResizeGives32BitsInTheSameKindOfStorage) {
    const OwnedBitmap source = Noisy(OwnedBitmap(CreateMemBitmapEx(6, 4, 8, 16)), 1, true),
                      system(CreateSystemBitmap(6, 4));
    SetBitmapFilter(source, kFilter);
    const OwnedBitmap same(ResizeBitmap(source, 6, 4, 5)), ofSystem(ResizeBitmap(system, 3, 2, 0));
    EXPECT_EQ(32, DepthOf(same));
    EXPECT_EQ(kFilter, FilterOf(same));
    EXPECT_EQ(ColoursOf(ViewOf(source)), PixelsIn(same));
    EXPECT_EQ((Size{3, 2}), SizeOf(ofSystem));
    // Of a system bitmap's product the handle is there without a move.
    for (const HGBITMAP made : {HGBITMAP(same), HGBITMAP(ofSystem)}) {
        const void *bits = ViewOf(made).bits;
        EXPECT_NE(nullptr, GetBitmapHandle(made));
        EXPECT_EQ(made == HGBITMAP(ofSystem), bits == ViewOf(made).bits);
    }
}

TEST(BitmapTest, RotateAndFlipTakeTheirOwnCodesOnly) {
    const OwnedBitmap source = Noisy(OwnedBitmap(CreateMemBitmapEx(3, 2, 8, 16)), 4, true);
    SetBitmapFilter(source, kFilter);
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
    const OwnedBitmap turned(RotateBitmap(source, LACQUER_ROTATE_90));
    EXPECT_EQ((Size{2, 3}), SizeOf(turned));
    EXPECT_EQ(8, DepthOf(turned));
    EXPECT_EQ(kFilter, FilterOf(turned));
    EXPECT_EQ(16u, ViewOf(turned).paletteCount);
    EXPECT_EQ(ColourAt(ViewOf(source), 0, 0), ColourAt(ViewOf(turned), 1, 0)) << "top left to top right";
}

TEST(BitmapTest, ACanvasWithADeviceContextBecomesABitmapWithoutOne) {
    const HGCANVAS canvas = CreateCanvas(4, 4, {});
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

/// Turns a canvas into an object of another type, which has the canvas's pixels, opaque unless the canvas draws over.
template <class Object, class Convert, class GetHandle>
void ExpectConverted(const Convert &convert, const GetHandle &getHandle) {
    for (const bool system : {false, true}) {
        for (const DWORD filter : std::initializer_list<DWORD>{0, kFilter, 0x02000001, 0x81000000}) {
            const HGCANVAS canvas = system ? CreateSystemCanvas(5, 3, {}) : CreateCanvas(5, 3, {});
            FillWithNoise(ViewOf(canvas), filter);
            SetCanvasFilter(canvas, filter);
            std::vector<uint32_t> expected = PixelsIn(canvas);
            if (filter >> 24 != LACQUER_DRAW_OVER) {
                for (uint32_t &pixel : expected) pixel |= 0xFF000000;
            }
            const Object made(convert(canvas));
            EXPECT_FALSE(IsLive(canvas));
            EXPECT_EQ(filter, FilterOf(made));
            EXPECT_EQ(expected, PixelsIn(made));
            EXPECT_EQ((Size{5, 3}), SizeOf(made));
            EXPECT_NE(nullptr, getHandle(made));
        }
    }
}

TEST(ConversionTest, ACanvasGivesItsPixelsAway) {
    ExpectConverted<OwnedBitmap>(CanvasToBitmap, GetBitmapHandle);
    ExpectConverted<OwnedTexture>(CanvasToTexture, GetTextureHandle);
}

}  // namespace
}  // namespace lacquer
