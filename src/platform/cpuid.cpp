// CPUID, in the words of each compiler.

#include "platform/cpuid.h"

#if defined(_M_X64) || defined(_M_IX86)

#include <intrin.h>

namespace lacquer {

bool ReadCpuidFeatureBits(uint32_t &edx) {
    int registers[4];
    __cpuid(registers, 1);
    edx = static_cast<uint32_t>(registers[3]);
    return true;
}

}  // namespace lacquer

#elif defined(__x86_64__) || defined(__i386__)

#include <cpuid.h>

namespace lacquer {

bool ReadCpuidFeatureBits(uint32_t &edx) {
    // __get_cpuid tests first whether the flags register has a writable ID bit, where processors without CPUID exist.
    unsigned eax, ebx, ecx, features;
    if (!__get_cpuid(1, &eax, &ebx, &ecx, &features)) return false;
    edx = features;
    return true;
}

}  // namespace lacquer

#else

namespace lacquer {

bool ReadCpuidFeatureBits(uint32_t & /*edx*/) { return false; }

}  // namespace lacquer

#endif
