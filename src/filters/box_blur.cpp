// Which views are blurred, and locking them.

#include "filters/box_blur.h"

#include "core/locked.h"
#include "pipeline/table/image_table.h"

namespace lacquer {

void BoxBlur(const SurfaceView &dest, const SurfaceView &source) {
    if (dest.bitsPerPixel == 32 && source.bitsPerPixel == 32) ImageKernels().boxBlur(dest, source);
}

void BoxBlur(PixelSurface &dest, const RECT *destRect, PixelSurface &source, const RECT *sourceRect) {
    const LockedSurface from(source, sourceRect);
    if (!from.View()) return;
    const LockedSurface to(dest, destRect);
    if (to.View()) BoxBlur(*to.View(), *from.View());
}

}  // namespace lacquer
