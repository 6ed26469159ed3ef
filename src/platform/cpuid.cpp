// CPUID, in the words of each compiler.

#include "platform/cpuid.h"

#if defined(_M_X64) || defined(_M_IX86)
#include <intrin.h>
#elif defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#endif

namespace lacquer {
namespace {

struct Leaf {
    uint32_t eax = 0, ebx = 0, ecx = 0, edx = 0;
};

/// Result: all zero where there is no such leaf or no such instruction.
Leaf ReadLeaf([[maybe_unused]] uint32_t leaf, [[maybe_unused]] uint32_t subleaf) {
    Leaf result;
#if defined(_M_X64) || defined(_M_IX86)
    int words[4];
    __cpuid(words, static_cast<int>(leaf & 0x80000000));
    if (static_cast<uint32_t>(words[0]) < leaf) return result;
    __cpuidex(words, static_cast<int>(leaf), static_cast<int>(subleaf));
    const auto word = [&words](int i) { return static_cast<uint32_t>(words[i]); };
    result = {word(0), word(1), word(2), word(3)};
#elif defined(__x86_64__) || defined(__i386__)
    // It tests first whether the flags register has a writable ID bit, where processors without CPUID exist.
    if (!__get_cpuid_count(leaf, subleaf, &result.eax, &result.ebx, &result.ecx, &result.edx)) return {};
#endif
    return result;
}

constexpr uint32_t BitsOf(uint32_t word, int from, int count) { return word >> from & ((1u << count) - 1); }

/// Both leaves have a cache in each subleaf, in the same form, until one has none.
CacheSizes CachesOf(uint32_t leaf) {
    CacheSizes sizes;
    for (uint32_t subleaf = 0; subleaf < 16; ++subleaf) {
        const Leaf cache = ReadLeaf(leaf, subleaf);
        const uint32_t type = BitsOf(cache.eax, 0, 5), level = BitsOf(cache.eax, 5, 3);
        constexpr uint32_t kNone = 0, kInstructions = 2;
        if (type == kNone) break;
        if (type == kInstructions) continue;
        const uint64_t lineBytes = BitsOf(cache.ebx, 0, 12) + 1, partitions = BitsOf(cache.ebx, 12, 10) + 1;
        const uint64_t ways = BitsOf(cache.ebx, 22, 10) + 1, sets = uint64_t{cache.ecx} + 1;
        const auto bytes = static_cast<int64_t>(lineBytes * partitions * ways * sets);
        if (level == 2) sizes.second = bytes;
        if (level == 3) sizes.third = bytes;
    }
    return sizes;
}

}  // namespace

bool ReadCpuidFeatureBits(uint32_t &edx) {
    const Leaf features = ReadLeaf(1, 0);
    if (features.eax == 0) return false;  // a processor has a signature
    edx = features.edx;
    return true;
}

CacheSizes ReadCacheSizes() {
    const CacheSizes sizes = CachesOf(4);
    return sizes.second != 0 ? sizes : CachesOf(0x8000001D);
}

}  // namespace lacquer
