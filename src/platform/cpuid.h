// Access to the processor's identification instruction.
#pragma once

#include <cstdint>

namespace lacquer {

/// Whether this is a processor of the family that has the instruction.
#if defined(__x86_64__) || defined(__i386__) || defined(_M_X64) || defined(_M_IX86)
inline constexpr bool kIsX86 = true;
#else
inline constexpr bool kIsX86 = false;
#endif

/// Reads register EDX of CPUID leaf 1 (the feature bits of MMX, SSE and SSE2 among others).
/// Result: false when the processor has no such instruction; `edx` is then left as it was.
bool ReadCpuidFeatureBits(uint32_t &edx);

}  // namespace lacquer
