// Device contexts: their life, the objects selected into them, saved states and origins.
#include <cstdlib>
#include <new>
#include <utility>

#include "platform/headless/gdi_objects.h"

namespace lacquer::headless {

bool DrawState::CopyFrom(const DrawState &other) {
    bitmap = other.bitmap;
    viewportOrg = other.viewportOrg;
    windowOrg = other.windowOrg;
    stretchMode = other.stretchMode;
    hasClip = other.hasClip;
    return clip.Copy(other.clip);
}

DeviceContext::~DeviceContext() {
    while (saved) {
        SavedState *top = saved;
        saved = top->below;
        delete top;
    }
}

RECT DeviceContext::ToDevice(const RECT &logical) const {
    const RECT rect = Ordered(logical);
    return RECT{Clamped(rect.left + OffsetX()), Clamped(rect.top + OffsetY()), Clamped(rect.right + OffsetX()),
                Clamped(rect.bottom + OffsetY())};
}

bool DeviceContext::IsVisible(int64_t x, int64_t y) const {
    return x >= 0 && x < bitmap->width && y >= 0 && y < bitmap->height &&
           (!state.hasClip || state.clip.Contains(static_cast<int>(x), static_cast<int>(y)));
}

bool DeviceContext::VisiblePart(const RECT &device, Region &out) const {
    out.SetRect(device);
    return out.IntersectRect(BitmapRect()) && (!state.hasClip || out.Combine(out, state.clip, RGN_AND));
}

namespace {

/// Ends the selection of the bitmap in `dc`.
void ReleaseSelected(DeviceContext &dc) {
    dc.bitmap->selectedInto = nullptr;
    if (dc.bitmap->isDoomed) DestroyObject(dc.state.bitmap);
    dc.bitmap = nullptr;
}

/// False, with nothing changed, when the bitmap can't be selected.
bool SelectBitmap(HDC handle, DeviceContext &dc, HBITMAP bitmapHandle) {
    Bitmap *bitmap = FindBitmap(bitmapHandle);
    if (!bitmap || bitmap->isDoomed) return bitmap && bitmap == dc.bitmap;
    if (bitmap->selectedInto && bitmap->selectedInto != handle) return false;
    if (bitmap == dc.bitmap) return true;
    ReleaseSelected(dc);
    if (!bitmap->isDefault) bitmap->selectedInto = handle;
    dc.bitmap = bitmap;
    dc.state.bitmap = bitmapHandle;
    return true;
}

BOOL DestroyDC(HDC handle) {
    ReleaseSelected(*FindDC(handle));
    DestroyObject(handle);
    return TRUE;
}

BOOL SetOrigin(POINT &origin, int x, int y, POINT *previous) {
    if (previous) *previous = origin;
    origin = POINT{x, y};
    return TRUE;
}

}  // namespace

}  // namespace lacquer::headless

using namespace lacquer::headless;

HDC CreateCompatibleDC(HDC dc) {
    GdiLock lock;
    if (dc && !FindDC(dc)) return nullptr;
    const HBITMAP bitmap = DefaultBitmap();
    std::unique_ptr<DeviceContext> made(new (std::nothrow) DeviceContext);
    if (!bitmap || !made) return nullptr;
    made->state.bitmap = bitmap;
    made->bitmap = FindBitmap(bitmap);
    return AddDC(std::move(made));
}

BOOL DeleteDC(HDC dc) {
    GdiLock lock;
    return FindDC(dc) ? DestroyDC(dc) : FALSE;
}

BOOL DeleteObject(HGDIOBJ object) {
    GdiLock lock;
    if (FindDC(object)) return DestroyDC(static_cast<HDC>(object));
    if (Bitmap *bitmap = FindBitmap(object)) {
        if (bitmap->isDefault) return TRUE;
        if (bitmap->selectedInto) {
            bitmap->isDoomed = true;
            return TRUE;
        }
    } else if (!FindRegion(object)) {
        return FALSE;
    }
    DestroyObject(object);
    return TRUE;
}

int SaveDC(HDC dc) {
    GdiLock lock;
    DeviceContext *context = FindDC(dc);
    if (!context) return 0;
    std::unique_ptr<SavedState> saved(new (std::nothrow) SavedState);
    if (!saved || !saved->state.CopyFrom(context->state)) return 0;
    saved->below = context->saved;
    context->saved = saved.release();
    return ++context->savedCount;
}

BOOL RestoreDC(HDC dc, int level) {
    GdiLock lock;
    DeviceContext *context = FindDC(dc);
    if (!context) return FALSE;
    const int64_t target = level < 0 ? context->savedCount + 1 + int64_t{level} : level;
    if (target < 1 || target > context->savedCount) return FALSE;
    std::unique_ptr<SavedState> top;
    while (context->savedCount >= target) {
        top.reset(context->saved);
        context->saved = top->below;
        --context->savedCount;
    }
    // A bitmap that has gone meanwhile, or is selected elsewhere, is not selected again.
    SelectBitmap(dc, *context, top->state.bitmap);
    top->state.bitmap = context->state.bitmap;
    context->state = std::move(top->state);
    return TRUE;
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object) {
    if (GetObjectType(object) == OBJ_REGION) {
        const int kind = SelectClipRgn(dc, static_cast<HRGN>(object));
        return reinterpret_cast<HGDIOBJ>(static_cast<intptr_t>(kind));
    }
    GdiLock lock;
    DeviceContext *context = FindDC(dc);
    if (!context) return nullptr;
    const HBITMAP previous = context->state.bitmap;
    return SelectBitmap(dc, *context, static_cast<HBITMAP>(object)) ? previous : nullptr;
}

DWORD GetObjectType(HGDIOBJ object) {
    GdiLock lock;
    return KindOf(object);
}

HGDIOBJ GetCurrentObject(HDC dc, UINT type) {
    GdiLock lock;
    const DeviceContext *context = FindDC(dc);
    return context && type == OBJ_BITMAP ? context->state.bitmap : nullptr;
}

BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT *previous) {
    GdiLock lock;
    DeviceContext *context = FindDC(dc);
    return context ? SetOrigin(context->state.viewportOrg, x, y, previous) : FALSE;
}

BOOL SetWindowOrgEx(HDC dc, int x, int y, POINT *previous) {
    GdiLock lock;
    DeviceContext *context = FindDC(dc);
    return context ? SetOrigin(context->state.windowOrg, x, y, previous) : FALSE;
}

BOOL GetViewportOrgEx(HDC dc, POINT *out) {
    GdiLock lock;
    const DeviceContext *context = FindDC(dc);
    if (!context || !out) return FALSE;
    *out = context->state.viewportOrg;
    return TRUE;
}

BOOL GetWindowOrgEx(HDC dc, POINT *out) {
    GdiLock lock;
    const DeviceContext *context = FindDC(dc);
    if (!context || !out) return FALSE;
    *out = context->state.windowOrg;
    return TRUE;
}

int SetStretchBltMode(HDC dc, int mode) {
    GdiLock lock;
    DeviceContext *context = FindDC(dc);
    if (!context || mode < BLACKONWHITE || mode > HALFTONE) return 0;
    const int previous = context->state.stretchMode;
    context->state.stretchMode = mode;
    return previous;
}

int GetStretchBltMode(HDC dc) {
    GdiLock lock;
    const DeviceContext *context = FindDC(dc);
    return context ? context->state.stretchMode : 0;
}

BOOL GdiFlush(void) { return TRUE; }
