// The base tier's sums, in loops that compilers turn into vector code.

#include "pipeline/filter/gaussian.h"

#include <cfloat>

static_assert(FLT_EVAL_METHOD == 0 && FLT_MANT_DIG == 24, "each step has to be rounded before the next one");

namespace lacquer {

void WidenBytes(float *floats, const BYTE *bytes, ptrdiff_t count) {
    for (ptrdiff_t i = 0; i < count; ++i) floats[i] = static_cast<float>(bytes[i]);
}

void SumTaps(BYTE *out, const float *const taps[kGaussianTaps], ptrdiff_t count) {
    const float *a = taps[0], *b = taps[1], *c = taps[2], *d = taps[3], *e = taps[4], *f = taps[5], *g = taps[6];
    for (ptrdiff_t i = 0; i < count; ++i) {
        float sum = kGaussianWeights[0] * a[i];
        sum = sum + kGaussianWeights[1] * b[i];
        sum = sum + kGaussianWeights[2] * c[i];
        sum = sum + kGaussianWeights[3] * d[i];
        sum = sum + kGaussianWeights[4] * e[i];
        sum = sum + kGaussianWeights[5] * f[i];
        sum = sum + kGaussianWeights[6] * g[i];
        out[i] = static_cast<BYTE>(static_cast<int>(sum));
    }
}

}  // namespace lacquer
