// The exported functions of textures.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "api/surface_exports.h"
#include "core/surface_copy.h"
#include "vector/companion.h"

using namespace lacquer;

namespace {

constexpr int kNoSlice = -1;

/// A texture that takes a surface's pixels over.
HGTEXTURE RegisterTextureOf(std::unique_ptr<PixelSurface> surface) { return Register(MakeTextureOf(surface.get())); }

}  // namespace

HGTEXTURE CreateTexture(DWORD width, DWORD height) { return CreateTextureEx(width, height, 32, 0); }

HGTEXTURE CreateTextureEx(DWORD width, DWORD height, DWORD bitsPerPixel, DWORD paletteCount) {
    return Register(MakeTexture(width, height, bitsPerPixel, paletteCount));
}

void DeleteTexture(HGTEXTURE texture) {
    std::unique_ptr<Texture> taken;
    HeldTable table(ProcessHandleTable());
    taken = TakeObject<Texture>(table, HandleType::Texture, texture.value);
}

void ReleaseTexture(HGTEXTURE texture) { DeleteTexture(texture); }

HGTEXTURE GetTexture(HGCANVAS canvas) {
    std::unique_ptr<Texture> texture = NewTexture();
    {
        const HeldTable table(ProcessHandleTable());
        Canvas *found = Find(table, canvas);
        if (!texture || !found || !texture->Surface().ShareFrom(found->Surface(), true)) return {};
    }
    return Register(std::move(texture));
}

HGTEXTURE GetTextureFromVelCanvas(velCanvas *canvas) {
    SurfaceView pixels{};
    return FindPixels(canvas, &pixels) ? Register(MakeTextureOf(pixels)) : HGTEXTURE{};
}

HBITMAP GetTextureHandle(HGTEXTURE texture) {
    PixelSurface *surface = FindSurface(texture);
    return surface ? surface->GetHandle() : nullptr;
}

int GetTextureSize(HGTEXTURE texture, SIZE *out) {
    const Texture *found = Find(texture);
    return found && out && found->GetSize(out);
}

int LockTextureBits(HGTEXTURE texture, SurfaceView *out, const RECT *rect) {
    return LockBits(FindSurface(texture), out, rect);
}

int LockTextureBitsEx(HGTEXTURE texture, SurfaceView *out, const RECT *rect) {
    return LockBitsEx(FindSurface(texture), out, rect);
}

int UnlockTextureBits(HGTEXTURE texture) { return UnlockBits(FindSurface(texture)); }

int GetTextureFilter(HGTEXTURE texture, DWORD *out) { return GetFilter(FindSurface(texture), out); }

int SetTextureFilter(HGTEXTURE texture, DWORD filter) { return SetFilter(FindSurface(texture), filter); }

int GetTextureBitsPixel(HGTEXTURE texture, BYTE *out) { return GetBitsPixel(FindSurface(texture), out); }

int SetTextureMode(HGTEXTURE texture, const TextureMode *mode) {
    Texture *found = Find(texture);
    if (!found || !mode) return 0;
    found->SetMode(*mode);
    return 1;
}

int GetTextureMode(HGTEXTURE texture, TextureMode *out) {
    const Texture *found = Find(texture);
    if (!found || !out) return 0;
    *out = found->Mode();
    return 1;
}

DWORD SetTextureSlice(HGTEXTURE texture, DWORD count, const RECT *rects) {
    Texture *found = Find(texture);
    return found && rects && found->SetSlices(count, rects) ? count : 0;
}

int SetTextureCurSlice(HGTEXTURE texture, int index) {
    Texture *found = Find(texture);
    return found ? found->SetCurrentSlice(index) : kNoSlice;
}

int GetTextureCurSlice(HGTEXTURE texture, RECT *out) {
    const Texture *found = Find(texture);
    if (!found || !out) return 0;
    *out = found->ShownPart();
    return 1;
}

DWORD GetTextureSliceCount(HGTEXTURE texture) {
    const Texture *found = Find(texture);
    return found ? found->SliceCount() : static_cast<DWORD>(kNoSlice);
}

HGTEXTURE CanvasToTexture(HGCANVAS canvas) {
    std::unique_ptr<Texture> texture = NewTexture();
    std::unique_ptr<Canvas> taken;
    {
        HeldTable table(ProcessHandleTable());
        const Canvas *found = Find(table, canvas);
        if (!texture || !found || !found->HasPixels()) return {};
        taken = Take(table, canvas);
        table.Revoke(taken->Surface());
    }
    texture->Surface().ShareFrom(taken->DetachSurface().get(), false);
    return Register(std::move(texture));
}

HGTEXTURE BitmapToTexture(HGBITMAP bitmap) {
    std::unique_ptr<Texture> texture = NewTexture();
    BitmapRemains remains;
    {
        HeldTable table(ProcessHandleTable());
        if (!texture || !texture->Surface().ShareFrom(Find(table, bitmap), false)) return {};
        remains = Take(table, bitmap);
    }
    return Register(std::move(texture));
}

int CopyTexture(HGTEXTURE dest, const RECT *destRect, HGTEXTURE source, const RECT *sourceRect) {
    PixelSurface *to = FindSurface(dest), *from = FindSurface(source);
    if (!to || !from) return 0;
    CopySurface(*to, destRect, *from, sourceRect);
    return 1;
}

HGTEXTURE ResizeTexture(HGTEXTURE texture, DWORD width, DWORD height, DWORD kernelMode) {
    PixelSurface *surface = FindSurface(texture);
    if (!surface) return {};
    return RegisterTextureOf(ResizedSurface(*surface, width, height, kernelMode, SurfaceKind::Memory));
}

HGTEXTURE TransformTexture(HGTEXTURE texture, DWORD code) {
    PixelSurface *surface = FindSurface(texture);
    return surface ? RegisterTextureOf(TransformedSurface(*surface, code, SurfaceKind::Memory)) : HGTEXTURE{};
}

HGTEXTURE RotateTexture(HGTEXTURE texture, int code) {
    return IsRotation(code) ? TransformTexture(texture, static_cast<DWORD>(code)) : HGTEXTURE{};
}

HGTEXTURE FlipTexture(HGTEXTURE texture, DWORD code) {
    return IsFlip(code) ? TransformTexture(texture, code) : HGTEXTURE{};
}
