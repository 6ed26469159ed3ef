// The exported transfers: BitBlt, StretchBlt, PatBlt, AlphaBlend, SetDIBitsToDevice and single pixels.
#include "platform/headless/dib_layout.h"
#include "platform/headless/transfer.h"

namespace lacquer::headless {
namespace {

bool IsFill(DWORD operation) { return operation == BLACKNESS || operation == WHITENESS; }

/// The logical coordinates of a run of pixels from `start` on, in the direction of `length`: low inclusive, high
/// exclusive.
struct Extent {
    int64_t low, high;
};
Extent ExtentOf(int64_t start, int64_t length) {
    return length >= 0 ? Extent{start, start + length} : Extent{start + length + 1, start + 1};
}

BOOL Fill(HDC dc, int x, int y, int width, int height, DWORD operation) {
    const DeviceContext *context = FindDC(dc);
    if (!context) return FALSE;
    const Extent columns = ExtentOf(x + context->OffsetX(), width);
    const Extent rows = ExtentOf(y + context->OffsetY(), height);
    const RECT rect{Clamped(columns.low), Clamped(rows.low), Clamped(columns.high), Clamped(rows.high)};
    return FillBits(*context, rect, operation == WHITENESS);
}

Merge MergeOf(int stretchMode) {
    return stretchMode == BLACKONWHITE ? Merge::And : stretchMode == WHITEONBLACK ? Merge::Or : Merge::PickOne;
}

/// A caller's pixels, with a colour table of full length.
struct DibPixels {
    PixelView view;
    RGBQUAD colours[256];
};

void ViewDib(const DibLayout &layout, const void *bits, LONG lines, DibPixels &out) {
    const ptrdiff_t stride = static_cast<ptrdiff_t>((int64_t{layout.width} * layout.bitsPerPixel + 31) / 32 * 4);
    // Views of sources are only read.
    auto *first = const_cast<uint8_t *>(static_cast<const uint8_t *>(bits));
    std::memset(out.colours, 0, sizeof(out.colours));
    if (layout.colourCount > 0) std::memcpy(out.colours, layout.colours, layout.colourCount * sizeof(RGBQUAD));
    out.view = PixelView{layout.topDown ? first : first + stride * (lines - 1),
                         layout.topDown ? stride : -stride,
                         0,
                         layout.width,
                         lines,
                         layout.bitsPerPixel,
                         out.colours};
}

}  // namespace

}  // namespace lacquer::headless

using namespace lacquer::headless;

BOOL BitBlt(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, DWORD operation) {
    return StretchBlt(dest, x, y, width, height, source, sourceX, sourceY, width, height, operation);
}

BOOL StretchBlt(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight, DWORD operation) {
    GdiLock lock;
    if (IsFill(operation)) return Fill(dest, x, y, width, height, operation);
    const DeviceContext *to = FindDC(dest);
    const DeviceContext *from = FindDC(source);
    if (!to || !from || operation != SRCCOPY) return FALSE;
    if (width == 0 || height == 0 || sourceWidth == 0 || sourceHeight == 0) return TRUE;
    StretchAxis columns(x + to->OffsetX(), width, sourceX + from->OffsetX(), sourceWidth);
    StretchAxis rows(y + to->OffsetY(), height, sourceY + from->OffsetY(), sourceHeight);
    columns.FitToSource(from->bitmap->width);
    rows.FitToSource(from->bitmap->height);
    TransferMode mode;
    mode.whiteIsOne = true;
    mode.merge = MergeOf(to->state.stretchMode);
    return Transfer(*to, columns, rows, ViewOf(*from->bitmap), mode);
}

BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation) {
    GdiLock lock;
    return IsFill(operation) ? Fill(dc, x, y, width, height, operation) : FALSE;
}

BOOL GdiAlphaBlend(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, int sourceWidth,
                   int sourceHeight, BLENDFUNCTION blend) {
    GdiLock lock;
    const DeviceContext *to = FindDC(dest);
    const DeviceContext *from = FindDC(source);
    if (!to || !from) return FALSE;
    if (blend.BlendOp != AC_SRC_OVER || blend.BlendFlags != 0 || blend.AlphaFormat > AC_SRC_ALPHA) return FALSE;
    if (blend.AlphaFormat == AC_SRC_ALPHA && from->bitmap->bitsPerPixel != 32) return FALSE;
    if (width < 0 || height < 0 || sourceWidth < 0 || sourceHeight < 0) return FALSE;
    const int64_t destX = x + to->OffsetX();
    const int64_t destY = y + to->OffsetY();
    const int64_t fromX = sourceX + from->OffsetX();
    const int64_t fromY = sourceY + from->OffsetY();
    if (fromX < 0 || fromX + sourceWidth > from->bitmap->width) return FALSE;
    if (fromY < 0 || fromY + sourceHeight > from->bitmap->height) return FALSE;
    const bool overlap =
        destX < fromX + sourceWidth && fromX < destX + width && destY < fromY + sourceHeight && fromY < destY + height;
    if (to == from && overlap) return FALSE;
    if (width == 0 || height == 0 || sourceWidth == 0 || sourceHeight == 0) return TRUE;
    TransferMode mode;
    mode.blends = true;
    mode.hasPixelAlpha = blend.AlphaFormat == AC_SRC_ALPHA;
    mode.constantAlpha = blend.SourceConstantAlpha;
    return Transfer(*to, StretchAxis(destX, width, fromX, sourceWidth), StretchAxis(destY, height, fromY, sourceHeight),
                    ViewOf(*from->bitmap), mode);
}

BOOL AlphaBlend(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight, BLENDFUNCTION blend) {
    return GdiAlphaBlend(dest, x, y, width, height, source, sourceX, sourceY, sourceWidth, sourceHeight, blend);
}

int SetDIBitsToDevice(HDC dest, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY, UINT startScan,
                      UINT lines, const void *bits, const BITMAPINFO *info, UINT usage) {
    GdiLock lock;
    const DeviceContext *to = FindDC(dest);
    DibLayout layout;
    if (!to || !bits || usage != DIB_RGB_COLORS || !ReadDibLayout(info, layout)) return 0;
    int64_t count = lines;
    if (!layout.topDown) {
        // Bottom-up bands end at the picture's top and at the rectangle's.
        const int64_t end = std::min<int64_t>(layout.height, int64_t{sourceY} + height);
        count = std::min(count, end - startScan);
    }
    if (count <= 0 || startScan >= static_cast<UINT>(layout.height)) return 0;
    // The band's row that falls on the rectangle's top row. A top-down band has no more rows than the picture, but its
    // place is reckoned from all that the caller names.
    const int64_t topRow = int64_t{startScan} + count - sourceY - height;
    const int64_t kept = std::min<int64_t>(count, layout.height);
    const int result = static_cast<int>(std::min<int64_t>(count, INT32_MAX));
    if (topRow >= count) return result;
    const bool isOutside = sourceX >= layout.width || sourceX + int64_t{width} <= 0 || topRow >= kept ||
                           topRow + height <= 0 || width == 0 || height == 0;
    if (isOutside) return 0;

    DibPixels pixels;
    ViewDib(layout, bits, static_cast<LONG>(kept), pixels);
    const StretchAxis columns(x + to->OffsetX(), width, sourceX, width);
    const StretchAxis rows(y + to->OffsetY(), height, topRow, height);
    return Transfer(*to, columns, rows, pixels.view, TransferMode{}) ? result : 0;
}

COLORREF GetPixel(HDC dc, int x, int y) {
    GdiLock lock;
    const DeviceContext *context = FindDC(dc);
    if (!context) return CLR_INVALID;
    const int64_t deviceX = x + context->OffsetX();
    const int64_t deviceY = y + context->OffsetY();
    if (!context->IsVisible(deviceX, deviceY)) return CLR_INVALID;
    const PixelView view = ViewOf(*context->bitmap);
    const uint32_t raw = LoadRaw(view, view.Row(static_cast<LONG>(deviceY)), static_cast<LONG>(deviceX));
    return SwapRedAndBlue(ColourOf(view, raw));
}

COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour) {
    GdiLock lock;
    const DeviceContext *context = FindDC(dc);
    if (!context) return CLR_INVALID;
    const int64_t deviceX = x + context->OffsetX();
    const int64_t deviceY = y + context->OffsetY();
    if (!context->IsVisible(deviceX, deviceY)) return CLR_INVALID;
    const PixelView view = ViewOf(*context->bitmap);
    const uint32_t raw = RawOf(view, SwapRedAndBlue(colour));
    StoreRaw(view, view.Row(static_cast<LONG>(deviceY)), static_cast<LONG>(deviceX), raw);
    return SwapRedAndBlue(ColourOf(view, raw));
}
