// The SSE2 forms of the shadows' sums, where the target has that instruction set.
#pragma once

#include "draw/geometry/shadow_kernels.h"
#include "platform/simd.h"

namespace lacquer {

#ifdef LACQUER_SSE2
void ApplySse2Shadow(ShadowKernels &kernels);
#else
inline void ApplySse2Shadow(ShadowKernels &) {}
#endif

}  // namespace lacquer
