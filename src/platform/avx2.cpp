// Asking for AVX2, in the words of each compiler.

#include "platform/avx2.h"

#if defined(__GNUC__)

namespace lacquer {

// This asks the operating system, too.
bool MayUseAvx2() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") != 0;
}

}  // namespace lacquer

#else

#include <immintrin.h>
#include <intrin.h>

namespace lacquer {

bool MayUseAvx2() {
    constexpr int kXgetbv = 1 << 27, kAvx = 1 << 28, kAvx2 = 1 << 5;
    constexpr unsigned long long kBothHalves = 6;
    int leaf0[4], leaf1[4], leaf7[4];
    __cpuid(leaf0, 0);
    if (leaf0[0] < 7) return false;
    __cpuid(leaf1, 1);
    __cpuidex(leaf7, 7, 0);
    const bool has = (leaf1[2] & kXgetbv) != 0 && (leaf1[2] & kAvx) != 0 && (leaf7[1] & kAvx2) != 0;
    return has && (_xgetbv(0) & kBothHalves) == kBothHalves;
}

}  // namespace lacquer

#endif
