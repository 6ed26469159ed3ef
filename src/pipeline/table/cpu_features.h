// Which instruction sets the processor has, as far as the kernel table asks.
#pragma once

namespace lacquer {

/// All zero until detected; kept so when the processor can't be asked.
struct CpuFeatures {
    bool detected = false;
    bool mmx = false;
    bool sse = false;
    bool sse2 = false;
    bool avx2 = false;  ///< as well the operating system's consent; builds without LACQUER_WIDE do not ask

    bool HasAllTiers() const { return mmx && sse && sse2 && avx2; }
};

/// Asks the processor, without any cache.
CpuFeatures DetectCpuFeatures();

/// The processor's features, detected once, at load. The three queries answer from the same cache.
const CpuFeatures &CachedCpuFeatures();
bool HasMmx();
bool HasSse();
bool HasSse2();

}  // namespace lacquer
