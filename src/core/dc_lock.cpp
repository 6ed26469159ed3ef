// Device-context locks: the direct road when the whole rectangle is visible in a DIB section, else copy in and write
// back.

#include "core/dc_lock.h"

#include "core/geometry.h"
#include "core/surface_view.h"

namespace lacquer {

namespace {

/// Copies a rectangle of a device context into a DIB section, top-left to top-left.
bool CopyIn(HDC from, const RECT &rect, HBITMAP into) {
    HDC memory = CreateCompatibleDC(from);
    if (!memory) return false;
    HGDIOBJ previous = SelectObject(memory, into);
    const BOOL copied =
        BitBlt(memory, 0, 0, rect.right - rect.left, rect.bottom - rect.top, from, rect.left, rect.top, SRCCOPY);
    SelectObject(memory, previous);
    DeleteDC(memory);
    return copied != 0;
}

BITMAPINFO HeaderOf(const SurfaceView &view) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = view.stride / 4;
    info.bmiHeader.biHeight = -view.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    info.bmiHeader.biSizeImage = static_cast<DWORD>(static_cast<int64_t>(view.stride) * view.height);
    return info;
}

}  // namespace

bool DcLock::Lock(HDC dc, const RECT &rect, SurfaceView *out) {
    if (!temp_.IsEmpty() || IsRectEmpty(&rect)) return false;
    rect_ = rect;
    targetDC_ = dc;
    view_ = {};
    RECT clipBox{}, visible{};
    const int clipKind = GetClipBox(dc, &clipBox);
    IntersectRect(&visible, &clipBox, &rect_);
    BITMAP selected{};
    HGDIOBJ bitmap = GetCurrentObject(dc, OBJ_BITMAP);
    if (bitmap && GetObjectW(bitmap, sizeof selected, &selected) != 0) view_ = ViewOf(selected);
    const bool direct = clipKind != COMPLEXREGION && view_.bits && EqualRect(&visible, &rect_);
    return direct ? LockSelectedDib(out) : LockCopy(out);
}

bool DcLock::LockSelectedDib(SurfaceView *out) const {
    POINT viewport{}, window{};
    GetViewportOrgEx(targetDC_, &viewport);
    GetWindowOrgEx(targetDC_, &window);
    const RECT device =
        Moved(rect_, static_cast<int64_t>(viewport.x) - window.x, static_cast<int64_t>(viewport.y) - window.y);
    GdiFlush();
    SurfaceView view = view_;
    if (!NarrowView(view, &device)) return false;
    *out = view;
    return true;
}

bool DcLock::LockCopy(SurfaceView *out) {
    const int64_t width = WidthOf(rect_), height = HeightOf(rect_);
    // GDI's own limits are lower; this keeps the header's fields exact.
    if (width > INT32_MAX / 4 || height > INT32_MAX / 4 || width * height > INT32_MAX / 4) return false;
    view_ = {};
    view_.width = static_cast<LONG>(width);
    view_.height = static_cast<LONG>(height);
    view_.bitsPerPixel = 32;
    if (!temp_.Create(&view_, 0)) return false;
    if (!CopyIn(targetDC_, rect_, temp_.GetBitmap())) {
        temp_.Release();
        return false;
    }
    temp_.Lock(&view_, nullptr);
    *out = view_;
    return true;
}

void DcLock::Unlock() {
    if (temp_.IsEmpty()) return;
    const BITMAPINFO header = HeaderOf(view_);
    SetDIBitsToDevice(targetDC_, rect_.left, rect_.top, static_cast<DWORD>(view_.width),
                      static_cast<DWORD>(view_.height), 0, 0, 0, static_cast<UINT>(view_.height), view_.bits, &header,
                      DIB_RGB_COLORS);
    temp_.Release();
}

}  // namespace lacquer
