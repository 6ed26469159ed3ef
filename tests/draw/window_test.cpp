// Device contexts that only Windows has as the target: a metafile's, and a real window's. The latter needs a screen;
// cmake/run-under-xvfb provides one.

#include "painting.h"

namespace lacquer {
namespace {

Picture WithoutAlpha(Picture picture) {
    for (uint32_t &pixel : picture.pixels) pixel &= 0x00FFFFFF;
    return picture;
}

TEST(Metafile, IsDrawnOnAsIfItWereTransparentBlack) {
    const TestCanvas canvas(CanvasKind::Metafile, 40, 36, 1);
    Picture expected = PictureOf(canvas.View());
    const OwnedBitmap bitmap = NoiseBitmap(9, 8, 32, 5, kOver);
    const RECT place{5, 6, 14, 14}, fill{20, 20, 30, 34};
    EXPECT_EQ(1, DrawBitmap(canvas, &place, bitmap, 0));
    EXPECT_EQ(1, FillPreMulColorRectEx(canvas, 0x40102030, &fill, kOver));
    const Picture source = PictureOf(ViewOf(bitmap));
    DrawNearest(expected, expected.Bounds(), place, source, source.Bounds(), [](uint32_t s, uint32_t) { return s; });
    ForEachPixel(expected, [&](LONG x, LONG y) {
        if (Contains(fill, x, y)) expected.At(x, y) = 0x40102030;
    });
    EXPECT_TRUE(Same(expected, canvas.Pixels()));
}

/// A window without a frame on the screen, with its device context.
class Window : public ::testing::Test {
protected:
    void SetUp() override {
        window_ = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 20, 30, 40, 36, nullptr,
                                  nullptr, nullptr, nullptr);
        dc_ = window_ ? GetDC(window_) : nullptr;
        MSG message;
        while (window_ && PeekMessageW(&message, window_, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        // Without a screen windows can be made, but what is drawn on them is lost.
        if (!dc_ || SetPixel(dc_, 1, 1, 0x00332211) == CLR_INVALID || GetPixel(dc_, 1, 1) != 0x00332211) {
            GTEST_SKIP() << "there is no screen";
        }
    }
    void TearDown() override {
        if (dc_) ReleaseDC(window_, dc_);
        if (window_) DestroyWindow(window_);
    }

    /// What the window shows; its alpha means nothing and is left out.
    Picture Shown() const {
        const Dib dib(40, 36);
        const MemoryDC memory(dib.Handle());
        EXPECT_NE(0, BitBlt(memory, 0, 0, 40, 36, dc_, 0, 0, SRCCOPY));
        GdiFlush();
        return WithoutAlpha(PictureOf(dib.View()));
    }

    void Show(const Picture &picture) const {
        const Dib dib(40, 36);
        ForEachPixel(picture, [&](LONG x, LONG y) { PutPixel(dib.View(), x, y, picture.At(x, y)); });
        EXPECT_NE(0, BitBlt(dc_, 0, 0, 40, 36, MemoryDC(dib.Handle()), 0, 0, SRCCOPY));
    }

    HWND window_ = nullptr;
    HDC dc_ = nullptr;
};

TEST_F(Window, IsACanvasForDrawsAndBlends) {
    const OwnedCanvas canvas(CreateCanvasFromDC(dc_));
    EXPECT_EQ(window_, GetCanvasWindow(canvas));
    const TestCanvas plain(CanvasKind::Memory, 40, 36, 1), source(CanvasKind::Memory, 20, 16, 3);
    const OwnedBitmap bitmap = NoiseBitmap(9, 8, 32, 5, kOver);
    const OwnedTexture texture = NoiseTexture(9, 8, 24, 6, 0);
    Show(plain.Pixels());
    const RECT fill{-4, 3, 12, 20}, stretched{10, 10, 33, 50}, grid{20, 2, 37, 15}, tiled{3, 22, 31, 35},
        margins{2, 2, 2, 2};
    for (const HGCANVAS target : {HGCANVAS(plain), HGCANVAS(canvas)}) {
        EXPECT_EQ(1, FillSolidRect(target, 0x80FF8040, &fill));
        EXPECT_EQ(1, DrawBitmap(target, &stretched, bitmap, 1));
        EXPECT_EQ(1, DrawTexture9Grid(target, &grid, texture, nullptr, &margins, 1, 0, 255, 0, 1.0f, 0));
        EXPECT_EQ(0, DrawTextureTile(target, &tiled, texture, nullptr, 0, 128, 0, 1.0f));
    }
    EXPECT_TRUE(Same(WithoutAlpha(plain.Pixels()), Shown()));

    const RECT dest{5, 6, 25, 22}, whole{0, 0, 20, 16};
    EXPECT_NE(0, BlendCanvas(canvas, &dest, source, &whole, 128));
    EXPECT_EQ(1, BlendCanvas(plain, &dest, source, &whole, 255));
    EXPECT_TRUE(Same(WithoutAlpha(plain.Pixels()), Shown())) << "GDI copies opaque sources whatever alpha";
}

}  // namespace
}  // namespace lacquer
