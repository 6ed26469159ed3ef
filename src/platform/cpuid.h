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

/// In bytes; 0 where the processor does not tell.
struct CacheSizes {
    int64_t second = 0, third = 0;
};

/// The sizes of the data caches, by CPUID leaf 4 or, on processors that have it, leaf 0x8000001D.
CacheSizes ReadCacheSizes();

}  // namespace lacquer
