// Device contexts of the tests.

#include "support/memory_dc.h"

#include <gtest/gtest.h>

namespace lacquer {

Dib::Dib(int width, int height, WORD bitsPerPixel) {
    // With room for the colour table of an 8-bit bitmap, all black.
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colours[256];
    } info{};
    info.header.biSize = sizeof(BITMAPINFOHEADER);
    info.header.biWidth = width;
    info.header.biHeight = -height;
    info.header.biPlanes = 1;
    info.header.biBitCount = bitsPerPixel;
    info.header.biCompression = BI_RGB;
    void *bits = nullptr;
    handle_ = CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO *>(&info), DIB_RGB_COLORS, &bits, nullptr, 0);
    EXPECT_NE(nullptr, handle_);
}

Dib::~Dib() { DeleteObject(handle_); }

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
