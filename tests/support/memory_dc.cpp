// Device contexts of the tests.

#include "support/memory_dc.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lacquer {

HBITMAP NewSection(int width, int height, WORD bitsPerPixel, void **bits, const std::vector<RGBQUAD> &colours) {
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colours[256];
    } info{HeaderOf(width, height, bitsPerPixel).bmiHeader, {}};
    std::copy(colours.begin(), colours.end(), info.colours);
    return CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO *>(&info), DIB_RGB_COLORS, bits, nullptr, 0);
}

Dib::Dib(int width, int height, WORD bitsPerPixel, const std::vector<RGBQUAD> &colours)
    : handle_(NewSection(width, -height, bitsPerPixel, nullptr, colours)) {
    EXPECT_NE(nullptr, handle_);
}

SurfaceView Dib::View() const {
    SurfaceView view{};
    EXPECT_EQ(static_cast<int>(sizeof(BITMAP)), GetObjectW(handle_, sizeof(BITMAP), &view));
    return view;
}

MemoryDC::MemoryDC(HBITMAP bitmap) : dc_(CreateCompatibleDC(nullptr)), previous_(SelectObject(dc_, bitmap)) {
    EXPECT_NE(nullptr, previous_);
}

MemoryDC::~MemoryDC() {
    SelectObject(dc_, previous_);
    DeleteDC(dc_);
}

void SelectClipWithHole(HDC dc, const RECT &rect, const RECT &hole) {
    HRGN region = CreateRectRgnIndirect(&rect), inner = CreateRectRgnIndirect(&hole);
    EXPECT_NE(NULLREGION, CombineRgn(region, region, inner, RGN_DIFF));
    ExtSelectClipRgn(dc, region, RGN_COPY);
    DeleteObject(region);
    DeleteObject(inner);
}

}  // namespace lacquer
