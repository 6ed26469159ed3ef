// The exported functions of bitmaps.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "api/surface_exports.h"
#include "core/surface_copy.h"

using namespace lacquer;

HGBITMAP CreateSystemBitmap(DWORD width, DWORD height) {
    return Register(MakeSurface(width, height, 32, 0, SurfaceKind::System));
}

HGBITMAP CreateMemBitmap(DWORD width, DWORD height) { return CreateMemBitmapEx(width, height, 32, 0); }

HGBITMAP CreateMemBitmapEx(DWORD width, DWORD height, DWORD bitsPerPixel, DWORD paletteCount) {
    return Register(MakeSurface(width, height, bitsPerPixel, paletteCount, SurfaceKind::Memory));
}

void DeleteBitmap(HGBITMAP bitmap) {
    BitmapRemains remains;
    HeldTable table(ProcessHandleTable());
    remains = Take(table, bitmap);
}

void ReleaseBitmap(HGBITMAP bitmap) { ReleaseHandle(HandleType::Bitmap, bitmap.value); }

HBITMAP GetBitmapHandle(HGBITMAP bitmap) {
    PixelSurface *found = Find(bitmap);
    return found ? found->GetHandle() : nullptr;
}

int GetBitmapSize(HGBITMAP bitmap, SIZE *out) {
    const PixelSurface *found = Find(bitmap);
    if (!found || !out) return 0;
    *out = {found->Width(), found->Height()};
    return 1;
}

int LockBitmapBits(HGBITMAP bitmap, SurfaceView *out, const RECT *rect) { return LockBits(Find(bitmap), out, rect); }

int LockBitmapBitsEx(HGBITMAP bitmap, SurfaceView *out, const RECT *rect) {
    return LockBitsEx(Find(bitmap), out, rect);
}

int UnlockBitmapBits(HGBITMAP bitmap) { return UnlockBits(Find(bitmap)); }

int GetBitmapFilter(HGBITMAP bitmap, DWORD *out) { return GetFilter(Find(bitmap), out); }

int SetBitmapFilter(HGBITMAP bitmap, DWORD filter) { return SetFilter(Find(bitmap), filter); }

int GetBitmapBitsPixel(HGBITMAP bitmap, BYTE *out) { return GetBitsPixel(Find(bitmap), out); }

int CopyBitmap(HGBITMAP dest, const RECT *destRect, HGBITMAP source, const RECT *sourceRect) {
    PixelSurface *to = Find(dest), *from = Find(source);
    if (!to || !from) return 0;
    CopySurface(*to, destRect, *from, sourceRect);
    return 1;
}

HGBITMAP ResizeBitmap(HGBITMAP bitmap, DWORD width, DWORD height, DWORD kernelMode) {
    PixelSurface *found = Find(bitmap);
    return found ? Register(ResizedSurface(*found, width, height, kernelMode, found->Kind())) : HGBITMAP{};
}

HGBITMAP TransformBitmap(HGBITMAP bitmap, DWORD code) {
    PixelSurface *found = Find(bitmap);
    return found ? Register(TransformedSurface(*found, code, found->Kind())) : HGBITMAP{};
}

HGBITMAP RotateBitmap(HGBITMAP bitmap, int code) {
    return IsRotation(code) ? TransformBitmap(bitmap, static_cast<DWORD>(code)) : HGBITMAP{};
}

HGBITMAP FlipBitmap(HGBITMAP bitmap, DWORD code) { return IsFlip(code) ? TransformBitmap(bitmap, code) : HGBITMAP{}; }

HGBITMAP CanvasToBitmap(HGCANVAS canvas) {
    std::unique_ptr<Canvas> taken;
    {
        HeldTable table(ProcessHandleTable());
        const Canvas *found = Find(table, canvas);
        if (!found || !found->HasPixels()) return {};
        taken = Take(table, canvas);
    }
    std::unique_ptr<PixelSurface> surface = taken->DetachSurface();
    HeldTable table(ProcessHandleTable());
    // Handles of the surface are current all the time. Until it has one of its own, who deletes one only empties it.
    surface->SetOwner(SurfaceOwner::Handles);
    const HGBITMAP bitmap{RegisterAlias(table, HandleType::Bitmap, surface.get())};
    if (bitmap) {
        static_cast<void>(surface.release());
    } else {
        table.Revoke(surface.get());
    }
    return bitmap;
}
