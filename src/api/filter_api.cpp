// The exported filters of bitmaps, textures and canvases, and the region of a texture.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "core/geometry.h"
#include "filters/box_blur.h"
#include "filters/gaussian_blur.h"
#include "filters/glow.h"
#include "filters/pixel_filters.h"
#include "filters/texture_region.h"

using namespace lacquer;

namespace {

int Filtered(PixelSurface *surface, bool (*filter)(PixelSurface &)) { return surface && filter(*surface); }

int Shuffled(PixelSurface *surface, const RECT *rect, DWORD code) { return surface && Shuffle(*surface, rect, code); }

int Blurred(PixelSurface *dest, const RECT *destRect, PixelSurface *source, const RECT *sourceRect) {
    if (!dest || !source) return 0;
    BoxBlur(*dest, destRect, *source, sourceRect);
    return 1;
}

int BlurredInPlace(PixelSurface *target, PixelSurface *scratch) {
    if (!target || !scratch) return 0;
    GaussianBlur(*target, *scratch);
    return 1;
}

/// Of a rectangle, null: of the surface.
SIZE SizeOf(const PixelSurface &surface, const RECT *rect) {
    return rect ? lacquer::SizeOf(*rect) : SIZE{surface.Width(), surface.Height()};
}

}  // namespace

int BlurBitmap(HGBITMAP dest, HGBITMAP source) { return Blurred(Find(dest), nullptr, Find(source), nullptr); }

int BlurBitmapEx(HGBITMAP dest, const RECT *destRect, HGBITMAP source, const RECT *sourceRect) {
    return Blurred(Find(dest), destRect, Find(source), sourceRect);
}

int BlurTexture(HGTEXTURE dest, HGTEXTURE source) {
    return Blurred(FindSurface(dest), nullptr, FindSurface(source), nullptr);
}

int BlurTextureEx(HGTEXTURE dest, const RECT *destRect, HGTEXTURE source, const RECT *sourceRect) {
    return Blurred(FindSurface(dest), destRect, FindSurface(source), sourceRect);
}

int GaussianBlurBitmap(HGBITMAP target, HGBITMAP scratch) { return BlurredInPlace(Find(target), Find(scratch)); }

int GaussianBlurTexture(HGTEXTURE target, HGTEXTURE scratch) {
    return BlurredInPlace(FindSurface(target), FindSurface(scratch));
}

int GaussianBlurCanvas(HGCANVAS target, const RECT *targetRect, HGCANVAS scratch, const RECT *scratchRect) {
    Canvas *found = Find(target), *foundScratch = Find(scratch);
    if (!found || !foundScratch) return 0;
    GaussianBlur(*found, targetRect, *foundScratch, scratchRect);
    return 1;
}

int GrayBitmap(HGBITMAP bitmap) { return Filtered(Find(bitmap), MakeGrey); }
int GrayTexture(HGTEXTURE texture) { return Filtered(FindSurface(texture), MakeGrey); }

int NormalizeBitmap(HGBITMAP bitmap) { return Filtered(Find(bitmap), Premultiply); }
int NormalizeTexture(HGTEXTURE texture) { return Filtered(FindSurface(texture), Premultiply); }

int InvertBitmap(HGBITMAP bitmap) { return Filtered(Find(bitmap), InvertAgainstAlpha); }
int InvertTexture(HGTEXTURE texture) { return Filtered(FindSurface(texture), InvertAgainstAlpha); }

int TranslateTexture(HGTEXTURE texture, DWORD find, DWORD put) {
    PixelSurface *surface = FindSurface(texture);
    return surface && ReplaceColour(*surface, find, put);
}

int ShuffleBitmap(HGBITMAP bitmap, DWORD code) { return Shuffled(Find(bitmap), nullptr, code); }
int ShuffleTexture(HGTEXTURE texture, DWORD code) { return Shuffled(FindSurface(texture), nullptr, code); }
int ShuffleBitmapEx(HGBITMAP bitmap, const RECT *rect, DWORD code) { return Shuffled(Find(bitmap), rect, code); }
int ShuffleTextureEx(HGTEXTURE texture, const RECT *rect, DWORD code) {
    return Shuffled(FindSurface(texture), rect, code);
}

// The scratch of a glow is an object with a handle of its own: later handles show that there was one.

int LightBitmap(HGBITMAP bitmap) {
    PixelSurface *object = Find(bitmap);
    if (!object) return 0;
    const SIZE size = SizeOf(*object, nullptr);
    const HGBITMAP scratch = CreateMemBitmap(static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy));
    if (PixelSurface *found = Find(scratch)) Glow(*object, nullptr, *found);
    DeleteBitmap(scratch);
    return 1;
}

int LightTexture(HGTEXTURE texture) { return LightTextureEx(texture, nullptr); }

int LightTextureEx(HGTEXTURE texture, const RECT *rect) {
    PixelSurface *object = FindSurface(texture);
    if (!object) return 0;
    const SIZE size = SizeOf(*object, rect);
    const HGTEXTURE scratch = CreateTexture(static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy));
    if (PixelSurface *found = FindSurface(scratch)) Glow(*object, rect, *found);
    DeleteTexture(scratch);
    return 1;
}

HRGN CreateTextureRgn(HGTEXTURE texture, const RECT *rect) {
    Texture *found = Find(texture);
    return found ? MakeTextureRegion(*found, rect) : nullptr;
}
