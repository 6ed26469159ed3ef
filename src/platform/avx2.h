// Whether the registers of AVX2 may be used.
#pragma once

namespace lacquer {

/// Whether the processor has the instructions (CPUID leaf 7) and the operating system keeps the registers (XGETBV).
bool MayUseAvx2();

}  // namespace lacquer
