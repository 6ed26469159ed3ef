// Processor features from CPUID.

#include "pipeline/table/cpu_features.h"

#include "pipeline/table/tier_avx2.h"
#include "platform/avx2.h"
#include "platform/cpuid.h"

namespace lacquer {

CpuFeatures DetectCpuFeatures() {
    constexpr uint32_t kMmxBit = 1u << 23, kSseBit = 1u << 25, kSse2Bit = 1u << 26;
    uint32_t edx = 0;
    if (!ReadCpuidFeatureBits(edx)) return {};
    CpuFeatures features = {
        .detected = true, .mmx = (edx & kMmxBit) != 0, .sse = (edx & kSseBit) != 0, .sse2 = (edx & kSse2Bit) != 0};
    if constexpr (kHasAvx2Tier) features.avx2 = MayUseAvx2();
    return features;
}

const CpuFeatures &CachedCpuFeatures() {
    static const CpuFeatures features = DetectCpuFeatures();
    return features;
}

bool HasMmx() { return CachedCpuFeatures().mmx; }
bool HasSse() { return CachedCpuFeatures().sse; }
bool HasSse2() { return CachedCpuFeatures().sse2; }

}  // namespace lacquer
