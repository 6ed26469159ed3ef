# LACQUER_TIERS: the kernels for the registers of SSE2, beside the base kernels that every processor has. Only a target
# that always has SSE2 can have them.
include(CheckCXXSourceCompiles)
include(CMakeDependentOption)

check_cxx_source_compiles("
#if !defined(__SSE2__) && !defined(_M_X64)
#error
#endif
#include <emmintrin.h>
int main() { return _mm_cvtsi128_si32(_mm_setzero_si128()); }" LACQUER_HAS_SSE2)
cmake_dependent_option(LACQUER_TIERS "Add the faster tiers of kernels" ON LACQUER_HAS_SSE2 OFF)

# LACQUER_WIDE: one more tier, for the registers of AVX2. A default build neither has nor asks for anything beyond SSE2.
cmake_dependent_option(LACQUER_WIDE "Add the tier for AVX2" OFF LACQUER_TIERS OFF)
