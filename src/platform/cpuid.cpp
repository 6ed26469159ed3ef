// CPUID, in the words of each compiler.

#include "platform/cpuid.h"

#if defined(_MSC_VER)
#include <intrin.h>
#elif defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#endif

namespace lacquer {

bool ReadCpuidFeatureBits([[maybe_unused]] uint32_t &edx) {
#if defined(_MSC_VER)
    int registers[4];
    __cpuid(registers, 1);
    edx = static_cast<uint32_t>(registers[3]);
    return true;
#elif defined(__x86_64__) || defined(__i386__)
    // __get_cpuid tests first whether the flags register has a writable ID bit, where processors without CPUID exist.
    unsigned eax, ebx, ecx, features;
    if (!__get_cpuid(1, &eax, &ebx, &ecx, &features)) return false;
    edx = features;
    return true;
#else
    return false;
#endif
}

}  // namespace lacquer
