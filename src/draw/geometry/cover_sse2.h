// The SSE2 forms of painting parts of pixels; a build without faster tiers has none, and leaves the base forms.
#pragma once

#include "draw/geometry/cover_kernels.h"

namespace lacquer {

void ApplySse2Cover(CoverKernels &kernels);

}  // namespace lacquer
