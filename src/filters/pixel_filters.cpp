// The depths that the filters of single pixels work on.

#include "filters/pixel_filters.h"

#include "core/surface_view.h"
#include "filters/map_pixels.h"
#include "pipeline/filter/pixel_rules.h"
#include "pipeline/table/image_table.h"

namespace lacquer {

namespace {

constexpr DWORD kAlphaToColour = 1, kColourToAlpha = 6;

}  // namespace

void MakeGrey(const SurfaceView &view) {
    if (view.bitsPerPixel == 32) return ChangeWords(view, view.width, ImageKernels().makeGrey);
    MapColours(view, GreyRule());
}

void Premultiply(const SurfaceView &view) {
    if (view.bitsPerPixel == 32) ChangeWords(view, view.width, ImageKernels().premultiply);
    if (view.bitsPerPixel == 8) MapPalette(view, PremultiplyRule());
}

void ReplaceColour(const SurfaceView &view, DWORD find, DWORD put) {
    // The pixels of a 24-bit view come as words without an alpha.
    const uint32_t wanted = view.bitsPerPixel == 24 ? find & kColours : find;
    MapColours(view, [=](uint32_t c) -> uint32_t { return c == wanted ? put : c; });
}

void InvertAgainstAlpha(const SurfaceView &view) { ChangeWords(view, WordsPerRow(view), ImageKernels().invert); }

void Shuffle(const SurfaceView &view, DWORD code) {
    if (view.bitsPerPixel != 32) return;
    if (code == kColourToAlpha) ChangeWords(view, view.width, ImageKernels().colourToAlpha);
    if (code == kAlphaToColour) MapWords(view, AlphaToColourRule());
}

}  // namespace lacquer
