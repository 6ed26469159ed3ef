// The depths that the filters of single pixels work on.

#include "filters/pixel_filters.h"

#include "core/surface_view.h"
#include "filters/apply.h"
#include "filters/map_pixels.h"
#include "pipeline/filter/pixel_rules.h"
#include "pipeline/table/image_table.h"

namespace lacquer {
namespace {

constexpr DWORD kAlphaToColour = 1, kColourToAlpha = 6;

}  // namespace

bool MakeGrey(PixelSurface &surface) {
    return ApplyTo(surface, nullptr, [](const SurfaceView &view) {
        if (view.bitsPerPixel == 32) return ChangeWords(view, view.width, ImageKernels().makeGrey);
        MapColours(view, GreyRule());
    });
}

bool Premultiply(PixelSurface &surface) {
    return ApplyTo(surface, nullptr, [](const SurfaceView &view) {
        if (view.bitsPerPixel == 32) ChangeWords(view, view.width, ImageKernels().premultiply);
        if (view.bitsPerPixel == 8) MapPalette(view, PremultiplyRule());
    });
}

bool ReplaceColour(PixelSurface &surface, DWORD find, DWORD put) {
    return ApplyTo(surface, nullptr, [=](const SurfaceView &view) {
        // The pixels of a 24-bit view come as words without an alpha.
        const uint32_t wanted = view.bitsPerPixel == 24 ? find & kColours : find;
        MapColours(view, [=](uint32_t c) -> uint32_t { return c == wanted ? put : c; });
    });
}

bool InvertAgainstAlpha(PixelSurface &surface) {
    // What has no pixels can't be locked; there is nothing to invert in it.
    if (surface.Width() == 0) return true;
    return ApplyTo(surface, nullptr,
                   [](const SurfaceView &view) { ChangeWords(view, WordsPerRow(view), ImageKernels().invert); });
}

bool Shuffle(PixelSurface &surface, const RECT *rect, DWORD code) {
    return ApplyTo(surface, rect, [=](const SurfaceView &view) {
        if (view.bitsPerPixel != 32) return;
        if (code == kColourToAlpha) ChangeWords(view, view.width, ImageKernels().colourToAlpha);
        if (code == kAlphaToColour) MapWords(view, AlphaToColourRule());
    });
}

}  // namespace lacquer
