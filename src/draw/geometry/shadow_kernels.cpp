// The base forms, and the choice of a tier.

#include "draw/geometry/shadow_kernels.h"

#include "draw/geometry/shadow_sse2.h"

namespace lacquer {
namespace {

void BaseAddLines(int32_t *sums, const int16_t *lines, const int16_t *weights, int count, int from, int to) {
    for (int i = 0; i < count; ++i, lines += kLinePixels) {
        const int32_t weight = weights[i];
        for (int x = from; x < to; ++x) sums[x] += weight * lines[x];
    }
}

void BaseCover(const int32_t *sums, int count, BYTE *out) {
    for (int i = 0; i < count; ++i) out[i] = CoverOfShare(sums[i], 255);
}

}  // namespace

ShadowKernels BuildShadowKernels(const CpuFeatures &features) {
    ShadowKernels kernels{BaseAddLines, BaseCover};
    if (features.sse2) ApplySse2Shadow(kernels);
    return kernels;
}

const ShadowKernels &ShadowKernelsInUse() {
    static const ShadowKernels kernels = BuildShadowKernels(CachedCpuFeatures());
    return kernels;
}

}  // namespace lacquer
