// What follows, up to avx2_end.h, is compiled for AVX2: every function that is defined there, also from templates, and
// none from headers that were included before.

#include "platform/inline.h"

// A function that is compiled for other processors can't take in one of these.
#undef LACQUER_INLINE
#define LACQUER_INLINE inline

#if defined(__clang__)
#pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#elif defined(__GNUC__)
#pragma GCC push_options
#pragma GCC target("avx2")
#endif
