// Which views are blurred.

#include "filters/box_blur.h"

#include "pipeline/table/image_table.h"

namespace lacquer {

void BoxBlur(const SurfaceView &dest, const SurfaceView &source) {
    if (dest.bitsPerPixel == 32 && source.bitsPerPixel == 32) ImageKernels().boxBlur(dest, source);
}

}  // namespace lacquer
