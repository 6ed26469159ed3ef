// Which vector instructions the target always has. LACQUER_SSE2 is defined where these are those of <emmintrin.h>;
// nothing newer is used, and code without the macro is the definition of what the vector code does.
#pragma once

#if defined(__SSE2__) || defined(_M_X64)
#define LACQUER_SSE2 1
#include <emmintrin.h>
#endif
