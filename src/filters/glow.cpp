// The glow: box blurs around a step that makes everything covered white.

#include "filters/glow.h"

#include "filters/box_blur.h"
#include "filters/map_pixels.h"
#include "pipeline/pixel/pixel.h"

namespace lacquer {

void Glow(const SurfaceView &object, const SurfaceView &scratch) {
    if (object.bitsPerPixel != 32) return;
    BoxBlur(scratch, object);
    MapWords(scratch, [](uint32_t c) { return Alpha(c) != 0 ? 0xFFFFFFFF : c; });
    BoxBlur(object, scratch);
    BoxBlur(scratch, object);
    BoxBlur(object, scratch);
}

}  // namespace lacquer
