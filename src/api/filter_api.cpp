// The exported filters of bitmaps, textures and canvases, and the region of a texture.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "core/geometry.h"
#include "core/locked.h"
#include "filters/box_blur.h"
#include "filters/gaussian_blur.h"
#include "filters/glow.h"
#include "filters/pixel_filters.h"
#include "filters/texture_region.h"

using namespace lacquer;

namespace {

/// Runs `filter` on a locked rectangle (null: everything). Result: 0 without a surface and when it can't be locked.
template <class Filter>
int Apply(PixelSurface *surface, const RECT *rect, const Filter &filter) {
    if (!surface) return 0;
    const LockedSurface locked(*surface, rect);
    if (!locked.View()) return 0;
    filter(*locked.View());
    return 1;
}

/// A surface without pixels can't be locked; there is nothing to invert in it.
int Invert(PixelSurface *surface) {
    if (surface && surface->GetWidth() == 0) return 1;
    return Apply(surface, nullptr, InvertAgainstAlpha);
}

int Shuffled(PixelSurface *surface, const RECT *rect, DWORD code) {
    return Apply(surface, rect, [=](const SurfaceView &view) { Shuffle(view, code); });
}

int Blur(PixelSurface *dest, const RECT *destRect, PixelSurface *source, const RECT *sourceRect) {
    if (!dest || !source) return 0;
    const LockedSurface from(*source, sourceRect);
    if (!from.View()) return 1;
    const LockedSurface to(*dest, destRect);
    if (to.View()) BoxBlur(*to.View(), *from.View());
    return 1;
}

/// `Locked`: the lock for this kind of object.
template <class Locked, class Object>
int BlurInPlace(Object *target, const RECT *targetRect, Object *scratch, const RECT *scratchRect) {
    if (!target || !scratch) return 0;
    const Locked lockedTarget(*target, targetRect);
    if (!lockedTarget.View()) return 1;
    const Locked lockedScratch(*scratch, scratchRect);
    if (lockedScratch.View()) GaussianBlur(*lockedTarget.View(), *lockedScratch.View());
    return 1;
}

void GlowThrough(PixelSurface &object, const RECT *rect, PixelSurface *scratch) {
    if (!scratch) return;
    Apply(scratch, nullptr, [&](const SurfaceView &through) {
        Apply(&object, rect, [&](const SurfaceView &view) { Glow(view, through); });
    });
}

}  // namespace

int BlurBitmap(HGBITMAP dest, HGBITMAP source) { return Blur(Find(dest), nullptr, Find(source), nullptr); }

int BlurBitmapEx(HGBITMAP dest, const RECT *destRect, HGBITMAP source, const RECT *sourceRect) {
    return Blur(Find(dest), destRect, Find(source), sourceRect);
}

int BlurTexture(HGTEXTURE dest, HGTEXTURE source) {
    return Blur(FindSurface(dest), nullptr, FindSurface(source), nullptr);
}

int BlurTextureEx(HGTEXTURE dest, const RECT *destRect, HGTEXTURE source, const RECT *sourceRect) {
    return Blur(FindSurface(dest), destRect, FindSurface(source), sourceRect);
}

int GaussianBlurBitmap(HGBITMAP target, HGBITMAP scratch) {
    return BlurInPlace<LockedSurface>(Find(target), nullptr, Find(scratch), nullptr);
}

int GaussianBlurTexture(HGTEXTURE target, HGTEXTURE scratch) {
    return BlurInPlace<LockedSurface>(FindSurface(target), nullptr, FindSurface(scratch), nullptr);
}

int GaussianBlurCanvas(HGCANVAS target, const RECT *targetRect, HGCANVAS scratch, const RECT *scratchRect) {
    return BlurInPlace<LockedCanvas>(Find(target), targetRect, Find(scratch), scratchRect);
}

int GrayBitmap(HGBITMAP bitmap) { return Apply(Find(bitmap), nullptr, MakeGrey); }
int GrayTexture(HGTEXTURE texture) { return Apply(FindSurface(texture), nullptr, MakeGrey); }

int NormalizeBitmap(HGBITMAP bitmap) { return Apply(Find(bitmap), nullptr, Premultiply); }
int NormalizeTexture(HGTEXTURE texture) { return Apply(FindSurface(texture), nullptr, Premultiply); }

int InvertBitmap(HGBITMAP bitmap) { return Invert(Find(bitmap)); }
int InvertTexture(HGTEXTURE texture) { return Invert(FindSurface(texture)); }

int TranslateTexture(HGTEXTURE texture, DWORD find, DWORD put) {
    return Apply(FindSurface(texture), nullptr, [=](const SurfaceView &view) { ReplaceColour(view, find, put); });
}

int ShuffleBitmap(HGBITMAP bitmap, DWORD code) { return Shuffled(Find(bitmap), nullptr, code); }
int ShuffleTexture(HGTEXTURE texture, DWORD code) { return Shuffled(FindSurface(texture), nullptr, code); }
int ShuffleBitmapEx(HGBITMAP bitmap, const RECT *rect, DWORD code) { return Shuffled(Find(bitmap), rect, code); }
int ShuffleTextureEx(HGTEXTURE texture, const RECT *rect, DWORD code) {
    return Shuffled(FindSurface(texture), rect, code);
}

int LightBitmap(HGBITMAP bitmap) {
    PixelSurface *object = Find(bitmap);
    if (!object) return 0;
    const HGBITMAP scratch =
        CreateMemBitmap(static_cast<DWORD>(object->GetWidth()), static_cast<DWORD>(object->GetHeight()));
    GlowThrough(*object, nullptr, Find(scratch));
    DeleteBitmap(scratch);
    return 1;
}

int LightTexture(HGTEXTURE texture) { return LightTextureEx(texture, nullptr); }

int LightTextureEx(HGTEXTURE texture, const RECT *rect) {
    PixelSurface *object = FindSurface(texture);
    if (!object) return 0;
    const LONG width = rect ? ClampToLong(WidthOf(*rect)) : object->GetWidth();
    const LONG height = rect ? ClampToLong(HeightOf(*rect)) : object->GetHeight();
    const HGTEXTURE scratch = CreateTexture(static_cast<DWORD>(width), static_cast<DWORD>(height));
    GlowThrough(*object, rect, FindSurface(scratch));
    DeleteTexture(scratch);
    return 1;
}

HRGN CreateTextureRgn(HGTEXTURE texture, const RECT *rect) {
    Texture *found = Find(texture);
    return found ? MakeTextureRegion(*found, rect) : nullptr;
}
