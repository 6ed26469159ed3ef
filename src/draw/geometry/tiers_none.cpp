// A build without faster tiers: the base forms stay.

#include "draw/geometry/cover_sse2.h"
#include "draw/geometry/shadow_sse2.h"

namespace lacquer {

void ApplySse2Cover(CoverKernels & /*kernels*/) {}
void ApplySse2Shadow(ShadowKernels & /*kernels*/) {}

}  // namespace lacquer
