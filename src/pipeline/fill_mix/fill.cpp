// Fills: one formula per kernel, from the colour c and the destination word d. Notation as in combine.h.

#include "pipeline/fill_mix/fill.h"

#include "pipeline/memory/pixel_runs.h"

namespace lacquer {
namespace {

/// d := formula(d)
template <class Formula>
int ChangePixels(const SurfaceView &dest, const Formula &formula) {
    return ForEachRun(dest, [formula](BYTE *pixels, ptrdiff_t count) {
        for (ptrdiff_t i = 0; i < count; ++i) {
            StorePixel(pixels + i * kPixelBytes, formula(LoadPixel(pixels + i * kPixelBytes)));
        }
    });
}

}  // namespace

int FillCopy(const SurfaceView *dest, DWORD colour) {
    return ForEachRun(*dest, [c = uint32_t{colour}](BYTE *pixels, ptrdiff_t count) {
        for (ptrdiff_t i = 0; i < count; ++i) StorePixel(pixels + i * kPixelBytes, c);
    });
}

int FillOver(const SurfaceView *dest, DWORD colour) {
    const uint32_t c = colour, keep = 256 - Alpha(c);
    return ChangePixels(*dest, [=](uint32_t d) { return c + Scale(d, keep); });
}

int FillBehind(const SurfaceView *dest, DWORD colour) {
    return ChangePixels(*dest, [c = uint32_t{colour}](uint32_t d) { return d + Scale(c, 256 - Alpha(d)); });
}

int FillModulate(const SurfaceView *dest, DWORD colour) {
    return ChangePixels(*dest, [c = uint32_t{colour}](uint32_t d) { return Multiply(d, c); });
}

int FillOr(const SurfaceView *dest, DWORD colour) {
    return ChangePixels(*dest, [c = uint32_t{colour}](uint32_t d) { return d | c; });
}

int FillGreyTint(const SurfaceView *dest, DWORD colour) {
    return ChangePixels(*dest, [cA = Alpha(colour)](uint32_t d) {
        const uint32_t level = (d & 0xFF) + 2 * (d >> 8 & 0xFF) + (d >> 16 & 0xFF);
        const uint32_t grey = (level >> 2) * cA >> 8;
        // The colour channels only: the share of alpha is replaced by alpha itself.
        const uint32_t tinted = AddModulo(Scale(d, 256 - Alpha(d)), grey * 0x010101u);
        return (tinted & ~kOpaque) | (d & kOpaque);
    });
}

int MixColor(const SurfaceView *dest, DWORD colour, BYTE weight) {
    if (weight == 0) return 1;
    if (weight == 255) return FillCopy(dest, colour);
    const uint32_t c = colour, keep = 255u - weight;
    return ChangePixels(*dest, [=](uint32_t d) { return AddModulo(Scale(d, keep), c); });
}

}  // namespace lacquer
