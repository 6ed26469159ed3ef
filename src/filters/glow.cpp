// The glow: box blurs around a step that makes everything covered white.

#include "filters/glow.h"

#include "filters/apply.h"
#include "filters/box_blur.h"
#include "filters/map_pixels.h"
#include "pipeline/pixel/pixel.h"

namespace lacquer {
namespace {

void GlowThrough(const SurfaceView &object, const SurfaceView &scratch) {
    if (object.bitsPerPixel != 32) return;
    BoxBlur(scratch, object);
    MapWords(scratch, [](uint32_t c) { return Alpha(c) != 0 ? kWhite : c; });
    BoxBlur(object, scratch);
    BoxBlur(scratch, object);
    BoxBlur(object, scratch);
}

}  // namespace

void Glow(PixelSurface &object, const RECT *rect, PixelSurface &scratch) {
    ApplyTo(scratch, nullptr, [&](const SurfaceView &through) {
        ApplyTo(object, rect, [&](const SurfaceView &view) { GlowThrough(view, through); });
    });
}

}  // namespace lacquer
