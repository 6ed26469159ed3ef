// From which size on images take other ways through memory, by the caches of the processor.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/cpuid.h"

namespace lacquer {

/// No pixel depends on these.
struct MemoryLimits {
    int64_t lookaheadPixels;    ///< of an image whose pixels are asked for ahead of their turn
    int64_t secondLevelBytes;   ///< of the second-level cache
    int64_t streamedBytes;      ///< of a result that goes past the caches
    int64_t streamedCopyBytes;  ///< the same for copies and mirrors, which take memory in its order
};

/// Processors that do not tell the sizes of their caches get usual ones, and so do those with sizes that none has.
constexpr MemoryLimits LimitsFor(const CacheSizes &caches) {
    constexpr int64_t kMega = int64_t{1} << 20;
    const int64_t second = caches.second > 0 ? std::clamp(caches.second, kMega / 4, 4 * kMega) : kMega;
    const int64_t third = caches.third > 0 ? std::clamp(caches.third, 4 * kMega, 128 * kMega) : 16 * kMega;
    return {third / 16, second, std::max(third / 8, 4 * kMega), std::max(third / 4, 8 * kMega)};
}

/// The limits of this processor, set when the library is loaded. Tests lower them, so that small images go all ways.
extern MemoryLimits memoryLimits;

}  // namespace lacquer
