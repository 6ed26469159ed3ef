// The SSE2 forms of painting parts of pixels, where the target has that instruction set.
#pragma once

#include "draw/geometry/cover_kernels.h"
#include "platform/simd.h"

namespace lacquer {

#ifdef LACQUER_SSE2
void ApplySse2Cover(CoverKernels &kernels);
#else
inline void ApplySse2Cover(CoverKernels &) {}
#endif

}  // namespace lacquer
