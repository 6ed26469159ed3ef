// What every draw is asked first; one function, as there are some two hundred kernels.

#include "pipeline/sample/draw_area.h"

namespace lacquer {

bool CanDraw(const SurfaceView &dest, const SurfaceView &source, int sourceBits, const DrawArea &area) {
    const auto inside = [](int64_t offset, int64_t size, int64_t fullSize) {
        return offset >= 0 && offset + size <= fullSize;
    };
    return CanFill(dest) && source.bitsPerPixel == sourceBits && source.width > 0 && source.height > 0 &&
           inside(area.visibleOffset.x, dest.width, area.fullSize.cx) &&
           inside(area.visibleOffset.y, dest.height, area.fullSize.cy);
}

}  // namespace lacquer
