// The SSE2 forms of the shadows' sums; a build without faster tiers has none, and leaves the base forms.
#pragma once

#include "draw/geometry/shadow_kernels.h"

namespace lacquer {

void ApplySse2Shadow(ShadowKernels &kernels);

}  // namespace lacquer
