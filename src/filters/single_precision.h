// For files whose single-precision steps must give the same bits on every machine: each step is rounded to 24 bits
// before the next one uses it. That compilers fuse no steps is set where the library is built.
#pragma once

#include <cfloat>

static_assert(FLT_EVAL_METHOD == 0, "steps would be carried out in a wider format");
static_assert(FLT_RADIX == 2 && FLT_MANT_DIG == 24);
