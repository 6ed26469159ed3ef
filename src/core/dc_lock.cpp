// Device-context locks: the direct road when the whole rectangle is visible in a DIB section, else copy in and write
// back.

#include "core/dc_lock.h"

#include <cstring>

#include "platform/mapping.h"

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
    if (IsRectEmpty(&rect)) return false;
    LockedArea section{};
    if (!LockSelectedDib(dc, rect, &section)) return LockCopy(dc, rect, out);
    if (!section.Cut(rect, out)) return false;
    if (!copy_.IsEmpty()) ++locksInside_;
    return true;
}

bool DcLock::LockArea(HDC dc, const RECT &area, LockedArea *out) {
    if (LockSelectedDib(dc, area, out)) {
        if (!copy_.IsEmpty()) ++locksInside_;
        return true;
    }
    if (IsRectEmpty(&area) || !OnlyMovesCoordinates(dc) || !LockCopy(dc, area, &out->view)) return false;
    out->dx = -static_cast<int64_t>(area.left);
    out->dy = -static_cast<int64_t>(area.top);
    out->copied = true;
    return true;
}

bool DcLock::LockSelectedDib(HDC dc, const RECT &rect, LockedArea *out) const {
    RECT clipBox{}, visible{};
    const int clipKind = GetClipBox(dc, &clipBox);
    IntersectRect(&visible, &clipBox, &rect);
    if (clipKind == COMPLEXREGION || !EqualRect(&visible, &rect)) return false;
    BITMAP selected{};
    HGDIOBJ bitmap = GetCurrentObject(dc, OBJ_BITMAP);
    if (!bitmap || GetObjectW(bitmap, sizeof selected, &selected) == 0 || !selected.bmBits) return false;
    POINT viewport{}, window{};
    GetViewportOrgEx(dc, &viewport);
    GetWindowOrgEx(dc, &window);
    GdiFlush();
    *out = {ViewOf(selected), static_cast<int64_t>(viewport.x) - window.x, static_cast<int64_t>(viewport.y) - window.y,
            false};
    return true;
}

bool DcLock::LockCopy(HDC dc, const RECT &rect, SurfaceView *out) {
    const int64_t width = WidthOf(rect), height = HeightOf(rect);
    // GDI's own limits are lower; this keeps the header's fields exact.
    if (!copy_.IsEmpty() || width > INT32_MAX / 4 || height > INT32_MAX / 4 || width * height > INT32_MAX / 4) {
        return false;
    }
    view_ = {};
    view_.width = static_cast<LONG>(width);
    view_.height = static_cast<LONG>(height);
    view_.bitsPerPixel = 32;
    if (!copy_.Create(&view_, 0)) return false;
    rect_ = rect;
    targetDC_ = dc;
    const bool copied = CopyIn(dc, rect, copy_.Bitmap());
    copy_.Lock(&view_, nullptr);
    if (!copied) std::memset(view_.bits, 0, static_cast<size_t>(view_.stride) * static_cast<size_t>(view_.height));
    *out = view_;
    return true;
}

void DcLock::Unlock() { UnlockArea({&rect_, 1}); }

void DcLock::UnlockArea(std::span<const RECT> written) {
    if (locksInside_ > 0) {
        --locksInside_;
        return;
    }
    if (copy_.IsEmpty()) return;
    for (const RECT &part : written) WriteBack(part);
    copy_.Release();
}

void DcLock::WriteBack(const RECT &part) {
    const int64_t column = static_cast<int64_t>(part.left) - rect_.left;
    SurfaceView rows = view_;
    rows.bits = RowOf(view_, static_cast<int64_t>(part.top) - rect_.top);
    rows.height = part.bottom - part.top;
    const BITMAPINFO header = HeaderOf(rows);
    SetDIBitsToDevice(targetDC_, part.left, part.top, static_cast<DWORD>(part.right - part.left),
                      static_cast<DWORD>(rows.height), static_cast<int>(column), 0, 0, static_cast<UINT>(rows.height),
                      rows.bits, &header, DIB_RGB_COLORS);
}

}  // namespace lacquer
