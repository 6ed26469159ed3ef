// The table as a whole: how much each tier replaces.

#include <algorithm>

#include "kernel_check.h"
#include "platform/cpuid.h"

namespace lacquer {
namespace {

CpuFeatures FeaturesOf(unsigned bits) {
    return {.detected = (bits & 1) != 0, .mmx = (bits & 2) != 0, .sse = (bits & 4) != 0, .sse2 = (bits & 8) != 0};
}

/// In how many kernels two tables differ: three for each row, by depth, and the single slots.
std::ptrdiff_t Differences(const KernelTable &a, const KernelTable &b) {
    return std::count_if(AllKernels().begin(), AllKernels().end(),
                         [&](const Kernel &kernel) { return kernel.address(a) != kernel.address(b); });
}

TEST(KernelTable, EachTierReplacesItsEntries) {
    if (!kHasTiers) GTEST_SKIP() << "no tiers in this build";
    const KernelTable base = BaseKernels(WeightForm::Q8), mmx = BuildKernelTable({.mmx = true});
    EXPECT_EQ(Differences(base, mmx), 3 * kRowCount + 8);
    EXPECT_EQ(Differences(base, BuildKernelTable({.sse = true})), 5);
    EXPECT_EQ(Differences(base, BuildKernelTable({.sse2 = true})), 7);
    // On top of each other: the tiers share what several of them have.
    const KernelTable mmxSse = BuildKernelTable({.mmx = true, .sse = true});
    const KernelTable all = BuildKernelTable({.mmx = true, .sse = true, .sse2 = true});
    EXPECT_EQ(Differences(mmx, mmxSse), 2);
    EXPECT_EQ(Differences(mmxSse, all), 0);
    // All but what only moves words: the same-size copy of words, and the nearest copies, also of opaque pixels.
    if (CachedCpuFeatures().HasAllTiers()) {
        EXPECT_EQ(Differences(all, BuildKernelTable(CachedCpuFeatures())), 3 * kRowCount + 10 - 9);
    }
}

TEST(KernelTable, WithoutTiersTheProcessorDecidesTheBicubicWeightsAlone) {
    const KernelTable base = BaseKernels(WeightForm::Q8), fine = BaseKernels(WeightForm::Q14);
    EXPECT_EQ(Differences(base, fine), 3 * 8) << "the rows that sample bicubically";
    for (unsigned bits = 0; bits < 16 && !kHasTiers; ++bits) {
        const bool isFine = FeaturesOf(bits).mmx || !kIsX86;
        EXPECT_EQ(Differences(BuildKernelTable(FeaturesOf(bits)), isFine ? fine : base), 0) << bits;
    }
}

}  // namespace
}  // namespace lacquer
