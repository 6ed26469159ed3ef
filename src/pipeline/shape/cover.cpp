// The base tier's forms, one pixel at a time.

#include "pipeline/shape/cover.h"

#include "pipeline/pixel/pixel.h"

namespace lacquer {
namespace {

uint32_t Mixed(uint32_t d, uint32_t fill, uint32_t wi, uint32_t border, uint32_t wb) {
    const uint32_t keep = 256 - wi - wb;
    return JoinUpper(BlueRed(d) * keep + BlueRed(fill) * wi + BlueRed(border) * wb,
                     GreenAlpha(d) * keep + GreenAlpha(fill) * wi + GreenAlpha(border) * wb);
}

uint32_t Over(uint32_t c, uint32_t d) { return c + Scale(d, 256 - Alpha(c)); }

}  // namespace

void MixParts(BYTE *pixels, const DWORD *fill, const DWORD *border, const BYTE *inner, const BYTE *outer,
              ptrdiff_t count) {
    for (ptrdiff_t i = 0; i < count; ++i) {
        BYTE *pixel = pixels + i * kPixelBytes;
        StorePixel(pixel, Mixed(LoadPixel(pixel), fill[i], WeightOf(inner[i]), border[i], WeightOf(outer[i])));
    }
}

void DrawParts(BYTE *pixels, DWORD fill, DWORD border, const BYTE *inner, const BYTE *outer, ptrdiff_t count) {
    for (ptrdiff_t i = 0; i < count; ++i) {
        BYTE *pixel = pixels + i * kPixelBytes;
        const uint32_t d = LoadPixel(pixel);
        StorePixel(pixel, Mixed(d, Over(fill, d), WeightOf(inner[i]), Over(border, d), WeightOf(outer[i])));
    }
}

void DrawCovered(BYTE *pixels, DWORD colour, const BYTE *cover, ptrdiff_t count) {
    for (ptrdiff_t i = 0; i < count; ++i) {
        BYTE *pixel = pixels + i * kPixelBytes;
        const uint32_t d = LoadPixel(pixel);
        StorePixel(pixel, Mixed(d, Over(colour, d), WeightOf(cover[i]), 0, 0));
    }
}

void DrawEvenly(BYTE *pixels, DWORD colour, BYTE cover, ptrdiff_t count) {
    for (ptrdiff_t i = 0; i < count; ++i) DrawCovered(pixels + i * kPixelBytes, colour, &cover, 1);
}

}  // namespace lacquer
