// Access to the processor's identification instruction.
#pragma once

#include <cstdint>

namespace lacquer {

/// Reads register EDX of CPUID leaf 1 (the feature bits of MMX, SSE and SSE2 among others).
/// Result: false when the processor has no such instruction; `edx` is then left as it was.
bool ReadCpuidFeatureBits(uint32_t &edx);

}  // namespace lacquer
