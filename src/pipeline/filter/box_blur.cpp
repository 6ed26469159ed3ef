// The box blur, pixel by pixel.

#include "pipeline/filter/box_blur.h"

namespace lacquer {
namespace {

constexpr bool NinthIsExact() {
    for (uint32_t sum = 0; sum <= kBoxSide * kBoxSide * 255; ++sum) {
        if (sum * kNinth >> 16 != sum / 9) return false;
    }
    return true;
}
static_assert(NinthIsExact());

}  // namespace

void BlurBoxes(const SurfaceView &dest, const SurfaceView &source) {
    const LONG columns = std::min(dest.width, source.width), rows = std::min(dest.height, source.height);
    for (LONG y = 0; y < rows; ++y) {
        const BoxRows around(source, y);
        for (LONG x = 0; x < columns; ++x) BlurPixel(RowOf(dest, y), around, source.width, x);
    }
}

}  // namespace lacquer
